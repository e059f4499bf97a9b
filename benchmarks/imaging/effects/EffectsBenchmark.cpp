#include "Ratio.h"
#include "imaging/Surfaces.h"
#include "imaging/effects/FilterCreateRimAlgorithm.h"
#include "imaging/effects/FilterEmbossAlgorithm.h"

#include <memory>

namespace {

Contest emboss()
{
    constexpr int side = 2048;
    EmbossParams params;
    params.sprite = QImage(side, side, QImage::Format_ARGB32);
    params.sprite.fill(QColor(200, 120, 40));
    params.base = AngleImage(side, side, 0x01230456);
    params.smoothness = 0;
    return {[params] { FilterEmbossAlgorithm().compute(params); },
            memcpyOf(qint64(3) * side * side * 4)};
}

// The whole bevel again and again, and with one that keeps its distances.
Contest cachedBevel()
{
    constexpr int side = 1024;
    RimParams params;
    params.sprite = QImage(side, side, QImage::Format_ARGB32);
    const auto coverage = discsAndHoles(side, 0.001);
    for (int i = 0; i < side * side; ++i) {
        const int alpha = int(255.0 * (1.0 - coverage[std::size_t(i)]));
        params.sprite.setPixel(i % side, i / side, qRgba(90, 80, 70, alpha));
    }
    params.rimWidth = 60;
    const auto algorithm = std::make_shared<FilterCreateRimAlgorithm>();
    return {[algorithm, params]() mutable {
                params.rimHeight = 300 - params.rimHeight;
                algorithm->compute(params);
            },
            [params] { FilterCreateRimAlgorithm().compute(params); }};
}

const bool rows = addRatio("emboss, 2048x2048 / memcpy of what it reads and writes", 0.2, emboss) &&
                  addRatio("bevel, 1024x1024, another height / the first time", 5.0, cachedBevel);

} // namespace
