#include "imaging/FloatPainter.h"

#include "imaging/Clipping.h"

QRect FloatPainter::paste(const QPoint &position, const FloatImage &source, const QRect &sourceRect)
{
    const QRect wanted = sourceRect.isNull() ? source.rect() : sourceRect;
    const QPoint shift = position - wanted.topLeft();
    const QRect area = paintable(clipped(wanted, source.rect()).translated(shift));
    // Held, so that a raster pasted into itself is read as it was.
    const FloatImage held = source; // NOLINT(performance-unnecessary-copy-initialization)
    mix(area, [&](int x, int y) { return held.row(y - shift.y())[x - shift.x()]; });
    return area;
}

QRect FloatPainter::fill(float value, const QRect &rect)
{
    const QRect area = paintable(rect.isNull() ? m_target.rect() : rect);
    mix(area, [value](int, int) { return value; });
    return area;
}

QRect FloatPainter::paintable(const QRect &area) const
{
    const QRect inTarget = clipped(area, m_target.rect());
    return m_mask.isNull() ? inTarget : clipped(inTarget, m_mask.rect());
}

template <class ValueAt>
void FloatPainter::mix(const QRect &area, ValueAt valueAt)
{
    for (int y = area.top(); y <= area.bottom(); ++y) {
        const float *weights = m_mask.isNull() ? nullptr : m_mask.row(y);
        float *cells = m_target.row(y);
        for (int x = area.left(); x <= area.right(); ++x) {
            if (!weights)
                cells[x] = valueAt(x, y);
            else if (weights[x] != 0.0F)
                cells[x] = cells[x] * (1.0F - weights[x]) + valueAt(x, y) * weights[x];
        }
    }
}
