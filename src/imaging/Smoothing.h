#pragma once

#include "imaging/AngleImage.h"
#include "imaging/FloatImage.h"

/// The side of the Gaussian kernel for @p radius pixels, odd and at least 3: twice the radius
/// rounded to the nearest integer, one more where that is even.
int smoothingKernel(double radius);

/// Blurs heights in place by a Gaussian of sigma @p radius / 2; borders repeat. A radius of 0 or
/// less does nothing. Kinds of processor may differ in a float's last bit, as OpenCV's filter does.
void smoothen(FloatImage &heights, double radius);

/// The slopes of @p surface blurred alike, each for itself.
AngleImage smoothened(const AngleImage &surface, double radius);
