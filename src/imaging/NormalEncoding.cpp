#include "imaging/NormalEncoding.h"

#include "imaging/Clipping.h"
#include "imaging/PixelLoops.h"

#include <algorithm>

namespace {

constexpr float slopeUnit = 0.00390625F;

qint16 storedQuotient(float numerator, float z)
{
    // Nothing divided by nothing is flat; anything else divided by nothing is as steep as can be.
    if (z == 0.0F)
        return toStoredSlope(numerator * 256.0F * 127.0F);
    return toStoredSlope(numerator / z);
}

AngleImage::Pixel slopesOf(QRgb pixel)
{
    const float z = float(qBlue(pixel)) / 255.0F;
    const float x = float(qRed(pixel) - 127) / 127.0F;
    const float y = float(qGreen(pixel) - 127) / -127.0F;
    return {storedQuotient(x, z), storedQuotient(y, z)};
}

bool isNormalMapOf(const QImage &image, const QSize &size)
{
    return image.size() == size && image.format() == QImage::Format_RGB32;
}

bool hasPlainColours(const QImage &image)
{
    return image.format() == QImage::Format_RGB32 || image.format() == QImage::Format_ARGB32;
}

} // namespace

QImage flatNormalMap(const QSize &size)
{
    QImage image(size, QImage::Format_RGB32);
    image.fill(flatNormal);
    return image;
}

QRect toNormalMap(const AngleImage &surface, QImage &image, const QRect &rect, bool flipY)
{
    const QRect area = clipped(rect, surface.rect());
    if (area.isEmpty() || !isNormalMapOf(image, surface.size()))
        return {};
    const float yScale = flipY ? slopeUnit : -slopeUnit;
    for (int y = area.top(); y <= area.bottom(); ++y) {
        auto *pixels = reinterpret_cast<QRgb *>(image.scanLine(y)) + area.left();
        fastestPixelLoops().encode(surface.row(y) + area.left(), pixels, area.width(), yScale);
    }
    return area;
}

QRect toNormalMap(const AngleImage &surface, QImage &image, bool flipY)
{
    return toNormalMap(surface, image, surface.rect(), flipY);
}

void fromNormalMap(const QImage &image, AngleImage &surface)
{
    if (image.isNull())
        return;
    const QImage colours =
        hasPlainColours(image) ? image : image.convertToFormat(QImage::Format_ARGB32);
    if (surface.size() != colours.size())
        surface = AngleImage(colours.width(), colours.height());
    for (int y = 0; y < surface.height(); ++y) {
        const auto *pixels = reinterpret_cast<const QRgb *>(colours.constScanLine(y));
        std::transform(pixels, pixels + surface.width(), surface.row(y), slopesOf);
    }
}

void flipY(AngleImage &surface)
{
    for (int y = 0; y < surface.height(); ++y) {
        AngleImage::Pixel *row = surface.row(y);
        for (int x = 0; x < surface.width(); ++x)
            row[x].sy = qint16(std::min(-int(row[x].sy), 127 * 256));
    }
}

void flattenTransparent(const QImage &sprite, QImage &normalMap)
{
    if (!sprite.hasAlphaChannel() || !isNormalMapOf(normalMap, sprite.size()))
        return;
    // Premultiplied colours have the same alpha.
    const bool hasAlphaOnTop = sprite.format() == QImage::Format_ARGB32 ||
                               sprite.format() == QImage::Format_ARGB32_Premultiplied;
    const QImage alphas = hasAlphaOnTop ? sprite : sprite.convertToFormat(QImage::Format_ARGB32);
    for (int y = 0; y < alphas.height(); ++y) {
        const auto *above = reinterpret_cast<const QRgb *>(alphas.constScanLine(y));
        auto *pixels = reinterpret_cast<QRgb *>(normalMap.scanLine(y));
        for (int x = 0; x < alphas.width(); ++x)
            pixels[x] = above[x] < 0x01000000U ? flatNormal : pixels[x];
    }
}

QImage exportedNormalMap(const AngleImage &surface, const QImage &sprite)
{
    QImage normalMap = flatNormalMap(surface.size());
    toNormalMap(surface, normalMap);
    flattenTransparent(sprite, normalMap);
    return normalMap;
}
