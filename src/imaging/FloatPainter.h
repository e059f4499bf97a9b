#pragma once

#include "imaging/FloatImage.h"

#include <QPoint>
#include <QRect>

/// Changes a raster of floats through a weight mask: what the masked paste is for a surface.
/// Borrows the raster, which outlives it.
///
/// A null mask, as at first, takes the new values as they are. Otherwise a cell becomes
/// old · (1 − m) + new · m with the mask's weight at its place; cells with weight exactly 0 are
/// left alone, whatever they hold, and so are cells outside the mask.
class FloatPainter
{
public:
    explicit FloatPainter(FloatImage &target)
        : m_target(target)
    {
    }

    void setMask(const FloatImage &mask) { m_mask = mask; }

    /// Pastes the cells of @p source inside @p sourceRect (the empty rectangle means the whole
    /// source) with their top left at @p position, clipped to both. Returns the rectangle that was
    /// pasted into, empty when there was nothing to do.
    QRect paste(const QPoint &position, const FloatImage &source, const QRect &sourceRect = {});
    /// Sets the cells of @p rect (the empty rectangle means all) to @p value. Returns the rectangle
    /// that was filled, empty when there was nothing to do.
    QRect fill(float value, const QRect &rect = {});

private:
    /// @p valueAt gives the new value of the cell in column x of row y.
    template <class ValueAt>
    void mix(const QRect &area, ValueAt valueAt);

    FloatImage &m_target;
    FloatImage m_mask;
};
