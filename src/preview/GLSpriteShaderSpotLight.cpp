#include "preview/GLSpriteShaderSpotLight.h"

GLSpriteShaderSpotLight::GLSpriteShaderSpotLight()
    : GLSpriteShader(QStringLiteral(":/vshader.glsl"), QStringLiteral(":/fshader-spot-light.glsl"))
{
}

void GLSpriteShaderSpotLight::setLight(const SceneLight &light, const QVector3D &position)
{
    m_ambientColor = light.ambient;
    m_lightColor = light.color;
    m_brightness = light.brightness;
    m_lightPosition = position;
}

void GLSpriteShaderSpotLight::apply()
{
    GLSpriteShader::apply();
    setUniform("AmbientColor", m_ambientColor);
    program().setUniformValue("LightPos", m_lightPosition);
    setUniform("LightColor", m_lightColor);
    program().setUniformValue("Brightness", m_brightness / 100.0F);
}
