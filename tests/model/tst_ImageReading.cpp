#include "base/GLogger.h"
#include "model/ImageReading.h"
#include "model/NormalMapFile.h"

#include "support/Documents.h"

#include <QBuffer>
#include <QCryptographicHash>
#include <QElapsedTimer>
#include <QImageReader>
#include <QImageWriter>
#include <QLoggingCategory>
#include <QTest>
#include <QtEndian>

#include <zlib.h>

namespace {

QByteArray hex(const QByteArray &digits)
{
    return QByteArray::fromHex(digits);
}

QByteArray bigEndian(quint32 value)
{
    value = qToBigEndian(value);
    return {reinterpret_cast<const char *>(&value), sizeof value};
}

QByteArray chunk(const QByteArray &body)
{
    const auto *bytes = reinterpret_cast<const Bytef *>(body.constData());
    const auto crc = quint32(crc32(0, bytes, uInt(body.size())));
    return bigEndian(quint32(body.size() - 4)) + body + bigEndian(crc);
}

/// A PNG of one row of pixels, whatever its header claims. @p kind: its bit depth and colour type.
QByteArray png(QSize size, const char *kind, const QByteArray &row, const QByteArray &extra = {})
{
    const QByteArray sides = bigEndian(quint32(size.width())) + bigEndian(quint32(size.height()));
    const QByteArray packed = qCompress('\0' + hex(row)).mid(4);
    return hex("89504e470d0a1a0a") + chunk("IHDR" + sides + hex(kind) + QByteArray(3, '\0')) +
           extra + chunk("IDAT" + packed) + chunk("IEND");
}

QByteArray saved(const QImage &image, const char *format)
{
    QBuffer buffer;
    buffer.open(QIODevice::WriteOnly);
    image.save(&buffer, format);
    return buffer.data();
}

QImage picture()
{
    QImage image(40, 20, QImage::Format_RGB32);
    for (int i = 0; i < 800; ++i)
        image.setPixel(i % 40, i / 40, qRgb(i % 40 * 6, i / 40 * 12, i % 251));
    return image;
}

QByteArray withSegment(const QByteArray &jpeg, const QByteArray &segment)
{
    return jpeg.left(2) + "\xff\xe1" + bigEndian(quint32(segment.size() + 2)).mid(2) + segment +
           jpeg.mid(2);
}

/// One block of 8 by 8 in four inks: cyan and black at their highest values, the others at 0.
QByteArray inkJpeg()
{
    return hex("ffd8ffdb004300") + QByteArray(64, '\x08') +
           hex("ffc00014080008000804011100021100031100041100"
               "ffc400160000030000000000000000000000000000000708"
               "ffc40014100100000000000000000000000000000000"
               "ffda000e040100020003000400003f007fa7f4fe7fbfffd9");
}

/// In about ten scans, each finer than those before.
QByteArray progressiveJpeg()
{
    QBuffer buffer;
    buffer.open(QIODevice::WriteOnly);
    QImageWriter writer(&buffer, "jpeg");
    writer.setProgressiveScanWrite(true);
    writer.write(picture());
    return buffer.data();
}

QByteArray withStrayBytes(QByteArray jpeg)
{
    return jpeg.insert(jpeg.indexOf("\xff\xdb"), "\1\2");
}

QByteArray ofVersion(QByteArray jpeg, char version)
{
    jpeg[jpeg.indexOf("JFIF") + 5] = version;
    return jpeg;
}

QByteArray claiming(QByteArray jpeg, int side)
{
    const int frame = std::max(jpeg.indexOf("\xff\xc0"), jpeg.indexOf("\xff\xc2"));
    const QByteArray half = bigEndian(quint32(side)).mid(2);
    return jpeg.replace(frame + 5, 4, half + half);
}

QByteArray withScans(const QByteArray &jpeg, int count)
{
    const int scan = jpeg.indexOf("\xff\xda");
    const QByteArray coded = jpeg.mid(scan, jpeg.size() - 2 - scan);
    return jpeg.left(scan) + coded.repeated(count) + "\xff\xd9";
}

// Names of all kinds are read.
ReadImage read(const QByteArray &content)
{
    static const Folder folder;
    const ReadImage result =
        readImageFile(folder.write(QStringLiteral("Bär 🦊%20b#c?@2x.png"), content));
    const auto md5 = QCryptographicHash::hash(content, QCryptographicHash::Md5).toHex();
    return result.opened && result.md5Hex == md5 ? result : ReadImage();
}

bool isRefused(const QByteArray &content)
{
    QElapsedTimer timer;
    timer.start();
    const ReadImage result = read(content);
    return result.opened && result.image.isNull() && !result.problem.isEmpty() &&
           timer.elapsed() < 1000;
}

} // namespace

