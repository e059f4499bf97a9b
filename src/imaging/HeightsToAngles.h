#pragma once

#include "imaging/AngleImage.h"
#include "imaging/FloatImage.h"

#include <QRect>

/// Derives slopes from a height field (pixel units) by the 3×3 Sobel operator with weight 1/8.
///
/// @p surface becomes the slopes of @p rect alone, clipped to the field, in that rectangle's size;
/// the empty rectangle means the whole field. Neighbours come from the whole field; only its own
/// borders repeat. Returns the clipped rectangle; when nothing is left of it, or more than a
/// surface can hold, nothing changes.
QRect heightsToAngles(const FloatImage &heights, AngleImage &surface, const QRect &rect = {});
