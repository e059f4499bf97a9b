#pragma once

#include "imaging/FloatImage.h"

#include <QPoint>
#include <QPolygon>
#include <QSize>

class QImage;

/// What a new mask does to the selection that there is.
enum class SelectionMode { Replace, Add, Subtract };

// A selection has the sprite's size; the null image means that nothing is selected. Every function
// below gives the null image rather than one in which each weight is 0. A selection of another size
// than the mask that meets it counts as none.

/// True when any weight is other than 0.
bool hasWeight(const FloatImage &selection);
/// @p selection itself, or the null image when it has no weight.
FloatImage withoutEmpty(const FloatImage &selection);
/// Each pixel with weight 1.
FloatImage fullSelection(const QSize &size);

/// The colours of @p texture as colorFill() reads them, in 32 bits: who fills again and again, as
/// while the pointer is dragged, makes them once and passes them as the texture.
QImage fillColors(const QImage &texture);

/// Weight 1 for each pixel that hangs together with @p seed, by its four sides, over pixels that
/// differ from the seed's own by at most @p tolerance (0…255) in red, in green and in blue. Alpha
/// does not count. Null when the seed lies outside the texture.
FloatImage colorFill(const QImage &texture, const QPoint &seed, int tolerance);

/// Replace: @p mask. Add: the larger weight of each pixel. Subtract: the smaller one of the old
/// weight and what the mask leaves, 1 − m. A null @p mask adds and takes nothing.
/// Computed in the mask's own cells when it is handed over.
FloatImage combined(const FloatImage &selection, FloatImage mask, SelectionMode mode);

/// Gives the pixels of a sprite of @p size that @p polygon covers (odd-even, by their centres) the
/// weight 1, or 0 when subtracting; the others keep theirs.
FloatImage combinedWithPolygon(const FloatImage &selection,
                               const QPolygon &polygon,
                               const QSize &size,
                               bool subtract);

/// 1 − v for each weight v. Nothing and everything selected both give the null image.
FloatImage inverted(FloatImage selection);
