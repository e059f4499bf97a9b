#pragma once

#include "base/GFileName.h"
#include "model/NormalMapFile.h"

#include <QString>
#include <QStringList>
#include <QVector>

#include <functional>

class Body;
class Project;

/// Where the normal maps of an export go, and what happens when one fails.
struct NormalMapExport
{
    GFileName directory; ///< beside each sprite when empty
    QString suffix;
    bool goesOn = false; ///< after a body that fails, else the first failure ends the export
    KnownFiles kept;     ///< files besides the project's sprites that no map may replace
    bool replacesForeign = false; ///< also files that are no normal maps of this program
    int jobs = 0;                 ///< bodies that are worked on at a time; 0 for one a processor

    /// Called with the path of each map once it is written, in list order.
    std::function<void(const QString &path)> written;
    /// Called with the number of bodies done; false cancels.
    std::function<bool(int done)> progress;
};

/// The sprites of a project: no normal map may take their place.
KnownFiles spriteFiles(const Project &project);
/// What a picture of a project may not replace: its sprites and its own file.
KnownFiles sourceFiles(const Project &project);

/// The file of a body's normal map; empty for a body without a sprite.
QString normalMapPath(const Body &body, const NormalMapExport &settings);

/// The files that an export would replace and that are no normal maps of this program. Throws Error
/// where exportNormalMaps() does.
QStringList foreignFiles(const Project &project,
                         const QVector<Body *> &bodies,
                         const NormalMapExport &settings);

/// Writes the normal maps of @p bodies as PNG files, flat under fully transparent sprite pixels.
/// Maps are computed and encoded side by side on the global thread pool, a few at a time; files
/// appear in list order, each whole. Throws Error, before anything is written, when two maps would
/// go to one file or one to a sprite of @p project.
NormalMapResult exportNormalMaps(const Project &project,
                                 const QVector<Body *> &bodies,
                                 const NormalMapExport &settings);

/// Writes @p image to @p path in the format that the extension names, or in @p format, in one move.
/// A JPEG gets its colours over black. False when that fails, or would replace one of the @p kept
/// files; an older file is then untouched.
bool writeImageFile(const QImage &image, const QString &path, const KnownFiles &kept = {});
bool writeImageFile(const QImage &image,
                    const QString &path,
                    const QByteArray &format,
                    const KnownFiles &kept);
