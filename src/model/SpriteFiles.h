#pragma once

#include <QString>
#include <QStringList>

/// The image files that a list of files and folders stands for.
struct SpriteFiles
{
    QStringList files;   ///< absolute paths, in the order in which they become bodies
    QStringList skipped; ///< normal maps of other sprites, left out
    /// Folders that can't be listed, what is named as an image but is no file, and images and
    /// folders with names that are not UTF-8, as shownBytes() gives them.
    QStringList unreadable;
};

/// Replaces every folder in @p paths by the PNG and JPEG files in it and below, names in natural
/// order (2 before 10), the files of a folder before its folders. A file that has exactly the name
/// of another one's normal map with @p suffix is left out. Files are taken as they are named.
SpriteFiles findSpriteFiles(const QStringList &paths, const QString &suffix);

/// The name of the normal map of the sprite file @p fileName: the suffix before the extension.
QString normalMapFileName(const QString &fileName, const QString &suffix);
