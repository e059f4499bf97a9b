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
    const float red = x / len * 127.0F + 127.5F;
    const float green = y / len * 127.0F + 127.5F;
    const float blue = 1.0F / len * 255.0F + 0.5F;
    return qRgb(int(red), int(green), int(blue));
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

AngleImage slopesOf(const QImage &image)
{
    AngleImage surface(3, 2, 5);
    fromNormalMap(image, surface);
    return surface;
}

} // namespace

class TestNormalEncoding : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void flippedSlopesStayInRange()
    {
        AngleImage surface = angles({{{3, -32768}, {-4, 32512}, {5, -1}}});
        flipY(surface);
        QCOMPARE(surface, angles({{{3, 32512}, {-4, -32512}, {5, 1}}}));
    }

    void everyLoopGivesTheFormulasPixels()
    {
        std::mt19937 random(1);
        std::vector<AngleImage> surfaces{randomAngles(1021, 513, random)};
        for (const int sy : {-32768, -300, -1, 0, 255, 32767}) {
            surfaces.emplace_back(256, 256, quint32(sy) << 16U);
            for (int i = 0; i < 65536; ++i)
                surfaces.back().row(0)[i].sx = qint16(i - 32768);
        }
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

    void onlyTheRectangleIsWritten()
    {
        std::mt19937 random(2);
        for (int round = 0; round < 500; ++round) {
            const AngleImage surface = randomAngles(randomSize(21, 9, random), random);
            const QRect rect = randomRect(surface.size(), random);
            QImage image(surface.size(), QImage::Format_RGB32);
            image.fill(0xFF010203U);
            QImage expected = image.copy();
            QRect area;
            for (int i = 0; i < surface.width() * surface.height(); ++i) {
                const QPoint at(i % surface.width(), i / surface.width());
                if (!rect.contains(at))
                    continue;
                expected.setPixel(at, plainNormal(surface.row(0)[i], round % 2 == 1));
                area |= QRect(at, QSize(1, 1));
            }
            QCOMPARE(toNormalMap(surface, image, rect, round % 2 == 1), area);
            QCOMPARE(image, expected);
        }
    }

    void slopesOfColours()
    {
        const auto check = [](QRgb colour, int sx, int sy) {
            QCOMPARE(slopesOf(pixels({colour})), angles({{{sx, sy}}}));
            QCOMPARE(slopesOf(pixels({colour & 0xFFFFFFU}, QImage::Format_ARGB32)),
                     angles({{{sx, sy}}}));
        };
        check(flatNormal, 0, 0);
        check(qRgb(254, 127, 127), 514, 0);
        check(qRgb(127, 254, 255), 0, -256);
        check(qRgb(128, 128, 255), 2, -2); // not flat
        check(qRgb(255, 255, 1), 32512, -32768);
        // Without blue all slopes are as steep as can be.
        check(qRgb(128, 128, 0), 32512, -32768);
        check(qRgb(126, 126, 0), -32768, 32512);
        check(qRgb(127, 127, 0), 0, 0);
        check(qRgb(127, 0, 0), 0, 32512);
    }

    void everyFormatIsReadAndFlattened()
    {
        const QImage flattened = pixels({flatNormal, qRgb(2, 2, 2), qRgb(3, 3, 3), flatNormal});
        for (const QImage::Format format : {QImage::Format_ARGB32,
                                            QImage::Format_ARGB32_Premultiplied,
                                            QImage::Format_RGBA8888,
                                            QImage::Format_RGBA64,
                                            QImage::Format_Indexed8,
                                            QImage::Format_RGB888}) {
            const auto image =
                pixels({qRgb(254, 127, 127), flatNormal, qRgb(127, 254, 255)}, format);
            QCOMPARE(slopesOf(image), angles({{514, 0, {0, -256}}}));

            QImage map = pixels({qRgb(1, 1, 1), qRgb(2, 2, 2), qRgb(3, 3, 3), qRgb(4, 4, 4)});
            const QImage whole = map.copy();
            flattenTransparent(pixels({0xFFFFFFU, 0x1FFFFFFU, 0xFF000000U, 0}, format), map);
            QCOMPARE(map, format == QImage::Format_RGB888 ? whole : flattened);
        }
        const QImage grey = pixels({qRgb(127, 127, 127)}, QImage::Format_Grayscale8);
        QCOMPARE(slopesOf(grey), angles({{0}}));
    }
};

QTEST_GUILESS_MAIN(TestNormalEncoding)

#include "tst_NormalEncoding.moc"
