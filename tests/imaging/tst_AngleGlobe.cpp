#include "imaging/AngleGlobe.h"
#include "support/Pictures.h"

#include <QImage>
#include <QTest>

#include <cmath>
#include <set>

Q_DECLARE_METATYPE(AngleImage::Pixel)

class TestAngleGlobe : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void markerPosition_data()
    {
        QTest::addColumn<AngleImage::Pixel>("slope");
        QTest::addColumn<QPointF>("position");
        const double half = 64 / std::sqrt(2.0);
        QTest::newRow("flat in the centre") << Slopes(0).cell << QPointF();
        QTest::newRow("a slope of 1 in X") << Slopes(256).cell << QPointF(half, 0);
        QTest::newRow("up is negative") << Slopes(0, -256).cell << QPointF(0, -half);
        QTest::newRow("both") << Slopes(512, -512).cell << QPointF(128 / 3.0, -128 / 3.0);
    }

    void markerPosition()
    {
        QFETCH(AngleImage::Pixel, slope);
        QFETCH(QPointF, position);
        QCOMPARE(globePosition(slope, 128), position);
        QCOMPARE(globePosition(slope, 129), position);
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

    void markerStaysOnTheGlobe()
    {
        QCOMPARE(heldOnGlobe({30, -40}, 128), QPointF(30, -40));
        QCOMPARE(heldOnGlobe({300, -400}, 128), QPointF(57.6 * 0.6, -57.6 * 0.8));
        QCOMPARE(globePixel({-10.5, 10.5}, 128), QPoint(54, 75));
        QCOMPARE(globePixel({-1000, 1000}, 128), QPoint(0, 127));
    }

    void discreteSnaps_data()
    {
        QTest::addColumn<QPoint>("offset");
        QTest::addColumn<QPoint>("snapped");
        QTest::newRow("near the centre") << QPoint(9, 9) << QPoint(0, 0);
        QTest::newRow("right") << QPoint(20, 0) << QPoint(16, 0);
        QTest::newRow("left") << QPoint(-20, 1) << QPoint(-16, 0);
        QTest::newRow("top") << QPoint(0, -54) << QPoint(0, -48);
        QTest::newRow("bottom from the right") << QPoint(5, 40) << QPoint(0, 32);
        QTest::newRow("bottom from the left") << QPoint(-5, 40) << QPoint(0, 32);
        QTest::newRow("on the ring") << QPoint(32, 0) << QPoint(32, 0);
        // 27.7 beside the centre is truncated from pixel 91.7, and from 36.3.
        QTest::newRow("45 degrees go on to 60") << QPoint(30, 30) << QPoint(27, 16);
        QTest::newRow("225 degrees go on to 240") << QPoint(-30, -30) << QPoint(-28, -16);
        QTest::newRow("left of the bottom") << QPoint(-20, 40) << QPoint(-16, 27);
        QTest::newRow("outside takes the rim") << QPoint(-64, -64) << QPoint(-56, -32);
        QTest::newRow("the rim is in the square") << QPoint(63, 63) << QPoint(55, 32);
    }

    void discreteSnaps()
    {
        QFETCH(QPoint, offset);
        QFETCH(QPoint, snapped);
        const AngleImage discrete = globeSlopes(128, true);
        const AngleImage slopes = globeSlopes(128, false);
        QCOMPARE(discrete.row(64 + offset.y())[64 + offset.x()],
                 slopes.row(64 + snapped.y())[64 + snapped.x()]);
    }

    void discreteOffersTwelveDirections()
    {
        for (const int size : {64, 127, 128, 192}) {
            const AngleImage slopes = globeSlopes(size, true);
            std::set<std::pair<int, int>> all;
            std::set<std::pair<int, int>> underMarkers;
            for (int i = 0; i < size * size; ++i) {
                const AngleImage::Pixel slope = slopes.row(0)[i];
                const QPoint at(i % size - size / 2, i / size - size / 2);
                all.insert({slope.sx, slope.sy});
                if (heldOnGlobe(at, size) == at)
                    underMarkers.insert({slope.sx, slope.sy});
            }
            // A marker stays inside the outermost of the four rings.
            QCOMPARE(int(underMarkers.size()), 1 + 12 * 3);
            QVERIFY(int(all.size()) <= 1 + 12 * 4);
        }
    }

    void picking_data()
    {
        QTest::addColumn<QPointF>("point");
        QTest::addColumn<bool>("picks");
        QTest::addColumn<AngleImage::Pixel>("slope");
        const AngleImage::Pixel flat;
        QTest::newRow("opaque") << QPointF(1.9, 0.9) << true << Slopes(3, 4).cell;
        QTest::newRow("barely visible") << QPointF(0.0, 0.0) << true << Slopes(1, 2).cell;
        QTest::newRow("transparent") << QPointF(0.0, 1.0) << true << flat;
        QTest::newRow("beyond the texture") << QPointF(2.5, 0.5) << true << flat;
        QTest::newRow("truncated, not floored") << QPointF(-0.9, -0.9) << true << Slopes(1, 2).cell;
        QTest::newRow("left of it") << QPointF(-1.0, 0.0) << false << flat;
        QTest::newRow("below it") << QPointF(0.0, 2.0) << false << flat;
        QTest::newRow("far away") << QPointF(1e300, 0.0) << false << flat;
    }

    void picking()
    {
        QFETCH(QPointF, point);
        QFETCH(bool, picks);
        QFETCH(AngleImage::Pixel, slope);
        QImage texture(2, 2, QImage::Format_ARGB32);
        texture.fill(Qt::red);
        texture.setPixel(0, 0, 0x01000000U);
        texture.setPixel(0, 1, 0x00FFFFFFU);
        const AngleImage image = angles({{{1, 2}, {3, 4}, {5, 6}}, {{7, 8}, {9, 10}, {11, 12}}});
        const auto picked = pickedAngle(image, texture, point);
        QCOMPARE(picked.has_value(), picks);
        QCOMPARE(picked.value_or(AngleImage::Pixel()), slope);
        const bool isInTexture = picks && point.x() < 2;
        QCOMPARE(pickedAngle({}, texture, point) == AngleImage::Pixel(), isInTexture);
    }
};

QTEST_GUILESS_MAIN(TestAngleGlobe)

#include "tst_AngleGlobe.moc"
