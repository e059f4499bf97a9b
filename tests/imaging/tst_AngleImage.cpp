#include "imaging/AngleImage.h"
#include "support/Pictures.h"

#include <QTest>

#include <algorithm>
#include <cmath>
#include <limits>

class TestAngleImage : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void bytesOfTheFile()
    {
        const QByteArray bytes = QByteArray::fromHex("02000000 01000000 0001feff 0300ff7f");
        const AngleImage image = angles({{{256, -2}, {3, 32767}}});
        QCOMPARE(encode(image), bytes);
        QCOMPARE(decode(bytes).value(), image);
        QVERIFY(decode(encode(image)).value().sharesCellsWith(image));
        QCOMPARE(AngleImage(1, 1, 0xFFFE0100U), angles({{{256, -2}}}));

        const AngleImage empty = decode(QByteArray::fromHex("00000000 05000000")).value();
        QVERIFY(empty.isNull() && empty.size() == QSize(0, 5));
        QCOMPARE(encode(AngleImage(0, 5)), encode(empty));
        QVERIFY(encode(AngleImage()).isEmpty() && decode({}).value().isNull());
    }

    void onlyTheFirstWriteDetaches()
    {
        AngleImage image = angles({{1, 2}, {3, 4}});
        const AngleImage copy = image;
        QCOMPARE(std::as_const(image).row(1), copy.row(1));
        image.row(1)[0].sx = 9;
        const auto *cells = std::as_const(image).row(0);
        image.row(0)[0].sx = 8;
        QCOMPARE(std::as_const(image).row(0), cells);
        QCOMPARE(image, angles({{8, 2}, {9, 4}}));
        QCOMPARE(copy, angles({{1, 2}, {3, 4}}));
        QVERIFY(!image.sharesCellsWith(copy) && !AngleImage().sharesCellsWith(AngleImage()));
    }

    void damagedBytesAreRefused()
    {
        const auto isRefused = [](const char *header, int cellBytes) {
            return !decode(QByteArray::fromHex(header) + QByteArray(cellBytes, '\0')).has_value();
        };
        for (int length = 1; length < 8; ++length)
            QVERIFY(isRefused("", length));
        for (const int cellBytes : {0, 12, 15, 17})
            QVERIFY(isRefused("02000000 02000000", cellBytes));
        QVERIFY2(isRefused("00000000 05000000", 4), "cells of an empty image");
        QVERIFY2(isRefused("ffffffff ffffffff", 4), "negative sides");
        QVERIFY2(isRefused("feffffff 02000000", 0), "negative width");
        QVERIFY2(isRefused("01800000 01000000", 32769 * 4), "side too long");
        QVERIFY2(isRefused("00000000 01800000", 0), "side too long, empty");
        QVERIFY2(isRefused("00800000 00800000", 0), "cells wrap to none");
        QVERIFY2(isRefused("ffffff7f ffffff7f", 4), "cells wrap to one");
    }

    // Every half and its neighbours, beyond the clamps too.
    void slopesRoundHalvesAwayFromZero()
    {
        const float end = std::numeric_limits<float>::infinity();
        for (int i = -33000; i < 33000; ++i) {
            const float half = (float(i) + 0.5F) / 256.0F;
            for (const float slope :
                 {std::nextafter(half, -end), half, std::nextafter(half, end)}) {
                const double clamped = std::clamp(double(slope), -128.0, 127.0);
                QCOMPARE(long(toStoredSlope(slope)), std::lround(clamped * 256.0));
            }
        }
        QCOMPARE(int(toStoredSlope(end)), 32512);
        QCOMPARE(int(toStoredSlope(-end)), -32768);
        QCOMPARE(int(toStoredSlope(std::nanf(""))), 0);
    }
};

QTEST_GUILESS_MAIN(TestAngleImage)

#include "tst_AngleImage.moc"
