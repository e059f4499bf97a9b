#include "support/Pictures.h"

#include "imaging/HeightsToAngles.h"

#include <QImage>

#include <algorithm>
#include <bit>

AngleImage angles(std::initializer_list<std::initializer_list<Slopes>> rows)
{
    AngleImage image(int(rows.begin()->size()), int(rows.size()));
    AngleImage::Pixel *cell = image.row(0);
    for (const auto &row : rows)
        for (const Slopes &slopes : row)
            *cell++ = slopes.cell;
    return image;
}

FloatImage floats(std::initializer_list<std::initializer_list<float>> rows)
{
    FloatImage image(int(rows.begin()->size()), int(rows.size()));
    float *cell = image.row(0);
    for (const auto &row : rows)
        cell = std::copy(row.begin(), row.end(), cell);
    return image;
}

int randomInt(int first, int last, std::mt19937 &random)
{
    return std::uniform_int_distribution<int>(first, last)(random);
}

QSize randomSize(int maximumWidth, int maximumHeight, std::mt19937 &random)
{
    return {randomInt(1, maximumWidth, random), randomInt(1, maximumHeight, random)};
}

QRect randomRect(const QSize &size, std::mt19937 &random)
{
    const auto [width, height] = std::pair(size.width(), size.height());
    const int x = randomInt(-width, 2 * width, random);
    const int y = randomInt(-height, 2 * height, random);
    return {x, y, randomInt(0, 2 * width, random), randomInt(0, 2 * height, random)};
}

AngleImage randomAngles(const QSize &size, std::mt19937 &random)
{
    AngleImage image(size.width(), size.height());
    const auto cell = [&] { return std::bit_cast<AngleImage::Pixel>(quint32(random())); };
    std::generate_n(image.row(0), size.width() * size.height(), cell);
    return image;
}

FloatImage randomFloats(const QSize &size, float first, float last, std::mt19937 &random)
{
    FloatImage image(size.width(), size.height());
    std::uniform_real_distribution<float> between(first, last);
    std::generate_n(image.row(0), size.width() * size.height(), [&] { return between(random); });
    return image;
}

FloatImage randomMask(const QSize &size, std::mt19937 &random)
{
    FloatImage mask = randomFloats(size, -0.5F, 1.5F, random);
    for (int i = 0; i < size.width() * size.height(); ++i)
        mask.row(0)[i] = std::clamp(mask.row(0)[i], 0.0F, 1.0F);
    return mask;
}

int difference(const QImage &one, const QImage &other)
{
    const QImage alike = other.convertToFormat(one.format());
    int most = one.size() == other.size() ? 0 : 256;
    for (int y = 0; most < 256 && y < one.height(); ++y) {
        for (int i = 0; i < one.width() * one.depth() / 8; ++i)
            most = std::max(most, std::abs(one.constScanLine(y)[i] - alike.constScanLine(y)[i]));
    }
    return most;
}

AngleImage cones(const QSize &size, float steepness)
{
    FloatImage heights(size.width(), size.height());
    for (int y = 0; y < size.height(); ++y) {
        for (int x = 0; x < size.width(); ++x)
            heights.row(y)[x] =
                steepness *
                std::max(0.0F, 16.0F - std::hypot(float(x % 40 - 20), float(y % 40 - 20)));
    }
    AngleImage slopes(size.width(), size.height());
    heightsToAngles(heights, slopes, {});
    return slopes;
}
