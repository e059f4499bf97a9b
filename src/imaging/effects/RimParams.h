#pragma once

#include "imaging/AngleImage.h"
#include "imaging/FloatImage.h"

#include <QImage>

/// A bevel of one body's surface.
struct RimParams
{
    QImage sprite;         ///< the rim follows its border to transparency
    AngleImage base;       ///< the surface to add to; null for a flat one
    FloatImage selection;  ///< unselected pixels count as transparent; null for none
    int rimWidth = 8;      ///< pixels, 0 to 255
    int rimHeight = 100;   ///< percent of the width, 25 to 400
    int smoothness = 2;    ///< radius in pixels, 0 to 255
    bool tileMode = false; ///< the image's edge counts as transparent, too
    bool up = true;
    quintptr bodyKey = 0; ///< tells bodies apart
};
