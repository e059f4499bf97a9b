#include "imaging/StrokePainting.h"

#include "imaging/Capsule2D.h"

#include <algorithm>
#include <cmath>

namespace {

// Before it becomes an integer: a coordinate may lie anywhere, or be no number.
int limited(float coordinate, int side)
{
    return coordinate > -1.0F ? int(std::min(coordinate, float(side))) : -1;
}

// Inverted where the segment misses the image.
QRect touchedPixels(const QSizeF &size, const QVector2D &a, const QVector2D &b, const QSize &image)
{
    const auto rx = float(size.width() / 2.0);
    const auto ry = float(size.height() / 2.0);
    const int left = limited(std::floor(std::min(a.x(), b.x()) - rx), image.width());
    const int top = limited(std::floor(std::min(a.y(), b.y()) - ry), image.height());
    const int right = limited(std::ceil(std::max(a.x(), b.x()) + rx), image.width());
    const int bottom = limited(std::ceil(std::max(a.y(), b.y()) + ry), image.height());
    return {QPoint(std::max(left, 0), std::max(top, 0)),
            QPoint(std::min(right, image.width() - 1), std::min(bottom, image.height() - 1))};
}

using PaintRow = void (FloatBrushFunc::*)(const Capsule2D &, int, int, float *, int) const;

QRect paintSegment(const FloatBrushFunc &brush,
                   const Capsule2D &segment,
                   FloatImage &target,
                   PaintRow paintRow)
{
    const QRect area =
        touchedPixels({brush.sizeX, brush.sizeY}, segment.a, segment.b, target.size());
    if (area.isEmpty())
        return {};
    for (int y = area.top(); y <= area.bottom(); ++y)
        (brush.*paintRow)(segment, area.left(), y, target.row(y) + area.left(), area.width());
    return area;
}

} // namespace

QRect strokeBounds(const QSizeF &size,
                   const QVector2D &a,
                   const QVector2D &b,
                   const QSize &imageSize)
{
    const QRect touched = touchedPixels(size, a, b, imageSize);
    return touched.isEmpty() ? QRect(QPoint(), imageSize) : touched;
}

QRect paintSegmentMax(const FloatBrushFunc &brush,
                      const QVector2D &a,
                      const QVector2D &b,
                      FloatImage &target)
{
    return paintSegment(brush, {a, b}, target, &FloatBrushFunc::paintRowMax);
}

QRect paintSegmentMin(const FloatBrushFunc &brush,
                      const QVector2D &a,
                      const QVector2D &b,
                      FloatImage &target)
{
    return paintSegment(brush, {a, b}, target, &FloatBrushFunc::paintRowMin);
}

double strokePeak(int brushSize, double height, bool up)
{
    return brushSize * 0.5 * (up ? height : -height) / 100.0;
}
