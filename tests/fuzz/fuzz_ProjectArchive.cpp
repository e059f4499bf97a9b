#include "model/Inflation.h"
#include "model/ProjectArchive.h"

#include <QBuffer>

#include <cstdint>
#include <cstdlib>

// Everything that a project file can reach before its XML is parsed.
extern "C" int LLVMFuzzerTestOneInput(const uint8_t *data, size_t size)
{
    auto buffer = std::make_unique<QBuffer>();
    buffer->setData(reinterpret_cast<const char *>(data), static_cast<int>(size));
    buffer->open(QIODevice::ReadOnly);
    ProjectArchiveReader reader;
    QString reason;
    if (!reader.open(std::move(buffer), &reason))
        return 0;
    for (const QString &name : reader.entryNames()) {
        const std::optional<QByteArray> content = reader.content(name);
        // What was found sound on opening has to be readable.
        if (!content && !reader.isDamaged(name))
            std::abort();
        unpackBytes(content.value_or(reader.remains(name)), 1 << 20);
    }
    return 0;
}
