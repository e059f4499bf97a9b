#pragma once

#include <QSet>
#include <QString>
#include <QStringList>

/// A set of files, known by their paths without links and by what the system has there: a second
/// mount or a hard link of one of them is it, too.
class KnownFiles
{
public:
    void add(const QString &path);
    void add(const KnownFiles &files) { m_keys += files.m_keys; }
    /// Adds a file that is to be made or replaced: what is there now under further names is not in
    /// the set.
    void addPlace(const QString &path);
    bool contains(const QString &path) const;

private:
    QSet<QString> m_keys;
};
