#pragma once

#include "preview/GLSpriteShader.h"

/// Draws the checkerboard below the sprites.
class GLSpriteShaderBgLight : public GLSpriteShader
{
public:
    GLSpriteShaderBgLight();

    /// Only the ambient colour shows.
    void setLight(const SceneLight &light, const QVector3D &position);

protected:
    void apply() override;

private:
    SceneLight m_light;
    QVector3D m_lightPosition;
    QColor m_backgroundColor1{128, 128, 128};
    QColor m_backgroundColor2{96, 96, 96};
};
