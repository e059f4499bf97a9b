#pragma once

#include <QString>
#include <QStringList>

/// The pictures (*.jpeg, *.jpg and *.png, in any case) that lie in @p folders, as paths below them.
/// Folder by folder; inside one by name, numbers by value, alike in every language. Folders that
/// are missing, empty or unnamed add nothing.
QStringList findPatterns(const QStringList &folders);

/// The folder of the patterns that come with the program.
QString builtInPatterns();
