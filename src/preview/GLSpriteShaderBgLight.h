#pragma once

#include "preview/GLSpriteShader.h"
#include "preview/SceneLight.h"

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
    QColor m_ambientColor;
    QColor m_lightColor;
    QVector3D m_lightPosition;
    float m_brightness = 100.0F;
    QColor m_backgroundColor1{128, 128, 128};
    QColor m_backgroundColor2{96, 96, 96};
};
