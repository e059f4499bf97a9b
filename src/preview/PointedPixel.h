#pragma once

#include <QColor>
#include <QMetaType>
#include <QPoint>
#include <QPointF>

class Body;
class SpriteItem;

/// The pixel of a sprite that the pointer is over.
struct PointedPixel
{
    Body *body = nullptr; ///< null when the pointer is over none
    QPoint pixel;
    QPointF slope; ///< x and y, 1 is 45 degrees
    QColor normal; ///< as the normal map has it

    bool operator==(const PointedPixel &) const = default;
};

Q_DECLARE_METATYPE(PointedPixel)

/// What @p item shows at @p position of the scene, which lies inside of it.
PointedPixel pointedPixel(const SpriteItem &item, const QPointF &position);
