#include "imaging/NormalEncoding.h"
#include "imaging/PixelLoops.h"
#include "support/Pictures.h"

#include <QTest>

#include <cmath>

namespace {

// The formula as it is written on paper.
QRgb plainNormal(AngleImage::Pixel cell, bool flipY = false)
{
    const float x = float(cell.sx) * 0.00390625F;
    const float y = float(cell.sy) * (flipY ? 0.00390625F : -0.00390625F);
    const float len = std::sqrt(x * x + y * y + 1.0F);
    const float nx = x / len;
    const float ny = y / len;
    const float nz = 1.0F / len;
    const float red = nx * 127.0F + 127.5F;
    const float green = ny * 127.0F + 127.5F;
    const float blue = nz * 255.0F + 0.5F;
    const auto byte = [](float channel) { return quint32(int(channel)) & 0xFFU; };
    return 0xFF000000U | byte(red) << 16U | byte(green) << 8U | byte(blue);
}

AngleImage everySlopeInX(int sy)
{
    AngleImage image(256, 256);
    for (int i = 0; i < 65536; ++i)
        image.row(0)[i] = {qint16(i - 32768), qint16(sy)};
    return image;
}

QImage pixels(std::initializer_list<QRgb> row, QImage::Format format = QImage::Format_RGB32)
{
    const bool isPalette = format == QImage::Format_Indexed8;
    QImage image(int(row.size()), 1, isPalette ? format : QImage::Format_ARGB32);
    if (isPalette)
        image.setColorTable(QVector<QRgb>(row));
    for (int x = 0; x < image.width(); ++x)
        image.setPixel(x, 0, isPalette ? uint(x) : row.begin()[x]);
    return image.convertToFormat(format);
}

} // namespace

class TestNormalEncoding : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void colours_data();
    void colours();
    void everyLoopGivesTheFormulasPixels();
    void onlyTheRectangleIsWritten();
    void unsuitableImagesStayAlone();
    void slopesOfColours_data();
    void slopesOfColours();
    void everyFormatIsRead_data();
    void everyFormatIsRead();
    void transparentPixelsBecomeFlat_data();
    void transparentPixelsBecomeFlat();
};

void TestNormalEncoding::colours_data()
{
    QTest::addColumn<AngleImage>("surface");
    QTest::addColumn<bool>("flipY");
    QTest::addColumn<QRgb>("colour");

    QTest::newRow("flat") << angles({{0}}) << false << flatNormal;
    QTest::newRow("to the right") << angles({{256}}) << false << qRgb(217, 127, 180);
    QTest::newRow("downwards") << angles({{{0, 256}}}) << false << qRgb(127, 37, 180);
    QTest::newRow("downwards, flipped") << angles({{{0, 256}}}) << true << qRgb(127, 217, 180);
}

void TestNormalEncoding::colours()
{
    QFETCH(AngleImage, surface);
    QFETCH(bool, flipY);
    QFETCH(QRgb, colour);
    QImage image = flatNormalMap(surface.size());
    QCOMPARE(toNormalMap(surface, image, flipY), surface.rect());
    QCOMPARE(image.pixel(0, 0), colour);
}

void TestNormalEncoding::everyLoopGivesTheFormulasPixels()
{
    std::mt19937 random(1);
    std::vector<AngleImage> surfaces{randomAngles(1021, 513, random)};
    for (const int sy : {-32768, -300, -1, 0, 255, 32767})
        surfaces.push_back(everySlopeInX(sy));
    for (int width = 1; width < 40; ++width)
        surfaces.push_back(randomAngles(width, 1, random));

    for (const PixelLoops &loops : pixelLoops()) {
        for (const AngleImage &surface : surfaces) {
            const int count = surface.width() * surface.height();
            std::vector<QRgb> row(std::size_t(count) + 1, 0x12345678U);
            loops.encode(surface.row(0), row.data(), count, -0.00390625F);
            for (int i = 0; i < count; ++i)
                QCOMPARE(row[std::size_t(i)], plainNormal(surface.row(0)[i]));
            QCOMPARE(row.back(), 0x12345678U);
        }
    }
}

void TestNormalEncoding::onlyTheRectangleIsWritten()
{
    std::mt19937 random(2);
    for (int round = 0; round < 500; ++round) {
        const AngleImage surface =
            randomAngles(randomInt(1, 21, random), randomInt(1, 9, random), random);
        const QRect rect = randomRect(surface.size(), random);
        QImage image(surface.size(), QImage::Format_RGB32);
        image.fill(0xFF010203U);
        const QRect written = toNormalMap(surface, image, rect, round % 2 == 1);

        QRect expected;
        for (int y = 0; y < surface.height(); ++y) {
            for (int x = 0; x < surface.width(); ++x) {
                const bool inside = rect.contains(x, y);
                const QRgb colour = plainNormal(surface.row(y)[x], round % 2 == 1);
                QCOMPARE(image.pixel(x, y), inside ? colour : 0xFF010203U);
                if (inside)
                    expected |= QRect(x, y, 1, 1);
            }
        }
        QCOMPARE(written, expected);
    }
}

