#include "imaging/effects/Relief.h"

#include "imaging/HeightsToAngles.h"
#include "imaging/SlopeArithmetic.h"

QImage plainPixels(const QImage &sprite)
{
    return sprite.convertToFormat(QImage::Format_ARGB32);
}

AngleImage baseSurface(const AngleImage &base, const QImage &sprite)
{
    return base.isNull() ? AngleImage(sprite.width(), sprite.height()) : base.unsharedCopy();
}

void addRelief(AngleImage &target, const FloatImage &heights, const QRect &part)
{
    // The slopes of a few rows at a time stay in the processor's cache.
    constexpr int rows = 32;
    AngleImage slopes;
    for (int y = 0; y < part.height(); y += rows) {
        const QRect band = QRect(part.left(), part.top() + y, part.width(), rows).intersected(part);
        heightsToAngles(heights, slopes, band);
        addSlopes(target, {}, {0, y}, slopes);
    }
}
