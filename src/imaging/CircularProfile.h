#pragma once

#include "imaging/RimFunctions.h"

/// What the value of a circular brush depends on.
struct CircularProfile
{
    float radius = -1.0F;    ///< pixels
    float coreRadius = 0.0F; ///< within it, the value is the amplitude
    float rimStart = 1.0F;   ///< where the falloff begins, as a share of the radius
    float softness = 0.0F;
    float amplitude = 0.0F;
};

/// The value at @p distance, without branches, so that loops of it become vectors.
template <class RimFunction>
inline float circularValue(const CircularProfile &profile, float distance)
{
    const float x = (distance / profile.radius - profile.rimStart) / profile.softness;
    const float rim = RimFunction::value(x) * profile.amplitude;
    const float inside = distance < profile.coreRadius ? profile.amplitude : rim;
    return distance > profile.radius ? 0.0F : inside;
}
