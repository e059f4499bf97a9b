#include "tools/BrushAdjustment.h"

#include <QtMath>

#include <algorithm>

int BrushAdjustment::sizeAt(const QPointF &position) const
{
    return qRound(m_settings.size + 2.0 * (position.x() - m_start.x()));
}

int BrushAdjustment::hardnessAt(const QPointF &position) const
{
    // In shares of the brush, so that it feels alike at every zoom; small ones would be too quick.
    constexpr double leastTravel = 40.0;
    const double travel = std::max(double(m_settings.size), leastTravel);
    return qRound(m_settings.hardness + 100.0 * (m_start.y() - position.y()) / travel);
}
