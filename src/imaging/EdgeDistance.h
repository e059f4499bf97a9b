#pragma once

#include <algorithm>
#include <cmath>

/// What counts as no distance yet.
constexpr double farAway = 1e6;

/// The distance in pixels from a pixel's centre to the straight edge that crosses it, negative
/// inside. The edge lies across the direction (@p x, @p y), of any length, and covers the share
/// @p coverage of the pixel; without a direction, it is taken for level. Without branches, so that
/// loops of it become vectors.
inline double edgeDistance(double x, double y, double coverage)
{
    // The more covered half mirrors the other one.
    const double open = std::min(coverage, 1.0 - coverage);
    const double larger = std::max(std::abs(x), std::abs(y));
    const double smaller = std::min(std::abs(x), std::abs(y));
    const double length = std::sqrt(larger * larger + smaller * smaller);
    // The edge cuts either off a corner or from side to side.
    const double corner =
        0.5 * (larger + smaller) - std::sqrt(2.0 * larger * smaller * std::max(0.0, open));
    const double across = (0.5 - open) * larger;
    const double edge = (2.0 * open * larger < smaller ? corner : across) / length;
    const double distance = length > 0.0 ? edge : 0.5 - open;
    return coverage > 0.5 ? -distance : distance;
}

/// The distance to the edge in the pixel that lies (@p x, @p y) away; farAway where that pixel is
/// none that is covered, or the same one.
inline double distanceToEdge(double x, double y, double coverage)
{
    const double squared = x * x + y * y;
    const double distance = std::sqrt(squared) + edgeDistance(x, y, coverage);
    return coverage > 0.0 && squared > 0.0 ? distance : farAway;
}
