#include "model/ImageReading.h"

#include <QBuffer>
#include <QColorSpace>
#include <QCoreApplication>
#include <QCryptographicHash>
#include <QDateTime>
#include <QFile>
#include <QFileInfo>
#include <QImageReader>
#include <QPixelFormat>
#include <QtEndian>

#include <algorithm>

namespace {

constexpr qint64 largestFile = 1LL << 30;
constexpr int longestSide = 32768;
constexpr qint64 mostBytes = qint64(256) << 20; // decoded

// The only two formats that are ever decoded, told by their signatures.
QByteArray formatOf(const QByteArray &content)
{
    if (content.startsWith(QByteArrayLiteral("\x89PNG\r\n\x1a\n")))
        return "png";
    if (content.startsWith(QByteArrayLiteral("\xff\xd8\xff")))
        return "jpeg";
    return {};
}

// Walks through the chunks up to the one that ends the image: the decoder doesn't read that one.
bool endsAsPng(const QByteArray &content)
{
    constexpr qint64 signature = 8;
    constexpr qint64 frame = 12; // length, type and checksum of a chunk
    for (qint64 at = signature; at + frame <= content.size();) {
        const char *chunk = content.constData() + at;
        at += frame + qFromBigEndian<quint32>(chunk);
        if (qstrncmp(chunk + 4, "IEND", 4) == 0)
            return at <= content.size();
    }
    return false;
}

// The decoder fills up a JPEG that ends early with grey and only warns. So its markers are walked
// through, up to the one that ends the image.
bool endsAsJpeg(const QByteArray &content)
{
    const auto byteAt = [&content](int at) { return static_cast<uchar>(content.at(at)); };
    constexpr uchar firstRestart = 0xd0;
    constexpr uchar start = 0xd8; // the last one without a segment but for the end
    constexpr uchar end = 0xd9;
    int at = 2;
    while ((at = content.indexOf('\xff', at)) >= 0 && at + 1 < content.size()) {
        const uchar marker = byteAt(at + 1);
        if (marker == end)
            return true;
        const bool isFill = marker == 0xff;
        const bool isBare = marker <= 0x01 || (marker >= firstRestart && marker <= start);
        if (isFill || isBare) {
            at += isFill ? 1 : 2;
            continue;
        }
        if (at + 3 >= content.size())
            return false;
        at += 2 + std::max(2, byteAt(at + 2) * 256 + byteAt(at + 3));
    }
    return false;
}

// Some file systems count in steps of two seconds.
FileStamp settledStampOf(const QString &path)
{
    constexpr qint64 coarsest = 2000000000;
    constexpr qint64 millisecond = 1000000;
    const FileStamp stamp = stampOf(path);
    const qint64 now = QDateTime::currentMSecsSinceEpoch() * millisecond;
    const bool isFresh = stamp.modified > now - coarsest;
    return isFresh ? FileStamp{-2, 0, 0} : stamp;
}

QImage decode(const QByteArray &content, QString *problem)
{
    const QByteArray format = formatOf(content);
    if (format.isEmpty()) {
        *problem = QLatin1String(QT_TRANSLATE_NOOP("ReadImage", "neither PNG nor JPEG"));
        return {};
    }
    if (!(format == "png" ? endsAsPng(content) : endsAsJpeg(content))) {
        *problem = QLatin1String(QT_TRANSLATE_NOOP("ReadImage", "the file ends early"));
        return {};
    }
    QBuffer buffer;
    buffer.setData(content);
    QImageReader reader(&buffer, format);
    reader.setAutoDetectImageFormat(false);
    reader.setDecideFormatFromContent(false);
    reader.setAutoTransform(false);

    const QSize size = reader.size();
    if (size.isEmpty()) {
        *problem = QLatin1String(QT_TRANSLATE_NOOP("ReadImage", "no size in the header"));
        return {};
    }
    // Never less than what it becomes in the end; 16 bits a channel take twice as much at first.
    const int bytesPerPixel =
        std::max(4, QImage::toPixelFormat(reader.imageFormat()).bitsPerPixel() / 8);
    if (std::max(size.width(), size.height()) > longestSide ||
        qint64(size.width()) * size.height() * bytesPerPixel > mostBytes) {
        *problem = QLatin1String(QT_TRANSLATE_NOOP("ReadImage", "too large"));
        return {};
    }
    QImage image = reader.read();
    if (image.isNull() || image.size() != size) {
        *problem = image.isNull() ? reader.errorString()
                                  : QLatin1String(QT_TRANSLATE_NOOP("ReadImage", "wrong size"));
        return {};
    }
    image.setColorSpace({});
    return image.convertToFormat(QImage::Format_ARGB32);
}

} // namespace

// What the toolkit says of a file stays as it is.
QString ReadImage::shownProblem() const
{
    return QCoreApplication::translate("ReadImage", qUtf8Printable(problem));
}

ReadImage readImageFile(const QString &path)
{
    ReadImage result;
    result.stamp = settledStampOf(path);
    // Anything else, a pipe above all, could keep the program waiting for ever.
    if (!QFileInfo(path).isFile()) {
        result.problem = QLatin1String(QT_TRANSLATE_NOOP("ReadImage", "not a file"));
        return result;
    }
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly)) {
        result.problem = file.errorString();
        return result;
    }
    const qint64 size = file.size();
    if (size > largestFile) {
        result.problem = QLatin1String(QT_TRANSLATE_NOOP("ReadImage", "file too large"));
        return result;
    }
    const QByteArray content = file.read(size);
    if (content.size() != size) {
        result.problem = QLatin1String(QT_TRANSLATE_NOOP("ReadImage", "the file can't be read"));
        return result;
    }
    result.opened = true;
    result.md5Hex = QCryptographicHash::hash(content, QCryptographicHash::Md5).toHex();
    result.image = decode(content, &result.problem);
    return result;
}
