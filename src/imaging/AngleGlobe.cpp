#include "imaging/AngleGlobe.h"

#include <QImage>
#include <QtMath>

#include <algorithm>
#include <array>
#include <cmath>

namespace {

constexpr int directions = 12;
constexpr int degreesPerDirection = 360 / directions;
constexpr int rings = 4;

qint16 storedSlope(int offset, int depthSquared)
{
    // On the rim a slope has no end: any divisor this small saturates each offset but 0.
    const double depth = depthSquared > 0 ? std::sqrt(depthSquared) : 1.0 / 256.0;
    return toStoredSlope(float(offset / depth));
}

// X and Y of the normal are the offset through the radius; its Z is the depth through the radius.
AngleImage::Pixel slopeAt(const QPoint &offset, int radius)
{
    const int depthSquared = radius * radius - QPoint::dotProduct(offset, offset);
    return {storedSlope(offset.x(), depthSquared), storedSlope(offset.y(), depthSquared)};
}

// Counted from +Y towards +X, the nearest one, 12 for the first again; halfway the next one.
int nearestDirection(const QPoint &offset)
{
    const double steepness = std::abs(double(offset.x()) / offset.y());
    double angle = offset.y() == 0 ? 90.0 : qRadiansToDegrees(std::atan(steepness));
    if (offset.x() >= 0)
        angle = offset.y() >= 0 ? angle : 180.0 - angle;
    else
        angle = offset.y() >= 0 ? 360.0 - angle : angle + 180.0;
    return int(std::floor(angle / degreesPerDirection + 0.5));
}

// Exact where the library's sine of a multiple of π is off by a trifle, which truncation would make
// a pixel.
double sineOf(int direction)
{
    static const double root = std::sqrt(0.75);
    static const std::array<double, directions> sines{
        0.0, 0.5, root, 1.0, root, 0.5, 0.0, -0.5, -root, -1.0, -root, -0.5};
    return sines.at(size_t(direction % directions));
}

QPoint snapped(const QPoint &offset, int globeSize)
{
    const int centre = globeSize / 2;
    const double step = centre * 0.25;
    if (offset.isNull())
        return offset;
    const double distance = std::sqrt(QPoint::dotProduct(offset, offset));
    const double radius = std::min(int(distance / step), rings) * step;
    const int direction = nearestDirection(offset);
    const auto pixel = [&](double sine) {
        return std::clamp(int(sine * radius + centre), 0, globeSize - 1);
    };
    const QPoint point(pixel(sineOf(direction)), pixel(sineOf(direction + 3)));
    return point - QPoint(centre, centre);
}

} // namespace

QPointF globePosition(const AngleImage::Pixel &slope, int globeSize)
{
    const QPointF slopes(slope.sx / 256.0, slope.sy / 256.0);
    const double length = std::sqrt(QPointF::dotProduct(slopes, slopes) + 1.0);
    const int radius = globeSize / 2;
    return slopes / length * radius;
}

QPointF heldOnGlobe(const QPointF &position, int globeSize)
{
    const double limit = globeSize * 0.5 * 0.9;
    const double distance = std::hypot(position.x(), position.y());
    return distance > limit ? position * (limit / distance) : position;
}

QPoint globePixel(const QPointF &position, int globeSize)
{
    const int centre = globeSize / 2;
    const int last = std::max(globeSize - 1, 0);
    const auto pixel = [=](double offset) {
        return qRound(std::clamp(offset + centre, 0.0, double(last)));
    };
    return {pixel(position.x()), pixel(position.y())};
}

AngleImage globeSlopes(int globeSize, bool discrete)
{
    AngleImage slopes(globeSize, globeSize);
    const int centre = globeSize / 2;
    for (int y = 0; y < slopes.height(); ++y) {
        AngleImage::Pixel *cells = slopes.row(y);
        for (int x = 0; x < slopes.width(); ++x) {
            const QPoint offset(x - centre, y - centre);
            cells[x] = slopeAt(discrete ? snapped(offset, globeSize) : offset, centre);
        }
    }
    return slopes;
}

std::optional<AngleImage::Pixel>
pickedAngle(const AngleImage &image, const QImage &texture, const QPointF &point)
{
    const QSize size = image.isNull() ? texture.size() : image.size();
    const auto isWithin = [](double at, int side) { return at > -1.0 && at < side; };
    if (!isWithin(point.x(), size.width()) || !isWithin(point.y(), size.height()))
        return std::nullopt;
    const QPoint pixel(int(point.x()), int(point.y()));
    if (image.isNull() || !texture.valid(pixel) || qAlpha(texture.pixel(pixel)) == 0)
        return AngleImage::Pixel();
    return image.row(pixel.y())[pixel.x()];
}
