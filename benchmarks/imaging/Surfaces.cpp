#include "imaging/Surfaces.h"

#include <algorithm>
#include <bit>
#include <cmath>
#include <cstring>
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

std::vector<double> discsAndHoles(int side, double noise)
{
    std::mt19937 random;
    std::vector<double> coverage(std::size_t(side) * std::size_t(side), 0.0);
    constexpr int discs = 18;
    for (int disc = 0; disc < discs; ++disc) {
        const double inside = disc % 3 == 2 ? 0.0 : 1.0;
        const double cx = random() % unsigned(side);
        const double cy = random() % unsigned(side);
        const double radius = side / 40.0 + random() % unsigned(side / 8);
        for (std::size_t i = 0; i < coverage.size(); ++i) {
            const double x = double(i % std::size_t(side)) - cx;
            const double y = double(i / std::size_t(side)) - cy;
            const double share = std::clamp(radius + 0.5 - std::hypot(x, y), 0.0, 1.0);
            coverage[i] += (inside - coverage[i]) * share;
        }
    }
    for (double &share : coverage) {
        if (random() < noise * double(std::mt19937::max()))
            share = random() % 256 / 255.0;
    }
    return coverage;
}
// NOLINTEND(cert-msc32-c,cert-msc51-cpp)

std::function<void()> memcpyOf(qint64 bytes)
{
    const std::vector<char> from(std::size_t(bytes), 1);
    return [from, to = from]() mutable { std::memcpy(to.data(), from.data(), from.size()); };
}
