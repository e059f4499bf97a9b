#include "imaging/LitImage.h"
#include "imaging/NormalEncoding.h"
#include "imaging/PaintToolStructureJob.h"
#include "imaging/PaintToolStructurePreviewJob.h"
#include "imaging/PatternTiling.h"
#include "imaging/Patterns.h"
#include "imaging/StructureSurface.h"
#include "support/Pictures.h"

#include <QDir>
#include <QFile>
#include <QPainter>
#include <QTemporaryDir>
#include <QTest>

#include <cmath>
#include <sys/resource.h>

namespace {

QImage noise(const QSize &size, std::mt19937 &random, QImage::Format format = QImage::Format_ARGB32)
{
    QImage image(size, QImage::Format_ARGB32);
    for (int y = 0; y < size.height(); ++y)
        for (int x = 0; x < size.width(); ++x)
            image.setPixel(x, y, random());
    return image.convertToFormat(format);
}

// Hills that meet at the borders, so that a small shift is a small change: smoothing under a turn
// counts in sixteenths of a pixel.
QImage hills(const QSize &size)
{
    QImage image(size, QImage::Format_RGB32);
    for (int y = 0; y < size.height(); ++y) {
        for (int x = 0; x < size.width(); ++x) {
            const double column = std::sin(2 * M_PI * x / size.width());
            const double row = std::cos(2 * M_PI * y / size.height());
            const auto level = [](double wave) { return int(127.5 + 120 * wave); };
            image.setPixel(x, y, qRgb(level(column * row), level(column), level(row)));
        }
    }
    return image;
}

QImage opaqueColours(const QImage &image)
{
    QImage result = image.convertToFormat(QImage::Format_ARGB32);
    for (int y = 0; y < result.height(); ++y)
        for (int x = 0; x < result.width(); ++x)
            result.setPixel(x, y, result.pixel(x, y) | 0xFF000000U);
    return result.convertToFormat(QImage::Format_RGB32);
}

QImage grid(const QImage &tile, const QSize &size)
{
    QImage image(size, QImage::Format_RGB32);
    QPainter painter(&image);
    for (int y = 0; y < size.height(); y += tile.height())
        for (int x = 0; x < size.width(); x += tile.width())
            painter.drawImage(x, y, tile);
    return image;
}

// The steps as they are told, through the whole square; transparent where it does not reach.
QImage plainTiling(const QImage &pattern, double scale, double rotation, const QSize &size)
{
    const int side = int(std::max(size.width(), size.height()) * 1.5);
    QImage tile = opaqueColours(pattern);
    if (scale != 1.0) {
        const auto scaledLength = [scale](int length) {
            return std::max(1, int(std::floor(length * scale + 0.5)));
        };
        const QSize scaled(scaledLength(tile.width()), scaledLength(tile.height()));
        const bool isLarge = scaled.width() >= side && scaled.height() >= side;
        const QImage mosaic = isLarge ? tile : grid(tile, tile.size() * 3);
        tile = mosaic.scaled(
            isLarge ? scaled : scaled * 3, Qt::IgnoreAspectRatio, Qt::SmoothTransformation);
        if (!isLarge)
            tile = tile.copy(scaled.width(), scaled.height(), scaled.width(), scaled.height());
    }
    QTransform turn;
    turn.rotate(rotation, Qt::ZAxis);
    const QImage turned = grid(tile, {side, side}).transformed(turn, Qt::SmoothTransformation);
    return turned.copy((turned.width() - size.width()) / 2,
                       (turned.height() - size.height()) / 2,
                       size.width(),
                       size.height());
}

// The largest difference of a component where both are opaque.
int difference(const QImage &a, const QImage &b)
{
    if (a.size() != b.size())
        return 256;
    int most = 0;
    for (int y = 0; y < a.height(); ++y) {
        for (int x = 0; x < a.width(); ++x) {
            const QRgb p = a.pixel(x, y);
            const QRgb q = b.pixel(x, y);
            if (qAlpha(p) != 255 || qAlpha(q) != 255)
                continue;
            most = std::max({most,
                             std::abs(qRed(p) - qRed(q)),
                             std::abs(qGreen(p) - qGreen(q)),
                             std::abs(qBlue(p) - qBlue(q))});
        }
    }
    return most;
}

bool isOpaque(const QImage &image)
{
    for (int y = 0; y < image.height(); ++y)
        for (int x = 0; x < image.width(); ++x)
            if (qAlpha(image.pixel(x, y)) != 255)
                return false;
    return !image.isNull();
}

QImage uniform(const QSize &size, QRgb colour)
{
    QImage image(size, QImage::Format_ARGB32);
    image.fill(colour);
    return image;
}

qint64 peakMegabytes()
{
    rusage usage{};
    getrusage(RUSAGE_SELF, &usage);
    return usage.ru_maxrss / 1024;
}

} // namespace

