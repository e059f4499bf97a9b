#pragma once

#include "imaging/AngleImage.h"

#include <QImage>

/// An emboss of one body's surface.
struct EmbossParams
{
    QImage sprite;        ///< its light and dark become relief
    AngleImage base;      ///< the surface to add to; null for a flat one
    float height = 1.0F;  ///< pixels of relief under white, 0.1 to 10
    bool up = true;       ///< light is high
    int smoothness = 1;   ///< radius in pixels, 1 to 9; 0 for none
    quintptr bodyKey = 0; ///< tells bodies apart
};
