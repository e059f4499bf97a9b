#include "base/Resources.h"
#include "imaging/LitImage.h"
#include "imaging/NormalEncoding.h"
#include "imaging/PaintToolStructureJob.h"
#include "imaging/PatternTiling.h"
#include "imaging/Patterns.h"
#include "support/Pictures.h"

#include <QPainter>
#include <QTest>

#include <algorithm>
#include <cmath>

namespace {

// Alpha is noise as well.
QImage noise(const QSize &size)
{
    QImage image(size, QImage::Format_ARGB32);
    std::generate_n(
        reinterpret_cast<QRgb *>(image.bits()), size.width() * size.height(), std::mt19937(1));
    return image;
}

QImage uniform(const QSize &size, QRgb colour)
{
    QImage image(size, QImage::Format_ARGB32);
    image.fill(colour);
    return image;
}

QImage grid(const QImage &tile, const QSize &size)
{
    QImage image(size, QImage::Format_RGB32);
    QPainter(&image).fillRect(image.rect(), QBrush(tile));
    return image;
}

// One channel of the lit formula (16 for red to 0 for blue) at a pixel's centre, said plainly.
double plainLight(QRgb texture, QRgb normal, const Light &light, double x, double y, int channel)
{
    const auto component = [](QRgb colour, int shift) { return (colour >> shift & 255U) / 255.0; };
    const double n[] = {
        2 * component(normal, 16) - 1, 1 - 2 * component(normal, 8), 2 * component(normal, 0) - 1};
    const bool isLamp = light.kind == Light::Kind::Position;
    const double l[] = {light.place.x() - (isLamp ? x + 0.5 : 0.0),
                        light.place.y() - (isLamp ? y + 0.5 : 0.0),
                        light.place.z()};
    const double cosine = (n[0] * l[0] + n[1] * l[1] + n[2] * l[2]) / std::hypot(n[0], n[1], n[2]) /
                          std::hypot(l[0], l[1], l[2]);
    const double intensity = component(light.ambient.rgba(), channel) * light.ambient.alphaF() +
                             component(light.colour.rgba(), channel) * light.colour.alphaF() *
                                 std::max(cosine, 0.0) * light.brightness / 100;
    const double alpha = component(texture, 24);
    return 255 * std::min(component(texture, channel) * alpha * intensity, alpha);
}

// The steps as they are told, through the whole square.
QImage plainTiling(const QImage &pattern, double scale, double rotation, const QSize &size)
{
    const int side = int(std::max(size.width(), size.height()) * 1.5);
    scale = std::clamp(scale, 0.1, 4.0);
    QImage tile = pattern.convertToFormat(QImage::Format_RGB32);
    if (scale != 1.0) {
        const QSize scaled = (tile.size() * scale).expandedTo({1, 1});
        const int copies = scaled.width() >= side && scaled.height() >= side ? 1 : 3;
        tile = grid(tile, tile.size() * copies)
                   .scaled(scaled * copies, Qt::IgnoreAspectRatio, Qt::SmoothTransformation)
                   .copy(QRect({0, 0}, scaled)
                             .translated(QPoint(scaled.width(), scaled.height()) * (copies / 2)));
    }
    const QImage turned = grid(tile, {side, side})
                              .transformed(QTransform().rotate(rotation), Qt::SmoothTransformation);
    const QRect body({(turned.width() - size.width()) / 2, (turned.height() - size.height()) / 2},
                     size);
    return turned.copy(body).convertToFormat(QImage::Format_RGB32);
}

// From a pixel to its neighbours: the most that a component changes to the right, and downwards.
int steepness(const QImage &image)
{
    const QSize inner = image.size() - QSize(1, 1);
    const QImage corner = image.copy({{0, 0}, inner});
    return difference(image.copy({{1, 0}, inner}), corner) +
           difference(image.copy({{0, 1}, inner}), corner);
}

} // namespace

