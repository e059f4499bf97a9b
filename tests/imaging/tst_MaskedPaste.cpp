#include "imaging/MaskedPaste.h"
#include "imaging/PixelLoops.h"
#include "support/Pictures.h"

#include <QTest>

#include <cmath>

namespace {

qint16 plainMean(qint16 before, qint16 after, float weight)
{
    const float a = float(before) / 256.0F;
    const float b = float(after) / 256.0F;
    const float mean = std::min(std::max(a * (1.0F - weight) + b * weight, -128.0F), 127.0F);
    return qint16(std::lround(double(mean) * 256.0));
}

// Cell by cell over the whole target, asking for each whether something lands there.
QRect plainPaste(AngleImage &target,
                 const FloatImage &mask,
                 const QPoint &position,
                 const AngleImage &source,
                 const QRect &rect)
{
    QRect pasted;
    for (int y = 0; y < target.height(); ++y) {
        for (int x = 0; x < target.width(); ++x) {
            const QPoint from = QPoint(x, y) - position + rect.topLeft();
            if (!rect.contains(from) || !source.rect().contains(from))
                continue;
            if (!mask.isNull() && !mask.rect().contains(x, y))
                continue;
            pasted |= QRect(x, y, 1, 1);
            const AngleImage::Pixel taken = source.row(from.y())[from.x()];
            AngleImage::Pixel &cell = target.row(y)[x];
            const float weight = mask.isNull() ? 0.0F : mask.row(y)[x];
            if (mask.isNull())
                cell = taken;
            else if (weight != 0.0F)
                cell = {plainMean(cell.sx, taken.sx, weight), plainMean(cell.sy, taken.sy, weight)};
        }
    }
    return pasted;
}

FloatImage randomMask(const QSize &size, std::mt19937 &random)
{
    // Cut at both ends, so that many weights are exactly 0 or 1.
    FloatImage mask = randomFloats(size.width(), size.height(), -0.5F, 1.5F, random);
    for (int y = 0; y < size.height(); ++y)
        for (int x = 0; x < size.width(); ++x)
            mask.row(y)[x] = std::clamp(mask.row(y)[x], 0.0F, 1.0F);
    return mask;
}

} // namespace

class TestMaskedPaste : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void weights_data();
    void weights();
    void anyRectangleAnywhere();
    void everyLoopGivesTheSameCells();
    void anImageIntoItself();
    void emptyRectangles_data();
    void emptyRectangles();
    void copyRegionKeepsThePlace();
};

void TestMaskedPaste::weights_data()
{
    QTest::addColumn<FloatImage>("mask");
    QTest::addColumn<AngleImage>("before");
    QTest::addColumn<AngleImage>("source");
    QTest::addColumn<AngleImage>("after");

    QTest::newRow("no mask copies as it is")
        << FloatImage() << angles({{1}}) << angles({{{32767, -32768}}})
        << angles({{{32767, -32768}}});
    QTest::newRow("0 keeps what is beyond the clamp")
        << floats({{0}}) << angles({{{32767, -32768}}}) << angles({{5}})
        << angles({{{32767, -32768}}});
    QTest::newRow("1 takes up to the clamp")
        << floats({{1}}) << angles({{{7, -7}}}) << angles({{{32767, -32768}}})
        << angles({{{32512, -32768}}});
    QTest::newRow("the mean's halves go away from zero")
        << floats({{0.5F}}) << angles({{{0, 0}}}) << angles({{{1, -1}}}) << angles({{{1, -1}}});
    QTest::newRow("outside the mask is kept")
        << floats({{1}}) << angles({{1, 2}, {3, 4}}) << angles({{5, 6}, {7, 8}})
        << angles({{5, 2}, {3, 4}});
}

void TestMaskedPaste::weights()
{
    QFETCH(FloatImage, mask);
    QFETCH(AngleImage, before);
    QFETCH(AngleImage, source);
    QFETCH(AngleImage, after);
    pasteMasked(before, mask, {0, 0}, source);
    QCOMPARE(before, after);
}

