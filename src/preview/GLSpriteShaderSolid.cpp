#include "preview/GLSpriteShaderSolid.h"

GLSpriteShaderSolid::GLSpriteShaderSolid()
    : GLSpriteShader(QStringLiteral(":/vshader.glsl"), QStringLiteral(":/fshader.glsl"))
{
}
