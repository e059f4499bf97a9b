#include "imaging/HeightsToAngles.h"
#include "imaging/SlopeArithmetic.h"
#include "imaging/Smoothing.h"
#include "imaging/effects/FilterCreateRimAlgorithm.h"
#include "imaging/effects/FilterEmbossAlgorithm.h"
#include "reference/PlainDistanceField.h"
#include "support/Pictures.h"

#include <QTest>

#include <algorithm>
#include <cmath>

namespace {

// Opaque and transparent areas with soft borders and any colours.
QImage randomSprite(const QSize &size, std::mt19937 &random)
{
    QImage sprite(size, QImage::Format_ARGB32);
    const int cx = randomInt(0, size.width(), random);
    const int cy = randomInt(0, size.height(), random);
    const double radius = randomInt(2, 14, random);
    for (int y = 0; y < size.height(); ++y) {
        for (int x = 0; x < size.width(); ++x) {
            const double share = std::clamp(radius - std::hypot(x - cx, y - cy), 0.0, 1.0);
            sprite.setPixel(x, y, (quint32(random()) & 0xFFFFFFU) | quint32(share * 255.0) << 24U);
        }
    }
    return sprite;
}

AngleImage
withSlopesOf(FloatImage heights, int smoothness, const AngleImage &base, const QRect &part)
{
    smoothen(heights, smoothness);
    AngleImage slopes;
    heightsToAngles(heights, slopes);
    AngleImage result = base;
    addSlopes(result, {}, {}, slopes, part);
    return result;
}

AngleImage plainEmboss(const EmbossParams &params)
{
    FloatImage heights(params.sprite.width(), params.sprite.height());
    for (int y = 0; y < heights.height(); ++y) {
        for (int x = 0; x < heights.width(); ++x) {
            const QRgb pixel = params.sprite.pixel(x, y);
            const double luma = qGreen(pixel) * 0.00279375 + qRed(pixel) * 0.00083046875 +
                                qBlue(pixel) * 0.00028203125;
            heights.row(y)[x] = float(luma * (params.up ? params.height : -params.height));
        }
    }
    return withSlopesOf(heights, params.smoothness, params.base, heights.rect());
}

int visibleAlpha(const QImage &sprite, int x, int y)
{
    bool isInside = true;
    for (int i = 0; i < 9; ++i) {
        const QPoint beside(x + i % 3 - 1, y + i / 3 - 1);
        isInside =
            isInside && (!sprite.rect().contains(beside) || qAlpha(sprite.pixel(beside)) > 0);
    }
    return isInside ? 255 : qAlpha(sprite.pixel(x, y));
}

std::vector<double> plainTransparency(const RimParams &params)
{
    std::vector<double> result;
    const QSize size = params.sprite.size();
    for (int y = -1; y <= size.height(); ++y) {
        for (int x = -1; x <= size.width(); ++x) {
            const int innerX = std::clamp(x, 0, size.width() - 1);
            const int innerY = std::clamp(y, 0, size.height() - 1);
            const bool isMargin = innerX != x || innerY != y;
            double coverage = visibleAlpha(params.sprite, innerX, innerY) / 255.0;
            if (!params.selection.isNull())
                coverage *= params.selection.row(innerY)[innerX];
            if (isMargin && params.tileMode)
                coverage = 0.0;
            result.push_back(std::clamp(1.0 - coverage, 0.0, 1.0));
        }
    }
    return result;
}

AngleImage plainBevel(const RimParams &params)
{
    const int width = params.sprite.width() + 2;
    const int height = params.sprite.height() + 2;
    const auto distances = plainDistanceField(plainTransparency(params), width, height);
    const double peak = params.rimHeight * double(params.rimWidth) * (params.up ? 1 : -1) / 100;
    const int count = params.rimWidth * 100;
    FloatImage heights(width, height);
    for (int i = 0; i < width * height; ++i) {
        const float distance = float(std::max(0.0, distances[std::size_t(i)]));
        const int step = std::min(int(distance * 100.0F), count - 1);
        const double rise = std::sin(std::acos(1.0 - double(step) / count));
        heights.row(0)[i] = float(distance >= float(params.rimWidth) ? peak : peak * rise);
    }
    return withSlopesOf(heights, params.smoothness, params.base, {{1, 1}, params.sprite.size()});
}

RimParams randomRim(std::mt19937 &random)
{
    RimParams params;
    const QSize size = randomSize(40, 30, random);
    params.sprite = randomSprite(size, random);
    params.base = randomAngles(size, random);
    params.rimWidth = randomInt(0, 12, random);
    params.rimHeight = randomInt(25, 400, random);
    params.smoothness = randomInt(0, 4, random);
    params.tileMode = randomInt(0, 1, random) == 0;
    params.up = randomInt(0, 1, random) == 0;
    if (randomInt(0, 2, random) == 0)
        params.selection = randomMask(size, random);
    return params;
}

} // namespace

class TestEffects : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void embossOfAnySprite()
    {
        std::mt19937 random(41);
        for (int round = 0; round < 60; ++round) {
            EmbossParams params;
            const QSize size = randomSize(50, 80, random);
            params.sprite = randomSprite(size, random);
            params.base = randomAngles(size, random);
            params.height = float(randomInt(1, 100, random)) / 10.0F;
            params.up = round % 2 == 0;
            params.smoothness = randomInt(0, 9, random);
            QCOMPARE(FilterEmbossAlgorithm().compute(params), plainEmboss(params));
        }
    }

    void bevelOfAnySprite()
    {
        std::mt19937 random(42);
        FilterCreateRimAlgorithm algorithm;
        for (int round = 0; round < 200; ++round) {
            RimParams params = randomRim(random);
            params.bodyKey = quintptr(round % 3);
            QCOMPARE(algorithm.compute(params), plainBevel(params));
        }
    }

    // Whatever changes the distances is seen; the cache shows in nothing but time.
    void cachedDistancesAreCurrent()
    {
        std::mt19937 random(44);
        FilterCreateRimAlgorithm algorithm;
        const RimParams first = randomRim(random);
        const auto check = [&](const RimParams &params) {
            QCOMPARE(algorithm.compute(params), FilterCreateRimAlgorithm().compute(params));
        };
        check(first);
        RimParams changed = first;
        changed.rimWidth += 3;
        check(changed);
        changed.tileMode = !changed.tileMode;
        check(changed);
        changed.selection = randomMask(changed.sprite.size(), random);
        check(changed);
        changed.sprite.fill(Qt::transparent);
        check(changed);
        changed.bodyKey = 7;
        check(first);
        check(changed);
    }
};

QTEST_GUILESS_MAIN(TestEffects)

#include "tst_Effects.moc"
