#include "model/ArchiveGuard.h"

#include "model/Inflation.h"

#include <QIODevice>
#include <QSet>
#include <QtEndian>

#include <algorithm>
#include <limits>
#include <numeric>

#include <zlib.h>

// The toolkit's ZIP reader checks no checksum and trusts every number of the file: small archives
// make it write past its memory or loop for ever. So nothing reaches it that wasn't checked here.

namespace {

constexpr quint32 endSignature = 0x06054b50;
constexpr quint32 directorySignature = 0x02014b50;
constexpr quint32 localSignature = 0x04034b50;
constexpr quint32 descriptorSignature = 0x08074b50;
constexpr int endSize = 22;
constexpr int directoryHeaderSize = 46;
constexpr int localHeaderSize = 30;

// Bits 1 and 2 tell the packer's effort, 3 that the sizes follow the data, 11 that the name is
// UTF-8. All others, encryption above all, change what the data means.
constexpr quint16 effortFlags = 0x0006;
constexpr quint16 descriptorFlag = 0x0008;
constexpr quint16 knownFlags = effortFlags | descriptorFlag | 0x0800;
constexpr quint16 stored = 0;
constexpr quint16 deflated = 8;

// An entry must fit into a byte array, together with the headers around it.
constexpr qint64 largestEntry = std::numeric_limits<int>::max() - (1 << 20);

quint16 shortAt(const QByteArray &record, int at)
{
    return qFromLittleEndian<quint16>(record.constData() + at);
}

quint32 wordAt(const QByteArray &record, int at)
{
    return qFromLittleEndian<quint32>(record.constData() + at);
}

// What the two headers of an entry must agree upon.
struct Header
{
    quint16 flags = 0;
    quint16 method = 0;
    quint32 crc = 0;
    quint32 packedSize = 0;
    quint32 size = 0;
    QByteArray name;

    bool operator==(const Header &) const = default;
};

Header headerAt(const QByteArray &record, int at)
{
    // Behind the flags come method, time (2), date (2), checksum and the sizes.
    return {shortAt(record, at),
            shortAt(record, at + 2),
            wordAt(record, at + 8),
            wordAt(record, at + 12),
            wordAt(record, at + 16),
            {}};
}

struct DirectoryEntry
{
    Header header;
    qint64 localAt = 0;
};

class Guard
{
public:
    Guard(QIODevice &archive, const ArchiveLimits &limits)
        : m_archive(archive)
        , m_limits(limits)
    {
    }

    bool check()
    {
        return findEnd() && readDirectory() && nameEntries() && placeEntries() && readContents();
    }
    const QString &reason() const { return m_reason; }
    const QVector<GuardedEntry> &entries() const { return m_entries; }

private:
    bool refuse(const char *reason, int entry = -1);
    bool readRecord(qint64 at, qint64 size, QByteArray *record);
    bool findEnd();
    bool readDirectory();
    bool checkHeader(const Header &header, int index);
    bool nameEntries();
    bool placeEntries();
    bool placeEntry(int index, qint64 *end);
    bool skipDescriptor(int index, qint64 *end);
    bool readContents();
    bool readContent(int index, TrialInflation *trial);

