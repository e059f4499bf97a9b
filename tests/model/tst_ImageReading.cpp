#include "model/ImageReading.h"

#include <QBuffer>
#include <QCryptographicHash>
#include <QElapsedTimer>
#include <QFile>
#include <QImageReader>
#include <QTemporaryDir>
#include <QTest>
#include <QtEndian>

#include <cstdlib>

#include <sys/stat.h>
#include <zlib.h>

namespace {

QByteArray bigEndian(quint32 value)
{
    value = qToBigEndian(value);
    return QByteArray(reinterpret_cast<const char *>(&value), sizeof value);
}

QByteArray chunk(const QByteArray &type, const QByteArray &data)
{
    const QByteArray body = type + data;
    const auto crc =
        quint32(crc32(0, reinterpret_cast<const Bytef *>(body.constData()), uInt(body.size())));
    return bigEndian(quint32(data.size())) + body + bigEndian(crc);
}

enum Kind : char { Grey = 0, Colour = 2, Palette = 3, GreyAlpha = 4, ColourAlpha = 6 };

/// A PNG of one row of pixels, whatever its header claims.
QByteArray
png(QSize size, int depth, Kind kind, const QByteArray &row, const QByteArray &extra = {})
{
    const QByteArray header = bigEndian(quint32(size.width())) + bigEndian(quint32(size.height())) +
                              char(depth) + char(kind) + QByteArray(3, '\0');
    const QByteArray packed = qCompress('\0' + row).mid(4);
    return QByteArray::fromHex("89504e470d0a1a0a") + chunk("IHDR", header) + extra +
           chunk("IDAT", packed) + chunk("IEND", {});
}

QByteArray saved(const QImage &image, const char *format)
{
    QByteArray bytes;
    QBuffer buffer(&bytes);
    buffer.open(QIODevice::WriteOnly);
    return image.save(&buffer, format) ? bytes : QByteArray();
}

QImage picture()
{
    QImage image(40, 20, QImage::Format_RGB32);
    for (int y = 0; y < image.height(); ++y) {
        for (int x = 0; x < image.width(); ++x)
            image.setPixel(x, y, qRgb(x * 6, y * 12, (x * y) % 256));
    }
    return image;
}

QByteArray jpeg()
{
    return saved(picture(), "JPEG");
}

QByteArray withSegment(const QByteArray &jpeg, const QByteArray &segment)
{
    const int length = segment.size() + 2;
    return jpeg.left(2) + "\xff\xe1" + char(length / 256) + char(length % 256) + segment +
           jpeg.mid(2);
}

/// Turned by a quarter, as a camera notes it.
QByteArray turnedJpeg()
{
    return withSegment(jpeg(),
                       QByteArray("Exif\0\0", 6) + QByteArray::fromHex("4d4d002a00000008"
                                                                       "0001"
                                                                       "0112000300000001"
                                                                       "00060000"
                                                                       "00000000"));
}

/// One block of 8 by 8 in four inks: cyan and black at their highest values, the others at 0.
QByteArray inkJpeg()
{
    return QByteArray::fromHex("ffd8"
                               "ffdb004300") +
           QByteArray(64, '\x08') +
           QByteArray::fromHex("ffc00014080008000804"
                               "011100021100031100041100"
                               "ffc4001600"
                               "00030000000000000000000000000000"
                               "000708"
                               "ffc4001410"
                               "01000000000000000000000000000000"
                               "00"
                               "ffda000e04"
                               "0100020003000400"
                               "003f00"
                               "7fa7f4fe7fbf"
                               "ffd9");
}

} // namespace

class TestImageReading : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void readsPixelsAsStored_data();
    void readsPixelsAsStored();
    void readsNoOtherFormat_data();
    void readsNoOtherFormat();
    void refusesDamagedImages_data();
    void refusesDamagedImages();
    void refusesEveryTruncation_data();
    void refusesEveryTruncation();
    void jpegsAsTheyAre();
    void opensRegularFilesOnly();
    void opensNoHugeFile();
    void namesOfAllKinds();

private:
    ReadImage read(const QByteArray &content, const QString &name = QStringLiteral("a.png"));

    QTemporaryDir m_folder;
};

ReadImage TestImageReading::read(const QByteArray &content, const QString &name)
{
    QFile file(m_folder.filePath(name));
    if (!file.open(QIODevice::WriteOnly) || file.write(content) != content.size())
        std::abort();
    file.close();
    ReadImage result = readImageFile(file.fileName());
    file.remove();
    return result;
}

