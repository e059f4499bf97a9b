#pragma once

#include "imaging/AngleImage.h"

/// What the smoothness brush has blurred in the background.
struct PaintToolBlurParams
{
    AngleImage image;
    double radius = 3.0; ///< pixels; 0 or less leaves the image as it is
};