void TestNormalEncoding::unsuitableImagesStayAlone()
{
    const AngleImage surface(4, 4, 256);
    for (QImage image : {QImage(),
                         flatNormalMap({4, 3}),
                         QImage(4, 4, QImage::Format_RGB888),
                         QImage(4, 4, QImage::Format_ARGB32)}) {
        image.fill(0x11223344U);
        const QImage before = image;
        QVERIFY(toNormalMap(surface, image).isEmpty());
        QCOMPARE(image, before);
    }
    QImage image;
    QVERIFY(toNormalMap({}, image).isEmpty());
    QVERIFY(flatNormalMap({0, 4}).isNull());

    AngleImage kept = surface;
    fromNormalMap({}, kept);
    QVERIFY(kept.sharesCellsWith(surface));
}

void TestNormalEncoding::slopesOfColours_data()
{
    QTest::addColumn<QRgb>("colour");
    QTest::addColumn<AngleImage>("surface");

    QTest::newRow("flat") << flatNormal << angles({{0}});
    QTest::newRow("to the right") << qRgb(254, 127, 127) << angles({{514}});
    QTest::newRow("upwards") << qRgb(127, 254, 255) << angles({{{0, -256}}});
    QTest::newRow("128 is not flat") << qRgb(128, 128, 255) << angles({{{2, -2}}});
    QTest::newRow("blue 1 clamps") << qRgb(255, 255, 1) << angles({{{32512, -32768}}});
    QTest::newRow("blue 0 saturates") << qRgb(128, 128, 0) << angles({{{32512, -32768}}});
    QTest::newRow("blue 0 saturates back") << qRgb(126, 126, 0) << angles({{{-32768, 32512}}});
    QTest::newRow("blue 0 and nothing else") << qRgb(127, 127, 0) << angles({{0}});
    QTest::newRow("blue 0 and nothing in X") << qRgb(127, 0, 0) << angles({{{0, 32512}}});
}

void TestNormalEncoding::slopesOfColours()
{
    QFETCH(QRgb, colour);
    QFETCH(AngleImage, surface);
    AngleImage read(3, 2, 5);
    fromNormalMap(pixels({colour}), read);
    QCOMPARE(read, surface);
    fromNormalMap(pixels({colour & 0x00FFFFFFU}, QImage::Format_ARGB32), read);
    QCOMPARE(read, surface);
}

void TestNormalEncoding::everyFormatIsRead_data()
{
    QTest::addColumn<QImage>("image");
    QTest::addColumn<AngleImage>("surface");

    const auto colours = {qRgb(254, 127, 127), flatNormal, qRgb(127, 254, 255)};
    const AngleImage surface = angles({{514, 0, {0, -256}}});
    for (const auto format : {QImage::Format_ARGB32,
                              QImage::Format_ARGB32_Premultiplied,
                              QImage::Format_RGB888,
                              QImage::Format_BGR888,
                              QImage::Format_RGBA8888,
                              QImage::Format_RGBA64,
                              QImage::Format_Indexed8})
        QTest::addRow("format %d", int(format)) << pixels(colours, format) << surface;
    QTest::newRow("grey") << pixels({qRgb(127, 127, 127)}, QImage::Format_Grayscale8)
                          << angles({{0}});
}

void TestNormalEncoding::everyFormatIsRead()
{
    QFETCH(QImage, image);
    QFETCH(AngleImage, surface);
    AngleImage read;
    fromNormalMap(image, read);
    QCOMPARE(read, surface);
}

void TestNormalEncoding::transparentPixelsBecomeFlat_data()
{
    QTest::addColumn<int>("format");
    QTest::addColumn<bool>("hasAlpha");

    QTest::newRow("straight") << int(QImage::Format_ARGB32) << true;
    QTest::newRow("premultiplied") << int(QImage::Format_ARGB32_Premultiplied) << true;
    QTest::newRow("bytes") << int(QImage::Format_RGBA8888) << true;
    QTest::newRow("16 bits") << int(QImage::Format_RGBA64) << true;
    QTest::newRow("palette") << int(QImage::Format_Indexed8) << true;
    QTest::newRow("without alpha") << int(QImage::Format_RGB32) << false;
}

void TestNormalEncoding::transparentPixelsBecomeFlat()
{
    QFETCH(int, format);
    QFETCH(bool, hasAlpha);
    const auto sprite =
        pixels({0x00FFFFFFU, 0x01FFFFFFU, 0xFF000000U, 0x00000000U}, QImage::Format(format));
    QImage map = pixels({qRgb(1, 1, 1), qRgb(2, 2, 2), qRgb(3, 3, 3), qRgb(4, 4, 4)});
    const QImage whole = map;
    flattenTransparent(sprite, map);
    const QImage flattened = pixels({flatNormal, qRgb(2, 2, 2), qRgb(3, 3, 3), flatNormal});
    QCOMPARE(map, hasAlpha ? flattened : whole);
}

QTEST_GUILESS_MAIN(TestNormalEncoding)

#include "tst_NormalEncoding.moc"
