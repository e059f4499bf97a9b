#include "model/ImageReading.h"

#include "base/MessageListener.h"
#include "model/ImageGuard.h"
#include "model/NormalMapFile.h"

#include <QColorSpace>
#include <QCoreApplication>
#include <QCryptographicHash>
#include <QDateTime>
#include <QElapsedTimer>
#include <QFile>
#include <QFileInfo>
#include <QImageReader>
#include <QPixelFormat>

#include <algorithm>
#include <cstring>

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

/// A file's content that can't be read any more when the decoder has taken too long over it.
class TimedContent : public QIODevice
{
public:
    explicit TimedContent(const QByteArray &content)
        : m_content(content)
    {
        open(QIODevice::ReadOnly | QIODevice::Unbuffered);
        m_timer.start();
    }

    bool isTooLate() const { return m_timer.hasExpired(longest); }
    qint64 size() const override { return m_content.size(); }

protected:
    qint64 readData(char *data, qint64 maximum) override
    {
        const qint64 size = std::min(maximum, m_content.size() - pos());
        if (isTooLate() || size < 0)
            return -1;
        std::memcpy(data, m_content.constData() + pos(), std::size_t(size));
        return size;
    }
    qint64 writeData(const char * /*data*/, qint64 /*size*/) override { return -1; }

private:
    static constexpr qint64 longest = 30000; // milliseconds; the largest images take two seconds

    QByteArray m_content;
    QElapsedTimer m_timer;
};

// The decoder of JPEGs goes on where coded data are missing. Other warnings, such as of bytes
// behind the coded data, come up with many cameras.
bool hasLostData(const MessageListener &listener)
{
    return listener.messages()
        .join(QLatin1Char('\n'))
        .contains(QLatin1String("premature end"), Qt::CaseInsensitive);
}

QImage decode(const QByteArray &content, QString *problem)
{
    const QByteArray format = formatOf(content);
    if (format.isEmpty()) {
        *problem = QLatin1String(QT_TRANSLATE_NOOP("ReadImage", "neither PNG nor JPEG"));
        return {};
    }
    const bool isPng = format == "png";
    if (const char *found = isPng ? problemOfPng(content) : problemOfJpeg(content)) {
        *problem = QLatin1String(found);
        return {};
    }
    TimedContent device(isPng ? withoutPackedTexts(content, normalMapKey())
                              : withoutStrayBytes(content));
    QImageReader reader(&device, format);
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
    const MessageListener listener;
    QImage image = reader.read();
    if (device.isTooLate()) {
        *problem = QLatin1String(
            QT_TRANSLATE_NOOP("ReadImage", "reading it takes longer than 30 seconds"));
        return {};
    }
    if (hasLostData(listener)) {
        *problem = QLatin1String(QT_TRANSLATE_NOOP("ReadImage", "the file ends early"));
        return {};
    }
    if (image.isNull() && QImage(size, QImage::Format_ARGB32).isNull()) {
        *problem = QLatin1String(QT_TRANSLATE_NOOP("ReadImage", "there is not enough memory"));
        return {};
    }
    if (image.isNull() || image.size() != size) {
        *problem = image.isNull() ? reader.errorString()
                                  : QLatin1String(QT_TRANSLATE_NOOP("ReadImage", "wrong size"));
        return {};
    }
    image.setColorSpace({});
    image = image.convertToFormat(QImage::Format_ARGB32);
    if (image.isNull())
        *problem = QLatin1String(QT_TRANSLATE_NOOP("ReadImage", "there is not enough memory"));
    return image;
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
