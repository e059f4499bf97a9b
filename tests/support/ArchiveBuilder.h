#pragma once

#include <QByteArray>

#include <vector>

class ProjectArchiveReader;
class QString;

/// One entry of an archive, free to lie.
struct BuiltEntry
{
    QByteArray name;
    QByteArray data;
    QByteArray numbers; ///< checksum, packed size and size
    char method = 0;
    char flags = 0;
    QByteArray extra = {};      ///< a field of the local header
    QByteArray descriptor = {}; ///< behind the data; the local header then holds no numbers
};

/// A ZIP archive that is built field by field, to be sound or hostile.
struct BuiltArchive
{
    std::vector<BuiltEntry> entries;

    BuiltArchive &add(const BuiltEntry &entry);
    QByteArray bytes() const;
};

BuiltEntry storedEntry(const QByteArray &name, const QByteArray &content);
BuiltEntry deflatedEntry(const QByteArray &name, const QByteArray &content);
/// As packers of streams write it: sizes behind the data instead of before.
BuiltEntry streamedEntry(const QByteArray &name, const QByteArray &content, bool isSigned);

/// A folder, a deflated "project.vexml" of 5000 times "x" and a stored "datafiles/1".
BuiltArchive soundArchive();

/// Opens an archive that lies in memory.
bool openBytes(ProjectArchiveReader *reader, const QByteArray &bytes, QString *reason);
