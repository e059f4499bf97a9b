#include "imaging/AngleImage.h"

#include "imaging/LargePages.h"

#include <algorithm>
#include <bit>
#include <cstring>

// The cells in memory are the bytes of the file: another byte order would have to swap each cell.
static_assert(std::endian::native == std::endian::little);
static_assert(sizeof(AngleImage::Pixel) == 4);

namespace {

struct Header
{
    qint32 width = 0;
    qint32 height = 0;
};

constexpr int headerLength = sizeof(Header);

Header headerOf(const QByteArray &bytes)
{
    Header header;
    if (bytes.size() >= headerLength)
        std::memcpy(&header, bytes.constData(), headerLength);
    return header;
}

// In 64 bits: the cells of a damaged header would wrap to a length that looks right.
constexpr qint64 encodedLength(qint64 width, qint64 height)
{
    return headerLength + width * height * qint64(sizeof(AngleImage::Pixel));
}

QByteArray plainBytes(int length)
{
    QByteArray bytes(length, Qt::Uninitialized);
    useLargePages(bytes.constData(), std::size_t(length));
    return bytes;
}

} // namespace

AngleImage::AngleImage(int width, int height, quint32 fill)
{
    if (!isPossibleSize(width, height))
        return;
    m_bytes = plainBytes(int(encodedLength(width, height)));
    const Header header{width, height};
    std::memcpy(m_bytes.data(), &header, headerLength);
    std::fill_n(row(0), qptrdiff(width) * height, std::bit_cast<Pixel>(fill));
}

int AngleImage::width() const
{
    return headerOf(m_bytes).width;
}

int AngleImage::height() const
{
    return headerOf(m_bytes).height;
}

const AngleImage::Pixel *AngleImage::row(int y) const
{
    return reinterpret_cast<const Pixel *>(m_bytes.constData() + headerLength) +
           qptrdiff(y) * width();
}

AngleImage::Pixel *AngleImage::row(int y)
{
    return reinterpret_cast<Pixel *>(m_bytes.data() + headerLength) + qptrdiff(y) * width();
}

AngleImage AngleImage::unsharedCopy() const
{
    AngleImage copy;
    if (isNull())
        return copy;
    copy.m_bytes = plainBytes(m_bytes.size());
    std::memcpy(copy.m_bytes.data(), m_bytes.constData(), std::size_t(m_bytes.size()));
    return copy;
}

bool AngleImage::operator==(const AngleImage &other) const
{
    if (size() != other.size())
        return false;
    return isNull() || sharesCellsWith(other) || m_bytes == other.m_bytes;
}

bool AngleImage::sharesCellsWith(const AngleImage &other) const
{
    return !isNull() && m_bytes.constData() == other.m_bytes.constData();
}

QByteArray encode(const AngleImage &image)
{
    return image.m_bytes;
}

std::optional<AngleImage> decode(const QByteArray &bytes)
{
    AngleImage image;
    if (bytes.isEmpty())
        return image;
    const auto [width, height] = headerOf(bytes);
    if (!AngleImage::isPossibleSize(width, height) || bytes.size() != encodedLength(width, height))
        return std::nullopt;
    image.m_bytes = bytes;
    return image;
}
