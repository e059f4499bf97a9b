#include "model/ImageGuard.h"

#include <QVector>
#include <QtEndian>

#include <algorithm>
#include <optional>

namespace {
constexpr const char *endsEarly = QT_TRANSLATE_NOOP("ReadImage", "the file ends early");

struct Chunk
{
    qint64 at = 0;
    qint64 end = 0;

    bool isOf(const QByteArray &content, const char *type) const
    {
        return qstrncmp(content.constData() + at + 4, type, 4) == 0;
    }
};

std::optional<Chunk> chunkAt(const QByteArray &content, qint64 at)
{
    constexpr qint64 frame = 12; // length, type and checksum of a chunk
    if (at + frame > content.size())
        return {};
    const qint64 end = at + frame + qFromBigEndian<quint32>(content.constData() + at);
    return end > content.size() ? std::nullopt : std::optional(Chunk{at, end});
}

constexpr qint64 pngSignature = 8;

// A part of a JPEG file between two markers, the marker itself and its length left out.
struct Segment
{
    uchar marker = 0;
    int at = 0;
    int size = 0;
};

/// Walks through the segments of a JPEG file; the coded data between them is skipped.
class JpegWalk
{
public:
    explicit JpegWalk(const QByteArray &content)
        : m_content(content)
    {
    }

    /// Nothing where the file ends, which it does not before the marker of its end.
    std::optional<Segment> next()
    {
        constexpr uchar fill = 0xff;
        while ((m_at = m_content.indexOf('\xff', m_at)) >= 0 && m_at + 1 < m_content.size()) {
            const uchar marker = byteAt(m_at + 1);
            m_at += marker == fill ? 1 : 2;
            if (marker == fill || isBare(marker))
                continue;
            if (marker == end)
                return Segment{marker, m_at + 2, 0};
            if (m_at + 1 >= m_content.size())
                return {};
            const int size = std::max(2, wordAt(m_at)) - 2;
            const Segment segment{marker, m_at + 2, size};
            m_at = segment.at + size;
            return segment;
        }
        return {};
    }

    int byteAt(int at) const { return at < m_content.size() ? uchar(m_content.at(at)) : 0; }
    int wordAt(int at) const { return byteAt(at) * 256 + byteAt(at + 1); }

    static constexpr uchar end = 0xd9;

private:
    // Zeros that are stuffed into coded data, restarts, and the start: without a length.
    static bool isBare(int marker) { return marker <= 0x01 || (marker >= 0xd0 && marker <= 0xd8); }

    const QByteArray &m_content;
    int m_at = 2;
};

// Tables and other segments have the numbers between.
bool isFrame(uchar marker)
{
    return marker >= 0xc0 && marker <= 0xcf && marker != 0xc4 && marker != 0xc8 && marker != 0xcc;
}

struct JpegFrame
{
    qint64 pixels = 0;
    qint64 fewestBytes = 0; ///< of coded data, as each block takes a bit or two
};

JpegFrame frameOf(const JpegWalk &walk, const Segment &segment)
{
    constexpr uchar progressive = 0xc2;
    constexpr qint64 blockSide = 8;
    constexpr int headerSize = 6;
    constexpr int componentSize = 3;
    const int height = walk.wordAt(segment.at + 1);
    const int width = walk.wordAt(segment.at + 3);
    QVector<int> factors; // across and down, as half bytes
    for (int at = headerSize; at + componentSize <= segment.size; at += componentSize)
        factors.append(walk.byteAt(segment.at + at + 1));
    int widest = 1;
    int highest = 1;
    for (const int factor : factors) {
        widest = std::max(widest, factor >> 4);
        highest = std::max(highest, factor & 0xf);
    }
    qint64 blocks = 0;
    for (const int factor : factors)
        blocks += qint64(width) * (factor >> 4) / (widest * blockSide) *
                  (qint64(height) * (factor & 0xf) / (highest * blockSide));
    // Arithmetic coding knows no least size.
    const int bits = segment.marker > progressive ? 0 : segment.marker == progressive ? 1 : 2;
    return {qint64(width) * height, blocks * bits / 8};
}
} // namespace

