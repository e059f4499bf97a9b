#include "imaging/NormalRows.h"

#include <bit>
#include <cmath>

#if defined(__GNUC__) && defined(__x86_64__)
#define VESPERINE_AVX2
#endif

namespace {

// Inlined into each loop below, so that the compiler makes vectors of that loop's instruction set.
[[gnu::always_inline]] inline void
encodeRow(const AngleImage::Pixel *cells, QRgb *pixels, int count, float yScale)
{
    constexpr float xScale = 0.00390625F;
    for (int i = 0; i < count; ++i) {
        // One load of 32 bits: the halves as two fields would be gathered one by one.
        const auto cell = std::bit_cast<qint32>(cells[i]);
        const float x = float(qint16(cell)) * xScale;
        const float y = float(cell >> 16) * yScale;
        const float length = std::sqrt(x * x + y * y + 1.0F);
        const float red = x / length * 127.0F + 127.5F;
        const float green = y / length * 127.0F + 127.5F;
        const float blue = 1.0F / length * 255.0F + 0.5F;
        pixels[i] = 0xFF000000U | QRgb(int(red) << 16 | int(green) << 8 | int(blue));
    }
}

void plainRow(const AngleImage::Pixel *cells, QRgb *pixels, int count, float yScale)
{
    encodeRow(cells, pixels, count, yScale);
}

#ifdef VESPERINE_AVX2
[[gnu::target("avx2")]] void
avx2Row(const AngleImage::Pixel *cells, QRgb *pixels, int count, float yScale)
{
    encodeRow(cells, pixels, count, yScale);
}
#endif

} // namespace

std::vector<NormalRow> normalRows()
{
    std::vector<NormalRow> rows{plainRow};
#ifdef VESPERINE_AVX2
    if (__builtin_cpu_supports("avx2"))
        rows.push_back(avx2Row);
#endif
    return rows;
}
