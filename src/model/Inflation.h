#pragma once

#include <QByteArray>

#include <optional>

/// What qCompress() packed, when @p packed is exactly that: a length of at most @p maximumSize
/// bytes and one whole zlib stream that gives it. Nothing is allocated for a length that such a
/// stream can't give.
std::optional<QByteArray> unpackBytes(const QByteArray &packed, qint64 maximumSize);

/// True when @p size bytes can come out of a deflated stream of @p packedSize bytes.
bool canInflateTo(qint64 size, qint64 packedSize);
