#include "preview/GLSpriteShaderBgLight.h"

// The vertex stage is that of the sprites on purpose.
GLSpriteShaderBgLight::GLSpriteShaderBgLight()
    : GLSpriteShader(QStringLiteral(":/vshader.glsl"), QStringLiteral(":/fshader-bglight.glsl"))
{
}

void GLSpriteShaderBgLight::setLight(const SceneLight &light, const QVector3D &position)
{
    m_light = light;
    m_lightPosition = position;
}

void GLSpriteShaderBgLight::apply()
{
    GLSpriteShader::apply();
    setLightUniforms(m_light, m_light.brightness);
    program().setUniformValue("LightPos", m_lightPosition);
    setUniform("BackgroundColor1", m_backgroundColor1);
    setUniform("BackgroundColor2", m_backgroundColor2);
}