void TestImageReading::readsPixelsAsStored_data()
{
    QTest::addColumn<QByteArray>("content");
    QTest::addColumn<QVector<QRgb>>("pixels");
    const auto row = [](const char *name, const QByteArray &content, const QVector<QRgb> &pixels) {
        QTest::newRow(name) << content << pixels;
    };
    const auto hex = [](const char *digits) { return QByteArray::fromHex(digits); };
    const QByteArray colours = chunk("PLTE", hex("102030405060"));

    row("one pixel", png({1, 1}, 8, Colour, hex("010203")), {0xff010203});
    row("colours under full transparency",
        png({2, 1}, 8, ColourAlpha, hex("11223300aabbcc01")),
        {0x00112233, 0x01aabbcc});
    row("fully transparent",
        png({2, 1}, 8, ColourAlpha, hex("ffffff00ffffff00")),
        {0x00ffffff, 0x00ffffff});
    row("grey", png({2, 1}, 8, Grey, hex("0080")), {0xff000000, 0xff808080});
    row("one bit", png({3, 1}, 1, Grey, hex("a0")), {0xffffffff, 0xff000000, 0xffffffff});
    row("grey and alpha", png({2, 1}, 8, GreyAlpha, hex("8000407f")), {0x00808080, 0x7f404040});
    row("palette", png({2, 1}, 8, Palette, hex("0100"), colours), {0xff405060, 0xff102030});
    row("palette with alpha",
        png({2, 1}, 8, Palette, hex("0100"), colours + chunk("tRNS", hex("0080"))),
        {0x80405060, 0x00102030});
    row("transparent colour",
        png({2, 1}, 8, Colour, hex("010203040506"), chunk("tRNS", hex("000100020003"))),
        {0x00010203, 0xff040506});
    row("16 bits", png({1, 1}, 16, Colour, hex("12345678ffff")), {0xff1256ff});
    row("16 bits grey", png({1, 1}, 16, Grey, hex("8080")), {0xff808080});
    row("16 bits with alpha",
        png({2, 1}, 16, ColourAlpha, hex("1111222233330000ffff808000008080")),
        {0x00112233, 0x80ff8000});
    row("gamma and profile change nothing",
        png({1, 1}, 8, Colour, hex("406080"), chunk("gAMA", hex("000186a0"))),
        {0xff406080});
}

void TestImageReading::readsPixelsAsStored()
{
    QFETCH(QByteArray, content);
    QFETCH(QVector<QRgb>, pixels);
    const ReadImage result = read(content);
    QVERIFY2(!result.image.isNull(), qPrintable(result.problem));
    QCOMPARE(result.image.format(), QImage::Format_ARGB32);
    QCOMPARE(result.image.size(), QSize(pixels.size(), 1));
    for (int x = 0; x < pixels.size(); ++x)
        QCOMPARE(QString::number(result.image.pixel(x, 0), 16), QString::number(pixels.at(x), 16));
    QCOMPARE(result.md5Hex, QCryptographicHash::hash(content, QCryptographicHash::Md5).toHex());
}

void TestImageReading::readsNoOtherFormat_data()
{
    QTest::addColumn<QByteArray>("content");
    QTest::newRow("BMP") << saved(picture(), "BMP");
    QTest::newRow("PPM") << saved(picture(), "PPM");
    QTest::newRow("GIF") << QByteArray::fromHex("474946383961010001008000"
                                                "00ff0000000000"
                                                "2c00000000010001000002024401003b");
    QTest::newRow("XPM") << QByteArray(
        "/* XPM */\nstatic char *a[] = {\"1 1 1 1\",\"a c red\",\"a\"};");
}

// As a control, the toolkit left to itself does read them.
void TestImageReading::readsNoOtherFormat()
{
    QFETCH(QByteArray, content);
    QVERIFY(!QImage::fromData(content).isNull());
    for (const QString &name :
         {QStringLiteral("a.png"), QStringLiteral("a.bmp"), QStringLiteral("a")}) {
        const ReadImage result = read(content, name);
        QVERIFY(result.opened && !result.md5Hex.isEmpty());
        QVERIFY(result.image.isNull() && !result.problem.isEmpty());
    }
}

void TestImageReading::refusesDamagedImages_data()
{
    QTest::addColumn<QByteArray>("content");
    const QByteArray row = QByteArray::fromHex("010203");
    QTest::newRow("empty") << QByteArray();
    QTest::newRow("text") << QByteArray("this is no picture");
    QTest::newRow("SVG") << QByteArray("<svg xmlns='http://www.w3.org/2000/svg'/>");
    QTest::newRow("signature alone") << png({1, 1}, 8, Colour, row).left(8);
    QTest::newRow("JPEG signature alone") << QByteArray::fromHex("ffd8ffd9");
    QTest::newRow("no pixels") << png({0, 0}, 8, Colour, row);
    QTest::newRow("too wide") << png({32769, 1}, 8, Colour, row);
    QTest::newRow("too high") << png({1, 32769}, 8, Colour, row);
    QTest::newRow("too many pixels") << png({8192, 8193}, 8, Colour, row);
    QTest::newRow("more pixels than int") << png({2147483647, 2147483647}, 8, Colour, row);
    QTest::newRow("claims more rows than it has") << png({1, 5}, 8, Colour, row);
    QByteArray wrong = png({1, 1}, 8, Colour, row);
    wrong[45] = static_cast<char>(wrong.at(45) ^ 1);
    QTest::newRow("wrong checksum") << wrong;
    QByteArray wide = jpeg();
    const int frame = wide.indexOf("\xff\xc0");
    wide.replace(frame + 5, 4, QByteArray::fromHex("ffdcffdc"));
    QTest::newRow("JPEG too large") << wide;
}

