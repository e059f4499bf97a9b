#include "support/ArchiveBuilder.h"

#include "model/ProjectArchive.h"

#include <QBuffer>
#include <QtEndian>

#include <zlib.h>

namespace {

QByteArray word(quint32 value, int bytes = 4)
{
    value = qToLittleEndian(value);
    return {reinterpret_cast<const char *>(&value), bytes};
}

BuiltEntry entryOf(const QByteArray &name, const QByteArray &content, const QByteArray &data)
{
    const auto *bytes = reinterpret_cast<const Bytef *>(content.constData());
    const auto crc = quint32(crc32(0, bytes, uInt(content.size())));
    return {name, data, word(crc) + word(quint32(data.size())) + word(quint32(content.size()))};
}

} // namespace

BuiltEntry storedEntry(const QByteArray &name, const QByteArray &content)
{
    return entryOf(name, content, content);
}

BuiltEntry deflatedEntry(const QByteArray &name, const QByteArray &content)
{
    // A zlib stream without its header and checksum.
    const QByteArray packed = qCompress(content);
    BuiltEntry entry = entryOf(name, content, packed.mid(6, packed.size() - 10));
    entry.method = 8;
    return entry;
}

BuiltEntry streamedEntry(const QByteArray &name, const QByteArray &content, bool isSigned)
{
    BuiltEntry entry = deflatedEntry(name, content);
    entry.flags = 8;
    entry.descriptor = (isSigned ? QByteArray("PK\x07\x08") : QByteArray()) + entry.numbers;
    return entry;
}

BuiltArchive &BuiltArchive::add(const BuiltEntry &entry)
{
    entries.push_back(entry);
    return *this;
}

QByteArray BuiltArchive::bytes() const
{
    QByteArray file;
    QByteArray directory;
    for (const BuiltEntry &entry : entries) {
        const QByteArray kind =
            word(20, 2) + entry.flags + '\0' + entry.method + '\0' + word(33U << 16U);
        const QByteArray nameSize = word(quint32(entry.name.size()), 2);
        directory += "PK\x01\x02" + word(3 << 8, 2) + kind + entry.numbers + nameSize +
                     QByteArray(8, '\0') + word(0100600U << 16U) + word(quint32(file.size())) +
                     entry.name;
        const bool isStreamed = entry.flags & 8;
        file += "PK\x03\x04" + kind + (isStreamed ? QByteArray(12, '\0') : entry.numbers) +
                nameSize + word(quint32(entry.extra.size()), 2) + entry.name + entry.extra +
                entry.data + entry.descriptor;
    }
    const QByteArray count = word(quint32(entries.size()), 2);
    return file + directory + "PK\x05\x06" + word(0) + count + count +
           word(quint32(directory.size())) + word(quint32(file.size())) + word(0, 2);
}

BuiltArchive soundArchive()
{
    BuiltArchive archive;
    archive.add(storedEntry("datafiles/", {}));
    archive.add(deflatedEntry("project.vexml", QByteArray(5000, 'x')));
    return archive.add(storedEntry("datafiles/1", "content"));
}

bool openBytes(ProjectArchiveReader *reader, const QByteArray &bytes, QString *reason)
{
    auto buffer = std::make_unique<QBuffer>();
    buffer->setData(bytes);
    buffer->open(QIODevice::ReadOnly);
    return reader->open(std::move(buffer), reason);
}
