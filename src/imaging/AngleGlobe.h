#pragma once

#include "imaging/AngleImage.h"

#include <QPointF>

#include <optional>

class QImage;

// Slopes as points of a globe that is seen from above: a slope lies where the X and Y of its
// normal, times the radius, come to lie. A globe of a size (its diameter in pixels) has its centre
// at pixel size/2 and the radius size/2, both rounded down; positions are offsets from that centre.

/// Where the marker of @p slope stands.
QPointF globePosition(const AngleImage::Pixel &slope, int globeSize);
/// @p position, pulled back to 90 % of the radius when it lies farther out, so that the marker
/// stays on the globe.
QPointF heldOnGlobe(const QPointF &position, int globeSize);
/// The pixel at @p position, the nearest one of the globe's square.
QPoint globePixel(const QPointF &position, int globeSize);

/// The slope of each pixel of a globe, the inverse of globePosition(). On the rim and outside of
/// it slopes saturate. With @p discrete each pixel first snaps to one of 12 directions, 30 degrees
/// apart, and to the centre or one of 4 rings. Null when the size is not that of a surface.
AngleImage globeSlopes(int globeSize, bool discrete);

/// The slope of @p image at @p point, truncated to its pixel; flat where @p texture is fully
/// transparent or is not there, nothing outside the image. A null image is flat, in the texture's
/// size.
std::optional<AngleImage::Pixel>
pickedAngle(const AngleImage &image, const QImage &texture, const QPointF &point);
