#pragma once

#include "preview/DisplayMode.h"
#include "preview/SceneLight.h"

#include <QElapsedTimer>
#include <QMatrix4x4>
#include <QOpenGLShaderProgram>
#include <QSizeF>
#include <QVector2D>
#include <QVector3D>

#include <array>

class QPolygonF;

/// What a shader is told once a frame.
struct ShaderFrame
{
    QMatrix4x4 projection; ///< of the scene
    QSizeF resolution;     ///< of the viewport, in pixels
    DisplayMode displayMode = DisplayMode::LitTexture;
    bool isYAxisInverted = false; ///< the green of the normals points down
    float displayScaleFactor = 1.0F;
    float pixelRatio = 1.0F;
    float textureOverlayFactor = 0.0F; ///< from 0 to 1
};

/// The program that draws quads, and the values of its uniforms. It belongs to the OpenGL context
/// that is current while it is built, and is used and destroyed with this one current.
class GLSpriteShader
{
public:
    GLSpriteShader(const QString &vertexSource, const QString &fragmentSource);
    virtual ~GLSpriteShader();
    GLSpriteShader(const GLSpriteShader &) = delete;
    GLSpriteShader &operator=(const GLSpriteShader &) = delete;

    /// Compiles, links and binds the program. Throws Error with its log.
    void build();
    bool isBuilt() const { return m_program.isLinked(); }
    void setFrame(const ShaderFrame &frame) { m_frame = frame; }
    /// Draws a texture of @p textureSize over @p quad: its top left corner in the scene, then round
    /// as the clock goes. The textures are bound.
    void draw(const QPolygonF &quad, const QSize &textureSize);

protected:
    /// Hands everything to the program, which is bound.
    virtual void apply();
    void setUniform(const char *name, const QColor &color);
    /// The colours of @p light, and its brightness as the program takes it.
    void setLightUniforms(const SceneLight &light, float brightness);
    QOpenGLShaderProgram &program() { return m_program; }

private:
    QOpenGLShaderProgram m_program;
    QString m_vertexSource;
    QString m_fragmentSource;
    ShaderFrame m_frame;
    std::array<QVector3D, 4> m_positions;
    std::array<QVector2D, 4> m_textureCoordinates;
    int m_colorUnit = 0;
    int m_normalsUnit = 1;
    int m_selectionUnit = 2;
    QSize m_textureSize{1, 1};
    QElapsedTimer m_timer;
};
