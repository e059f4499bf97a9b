#pragma once

#include <QMetaType>
#include <QString>

/// A path of a file or folder, absolute and without "." and ".." steps, or empty.
class GFileName
{
public:
    GFileName() = default;
    /// Relative paths count from the current folder; an empty one stays empty.
    explicit GFileName(const QString &path);
    /// The file that @p text, relative to @p folder or absolute, names; an empty text stays empty.
    static GFileName fromRelative(const QString &text, const QString &folder);

    bool isEmpty() const { return m_path.isEmpty(); }
    const QString &path() const { return m_path; }
    /// The file's name without its folders.
    QString fileName() const;
    /// The path without links, as far as files and folders exist: equal for equal files.
    QString canonicalPath() const;
    /// The folder of the file itself, behind all links: what relative paths in it count from.
    QString canonicalFolder() const;
    /// The path relative to @p folder (canonical), "./" for the folder itself, empty when empty.
    /// Links are followed where only that leads to a path inside the folder.
    QString relativeTo(const QString &folder) const;

    bool operator==(const GFileName &) const = default;

private:
    QString m_path;
};

Q_DECLARE_METATYPE(GFileName)
