#pragma once

#include "imaging/AngleImage.h"
#include "imaging/FloatImage.h"

#include <QRect>

/// Some cells of a surface and where they belong.
struct SurfacePiece
{
    AngleImage cells; ///< in the size of the area
    QRect area;

    bool isEmpty() const { return area.isEmpty(); }
};

// What a stroke makes of a surface, in the rectangle that changed: the cells that start had when
// the stroke began, and what the stroke's layer does to them there. So a stroke may pass a place as
// often as it likes, and a step costs its rectangle. All rasters have the layer's size; a null
// start is a flat one. The rectangle is clipped to the layer; the piece is empty when nothing is
// left of it.

/// The cells of @p start themselves, in a surface of @p size.
SurfacePiece untouched(const AngleImage &start, const QSize &size, const QRect &changed);

/// The layer's heights raise the surface, their slopes are added. Reaches two pixels beyond
/// @p changed, as far as changed heights show in slopes.
SurfacePiece raised(const AngleImage &start, const FloatImage &heights, const QRect &changed);

/// The surface turns to @p slope by the layer's coverage; (0, 0) erases.
SurfacePiece turned(const AngleImage &start,
                    const FloatImage &coverage,
                    const QRect &changed,
                    AngleImage::Pixel slope);

/// The surface becomes @p smooth by the layer's coverage; empty while that is null.
SurfacePiece smoothened(const AngleImage &start,
                        const FloatImage &coverage,
                        const QRect &changed,
                        const AngleImage &smooth);

/// The slopes of @p structure are added by the layer's coverage; empty while that is null.
SurfacePiece structured(const AngleImage &start,
                        const FloatImage &coverage,
                        const QRect &changed,
                        const AngleImage &structure);
