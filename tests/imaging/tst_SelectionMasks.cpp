#include "imaging/FloatPainter.h"
#include "imaging/SelectionMasks.h"
#include "support/Pictures.h"

#include <QImage>
#include <QTest>

#include <cstdlib>

namespace {

// Pixels that differ little, so that chains of similar neighbours lead away from a seed.
QImage randomTexture(const QSize &size, std::mt19937 &random)
{
    QImage image(size, QImage::Format_ARGB32);
    const auto level = [&random] { return 40 * randomInt(0, 2, random); };
    for (int y = 0; y < size.height(); ++y)
        for (int x = 0; x < size.width(); ++x)
            image.setPixel(x, y, qRgba(level(), level(), level(), 100 * randomInt(0, 2, random)));
    return image;
}

bool isSimilar(QRgb a, QRgb b, int tolerance)
{
    return std::abs(qRed(a) - qRed(b)) <= tolerance &&
           std::abs(qGreen(a) - qGreen(b)) <= tolerance &&
           std::abs(qBlue(a) - qBlue(b)) <= tolerance;
}

FloatImage plainFill(const QImage &image, const QPoint &seed, int tolerance)
{
    FloatImage mask(image.width(), image.height());
    QVector<QPoint> waiting{seed};
    while (!waiting.isEmpty()) {
        const QPoint at = waiting.takeFirst();
        if (!image.valid(at) || mask.row(at.y())[at.x()] == 1.0F ||
            !isSimilar(image.pixel(at), image.pixel(seed), tolerance))
            continue;
        mask.row(at.y())[at.x()] = 1.0F;
        for (const QPoint step : {QPoint(1, 0), QPoint(-1, 0), QPoint(0, 1), QPoint(0, -1)})
            waiting.append(at + step);
    }
    return image.valid(seed) ? mask : FloatImage();
}

// Cell by cell over the whole target.
QRect plainPaste(FloatImage &target,
                 const FloatImage &mask,
                 const QPoint &position,
                 const FloatImage &source,
                 const QRect &rect)
{
    const QRect wanted = rect.isNull() ? source.rect() : rect;
    QRect painted;
    for (int i = 0; i < target.width() * target.height(); ++i) {
        const QPoint at(i % target.width(), i / target.width());
        const QPoint from = at - position + wanted.topLeft();
        if (!wanted.contains(from) || !source.rect().contains(from) ||
            !(mask.isNull() || mask.rect().contains(at)))
            continue;
        painted |= QRect(at, QSize(1, 1));
        const float value = source.row(from.y())[from.x()];
        const float weight = mask.isNull() ? 1.0F : mask.row(at.y())[at.x()];
        float &cell = target.row(0)[i];
        cell = mask.isNull() ? value : cell * (1.0F - weight) + value * weight;
    }
    return painted;
}

} // namespace

