#include "model/RecoveryIndex.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>

#include <algorithm>

namespace {
constexpr int version = 1;

QString versionKey()
{
    return QStringLiteral("version");
}

QString pathKey()
{
    return QStringLiteral("path");
}

QString fileKey()
{
    return QStringLiteral("file");
}

QString timeKey()
{
    return QStringLiteral("time");
}

QString thumbnailKey()
{
    return QStringLiteral("thumbnail");
}

QString filesKey()
{
    return QStringLiteral("files");
}

// Numbers as text: JSON's own have too few digits.
QJsonArray stampArray(const FileStamp &stamp)
{
    return {QString::number(stamp.size),
            QString::number(stamp.modified),
            QString::number(stamp.fileNumber)};
}

// An incomplete one is that of no file, which differs from that of any.
FileStamp stampFrom(const QJsonArray &array)
{
    if (array.size() != 3)
        return {};
    return {array[0].toString().toLongLong(),
            array[1].toString().toLongLong(),
            array[2].toString().toULongLong()};
}

// Nothing outside the snapshot's own folder.
bool isPlainName(const QString &name)
{
    return !name.startsWith(QLatin1Char('.')) && !name.contains(QLatin1Char('/')) &&
           !name.contains(QLatin1Char('\\'));
}
} // namespace

QSet<QString> RecoveryIndex::fileNames() const
{
    QSet<QString> names(dataFiles.cbegin(), dataFiles.cend());
    names.insert(thumbnail);
    return names;
}

QByteArray RecoveryIndex::toBytes() const
{
    QJsonObject files;
    for (auto file = dataFiles.cbegin(); file != dataFiles.cend(); ++file)
        files.insert(file.key(), file.value());
    const QJsonObject head{{versionKey(), version},
                           {pathKey(), projectPath},
                           {fileKey(), stampArray(projectFile)},
                           {timeKey(), time.toUTC().toString(Qt::ISODateWithMs)},
                           {thumbnailKey(), thumbnail},
                           {filesKey(), files}};
    return QJsonDocument(head).toJson(QJsonDocument::Compact) + '\n' + xml;
}

std::optional<RecoveryIndex> RecoveryIndex::fromBytes(const QByteArray &bytes)
{
    const int end = bytes.indexOf('\n');
    const QJsonObject head = QJsonDocument::fromJson(bytes.left(std::max(end, 0))).object();
    RecoveryIndex index;
    index.time = QDateTime::fromString(head.value(timeKey()).toString(), Qt::ISODateWithMs);
    if (head.value(versionKey()).toInt() != version || !index.time.isValid())
        return std::nullopt;
    index.projectPath = head.value(pathKey()).toString();
    index.projectFile = stampFrom(head.value(fileKey()).toArray());
    index.thumbnail = head.value(thumbnailKey()).toString();
    const QJsonObject files = head.value(filesKey()).toObject();
    for (auto file = files.begin(); file != files.end(); ++file)
        index.dataFiles.insert(file.key(), file.value().toString());
    const auto names = index.fileNames();
    if (!std::all_of(names.begin(), names.end(), isPlainName))
        return std::nullopt;
    index.xml = bytes.mid(end + 1);
    return index;
}
