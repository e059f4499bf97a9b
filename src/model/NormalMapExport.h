#pragma once

#include "base/GFileName.h"
#include "model/NormalMapFile.h"

#include <QSet>
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
    QSet<QString> protectedPaths; ///< files, without links, that no map may replace
    int jobs = 0;                 ///< bodies that are worked on at a time; 0 for one a processor

    /// Called with the path of each map once it is written, in list order.
    std::function<void(const QString &path)> written;
    /// Called with the number of bodies done; false cancels.
    std::function<bool(int done)> progress;
};

/// The sprites of a project, without links: no normal map may take their place.
QSet<QString> spritePaths(const Project &project);

/// The file of a body's normal map; empty for a body without a sprite.
QString normalMapPath(const Body &body, const NormalMapExport &settings);

/// Writes the normal maps of @p bodies as PNG files, flat under fully transparent sprite pixels.
/// Maps are computed and encoded side by side on the global thread pool, a few at a time; files
/// appear in list order, each whole. Throws Error, before anything is written, when two maps would
/// go to one file or one to a sprite of @p project.
NormalMapResult exportNormalMaps(const Project &project,
                                 const QVector<Body *> &bodies,
                                 const NormalMapExport &settings);

/// Writes @p image to @p path in the format that the extension names, or in @p format, in one move.
/// A JPEG gets its colours over black. False when that fails; an older file is then untouched.
bool writeImageFile(const QImage &image, const QString &path);
bool writeImageFile(const QImage &image, const QString &path, const QByteArray &format);
