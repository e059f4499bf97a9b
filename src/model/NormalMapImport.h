#pragma once

#include "imaging/AngleImage.h"
#include "imaging/NormalMapJudgement.h"

#include <QSize>
#include <QString>
#include <QStringList>

class Body;

/// A normal map as it was read for a body.
struct ImportedNormalMap
{
    QString path;
    QSize size;         ///< of the image, empty when it couldn't be read
    AngleImage surface; ///< null unless the image has the size that was asked for
    NormalMapJudgement judgement;
};

/// Reads and judges the image at @p path for a body of @p size. May run on any thread.
ImportedNormalMap readNormalMap(const QString &path, const QSize &size);

/// The files in @p folder that may be the body's normal map, the name of an export first; none for
/// a body without a sprite's name. A sprite is never its own normal map: an empty suffix counts as
/// "_n" where the plain name is the sprite's.
QStringList normalMapPaths(const Body &body, const QString &folder, const QString &suffix);
