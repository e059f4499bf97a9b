#pragma once

#include <QString>

/// What the system answers to a request for the exclusive lock of an open file. The system gives
/// the lock up with the file, also when its holder is killed.
enum class KernelLock {
    Taken,
    InUse,      ///< another open file, here or in another program, has it
    Unsupported ///< it can't tell: the file system keeps no locks, or none for such a handle
};

/// Asks for the exclusive lock of the file behind @p handle, at once.
KernelLock lockHandle(int handle);

/// True when @p path, links not followed, still names the file behind @p handle.
bool isSameFile(int handle, const QString &path);

/// Removes the file @p path unless it is locked.
void removeIfFree(const QString &path);

/// Tells a process from others that had its number before; empty where the system does not say.
QString processStart(qint64 process);

/// True while @p process runs on this computer and began at @p start, if that is known.
bool isRunning(qint64 process, const QString &start);
