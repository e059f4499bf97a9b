#include "preview/GLSpriteShaderBgLight.h"

// The vertex stage is that of the sprites on purpose.
GLSpriteShaderBgLight::GLSpriteShaderBgLight()
    : GLSpriteShader(QStringLiteral(":/vshader.glsl"), QStringLiteral(":/fshader-bglight.glsl"))
{
}

void GLSpriteShaderBgLight::setLight(const SceneLight &light, const QVector3D &position)
{
    m_ambientColor = light.ambient;
    m_lightColor = light.color;
    m_lightPosition = position;
    m_brightness = light.brightness;
}

void GLSpriteShaderBgLight::apply()
{
    GLSpriteShader::apply();
    setUniform("AmbientColor", m_ambientColor);
    program().setUniformValue("LightPos", m_lightPosition);
    setUniform("LightColor", m_lightColor);
    program().setUniformValue("Brightness", m_brightness);
    setUniform("BackgroundColor1", m_backgroundColor1);
    setUniform("BackgroundColor2", m_backgroundColor2);
}
