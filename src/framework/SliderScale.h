#pragma once

#include <QVector>

/// Which value stands at which of a slider's 10000 steps. Values are spread evenly between the
/// points; the points are spread evenly over the slider.
class SliderScale
{
public:
    static constexpr int stepCount = 10000;

    /// Linear from end to end.
    SliderScale(double minimum, double maximum);
    /// Linear from the minimum to the middle over steps 0 to 4999, and from the middle to the
    /// maximum over steps 5000 to 9999, so that small values get half of the travel.
    SliderScale(double minimum, double middle, double maximum);
    /// Linear between neighbours of @p points, rising, at least two.
    explicit SliderScale(const QVector<double> &points);

    double minimum() const { return m_points.first(); }
    double maximum() const { return m_points.last(); }
    double valueAt(int step) const;
    /// The step whose value is nearest to @p value.
    int stepOf(double value) const;

private:
    /// The first step of the part behind point @p part.
    int firstStep(int part) const;

    QVector<double> m_points;
};
