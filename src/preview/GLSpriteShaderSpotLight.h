#pragma once

#include "preview/GLSpriteShader.h"

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
    SceneLight m_light;
    QVector3D m_lightPosition;
};
