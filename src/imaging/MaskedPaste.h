#pragma once

#include "imaging/AngleImage.h"
#include "imaging/FloatImage.h"

#include <QPoint>
#include <QRect>

/// Pastes the cells of @p source inside @p sourceRect (the empty rectangle means the whole source)
/// into @p target with their top left at @p position, clipped to both.
///
/// A null @p mask copies the cells as they are. Otherwise a cell becomes the mean of old and new
/// weighted by the mask at the target's position (0 keeps, 1 takes), saturated to −128…127; cells
/// with weight exactly 0 are left alone, whatever they hold. Cells outside the mask count as 0.
/// Returns the target's rectangle that was pasted into, empty when there was nothing to do.
QRect pasteMasked(AngleImage &target,
                  const FloatImage &mask,
                  const QPoint &position,
                  const AngleImage &source,
                  const QRect &sourceRect = {});

/// The same for a source of the target's size: @p rect is taken at the same place in both. It is
/// clipped to both where the sizes differ; the empty rectangle means the whole source.
QRect copyRegion(AngleImage &target,
                 const FloatImage &mask,
                 const AngleImage &source,
                 const QRect &rect);
