#include "model/NormalMapFile.h"

#include "base/Error.h"
#include "imaging/NormalEncoding.h"
#include "imaging/PoolQueue.h"
#include "model/SaveDevice.h"

#include <QBuffer>
#include <QCoreApplication>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QImageWriter>
#include <QSet>

namespace {
struct Words
{
    Q_DECLARE_TR_FUNCTIONS(NormalMapExport)
};

QString markText()
{
    return QStringLiteral("normal map");
}

// Why the file at @p path has to stay, empty when a map may replace it.
QString troubleAt(const QString &path, const NormalMapFiles &files, const KnownFiles &written)
{
    if (files.kept.contains(path) || written.contains(path))
        return Words::tr("it is a sprite or another map by another name");
    if (!files.replacesForeign && isForeignFile(path))
        return Words::tr("the file that is there was not written by this program");
    return {};
}

// An empty text, or why the map was not written. Asks @p troubleAt in the last moment, since files
// may have come or gone while the maps were made.
QString writeMap(const QString &path,
                 const EncodedNormalMap &map,
                 const std::function<QString(const QString &)> &troubleAt)
{
    if (!map.failure.isEmpty())
        return map.failure;
    const QString folder = QFileInfo(path).path();
    if (!QDir().mkpath(folder))
        return Words::tr("Cannot create directory '%1'").arg(folder);
    SaveDevice device(path, SaveDevice::Sync::Later);
    QString trouble;
    device.setMayReplace([&](const QString &target) {
        trouble = troubleAt(target);
        return trouble.isEmpty();
    });
    const bool done = !map.png.isEmpty() && device.open(QIODevice::WriteOnly) &&
                      device.write(map.png) == map.png.size() && device.commit();
    if (!done && !device.errorString().isEmpty())
        qWarning("%s: %s", qUtf8Printable(path), qUtf8Printable(device.errorString()));
    if (!trouble.isEmpty())
        return normalMapFailure(path) + QStringLiteral(": ") + trouble;
    return done ? QString() : normalMapFailure(path);
}
} // namespace

QByteArray encodedNormalMap(const AngleImage &surface, const QImage &sprite)
{
    QBuffer buffer;
    buffer.open(QIODevice::WriteOnly);
    QImageWriter writer(&buffer, QByteArrayLiteral("png"));
    writer.setQuality(normalMapPngQuality);
    writer.setText(QString::fromLatin1(normalMapKey()), markText());
    return writer.write(exportedNormalMap(surface, sprite)) ? buffer.data() : QByteArray();
}

// In the PNG's text, which picture editors keep or drop but never make up.
QByteArray normalMapKey()
{
    return QByteArrayLiteral("Vesperine");
}

bool isNormalMap(const QImage &image)
{
    return image.text(QString::fromLatin1(normalMapKey())) == markText();
}

bool isNormalMapFile(const QString &path)
{
    // The writer puts its text before the pixels.
    constexpr int start = 1024;
    const QByteArray mark = "tEXt" + normalMapKey() + '\0' + markText().toLatin1();
    QFile file(path);
    return QFileInfo(path).isFile() && file.open(QIODevice::ReadOnly) &&
           file.read(start).contains(mark);
}

NormalMapResult writeNormalMaps(const NormalMapFiles &files)
{
    NormalMapResult result;
    QSet<QString> folders;
    KnownFiles written;
    const auto trouble = [&](const QString &path) { return troubleAt(path, files, written); };
    PoolQueue<EncodedNormalMap> queue(files.paths.size(), files.work, files.jobs);
    for (int i = 0; i < files.paths.size() && !result.cancelled; ++i) {
        const QString &path = files.paths[i];
        const EncodedNormalMap map = queue.next();
        if (!map.skipped.isEmpty()) {
            if (files.skipped)
                files.skipped(map.skipped);
        } else if (const QString failure = writeMap(path, map, trouble); failure.isEmpty()) {
            written.add(path);
            folders.insert(QFileInfo(path).path());
            if (files.written)
                files.written(path);
        } else {
            result.failures.append(failure);
            if (!files.goesOn)
                break;
        }
        result.cancelled = files.progress && !files.progress(i + 1);
    }
    if (!syncFolders(folders.values()))
        result.failures.append(normalMapFailure(folders.values().join(QStringLiteral(", "))));
    return result;
}

QString normalMapFailure(const QString &path)
{
    return Words::tr("Failed to save normal map '%1'").arg(path);
}

void refuseClashes(const QStringList &paths, KnownFiles taken)
{
    for (const QString &path : paths) {
        if (path.isEmpty())
            continue;
        if (taken.contains(path))
            throw Error(normalMapFailure(path));
        taken.addPlace(path);
    }
}

bool isForeignFile(const QString &path)
{
    return QFileInfo(path).isFile() && !isNormalMapFile(path);
}
