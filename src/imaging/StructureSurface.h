#pragma once

#include "imaging/AngleImage.h"
#include "imaging/PaintToolStructureParams.h"

/// The slopes of the pattern's tiling over a body: the luma of its colours is a height of 0 to just
/// below the intensity, in pixels. Null without a pattern or without a size.
AngleImage structureSurface(const PaintToolStructureParams &params);
