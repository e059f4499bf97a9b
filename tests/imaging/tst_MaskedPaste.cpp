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
    for (int i = 0; i < target.width() * target.height(); ++i) {
        const QPoint at(i % target.width(), i / target.width());
        const QPoint from = at - position + rect.topLeft();
        const bool isInMask = mask.isNull() || mask.rect().contains(at);
        if (!rect.contains(from) || !source.rect().contains(from) || !isInMask)
            continue;
        pasted |= QRect(at, QSize(1, 1));
        const AngleImage::Pixel taken = source.row(from.y())[from.x()];
        const float weight = mask.isNull() ? 0.0F : mask.row(at.y())[at.x()];
        AngleImage::Pixel &cell = target.row(0)[i];
        if (mask.isNull())
            cell = taken;
        else if (weight != 0.0F)
            cell = {plainMean(cell.sx, taken.sx, weight), plainMean(cell.sy, taken.sy, weight)};
    }
    return pasted;
}

} // namespace

class TestMaskedPaste : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void anyRectangleAnywhere()
    {
        std::mt19937 random(4);
        for (int round = 0; round < 3000; ++round) {
            const AngleImage before = randomAngles(randomSize(20, 6, random), random);
            const AngleImage source = randomAngles(randomSize(20, 6, random), random);
            const QSize size = round % 3 == 1 ? before.size() : QSize(9, 3);
            const FloatImage mask = round % 3 == 0 ? FloatImage() : randomMask(size, random);
            const QRect rect = round % 4 == 0 ? QRect() : randomRect(source.size(), random);
            const QPoint position = randomRect(before.size(), random).topLeft();
            const QRect wanted = rect.isNull() ? source.rect() : rect;
            AngleImage target = before;
            AngleImage expected = before;
            const QRect pasted = plainPaste(expected, mask, position, source, wanted);
            QCOMPARE(pasteMasked(target, mask, position, source, rect), pasted);
            QCOMPARE(target, expected);
            QCOMPARE(target.sharesCellsWith(before), pasted.isEmpty());
        }
    }

    void everyLoopGivesTheSameCells()
    {
        std::mt19937 random(7);
        for (int width = 1; width < 80; ++width) {
            const AngleImage before = randomAngles(width, 1, random);
            const AngleImage source = randomAngles(width, 1, random);
            const FloatImage mask = randomMask(before.size(), random);
            AngleImage expected = before;
            plainPaste(expected, mask, {}, source, source.rect());
            for (const PixelLoops &loops : pixelLoops()) {
                AngleImage target = before;
                loops.mix(target.row(0), source.row(0), mask.row(0), width);
                QCOMPARE(target, expected);
            }
        }
    }

    void anImageIntoItself()
    {
        std::mt19937 random(5);
        for (const QPoint position : {QPoint(1, 1), QPoint(-1, -1), QPoint(1, 0), QPoint(0, 1)}) {
            const AngleImage before = randomAngles(19, 5, random);
            for (const FloatImage &mask : {FloatImage(), randomMask(before.size(), random)}) {
                AngleImage expected = before;
                plainPaste(expected, mask, position, before, before.rect());
                AngleImage image = before;
                image.row(0);
                pasteMasked(image, mask, position, image);
                QCOMPARE(image, expected);
            }
        }
    }

    void copyRegionKeepsThePlace()
    {
        AngleImage target = angles({{1, 2, 3}, {4, 5, 6}});
        const AngleImage source = angles({{-1, -2, -3}, {-4, -5, -6}});
        QCOMPARE(copyRegion(target, {}, source, QRect(1, 1, 9, 9)), QRect(1, 1, 2, 1));
        QCOMPARE(copyRegion(target, floats({{0, 1, 0}}), source, QRect()), QRect(0, 0, 3, 1));
        for (const QRect &beside : {QRect(3, 0, 1, 1), QRect(QPoint(2, 2), QPoint(0, 0))})
            QVERIFY(copyRegion(target, {}, source, beside).isEmpty());
        QVERIFY(copyRegion(target, {}, AngleImage(), QRect()).isEmpty());
        QCOMPARE(target, angles({{1, -2, 3}, {4, -5, -6}}));
        target = {};
        QVERIFY(copyRegion(target, {}, source, QRect()).isEmpty());
    }
};

QTEST_GUILESS_MAIN(TestMaskedPaste)

#include "tst_MaskedPaste.moc"
