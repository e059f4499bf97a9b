#pragma once

#include "preview/GLSpriteShader.h"

/// Draws the colours of a sprite as they are.
class GLSpriteShaderSolid : public GLSpriteShader
{
public:
    GLSpriteShaderSolid();
};
