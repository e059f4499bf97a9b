#pragma once

#include "preview/GLSpriteShader.h"
#include "preview/SceneLight.h"

/// Draws a sprite in a light from afar.
class GLSpriteShaderDirectionalLight : public GLSpriteShader
{
public:
    GLSpriteShaderDirectionalLight();

    /// @p direction has length 1 and points from the sprites to the light.
    void setLight(const SceneLight &light, const QVector3D &direction);

protected:
    void apply() override;

private:
    QColor m_ambientColor;
    QColor m_lightColor;
    float m_brightness = 100.0F;
    QVector3D m_lightDirection{0.0F, 0.0F, 1.0F};
};
