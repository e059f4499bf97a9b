#include "model/ProjectArchive.h"

#include <QBuffer>
#include <QCoreApplication>
#include <QFile>
#include <QFileInfo>
#include <QtEndian>

#include <limits>
#include <utility>

#include <private/qzipreader_p.h>
#include <private/qzipwriter_p.h>
#include <zlib.h>

namespace {

constexpr int localHeaderSize = 30;
constexpr int directoryHeaderSize = 46;
constexpr int endSize = 22;

quint32 checksum(const QByteArray &bytes)
{
    return static_cast<quint32>(crc32(
        0, reinterpret_cast<const Bytef *>(bytes.constData()), static_cast<uInt>(bytes.size())));
}

void appendShort(QByteArray *record, quint16 value)
{
    value = qToLittleEndian(value);
    record->append(reinterpret_cast<const char *>(&value), sizeof value);
}

void appendWord(QByteArray *record, quint32 value)
{
    value = qToLittleEndian(value);
    record->append(reinterpret_cast<const char *>(&value), sizeof value);
}

// The part that both headers of an entry share, from the version to the length of the name.
void appendHeader(QByteArray *record, const GuardedEntry &entry, const QByteArray &name)
{
    appendShort(record, 20);
    appendShort(record, 0);
    appendShort(record, entry.isDeflated ? 8 : 0);
    appendWord(record, 0x00210000); // the first day that the format knows
    appendWord(record, entry.crc);
    appendWord(record, static_cast<quint32>(entry.packedSize));
    appendWord(record, static_cast<quint32>(entry.size));
    appendShort(record, static_cast<quint16>(name.size()));
}

// An archive of this one entry. The toolkit's reader looks entries up one by one by their names in
// the locale's encoding and counts in 32 signed bits; of one entry with a plain name it can read
// any, and in time that doesn't grow with the number of entries.
QByteArray archiveOf(const GuardedEntry &entry, const QByteArray &packed)
{
    const QByteArray name = "entry";
    QByteArray archive;
    archive.reserve(packed.size() + 1024);
    archive.append("PK\x03\x04");
    appendHeader(&archive, entry, name);
    appendShort(&archive, 0);
    archive += name;
    archive += packed;

    const int directoryAt = archive.size();
    archive.append("PK\x01\x02");
    appendShort(&archive, (3 << 8) | 20);
    appendHeader(&archive, entry, name);
    archive.append(8, '\0'); // extra field, comment, disk, kind
    appendWord(&archive, 0100600U << 16);
    appendWord(&archive, 0);
    archive += name;

    const int directorySize = archive.size() - directoryAt;
    archive.append("PK\x05\x06");
    appendWord(&archive, 0);
    appendShort(&archive, 1);
    appendShort(&archive, 1);
    appendWord(&archive, static_cast<quint32>(directorySize));
    appendWord(&archive, static_cast<quint32>(directoryAt));
    appendShort(&archive, 0);
    return archive;
}

QByteArray unpack(const GuardedEntry &entry, QByteArray packed)
{
    // A large surface stands twice in memory, not three times.
    packed = archiveOf(entry, packed);
    QBuffer buffer(&packed);
    buffer.open(QIODevice::ReadOnly);
    const QZipReader reader(&buffer);
    return reader.fileData(QStringLiteral("entry"));
}

} // namespace

ProjectArchiveReader::ProjectArchiveReader() = default;
ProjectArchiveReader::~ProjectArchiveReader() = default;

bool ProjectArchiveReader::open(const QString &path, QString *reason)
{
    // Opening a pipe would wait for somebody to write into it.
    if (!QFileInfo(path).isFile()) {
        *reason = QStringLiteral("not a file");
        return false;
    }
    auto file = std::make_unique<QFile>(path);
    if (!file->open(QIODevice::ReadOnly)) {
        *reason = file->errorString();
        return false;
    }
    return open(std::move(file), reason);
}

bool ProjectArchiveReader::open(std::unique_ptr<QIODevice> archive, QString *reason)
{
    m_archive = std::move(archive);
    m_places.clear();
    reason->clear();
    m_entries = checkArchive(*m_archive, reason).value_or(QVector<GuardedEntry>());
    for (int place = 0; place < m_entries.size(); ++place)
        m_places.insert(m_entries.at(place).name, place);
    if (m_entries.isEmpty() && reason->isEmpty())
        *reason = QStringLiteral("no entries");
    return !m_entries.isEmpty();
}

