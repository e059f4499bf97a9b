#include "imaging/MaskedPaste.h"

#include "imaging/Clipping.h"
#include "imaging/PixelLoops.h"

#include <algorithm>

QRect pasteMasked(AngleImage &target,
                  const FloatImage &mask,
                  const QPoint &position,
                  const AngleImage &source,
                  const QRect &sourceRect)
{
    const auto [area, shift] =
        placed(target.rect(), mask.rect(), position, source.rect(), sourceRect);
    if (area.isEmpty())
        return {};

    // Held, so that a surface pasted into itself is read as it was.
    const AngleImage held = source; // NOLINT(performance-unnecessary-copy-initialization)
    for (int y = area.top(); y <= area.bottom(); ++y) {
        const auto *from = held.row(y - shift.y()) + (area.left() - shift.x());
        auto *to = target.row(y) + area.left();
        if (mask.isNull())
            std::copy_n(from, area.width(), to);
        else
            fastestPixelLoops().mix(to, from, mask.row(y) + area.left(), area.width());
    }
    return area;
}

QRect copyRegion(AngleImage &target,
                 const FloatImage &mask,
                 const AngleImage &source,
                 const QRect &rect)
{
    const QRect area = rect.isNull() ? source.rect() : rect;
    return pasteMasked(target, mask, area.topLeft(), source, area);
}
