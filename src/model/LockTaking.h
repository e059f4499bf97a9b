#pragma once

#include <QtGlobal>

QT_BEGIN_NAMESPACE
class QLockFile;
QT_END_NAMESPACE

/// Tries to take @p lock, at once; however old it is, it is taken over only when its holder on this
/// computer is dead.
bool takeLock(QLockFile &lock);
