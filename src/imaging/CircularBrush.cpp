#include "imaging/CircularBrush.h"

#include "imaging/PixelLoops.h"

#include <cmath>
#include <limits>

template <class RimFunction>
float CircularBrush<RimFunction>::value(float distance) const
{
    return circularValue<RimFunction>(profile(), distance);
}

template <class RimFunction>
float CircularBrush<RimFunction>::value(float dx, float dy) const
{
    const float q = dx * dx + dy * dy;
    if (q > m_outerSquared)
        return 0.0F;
    if (q < m_coreSquared)
        return amplitude;
    const float x = (std::sqrt(q) / m_derived.radius - m_derived.rimStart) / softness;
    return RimFunction::value(x) * amplitude;
}

template <class RimFunction>
void CircularBrush<RimFunction>::update()
{
    constexpr double edge = 0.0001;
    const double radius = sizeX * 0.5;
    // A hard brush has no falloff, also where its radius is so large that the edge is rounded away.
    const double core = softness > 0.0F ? radius - softness * radius + edge
                                        : std::numeric_limits<double>::infinity();
    m_derived = {float(radius), float(core), 1.0F - softness, softness, amplitude};
    m_outerSquared = float((radius + edge) * (radius + edge));
    m_coreSquared = float(core * core);
}

template <class RimFunction>
CircularProfile CircularBrush<RimFunction>::profile() const
{
    CircularProfile result = m_derived;
    result.softness = softness;
    result.amplitude = amplitude;
    return result;
}

template <class RimFunction>
void CircularBrush<RimFunction>::paintRowMax(
    const Capsule2D &segment, int x, int y, float *cells, int count) const
{
    fastestPixelLoops().raise[RimFunction::contour](segment, profile(), x, y, cells, count);
}

template <class RimFunction>
void CircularBrush<RimFunction>::paintRowMin(
    const Capsule2D &segment, int x, int y, float *cells, int count) const
{
    fastestPixelLoops().lower[RimFunction::contour](segment, profile(), x, y, cells, count);
}

template class CircularBrush<RimFunctionCos>;
template class CircularBrush<RimFunctionRamp>;
template class CircularBrush<RimFunctionCircle>;
