#include "reference/PlainStroke.h"

#include <algorithm>
#include <cmath>

namespace {

float squaredDistance(const QVector2D &a, const QVector2D &b, const QVector2D &p)
{
    const QVector2D d = b - a;
    const QVector2D v = a - p;
    const QVector2D w = p - b;
    const float t = d.x() * v.x() + d.y() * v.y();
    if (t >= 0.0F)
        return v.lengthSquared();
    if (d.x() * w.x() + d.y() * w.y() >= 0.0F)
        return w.lengthSquared();
    return (v - t / d.lengthSquared() * d).lengthSquared();
}

} // namespace

float PlainBrush::rim(float x) const
{
    if (x < 0.0F)
        return 1.0F;
    if (x > 1.0F)
        return 0.0F;
    switch (contour) {
    case Cos:
        return (std::cos(x * 3.1415927F) + 1.0F) * 0.5F;
    case Ramp:
        return 1.0F - x;
    case Circle:
        break;
    }
    return std::sqrt(1.0F - x * x);
}

float PlainBrush::value(float distance) const
{
    if (distance > radius)
        return 0.0F;
    if (distance < radius - softness * radius + 0.0001F)
        return amplitude;
    return rim((distance / radius - (1.0F - softness)) / softness) * amplitude;
}

void PlainBrush::paint(const QVector2D &a,
                       const QVector2D &b,
                       const QRect &bounds,
                       FloatImage &cells) const
{
    for (int y = bounds.top(); y <= bounds.bottom(); ++y) {
        float *row = cells.row(y);
        for (int x = bounds.left(); x <= bounds.right(); ++x) {
            const float q = squaredDistance(a, b, QVector2D(float(x), float(y)));
            if (q > radius * radius)
                continue;
            const float v = value(std::sqrt(q));
            row[x] = amplitude > 0.0F ? std::max(row[x], v) : std::min(row[x], v);
        }
    }
}
