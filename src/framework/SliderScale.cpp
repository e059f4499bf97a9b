#include "framework/SliderScale.h"

#include <algorithm>
#include <cmath>

SliderScale::SliderScale(double minimum, double maximum)
    : SliderScale(QVector<double>{minimum, maximum})
{
}

SliderScale::SliderScale(double minimum, double middle, double maximum)
    : SliderScale(QVector<double>{minimum, middle, maximum})
{
}

SliderScale::SliderScale(const QVector<double> &points)
    : m_points(points)
{
    Q_ASSERT(points.size() >= 2);
}

double SliderScale::valueAt(int step) const
{
    const int bounded = std::clamp(step, 0, stepCount - 1);
    int part = m_points.size() - 2;
    while (firstStep(part) > bounded)
        --part;
    // A part's last step has the value of the next one's first, so that every point is met.
    const int lastInPart = firstStep(part + 1) - firstStep(part) - 1;
    const double start = m_points[part];
    return (m_points[part + 1] - start) * (bounded - firstStep(part)) / lastInPart + start;
}

int SliderScale::stepOf(double value) const
{
    int part = 0;
    while (part < m_points.size() - 2 && m_points[part + 1] < value)
        ++part;
    const double start = m_points[part];
    const double extent = m_points[part + 1] - start;
    const double share = extent > 0 ? std::clamp((value - start) / extent, 0.0, 1.0) : 0.0;
    const int lastInPart = firstStep(part + 1) - firstStep(part) - 1;
    return firstStep(part) + int(std::lround(share * lastInPart));
}

int SliderScale::firstStep(int part) const
{
    return part * stepCount / (m_points.size() - 1);
}
