#pragma once

#include "imaging/AngleImage.h"
#include "imaging/FloatImage.h"

#include <QImage>
#include <QRect>

// What the effects share.

/// The pixels of @p sprite as 8-bit ARGB, not premultiplied.
QImage plainPixels(const QImage &sprite);

/// The surface that an effect on @p sprite adds to: @p base, or a flat one of the sprite's size.
AngleImage baseSurface(const AngleImage &base, const QImage &sprite);

/// Adds the slopes of the heights inside @p part to @p target, from its top left on. Borders
/// repeat only where the heights themselves end.
void addRelief(AngleImage &target, const FloatImage &heights, const QRect &part);
