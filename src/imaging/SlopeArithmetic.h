#pragma once

#include "imaging/AngleImage.h"
#include "imaging/FloatImage.h"

#include <QPoint>
#include <QRect>

/// Adds the slopes of @p source inside @p sourceRect (the empty rectangle means the whole source)
/// to the cells of @p target from @p position on, clipped to both. Sums saturate at −128…127.
///
/// With @p weights, at the target's places, only that share of a slope is added; cells with weight
/// exactly 0 are left alone, and cells outside the weights count as 0. Returns the target's
/// rectangle that was added to.
QRect addSlopes(AngleImage &target,
                const FloatImage &weights,
                const QPoint &position,
                const AngleImage &source,
                const QRect &sourceRect = {});

/// Turns the cells of @p target inside @p rect (the empty rectangle means all) to @p slope, by the
/// share that @p weights tell at their places as above; wholly where the weights are null. Returns
/// the rectangle that was changed.
QRect blendSlope(AngleImage &target,
                 const FloatImage &weights,
                 AngleImage::Pixel slope,
                 const QRect &rect = {});
