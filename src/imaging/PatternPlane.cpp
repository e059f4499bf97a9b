#include "imaging/PatternPlane.h"

#include "imaging/PixelBlocks.h"

#include <QRgb>

#include <algorithm>
#include <cstdlib>

namespace {

constexpr QRgb opaque = 0xFF000000U;
// The toolkit's smooth scaling counts source pixels in the upper half of 32 bits.
constexpr int maximumScalableSide = 32767;

bool isOrdinary(const QSize &size, qint64 pixelLimit)
{
    return std::max(size.width(), size.height()) <= maximumScalableSide &&
           qint64(size.width()) * size.height() <= pixelLimit;
}

QImage withPlainColours(const QImage &image)
{
    const bool isPlain =
        image.format() == QImage::Format_RGB32 || image.format() == QImage::Format_ARGB32;
    return isPlain ? image : image.convertToFormat(QImage::Format_ARGB32);
}

int scaledLength(int length, double scale)
{
    const double above = length * scale + 0.5;
    return std::max(1, int(above));
}

int wrapped(int position, int length)
{
    const int rest = position % length;
    return rest < 0 ? rest + length : rest;
}

// The part of the plane that is covered by copies of the image from (0, 0) on.
QImage repeated(const QImage &image, const QRect &area)
{
    QImage result(area.size(), QImage::Format_RGB32);
    for (int y = 0; y < area.height(); ++y) {
        const int row = wrapped(area.top() + y, image.height());
        const auto *from = reinterpret_cast<const QRgb *>(image.constScanLine(row));
        auto *to = reinterpret_cast<QRgb *>(result.scanLine(y));
        int column = wrapped(area.left(), image.width());
        for (int left = area.width(); left > 0; column = 0) {
            const int run = std::min(left, image.width() - column);
            to = std::transform(
                from + column, from + column + run, to, [](QRgb pixel) { return pixel | opaque; });
            left -= run;
        }
    }
    return result;
}

QImage smoothlyScaled(const QImage &image, const QSize &size)
{
    return image.scaled(size, Qt::IgnoreAspectRatio, Qt::SmoothTransformation);
}

/// One axis of the scaling.
struct Axis
{
    int from; ///< the pattern's length
    int to;   ///< its scaled length

    // How far, in pixels of the pattern and their parts of 1 / to, an edge of the scaled plane lies
    // beside the next edge of the pattern's plane.
    qint64 gapAt(int edge) const
    {
        const qint64 rest = std::abs(qint64(edge) * from % to);
        return std::min(rest, to - rest);
    }

    int sourceOf(int edge) const { return qRound(double(edge) * from / to); }

    double shrinking() const { return std::min(1.0, double(to) / from); }

    // Of the edges from the first one on, the one that lies closest to an edge of the pattern's.
    int bestEdge(int first, int step) const
    {
        const int last = first + step * int(128 * shrinking());
        int best = first;
        for (int edge = first; edge != last && gapAt(best) > 0; edge += step)
            best = gapAt(edge) < gapAt(best) ? edge : best;
        return best;
    }
};

/// A stretch of whole pixels before and after scaling.
struct Stretch
{
    // Around the pixels first … last of the scaled plane, with as much beside them as smoothing
    // sees, and with ends that meet as exactly as whole pixels allow.
    Stretch(const Axis &axis, int first, int last)
    {
        const int margin = 2 + 2 * (axis.to / axis.from + 1);
        to = axis.bestEdge(first - margin, -1);
        toLength = axis.bestEdge(last + 1 + margin, 1) - to;
        from = axis.sourceOf(to);
        fromLength = axis.sourceOf(to + toLength) - from;
    }

    int from;
    int fromLength;
    int to;
    int toLength;
};

void copyPixels(const QImage &source, const QRect &rect, QImage &target, const QPoint &position)
{
    for (int y = 0; y < rect.height(); ++y) {
        const auto *from = reinterpret_cast<const QRgb *>(source.constScanLine(rect.top() + y));
        auto *to = reinterpret_cast<QRgb *>(target.scanLine(position.y() + y));
        std::copy_n(from + rect.left(), rect.width(), to + position.x());
    }
}

} // namespace

PatternPlane::PatternPlane(const QImage &pattern, double scale, int side, qint64 pixelLimit)
    : m_pattern(withPlainColours(pattern))
    , m_scaledSize(scaledLength(pattern.width(), scale), scaledLength(pattern.height(), scale))
    , m_pixelLimit(pixelLimit)
{
    const QSize size = m_pattern.size();
    const bool isAlone = m_scaledSize.width() >= side && m_scaledSize.height() >= side;
    const int copies = isAlone ? 1 : 3;
    if (scale == 1.0) {
        m_tile = m_pattern;
    } else if (isOrdinary(copies * size, pixelLimit) &&
               isOrdinary(copies * m_scaledSize, pixelLimit)) {
        const QPoint start = isAlone ? QPoint() : QPoint(size.width(), size.height());
        const QImage mosaic = repeated(m_pattern, QRect(-start, copies * size));
        const QPoint centre =
            isAlone ? QPoint() : QPoint(m_scaledSize.width(), m_scaledSize.height());
        m_tile = smoothlyScaled(mosaic, copies * m_scaledSize).copy(QRect(centre, m_scaledSize));
    } else if (isOrdinary(m_scaledSize, pixelLimit)) {
        m_tile = scaledPart({QPoint(), m_scaledSize});
    }
}

QImage PatternPlane::part(const QRect &area) const
{
    return m_tile.isNull() ? scaledPart(area) : repeated(m_tile, area);
}

QImage PatternPlane::scaledPart(const QRect &area) const
{
    const Axis columns{m_pattern.width(), m_scaledSize.width()};
    const Axis rows{m_pattern.height(), m_scaledSize.height()};
    // Neither the blocks nor what they are made from are large. What a block sees beyond a border
    // of the pattern is always the pattern's other end.
    const int side = blockSide(m_pixelLimit);
    const QSize blockSize(std::max(1, int(side * columns.shrinking())),
                          std::max(1, int(side * rows.shrinking())));
    QImage result(area.size(), QImage::Format_RGB32);
    forEachBlock(area, blockSize, [&](const QRect &block) {
        const Stretch x(columns, block.left(), block.right());
        const Stretch y(rows, block.top(), block.bottom());
        const QImage source = repeated(m_pattern, {x.from, y.from, x.fromLength, y.fromLength});
        const QImage scaled = smoothlyScaled(source, {x.toLength, y.toLength});
        copyPixels(
            scaled, block.translated(-x.to, -y.to), result, block.topLeft() - area.topLeft());
    });
    return result;
}
