#pragma once

#include "imaging/PoolQueue.h"
#include "model/ImageReading.h"

#include <QHash>
#include <QStringList>
#include <QVector>

class Body;
class Project;

/// Reads the image files at @p paths on the pool, in their order.
PoolQueue<ReadImage> readImages(const QStringList &paths);

/// The sprite files of @p bodies.
QStringList spritePaths(const QVector<Body *> &bodies);
/// The bodies of @p project whose sprites could not be loaded.
QVector<Body *> bodiesWithoutSprite(const Project &project);
/// Those of @p bodies whose sprites have another size than the painted surface.
QVector<Body *> resizedAmong(const QVector<Body *> &bodies);

/// Loads the sprites of @p bodies, their sizes checked against the painted surfaces.
void loadSprites(const QVector<Body *> &bodies);
/// The same for those that got another file, or their surface another size, as by undo.
void loadOutdatedSprites(const Project &project);
/// Shows what was read of sprite files, by their paths, where it is not shown yet; surfaces stay as
/// they are. Returns the bodies that show something else now.
QVector<Body *> reloadSprites(const Project &project, const QHash<QString, ReadImage> &read);
