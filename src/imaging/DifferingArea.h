#pragma once

#include "imaging/AngleImage.h"

#include <QRect>

/// The smallest rectangle inside @p within that holds every cell in which @p a and @p b differ
/// there; empty when there is none. Both have one size, and @p within is clipped to it.
QRect differingArea(const AngleImage &a, const AngleImage &b, const QRect &within);
