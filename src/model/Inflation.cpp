#include "model/Inflation.h"

#include <QtEndian>

#include <limits>

namespace {
constexpr int lengthBytes = 4;
} // namespace

bool canInflateTo(qint64 size, qint64 packedSize)
{
    // Deflate gives at most 258 bytes for two bits.
    constexpr qint64 bestRatio = 1032;
    constexpr qint64 slack = 1024;
    return size <= packedSize * bestRatio + slack;
}

qint64 unpackedSize(const QByteArray &packed, qint64 maximumSize)
{
    // Arrays keep a few bytes of their own below the end of the number range.
    constexpr qint64 largestArray = std::numeric_limits<int>::max() - 64;
    if (packed.size() < lengthBytes)
        return -1;
    const qint64 claimed = qFromBigEndian<quint32>(packed.constData());
    const bool isPossible = claimed <= qMin(maximumSize, largestArray) &&
                            canInflateTo(claimed, packed.size() - lengthBytes);
    return isPossible ? claimed : -1;
}

std::optional<QByteArray> unpackBytes(const QByteArray &packed, qint64 maximumSize)
{
    const qint64 claimed = unpackedSize(packed, maximumSize);
    if (claimed < 0)
        return {};
    const qint64 packedSize = packed.size() - lengthBytes;
    // An empty array is packed as its length alone.
    if (claimed == 0 && packedSize == 0)
        return QByteArray("");

    QByteArray unpacked(static_cast<int>(claimed), Qt::Uninitialized);
    auto written = static_cast<uLongf>(claimed);
    auto consumed = static_cast<uLong>(packedSize);
    const int result =
        uncompress2(reinterpret_cast<Bytef *>(unpacked.data()),
                    &written,
                    reinterpret_cast<const Bytef *>(packed.constData()) + lengthBytes,
                    &consumed);
    const bool isExact =
        written == static_cast<uLongf>(claimed) && consumed == static_cast<uLong>(packedSize);
    if (result != Z_OK || !isExact)
        return {};
    return unpacked;
}

TrialInflation::TrialInflation()
{
    m_isReady = inflateInit2(&m_stream, -MAX_WBITS) == Z_OK;
}

TrialInflation::~TrialInflation()
{
    inflateEnd(&m_stream);
}

bool TrialInflation::start(qint64 claimed)
{
    m_left = claimed;
    m_crc = 0;
    m_hasEnded = false;
    return m_isReady && inflateReset(&m_stream) == Z_OK;
}

bool TrialInflation::feed(const QByteArray &piece)
{
    if (m_hasEnded)
        return piece.isEmpty();
    m_stream.next_in = reinterpret_cast<Bytef *>(const_cast<char *>(piece.constData()));
    m_stream.avail_in = static_cast<uInt>(piece.size());
    int result = Z_OK;
    while (result == Z_OK) {
        m_stream.next_out = m_output.data();
        m_stream.avail_out = static_cast<uInt>(m_output.size());
        result = inflate(&m_stream, Z_NO_FLUSH);
        const uInt got = static_cast<uInt>(m_output.size()) - m_stream.avail_out;
        m_left -= got;
        if (m_left < 0)
            return false;
        m_crc = static_cast<quint32>(crc32(m_crc, m_output.data(), got));
    }
    m_hasEnded = result == Z_STREAM_END;
    // Out of input is no error here: more pieces follow.
    return (m_hasEnded || result == Z_BUF_ERROR) && m_stream.avail_in == 0;
}