    QIODevice &m_archive;
    ArchiveLimits m_limits;
    QString m_reason;
    qint64 m_directoryAt = 0;
    qint64 m_endAt = 0;
    int m_count = 0;
    QVector<DirectoryEntry> m_directory;
    QVector<GuardedEntry> m_entries;
};

bool Guard::refuse(const char *reason, int entry)
{
    m_reason = QLatin1String(reason);
    if (entry >= 0)
        m_reason += QStringLiteral(" (entry %1)").arg(entry);
    return false;
}

bool Guard::readRecord(qint64 at, qint64 size, QByteArray *record)
{
    if (!m_archive.seek(at))
        return false;
    *record = m_archive.read(size);
    return record->size() == size;
}

bool Guard::findEnd()
{
    const qint64 fileSize = m_archive.size();
    constexpr qint64 longestTail = endSize + 0xffff;
    QByteArray tail;
    if (fileSize < endSize || !readRecord(std::max<qint64>(0, fileSize - longestTail),
                                          std::min(fileSize, longestTail),
                                          &tail))
        return refuse("no archive");
    const int at = tail.lastIndexOf(QByteArrayLiteral("PK\x05\x06"), tail.size() - endSize);
    if (at < 0)
        return refuse("no end record");
    const QByteArray end = tail.mid(at);
    Q_ASSERT(wordAt(end, 0) == endSignature);
    if (end.size() != endSize + shortAt(end, 20))
        return refuse("the end record is not at the end");
    m_count = shortAt(end, 10);
    if (wordAt(end, 4) != 0 || shortAt(end, 8) != m_count)
        return refuse("more than one disk");
    m_endAt = fileSize - end.size();
    m_directoryAt = wordAt(end, 16);
    // Also what has its true numbers in records of the 64-bit format fails here: those stand
    // between the directory and the end.
    if (m_directoryAt + wordAt(end, 12) != m_endAt)
        return refuse("the directory does not end at the end record");
    return true;
}

bool Guard::readDirectory()
{
    qint64 at = m_directoryAt;
    m_directory.reserve(m_count);
    for (int index = 0; index < m_count; ++index) {
        QByteArray record;
        if (at + directoryHeaderSize > m_endAt || !readRecord(at, directoryHeaderSize, &record) ||
            wordAt(record, 0) != directorySignature)
            return refuse("damaged directory", index);
        DirectoryEntry entry{headerAt(record, 8), wordAt(record, 42)};
        const int nameSize = shortAt(record, 28);
        const qint64 next =
            at + directoryHeaderSize + nameSize + shortAt(record, 30) + shortAt(record, 32);
        if (next > m_endAt || !readRecord(at + directoryHeaderSize, nameSize, &entry.header.name))
            return refuse("damaged directory", index);
        if (shortAt(record, 34) != 0)
            return refuse("more than one disk", index);
        // The upper half of the attributes is a file mode on the systems 3 (Unix) and 19 (Mac).
        const int system = shortAt(record, 4) >> 8;
        const quint32 kind = system == 3 || system == 19 ? (wordAt(record, 38) >> 28) : 0;
        if (kind != 0 && kind != 010 && kind != 04)
            return refuse("neither a file nor a folder", index);
        if (!checkHeader(entry.header, index))
            return false;
        m_directory.append(entry);
        at = next;
    }
    return at == m_endAt || refuse("the directory has more than its entries");
}

bool Guard::checkHeader(const Header &header, int index)
{
    if (header.flags & ~knownFlags)
        return refuse("encrypted or of an unknown kind", index);
    if (header.method != stored && header.method != deflated)
        return refuse("unknown compression", index);
    if (header.packedSize > largestEntry || header.size > largestEntry)
        return refuse("too large", index);
    if (header.method == stored)
        return header.size == header.packedSize || refuse("two sizes of one stored entry", index);
    if (header.size > m_limits.inflatedEntry || !canInflateTo(header.size, header.packedSize))
        return refuse("unfolds to too much", index);
    m_limits.inflatedTotal -= header.size;
    return m_limits.inflatedTotal >= 0 || refuse("the archive unfolds to too much", index);
}

bool Guard::nameEntries()
{
    QSet<QString> names;
    names.reserve(m_count);
    m_entries.reserve(m_count);
    for (int index = 0; index < m_count; ++index) {
        const Header &header = m_directory.at(index).header;
        const std::optional<QString> name = soundEntryName(header.name);
        if (!name)
            return refuse("bad name", index);
        const bool isDirectory = name->endsWith(QLatin1Char('/'));
        if (isDirectory && header.size != 0)
            return refuse("a folder with content", index);
        const QString plain = isDirectory ? name->chopped(1) : *name;
        if (names.contains(plain))
            return refuse("a name twice", index);
        names.insert(plain);
        m_entries.append(
            {*name, 0, header.packedSize, header.size, 0, header.crc, header.method == deflated});
    }
    return true;
}

bool Guard::placeEntries()
{
    QVector<int> order(m_count);
    std::iota(order.begin(), order.end(), 0);
    std::sort(order.begin(), order.end(), [this](int left, int right) {
        return m_directory.at(left).localAt < m_directory.at(right).localAt;
    });
    qint64 end = 0;
    for (const int index : order) {
        if (m_directory.at(index).localAt < end)
            return refuse("overlapping entries", index);
        if (!placeEntry(index, &end))
            return false;
    }
    return true;
}

bool Guard::placeEntry(int index, qint64 *end)
{
    const DirectoryEntry &entry = m_directory.at(index);
    QByteArray record;
    if (entry.localAt + localHeaderSize > m_directoryAt ||
        !readRecord(entry.localAt, localHeaderSize, &record) || wordAt(record, 0) != localSignature)
        return refuse("no header of its own", index);
    Header local = headerAt(record, 6);
    const qint64 nameAt = entry.localAt + localHeaderSize;
    if (!readRecord(nameAt, shortAt(record, 26), &local.name))
        return refuse("no header of its own", index);
    const bool hasDescriptor = local.flags & descriptorFlag;
    if (hasDescriptor && local.crc == 0 && local.packedSize == 0 && local.size == 0) {
        local.crc = entry.header.crc;
        local.packedSize = entry.header.packedSize;
        local.size = entry.header.size;
    }
    if (local != entry.header)
        return refuse("two headers that differ", index);
    const qint64 dataAt = nameAt + local.name.size() + shortAt(record, 28);
    m_entries[index].dataAt = dataAt;
    *end = dataAt + local.packedSize;
    if (*end > m_directoryAt)
        return refuse("reaches into the directory", index);
    return !hasDescriptor || skipDescriptor(index, end);
}

// Programs that pack a stream write checksum and sizes behind the data, most with a signature.
bool Guard::skipDescriptor(int index, qint64 *end)
{
    const Header &header = m_directory.at(index).header;
    QByteArray record;
    const qint64 size = std::min<qint64>(16, m_directoryAt - *end);
    if (size < 12 || !readRecord(*end, size, &record))
        return refuse("no sizes behind the data", index);
    for (const int at : {4, 0}) {
        const bool isSigned = at == 4 && wordAt(record, 0) == descriptorSignature;
        if ((at == 0 || isSigned) && record.size() >= at + 12 && wordAt(record, at) == header.crc &&
            wordAt(record, at + 4) == header.packedSize && wordAt(record, at + 8) == header.size) {
            *end += at + 12;
            return true;
        }
    }
    return refuse("other sizes behind the data", index);
}

bool Guard::readContents()
{
    TrialInflation trial;
    for (int index = 0; index < m_count; ++index) {
        if (!readContent(index, &trial))
            return false;
    }
    return true;
}

bool Guard::readContent(int index, TrialInflation *trial)
{
    GuardedEntry &entry = m_entries[index];
    if (!m_archive.seek(entry.dataAt) || (entry.isDeflated && !trial->start(entry.size)))
        return refuse("unreadable", index);
    constexpr qint64 pieceSize = 1 << 16;
    for (qint64 left = entry.packedSize; left > 0;) {
        const QByteArray piece = m_archive.read(std::min(left, pieceSize));
        if (piece.isEmpty())
            return refuse("unreadable", index);
        left -= piece.size();
        entry.packedCrc =
            static_cast<quint32>(crc32(entry.packedCrc,
                                       reinterpret_cast<const Bytef *>(piece.constData()),
                                       static_cast<uInt>(piece.size())));
        if (entry.isDeflated && !entry.isDamaged)
            entry.isDamaged = !trial->feed(piece);
    }
    if (entry.isDeflated)
        entry.isDamaged = entry.isDamaged || !trial->gaveAll() || trial->crc() != entry.crc;
    else
        entry.isDamaged = entry.packedCrc != entry.crc;
    return true;
}

// Names are UTF-8 whether marked as such or not; those that can't be are taken byte by byte, which
// keeps them apart. The locale has no say, so that an archive reads alike everywhere.
QString decodeName(const QByteArray &name)
{
    QString text = QString::fromUtf8(name);
    return text.toUtf8() == name ? text : QString::fromLatin1(name);
}

} // namespace

std::optional<QString> soundEntryName(const QByteArray &stored)
{
    const auto isBad = [](char c) { return uchar(c) < ' ' || c == '\x7f' || c == '\\'; };
    if (std::any_of(stored.begin(), stored.end(), isBad))
        return {};
    QByteArray steps = stored.endsWith('/') ? stored.chopped(1) : stored;
    if (steps.startsWith("./"))
        steps.remove(0, 2);
    for (const QByteArray &step : steps.split('/')) {
        if (step.isEmpty() || step == "." || step == "..")
            return {};
    }
    QString name = decodeName(stored);
    // As the toolkit's reader gives it: without dots at the very beginning.
    while (name.startsWith(QLatin1Char('.')) || name.startsWith(QLatin1Char('/')))
        name.remove(0, 1);
    if (name.isEmpty())
        return {};
    return name;
}

std::optional<QVector<GuardedEntry>>
checkArchive(QIODevice &archive, QString *reason, const ArchiveLimits &limits)
{
    Guard guard(archive, limits);
    if (guard.check())
        return guard.entries();
    *reason = guard.reason();
    return {};
}
