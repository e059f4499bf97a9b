#include "preview/GLSpriteShaderDirectionalLight.h"

GLSpriteShaderDirectionalLight::GLSpriteShaderDirectionalLight()
    : GLSpriteShader(QStringLiteral(":/vshader.glsl"), QStringLiteral(":/fshader-light.glsl"))
{
}

void GLSpriteShaderDirectionalLight::setLight(const SceneLight &light, const QVector3D &direction)
{
    m_light = light;
    m_lightDirection = direction;
}

void GLSpriteShaderDirectionalLight::apply()
{
    GLSpriteShader::apply();
    setLightUniforms(m_light, m_light.brightness / 100.0F);
    program().setUniformValue("LightDirection", m_lightDirection);
}
