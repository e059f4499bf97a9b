#include "model/NormalMapExport.h"

#include "base/Error.h"
#include "imaging/NormalEncoding.h"
#include "imaging/PoolTask.h"
#include "model/Project.h"
#include "model/SaveDevice.h"
#include "model/Sprite.h"
#include "model/SpriteFiles.h"
#include "model/properties/PropertyT.h"

#include <QBuffer>
#include <QDir>
#include <QFileInfo>
#include <QImageWriter>
#include <QSet>

#include <deque>

namespace {
QString tr(const char *text)
{
    return QCoreApplication::translate("NormalMapExport", text);
}

QString saveFailure(const QString &path)
{
    return tr(QT_TRANSLATE_NOOP("NormalMapExport", "Failed to save normal map '%1'")).arg(path);
}

// Empty when there is nothing to encode.
QByteArray encodedNormalMap(const AngleImage &surface, const QImage &sprite)
{
    QImage normalMap = flatNormalMap(surface.size());
    toNormalMap(surface, normalMap);
    flattenTransparent(sprite, normalMap);
    QBuffer buffer;
    buffer.open(QIODevice::WriteOnly);
    QImageWriter writer(&buffer, QByteArrayLiteral("png"));
    writer.setQuality(NormalMapExport::pngQuality);
    return writer.write(normalMap) ? buffer.data() : QByteArray();
}

// An empty text, or why the map was not written.
QString writeMap(const Body &body, const QString &path, const QByteArray &png)
{
    if (path.isEmpty())
        return saveFailure(body.name().value());
    const QString folder = QFileInfo(path).path();
    if (!QDir().mkpath(folder))
        return tr(QT_TRANSLATE_NOOP("NormalMapExport", "Cannot create directory '%1'")).arg(folder);
    SaveDevice device(path, SaveDevice::Sync::Later);
    const bool done = !png.isEmpty() && device.open(QIODevice::WriteOnly) &&
                      device.write(png) == png.size() && device.commit();
    return done ? QString() : saveFailure(path);
}

void refuseClashes(const QStringList &paths, QSet<QString> taken)
{
    for (const QString &path : paths) {
        if (path.isEmpty())
            continue;
        const QString canonical = GFileName(path).canonicalPath();
        if (taken.contains(canonical))
            throw Error(saveFailure(path));
        taken.insert(canonical);
    }
}
} // namespace

QSet<QString> spritePaths(const Project &project)
{
    QSet<QString> paths;
    for (const Body *body : project.bodies().all())
        paths.insert(body->sprite().filename().value().canonicalPath());
    return paths;
}

QString normalMapPath(const Body &body, const NormalMapExport &settings)
{
    if (body.sprite().filename().value().isEmpty())
        return {};
    const QFileInfo sprite(body.sprite().filename().value().path());
    const QString folder = settings.directory.isEmpty() ? sprite.path() : settings.directory.path();
    return folder + QLatin1Char('/') + normalMapFileName(sprite.fileName(), settings.suffix);
}

NormalMapExportResult exportNormalMaps(const Project &project,
                                       const QVector<Body *> &bodies,
                                       const NormalMapExport &settings)
{
    QStringList paths;
    for (const Body *body : bodies)
        paths.append(normalMapPath(*body, settings));
    // A suffix is a part of a name and leads to no other folder.
    if (settings.suffix.contains(QLatin1Char('/')) || settings.suffix.contains(QLatin1Char('\\')))
        throw Error(saveFailure(paths.value(0)));
    refuseClashes(paths, settings.protectedPaths + spritePaths(project));

    NormalMapExportResult result;
    QSet<QString> folders;
    std::deque<PoolTask<QByteArray>> tasks;
    const int processors = QThreadPool::globalInstance()->maxThreadCount();
    // One more than is worked on waits, so that no processor idles while a file is written.
    const int ahead = (settings.jobs > 0 ? settings.jobs : processors) + 1;
    int started = 0;
    for (int i = 0; i < bodies.size() && !result.cancelled; ++i) {
        for (; started < bodies.size() && started < i + ahead; ++started) {
            const AngleImage surface = bodies[started]->surface();
            const QImage sprite = bodies[started]->sprite().image();
            tasks.emplace_back([surface, sprite] { return encodedNormalMap(surface, sprite); });
        }
        const QByteArray png = tasks.front().take();
        tasks.pop_front();
        const QString failure = writeMap(*bodies[i], paths[i], png);
        if (failure.isEmpty()) {
            folders.insert(QFileInfo(paths[i]).path());
            if (settings.written)
                settings.written(paths[i]);
        } else {
            result.failures.append(failure);
            if (!settings.goesOn)
                break;
        }
        result.cancelled = settings.progress && !settings.progress(i + 1);
    }
    if (!syncFolders(folders.values()))
        result.failures.append(saveFailure(folders.values().join(QStringLiteral(", "))));
    return result;
}

bool writeImageFile(const QImage &image, const QString &path)
{
    SaveDevice device(path);
    const QByteArray format = QFileInfo(path).suffix().toLower().toLatin1();
    if (!QImageWriter::supportedImageFormats().contains(format) ||
        !device.open(QIODevice::WriteOnly))
        return false;
    return QImageWriter(&device, format).write(image) && device.commit();
}
