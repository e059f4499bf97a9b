#pragma once

#include <QPoint>
#include <QRect>

/// The part of @p rect inside @p bounds. Empty for an empty @p rect, where the toolkit's own
/// intersection would turn a rectangle of width 0 or less around and return cells.
inline QRect clipped(const QRect &rect, const QRect &bounds)
{
    return rect.isEmpty() ? QRect() : rect.intersected(bounds);
}

/// Where a part of one raster lands in another one.
struct Placement
{
    QRect area;   ///< of the target, empty when nothing lands there
    QPoint shift; ///< from a place in the source to that in the target
};

/// The place of what @p sourceRect (the empty rectangle means all) cuts out of @p source, put into
/// @p target with the top left at @p position, and clipped to both, and to @p mask unless that is
/// empty.
inline Placement placed(const QRect &target,
                        const QRect &mask,
                        const QPoint &position,
                        const QRect &source,
                        const QRect &sourceRect)
{
    const QRect wanted = sourceRect.isNull() ? source : sourceRect;
    const QPoint shift = position - wanted.topLeft();
    const QRect area = clipped(clipped(wanted, source).translated(shift), target);
    return {mask.isEmpty() ? area : clipped(area, mask), shift};
}