class TestSelectionMasks : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void painterAnyRectangleAnywhere()
    {
        std::mt19937 random(1);
        for (int round = 0; round < 2000; ++round) {
            const FloatImage before = randomFloats(randomSize(9, 6, random), -2, 2, random);
            const FloatImage source = randomFloats(randomSize(9, 6, random), -2, 2, random);
            const QSize size = round % 3 == 1 ? before.size() : QSize(4, 3);
            const FloatImage mask = round % 3 == 0 ? FloatImage() : randomMask(size, random);
            const QRect rect = round % 4 == 0 ? QRect() : randomRect(source.size(), random);
            const QPoint position = randomRect(before.size(), random).topLeft();
            FloatImage target = before;
            FloatImage expected = before;
            FloatPainter painter(target);
            painter.setMask(mask);
            QCOMPARE(painter.paste(position, source, rect),
                     plainPaste(expected, mask, position, source, rect));
            QCOMPARE(target, expected);
            const FloatImage level(before.width(), before.height(), 0.3F);
            const QPoint corner = rect.isNull() ? QPoint() : rect.topLeft();
            QCOMPARE(painter.fill(0.3F, rect), plainPaste(expected, mask, corner, level, rect));
            QCOMPARE(target, expected);
        }
        FloatImage shifted = floats({{1, 2, 3}});
        FloatPainter(shifted).paste({1, 0}, shifted);
        QCOMPARE(shifted, floats({{1, 1, 2}}));
    }

    void fillReachesSimilarColours()
    {
        std::mt19937 random(2);
        for (int round = 0; round < 2000; ++round) {
            const QSize size = randomSize(round % 4 == 0 ? 100 : 11, 7, random);
            const auto format = round % 2 == 0 ? QImage::Format_ARGB32 : QImage::Format_Indexed8;
            const QImage texture = randomTexture(size, random).convertToFormat(format);
            const QPoint seed(randomInt(-1, size.width(), random),
                              randomInt(-1, size.height(), random));
            const int tolerance = QVector<int>{0, 39, 40, 79, 80, 255}.at(round % 6);
            QCOMPARE(colorFill(texture, seed, tolerance), plainFill(texture, seed, tolerance));
            QCOMPARE(colorFill(texture, seed, -1), colorFill(texture, seed, 0));
        }
        QVERIFY(colorFill({}, {0, 0}, 20).isNull());
    }

    void combine()
    {
        const FloatImage selection = floats({{0, 0.5F, 0.5F, 1}});
        const FloatImage mask = floats({{1, 0.25F, 0.75F, 0}});
        using enum SelectionMode;
        QCOMPARE(combined(selection, mask, Replace), mask);
        QCOMPARE(combined(selection, mask, Add), floats({{1, 0.5F, 0.75F, 1}}));
        QCOMPARE(combined(selection, mask, Subtract), floats({{0, 0.5F, 0.25F, 1}}));
        for (const FloatImage &none : {FloatImage(), floats({{1, 1}})}) {
            QCOMPARE(combined(none, mask, Replace), mask);
            QCOMPARE(combined(none, mask, Add), mask);
            QCOMPARE(combined(none, mask, Subtract), FloatImage());
        }
        for (const SelectionMode mode : {Replace, Add, Subtract}) {
            QCOMPARE(combined(selection, {}, mode), mode == Replace ? FloatImage() : selection);
            QCOMPARE(combined(floats({{0, 0}}), floats({{0, 0}}), mode), FloatImage());
        }
    }

    void polygonEnds()
    {
        const QPolygon square(QVector<QPoint>{{1, 0}, {3, 0}, {3, 1}, {1, 1}});
        const QPolygon last(QVector<QPoint>{{32668, 0}, {32768, 0}, {32768, 4}, {32668, 4}});
        const FloatImage drawn = floats({{0, 1, 1, 0}, {0, 0, 0, 0}});
        QCOMPARE(combinedWithPolygon({}, square, {4, 2}, false), drawn);
        QCOMPARE(combinedWithPolygon(floats({{1, 1}}), square, {4, 2}, false), drawn);
        QCOMPARE(combinedWithPolygon(drawn, square, {4, 2}, true), FloatImage());
        QCOMPARE(combinedWithPolygon({}, square, {}, false), FloatImage());
        const FloatImage far = combinedWithPolygon({}, last, {32768, 4}, false);
        QCOMPARE(far.size(), QSize(32768, 4));
        QCOMPARE(std::count(far.row(0), far.row(3) + 32768, 1.0F), 400);
        QCOMPARE(std::count(far.row(3) + 32668, far.row(3) + 32768, 1.0F), 100);
    }

    void inverting()
    {
        QCOMPARE(inverted(floats({{0, 0.25F}, {1, 0}})), floats({{1, 0.75F}, {0, 1}}));
        QCOMPARE(inverted(fullSelection({3, 2})), FloatImage());
        QCOMPARE(inverted({}), FloatImage());
    }
};

QTEST_GUILESS_MAIN(TestSelectionMasks)

#include "tst_SelectionMasks.moc"
