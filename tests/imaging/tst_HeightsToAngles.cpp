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
        return heights.row(
            std::clamp(r, 0, heights.height() - 1))[std::clamp(c, 0, heights.width() - 1)];
    };
    const auto sum = [&](int c) {
        return height(c, row - 1) + 2.0F * height(c, row) + height(c, row + 1);
    };
    const auto difference = [&](int c) { return height(c, row - 1) - height(c, row + 1); };
    const float x = sum(column - 1) - sum(column + 1);
    const float y = difference(column - 1) + 2.0F * difference(column) + difference(column + 1);
    return {toStoredSlope(x * 0.125F), toStoredSlope(y * 0.125F)};
}

AngleImage plainHeightsToAngles(const FloatImage &heights, const QRect &area)
{
    AngleImage surface(area.width(), area.height());
    for (int y = 0; y < area.height(); ++y)
        for (int x = 0; x < area.width(); ++x)
            surface.row(y)[x] = plainSlopes(heights, area.left() + x, area.top() + y);
    return surface;
}

} // namespace

class TestHeightsToAngles : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void pictures_data();
    void pictures();
    void everySizeAndRectangle();
    void everyLoopGivesTheSameSlopes();
    void nothingToDoChangesNothing_data();
    void nothingToDoChangesNothing();
};

void TestHeightsToAngles::pictures_data()
{
    QTest::addColumn<FloatImage>("heights");
    QTest::addColumn<AngleImage>("surface");

    QTest::newRow("constant") << FloatImage(5, 3, 7.5F) << AngleImage(5, 3);
    QTest::newRow("rises to the right")
        << floats({{0, 1, 2, 3}}) << angles({{-128, -256, -256, -128}});
    QTest::newRow("rises downwards")
        << floats({{0}, {1}, {2}}) << angles({{{0, -128}}, {{0, -256}}, {{0, -128}}});
    QTest::newRow("a peak") << floats({{0, 0, 0}, {0, 8, 0}, {0, 0, 0}})
                            << angles({{{-256, -256}, {0, -512}, {256, -256}},
                                       {{-512, 0}, {0, 0}, {512, 0}},
                                       {{-256, 256}, {0, 512}, {256, 256}}});
    QTest::newRow("too steep") << floats({{0, 1000, 0}}) << angles({{-32768, 0, 32512}});
    // A rise of 1/256 halves to a slope right between two stored ones.
    QTest::newRow("halves") << floats({{0, 0.00390625F}}) << angles({{-1, -1}});
}

void TestHeightsToAngles::pictures()
{
    QFETCH(FloatImage, heights);
    QFETCH(AngleImage, surface);
    AngleImage derived;
    QCOMPARE(heightsToAngles(heights, derived), heights.rect());
    QCOMPARE(derived, surface);
}

void TestHeightsToAngles::everySizeAndRectangle()
{
    std::mt19937 random(3);
    AngleImage surface;
    for (int round = 0; round < 2000; ++round) {
        // Widths around the vectors', and often a single row or column.
        const int width = round % 5 == 0 ? 1 : randomInt(1, 40, random);
        const int height = round % 7 == 0 ? 1 : randomInt(1, 7, random);
        const float range = round % 3 == 0 ? 400.0F : 3.0F;
        const FloatImage heights = randomFloats(width, height, -range, range, random);
        const QRect rect = round % 4 == 0 ? QRect() : randomRect(heights.size(), random);
        if (!rect.isNull() && (rect.isEmpty() || !rect.intersects(heights.rect())))
            continue;
        const QRect area = rect.isNull() ? heights.rect() : rect & heights.rect();
        QCOMPARE(heightsToAngles(heights, surface, rect), area);
        QCOMPARE(surface, plainHeightsToAngles(heights, area));
    }
}

void TestHeightsToAngles::everyLoopGivesTheSameSlopes()
{
    std::mt19937 random(6);
    for (int width = 3; width < 80; ++width) {
        const FloatImage heights = randomFloats(width, 3, -200.0F, 200.0F, random);
        for (const PixelLoops &loops : pixelLoops()) {
            std::vector<AngleImage::Pixel> row(std::size_t(width) - 1, {7, 7});
            loops.derive(
                heights.row(0) + 1, heights.row(1) + 1, heights.row(2) + 1, row.data(), width - 2);
            for (int c = 1; c < width - 1; ++c)
                QVERIFY(row[std::size_t(c) - 1] == plainSlopes(heights, c, 1));
            QVERIFY((row.back() == AngleImage::Pixel{7, 7}));
        }
    }
}

void TestHeightsToAngles::nothingToDoChangesNothing_data()
{
    QTest::addColumn<FloatImage>("heights");
    QTest::addColumn<QRect>("rect");

    const FloatImage field(4, 4, 1.0F);
    QTest::newRow("no heights") << FloatImage() << QRect();
    QTest::newRow("beside the field") << field << QRect(4, 0, 2, 2);
    QTest::newRow("above the field") << field << QRect(0, -3, 2, 3);
    QTest::newRow("no width") << field << QRect(2, 1, 0, 2);
    QTest::newRow("turned around") << field << QRect(QPoint(3, 3), QPoint(1, 1));
}

void TestHeightsToAngles::nothingToDoChangesNothing()
{
    QFETCH(FloatImage, heights);
    QFETCH(QRect, rect);
    AngleImage surface(2, 2, 5);
    QVERIFY(heightsToAngles(heights, surface, rect).isEmpty());
    QCOMPARE(surface, AngleImage(2, 2, 5));
}

QTEST_GUILESS_MAIN(TestHeightsToAngles)

#include "tst_HeightsToAngles.moc"
