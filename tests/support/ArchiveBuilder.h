#pragma once

#include <QByteArray>

#include <optional>
#include <vector>

class ProjectArchiveReader;
class QString;

/// What one of an entry's two headers says.
struct BuiltHeader
{
    quint16 flags = 0;
    quint16 method = 0;
    quint32 crc = 0;
    quint32 packedSize = 0;
    quint32 size = 0;
    QByteArray name;
};

/// One entry of an archive, every field free to lie.
struct BuiltEntry
{
    BuiltHeader local;
    BuiltHeader directory;
    QByteArray localExtra;
    QByteArray data;
    QByteArray behindData;
    quint16 madeBy = 3 << 8;
    quint32 attributes = 0100600U << 16;
    quint16 disk = 0;
    std::optional<quint32> localAt; ///< where the directory says that the entry is
};

/// A ZIP archive that is built field by field, to be sound or hostile.
struct BuiltArchive
{
    std::vector<BuiltEntry> entries;
    QByteArray before;
    QByteArray comment;
    QByteArray behindDirectory;
    quint16 disk = 0;
    int directoryShift = 0;
    int directorySizeShift = 0;
    int countShift = 0;
    int countHereShift = 0;

    BuiltArchive &add(const BuiltEntry &entry);
    QByteArray bytes() const;
};

BuiltEntry storedEntry(const QByteArray &name, const QByteArray &content);
BuiltEntry deflatedEntry(const QByteArray &name, const QByteArray &content);
/// As packers of streams write it: sizes behind the data instead of before.
BuiltEntry streamedEntry(const QByteArray &name, const QByteArray &content, bool isSigned);

quint32 crcOf(const QByteArray &content);

/// A folder, a deflated "project.vexml" of 5000 times "x" and a stored "datafiles/1".
BuiltArchive soundArchive();

/// Opens an archive that lies in memory.
bool openBytes(ProjectArchiveReader *reader, const QByteArray &bytes, QString *reason);
