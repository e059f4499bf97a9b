#pragma once

#include <QByteArray>

#include <array>
#include <optional>

#include <zlib.h>

/// What qCompress() packed, when @p packed is exactly that: a length of at most @p maximumSize
/// bytes and one whole zlib stream that gives it. Nothing is allocated for a length that such a
/// stream can't give.
std::optional<QByteArray> unpackBytes(const QByteArray &packed, qint64 maximumSize);

/// The length that unpackBytes() would give; -1 where it refuses @p packed before unpacking.
qint64 unpackedSize(const QByteArray &packed, qint64 maximumSize);

/// True when @p size bytes can come out of a deflated stream of @p packedSize bytes.
bool canInflateTo(qint64 size, qint64 packedSize);

/// Unpacks raw deflated data piece by piece on trial, without keeping it.
class TrialInflation
{
public:
    TrialInflation();
    ~TrialInflation();
    TrialInflation(const TrialInflation &) = delete;
    TrialInflation &operator=(const TrialInflation &) = delete;

    /// Begins a stream that has to give @p claimed bytes.
    bool start(qint64 claimed);
    /// False for data that is damaged, gives more than claimed, or goes on behind its end.
    bool feed(const QByteArray &piece);
    bool gaveAll() const { return m_hasEnded && m_left == 0; }
    /// The checksum of what came out so far.
    quint32 crc() const { return m_crc; }

private:
    z_stream m_stream{};
    std::array<Bytef, 1 << 16> m_output{};
    qint64 m_left = 0;
    quint32 m_crc = 0;
    bool m_isReady = false;
    bool m_hasEnded = false;
};
