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

bool isNegated(const AngleImage &a, const AngleImage &b)
{
    const auto isOpposite = [](const AngleImage::Pixel &p, const AngleImage::Pixel &q) {
        return p.sx == -q.sx && p.sy == -q.sy;
    };
    const qptrdiff count = qptrdiff(a.width()) * a.height();
    return a.size() == b.size() && std::equal(a.row(0), a.row(0) + count, b.row(0), isOpposite);
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
            params.base = {};
            const AngleImage alone = FilterEmbossAlgorithm().compute(params);
            params.up = !params.up;
            QVERIFY(isNegated(FilterEmbossAlgorithm().compute(params), alone));
        }
    }

    void bevelOfAnySprite()
    {
        std::mt19937 random(42);
        FilterCreateRimAlgorithm algorithm;
        for (int round = 0; round < 200; ++round) {
            RimParams params = randomRim(random);
            params.bodyKey = quintptr(round % 3);
            const AngleImage expected = plainBevel(params);
            QCOMPARE(algorithm.compute(params), expected);
            params.base = {};
            const AngleImage alone = algorithm.compute(params);
            params.up = !params.up;
            QVERIFY(isNegated(algorithm.compute(params), alone));
        }
    }

    // All formats are read as they look without being multiplied by alpha.
    void spritesOfAnyFormat()
    {
        std::mt19937 random(45);
        RimParams rim = randomRim(random);
        rim.selection = {};
        const QImage sprite = randomSprite({31, 17}, random);
        rim.base = {};
        for (const auto format : {QImage::Format_ARGB32_Premultiplied,
                                  QImage::Format_RGB32,
                                  QImage::Format_Indexed8,
                                  QImage::Format_Grayscale8,
                                  QImage::Format_RGBA64}) {
            EmbossParams emboss;
            emboss.sprite = rim.sprite = sprite.convertToFormat(format);
            const AngleImage embossed = FilterEmbossAlgorithm().compute(emboss);
            const AngleImage beveled = FilterCreateRimAlgorithm().compute(rim);
            emboss.sprite = rim.sprite = rim.sprite.convertToFormat(QImage::Format_ARGB32);
            QCOMPARE(FilterEmbossAlgorithm().compute(emboss), embossed);
            QCOMPARE(FilterCreateRimAlgorithm().compute(rim), beveled);
        }
    }

    void longestSprites()
    {
        RimParams params;
        params.sprite = QImage(AngleImage::maximumSide, 3, QImage::Format_ARGB32);
        params.sprite.fill(Qt::white);
        params.sprite.setPixelColor(32700, 1, Qt::transparent);
        const AngleImage beveled = FilterCreateRimAlgorithm().compute(params);
        QCOMPARE(beveled.size(), params.sprite.size());
        QVERIFY(beveled.row(1)[32703].sx != 0 && beveled.row(1)[32600].sx == 0);
    }

    void whatNeedsNoRim()
    {
        std::mt19937 random(43);
        RimParams params;
        params.sprite = QImage(20, 15, QImage::Format_ARGB32);
        params.sprite.fill(Qt::darkGreen);
        params.base = AngleImage(20, 15, 0x01230456);
        const auto beveled = [&] { return FilterCreateRimAlgorithm().compute(params); };
        QCOMPARE(beveled(), params.base); // opaque, no border but the image's
        params.tileMode = true;
        const AngleImage tile = beveled();
        for (const QPoint edge : {QPoint(10, 0), QPoint(10, 14), QPoint(0, 7), QPoint(19, 7)})
            QVERIFY(!(tile.row(edge.y())[edge.x()] == params.base.row(0)[0]));
        params.selection = FloatImage(20, 15); // nothing selected
        QCOMPARE(beveled(), params.base);
        params.selection.row(3)[3] = std::numeric_limits<float>::quiet_NaN();
        QCOMPARE(beveled(), params.base);
        params.selection = FloatImage(7, 7, 1.0F); // of another size: nothing beyond it
        QCOMPARE(beveled().row(12)[16], params.base.row(0)[0]);
        params = randomRim(random);
        params.base = AngleImage(params.sprite.width(), params.sprite.height(), 0xFE00FF00);
        params.rimWidth = 0;
        QCOMPARE(beveled(), params.base);
        params.sprite = {};
        QCOMPARE(beveled(), params.base);
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
