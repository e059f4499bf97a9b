#pragma once

#include <QString>

// For files that were opened without a name (O_TMPFILE). The functions return the error's number,
// 0 for none.

/// Names the file behind @p handle.
int nameFile(int handle, const QString &name);

/// Replaces the file @p target by the one behind @p handle, which is called @p name for a moment.
/// Nothing of that name stays after a failure, or when the program alone is killed meanwhile. When
/// the process that does the work is killed together with it, the file may stay under that name.
int nameAndMoveFile(int handle, const QString &name, const QString &target);
