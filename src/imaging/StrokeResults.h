#pragma once

#include "imaging/AngleImage.h"
#include "imaging/FloatImage.h"

#include <QRect>

// What a stroke makes of a surface: each writes the cells of a rectangle of current anew, from
// those that start had when the stroke began and from what the stroke's layer holds there. So a
// stroke may pass a place as often as it likes. All rasters have one size; a null start is a flat
// one. Each returns the rectangle that it wrote, clipped to the surface; a rectangle that is empty
// changes nothing.

/// The layer's heights raise the surface, their slopes are added. Reaches two pixels beyond
/// @p changed, as far as changed heights show in slopes.
QRect applyHeights(AngleImage &current,
                   const AngleImage &start,
                   const FloatImage &heights,
                   const QRect &changed);

/// The surface turns to @p slope by the layer's coverage; (0, 0) erases.
QRect applySlope(AngleImage &current,
                 const AngleImage &start,
                 const FloatImage &coverage,
                 const QRect &changed,
                 AngleImage::Pixel slope);

/// The surface becomes @p smoothened by the layer's coverage; nothing while that is null.
QRect applySmoothened(AngleImage &current,
                      const AngleImage &start,
                      const FloatImage &coverage,
                      const QRect &changed,
                      const AngleImage &smoothened);

/// The slopes of @p structure are added by the layer's coverage; nothing while that is null.
QRect applyStructure(AngleImage &current,
                     const AngleImage &start,
                     const FloatImage &coverage,
                     const QRect &changed,
                     const AngleImage &structure);
