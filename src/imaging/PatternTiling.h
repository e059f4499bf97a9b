#pragma once

#include <QImage>
#include <QSize>

/// Above this many pixels an intermediate image of tiledPattern() is made in parts.
constexpr qint64 ordinaryTilingPixels = qint64(1) << 24;

/// The pattern, scaled (by 0.1 to 4, other factors count as the nearest of these) and turned (in
/// degrees, positive clockwise on the screen), tiled over a body of @p size (within the limits of
/// AngleImage), in QImage::Format_RGB32 and opaque everywhere. The tiles lie in a grid from the top
/// left corner of a square of 1.5 times the body's longer side, which turns about its centre; the
/// body sees the centre.
///
/// Colours are read as 8-bit, not premultiplied; alpha counts for nothing, so that transparent
/// pixels show the colour they hold. A null pattern and an empty size give a null image.
///
/// No image much larger than the body is ever made: where the way through the square would need
/// more than @p pixelLimit pixels, the result is put together from blocks. Smoothing counts in
/// sixteenths of a pixel and begins anew in each of them, so that the result shows the tiling
/// within a sixteenth of a pixel of where the straight way has it, across and down: a component
/// differs by at most a sixteenth of the sum of its steepest steps in both directions, and by what
/// rounds.
QImage tiledPattern(const QImage &pattern,
                    double scale,
                    double rotation,
                    const QSize &size,
                    qint64 pixelLimit = ordinaryTilingPixels);