class TestStructure : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase() { initialiseResources(); }

    void tilingIsThatOfTheStepsBitForBit()
    {
        for (const QSize patternSize :
             {QSize(1, 1), QSize(1, 9), QSize(7, 5), QSize(33, 21), QSize(250, 130)}) {
            const QImage pattern = noise(patternSize); // alpha counts for nothing
            for (const double scale : {0.01, 0.1, 0.37, 1.0, 1.5, 4.0, 99.0}) {
                for (const double rotation : {0.0, 30.0, 90.0, 180.0, 270.0, 359.0}) {
                    for (const QSize size :
                         {QSize(9, 3), QSize(11, 4), QSize(14, 6), QSize(64, 64)}) {
                        const QImage tiled = tiledPattern(pattern, scale, rotation, size);
                        QCOMPARE(tiled.format(), QImage::Format_RGB32);
                        QCOMPARE(tiled, plainTiling(pattern, scale, rotation, size));
                    }
                }
            }
        }
    }

    // A low limit sends small images the way of huge ones, in many blocks.
    void blocksGiveWhatTheWholeGives()
    {
        const QImage brick(builtInPatterns() + QStringLiteral("/brick.png"));
        QVERIFY(!brick.isNull());
        for (const auto &[patternSize, scale, size] :
             {std::tuple(brick.size(), 0.5, QSize(120, 90)),
              {QSize(101, 64), 4.0, QSize(120, 90)}, // the tile is made in parts
              {QSize(97, 89), 1.27, QSize(150, 40)},
              {QSize(213, 190), 0.1, QSize(90, 120)},  // it is held whole
              {QSize(250, 240), 0.8, QSize(100, 100)}, // it is larger than the body
              {QSize(1, 250), 3.0, QSize(20, 200)}}) {
            const QImage pattern = brick.copy(QRect({40, 0}, patternSize));
            // A sixteenth of a pixel aside in both directions, and what rounds.
            const int most = steepness(plainTiling(pattern, scale, 0.0, {400, 400})) / 16 + 2;
            for (const double rotation : {0.0, 33.0, 45.0, 90.0, 135.0, 270.0, 359.0}) {
                const QImage tiled = tiledPattern(pattern, scale, rotation, size, 4096);
                const int found = difference(tiled, plainTiling(pattern, scale, rotation, size));
                QVERIFY2(found <= most, qPrintable(QStringLiteral("%1 > %2").arg(found).arg(most)));
            }
        }
    }

    // A body sees the pattern from its third column on, and its first two again.
    void slopesOfLightAndDark()
    {
        // Half of the height's: intensity * (0.2126 R + 0.7152 G + 0.0722 B)
        for (const auto &[colour, intensity, slope] : {std::tuple(0xFFFFFFFFU, 8.0, 1020),
                                                       {0x00FFFFFFU, 0.1, 13},
                                                       {qRgb(200, 100, 50), 10.0, 588}}) {
            QImage pattern = uniform({8, 8}, 0xFF000000U);
            for (int i = 0; i < 32; ++i)
                pattern.setPixel(4 + i % 4, i / 4, colour);
            const auto expected = angles({{0, -slope, -slope, 0, 0, slope, slope, 0}});
            QCOMPARE(PaintToolStructureJob().compute({pattern, intensity, 1, 0, {8, 1}}), expected);
        }
    }

    void litPixelsFollowThePlainFormula()
    {
        std::mt19937 random(3);
        const auto from = [&random](int first, int last) { return randomInt(first, last, random); };
        for (int i = 0; i < 40; ++i) {
            const QSize size = randomSize(37, 9, random);
            const QImage texture = noise(size);
            QImage normals = flatNormalMap(size);
            toNormalMap(randomAngles(size, random), normals);
            Light light{
                QColor::fromRgba(random()), QColor::fromRgba(random()), from(10, 400) * 1.0};
            light.kind = i % 2 == 0 ? Light::Kind::Position : Light::Kind::Direction;
            light.place = QVector3D(from(-40, 80), from(-40, 40), from(1, 60)) * 0.5F;
            const QImage lit = litImage(texture, normals, light);
            for (int k = 0; k < size.width() * size.height(); ++k) {
                const int x = k % size.width();
                const int y = k / size.width();
                const QRgb pixel = reinterpret_cast<const QRgb *>(lit.constScanLine(y))[x];
                QCOMPARE(qAlpha(pixel), qAlpha(texture.pixel(x, y)));
                for (const int channel : {16, 8, 0}) {
                    const double expected =
                        plainLight(texture.pixel(x, y), normals.pixel(x, y), light, x, y, channel);
                    QVERIFY(std::abs(int(pixel >> channel & 255U) - expected) < 0.51);
                }
            }
        }
    }
};

QTEST_GUILESS_MAIN(TestStructure)

#include "tst_Structure.moc"
