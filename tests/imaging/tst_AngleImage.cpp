#include "imaging/AngleImage.h"
#include "imaging/FloatImage.h"
#include "support/Pictures.h"

#include <QTest>

#include <algorithm>
#include <cmath>
#include <limits>

namespace {

QByteArray header(qint32 width, qint32 height)
{
    QByteArray bytes;
    for (const qint32 side : {width, height})
        for (int shift = 0; shift < 32; shift += 8)
            bytes.append(char(quint32(side) >> shift));
    return bytes;
}

} // namespace

class TestAngleImage : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void bytesOfTheFile();
    void savingAndLoadingCopyNoCells();
    void onlyTheFirstWriteDetaches();
    void emptySides();
    void impossibleSizesAreNull();
    void damagedBytesAreRefused_data();
    void damagedBytesAreRefused();
    void equalityIsOfSizeAndCells();
    void slopesRoundHalvesAwayFromZero_data();
    void slopesRoundHalvesAwayFromZero();
    void everyHalfAndItsNeighbours();
};

void TestAngleImage::bytesOfTheFile()
{
    const QByteArray bytes = QByteArray::fromHex("02000000 01000000 0001feff 0300ff7f");
    const AngleImage image = angles({{{256, -2}, {3, 32767}}});
    QCOMPARE(encode(image), bytes);
    QCOMPARE(decode(bytes).value(), image);
    QCOMPARE(AngleImage(1, 1, 0xFFFE0100U), angles({{{256, -2}}}));
}

void TestAngleImage::savingAndLoadingCopyNoCells()
{
    const AngleImage image(64, 64, 7);
    const QByteArray bytes = encode(image);
    QCOMPARE(static_cast<const void *>(bytes.constData() + 8), image.row(0));
    const AngleImage loaded = decode(bytes).value();
    QVERIFY(loaded.sharesCellsWith(image));
}

void TestAngleImage::onlyTheFirstWriteDetaches()
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
    QVERIFY(!image.sharesCellsWith(copy));
}

void TestAngleImage::emptySides()
{
    const AngleImage image(0, 5);
    QVERIFY(image.isNull());
    QCOMPARE(image.size(), QSize(0, 5));
    QCOMPARE(encode(image), header(0, 5));
    QCOMPARE(decode(header(0, 5)).value().size(), QSize(0, 5));

    QVERIFY(encode(AngleImage()).isEmpty());
    QVERIFY(decode({}).value().isNull());
    QVERIFY(!AngleImage().sharesCellsWith(AngleImage()));
}

void TestAngleImage::impossibleSizesAreNull()
{
    for (const QSize size : {QSize(-1, 4), QSize(4, -1), QSize(32769, 1), QSize(32768, 32768)}) {
        QCOMPARE(AngleImage(size.width(), size.height()).size(), QSize(0, 0));
        QCOMPARE(FloatImage(size.width(), size.height()).size(), QSize(0, 0));
    }
    QCOMPARE(AngleImage(32768, 1).size(), QSize(32768, 1));
}

void TestAngleImage::damagedBytesAreRefused_data()
{
    QTest::addColumn<QByteArray>("bytes");

    for (int length = 1; length < 8; ++length)
        QTest::addRow("%d bytes", length) << header(0, 0).left(length);
    QTest::newRow("a cell too few") << header(2, 2) + QByteArray(12, '\0');
    QTest::newRow("a byte too few") << header(2, 2) + QByteArray(15, '\0');
    QTest::newRow("a byte too many") << header(2, 2) + QByteArray(17, '\0');
    QTest::newRow("cells of an empty image") << header(0, 5) + QByteArray(4, '\0');
    QTest::newRow("negative sides") << header(-1, -1) + QByteArray(4, '\0');
    QTest::newRow("negative width") << header(-2, 2);
    QTest::newRow("side too long") << header(32769, 1) + QByteArray(32769 * 4, '\0');
    QTest::newRow("side too long, empty") << header(0, 32769);
    QTest::newRow("cells wrap to none") << header(32768, 32768);
    QTest::newRow("cells wrap to one")
        << header(std::numeric_limits<qint32>::max(), std::numeric_limits<qint32>::max()) +
               QByteArray(4, '\0');
}

void TestAngleImage::damagedBytesAreRefused()
{
    QFETCH(QByteArray, bytes);
    QVERIFY(!decode(bytes).has_value());
}

void TestAngleImage::equalityIsOfSizeAndCells()
{
    QVERIFY(AngleImage() == AngleImage(0, 0));
    QVERIFY(!(AngleImage(0, 5) == AngleImage(5, 0)));
    QVERIFY(!(angles({{1, 2, 3, 4}}) == angles({{1, 2}, {3, 4}})));
    QVERIFY(!(angles({{1, 2}}) == angles({{1, 3}})));
    QVERIFY(angles({{1, 2}}) == angles({{1, 2}}));
}

void TestAngleImage::slopesRoundHalvesAwayFromZero_data()
{
    QTest::addColumn<float>("slope");
    QTest::addColumn<int>("stored");

    constexpr float unit = 1.0F / 256.0F;
    QTest::newRow("half up") << 0.5F * unit << 1;
    QTest::newRow("half down") << -0.5F * unit << -1;
    QTest::newRow("even half") << 2.5F * unit << 3;
    QTest::newRow("even half below zero") << -2.5F * unit << -3;
    QTest::newRow("just below a half") << std::nextafter(0.5F, 0.0F) * unit << 0;
    QTest::newRow("just above minus a half") << std::nextafter(-0.5F, 0.0F) * unit << 0;
    QTest::newRow("steepest right") << 127.0F << 32512;
    QTest::newRow("too steep right") << 1e30F << 32512;
    QTest::newRow("steepest left") << -128.0F << -32768;
    QTest::newRow("too steep left") << -std::numeric_limits<float>::infinity() << -32768;
    QTest::newRow("not a number") << std::nanf("") << 0;
}

void TestAngleImage::slopesRoundHalvesAwayFromZero()
{
    QFETCH(float, slope);
    QFETCH(int, stored);
    QCOMPARE(int(toStoredSlope(slope)), stored);
}

void TestAngleImage::everyHalfAndItsNeighbours()
{
    const float end = std::numeric_limits<float>::infinity();
    for (int i = -33000; i < 33000; ++i) {
        const float half = (float(i) + 0.5F) / 256.0F;
        for (const float slope : {std::nextafter(half, -end), half, std::nextafter(half, end)}) {
            const double clamped = std::clamp(double(slope), -128.0, 127.0);
            QCOMPARE(long(toStoredSlope(slope)), std::lround(clamped * 256.0));
        }
    }
}

QTEST_GUILESS_MAIN(TestAngleImage)

#include "tst_AngleImage.moc"
