#include "support/ArchiveBuilder.h"

#include "model/ProjectArchive.h"

#include <QBuffer>
#include <QtEndian>

#include <zlib.h>

namespace {

template <typename T>
QByteArray bytesOf(T value)
{
    value = qToLittleEndian(value);
    return QByteArray(reinterpret_cast<const char *>(&value), sizeof value);
}

QByteArray commonPart(const BuiltHeader &header, int extraSize)
{
    return bytesOf<quint16>(20) + bytesOf(header.flags) + bytesOf(header.method) +
           bytesOf<quint32>(0x00210000) + bytesOf(header.crc) + bytesOf(header.packedSize) +
           bytesOf(header.size) + bytesOf(quint16(header.name.size())) +
           bytesOf(quint16(extraSize));
}

QByteArray deflate(const QByteArray &content)
{
    // A zlib stream without its header and checksum.
    const QByteArray packed = qCompress(content.isEmpty() ? QByteArray("x") : content);
    return content.isEmpty() ? QByteArray("\x03\x00", 2) : packed.mid(6, packed.size() - 10);
}

} // namespace

quint32 crcOf(const QByteArray &content)
{
    return quint32(
        crc32(0, reinterpret_cast<const Bytef *>(content.constData()), uInt(content.size())));
}

BuiltEntry storedEntry(const QByteArray &name, const QByteArray &content)
{
    const auto size = quint32(content.size());
    BuiltEntry entry;
    entry.local = {0, 0, crcOf(content), size, size, name};
    entry.directory = entry.local;
    entry.data = content;
    return entry;
}

BuiltEntry deflatedEntry(const QByteArray &name, const QByteArray &content)
{
    BuiltEntry entry = storedEntry(name, content);
    entry.data = deflate(content);
    entry.local.method = 8;
    entry.local.packedSize = quint32(entry.data.size());
    entry.directory = entry.local;
    return entry;
}

BuiltEntry streamedEntry(const QByteArray &name, const QByteArray &content, bool isSigned)
{
    BuiltEntry entry = deflatedEntry(name, content);
    entry.directory.flags = 8;
    entry.local = {8, 8, 0, 0, 0, name};
    entry.behindData = (isSigned ? QByteArray("PK\x07\x08") : QByteArray()) +
                       bytesOf(entry.directory.crc) + bytesOf(entry.directory.packedSize) +
                       bytesOf(entry.directory.size);
    return entry;
}

BuiltArchive &BuiltArchive::add(const BuiltEntry &entry)
{
    entries.push_back(entry);
    return *this;
}

QByteArray BuiltArchive::bytes() const
{
    QByteArray file = before;
    QByteArray directory;
    for (const BuiltEntry &entry : entries) {
        directory += "PK\x01\x02" + bytesOf(entry.madeBy) + commonPart(entry.directory, 0) +
                     bytesOf<quint16>(0) + bytesOf(entry.disk) + bytesOf<quint16>(0) +
                     bytesOf(entry.attributes) + bytesOf(entry.localAt.value_or(file.size())) +
                     entry.directory.name;
        file += "PK\x03\x04" + commonPart(entry.local, entry.localExtra.size()) + entry.local.name +
                entry.localExtra + entry.data + entry.behindData;
    }
    const auto count = quint16(entries.size());
    return file + directory + behindDirectory + "PK\x05\x06" + bytesOf(disk) + bytesOf<quint16>(0) +
           bytesOf(quint16(count + countHereShift)) + bytesOf(quint16(count + countShift)) +
           bytesOf(quint32(directory.size() + directorySizeShift)) +
           bytesOf(quint32(file.size() + directoryShift)) + bytesOf(quint16(comment.size())) +
           comment;
}

BuiltArchive soundArchive()
{
    BuiltArchive archive;
    archive.add(storedEntry("datafiles/", {}))
        .add(deflatedEntry("project.vexml", QByteArray(5000, 'x')))
        .add(storedEntry("datafiles/1", "content"));
    return archive;
}

bool openBytes(ProjectArchiveReader *reader, const QByteArray &bytes, QString *reason)
{
    auto buffer = std::make_unique<QBuffer>();
    buffer->setData(bytes);
    buffer->open(QIODevice::ReadOnly);
    return reader->open(std::move(buffer), reason);
}
