#include "model/Inflation.h"

#include <QtEndian>

#include <limits>

#include <zlib.h>

bool canInflateTo(qint64 size, qint64 packedSize)
{
    // Deflate gives at most 258 bytes for two bits.
    constexpr qint64 bestRatio = 1032;
    constexpr qint64 slack = 1024;
    return size <= packedSize * bestRatio + slack;
}

std::optional<QByteArray> unpackBytes(const QByteArray &packed, qint64 maximumSize)
{
    constexpr int lengthBytes = 4;
    if (packed.size() < lengthBytes)
        return {};
    const qint64 claimed = qFromBigEndian<quint32>(packed.constData());
    const qint64 streamSize = packed.size() - lengthBytes;
    // An empty array is packed as its length alone.
    if (claimed == 0 && streamSize == 0)
        return QByteArray("");
    // Arrays keep a few bytes of their own below the end of the number range.
    constexpr qint64 largestArray = std::numeric_limits<int>::max() - 64;
    if (claimed > qMin(maximumSize, largestArray) || !canInflateTo(claimed, streamSize))
        return {};

    QByteArray unpacked(static_cast<int>(claimed), Qt::Uninitialized);
    auto written = static_cast<uLongf>(claimed);
    auto consumed = static_cast<uLong>(streamSize);
    const int result =
        uncompress2(reinterpret_cast<Bytef *>(unpacked.data()),
                    &written,
                    reinterpret_cast<const Bytef *>(packed.constData()) + lengthBytes,
                    &consumed);
    const bool isExact =
        written == static_cast<uLongf>(claimed) && consumed == static_cast<uLong>(streamSize);
    if (result != Z_OK || !isExact)
        return {};
    return unpacked;
}
