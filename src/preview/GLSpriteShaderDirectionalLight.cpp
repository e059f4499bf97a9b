#include "preview/GLSpriteShaderDirectionalLight.h"

GLSpriteShaderDirectionalLight::GLSpriteShaderDirectionalLight()
    : GLSpriteShader(QStringLiteral(":/vshader.glsl"), QStringLiteral(":/fshader-light.glsl"))
{
}

void GLSpriteShaderDirectionalLight::setLight(const SceneLight &light, const QVector3D &direction)
{
    m_ambientColor = light.ambient;
    m_lightColor = light.color;
    m_brightness = light.brightness;
    m_lightDirection = direction;
}

void GLSpriteShaderDirectionalLight::apply()
{
    GLSpriteShader::apply();
    setUniform("AmbientColor", m_ambientColor);
    program().setUniformValue("LightDirection", m_lightDirection);
    setUniform("LightColor", m_lightColor);
    program().setUniformValue("Brightness", m_brightness / 100.0F);
}
