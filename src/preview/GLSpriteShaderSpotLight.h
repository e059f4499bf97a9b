#pragma once

#include "preview/GLSpriteShader.h"
#include "preview/SceneLight.h"

/// Draws a sprite in the light of a lamp that hangs over the scene.
class GLSpriteShaderSpotLight : public GLSpriteShader
{
public:
    GLSpriteShaderSpotLight();

    /// @p position is in pixels of the scene, z its height.
    void setLight(const SceneLight &light, const QVector3D &position);

protected:
    void apply() override;

private:
    QColor m_ambientColor;
    QColor m_lightColor;
    float m_brightness = 100.0F;
    QVector3D m_lightPosition;
};
