#pragma once

#include "imaging/AngleImage.h"

#include <QImage>
#include <QRgb>

/// The colour of a flat surface, also of a fresh normal map: opaque, red 127, green 127, blue 255.
constexpr QRgb flatNormal = 0xFF7F7FFFU;

/// A normal map of @p size in QImage::Format_RGB32 that is flat everywhere; null for an empty size.
QImage flatNormalMap(const QSize &size);

/// Writes the normals of the cells of @p surface inside @p rect (clipped to the surface) into
/// @p image, which has the surface's size and QImage::Format_RGB32. Single precision; red and green
/// are n·127 + 127.5 and blue n·255 + 0.5, truncated; the Y slope is negated unless @p flipY.
/// Returns the rectangle written, empty when there was nothing to do.
QRect toNormalMap(const AngleImage &surface, QImage &image, const QRect &rect, bool flipY = false);

/// The same for the whole surface.
QRect toNormalMap(const AngleImage &surface, QImage &image, bool flipY = false);

/// The normal map of @p surface as it is exported: flat under the fully transparent pixels of
/// @p sprite. Null for a null surface.
QImage exportedNormalMap(const AngleImage &surface, const QImage &sprite);

/// Fills @p surface with the slopes of every pixel of the normal map @p image, made anew in the
/// image's size when it has another one. Blue 0 saturates. Alpha is ignored.
void fromNormalMap(const QImage &image, AngleImage &surface);

/// Turns @p surface into the one of the same normal map with green counted the other way: every Y
/// slope is negated, −128 becomes 127.
void flipY(AngleImage &surface);

/// Sets every pixel of @p normalMap whose pixel in @p sprite is fully transparent (alpha 0) to the
/// flat normal. Both have one size; a sprite without an alpha channel changes nothing.
void flattenTransparent(const QImage &sprite, QImage &normalMap);
