#include "imaging/Clipping.h"
#include "imaging/HeightsToAngles.h"
#include "imaging/MaskedPaste.h"
#include "imaging/PixelLoops.h"
#include "imaging/SlopeArithmetic.h"
#include "imaging/StrokeResults.h"
#include "support/Pictures.h"

#include <QTest>

#include <limits>

namespace {

using Pixel = AngleImage::Pixel;

// Exact in double precision but for the single products.
qint16 stored(float slope)
{
    if (std::isnan(slope))
        return 0;
    return qint16(std::lround(std::clamp(double(slope), -128.0, 127.0) * 256.0));
}

qint16 plainSum(qint16 before, qint16 added, float weight)
{
    const float share = float(added) / 256.0F * weight;
    return stored(share + float(before) / 256.0F);
}

qint16 plainBlend(qint16 before, qint16 after, float weight)
{
    const float kept = float(before) / 256.0F * (1.0F - weight);
    const float taken = float(after) / 256.0F * weight;
    return stored(kept + taken);
}

qint16 plainCopy(qint16 /*before*/, qint16 after, float /*weight*/)
{
    return after;
}

/// One cell's new value from its old one, the source's and the weight.
using Rule = qint16 (*)(qint16 before, qint16 source, float weight);

// Cell by cell; the cells of source lie at an offset. No weights count as 1.
QRect plainly(Rule rule,
              AngleImage &target,
              const FloatImage &weights,
              const QPoint &offset,
              const AngleImage &source,
              const QRect &rect)
{
    QRect changed;
    for (int i = 0; i < target.width() * target.height(); ++i) {
        const QPoint at(i % target.width(), i / target.width());
        const QPoint from = at - offset;
        if (!rect.contains(from) || !source.rect().contains(from) ||
            !(weights.isNull() || weights.rect().contains(at)))
            continue;
        changed |= QRect(at, QSize(1, 1));
        const float weight = weights.isNull() ? 1.0F : weights.row(at.y())[at.x()];
        const Pixel added = source.row(from.y())[from.x()];
        Pixel &cell = target.row(0)[i];
        if (weight != 0.0F)
            cell = {rule(cell.sx, added.sx, weight), rule(cell.sy, added.sy, weight)};
    }
    return changed;
}

QRect put(AngleImage &surface, const SurfacePiece &piece)
{
    return piece.isEmpty() ? QRect() : pasteMasked(surface, {}, piece.area.topLeft(), piece.cells);
}

} // namespace

