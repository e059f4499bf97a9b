#pragma once

#include "preview/GLSpriteShaderBgLight.h"
#include "preview/GLSpriteShaderDirectionalLight.h"
#include "preview/GLSpriteShaderSolid.h"
#include "preview/GLSpriteShaderSpotLight.h"

#include <memory>

class BorrowedContext;
class GLGraphicsSprite;
class QOpenGLContext;

/// The shaders of one OpenGL context, and what is drawn with them. All is called with this context
/// current.
class SceneRenderer
{
public:
    explicit SceneRenderer(QOpenGLContext &context);
    ~SceneRenderer();

    const std::shared_ptr<BorrowedContext> &context() const { return m_context; }

    /// Where the light is: as a lamp in the scene, and as the direction towards it.
    void setLight(const SceneLight &light, const QVector3D &position, const QVector3D &direction);
    void setFrame(const ShaderFrame &frame);
    /// Fills @p quad, which is given as GLSpriteShader::draw() wants it. Throws Error.
    void drawBackground(const QPolygonF &quad);
    /// Draws @p sprite where it is in its scene. Throws Error.
    void drawSprite(GLGraphicsSprite &sprite, bool isLightDirectional);

private:
    static GLSpriteShader &built(GLSpriteShader &shader);

    std::shared_ptr<BorrowedContext> m_context;
    GLSpriteShaderSolid m_solidShader;
    GLSpriteShaderDirectionalLight m_directionalLightShader;
    GLSpriteShaderSpotLight m_spotLightShader;
    GLSpriteShaderBgLight m_bgLightShader;
};
