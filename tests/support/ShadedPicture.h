#pragma once

#include "preview/GLSpriteShader.h"
#include "preview/SceneLight.h"

#include <QImage>
#include <QVector3D>
#include <QVector4D>

/// What the sprites' shaders get, and what they are to make of it, by plain formulas.
struct ShadedPicture
{
    QImage colors;
    QImage normals;
    QImage selection;
    ShaderFrame frame;
    SceneLight light;
    QVector3D place; ///< of the lamp, or the direction to the light
    bool isDirectional = false;
    int zoom = 1;
    int antStep = 0;

    QSize size() const { return colors.size() * zoom; }
    QVector4D pixel(int x, int y) const;

private:
    QPoint texel(int x, int y) const;
    bool isSelected(int x, int y) const;
    bool isVisible(int x, int y) const { return qAlpha(colors.pixel(texel(x, y))) > 0; }
    bool isSelectionOutline(int x, int y) const;
    bool isSpriteOutline(int x, int y) const;
    QVector3D intensity(int x, int y) const;
    QVector4D normalMapPixel(int x, int y, const QVector4D &premultiplied) const;
    QVector4D outlinePixel(int x, int y) const;
};
