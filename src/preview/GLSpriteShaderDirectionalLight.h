#pragma once

#include "preview/GLSpriteShader.h"

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
    SceneLight m_light;
    QVector3D m_lightDirection{0.0F, 0.0F, 1.0F};
};
