#pragma once

#include "imaging/AngleImage.h"

#include <QRgb>

#include <array>
#include <vector>

struct Capsule2D;
struct CircularProfile;

/// The inner loops over a row's pixels, made for one kind of processor.
struct PixelLoops
{
    using Pixel = AngleImage::Pixel;
    using PaintRow = void (*)(const Capsule2D &segment,
                              const CircularProfile &profile,
                              int x,
                              int y,
                              float *cells,
                              int count);

    /// Cells to normal-map pixels; @p yScale is the Y slope's unit with the sign for green.
    void (*encode)(const Pixel *cells, QRgb *pixels, int count, float yScale);
    /// Three rows of heights to slopes. Also reads the heights beside the first and the last.
    void (*derive)(
        const float *above, const float *middle, const float *below, Pixel *cells, int count);
    /// Mixes @p source into @p target by @p weights.
    void (*mix)(Pixel *target, const Pixel *source, const float *weights, int count);
    /// Mixes one slope into @p target by @p weights.
    void (*blend)(Pixel *target, Pixel slope, const float *weights, int count);
    /// Adds @p source to @p target.
    void (*add)(Pixel *target, const Pixel *source, int count);
    /// Adds the share of @p source that @p weights tell.
    void (*addWeighted)(Pixel *target, const Pixel *source, const float *weights, int count);
    /// Both slopes of each cell, unscaled, X first; and back.
    void (*toFloats)(const Pixel *cells, float *slopes, int count);
    void (*fromFloats)(const float *slopes, Pixel *cells, int count);
    /// The luma of pixels, 0 to 255/256, times @p height.
    void (*lumaHeights)(const QRgb *pixels, float *heights, int count, double height);
    /// 1 for each pixel whose red, green and blue each differ from @p color's by at most
    /// @p tolerance, else 0.
    void (*compareColors)(
        const QRgb *pixels, uchar *areSimilar, int count, QRgb color, int tolerance);
    /// Weights, held within 0 and 1, to 0…255, truncated.
    void (*toAlphas)(const float *weights, uchar *alphas, int count);
    /// The distances to the edges in partly covered pixels of the middle row, by their coverage and
    /// its gradient. Also reads beside the first and the last.
    void (*ownEdges)(const double *above,
                     const double *middle,
                     const double *below,
                     double *distances,
                     int count);
    /// The distances to edges that lie (@p dx + @p moveX, @p dy + @p moveY) away, in pixels that
    /// are covered by @p coverage.
    void (*edgeOffers)(const double *coverage,
                       const qint32 *dx,
                       const qint32 *dy,
                       int moveX,
                       int moveY,
                       double *distances,
                       int count);
    /// True when a value is smaller than its limit by more than @p margin.
    bool (*isAnyBelow)(const double *values, const double *limits, double margin, int count);
    /// Raises or lowers cells to a round brush's values, by contour.
    std::array<PaintRow, 3> raise;
    std::array<PaintRow, 3> lower;
};

/// The loops that this processor can run, the fastest last. All give the same result bit for bit.
std::vector<PixelLoops> pixelLoops();
/// The fastest ones.
const PixelLoops &fastestPixelLoops();
