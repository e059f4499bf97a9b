#pragma once

#include <QByteArray>
#include <QString>
#include <QVector>

#include <optional>

class QIODevice;

/// One entry of a checked archive: what it is called, where its bytes lie and what they give.
struct GuardedEntry
{
    QString name; ///< with "/" between its steps and at the end of a directory
    qint64 dataAt = 0;
    qint64 packedSize = 0;
    qint64 size = 0;
    quint32 packedCrc = 0;
    quint32 crc = 0;
    bool isDeflated = false;
    bool isDamaged = false; ///< the bytes don't give what the headers say

    bool isDirectory() const { return name.endsWith(QLatin1Char('/')); }
};

/// How much an archive may unfold to, in bytes. Stored entries are bounded by the file itself.
struct ArchiveLimits
{
    /// The largest surface, four bytes for each of 2^26 pixels and a header of 8, packed at worst.
    qint64 inflatedEntry = 268'517'409;
    qint64 inflatedTotal = 1LL << 32;
};

/// The entries of a ZIP archive in the order of its directory, when its structure is sound: all
/// sizes and places agree, no entry overlaps another one or shares its name. Nothing otherwise;
/// @p reason says why. An entry that has a wrong checksum or does not unfold to just what it claims
/// is marked as damaged, and is not to be given to any other reader.
std::optional<QVector<GuardedEntry>>
checkArchive(QIODevice &archive, QString *reason, const ArchiveLimits &limits = {});

/// The name that stands in an entry as @p stored, or nothing when no sound entry is called so.
std::optional<QString> soundEntryName(const QByteArray &stored);