void TestImageReading::refusesDamagedImages()
{
    QFETCH(QByteArray, content);
    QElapsedTimer timer;
    timer.start();
    const ReadImage result = read(content);
    QVERIFY(result.opened);
    QVERIFY(result.image.isNull());
    QVERIFY(!result.problem.isEmpty());
    QCOMPARE(result.md5Hex, QCryptographicHash::hash(content, QCryptographicHash::Md5).toHex());
    QVERIFY(timer.elapsed() < 1000);
}

void TestImageReading::refusesEveryTruncation_data()
{
    QTest::addColumn<QByteArray>("content");
    QTest::newRow("PNG") << saved(picture(), "PNG");
    QTest::newRow("JPEG") << jpeg();
    // The preview inside has an end of its own.
    QTest::newRow("JPEG with a preview") << withSegment(jpeg(), "Exif" + inkJpeg());
}

void TestImageReading::refusesEveryTruncation()
{
    QFETCH(QByteArray, content);
    QVERIFY(!read(content).image.isNull());
    QVERIFY(!read(content + "and more").image.isNull());
    for (int size = 0; size < content.size(); ++size) {
        const ReadImage result = read(content.left(size));
        QVERIFY2(result.opened && result.image.isNull(), qPrintable(QString::number(size)));
    }
}

void TestImageReading::jpegsAsTheyAre()
{
    const ReadImage plain = read(jpeg(), QStringLiteral("a.png"));
    QCOMPARE(plain.image.format(), QImage::Format_ARGB32);
    QCOMPARE(plain.image.size(), QSize(40, 20));
    QCOMPARE(qAlpha(plain.image.pixel(3, 3)), 255);

    QByteArray turned = turnedJpeg();
    QBuffer buffer(&turned);
    QImageReader control(&buffer);
    control.setAutoTransform(true);
    QCOMPARE(control.read().size(), QSize(20, 40));
    QCOMPARE(read(turned).image, plain.image);

    const QImage grey = picture().convertToFormat(QImage::Format_Grayscale8);
    const QRgb pixel = read(saved(grey, "JPEG")).image.pixel(20, 10);
    QVERIFY(qRed(pixel) == qGreen(pixel) && qGreen(pixel) == qBlue(pixel));

    const ReadImage inks = read(inkJpeg());
    QVERIFY2(!inks.image.isNull(), qPrintable(inks.problem));
    QCOMPARE(inks.image.size(), QSize(8, 8));
    QCOMPARE(inks.image.pixel(4, 4), qRgb(255, 0, 0));
}

void TestImageReading::opensRegularFilesOnly()
{
    const QString pipe = m_folder.filePath(QStringLiteral("pipe.png"));
    QCOMPARE(mkfifo(qPrintable(pipe), 0600), 0);
    for (const QString &path : {pipe,
                                m_folder.path(),
                                QStringLiteral("/dev/zero"),
                                QString(),
                                m_folder.filePath(QStringLiteral("missing.png"))}) {
        const ReadImage result = readImageFile(path);
        QVERIFY2(!result.opened && result.image.isNull(), qPrintable(path));
        QVERIFY(result.md5Hex.isEmpty() && !result.problem.isEmpty());
    }
}

void TestImageReading::opensNoHugeFile()
{
    QFile file(m_folder.filePath(QStringLiteral("huge.png")));
    QVERIFY(file.open(QIODevice::WriteOnly) && file.resize((1LL << 30) + 1));
    const ReadImage result = readImageFile(file.fileName());
    QVERIFY(!result.opened && !result.problem.isEmpty());
    file.remove();
}

void TestImageReading::namesOfAllKinds()
{
    const QByteArray content = saved(picture(), "PNG");
    for (const QString &name : {QStringLiteral("two words.png"),
                                QStringLiteral("a.b.c.png"),
                                QStringLiteral("Bär.png"),
                                QStringLiteral("🦊.png"),
                                QStringLiteral("a%20b#c?.png"),
                                QStringLiteral("a@2x.png"),
                                QStringLiteral("noextension")}) {
        const ReadImage result = read(content, name);
        QVERIFY2(result.image == picture().convertToFormat(QImage::Format_ARGB32),
                 qPrintable(name));
        QCOMPARE(result.image.devicePixelRatio(), 1.0);
    }
}

QTEST_GUILESS_MAIN(TestImageReading)

#include "tst_ImageReading.moc"
