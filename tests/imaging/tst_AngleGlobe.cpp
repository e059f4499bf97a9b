#include "imaging/AngleGlobe.h"
#include "support/Pictures.h"

#include <QTest>

class TestAngleGlobe : public QObject
{
    Q_OBJECT

private Q_SLOTS:
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
};

QTEST_GUILESS_MAIN(TestAngleGlobe)

#include "tst_AngleGlobe.moc"
