#include "imaging/LitImage.h"

#include <QPainter>

#include <algorithm>

namespace {

QVector3D weightedColour(const QColor &colour)
{
    return QVector3D(float(colour.redF()), float(colour.greenF()), float(colour.blueF())) *
           float(colour.alphaF());
}

// Red, green and blue from 0 to 1.
QVector3D componentsOf(QRgb colour)
{
    return QVector3D(float(qRed(colour)), float(qGreen(colour)), float(qBlue(colour))) / 255.0F;
}

// In the directions of the screen, where y points down.
QVector3D normalOf(QRgb pixel)
{
    const QVector3D stored = 2.0F * componentsOf(pixel) - QVector3D(1.0F, 1.0F, 1.0F);
    return (stored * QVector3D(1.0F, -1.0F, 1.0F)).normalized();
}

int byteOf(float value, float most)
{
    const float above = std::clamp(value, 0.0F, most) * 255.0F + 0.5F;
    return int(above);
}

/// The light in the formula's own terms.
class Illumination
{
public:
    explicit Illumination(const Light &light)
        : m_ambient(weightedColour(light.ambient))
        , m_light(weightedColour(light.colour) * float(light.brightness / 100.0))
        , m_isLamp(light.kind == Light::Kind::Position)
        , m_place(m_isLamp ? light.place : light.place.normalized())
    {
    }

    QVector3D at(int x, int y, QRgb normal) const
    {
        const QVector3D centre(float(x) + 0.5F, float(y) + 0.5F, 0.0F);
        const QVector3D towardsLight = m_isLamp ? (m_place - centre).normalized() : m_place;
        const float cosine = QVector3D::dotProduct(normalOf(normal), towardsLight);
        return m_ambient + m_light * std::max(cosine, 0.0F);
    }

private:
    QVector3D m_ambient;
    QVector3D m_light;
    bool m_isLamp;
    QVector3D m_place;
};

/// A colour that is not premultiplied yet.
struct SurfaceColour
{
    QVector3D colour{0.5F, 0.5F, 0.5F};
    float alpha = 1.0F;
};

SurfaceColour surfaceColourOf(QRgb pixel)
{
    return {componentsOf(pixel), float(qAlpha(pixel)) / 255.0F};
}

QRgb litPixel(const SurfaceColour &surface, const QVector3D &intensity)
{
    const float alpha = surface.alpha;
    const QVector3D lit = surface.colour * alpha * intensity;
    return qRgba(byteOf(lit.x(), alpha),
                 byteOf(lit.y(), alpha),
                 byteOf(lit.z(), alpha),
                 byteOf(alpha, 1.0F));
}

} // namespace

QImage litImage(const QImage &texture, const QImage &normalMap, const Light &light)
{
    if (normalMap.isNull() || !(texture.isNull() || texture.size() == normalMap.size()))
        return {};
    const QImage normals = normalMap.convertToFormat(QImage::Format_RGB32);
    const QImage colours = texture.convertToFormat(QImage::Format_ARGB32);
    const Illumination illumination(light);
    QImage result(normals.size(), QImage::Format_ARGB32_Premultiplied);
    for (int y = 0; y < result.height(); ++y) {
        const auto *normal = reinterpret_cast<const QRgb *>(normals.constScanLine(y));
        const auto *colour =
            colours.isNull() ? nullptr : reinterpret_cast<const QRgb *>(colours.constScanLine(y));
        auto *pixels = reinterpret_cast<QRgb *>(result.scanLine(y));
        for (int x = 0; x < result.width(); ++x) {
            const SurfaceColour surface = colour ? surfaceColourOf(colour[x]) : SurfaceColour();
            pixels[x] = litPixel(surface, illumination.at(x, y, normal[x]));
        }
    }
    return result;
}

QImage overBlack(const QImage &lit)
{
    QImage result(lit.size(), QImage::Format_RGB32);
    result.fill(Qt::black);
    QPainter(&result).drawImage(0, 0, lit);
    return result;
}
