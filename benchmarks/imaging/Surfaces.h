#pragma once

#include "imaging/AngleImage.h"
#include "imaging/FloatImage.h"

constexpr int largeSide = 4096;

/// Rasters of largeSide × largeSide without any plain part, the same in every run.
AngleImage largeSurface();
FloatImage largeHeights();
