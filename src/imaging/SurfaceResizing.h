#pragma once

#include "imaging/AngleImage.h"

#include <QSize>
#include <Qt>

/// @p surface in a raster of @p size, its cells unchanged: the edges that @p anchor names stay
/// where they are, else the middle stays in the middle (of an odd difference the smaller half lies
/// left and above). What comes to lie outside is cut off, what is new is flat.
AngleImage anchoredTo(const AngleImage &surface, const QSize &size, Qt::Alignment anchor);

/// @p surface stretched to @p size, whose relief grows with it: slopes keep their values.
/// Resampled by the areas of the cells along a side that shrinks, and linearly along one that
/// grows. A null surface is flat.
AngleImage scaledTo(const AngleImage &surface, const QSize &size);
