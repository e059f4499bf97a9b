#include "imaging/Capsule2D.h"
#include "imaging/CircularBrush.h"
#include "imaging/PixelLoops.h"
#include "imaging/StrokePainting.h"
#include "reference/PlainStroke.h"
#include "support/Pictures.h"

#include <QTest>

#include <array>
#include <limits>
#include <memory>

namespace {

std::unique_ptr<FloatBrushFunc> brushOf(const PlainBrush &plain)
{
    std::unique_ptr<FloatBrushFunc> brush;
    if (plain.contour == PlainBrush::Cos)
        brush = std::make_unique<CircularBrushCos>();
    else if (plain.contour == PlainBrush::Ramp)
        brush = std::make_unique<CircularBrushRamp>();
    else
        brush = std::make_unique<CircularBrushCircle>();
    brush->sizeX = brush->sizeY = 2.0 * double(plain.radius);
    brush->amplitude = plain.amplitude;
    brush->softness = plain.softness;
    brush->update();
    return brush;
}

float largestDifference(const FloatImage &a, const FloatImage &b)
{
    float largest = 0.0F;
    for (int i = 0; i < a.width() * a.height(); ++i)
        largest = std::max(largest, std::abs(a.row(0)[i] - b.row(0)[i]));
    return largest;
}

float randomFloat(float first, float last, std::mt19937 &random)
{
    return std::uniform_real_distribution<float>(first, last)(random);
}

} // namespace

class TestStrokePainting : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void profiles()
    {
        const float half[] = {0.5F, 0.5F, 0.8660254F};
        for (const auto contour : {PlainBrush::Cos, PlainBrush::Ramp, PlainBrush::Circle}) {
            const auto soft = brushOf({contour, 50.0F, -4.0F, 1.0F});
            QCOMPARE(soft->value(0.0F), -4.0F);
            QVERIFY(std::abs(soft->value(25.0F) + 4.0F * half[contour]) < 1e-5F);
            QVERIFY(std::abs(soft->value(15.0F, -20.0F) + 4.0F * half[contour]) < 1e-5F);
            const auto hard = brushOf({contour, 50.0F, 0.8F, 0.0F});
            for (const float distance : {0.0F, 49.9F, 50.0F})
                QCOMPARE(hard->value(distance), 0.8F);
            // The forms end at different distances.
            QCOMPARE(hard->value(50.00005F), 0.0F);
            QCOMPARE(hard->value(50.00005F, 0.0F), 0.8F);
            QCOMPARE(hard->value(50.001F, 0.0F), 0.0F);
            hard->amplitude = 0.3F; // not derived, so that it counts at once
            QCOMPARE(hard->value(9.0F), 0.3F);
            QCOMPARE(hard->value(0.0F, 9.0F), 0.3F);
        }
    }

    void bounds_data()
    {
        QTest::addColumn<QVector2D>("a");
        QTest::addColumn<QVector2D>("b");
        QTest::addColumn<QRect>("expected");
        const QRect all(0, 0, 100, 80);
        const float nan = std::numeric_limits<float>::quiet_NaN();
        QTest::newRow("inside") << QVector2D(50.5F, 40) << QVector2D(60, 30)
                                << QRect(QPoint(40, 15), QPoint(70, 55));
        QTest::newRow("over the corner")
            << QVector2D(0, 0) << QVector2D(5, 5) << QRect(QPoint(0, 0), QPoint(15, 20));
        QTest::newRow("over the far corner")
            << QVector2D(99, 79) << QVector2D(99, 79) << QRect(QPoint(89, 64), QPoint(99, 79));
        QTest::newRow("one column left")
            << QVector2D(-10, 40) << QVector2D(-10, 40) << QRect(QPoint(0, 25), QPoint(0, 55));
        QTest::newRow("left of it") << QVector2D(-11, 40) << QVector2D(-50, 40) << all;
        QTest::newRow("below it") << QVector2D(50, 96) << QVector2D(50, 999) << all;
        QTest::newRow("far away") << QVector2D(1e30F, 0) << QVector2D(1e30F, 0) << all;
        QTest::newRow("no number") << QVector2D(nan, nan) << QVector2D(nan, nan) << all;
    }

    void bounds()
    {
        QFETCH(QVector2D, a);
        QFETCH(QVector2D, b);
        QTEST(strokeBounds({20, 30}, a, b, {100, 80}), "expected");
    }

    void anySegmentAnywhere()
    {
        std::mt19937 random(3);
        for (int round = 0; round < 600; ++round) {
            const PlainBrush plain{PlainBrush::Contour(round % 3),
                                   randomFloat(0.3F, 30.0F, random),
                                   randomFloat(-9.0F, 9.0F, random),
                                   round % 5 == 0 ? 0.0F : randomFloat(0.01F, 1.0F, random)};
            const auto brush = brushOf(plain);
            const QSize size = randomSize(70, 20, random);
            const auto point = [&] {
                return QVector2D(randomFloat(-40, 110, random), randomFloat(-30, 50, random));
            };
            const QVector2D a = point();
            const QVector2D b = round % 4 == 0 ? a : point();
            const FloatImage before = randomFloats(size, -1.0F, 1.0F, random);
            FloatImage expected = before;
            plain.paint(a, b, expected.rect(), expected);
            FloatImage painted = before;
            const auto paint = plain.amplitude > 0.0F ? paintSegmentMax : paintSegmentMin;
            const QRect area = paint(*brush, a, b, painted);
            // A pixel that lies just at the radius may go either way.
            QVERIFY(largestDifference(painted, expected) < 2e-5F);
            QCOMPARE(area.isEmpty() ? before : painted, painted);
            const QRect bounds = strokeBounds({brush->sizeX, brush->sizeY}, a, b, size);
            QVERIFY(area == bounds || (area.isEmpty() && bounds == painted.rect()));
            FloatImage again = painted;
            paint(*brush, a, b, again);
            QCOMPARE(again, painted);
            everyLoopAgrees(plain, *brush, {a, b}, before);
        }
    }

    // Pointers and sizes are whole pixels, so that many lie there.
    void whatLiesAtTheRadiusIsPainted()
    {
        const auto brush = brushOf({PlainBrush::Ramp, 5.0F, 0.7F, 0.0F});
        FloatImage layer(20, 3);
        QCOMPARE(paintSegmentMax(*brush, {8, 1}, {10, 1}, layer), QRect(3, 0, 13, 3));
        QCOMPARE(layer.row(1)[2], 0.0F);
        QCOMPARE(layer.row(1)[3], 0.7F);
        QCOMPARE(layer.row(1)[15], 0.7F);
        QCOMPARE(layer.row(1)[16], 0.0F);
    }

    void heightIsAPercentageOfTheRadius()
    {
        QCOMPARE(strokePeak(30, 10.0, true), 1.5);
        QCOMPARE(strokePeak(30, 10.0, false), -1.5);
    }