class TestStructure : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void tilingIsThatOfTheStepsBitForBit()
    {
        std::mt19937 random(1);
        int exact = 0;
        for (const QSize patternSize : {QSize(1, 1),
                                        QSize(1, 9),
                                        QSize(7, 5),
                                        QSize(16, 16),
                                        QSize(33, 21),
                                        QSize(250, 130)}) {
            const QImage pattern = noise(patternSize, random);
            for (const double scale : {0.1, 0.37, 1.0, 1.5, 4.0}) {
                for (const double rotation : {0.0, 30.0, 90.0, 180.0, 270.0, 359.0}) {
                    for (const QSize size :
                         {QSize(1, 1), QSize(3, 3), QSize(17, 5), QSize(64, 64)}) {
                        const QImage tiled = tiledPattern(pattern, scale, rotation, size);
                        QCOMPARE(tiled.format(), QImage::Format_RGB32);
                        QCOMPARE(tiled.size(), size);
                        const QImage plain = plainTiling(pattern, scale, rotation, size);
                        if (!isOpaque(plain))
                            continue; // the square does not cover the body
                        ++exact;
                        QCOMPARE(tiled, plain.convertToFormat(QImage::Format_RGB32));
                    }
                }
            }
        }
        QVERIFY(exact >= 600); // all but the smallest bodies
    }

    // The turned square itself leaves corners of the smallest bodies out.
    void everyCornerIsCovered()
    {
        const QImage pattern = uniform({3, 2}, 0x00C89632U);
        for (int i = 0; i < 400; ++i) {
            const QSize size(1 + i % 20, 1 + i / 20);
            for (const double rotation : {7.0, 45.0, 120.0})
                QCOMPARE(tiledPattern(pattern, 1.0, rotation, size),
                         uniform(size, 0xFFC89632U).convertToFormat(QImage::Format_RGB32));
        }
    }

    // A low limit sends small images the way of huge ones, in many blocks.
    void blocksGiveWhatTheWholeGives_data()
    {
        QTest::addColumn<QSize>("patternSize");
        QTest::addColumn<double>("scale");
        QTest::addColumn<QSize>("size");
        QTest::newRow("tile held whole") << QSize(101, 64) << 0.37 << QSize(120, 90);
        QTest::newRow("tile made in parts") << QSize(101, 64) << 4.0 << QSize(120, 90);
        QTest::newRow("odd factor") << QSize(97, 89) << 1.27 << QSize(150, 40);
        QTest::newRow("much smaller") << QSize(400, 310) << 0.1 << QSize(90, 120);
        QTest::newRow("unscaled") << QSize(101, 64) << 1.0 << QSize(120, 90);
        QTest::newRow("resized alone") << QSize(300, 280) << 0.8 << QSize(100, 100);
        QTest::newRow("thin") << QSize(1, 300) << 3.0 << QSize(20, 200);
    }
    void blocksGiveWhatTheWholeGives()
    {
        QFETCH(QSize, patternSize);
        QFETCH(double, scale);
        QFETCH(QSize, size);
        const QImage pattern = hills(patternSize);
        for (const double rotation : {0.0, 33.0, 90.0, 135.0, 270.0, 359.0}) {
            const QImage inBlocks = tiledPattern(pattern, scale, rotation, size, 4096);
            QVERIFY(isOpaque(inBlocks));
            const int found = difference(inBlocks, plainTiling(pattern, scale, rotation, size));
            QVERIFY2(found <= 2, qPrintable(QString::number(found)));
        }
    }

    void aScaledTileHasNoSeam()
    {
        const QImage tiled = tiledPattern(hills({16, 16}), 4.0, 0.0, {200, 1});
        int steepest = 0;
        for (int x = 1; x < tiled.width(); ++x) {
            const int step = qGreen(tiled.pixel(x, 0)) - qGreen(tiled.pixel(x - 1, 0));
            steepest = std::max(steepest, std::abs(step));
        }
        // A quarter of the pattern's steepest step, and rounding.
        const int expected = int(120 * 2 * M_PI / 16 / 4);
        QVERIFY2(std::abs(steepest - expected) <= 1, qPrintable(QString::number(steepest)));
    }

    void hugeImagesNeedNoHugeMemory()
    {
        const QImage pattern = hills({6000, 6000});
        const qint64 before = peakMegabytes();
        for (const double scale : {0.1, 4.0}) {
            const QImage tiled = tiledPattern(pattern, scale, 45.0, {6000, 16});
            const QImage inSmallBlocks = tiledPattern(pattern, scale, 45.0, {6000, 16}, 1 << 20);
            QVERIFY(isOpaque(tiled));
            QVERIFY(difference(tiled, inSmallBlocks) <= 2);
        }
        const qint64 needed = peakMegabytes() - before;
#if !defined(__SANITIZE_ADDRESS__) && !defined(__SANITIZE_THREAD__)
        QVERIFY2(needed < 150, qPrintable(QString::number(needed)));
#endif
        Q_UNUSED(needed)
    }

    void nothingComesOfNothing()
    {
        QVERIFY(tiledPattern({}, 1.0, 0.0, {4, 4}).isNull());
        for (const QSize size : {QSize(), QSize(0, 4), QSize(4, -1), QSize(32769, 1)})
            QVERIFY(tiledPattern(hills({4, 4}), 1.0, 30.0, size).isNull());
        QVERIFY(structureSurface({}).isNull());
        QVERIFY(PaintToolStructurePreviewJob().compute({}).isNull());
        QVERIFY(litImage({}, {}, {}).isNull());
        QVERIFY(litImage(uniform({2, 1}, 0), flatNormalMap({1, 2}), {}).isNull());
    }

    // A body sees the pattern from its third column on, and its first two again.
    void slopesOfLightAndDark()
    {
        for (const QRgb white : {0xFFFFFFFFU, 0x00FFFFFFU}) {
            QImage pattern = uniform({8, 8}, 0xFF000000U);
            for (int i = 0; i < 32; ++i)
                pattern.setPixel(4 + i % 4, i / 4, white);
            for (const auto &[intensity, slope] : {std::pair{4.0, 510}, {8.0, 1020}, {0.1, 13}}) {
                const PaintToolStructureParams params{pattern, intensity, 1.0, 0.0, {8, 1}};
                const auto expected = angles({{0, -slope, -slope, 0, 0, slope, slope, 0}});
                QCOMPARE(PaintToolStructureJob().compute(params), expected);
            }
            // Lit from the left: what rises to the right is lighter than what is flat.
            const QImage lit = PaintToolStructurePreviewJob().compute({pattern, 1, 1, 0, {8, 8}});
            QVERIFY(qRed(lit.pixel(1, 4)) > qRed(lit.pixel(4, 4)) + 10);
            QVERIFY(qRed(lit.pixel(5, 4)) < qRed(lit.pixel(4, 4)) - 10);
            QVERIFY(std::abs(qRed(lit.pixel(4, 4)) - 128) < 10);
        }
        const PaintToolStructureParams green{uniform({1, 1}, 0xFF00FF00U), 4.0, 1.0, 0.0, {2, 2}};
        QCOMPARE(structureSurface(green), angles({{0, 0}, {0, 0}}));
    }

    void patternsOfFolders()
    {
        const QTemporaryDir folder;
        const QDir root(folder.path());
        QVERIFY(root.mkpath(QStringLiteral("a/folder.png")) && root.mkpath(QStringLiteral("b")));
        for (const char *name :
             {"b/1.png", "a/p10.png", "a/P2.PNG", "a/c.jpeg", "a/d.Jpg", "a/e.gif", "a/f.png.txt"})
            QVERIFY(QFile(root.filePath(QLatin1String(name))).open(QIODevice::WriteOnly));
        const QString a = root.filePath(QStringLiteral("a"));
        const QString b = root.filePath(QStringLiteral("b"));
        const QStringList expected{b + QStringLiteral("/1.png"),
                                   a + QStringLiteral("/c.jpeg"),
                                   a + QStringLiteral("/d.Jpg"),
                                   a + QStringLiteral("/P2.PNG"),
                                   a + QStringLiteral("/p10.png")};
        QCOMPARE(findPatterns({QString(), b, root.filePath(QStringLiteral("none")), a}), expected);
    }

    void litColours_data()
    {
        QTest::addColumn<QRgb>("texture");
        QTest::addColumn<QRgb>("normal");
        QTest::addColumn<QVector3D>("direction");
        QTest::addColumn<double>("brightness");
        QTest::addColumn<QRgb>("expected");
        // Light and ambience are halved by their alpha: 0.25, 0.125 and 0.5 come from around.
        const QRgb colour = qRgb(200, 100, 50);
        const QRgb ambientOnly = qRgb(50, 13, 25);
        const QRgb fullyLit = qRgb(151, 63, 50);
        const QVector3D above(0, 0, 7);
        const QVector3D aside(0.866025F, 0, -0.5F); // an angle of 60 degrees with what faces back
        const QRgb up = 0xFF80FF80U;
        QTest::newRow("from above") << colour << flatNormal << above << 100.0 << fullyLit;
        QTest::newRow("aslant") << colour << 0xFF808000U << aside << 200.0 << fullyLit;
        QTest::newRow("facing away") << colour << 0xFF7F7F00U << above << 100.0 << ambientOnly;
        QTest::newRow("brightness 0") << colour << flatNormal << above << 0.0 << ambientOnly;
        QTest::newRow("no direction") << colour << flatNormal << QVector3D() << 9.0 << ambientOnly;
        QTest::newRow("green is up") << colour << up << QVector3D(0, -1, 0) << 100.0 << fullyLit;
        QTest::newRow("not down") << colour << up << QVector3D(0, 1, 0) << 100.0 << ambientOnly;
        QTest::newRow("through alpha")
            << (colour & 0x80FFFFFFU) << flatNormal << above << 100.0 << qRgba(76, 32, 25, 128);
        QTest::newRow("cut at alpha")
            << 0x80FFFFFFU << flatNormal << above << 900.0 << qRgba(128, 128, 128, 128);
        QTest::newRow("transparent") << 0x00FFFFFFU << flatNormal << above << 900.0 << QRgb(0);
    }
    void litColours()
    {
        QFETCH(QRgb, texture);
        QFETCH(QRgb, normal);
        QFETCH(QVector3D, direction);
        QFETCH(double, brightness);
        QFETCH(QRgb, expected);
        const Light light{QColor(128, 64, 255, 128),
                          QColor(255, 255, 255, 128),
                          brightness,
                          Light::Kind::Direction,
                          direction};
        const QImage lit = litImage(uniform({1, 1}, texture), uniform({1, 1}, normal), light);
        QCOMPARE(lit.format(), QImage::Format_ARGB32_Premultiplied);
        QCOMPARE(*reinterpret_cast<const QRgb *>(lit.constScanLine(0)), expected);
    }

    // 45 degrees beside the lamp, grey 0.5 has the root of a half of its light.
    void aLampShinesOnWhatIsBelow()
    {
        Light light;
        light.kind = Light::Kind::Position;
        light.place = {2.5F, 0.5F, 2.0F};
        const QImage lit = litImage({}, flatNormalMap({5, 3}), light);
        QVERIFY(std::abs(qBlue(lit.pixel(2, 0)) - 127) <= 1);
        for (const QPoint &beside : {QPoint(0, 0), QPoint(4, 0), QPoint(2, 2)})
            QVERIFY(std::abs(qBlue(lit.pixel(beside)) - 90) <= 1);
    }
};

QTEST_GUILESS_MAIN(TestStructure)

#include "tst_Structure.moc"