class TestImageReading : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    // As in the programs: it is what hears the decoder's warnings, even those that a user mutes.
    void initTestCase()
    {
        GLogger::install();
        QLoggingCategory::setFilterRules(QStringLiteral("*.warning=false"));
    }

    void readsPixelsAsStored()
    {
        const auto check = [](const char *name, const QByteArray &content, QVector<QRgb> pixels) {
            const ReadImage result = read(content);
            QVERIFY2(result.image.format() == QImage::Format_ARGB32, name);
            const auto *row = reinterpret_cast<uchar *>(pixels.data());
            QVERIFY2(result.image == QImage(row, pixels.size(), 1, QImage::Format_ARGB32), name);
        };
        const char *const grey = "0800";
        const char *const colour = "0802";
        const char *const palette = "0803";
        const char *const alpha = "0806";
        const QByteArray colours =
            chunk("PLTE" + hex("102030405060")) + chunk("tRNS" + hex("0080"));
        const QByteArray darkClear = chunk("tRNS" + hex("000100020003"));
        const QByteArray gamma = chunk("gAMA" + hex("000186a0"));
        check("colour", png({1, 1}, colour, "010203"), {0xff010203});
        check("alpha", png({2, 1}, alpha, "11223300aabbcc01"), {0x00112233, 0x01aabbcc});
        check("grey", png({2, 1}, grey, "0080"), {0xff000000, 0xff808080});
        check("grey and alpha", png({2, 1}, "0804", "8000407f"), {0x00808080, 0x7f404040});
        check("palette", png({2, 1}, palette, "0100", colours), {0x80405060, 0x00102030});
        check("clear colour", png({1, 1}, colour, "010203", darkClear), {0x00010203});
        check("16 bits", png({1, 1}, "1002", "12345678ffff"), {0xff1256ff});
        check("16 bits and alpha", png({1, 1}, "1006", "1111222233330000"), {0x00112233});
        check("gamma", png({1, 1}, colour, "406080", gamma), {0xff406080});
    }

    void refusesEveryTruncation()
    {
        const QByteArray jpeg = saved(picture(), "JPEG");
        // The preview inside has an end of its own.
        const QByteArray withPreview = withSegment(jpeg, "Exif" + inkJpeg());
        for (const auto &content : {saved(picture(), "PNG"), jpeg, withPreview}) {
            QVERIFY(!read(content).image.isNull());
            QVERIFY(!read(content + "and more").image.isNull());
            for (int size = 0; size < content.size(); ++size)
                QVERIFY2(isRefused(content.left(size)), qPrintable(QString::number(size)));
        }
    }

    void refusesWhatKeepsADecoderBusy_data()
    {
        QTest::addColumn<QByteArray>("content");
        QTest::addColumn<QString>("problem");
        const QByteArray jpeg = saved(picture(), "JPEG");
        const QByteArray fine = progressiveJpeg();
        const QByteArray end = "\xff\xd9";
        const auto text = chunk("tEXtk" + QByteArray(1, '\0'));
        const auto pixel = [](const QByteArray &extra) {
            return png({1, 1}, "0802", "010203", extra);
        };
        const QByteArray packedText =
            chunk("zTXtk" + QByteArray(2, '\0') + qCompress(QByteArray(7'900'000, 'a')).mid(4));
        QTest::newRow("progressive") << fine << QString();
        QTest::newRow("packed texts") << pixel(packedText.repeated(100)) << QString();
        QTest::newRow("many scans")
            << withScans(jpeg, 101) << "too many scans; save it anew, not as a progressive image";
        QTest::newRow("many large scans")
            << withScans(claiming(jpeg, 8192), 33)
            << "too many scans; save it anew, not as a progressive image";
        QTest::newRow("many segments")
            << jpeg.left(2) + QByteArray("\xff\xfe\0\x02", 4).repeated(5001) + jpeg.mid(2)
            << "more than 5000 segments; save it anew";
        QTest::newRow("many chunks")
            << pixel(text.repeated(200'000)) << "more than 200,000 chunks; save it anew";
        QTest::newRow("a large claim") << claiming(jpeg, 8192) << "the file ends early";
        QTest::newRow("a large claim, progressive")
            << claiming(fine, 8192) << "the file ends early";
        QTest::newRow("a lost quarter")
            << jpeg.left(jpeg.size() * 3 / 4) + end << "the file ends early";
        QTest::newRow("stray bytes") << withStrayBytes(jpeg) << QString();
        for (const QByteArray &whole :
             {withStrayBytes(jpeg), ofVersion(jpeg, 2), withStrayBytes(fine)})
            QTest::addRow("a lost end after a warning, %d bytes", int(whole.size()))
                << whole.left(whole.size() - 12) + end << "the file ends early";
        QTest::newRow("one large scan")
            << claiming(jpeg.chopped(2), 50000) + QByteArray(90'000'000, '\0') + end << "too large";
        QTest::newRow("a lost half, progressive")
            << fine.left(fine.indexOf("\xff\xda") + 30) + end << "the file ends early";
    }

    void refusesWhatKeepsADecoderBusy()
    {
        QFETCH(QByteArray, content);
        QFETCH(QString, problem);
        const ReadImage result = read(content);
        QCOMPARE(result.problem, problem);
        QCOMPARE(result.image.isNull(), !problem.isEmpty());
        // Unpacking them would take longer than all else here.
        QVERIFY(result.image.textKeys().isEmpty());
    }

    // However another program has stored it.
    void keepsTheMarkOfNormalMaps()
    {
        const QByteArray mark = "Vesperine" + QByteArray(2, '\0');
        const QByteArray text("normal map");
        for (const QByteArray &stored :
             {"zTXt" + mark + qCompress(text).mid(4), "iTXt" + mark + QByteArray(3, '\0') + text})
            QVERIFY(isNormalMap(read(png({1, 1}, "0802", "010203", chunk(stored))).image));
    }

    void jpegsAsTheyAre()
    {
        const QByteArray jpeg = saved(picture(), "JPEG");
        const QImage plain = read(jpeg).image;
        QCOMPARE(plain.format(), QImage::Format_ARGB32);
        QVERIFY(plain.size() == QSize(40, 20) && plain.devicePixelRatio() == 1.0);
        QCOMPARE(qAlpha(plain.pixel(3, 3)), 255);

        // By a quarter, as a camera notes it.
        const char *turn = "4578696600004d4d002a0000000800010112000300000001000600000000 0000";
        QByteArray turned = withSegment(jpeg, hex(turn));
        QBuffer buffer(&turned);
        QImageReader control(&buffer);
        control.setAutoTransform(true);
        QCOMPARE(control.read().size(), QSize(20, 40));
        QCOMPARE(read(turned).image, plain);

        const QImage grey = picture().convertToFormat(QImage::Format_Grayscale8);
        QVERIFY(read(saved(grey, "JPEG")).image.isGrayscale());

        QImage inks(8, 8, QImage::Format_ARGB32);
        inks.fill(qRgb(255, 0, 0));
        QCOMPARE(read(inkJpeg()).image, inks);
    }
};

QTEST_GUILESS_MAIN(TestImageReading)

#include "tst_ImageReading.moc"
