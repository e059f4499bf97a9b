#pragma once

#include "imaging/AngleImage.h"

#include <QRgb>

#include <vector>

/// Turns @p count cells into normal-map pixels; @p yScale is the stored Y slope's unit with the
/// sign that green shall have. The inner loop of toNormalMap().
using NormalRow = void (*)(const AngleImage::Pixel *cells, QRgb *pixels, int count, float yScale);

/// The loops that this processor can run, the fastest last. All give the same pixels bit for bit.
std::vector<NormalRow> normalRows();
