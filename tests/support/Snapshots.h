#pragma once

#include "imaging/AngleImage.h"
#include "support/Documents.h"

struct RecoveryEntry;

/// A checksum of all that a project file holds of @p project, but for its own name and the names of
/// its data files.
QByteArray fingerprintOf(Project &project);
/// The same of the project of a file, or of a snapshot; empty when it can't be read.
QByteArray fingerprintOf(const QString &path);
QByteArray fingerprintOf(const RecoveryEntry &entry);

/// A square surface of random slopes, which takes long to pack.
AngleImage noise(int side, quint32 seed);

/// A project file of so many bodies with noise on squares; their sprites lie in @p folder.
void writeProject(const Folder &folder, const QString &path, int bodies, int side);
