#include "imaging/LitImage.h"

#include <QPainter>

#include <array>
#include <cmath>

namespace {

QVector3D weightedColour(const QColor &colour)
{
    return QVector3D(float(colour.redF()), float(colour.greenF()), float(colour.blueF())) *
           float(colour.alphaF());
}

// What a loop calls has to be in it for the loop to become one of vectors.
#define VESPERINE_INLINE [[gnu::always_inline]] inline

constexpr float unit = 1.0F / 255.0F;

/// Premultiplied, from 0 to 1.
struct SurfaceColour
{
    float red = 0.5F;
    float green = 0.5F;
    float blue = 0.5F;
    float alpha = 1.0F;
};

VESPERINE_INLINE SurfaceColour surfaceColourOf(QRgb pixel)
{
    const float alpha = float(pixel >> 24U) * unit;
    return {float(qRed(pixel)) * unit * alpha,
            float(qGreen(pixel)) * unit * alpha,
            float(qBlue(pixel)) * unit * alpha,
            alpha};
}

// The positive part of the cosine between a pixel's normal and the direction to the light, of any
// length, in the directions of the screen, where y points down. A lamp in the pixel's very centre
// shines from nowhere.
VESPERINE_INLINE float cosineOf(QRgb normal, float lightX, float lightY, float lightZ)
{
    const float x = 2.0F * unit * float(qRed(normal)) - 1.0F;
    const float y = 1.0F - 2.0F * unit * float(qGreen(normal));
    const float z = 2.0F * unit * float(qBlue(normal)) - 1.0F;
    const float product = x * lightX + y * lightY + z * lightZ;
    const float squares =
        (x * x + y * y + z * z) * (lightX * lightX + lightY * lightY + lightZ * lightZ);
    constexpr float nowhere = 1e-30F;
    const float cosine = product / std::sqrt(squares > nowhere ? squares : nowhere);
    return cosine > 0.0F ? cosine : 0.0F;
}

VESPERINE_INLINE QRgb pixelOf(float red, float green, float blue, float alpha)
{
    const auto byteOf = [alpha](float value) {
        const float notBelow = value > 0.0F ? value : 0.0F;
        const float moved = (notBelow < alpha ? notBelow : alpha) * 255.0F + 0.5F;
        return QRgb(int(moved));
    };
    return byteOf(alpha) << 24U | byteOf(red) << 16U | byteOf(green) << 8U | byteOf(blue);
}

std::array<float, 3> componentsOf(const QVector3D &vector)
{
    return {vector.x(), vector.y(), vector.z()};
}

/// The light in the formula's own terms. What the light's kind makes different is a step, not a
/// branch, so that the loop over a row becomes vectors.
class Illumination
{
public:
    explicit Illumination(const Light &light)
        : m_ambient(weightedColour(light.ambient))
        , m_light(weightedColour(light.colour) * float(light.brightness / 100.0))
        , m_step(light.kind == Light::Kind::Position ? 1.0F : 0.0F)
        , m_start(light.place - QVector3D(0.5F, 0.5F, 0.0F) * m_step)
    {
    }

    /// Lights a row of normals and of premultiplied colours with their alpha, which
    /// @p surfaceAt(x) gives.
    template <class SurfaceAt>
    void lightRow(int y, const QRgb *normals, SurfaceAt surfaceAt, QRgb *pixels, int count) const
    {
        const auto [ambientRed, ambientGreen, ambientBlue] = componentsOf(m_ambient);
        const auto [lightRed, lightGreen, lightBlue] = componentsOf(m_light);
        const auto [startX, startY, lightZ] = componentsOf(m_start);
        const float step = m_step;
        const float lightY = startY - step * float(y);
        for (int x = 0; x < count; ++x) {
            const float cosine = cosineOf(normals[x], startX - step * float(x), lightY, lightZ);
            const SurfaceColour surface = surfaceAt(x);
            pixels[x] = pixelOf(surface.red * (ambientRed + lightRed * cosine),
                                surface.green * (ambientGreen + lightGreen * cosine),
                                surface.blue * (ambientBlue + lightBlue * cosine),
                                surface.alpha);
        }
    }

private:
    QVector3D m_ambient;
    QVector3D m_light;
    float m_step;
    QVector3D m_start;
};

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
        auto *pixels = reinterpret_cast<QRgb *>(result.scanLine(y));
        const int count = result.width();
        if (colours.isNull()) {
            illumination.lightRow(
                y, normal, [](int) { return SurfaceColour(); }, pixels, count);
            continue;
        }
        const auto *colour = reinterpret_cast<const QRgb *>(colours.constScanLine(y));
        illumination.lightRow(
            y, normal, [colour](int x) { return surfaceColourOf(colour[x]); }, pixels, count);
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
