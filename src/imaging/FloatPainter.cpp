#include "imaging/FloatPainter.h"

#include "imaging/Clipping.h"

#include <utility>

QRect FloatPainter::paste(const QPoint &position, const FloatImage &source, const QRect &sourceRect)
{
    const auto [area, shift] =
        placed(m_target.rect(), m_mask.rect(), position, source.rect(), sourceRect);
    const QPoint at = shift;
    // Held, so that a raster pasted into itself is read as it was.
    const FloatImage held = source; // NOLINT(performance-unnecessary-copy-initialization)
    mix(area, [&](int x, int y) { return held.row(y - at.y())[x - at.x()]; });
    return area;
}

QRect FloatPainter::fill(float value, const QRect &rect)
{
    const QRect wanted = rect.isNull() ? m_target.rect() : rect;
    const QRect area =
        placed(m_target.rect(), m_mask.rect(), wanted.topLeft(), wanted, wanted).area;
    mix(area, [value](int, int) { return value; });
    return area;
}

template <class ValueAt>
void FloatPainter::mix(const QRect &area, ValueAt valueAt)
{
    for (int y = area.top(); y <= area.bottom(); ++y) {
        const float *weights = m_mask.isNull() ? nullptr : std::as_const(m_mask).row(y);
        float *cells = m_target.row(y);
        for (int x = area.left(); x <= area.right(); ++x) {
            if (!weights)
                cells[x] = valueAt(x, y);
            else if (weights[x] != 0.0F)
                cells[x] = cells[x] * (1.0F - weights[x]) + valueAt(x, y) * weights[x];
        }
    }
}
