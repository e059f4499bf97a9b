#pragma once

#include "imaging/FloatImage.h"

#include <functional>

/// For each pixel of an image of @p size the distance in pixels from what is covered; 0 inside, a
/// million where nothing is covered. @p coverage writes a row's shares of covered area, 0 to 1; it
/// is called once for each row, from the first to the last.
///
/// The anti-aliased Euclidean distance transform of S. Gustavson and R. Strand (Pattern Recognition
/// Letters 32, 2011), in double precision: partly covered pixels place the edge within themselves
/// by their coverage and its gradient; the vector to the nearest of them is passed on from
/// neighbour to neighbour, until no distance shrinks by more than a thousandth of a pixel.
FloatImage distanceField(const QSize &size,
                         const std::function<void(int y, double *row)> &coverage);
