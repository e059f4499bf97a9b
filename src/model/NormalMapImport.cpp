#include "model/NormalMapImport.h"

#include "imaging/NormalEncoding.h"
#include "model/Body.h"
#include "model/ImageReading.h"
#include "model/Sprite.h"
#include "model/SpriteFiles.h"
#include "model/properties/PropertyT.h"

#include <QDir>
#include <QFileInfo>

ImportedNormalMap readNormalMap(const QString &path, const QSize &size)
{
    ImportedNormalMap map;
    map.path = path;
    const ReadImage read = readImageFile(path);
    if (read.image.isNull())
        qWarning("%s: %s", qUtf8Printable(path), qUtf8Printable(read.problem));
    map.size = read.image.size();
    if (read.image.isNull() || map.size != size)
        return map;
    fromNormalMap(read.image, map.surface);
    map.judgement = judgeNormalMap(read.image);
    return map;
}

QStringList normalMapPaths(const Body &body, const QString &folder, const QString &suffix)
{
    const GFileName &sprite = body.sprite().filename().value();
    if (sprite.isEmpty())
        return {};
    const QFileInfo file(sprite.path());
    QStringList names{normalMapFileName(file.fileName(), suffix)};
    for (const char *extension : {".png", ".jpg", ".jpeg"})
        names.append(file.completeBaseName() + suffix + QLatin1String(extension));
    names.removeDuplicates();
    QStringList paths;
    bool isPlainNameTaken = false;
    for (const QString &name : std::as_const(names)) {
        const QString path = QDir(folder).filePath(name);
        if (GFileName(path).canonicalPath() != sprite.canonicalPath())
            paths.append(path);
        else
            isPlainNameTaken = suffix.isEmpty();
    }
    return isPlainNameTaken ? normalMapPaths(body, folder, QStringLiteral("_n")) : paths;
}
