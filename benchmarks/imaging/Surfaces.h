#pragma once

#include "imaging/AngleImage.h"
#include "imaging/FloatImage.h"

#include <functional>
#include <vector>

constexpr int largeSide = 4096;

/// Rasters of largeSide × largeSide without any plain part, the same in every run.
AngleImage largeSurface();
FloatImage largeHeights();

/// Copies so many bytes each time that it is called.
std::function<void()> memcpyOf(qint64 bytes);

/// How much of each pixel is covered in a square picture of smooth discs with holes; that share of
/// all pixels, @p noise, is covered by chance.
std::vector<double> discsAndHoles(int side, double noise);
