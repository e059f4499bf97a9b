#pragma once

#include <QRect>
#include <QSize>
#include <QVector>

/// Between sprites that were laid out, in pixels.
constexpr int spriteGap = 16;

/// Top left corners for sprites of @p sizes: rows from left to right without overlap, together as
/// square as it goes. They lie around the origin, or between and beside the @p others.
QVector<QPoint> layoutSprites(const QVector<QSize> &sizes, const QVector<QRect> &others);
