#pragma once

#include <vector>

/// The anti-aliased Euclidean distance transform as it was published (S. Gustavson and R. Strand,
/// Pattern Recognition Letters 32, 2011), said plainly; a single row, which its sweeps leave out,
/// is swept too. Of @p coverage, 0 to 1 a pixel, the
/// distance of each pixel from what is covered; negative inside.
std::vector<double> plainDistanceField(const std::vector<double> &coverage, int width, int height);
