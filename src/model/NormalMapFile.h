#pragma once

#include "model/KnownFiles.h"

#include <QByteArray>
#include <QString>
#include <QStringList>

#include <functional>

class AngleImage;
class QImage;

/// Of the PNG writer. Measured on the sample project's maps and one of 1024×1024 with grain,
/// against the writer's default: 50 gives the same size in 0.4 of the time, 60 a tenth more bytes
/// in 0.3, 80 14 % more in 0.2, 90 and above twice as many; 20 and below gain half a percent in
/// twice the time.
constexpr int normalMapPngQuality = 50;

/// The PNG file of a surface's normal map, flat under the fully transparent pixels of @p sprite. It
/// bears a mark in its text. Empty when there is nothing to encode.
QByteArray encodedNormalMap(const AngleImage &surface, const QImage &sprite);

/// The name of that text.
QByteArray normalMapKey();
/// True for an image that was read from a file of encodedNormalMap().
bool isNormalMap(const QImage &image);
/// True for such a file itself, told by its first bytes.
bool isNormalMapFile(const QString &path);

/// A normal map as a file is to hold it, or why there is none.
struct EncodedNormalMap
{
    QByteArray png;
    QString failure; ///< a message; a general one is made when nothing tells why png is empty
    QString skipped; ///< a message: the map is left out, and that is no failure
};

/// Normal maps to be written.
struct NormalMapFiles
{
    QStringList paths;
    /// Called on the caller's thread, a few maps ahead of the one that is written; what it returns
    /// runs on the global thread pool.
    std::function<std::function<EncodedNormalMap()>(int index)> work;
    int jobs = 0;                 ///< maps that are worked on at a time; 0 for one a processor
    bool goesOn = false;          ///< after a failure, else the first one ends the writing
    KnownFiles kept;              ///< files that no map may replace
    bool replacesForeign = false; ///< also files that are no normal maps of this program

    // All optional, called on the caller's thread in list order.
    std::function<void(const QString &path)> written;
    std::function<void(const QString &message)> skipped;
    std::function<bool(int done)> progress; ///< after each map; false cancels
};

struct NormalMapResult
{
    QStringList failures; ///< a message each, in list order
    bool cancelled = false;
};

/// Makes maps side by side and writes them in list order, each in one move, folders made as needed.
NormalMapResult writeNormalMaps(const NormalMapFiles &files);

/// The message for a map that was not written.
QString normalMapFailure(const QString &path);

/// Throws Error that names the first of @p paths that is among @p taken or that a path before it
/// leads to. Empty paths are passed over.
void refuseClashes(const QStringList &paths, KnownFiles taken);

/// True when there is a file at @p path that is no normal map of this program: somebody's work.
bool isForeignFile(const QString &path);
