#include "preview/SceneRenderer.h"

#include "preview/BorrowedContext.h"
#include "preview/GLGraphicsSprite.h"

SceneRenderer::SceneRenderer(QOpenGLContext &context)
    : m_context(std::make_shared<BorrowedContext>(context))
{
}

SceneRenderer::~SceneRenderer() = default;

void SceneRenderer::setLight(const SceneLight &light,
                             const QVector3D &position,
                             const QVector3D &direction)
{
    m_directionalLightShader.setLight(light, direction);
    m_spotLightShader.setLight(light, position);
    m_bgLightShader.setLight(light, position);
}

void SceneRenderer::setFrame(const ShaderFrame &frame)
{
    m_solidShader.setFrame(frame);
    m_directionalLightShader.setFrame(frame);
    m_spotLightShader.setFrame(frame);
    m_bgLightShader.setFrame(frame);
}

void SceneRenderer::drawBackground(const QPolygonF &quad)
{
    built(m_bgLightShader).draw(quad, {1, 1});
}

void SceneRenderer::drawSprite(GLGraphicsSprite &sprite, bool isLightDirectional)
{
    if (sprite.boundingRect().isEmpty())
        return;
    sprite.bindTextures(m_context);
    GLSpriteShader &shader = isLightDirectional
                                 ? static_cast<GLSpriteShader &>(m_directionalLightShader)
                                 : m_spotLightShader;
    built(shader).draw(sprite.mapToScene(sprite.boundingRect()), sprite.colorImage().size());
}

// The first frame waits for no program that it does not need.
GLSpriteShader &SceneRenderer::built(GLSpriteShader &shader)
{
    if (!shader.isBuilt())
        shader.build();
    return shader;
}
