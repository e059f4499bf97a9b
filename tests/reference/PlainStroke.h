#pragma once

#include "imaging/FloatImage.h"

#include <QVector2D>

/// A round brush painted pixel by pixel, with the C library's functions.
struct PlainBrush
{
    enum Contour { Cos, Ramp, Circle };

    float rim(float x) const;
    float value(float distance) const;
    /// Paints the segment from @p a to @p b into the cells of @p bounds.
    void
    paint(const QVector2D &a, const QVector2D &b, const QRect &bounds, FloatImage &cells) const;

    Contour contour = Cos;
    float radius = 0.0F;
    float amplitude = 0.0F;
    float softness = 0.0F;
};
