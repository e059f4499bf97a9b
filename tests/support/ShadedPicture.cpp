#include "support/ShadedPicture.h"

#include <algorithm>

namespace {
QVector4D components(const QColor &color)
{
    return {
        float(color.redF()), float(color.greenF()), float(color.blueF()), float(color.alphaF())};
}

QVector4D components(QRgb color)
{
    return components(QColor::fromRgba(color));
}
} // namespace

QPoint ShadedPicture::texel(int x, int y) const
{
    // Mirrored at the borders.
    return {qBound(0, x, size().width() - 1) / zoom, qBound(0, y, size().height() - 1) / zoom};
}

bool ShadedPicture::isSelected(int x, int y) const
{
    return !selection.isNull() && qAlpha(selection.pixel(texel(x, y))) > 127;
}

bool ShadedPicture::isSelectionOutline(int x, int y) const
{
    const bool isAtBorder = x == 0 || y == 0 || x == size().width() - 1 || y == size().height() - 1;
    return isSelected(x, y) && (isAtBorder || !isSelected(x - 1, y) || !isSelected(x + 1, y) ||
                                !isSelected(x, y - 1) || !isSelected(x, y + 1));
}

bool ShadedPicture::isSpriteOutline(int x, int y) const
{
    return !isVisible(x - 1, y) || !isVisible(x + 1, y) || !isVisible(x, y - 1) ||
           !isVisible(x, y + 1);
}

QVector3D ShadedPicture::intensity(int x, int y) const
{
    QVector3D normal =
        (2.0F * components(normals.pixel(texel(x, y))).toVector3D() - QVector3D(1, 1, 1));
    normal.normalize();
    const QVector3D middle(float(x) + 0.5F, float(y) + 0.5F, 0.0F);
    if (!isDirectional && !frame.isYAxisInverted)
        normal.setY(-normal.y());
    const QVector3D towardsLight =
        isDirectional ? place : (place - middle / float(zoom)).normalized();
    const float cosine = std::max(QVector3D::dotProduct(normal, towardsLight), 0.0F);
    const QVector4D ambient = components(light.ambient);
    const QVector4D color = components(light.color);
    return ambient.toVector3D() * ambient.w() +
           color.toVector3D() * color.w() * cosine * light.brightness / 100.0F;
}

QVector4D ShadedPicture::normalMapPixel(int x, int y, const QVector4D &premultiplied) const
{
    const QVector4D normal = components(normals.pixel(texel(x, y)));
    if (isDirectional)
        return normal;
    if (!isVisible(x, y))
        return {0.5F, 0.5F, 1.0F, 1.0F};
    if (isSpriteOutline(x, y))
        return {1.0F, 1.0F, 1.0F, 1.0F};
    const QVector3D weights(0.2126F, 0.7152F, 0.0722F);
    const float luminance = QVector3D::dotProduct(premultiplied.toVector3D(), weights);
    const QVector4D overlay((normal * (luminance * 0.9F + 0.3F)).toVector3D(), premultiplied.w());
    const float factor = frame.textureOverlayFactor;
    return factor * overlay + (1.0F - factor) * normal;
}

QVector4D ShadedPicture::outlinePixel(int x, int y) const
{
    const int up = size().height() - 1 - y; // the driver counts from below
    const int antLength = int(4 * frame.pixelRatio);
    const int place = -x + up + antStep * int(frame.pixelRatio) + 1000 * antLength;
    const bool isBlack = place % (2 * antLength) >= antLength;
    const float grey = isDirectional ? float((x + up) % 2) : float(!isBlack);
    return {grey, grey, grey, 1.0F};
}

QVector4D ShadedPicture::pixel(int x, int y) const
{
    if (isSelectionOutline(x, y))
        return outlinePixel(x, y);
    const QVector4D color = components(colors.pixel(texel(x, y)));
    const QVector4D premultiplied(color.toVector3D() * color.w(), color.w());
    const QVector3D grey = QVector3D(0.5F, 0.5F, 0.5F) * color.w();
    switch (frame.displayMode) {
    case DisplayMode::Texture:
        return premultiplied;
    case DisplayMode::LitSurface:
        return {grey * intensity(x, y), color.w()};
    case DisplayMode::LitTexture:
        return {premultiplied.toVector3D() * intensity(x, y), color.w()};
    case DisplayMode::NormalMap:
        return normalMapPixel(x, y, premultiplied);
    }
    return {};
}
