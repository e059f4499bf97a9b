#include "imaging/HeightsToAngles.h"
#include "imaging/PixelLoops.h"
#include "support/Pictures.h"

#include <QTest>

#include <algorithm>

namespace {

// One cell of the operator, with every neighbour fetched through the field's borders.
AngleImage::Pixel plainSlopes(const FloatImage &heights, int column, int row)
{
    const auto height = [&](int c, int r) {
        const float *cells = heights.row(std::clamp(r, 0, heights.height() - 1));
        return cells[std::clamp(c, 0, heights.width() - 1)];
    };
    const auto sum = [&](int c) {
        return height(c, row - 1) + 2.0F * height(c, row) + height(c, row + 1);
    };
    const auto difference = [&](int c) { return height(c, row - 1) - height(c, row + 1); };
    const float x = sum(column - 1) - sum(column + 1);
    const float y = difference(column - 1) + 2.0F * difference(column) + difference(column + 1);
    return {toStoredSlope(x * 0.125F), toStoredSlope(y * 0.125F)};
}

AngleImage slopesOf(const FloatImage &heights)
{
    AngleImage surface;
    heightsToAngles(heights, surface);
    return surface;
}

} // namespace

class TestHeightsToAngles : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void pictures()
    {
        QCOMPARE(slopesOf(floats({{0, 1, 2, 3}})), angles({{-128, -256, -256, -128}}));
        QCOMPARE(slopesOf(floats({{0, 1000, 0}})), angles({{-32768, 0, 32512}}));
        // A rise of 1/256 halves to a slope right between two stored ones.
        QCOMPARE(slopesOf(floats({{0, 0.00390625F}})), angles({{-1, -1}}));
        const AngleImage peak = angles({{{-256, -256}, {0, -512}, {256, -256}},
                                        {{-512, 0}, {0, 0}, {512, 0}},
                                        {{-256, 256}, {0, 512}, {256, 256}}});
        QCOMPARE(slopesOf(floats({{0, 0, 0}, {0, 8, 0}, {0, 0, 0}})), peak);
        QVERIFY(slopesOf(FloatImage()).isNull());
    }

    void everySizeAndRectangle()
    {
        std::mt19937 random(3);
        AngleImage surface;
        for (int round = 0; round < 2000; ++round) {
            // Widths around the vectors', and often a single row or column.
            const QSize most = round % 5 == 0 ? QSize(1, 7) : QSize(40, round % 7 == 0 ? 1 : 7);
            const QSize size = randomSize(most.width(), most.height(), random);
            const float range = round % 3 == 0 ? 400.0F : 3.0F;
            const FloatImage heights = randomFloats(size, -range, range, random);
            const QRect rect = round % 4 == 0 ? QRect() : randomRect(size, random);
            QRect area = rect.isNull() ? heights.rect() : rect & heights.rect();
            // The toolkit turns rectangles of one side 0 around. Where nothing is left, nothing
            // changes.
            AngleImage expected = surface;
            if (area.isEmpty() || (rect.isEmpty() && !rect.isNull()))
                area = {};
            else
                expected = AngleImage(area.width(), area.height());
            for (int y = area.top(); y <= area.bottom(); ++y)
                for (int x = area.left(); x <= area.right(); ++x)
                    expected.row(y - area.top())[x - area.left()] = plainSlopes(heights, x, y);
            QCOMPARE(heightsToAngles(heights, surface, rect), area);
            QCOMPARE(surface, expected);
        }
    }

    void everyLoopGivesTheSameSlopes()
    {
        std::mt19937 random(6);
        for (int width = 3; width < 80; ++width) {
            const FloatImage heights = randomFloats({width, 3}, -200.0F, 200.0F, random);
            const float *rows[] = {heights.row(0) + 1, heights.row(1) + 1, heights.row(2) + 1};
            AngleImage expected(width - 1, 1, 7);
            for (int c = 1; c < width - 1; ++c)
                expected.row(0)[c - 1] = plainSlopes(heights, c, 1);
            for (const PixelLoops &loops : pixelLoops()) {
                AngleImage derived(width - 1, 1, 7);
                loops.derive(rows[0], rows[1], rows[2], derived.row(0), width - 2);
                QCOMPARE(derived, expected);
            }
        }
    }
};

QTEST_GUILESS_MAIN(TestHeightsToAngles)

#include "tst_HeightsToAngles.moc"