QStringList ProjectArchiveReader::entryNames() const
{
    QStringList names;
    names.reserve(m_entries.size());
    for (const GuardedEntry &entry : m_entries)
        names.append(entry.name);
    return names;
}

const GuardedEntry *ProjectArchiveReader::find(const QString &name) const
{
    const auto place = m_places.constFind(name);
    return place == m_places.constEnd() ? nullptr : &m_entries.at(*place);
}

QByteArray ProjectArchiveReader::packedBytes(const GuardedEntry &entry)
{
    return m_archive->seek(entry.dataAt) ? m_archive->read(entry.packedSize) : QByteArray();
}

bool ProjectArchiveReader::isDamaged(const QString &name) const
{
    const GuardedEntry *entry = find(name);
    return entry && entry->isDamaged;
}

std::optional<QByteArray> ProjectArchiveReader::content(const QString &name)
{
    const GuardedEntry *entry = find(name);
    if (!entry || entry->isDamaged)
        return {};
    QByteArray packed = packedBytes(*entry);
    // The file may have been written to since it was checked.
    if (packed.size() != entry->packedSize || checksum(packed) != entry->packedCrc)
        return {};
    if (entry->size == 0)
        return QByteArray("");
    QByteArray content = unpack(*entry, std::move(packed));
    if (content.size() != entry->size || checksum(content) != entry->crc)
        return {};
    return content;
}

QByteArray ProjectArchiveReader::remains(const QString &name)
{
    const GuardedEntry *entry = find(name);
    return entry && !entry->isDeflated ? packedBytes(*entry) : QByteArray();
}

ProjectArchiveWriter::ProjectArchiveWriter(QIODevice &device)
    : m_device(device)
    , m_zip(std::make_unique<QZipWriter>(&device))
{
    m_zip->setCompressionPolicy(QZipWriter::NeverCompress);
}

ProjectArchiveWriter::~ProjectArchiveWriter() = default;

bool ProjectArchiveWriter::refuse(const char *reason)
{
    m_reason = QCoreApplication::translate("ProjectArchive", reason);
    return false;
}

// The toolkit's writer cuts every number to what its field holds, without a word.
bool ProjectArchiveWriter::reserve(const QString &name, bool isDirectory, qint64 size)
{
    constexpr int mostEntries = 0xffff;
    constexpr int longestName = 0xffff;
    constexpr qint64 largestArchive = 0xffffffff;
    if (!m_reason.isEmpty())
        return false;
    const QByteArray stored = name.toUtf8();
    if (name.endsWith(QLatin1Char('/')) != isDirectory || soundEntryName(stored) != name ||
        stored.size() > longestName)
        return refuse(QT_TRANSLATE_NOOP("ProjectArchive", "the name of an entry can't be stored"));
    const QString plain = isDirectory ? name.chopped(1) : name;
    if (m_names.contains(plain))
        return refuse(QT_TRANSLATE_NOOP("ProjectArchive", "two entries have the same name"));
    if (m_names.size() == mostEntries)
        return refuse(
            QT_TRANSLATE_NOOP("ProjectArchive", "an archive holds at most 65535 entries"));
    const qint64 dataEnd = m_dataEnd + localHeaderSize + stored.size() + size;
    const qint64 directorySize = m_directorySize + directoryHeaderSize + stored.size();
    if (dataEnd + directorySize + endSize > largestArchive)
        return refuse(QT_TRANSLATE_NOOP("ProjectArchive", "an archive holds at most 4 GiB"));
    m_names.insert(plain);
    m_dataEnd = dataEnd;
    m_directorySize = directorySize;
    return true;
}

bool ProjectArchiveWriter::addDirectory(const QString &name)
{
    if (!reserve(name, true, 0))
        return false;
    m_zip->setCreationPermissions(QFile::ReadUser | QFile::WriteUser | QFile::ExeUser);
    m_zip->addDirectory(name);
    return true;
}

bool ProjectArchiveWriter::addFile(const QString &name, const QByteArray &content)
{
    if (!reserve(name, false, content.size()))
        return false;
    m_zip->setCreationPermissions(QFile::ReadUser | QFile::WriteUser);
    m_zip->addFile(name, content);
    return true;
}

bool ProjectArchiveWriter::close()
{
    const bool isWritten = m_device.isWritable();
    m_zip->close();
    if (!m_reason.isEmpty())
        return false;
    // Its status stays "no error" on a full disk; the size tells.
    if (!isWritten || m_device.size() != m_dataEnd + m_directorySize + endSize)
        return refuse(
            QT_TRANSLATE_NOOP("ProjectArchive", "the archive could not be written completely"));
    return true;
}
