#include "preview/SpriteLayout.h"

#include <algorithm>

namespace {
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

/// The rows whose longer side is shortest, of all that the first row's length gives; rather wide
/// than high.
QVector<QRect> squarestRows(const QVector<QSize> &sizes)
{
    QVector<QRect> best;
    int width = -spriteGap;
    for (const QSize &size : sizes) {
        width += size.width() + spriteGap;
        const QVector<QRect> rows = inRows(sizes, width);
        if (best.isEmpty() || longerSide(bounds(rows)) <= longerSide(bounds(best)))
            best = rows;
    }
    return best;
}

/// Where a block of @p size goes: to the right of @p occupied or below it.
QPoint besideOccupied(const QSize &size, const QRect &occupied)
{
    if (occupied.isEmpty())
        return {-size.width() / 2, -size.height() / 2};
    const QPoint right(occupied.x() + occupied.width() + spriteGap, occupied.y());
    const QPoint below(occupied.x(), occupied.y() + occupied.height() + spriteGap);
    const int sideWithRight = longerSide(occupied | QRect(right, size));
    return sideWithRight <= longerSide(occupied | QRect(below, size)) ? right : below;
}
} // namespace

QVector<QPoint> layoutSprites(const QVector<QSize> &sizes, const QRect &occupied)
{
    QVector<QSize> drawn;
    // A sprite without pixels still gets a place of its own.
    for (const QSize &size : sizes)
        drawn.append(size.expandedTo({1, 1}));
    const QVector<QRect> rects = squarestRows(drawn);
    const QPoint corner = besideOccupied(bounds(rects).size(), occupied);
    QVector<QPoint> places;
    for (const QRect &rect : rects)
        places.append(corner + rect.topLeft());
    return places;
}
