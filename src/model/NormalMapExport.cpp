#include "model/NormalMapExport.h"

#include "base/Error.h"
#include "imaging/AngleImage.h"
#include "imaging/LitImage.h"
#include "model/Project.h"
#include "model/SaveDevice.h"
#include "model/Sprite.h"
#include "model/SpriteFiles.h"
#include "model/properties/PropertyT.h"

#include <QFileInfo>
#include <QImageWriter>

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

NormalMapResult exportNormalMaps(const Project &project,
                                 const QVector<Body *> &bodies,
                                 const NormalMapExport &settings)
{
    NormalMapFiles files;
    for (const Body *body : bodies)
        files.paths.append(normalMapPath(*body, settings));
    // A suffix is a part of a name and leads to no other folder.
    if (settings.suffix.contains(QLatin1Char('/')) || settings.suffix.contains(QLatin1Char('\\')))
        throw Error(normalMapFailure(files.paths.value(0)));
    refuseClashes(files.paths, settings.protectedPaths + spritePaths(project));

    files.work = [&](int index) -> std::function<EncodedNormalMap()> {
        const Body &body = *bodies[index];
        if (files.paths[index].isEmpty())
            return [failure = normalMapFailure(body.name().value())] {
                return EncodedNormalMap{{}, failure, {}};
            };
        return [surface = body.surface(), sprite = body.sprite().image()] {
            return EncodedNormalMap{encodedNormalMap(surface, sprite), {}, {}};
        };
    };
    files.jobs = settings.jobs;
    files.goesOn = settings.goesOn;
    files.written = settings.written;
    files.progress = settings.progress;
    return writeNormalMaps(files);
}

bool writeImageFile(const QImage &image, const QString &path)
{
    return writeImageFile(image, path, QFileInfo(path).suffix().toLower().toLatin1());
}

bool writeImageFile(const QImage &image, const QString &path, const QByteArray &format)
{
    SaveDevice device(path);
    if (!QImageWriter::supportedImageFormats().contains(format) ||
        !device.open(QIODevice::WriteOnly))
        return false;
    const bool isJpeg = format == "jpg" || format == "jpeg";
    QImageWriter writer(&device, format);
    if (isJpeg)
        writer.setQuality(95);
    return writer.write(isJpeg ? overBlack(image) : image) && device.commit();
}
