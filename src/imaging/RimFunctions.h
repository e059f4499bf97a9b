#pragma once

#include <QIcon>
#include <QString>

#include <algorithm>
#include <cmath>

// How a brush falls off: of x, 0 where the falloff begins and 1 at the brush's edge, 1 before and 0
// behind it. Without branches, so that loops of them become vectors.

inline float withinRim(float x, float profile)
{
    const float notBehind = x > 1.0F ? 0.0F : profile;
    return x < 0.0F ? 1.0F : notBehind;
}

/// A raised cosine.
struct RimFunctionCos
{
    static constexpr int contour = 0;

    static float value(float x)
    {
        // cos(pi x) = −sin(pi (x − 1/2)), by the sine's series: the C library's cosine is neither
        // the same on every processor nor made of vectors. Off by less than 2e-7.
        const float s = x - 0.5F;
        const float ss = s * s;
        float sine = 4.6630281e-4F;
        sine = sine * ss - 7.3704310e-3F;
        sine = sine * ss + 8.2145887e-2F;
        sine = sine * ss - 5.9926453e-1F;
        sine = sine * ss + 2.5501640F;
        sine = sine * ss - 5.1677128F;
        sine = sine * ss + 3.1415927F;
        return withinRim(x, (1.0F - sine * s) * 0.5F);
    }

    static QIcon icon() { return QIcon(QStringLiteral(":/painttoolicons/brush_shape_cos.svg")); }
};

/// Linear.
struct RimFunctionRamp
{
    static constexpr int contour = 1;

    static float value(float x) { return withinRim(x, 1.0F - x); }

    static QIcon icon() { return QIcon(QStringLiteral(":/painttoolicons/brush_shape_linear.svg")); }
};

/// A quarter circle.
struct RimFunctionCircle
{
    static constexpr int contour = 2;

    static float value(float x) { return withinRim(x, std::sqrt(std::max(0.0F, 1.0F - x * x))); }

    static QIcon icon() { return QIcon(QStringLiteral(":/painttoolicons/brush_shape_round.svg")); }
};
