#include "imaging/NormalMapJudgement.h"

#include "imaging/AngleImage.h"
#include "imaging/NormalEncoding.h"

#include <QHash>
#include <QImage>

#include <algorithm>
#include <array>
#include <cmath>

namespace {

constexpr double mostPixels = 512.0 * 512.0;

// Every n-th pixel of every n-th row: neighbours in it are n apart, so that slopes differ by more
// than what 8 bits round away also where an image was drawn large.
QImage gridOf(const QImage &image)
{
    QImage colours = image.convertToFormat(QImage::Format_ARGB32);
    const double pixels = double(colours.width()) * colours.height();
    const int step = std::max(1, int(std::ceil(std::sqrt(pixels / mostPixels))));
    if (step == 1)
        return colours;
    QImage grid((colours.width() + step - 1) / step,
                (colours.height() + step - 1) / step,
                QImage::Format_ARGB32);
    for (int y = 0; y < grid.height(); ++y) {
        const auto *from = reinterpret_cast<const QRgb *>(colours.constScanLine(y * step));
        auto *to = reinterpret_cast<QRgb *>(grid.scanLine(y));
        for (int x = 0; x < grid.width(); ++x)
            to[x] = from[std::ptrdiff_t(x) * step];
    }
    return grid;
}

template <class Use>
void forEachVisible(const QImage &grid, const Use &use)
{
    for (int y = 0; y < grid.height(); ++y) {
        const auto *row = reinterpret_cast<const QRgb *>(grid.constScanLine(y));
        for (int x = 0; x < grid.width(); ++x) {
            if (qAlpha(row[x]) != 0)
                use(row[x]);
        }
    }
}

// A steep normal has little blue as well, but the length of a normal.
bool isNoNormal(QRgb pixel)
{
    constexpr float tolerance = 0.1F;
    const float x = float(qRed(pixel) - 127) / 127.0F;
    const float y = float(qGreen(pixel) - 127) / 127.0F;
    const float z = float(qBlue(pixel)) / 255.0F;
    return qBlue(pixel) < 128 && std::abs(std::sqrt(x * x + y * y + z * z) - 1.0F) > tolerance;
}

// The steepest bevel of a small sprite as a poor JPEG has 17 % of these, most sprites over 40 %.
bool isForeign(const QImage &grid)
{
    int visible = 0;
    int strange = 0;
    forEachVisible(grid, [&](QRgb pixel) {
        ++visible;
        strange += isNoNormal(pixel) ? 1 : 0;
    });
    return strange * 4 > visible;
}

bool isFlatAt128(const QImage &grid)
{
    QHash<QRgb, int> counts;
    int visible = 0;
    forEachVisible(grid, [&](QRgb pixel) {
        ++visible;
        ++counts[pixel & RGB_MASK];
    });
    const auto most = std::max_element(counts.cbegin(), counts.cend());
    if (most == counts.cend())
        return false;
    // Without flat ground, any colour near it may happen to be the most frequent.
    const bool isGround = *most * 20 > visible;
    return isGround && qRed(most.key()) == 128 && qGreen(most.key()) == 128 &&
           qBlue(most.key()) >= 254;
}

// How well both mixed second derivatives of the height agree: 1 where they are equal, -1 where they
// are opposite, about 0 where they have nothing to do with each other.
struct Agreement
{
    void add(int downwards, int rightwards)
    {
        constexpr int clear = 8; // a slope of 1/32, above the rounding of 8 bits
        product += 2.0 * downwards * rightwards;
        energy += double(downwards) * downwards + double(rightwards) * rightwards;
        count += std::abs(downwards) > clear && std::abs(rightwards) > clear ? 1 : 0;
    }
    bool isOpposite(double than, int among) const
    {
        return count >= among && product < -than * energy;
    }

    double product = 0.0;
    double energy = 0.0;
    int count = 0; // of pixels that say something
};

// Where the normal leans to clearly, as one of four diagonal directions; -1 along the axes.
int quadrantOf(AngleImage::Pixel slopes)
{
    constexpr int clear = 5;
    if (std::abs(slopes.sx) <= clear || std::abs(slopes.sy) <= clear)
        return -1;
    return (slopes.sx > 0 ? 2 : 0) + (slopes.sy > 0 ? 1 : 0);
}

// Measured on maps of bevels, embossings and patterns over 18 sprites: 0.22 and more with relief,
// and with green down that much below 0; JPEGs of these not below -0.11. A few strokes of a brush
// may well agree or disagree, but hardly ever alike in all four directions, as a relief does.
bool hasGreenDown(const QImage &grid)
{
    constexpr int steepest = 64; // less blue has no exact slopes
    const auto isReadable = [](QRgb pixel) {
        return qAlpha(pixel) != 0 && qBlue(pixel) >= steepest;
    };
    AngleImage slopes;
    fromNormalMap(grid, slopes);
    Agreement whole;
    std::array<Agreement, 4> quadrants;
    for (int y = 1; y < grid.height() - 1; ++y) {
        std::array<const QRgb *, 3> pixels{};
        std::array<const AngleImage::Pixel *, 3> cells{};
        for (int i = 0; i < 3; ++i) {
            pixels[i] = reinterpret_cast<const QRgb *>(grid.constScanLine(y + i - 1));
            cells[i] = std::as_const(slopes).row(y + i - 1);
        }
        for (int x = 1; x < grid.width() - 1; ++x) {
            if (!isReadable(pixels[0][x]) || !isReadable(pixels[2][x]) ||
                !isReadable(pixels[1][x - 1]) || !isReadable(pixels[1][x + 1]))
                continue;
            const int downwards = cells[2][x].sx - cells[0][x].sx;
            const int rightwards = cells[1][x + 1].sy - cells[1][x - 1].sy;
            whole.add(downwards, rightwards);
            const int quadrant = isReadable(pixels[1][x]) ? quadrantOf(cells[1][x]) : -1;
            if (quadrant >= 0)
                quadrants[quadrant].add(downwards, rightwards);
        }
    }
    return whole.isOpposite(0.2, 64) &&
           std::all_of(quadrants.begin(), quadrants.end(), [](const Agreement &each) {
               return each.isOpposite(0.05, 8);
           });
}

} // namespace

NormalMapJudgement judgeNormalMap(const QImage &image)
{
    NormalMapJudgement judgement;
    if (image.isNull())
        return judgement;
    const QImage grid = gridOf(image);
    judgement.isForeign = isForeign(grid);
    judgement.hasGreenDown = !judgement.isForeign && hasGreenDown(grid);
    judgement.isFlatAt128 = isFlatAt128(grid);
    return judgement;
}
