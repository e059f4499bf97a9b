#include "preview/PixelGrid.h"

#include <algorithm>
#include <cmath>

namespace {
constexpr double stepsOfRatio = 4.0;
constexpr double nearStep = 0.05;         // of the step
constexpr double rounding = 1.0 / 1024.0; // of a device pixel, on the way through logical ones
} // namespace

int PixelGrid::fullSize() const
{
    const double step = std::round(m_ratio * stepsOfRatio) / stepsOfRatio;
    const bool isNear = std::abs(m_ratio - step) <= nearStep * step;
    return std::max(1, int(std::round(isNear ? step : m_ratio)));
}

QPointF PixelGrid::toCorner(const QPoint &place) const
{
    const auto along = [this](int value) { return std::round(value * m_ratio) / m_ratio - value; };
    return {along(place.x()), along(place.y())};
}

QPointF PixelGrid::sceneAt(const QPointF &place) const
{
    return {sceneAt(place.x()), sceneAt(place.y())};
}

double PixelGrid::sceneAt(double place) const
{
    const double whole = std::round(place);
    const double exact = std::abs(place - whole) < rounding ? whole : place;
    const double point = exact / devicePixels();
    if (devicePixels() < 1.0)
        return point; // several are drawn there
    // What is drawn at a device pixel is what its middle falls on.
    return std::max(point, std::floor((std::floor(exact) + 0.5) / devicePixels()));
}
