#pragma once

#include "model/ArchiveGuard.h"

#include <QByteArray>
#include <QHash>
#include <QSet>
#include <QString>
#include <QStringList>
#include <QVector>

#include <memory>
#include <optional>

class QIODevice;
class QZipWriter;

/// Reads the entries of an archive that was checked as a whole on opening. Owned by whoever loads.
class ProjectArchiveReader
{
public:
    ProjectArchiveReader();
    ~ProjectArchiveReader();
    ProjectArchiveReader(const ProjectArchiveReader &) = delete;
    ProjectArchiveReader &operator=(const ProjectArchiveReader &) = delete;

    /// False, with the @p reason, for what is no regular file, can't be read or isn't sound.
    bool open(const QString &path, QString *reason);
    /// The same for an archive elsewhere: @p archive is opened for reading and random access.
    bool open(std::unique_ptr<QIODevice> archive, QString *reason);

    /// In the archive's order; directories end in "/".
    QStringList entryNames() const;
    /// True for an entry whose bytes don't give what the archive says of them.
    bool isDamaged(const QString &name) const;
    /// Nothing for an entry that isn't there, is damaged or doesn't read as it did on opening.
    std::optional<QByteArray> content(const QString &name);
    /// What is left of a damaged entry: its bytes as they stand there; nothing of a deflated one.
    QByteArray remains(const QString &name);

private:
    const GuardedEntry *find(const QString &name) const;
    QByteArray packedBytes(const GuardedEntry &entry);

    std::unique_ptr<QIODevice> m_archive;
    QVector<GuardedEntry> m_entries;
    QHash<QString, int> m_places;
};

/// Writes an archive of stored entries that ProjectArchiveReader can open. The device belongs to
/// the caller, is open for writing, and is closed by close().
class ProjectArchiveWriter
{
public:
    explicit ProjectArchiveWriter(QIODevice &device);
    ~ProjectArchiveWriter();
    ProjectArchiveWriter(const ProjectArchiveWriter &) = delete;
    ProjectArchiveWriter &operator=(const ProjectArchiveWriter &) = delete;

    /// @p name ends in "/".
    bool addDirectory(const QString &name);
    /// False, with nothing written, for what such an archive can't hold: see reason(). No entry is
    /// taken any more from then on, and close() fails.
    bool addFile(const QString &name, const QByteArray &content);
    bool close();
    /// Why an entry was refused or the archive isn't complete.
    const QString &reason() const { return m_reason; }

private:
    bool reserve(const QString &name, bool isDirectory, qint64 size);
    bool refuse(const char *reason);

    QIODevice &m_device;
    std::unique_ptr<QZipWriter> m_zip;
    QSet<QString> m_names;
    qint64 m_dataEnd = 0;
    qint64 m_directorySize = 0;
    QString m_reason;
};