const char *problemOfPng(const QByteArray &content)
{
    constexpr int mostChunks = 200000;
    // Up to the chunk that ends the image: the decoder doesn't read that one.
    int count = 0;
    for (auto chunk = chunkAt(content, pngSignature); chunk; chunk = chunkAt(content, chunk->end)) {
        if (chunk->isOf(content, "IEND"))
            return nullptr;
        if (++count > mostChunks)
            return QT_TRANSLATE_NOOP("ReadImage", "more than 200,000 chunks; save it anew");
    }
    return endsEarly;
}

QByteArray withoutPackedTexts(const QByteArray &content, const QByteArray &keptKey)
{
    constexpr int header = 8; // length and type of a chunk
    const QByteArray keptStart = keptKey + '\0';
    bool hasKept = false;
    QByteArray result;
    qint64 kept = 0;
    for (auto chunk = chunkAt(content, pngSignature); chunk; chunk = chunkAt(content, chunk->end)) {
        if (!chunk->isOf(content, "zTXt") && !chunk->isOf(content, "iTXt"))
            continue;
        if (!hasKept && content.mid(int(chunk->at) + header, keptStart.size()) == keptStart) {
            hasKept = true;
            continue;
        }
        result += content.mid(int(kept), int(chunk->at - kept));
        kept = chunk->end;
    }
    return kept == 0 ? content : result + content.mid(int(kept));
}

QByteArray withoutStrayBytes(const QByteArray &content)
{
    constexpr uchar scan = 0xda;
    constexpr uchar fileFormat = 0xe0;
    constexpr uchar inks = 0xee;
    constexpr uchar comment = 0xfe;
    constexpr int majorVersion = 5; // behind "JFIF" and a NUL byte
    constexpr int markerAndLength = 4;
    constexpr int markerSize = 2;
    JpegWalk walk(content);
    QByteArray result = content.left(markerSize);
    result.reserve(content.size());
    int codedFrom = -1;
    while (const auto segment = walk.next()) {
        const int start = segment->at - markerAndLength;
        if (codedFrom >= 0)
            result += content.mid(codedFrom, start - codedFrom);
        codedFrom = segment->marker == scan ? segment->at + segment->size : -1;
        if (segment->marker == JpegWalk::end)
            return result + content.mid(start, markerSize);
        // Of what applications store, the decoder looks at two for the colours.
        const bool isOfApplication = segment->marker >= fileFormat && segment->marker <= 0xef;
        const bool hasColours = segment->marker == fileFormat || segment->marker == inks;
        if (segment->marker == comment || (isOfApplication && !hasColours))
            continue;
        QByteArray kept = content.mid(start, markerAndLength + segment->size);
        if (segment->marker == fileFormat && kept.size() > markerAndLength + majorVersion)
            kept[markerAndLength + majorVersion] = 1;
        result += kept;
    }
    return content;
}

// The decoder fills up what is missing with grey and only warns.
const char *problemOfJpeg(const QByteArray &content)
{
    constexpr uchar scan = 0xda;
    constexpr int mostScans = 100;
    constexpr int mostSegments = 5000;
    constexpr qint64 mostPixelsInScans = qint64(1) << 31;
    JpegWalk walk(content);
    JpegFrame frame;
    int segments = 0;
    int scans = 0;
    qint64 codedBytes = 0;
    int codedFrom = -1;
    while (const auto segment = walk.next()) {
        constexpr int markerAndLength = 4;
        if (codedFrom >= 0)
            codedBytes += segment->at - markerAndLength - codedFrom;
        codedFrom = segment->marker == scan ? segment->at + segment->size : -1;
        if (segment->marker == JpegWalk::end)
            return codedBytes >= frame.fewestBytes && scans > 0 ? nullptr : endsEarly;
        if (isFrame(segment->marker))
            frame = frameOf(walk, *segment);
        scans += segment->marker == scan ? 1 : 0;
        if (scans > mostScans || (scans > 1 && scans * frame.pixels > mostPixelsInScans))
            return QT_TRANSLATE_NOOP("ReadImage",
                                     "too many scans; save it anew, not as a progressive image");
        if (++segments > mostSegments)
            return QT_TRANSLATE_NOOP("ReadImage", "more than 5000 segments; save it anew");
    }
    return endsEarly;
}
