#pragma once

#include <QImage>
#include <QMetaType>
#include <QSize>

/// What the surface of a structure is made from. A value.
struct PaintToolStructureParams
{
    /// Read as a height field, the lighter the higher; null for no structure.
    QImage pattern;
    double intensity = 4.0; ///< the height of white in pixels, 0.1 to 20
    double scale = 1.0;     ///< 0.1 to 4
    double rotation = 0.0;  ///< in degrees, 0 to 359; positive turns clockwise on the screen
    QSize size;             ///< of the body, in pixels

    bool operator==(const PaintToolStructureParams &) const = default;
};

Q_DECLARE_METATYPE(PaintToolStructureParams)
