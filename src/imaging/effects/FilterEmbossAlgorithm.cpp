#include "imaging/effects/FilterEmbossAlgorithm.h"

#include "imaging/HeightsToAngles.h"
#include "imaging/PixelLoops.h"
#include "imaging/SlopeArithmetic.h"
#include "imaging/Smoothing.h"
#include "imaging/effects/Relief.h"

#include <algorithm>

namespace {

// The heights of @p count rows from @p first on.
FloatImage reliefOf(const QImage &pixels, int first, int count, double height)
{
    FloatImage heights(pixels.width(), count);
    for (int y = 0; y < count; ++y) {
        fastestPixelLoops().lumaHeights(
            reinterpret_cast<const QRgb *>(pixels.constScanLine(first + y)),
            heights.row(y),
            pixels.width(),
            height);
    }
    return heights;
}

} // namespace

AngleImage FilterEmbossAlgorithm::compute(const EmbossParams &params)
{
    if (!AngleImage::isPossibleSize(params.sprite.width(), params.sprite.height()))
        return params.base;
    const QImage pixels = plainPixels(params.sprite);
    AngleImage result = baseSurface(params.base, pixels);
    const double height = params.up ? params.height : -params.height;
    if (params.smoothness > 0) {
        FloatImage heights = reliefOf(pixels, 0, pixels.height(), height);
        smoothen(heights, params.smoothness);
        addRelief(result, heights, heights.rect());
        return result;
    }
    // A few rows at a time, which stay in the processor's cache, with a neighbour above and below.
    constexpr int rows = 32;
    AngleImage slopes;
    for (int y = 0; y < pixels.height(); y += rows) {
        const int first = std::max(0, y - 1);
        const int end = std::min(y + rows + 1, pixels.height());
        const QRect band(0, y - first, pixels.width(), std::min(rows, pixels.height() - y));
        heightsToAngles(reliefOf(pixels, first, end - first, height), slopes, band);
        addSlopes(result, {}, {0, y}, slopes);
    }
    return result;
}
