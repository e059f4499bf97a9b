#pragma once

#include <QString>

/// A tool tip that shows @p text, names of files in it, as it stands and line by line.
QString plainToolTip(const QString &text);
