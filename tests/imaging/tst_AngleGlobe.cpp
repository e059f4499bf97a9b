#include "imaging/AngleGlobe.h"
#include "support/Pictures.h"

#include <QImage>
#include <QTest>

#include <cmath>

namespace {

// Halfway between two directions the next one counts, from +Y towards +X.
QPoint plainSnap(const QPoint &offset, int size)
{
    const double degrees = std::atan2(offset.x(), offset.y()) * 180 / M_PI;
    const double direction = std::floor((degrees + 15 + 1e-6) / 30) * M_PI / 6;
    const int centre = size / 2;
    const double step = centre / 4.0;
    const double ring = std::floor(std::hypot(offset.x(), offset.y()) / step);
    const double radius = std::min(ring, 4.0) * step;
    const auto pixel = [&](double part) {
        return std::min(int(part * radius + centre + 1e-6), size - 1);
    };
    return {pixel(std::sin(direction)), pixel(std::cos(direction))};
}

} // namespace

class TestAngleGlobe : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void markers()
    {
        for (const int size : {128, 129})
            QCOMPARE(globePosition({256, -512}, size), QPointF(64, -128) / std::sqrt(6.0));
        QCOMPARE(heldOnGlobe({30, -40}, 128), QPointF(30, -40));
        QCOMPARE(heldOnGlobe({300, -400}, 128), QPointF(57.6 * 0.6, -57.6 * 0.8));
        QCOMPARE(globePixel({-10.5, 10.5}, 128), QPoint(54, 75));
        QCOMPARE(globePixel({-1000, 1000}, 128), QPoint(0, 127));
    }

    void slopesAreTheInverseOfPositions()
    {
        for (const int size : {2, 31, 128, 129, 192}) {
            const AngleImage slopes = globeSlopes(size, false);
            const int centre = size / 2;
            for (int i = 0; i < size * size; ++i) {
                const QPoint at(i % size, i / size);
                const QPoint offset = at - QPoint(centre, centre);
                const AngleImage::Pixel slope = slopes.row(at.y())[at.x()];
                if (QPoint::dotProduct(offset, offset) < centre * centre) {
                    QCOMPARE(globePixel(globePosition(slope, size), size), at);
                    continue;
                }
                const auto rim = [](int side) { return side < 0 ? -32768 : 32512 * (side > 0); };
                QCOMPARE(int(slope.sx), rim(offset.x()));
                QCOMPARE(int(slope.sy), rim(offset.y()));
            }
        }
        QVERIFY(globeSlopes(0, true).isNull());
        QCOMPARE(globeSlopes(1, true), angles({{0}}));
    }

    void discreteSnaps()
    {
        for (const int size : {64, 127, 128, 192}) {
            const AngleImage discrete = globeSlopes(size, true);
            const AngleImage slopes = globeSlopes(size, false);
            for (int i = 0; i < size * size; ++i) {
                const QPoint snapped =
                    plainSnap(QPoint(i % size, i / size) - QPoint(1, 1) * (size / 2), size);
                QCOMPARE(discrete.row(0)[i], slopes.row(snapped.y())[snapped.x()]);
            }
        }
    }

    void picking()
    {
        using Picked = std::optional<AngleImage::Pixel>;
        QImage texture(2, 2, QImage::Format_ARGB32);
        texture.fill(Qt::red);
        texture.setPixel(0, 0, 0x01000000U);
        texture.setPixel(0, 1, 0x00FFFFFFU);
        const AngleImage image = angles({{{1, 2}, {3, 4}, {5, 6}}, {{7, 8}, {9, 10}, {11, 12}}});
        const auto at = [&](double x, double y) { return pickedAngle(image, texture, {x, y}); };
        const AngleImage::Pixel flat;
        QCOMPARE(at(1.9, 0.9), Picked({3, 4}));
        QCOMPARE(at(-0.9, -0.9), Picked({1, 2})); // barely visible; truncated, not floored
        QCOMPARE(at(0.0, 1.0), Picked(flat));     // transparent
        QCOMPARE(at(2.5, 0.5), Picked(flat));     // beyond the texture
        QCOMPARE(at(-1.0, 0.0), Picked());
        QCOMPARE(at(0.0, 2.0), Picked());
        QCOMPARE(at(1e300, 0.0), Picked());
        QCOMPARE(pickedAngle({}, texture, {1.9, 0.9}), Picked(flat));
        QCOMPARE(pickedAngle({}, texture, {2.5, 0.5}), Picked());
    }
};

QTEST_GUILESS_MAIN(TestAngleGlobe)

#include "tst_AngleGlobe.moc"