private:
    static void everyLoopAgrees(const PlainBrush &plain,
                                const FloatBrushFunc &brush,
                                const Capsule2D &segment,
                                const FloatImage &before)
    {
        FloatImage expected = before;
        brush.paintRowMax(segment, -3, 2, expected.row(0), before.width());
        for (int x = 0; x < before.width(); ++x) {
            const float distance =
                std::sqrt(segment.distanceSquared(QVector2D(float(x - 3), 2.0F)));
            QVERIFY(distance > plain.radius || expected.row(0)[x] >= brush.value(distance));
        }
        FloatImage lowered = before;
        brush.paintRowMin(segment, -3, 2, lowered.row(0), before.width());
        const CircularProfile profile{
            plain.radius,
            plain.softness > 0.0F
                ? float(double(plain.radius) - double(plain.softness) * double(plain.radius) + 1e-4)
                : std::numeric_limits<float>::infinity(),
            1.0F - plain.softness,
            plain.softness,
            plain.amplitude};
        for (const PixelLoops &loops : pixelLoops()) {
            FloatImage painted = before;
            loops.raise[plain.contour](segment, profile, -3, 2, painted.row(0), before.width());
            QCOMPARE(painted, expected);
            painted = before;
            loops.lower[plain.contour](segment, profile, -3, 2, painted.row(0), before.width());
            QCOMPARE(painted, lowered);
        }
    }
};

QTEST_GUILESS_MAIN(TestStrokePainting)

#include "tst_StrokePainting.moc"