void TestMaskedPaste::anyRectangleAnywhere()
{
    std::mt19937 random(4);
    for (int round = 0; round < 3000; ++round) {
        AngleImage target = randomAngles(randomInt(1, 20, random), randomInt(1, 6, random), random);
        const AngleImage source =
            randomAngles(randomInt(1, 20, random), randomInt(1, 6, random), random);
        const FloatImage mask = round % 3 == 0 ? FloatImage() : randomMask(target.size(), random);
        const QRect rect = round % 4 == 0 ? QRect() : randomRect(source.size(), random);
        const QPoint position = randomRect(target.size(), random).topLeft();

        AngleImage expected = target;
        const QRect pasted =
            plainPaste(expected, mask, position, source, rect.isNull() ? source.rect() : rect);
        const QRect reported = pasteMasked(target, mask, position, source, rect);
        QCOMPARE(target, expected);
        QVERIFY(reported == pasted || (reported.isEmpty() && pasted.isEmpty()));
    }
}

void TestMaskedPaste::everyLoopGivesTheSameCells()
{
    std::mt19937 random(7);
    for (int width = 1; width < 80; ++width) {
        const AngleImage before = randomAngles(width, 1, random);
        const AngleImage source = randomAngles(width, 1, random);
        const FloatImage mask = randomMask(before.size(), random);
        AngleImage expected = before;
        plainPaste(expected, mask, {0, 0}, source, source.rect());
        for (const PixelLoops &loops : pixelLoops()) {
            AngleImage target = before;
            loops.mix(target.row(0), source.row(0), mask.row(0), width);
            QCOMPARE(target, expected);
        }
    }
}

void TestMaskedPaste::anImageIntoItself()
{
    std::mt19937 random(5);
    for (const QPoint position : {QPoint(1, 1), QPoint(-1, -1), QPoint(1, 0), QPoint(0, 1)}) {
        AngleImage image = randomAngles(19, 5, random);
        const FloatImage mask = randomMask(image.size(), random);
        const AngleImage before = image;
        for (const FloatImage &weights : {FloatImage(), mask}) {
            AngleImage expected = before;
            plainPaste(expected, weights, position, before, before.rect());
            image = AngleImage(before);
            image.row(0);
            pasteMasked(image, weights, position, image);
            QCOMPARE(image, expected);

            AngleImage sharing = before;
            pasteMasked(sharing, weights, position, before);
            QCOMPARE(sharing, expected);
        }
    }
}

void TestMaskedPaste::emptyRectangles_data()
{
    QTest::addColumn<AngleImage>("target");
    QTest::addColumn<AngleImage>("source");
    QTest::addColumn<QPoint>("position");
    QTest::addColumn<QRect>("rect");

    const AngleImage image(4, 4, 9);
    const AngleImage other(4, 4, 5);
    QTest::newRow("no target") << AngleImage() << other << QPoint() << QRect();
    QTest::newRow("no source") << image << AngleImage() << QPoint() << QRect();
    QTest::newRow("beside the source") << image << other << QPoint() << QRect(4, 0, 2, 2);
    QTest::newRow("beside the target") << image << other << QPoint(0, -4) << QRect();
    QTest::newRow("no height") << image << other << QPoint() << QRect(1, 1, 2, 0);
    QTest::newRow("turned around")
        << image << other << QPoint() << QRect(QPoint(3, 3), QPoint(1, 1));
}

void TestMaskedPaste::emptyRectangles()
{
    QFETCH(AngleImage, target);
    QFETCH(AngleImage, source);
    QFETCH(QPoint, position);
    QFETCH(QRect, rect);
    const AngleImage before = target;
    for (const FloatImage &mask : {FloatImage(), FloatImage(4, 4, 1.0F)}) {
        QVERIFY(pasteMasked(target, mask, position, source, rect).isEmpty());
        QCOMPARE(target, before);
        QVERIFY(target.isNull() || target.sharesCellsWith(before));
    }
}

void TestMaskedPaste::copyRegionKeepsThePlace()
{
    AngleImage target = angles({{1, 2, 3}, {4, 5, 6}});
    const AngleImage source = angles({{-1, -2, -3}, {-4, -5, -6}});
    QCOMPARE(copyRegion(target, {}, source, QRect(1, 1, 9, 9)), QRect(1, 1, 2, 1));
    QCOMPARE(target, angles({{1, 2, 3}, {4, -5, -6}}));
    QCOMPARE(copyRegion(target, floats({{0, 1, 0}}), source, QRect()), QRect(0, 0, 3, 1));
    QCOMPARE(target, angles({{1, -2, 3}, {4, -5, -6}}));
    QVERIFY(copyRegion(target, {}, source, QRect(3, 0, 1, 1)).isEmpty());
}

QTEST_GUILESS_MAIN(TestMaskedPaste)

#include "tst_MaskedPaste.moc"
