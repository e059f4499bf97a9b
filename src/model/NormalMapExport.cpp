#include "model/NormalMapExport.h"

#include "base/Error.h"
#include "base/PlainText.h"
#include "imaging/AngleImage.h"
#include "imaging/LitImage.h"
#include "model/Project.h"
#include "model/SaveDevice.h"
#include "model/Sprite.h"
#include "model/SpriteFiles.h"
#include "model/properties/PropertyT.h"

#include <QFileInfo>
#include <QImageWriter>

namespace {
QStringList
checkedPaths(const Project &project, const QVector<Body *> &bodies, const NormalMapExport &settings)
{
    QStringList paths;
    for (const Body *body : bodies)
        paths.append(normalMapPath(*body, settings));
    if (!fitsInFileName(settings.suffix))
        throw Error(normalMapFailure(paths.value(0)));
    KnownFiles taken = settings.kept;
    taken.add(spriteFiles(project));
    refuseClashes(paths, taken);
    return paths;
}
} // namespace

KnownFiles spriteFiles(const Project &project)
{
    KnownFiles files;
    for (const Body *body : project.bodies().all()) {
        const GFileName &sprite = body->sprite().filename().value();
        if (!sprite.isEmpty())
            files.add(sprite.path());
    }
    return files;
}

KnownFiles sourceFiles(const Project &project)
{
    KnownFiles files = spriteFiles(project);
    if (!project.filename().value().isEmpty())
        files.add(project.filename().value().path());
    return files;
}

QString normalMapPath(const Body &body, const NormalMapExport &settings)
{
    if (body.sprite().filename().value().isEmpty())
        return {};
    const QFileInfo sprite(body.sprite().filename().value().path());
    const QString folder = settings.directory.isEmpty() ? sprite.path() : settings.directory.path();
    return folder + QLatin1Char('/') + normalMapFileName(sprite.fileName(), settings.suffix);
}

QStringList
foreignFiles(const Project &project, const QVector<Body *> &bodies, const NormalMapExport &settings)
{
    QStringList foreign;
    for (const QString &path : checkedPaths(project, bodies, settings)) {
        if (!path.isEmpty() && isForeignFile(path))
            foreign.append(path);
    }
    return foreign;
}

NormalMapResult exportNormalMaps(const Project &project,
                                 const QVector<Body *> &bodies,
                                 const NormalMapExport &settings)
{
    NormalMapFiles files;
    files.paths = checkedPaths(project, bodies, settings);
    files.kept = settings.kept;
    files.kept.add(spriteFiles(project));
    files.replacesForeign = settings.replacesForeign;
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

bool writeImageFile(const QImage &image, const QString &path, const KnownFiles &kept)
{
    return writeImageFile(image, path, QFileInfo(path).suffix().toLower().toLatin1(), kept);
}

bool writeImageFile(const QImage &image,
                    const QString &path,
                    const QByteArray &format,
                    const KnownFiles &kept)
{
    SaveDevice device(path);
    device.setMayReplace([&kept](const QString &target) { return !kept.contains(target); });
    if (!QImageWriter::supportedImageFormats().contains(format) ||
        !device.open(QIODevice::WriteOnly))
        return false;
    const bool isJpeg = format == "jpg" || format == "jpeg";
    QImageWriter writer(&device, format);
    if (isJpeg)
        writer.setQuality(95);
    return writer.write(isJpeg ? overBlack(image) : image) && device.commit();
}
