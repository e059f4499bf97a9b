#include "cli/LitBody.h"

#include "base/Error.h"
#include "cli/OpenedProject.h"
#include "imaging/NormalEncoding.h"
#include "model/NormalMapExport.h"
#include "model/Project.h"
#include "model/Sprite.h"
#include "model/properties/PropertyT.h"

QString loadForLight(const Body &body)
{
    body.loadSprite();
    const QString sprite = body.sprite().filename().value().path();
    if (!body.sprite().problem().isEmpty())
        return QStringLiteral("its sprite '%1' can't be read: %2")
            .arg(sprite, body.sprite().problem());
    if (!body.sprite().isLoaded())
        return QStringLiteral("its sprite '%1' is missing; bring it back, or find it with repair")
            .arg(sprite);
    if (body.sprite().isWrongSized())
        return QStringLiteral("its sprite '%1' has another size than its surface; bring the old "
                              "one back, or clear the surface with repair")
            .arg(sprite);
    return {};
}

QImage litBody(const Body &body, const Light &light)
{
    const QImage &sprite = body.sprite().image();
    return litImage(sprite, exportedNormalMap(body.surface(), sprite), light);
}

QImage litSurface(const AngleImage &surface, const Light &light)
{
    QImage clay(surface.size(), QImage::Format_ARGB32);
    clay.fill(QColor(128, 128, 128));
    return litImage(clay, exportedNormalMap(surface, clay), light);
}

void writePicture(const Project &project,
                  const QImage &picture,
                  const QString &path,
                  const QByteArray &format)
{
    if (spriteFiles(project).contains(path))
        throw Error(QStringLiteral("'%1' is a sprite of the project and stays as it is: choose "
                                   "another name")
                        .arg(path));
    const KnownFiles sources = sourceFiles(project);
    if (sources.contains(path))
        throw Error(QStringLiteral("'%1' is the project itself: choose another name").arg(path));
    if (!writeImageFile(picture, path, format, sources))
        throw Error(QStringLiteral("'%1' can't be written: name a file in a folder that exists and "
                                   "that you may write to")
                        .arg(path));
}
