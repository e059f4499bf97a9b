#pragma once

#include <QColor>
#include <QImage>
#include <QVector3D>

/// A light over a sprite. Places are in pixels from the top left corner of the sprite's image: x to
/// the right, y down, z towards the viewer. The alpha of a colour weakens it.
struct Light
{
    enum class Kind {
        Direction, ///< from afar: place points from the sprite towards the light
        Position   ///< a lamp: place is where it hangs, z its height above the sprite
    };

    QColor ambient = Qt::black;
    QColor colour = Qt::white;
    double brightness = 100.0; ///< of the light, not of the ambience, in percent
    Kind kind = Kind::Direction;
    QVector3D place{0.0F, 0.0F, 1.0F}; ///< of any length as a direction
};

/// The sprite as it looks in @p light, in QImage::Format_ARGB32_Premultiplied and the size of
/// @p normalMap: every pixel's colour × (ambient + light × max(n·L, 0) × brightness), with its
/// alpha as it was. Nothing shines and nothing fades with distance. A null @p texture is an opaque
/// surface of grey 0.5. Null when there is no normal map or the texture has another size.
///
/// The green of a normal map points up, as the program writes it, while places count down: the
/// normal's y is negated. The light meets a pixel in its centre, at (x + 0.5, y + 0.5, 0). What
/// would be brighter than the pixel's alpha is cut there, as a premultiplied colour has to be.
QImage litImage(const QImage &texture, const QImage &normalMap, const Light &light);

/// What formats without transparency get of a picture: its colours over black, in
/// QImage::Format_RGB32.
QImage overBlack(const QImage &lit);