class TestSlopeArithmetic : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void anyRectangleAnywhere()
    {
        std::mt19937 random(11);
        for (int round = 0; round < 2000; ++round) {
            const AngleImage before = randomAngles(randomSize(40, 6, random), random);
            const AngleImage source = randomAngles(randomSize(40, 6, random), random);
            const QSize size = round % 3 == 1 ? QSize(19, 4) : before.size();
            FloatImage weights = round % 3 == 0 ? FloatImage() : randomMask(size, random);
            if (round % 3 == 1)
                weights.row(1)[0] = std::numeric_limits<float>::quiet_NaN();
            const QRect rect = round % 4 == 0 ? QRect() : randomRect(source.size(), random);
            const QRect wanted = rect.isNull() ? source.rect() : rect;
            const QPoint position = randomRect(before.size(), random).topLeft();
            const QPoint offset = position - wanted.topLeft();
            const Rule blending = weights.isNull() ? plainCopy : plainBlend;
            const std::pair<decltype(&addSlopes), Rule> works[] = {{addSlopes, plainSum},
                                                                   {pasteMasked, blending}};
            for (const auto &[work, rule] : works) {
                AngleImage target = before;
                AngleImage expected = before;
                const QRect changed = plainly(rule, expected, weights, offset, source, wanted);
                QCOMPARE(work(target, weights, position, source, rect), changed);
                QCOMPARE(target, expected);
                QCOMPARE(target.sharesCellsWith(before), changed.isEmpty());
            }
            const Pixel slope{qint16(random()), qint16(random())};
            AngleImage even(before.width(), before.height());
            std::fill_n(even.row(0), even.width() * even.height(), slope);
            const QRect all = rect.isNull() ? before.rect() : rect;
            AngleImage target = before;
            AngleImage expected = before;
            const QRect changed = plainly(blending, expected, weights, {}, even, all);
            QCOMPARE(blendSlope(target, weights, slope, rect), changed);
            QCOMPARE(target, expected);
        }
    }

    void anImageIntoItself()
    {
        std::mt19937 random(5);
        for (const QPoint position : {QPoint(1, 1), QPoint(-1, -1), QPoint(1, 0), QPoint(0, 1)}) {
            const AngleImage before = randomAngles(19, 5, random);
            for (const FloatImage &weights : {FloatImage(), randomMask(before.size(), random)}) {
                const Rule blending = weights.isNull() ? plainCopy : plainBlend;
                const std::pair<decltype(&addSlopes), Rule> works[] = {{addSlopes, plainSum},
                                                                       {pasteMasked, blending}};
                for (const auto &[work, rule] : works) {
                    AngleImage expected = before;
                    plainly(rule, expected, weights, position, before, before.rect());
                    AngleImage image = before;
                    image.row(0);
                    work(image, weights, position, image, {});
                    QCOMPARE(image, expected);
                }
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

    void everyLoopGivesTheSameCells()
    {
        std::mt19937 random(12);
        for (int width = 1; width < 80; ++width) {
            const AngleImage before = randomAngles(width, 1, random);
            const AngleImage source = randomAngles(width, 1, random);
            const FloatImage weights = randomMask(before.size(), random);
            const FloatImage slopes = randomFloats({2 * width, 1}, -200.0F, 200.0F, random);
            const Plain expected = results(pixelLoops().front(), before, source, weights, slopes);
            for (const PixelLoops &loops : pixelLoops())
                QCOMPARE(results(loops, before, source, weights, slopes), expected);
            for (qptrdiff i = 0; i < width; ++i) {
                QCOMPARE(expected.floats[std::size_t(2 * i + 1)],
                         float(before.row(0)[i].sy) / 256.0F);
                QCOMPARE(expected.cells.row(0)[i].sx, stored(slopes.row(0)[2 * i]));
            }
            AngleImage mixed = before;
            plainly(plainBlend, mixed, weights, {}, source, source.rect());
            QCOMPARE(expected.mixed, mixed);
        }
    }

    void strokesReachAsFarAsTheirHeightsShow()
    {
        std::mt19937 random(13);
        for (int round = 0; round < 300; ++round) {
            AngleImage start = randomAngles(randomSize(30, 12, random), random);
            // Only slopes that a sum can give.
            addSlopes(start, {}, {}, AngleImage(start.width(), start.height()));
            FloatImage heights(start.width(), start.height());
            AngleImage current = start;
            QRect reached;
            for (int step = 0; step < 3; ++step) {
                const QRect dab = clipped(randomRect(start.size(), random), start.rect());
                for (int y = dab.top(); y <= dab.bottom(); ++y)
                    for (int x = dab.left(); x <= dab.right(); ++x)
                        heights.row(y)[x] = float(randomInt(-40, 40, random));
                const QRect written = put(current, raised(start, heights, dab));
                QCOMPARE(written,
                         dab.isEmpty() ? QRect()
                                       : clipped(dab.adjusted(-2, -2, 2, 2), start.rect()));
                reached |= written;
            }
            AngleImage slopes;
            heightsToAngles(heights, slopes);
            AngleImage expected = start;
            addSlopes(expected, {}, reached.topLeft(), slopes, reached);
            QCOMPARE(current, reached.isEmpty() ? start : expected);
        }
    }

    void coverageStartsFromTheStroke()
    {
        std::mt19937 random(14);
        const QSize size(23, 9);
        const AngleImage start = randomAngles(size, random);
        const AngleImage other = randomAngles(size, random);
        const FloatImage coverage = randomMask(size, random);
        const Pixel slope{300, -70};
        for (const QRect area : {QRect(3, 2, 11, 5), QRect(-4, -4, 99, 99)}) {
            const QRect inside = area.intersected(start.rect());
            AngleImage expected = start;
            blendSlope(expected, coverage, slope, inside);
            AngleImage current = start;
            QCOMPARE(put(current, turned(start, coverage, area, slope)), inside);
            QCOMPARE(current, expected);
            expected = start;
            copyRegion(expected, coverage, other, inside);
            QCOMPARE(put(current, smoothened(start, coverage, area, other)), inside);
            QCOMPARE(current, expected);
            expected = start;
            addSlopes(expected, coverage, inside.topLeft(), other, inside);
            QCOMPARE(put(current, structured(start, coverage, area, other)), inside);
            QCOMPARE(current, expected);
            for (const QRect &nothing :
                 {QRect(), QRect(50, 0, 5, 5), QRect(3, 3, 0, 4), QRect(9, 3, -5, 4)}) {
                QVERIFY(turned(start, coverage, nothing, slope).isEmpty());
                QVERIFY(raised(start, coverage, nothing).isEmpty());
                QVERIFY(smoothened(start, coverage, nothing, other).isEmpty());
                QVERIFY(structured(start, coverage, nothing, other).isEmpty());
            }
            QVERIFY(smoothened(start, coverage, area, {}).isEmpty());
            QVERIFY(structured(start, coverage, area, {}).isEmpty());
            // An unpainted body is flat.
            expected = AngleImage(size.width(), size.height());
            blendSlope(expected, coverage, slope);
            QCOMPARE(turned({}, coverage, start.rect(), slope).cells, expected);
        }
    }

private:
    struct Plain
    {
        AngleImage added;
        AngleImage addedPartly;
        AngleImage blended;
        AngleImage mixed;
        AngleImage cells;
        std::vector<float> floats;
        FloatImage lumas;

        bool operator==(const Plain &) const = default;
    };

    static Plain results(const PixelLoops &loops,
                         const AngleImage &before,
                         const AngleImage &source,
                         const FloatImage &weights,
                         const FloatImage &slopes)
    {
        const int width = before.width();
        const std::vector<float> floats(std::size_t(2) * std::size_t(width));
        Plain result{before, before, before, before, before, floats, weights};
        loops.add(result.added.row(0), source.row(0), width);
        loops.addWeighted(result.addedPartly.row(0), source.row(0), weights.row(0), width);
        loops.blend(result.blended.row(0), {-1000, 20000}, weights.row(0), width);
        loops.mix(result.mixed.row(0), source.row(0), weights.row(0), width);
        loops.fromFloats(slopes.row(0), result.cells.row(0), width);
        loops.toFloats(before.row(0), result.floats.data(), width);
        // Any pixels do.
        const auto *pixels = reinterpret_cast<const QRgb *>(source.row(0));
        loops.lumaHeights(pixels, result.lumas.row(0), width, 3.5);
        return result;
    }
};

QTEST_GUILESS_MAIN(TestSlopeArithmetic)

#include "tst_SlopeArithmetic.moc"
