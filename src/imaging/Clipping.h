#pragma once

#include <QRect>

/// The part of @p rect inside @p bounds. Empty for an empty @p rect, where the toolkit's own
/// intersection would turn a rectangle of width 0 or less around and return cells.
inline QRect clipped(const QRect &rect, const QRect &bounds)
{
    return rect.isEmpty() ? QRect() : rect.intersected(bounds);
}
