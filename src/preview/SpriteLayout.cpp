#include "preview/SpriteLayout.h"

#include <algorithm>
#include <cmath>
#include <optional>
#include <utility>

namespace {
constexpr int triedRowLengths = 6; // more and fewer sprites in the first row than a square's has

/// Rectangles in rows that are at most @p width wide, if a rectangle alone isn't wider.
QVector<QRect> inRows(const QVector<QSize> &sizes, int width)
{
    QVector<QRect> rects;
    QPoint corner;
    int rowHeight = 0;
    for (const QSize &size : sizes) {
        if (corner.x() > 0 && corner.x() + size.width() > width) {
            corner = QPoint(0, corner.y() + rowHeight + spriteGap);
            rowHeight = 0;
        }
        rects.append(QRect(corner, size));
        corner.rx() += size.width() + spriteGap;
        rowHeight = std::max(rowHeight, size.height());
    }
    return rects;
}

QRect bounds(const QVector<QRect> &rects)
{
    QRect result;
    for (const QRect &rect : rects)
        result |= rect;
    return result;
}

int longerSide(const QRect &rect)
{
    return std::max(rect.width(), rect.height());
}

/// How many sprites a first row about as long as a square's side has.
int squareRowLength(const QVector<QSize> &sizes)
{
    double area = 0.0;
    for (const QSize &size : sizes)
        area += double(size.width() + spriteGap) * (size.height() + spriteGap);
    double width = 0.0;
    int length = 0;
    while (length < sizes.size() && width < std::sqrt(area))
        width += sizes[length++].width() + spriteGap;
    return length;
}

/// The rows whose longer side is shortest, of those about as wide as high; rather wide than high.
QVector<QRect> squarestRows(const QVector<QSize> &sizes)
{
    QVector<QRect> best;
    const int around = squareRowLength(sizes);
    int width = -spriteGap;
    for (int i = 0; i < std::min(int(sizes.size()), around + triedRowLengths); ++i) {
        width += sizes[i].width() + spriteGap;
        if (i < around - triedRowLengths)
            continue;
        const QVector<QRect> rows = inRows(sizes, width);
        if (best.isEmpty() || longerSide(bounds(rows)) <= longerSide(bounds(best)))
            best = rows;
    }
    return best;
}

bool isFree(const QRect &block, const QVector<QRect> &others)
{
    const QRect claimed = block.marginsAdded({spriteGap, spriteGap, spriteGap, spriteGap});
    return std::none_of(others.begin(), others.end(), [&claimed](const QRect &other) {
        return other.intersects(claimed);
    });
}

/// Where a block of @p size goes: right of or below one of the others or all of them, so that the
/// whole is as square as it goes, and as far up as it goes then.
QPoint placeAmong(const QVector<QRect> &others, const QSize &size)
{
    const QRect all = bounds(others);
    std::optional<std::pair<int, QPoint>> best;
    for (const QRect &beside : others + QVector<QRect>{all}) {
        for (const QPoint corner : {QPoint(beside.x() + beside.width() + spriteGap, beside.y()),
                                    QPoint(beside.x(), beside.y() + beside.height() + spriteGap)}) {
            const QRect block(corner, size);
            const int side = longerSide(all | block);
            const bool isBetter =
                !best || std::pair(side, corner.y()) < std::pair(best->first, best->second.y());
            if (isBetter && isFree(block, others))
                best = std::pair(side, corner);
        }
    }
    return best->second;
}
} // namespace

QVector<QPoint> layoutSprites(const QVector<QSize> &sizes, const QVector<QRect> &others)
{
    QVector<QSize> drawn;
    // A sprite without pixels still gets a place of its own.
    for (const QSize &size : sizes)
        drawn.append(size.expandedTo({1, 1}));
    const QVector<QRect> rects = squarestRows(drawn);
    const QSize block = bounds(rects).size();
    const QPoint corner = others.isEmpty() ? QPoint(-block.width() / 2, -block.height() / 2)
                                           : placeAmong(others, block);
    QVector<QPoint> places;
    for (const QRect &rect : rects)
        places.append(corner + rect.topLeft());
    return places;
}
