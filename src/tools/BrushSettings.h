#pragma once

/// What the pressure of a pen changes; a mouse presses fully.
enum class PenPressure {
    Nothing,
    Size,
    Strength ///< the brush's opacity or height
};

/// What the rows of a brush's panel edit.
struct BrushSettings
{
    int size = 30;        ///< diameter in pixels, 1 to 500
    int opacity = 100;    ///< percent, 1 to 100: the peak of the coverage
    int hardness = 0;     ///< percent, 0 to 100: the share of the radius without falloff
    double height = 10.0; ///< percent of the radius, 0.1 to 200
    int contour = 0;      ///< raised cosine, linear, quarter circle
    PenPressure pressure = PenPressure::Nothing;
};
