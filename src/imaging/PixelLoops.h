#pragma once

#include "imaging/AngleImage.h"

#include <QRgb>

#include <vector>

/// The inner loops over a row's pixels, made for one kind of processor.
struct PixelLoops
{
    /// Cells to normal-map pixels; @p yScale is the Y slope's unit with the sign for green.
    void (*encode)(const AngleImage::Pixel *cells, QRgb *pixels, int count, float yScale);
    /// Three rows of heights to slopes. Also reads the heights beside the first and the last.
    void (*derive)(const float *above,
                   const float *middle,
                   const float *below,
                   AngleImage::Pixel *cells,
                   int count);
    /// Mixes @p source into @p target by @p weights.
    void (*mix)(AngleImage::Pixel *target,
                const AngleImage::Pixel *source,
                const float *weights,
                int count);
};

/// The loops that this processor can run, the fastest last. All give the same result bit for bit.
std::vector<PixelLoops> pixelLoops();
/// The fastest ones.
const PixelLoops &fastestPixelLoops();
