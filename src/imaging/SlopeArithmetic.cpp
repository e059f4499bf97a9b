#include "imaging/SlopeArithmetic.h"

#include "imaging/Clipping.h"
#include "imaging/PixelLoops.h"

#include <algorithm>

QRect addSlopes(AngleImage &target,
                const FloatImage &weights,
                const QPoint &position,
                const AngleImage &source,
                const QRect &sourceRect)
{
    const auto [area, shift] =
        placed(target.rect(), weights.rect(), position, source.rect(), sourceRect);
    // Held, so that a surface added to itself is read as it was.
    const AngleImage held = source; // NOLINT(performance-unnecessary-copy-initialization)
    const PixelLoops &loops = fastestPixelLoops();
    for (int y = area.top(); y <= area.bottom(); ++y) {
        const auto *from = held.row(y - shift.y()) + (area.left() - shift.x());
        auto *to = target.row(y) + area.left();
        if (weights.isNull())
            loops.add(to, from, area.width());
        else
            loops.addWeighted(to, from, weights.row(y) + area.left(), area.width());
    }
    return area;
}

QRect blendSlope(AngleImage &target,
                 const FloatImage &weights,
                 AngleImage::Pixel slope,
                 const QRect &rect)
{
    const QRect wanted = rect.isNull() ? target.rect() : rect;
    const QRect area = placed(target.rect(), weights.rect(), wanted.topLeft(), wanted, wanted).area;
    for (int y = area.top(); y <= area.bottom(); ++y) {
        auto *cells = target.row(y) + area.left();
        if (weights.isNull())
            std::fill_n(cells, area.width(), slope);
        else
            fastestPixelLoops().blend(cells, slope, weights.row(y) + area.left(), area.width());
    }
    return area;
}
