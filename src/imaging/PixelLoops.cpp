#include "imaging/PixelLoops.h"

#include "imaging/Capsule2D.h"
#include "imaging/CircularProfile.h"
#include "imaging/EdgeDistance.h"

#include <algorithm>
#include <cmath>
#include <cstdlib>
#include <cstring>
#include <numbers>

// A loop is written once and inlined into a function for each kind of processor, so that the
// compiler makes vectors of that kind's width. (Clones by attribute would crash under the thread
// sanitizer, as they are chosen before it is up.)
#define VESPERINE_INLINE [[gnu::always_inline]] inline

namespace {

using Pixel = AngleImage::Pixel;

// A cell is loaded and stored whole: as two fields its halves would be gathered one by one.
VESPERINE_INLINE qint32 loaded(const Pixel *cell)
{
    qint32 halves = 0;
    std::memcpy(&halves, cell, sizeof halves);
    return halves;
}

VESPERINE_INLINE void store(qint32 halves, Pixel *cell)
{
    std::memcpy(static_cast<void *>(cell), &halves, sizeof halves);
}

VESPERINE_INLINE qint32 slopeX(qint32 halves)
{
    return qint32(quint32(halves) << 16U) >> 16;
}

VESPERINE_INLINE qint32 slopeY(qint32 halves)
{
    return halves >> 16;
}

VESPERINE_INLINE qint32 cellOf(float x, float y)
{
    return qint32((quint32(roundedSlope(x)) & 0xFFFFU) | quint32(roundedSlope(y)) << 16U);
}

VESPERINE_INLINE void encodeRow(const Pixel *cells, QRgb *pixels, int count, float yScale)
{
    for (int i = 0; i < count; ++i) {
        const qint32 cell = loaded(cells + i);
        const float x = float(slopeX(cell)) * 0.00390625F;
        const float y = float(slopeY(cell)) * yScale;
        const float length = std::sqrt(x * x + y * y + 1.0F);
        const float red = x / length * 127.0F + 127.5F;
        const float green = y / length * 127.0F + 127.5F;
        const float blue = 1.0F / length * 255.0F + 0.5F;
        pixels[i] = 0xFF000000U | QRgb(int(red) << 16 | int(green) << 8 | int(blue));
    }
}

VESPERINE_INLINE void
deriveRow(const float *above, const float *middle, const float *below, Pixel *cells, int count)
{
    const auto sum = [=](int c) { return above[c] + 2.0F * middle[c] + below[c]; };
    const auto difference = [=](int c) { return above[c] - below[c]; };
    for (int c = 0; c < count; ++c) {
        const float x = sum(c - 1) - sum(c + 1);
        const float y = difference(c - 1) + 2.0F * difference(c) + difference(c + 1);
        store(cellOf(x * 0.125F, y * 0.125F), cells + c);
    }
}

VESPERINE_INLINE float mean(qint32 before, qint32 after, float weight)
{
    const float a = float(before) / 256.0F;
    const float b = float(after) / 256.0F;
    return a * (1.0F - weight) + b * weight;
}

VESPERINE_INLINE void mixRow(Pixel *target, const Pixel *source, const float *weights, int count)
{
    for (int i = 0; i < count; ++i) {
        const float weight = weights[i];
        const qint32 before = loaded(target + i);
        const qint32 after = loaded(source + i);
        const qint32 mixed = cellOf(mean(slopeX(before), slopeX(after), weight),
                                    mean(slopeY(before), slopeY(after), weight));
        // The mean would saturate a kept cell as well.
        store(weight == 0.0F ? before : mixed, target + i);
    }
}

VESPERINE_INLINE void blendRow(Pixel *target, Pixel slope, const float *weights, int count)
{
    for (int i = 0; i < count; ++i) {
        const float weight = weights[i];
        const qint32 before = loaded(target + i);
        const qint32 mixed =
            cellOf(mean(slopeX(before), slope.sx, weight), mean(slopeY(before), slope.sy, weight));
        store(weight == 0.0F ? before : mixed, target + i);
    }
}

VESPERINE_INLINE qint32 limitedSum(qint32 a, qint32 b)
{
    return std::clamp(a + b, -128 * 256, 127 * 256);
}

VESPERINE_INLINE void addRow(Pixel *target, const Pixel *source, int count)
{
    for (int i = 0; i < count; ++i) {
        const qint32 before = loaded(target + i);
        const qint32 added = loaded(source + i);
        const qint32 x = limitedSum(slopeX(before), slopeX(added));
        const qint32 y = limitedSum(slopeY(before), slopeY(added));
        store(qint32((quint32(x) & 0xFFFFU) | quint32(y) << 16U), target + i);
    }
}

VESPERINE_INLINE float weightedSum(qint32 before, qint32 added, float weight)
{
    return float(added) / 256.0F * weight + float(before) / 256.0F;
}

VESPERINE_INLINE void
addWeightedRow(Pixel *target, const Pixel *source, const float *weights, int count)
{
    for (int i = 0; i < count; ++i) {
        const float weight = weights[i];
        const qint32 before = loaded(target + i);
        const qint32 added = loaded(source + i);
        const qint32 sum = cellOf(weightedSum(slopeX(before), slopeX(added), weight),
                                  weightedSum(slopeY(before), slopeY(added), weight));
        store(weight == 0.0F ? before : sum, target + i);
    }
}

VESPERINE_INLINE void floatsOfRow(const Pixel *cells, float *slopes, int count)
{
    for (qptrdiff i = 0; i < count; ++i) {
        const qint32 cell = loaded(cells + i);
        slopes[2 * i] = float(slopeX(cell)) / 256.0F;
        slopes[2 * i + 1] = float(slopeY(cell)) / 256.0F;
    }
}

VESPERINE_INLINE void cellsOfRow(const float *slopes, Pixel *cells, int count)
{
    for (qptrdiff i = 0; i < count; ++i)
        store(cellOf(slopes[2 * i], slopes[2 * i + 1]), cells + i);
}

VESPERINE_INLINE void lumaRow(const QRgb *pixels, float *heights, int count, double height)
{
    for (int i = 0; i < count; ++i) {
        const int red = int(pixels[i] >> 16U & 0xFFU);
        const int green = int(pixels[i] >> 8U & 0xFFU);
        const int blue = int(pixels[i] & 0xFFU);
        // Rec. 709, over 256.
        const double luma = green * 0.00279375 + red * 0.00083046875 + blue * 0.00028203125;
        heights[i] = float(luma * height);
    }
}

VESPERINE_INLINE void
compareRow(const QRgb *pixels, uchar *areSimilar, int count, QRgb color, int tolerance)
{
    const auto difference = [](QRgb a, QRgb b, int shift) {
        return std::abs(int(a >> shift & 0xFFU) - int(b >> shift & 0xFFU));
    };
    for (int i = 0; i < count; ++i) {
        const QRgb pixel = pixels[i];
        const int red = difference(pixel, color, 16);
        const int green = difference(pixel, color, 8);
        const int blue = difference(pixel, color, 0);
        areSimilar[i] = std::max(red, std::max(green, blue)) <= tolerance ? 1 : 0;
    }
}

VESPERINE_INLINE void alphasOfRow(const float *weights, uchar *alphas, int count)
{
    for (int i = 0; i < count; ++i) {
        const float notBelow = weights[i] > 0.0F ? weights[i] : 0.0F;
        const float held = notBelow < 1.0F ? notBelow : 1.0F;
        alphas[i] = uchar(int(held * 255.0F));
    }
}

VESPERINE_INLINE void ownEdgesOfRow(
    const double *above, const double *middle, const double *below, double *distances, int count)
{
    constexpr double side = std::numbers::sqrt2;
    for (int i = 0; i < count; ++i) {
        // In pairs, so that what is even has no gradient, not one of rounding.
        const double gx = (above[i + 1] - above[i - 1]) + side * (middle[i + 1] - middle[i - 1]) +
                          (below[i + 1] - below[i - 1]);
        const double gy = (below[i - 1] - above[i - 1]) + side * (below[i] - above[i]) +
                          (below[i + 1] - above[i + 1]);
        const double distance = edgeDistance(gx, gy, middle[i]);
        distances[i] = middle[i] > 0.0 && middle[i] < 1.0 ? distance : distances[i];
    }
}

VESPERINE_INLINE void offersOfRow(const double *coverage,
                                  const qint32 *dx,
                                  const qint32 *dy,
                                  int moveX,
                                  int moveY,
                                  double *distances,
                                  int count)
{
    for (int i = 0; i < count; ++i)
        distances[i] = distanceToEdge(dx[i] + moveX, dy[i] + moveY, coverage[i]);
}

VESPERINE_INLINE bool
isAnyBelowInRow(const double *values, const double *limits, double margin, int count)
{
    qint64 below = 0;
    for (int i = 0; i < count; ++i)
        below |= values[i] < limits[i] - margin ? 1 : 0;
    return below != 0;
}

template <class RimFunction, bool raises>
VESPERINE_INLINE void paintRow(const Capsule2D &shared,
                               const CircularProfile &sharedProfile,
                               int x,
                               int y,
                               float *cells,
                               int count)
{
    // Copies, which no write to the cells can change.
    const Capsule2D segment = shared;
    const CircularProfile profile = sharedProfile;
    const float reach = profile.radius * profile.radius;
    for (int i = 0; i < count; ++i) {
        const float q = segment.distanceSquared(float(x + i), float(y));
        const float value = circularValue<RimFunction>(profile, std::sqrt(q));
        const float before = cells[i];
        const bool isTaken = q <= reach && (raises ? value > before : value < before);
        cells[i] = isTaken ? value : before;
    }
}

// The loops for one kind; the attributes that name its instructions can't be a template's argument.
#define VESPERINE_LOOPS(kind, ...)                                                                 \
    struct kind                                                                                    \
    {                                                                                              \
        __VA_ARGS__ static void encode(const Pixel *cells, QRgb *pixels, int count, float yScale)  \
        {                                                                                          \
            encodeRow(cells, pixels, count, yScale);                                               \
        }                                                                                          \
        __VA_ARGS__ static void derive(                                                            \
            const float *above, const float *middle, const float *below, Pixel *cells, int count)  \
        {                                                                                          \
            deriveRow(above, middle, below, cells, count);                                         \
        }                                                                                          \
        __VA_ARGS__ static void                                                                    \
        mix(Pixel *target, const Pixel *source, const float *weights, int count)                   \
        {                                                                                          \
            mixRow(target, source, weights, count);                                                \
        }                                                                                          \
        __VA_ARGS__ static void blend(Pixel *target, Pixel slope, const float *weights, int count) \
        {                                                                                          \
            blendRow(target, slope, weights, count);                                               \
        }                                                                                          \
        __VA_ARGS__ static void add(Pixel *target, const Pixel *source, int count)                 \
        {                                                                                          \
            addRow(target, source, count);                                                         \
        }                                                                                          \
        __VA_ARGS__ static void                                                                    \
        addWeighted(Pixel *target, const Pixel *source, const float *weights, int count)           \
        {                                                                                          \
            addWeightedRow(target, source, weights, count);                                        \
        }                                                                                          \
        __VA_ARGS__ static void toFloats(const Pixel *cells, float *slopes, int count)             \
        {                                                                                          \
            floatsOfRow(cells, slopes, count);                                                     \
        }                                                                                          \
        __VA_ARGS__ static void fromFloats(const float *slopes, Pixel *cells, int count)           \
        {                                                                                          \
            cellsOfRow(slopes, cells, count);                                                      \
        }                                                                                          \
        __VA_ARGS__ static void                                                                    \
        lumaHeights(const QRgb *pixels, float *heights, int count, double height)                  \
        {                                                                                          \
            lumaRow(pixels, heights, count, height);                                               \
        }                                                                                          \
        __VA_ARGS__ static void                                                                    \
        compareColors(const QRgb *pixels, uchar *areSimilar, int count, QRgb color, int tolerance) \
        {                                                                                          \
            compareRow(pixels, areSimilar, count, color, tolerance);                               \
        }                                                                                          \
        __VA_ARGS__ static void toAlphas(const float *weights, uchar *alphas, int count)           \
        {                                                                                          \
            alphasOfRow(weights, alphas, count);                                                   \
        }                                                                                          \
        __VA_ARGS__ static void ownEdges(const double *above,                                      \
                                         const double *middle,                                     \
                                         const double *below,                                      \
                                         double *distances,                                        \
                                         int count)                                                \
        {                                                                                          \
            ownEdgesOfRow(above, middle, below, distances, count);                                 \
        }                                                                                          \
        __VA_ARGS__ static void edgeOffers(const double *coverage,                                 \
                                           const qint32 *dx,                                       \
                                           const qint32 *dy,                                       \
                                           int moveX,                                              \
                                           int moveY,                                              \
                                           double *distances,                                      \
                                           int count)                                              \
        {                                                                                          \
            offersOfRow(coverage, dx, dy, moveX, moveY, distances, count);                         \
        }                                                                                          \
        __VA_ARGS__ static bool                                                                    \
        isAnyBelow(const double *values, const double *limits, double margin, int count)           \
        {                                                                                          \
            return isAnyBelowInRow(values, limits, margin, count);                                 \
        }                                                                                          \
        template <class RimFunction, bool raises>                                                  \
        __VA_ARGS__ static void paint(const Capsule2D &segment,                                    \
                                      const CircularProfile &profile,                              \
                                      int x,                                                       \
                                      int y,                                                       \
                                      float *cells,                                                \
                                      int count)                                                   \
        {                                                                                          \
            paintRow<RimFunction, raises>(segment, profile, x, y, cells, count);                   \
        }                                                                                          \
        static constexpr PixelLoops loops{encode,                                                  \
                                          derive,                                                  \
                                          mix,                                                     \
                                          blend,                                                   \
                                          add,                                                     \
                                          addWeighted,                                             \
                                          toFloats,                                                \
                                          fromFloats,                                              \
                                          lumaHeights,                                             \
                                          compareColors,                                           \
                                          toAlphas,                                                \
                                          ownEdges,                                                \
                                          edgeOffers,                                              \
                                          isAnyBelow,                                              \
                                          {paint<RimFunctionCos, true>,                            \
                                           paint<RimFunctionRamp, true>,                           \
                                           paint<RimFunctionCircle, true>},                        \
                                          {paint<RimFunctionCos, false>,                           \
                                           paint<RimFunctionRamp, false>,                          \
                                           paint<RimFunctionCircle, false>}};                      \
    }

VESPERINE_LOOPS(Plain, );
#if defined(__GNUC__) && defined(__x86_64__)
VESPERINE_LOOPS(Avx2, [[gnu::target("avx2")]]);
#ifdef __clang__
VESPERINE_LOOPS(Avx512, [[gnu::target("avx512f"), clang::min_vector_width(512)]]);
#else
VESPERINE_LOOPS(Avx512, [[gnu::target("avx512f,prefer-vector-width=512")]]);
#endif
#endif

} // namespace

std::vector<PixelLoops> pixelLoops()
{
    std::vector<PixelLoops> loops{Plain::loops};
#if defined(__GNUC__) && defined(__x86_64__)
    if (__builtin_cpu_supports("avx2"))
        loops.push_back(Avx2::loops);
    if (__builtin_cpu_supports("avx512f"))
        loops.push_back(Avx512::loops);
#endif
    return loops;
}

const PixelLoops &fastestPixelLoops()
{
    static const PixelLoops loops = pixelLoops().back();
    return loops;
}
