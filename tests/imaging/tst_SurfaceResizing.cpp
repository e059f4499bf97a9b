#include "imaging/SurfaceResizing.h"
#include "support/Pictures.h"

#include <QTest>

#include <algorithm>
#include <cmath>

namespace {
/// The weight of cell @p from, of @p before, in the cell @p to, of @p after.
double weight(int from, int before, int to, int after)
{
    const double scale = double(before) / after;
    if (after < before)
        return std::max(0.0,
                        std::min(from + 1.0, (to + 1) * scale) - std::max(1.0 * from, to * scale)) /
               scale;
    const double place = std::clamp((to + 0.5) * scale - 0.5, 0.0, before - 1.0);
    return std::max(0.0, 1.0 - std::abs(place - from));
}

QPointF plainCell(const AngleImage &surface, const QSize &size, const QPoint &cell)
{
    QPointF sum;
    for (int y = 0; y < surface.height(); ++y)
        for (int x = 0; x < surface.width(); ++x)
            sum += QPointF(surface.row(y)[x].sx, surface.row(y)[x].sy) *
                   weight(x, surface.width(), cell.x(), size.width()) *
                   weight(y, surface.height(), cell.y(), size.height());
    constexpr double steepest = 127 * 256; // that rounding gives
    return {std::min(sum.x(), steepest), std::min(sum.y(), steepest)};
}
} // namespace

class TestSurfaceResizing : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    // Whole, half and odd factors, sides that grow beside sides that shrink.
    void scaling()
    {
        std::mt19937 random(5);
        for (int round = 0; round < 200; ++round) {
            const AngleImage surface = randomAngles(randomSize(12, 12, random), random);
            const QSize size = randomSize(25, 25, random);
            const AngleImage scaled = scaledTo(surface, size);
            QCOMPARE(scaled.size(), surface.isNull() || size.isEmpty() ? scaled.size() : size);
            for (int i = 0; i < scaled.width() * scaled.height() && !surface.isNull(); ++i) {
                const QPoint cell(i % size.width(), i / size.width());
                const QPointF plain = plainCell(surface, size, cell);
                // Halves of a stored step, and what single precision leaves of 32512.
                QVERIFY(std::abs(plain.x() - scaled.row(0)[i].sx) < 0.52);
                QVERIFY(std::abs(plain.y() - scaled.row(0)[i].sy) < 0.52);
            }
        }
        QVERIFY(scaledTo({}, {3, 2}) == AngleImage(3, 2));
        const AngleImage largest(AngleImage::maximumSide, 3, 7);
        QVERIFY(scaledTo(largest, {1, 2}) == AngleImage(1, 2, 7));
        QVERIFY(scaledTo(scaledTo(largest, {1, 2}), largest.size()) == largest);
    }

    void anchoring()
    {
        std::mt19937 random(6);
        const AngleImage surface = randomAngles(5, 4, random);
        const std::pair<Qt::Alignment, QPoint> places[] = {
            {Qt::AlignLeft | Qt::AlignTop, {0, 0}},
            {Qt::AlignTop, {1, 0}},
            {Qt::AlignRight | Qt::AlignTop, {3, 0}},
            {Qt::AlignLeft, {0, -1}},
            {Qt::AlignCenter, {1, -1}},
            {Qt::AlignRight, {3, -1}},
            {Qt::AlignLeft | Qt::AlignBottom, {0, -2}},
            {Qt::AlignBottom, {1, -2}},
            {Qt::AlignRight | Qt::AlignBottom, {3, -2}}};
        for (const auto &[anchor, place] : places) {
            const AngleImage result = anchoredTo(surface, {8, 2}, anchor);
            QCOMPARE(result.size(), QSize(8, 2));
            for (int i = 0; i < 16; ++i) {
                const QPoint from = QPoint(i % 8, i / 8) - place;
                const auto expected = surface.rect().contains(from)
                                          ? surface.row(from.y())[from.x()]
                                          : AngleImage::Pixel();
                QCOMPARE(result.row(0)[i], expected);
            }
            QVERIFY(anchoredTo(anchoredTo(surface, {10, 9}, anchor), {5, 4}, anchor) == surface);
        }
    }
};

QTEST_GUILESS_MAIN(TestSurfaceResizing)

#include "tst_SurfaceResizing.moc"
