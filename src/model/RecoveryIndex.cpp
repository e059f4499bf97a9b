#include "model/RecoveryIndex.h"

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
