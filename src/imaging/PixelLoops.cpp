#include "imaging/PixelLoops.h"

#include <cmath>
#include <cstring>

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
        static constexpr PixelLoops loops{encode, derive, mix};                                    \
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
