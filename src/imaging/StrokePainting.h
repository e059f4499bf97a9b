#pragma once

#include "imaging/FloatBrush.h"
#include "imaging/FloatImage.h"

#include <QRect>
#include <QSizeF>
#include <QVector2D>

/// The pixels of an image of @p imageSize that a segment from @p a to @p b may touch with a brush
/// of
/// @p size. The whole image when the segment misses it.
QRect strokeBounds(const QSizeF &size,
                   const QVector2D &a,
                   const QVector2D &b,
                   const QSize &imageSize);

/// Paints one segment of a stroke: cells within the brush's radius become the larger (Max, for a
/// positive amplitude) or the smaller (Min) of what they are and the brush's value at their
/// distance from the segment. So a stroke never piles up, and its segments join without seams.
/// Pixel centres are at integer coordinates. Returns the rectangle that was painted into, empty
/// when the segment misses @p target.
QRect paintSegmentMax(const FloatBrushFunc &brush,
                      const QVector2D &a,
                      const QVector2D &b,
                      FloatImage &target);
QRect paintSegmentMin(const FloatBrushFunc &brush,
                      const QVector2D &a,
                      const QVector2D &b,
                      FloatImage &target);

/// The signed height in pixels of a height stroke: @p height is a percentage of the radius of a
/// brush of @p brushSize pixels.
double strokePeak(int brushSize, double height, bool up);
