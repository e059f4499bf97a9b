#pragma once

#include <QString>

/// The path of a file that is installed beside the program, wherever that was moved to: @p name
/// below its folder of data. Empty when it is not there, as in a build folder.
QString installedFile(const QString &name);
