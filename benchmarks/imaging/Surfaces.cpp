#include "imaging/Surfaces.h"

#include <algorithm>
#include <bit>
#include <random>

// A generator without a seed of its own is the same in every run, which is what is wanted here.
// NOLINTBEGIN(cert-msc32-c,cert-msc51-cpp)
AngleImage largeSurface()
{
    std::mt19937 random;
    AngleImage surface(largeSide, largeSide);
    std::generate_n(surface.row(0), largeSide * largeSide, [&] {
        return std::bit_cast<AngleImage::Pixel>(quint32(random()));
    });
    return surface;
}

FloatImage largeHeights()
{
    std::mt19937 random;
    std::uniform_real_distribution<float> height(0.0F, 8.0F);
    FloatImage heights(largeSide, largeSide);
    std::generate_n(heights.row(0), largeSide * largeSide, [&] { return height(random); });
    return heights;
}
// NOLINTEND(cert-msc32-c,cert-msc51-cpp)
