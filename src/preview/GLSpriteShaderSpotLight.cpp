#include "preview/GLSpriteShaderSpotLight.h"

GLSpriteShaderSpotLight::GLSpriteShaderSpotLight()
    : GLSpriteShader(QStringLiteral(":/vshader.glsl"), QStringLiteral(":/fshader-spot-light.glsl"))
{
}

void GLSpriteShaderSpotLight::setLight(const SceneLight &light, const QVector3D &position)
{
    m_light = light;
    m_lightPosition = position;
}

void GLSpriteShaderSpotLight::apply()
{
    GLSpriteShader::apply();
    setLightUniforms(m_light, m_light.brightness / 100.0F);
    program().setUniformValue("LightPos", m_lightPosition);
}
