#include "preview/GLSpriteShader.h"

#include "base/Error.h"

#include <QColor>
#include <QCoreApplication>
#include <QOpenGLFunctions>
#include <QPolygonF>
#include <QVector4D>

namespace {

struct Words
{
    Q_DECLARE_TR_FUNCTIONS(GLSpriteShader)
};

} // namespace

GLSpriteShader::GLSpriteShader(const QString &vertexSource, const QString &fragmentSource)
    : m_vertexSource(vertexSource)
    , m_fragmentSource(fragmentSource)
    , m_textureCoordinates{QVector2D(0, 0), QVector2D(1, 0), QVector2D(1, 1), QVector2D(0, 1)}
{
    m_timer.start();
}

GLSpriteShader::~GLSpriteShader() = default;

void GLSpriteShader::build()
{
    const auto demand = [this](bool isDone, const QString &message) {
        if (!isDone)
            throw Error(message.arg(m_program.log()));
    };
    demand(m_program.addShaderFromSourceFile(QOpenGLShader::Vertex, m_vertexSource),
           Words::tr("Failed to compile vertex shader: %1"));
    demand(m_program.addShaderFromSourceFile(QOpenGLShader::Fragment, m_fragmentSource),
           Words::tr("Failed to compile fragment shader: %1"));
    demand(m_program.link(), Words::tr("Failed to link shader: %1"));
    demand(m_program.bind(), Words::tr("Failed to bind shader: %1"));
}

void GLSpriteShader::draw(const QPolygonF &quad, const QSize &textureSize)
{
    for (size_t i = 0; i < m_positions.size(); ++i)
        m_positions[i] = QVector3D(quad[int(i)]);
    m_textureSize = textureSize;
    m_program.bind();
    apply();
    QOpenGLContext::currentContext()->functions()->glDrawArrays(GL_TRIANGLE_FAN, 0, 4);
    m_program.disableAttributeArray("a_position");
    m_program.disableAttributeArray("a_texcoord");
    m_program.release();
}

void GLSpriteShader::apply()
{
    m_program.enableAttributeArray("a_position");
    m_program.setAttributeArray("a_position", m_positions.data());
    m_program.enableAttributeArray("a_texcoord");
    m_program.setAttributeArray("a_texcoord", m_textureCoordinates.data());
    m_program.setUniformValue("texture", m_colorUnit);
    m_program.setUniformValue("normals", m_normalsUnit);
    m_program.setUniformValue("selection", m_selectionUnit);
    m_program.setUniformValue("projection", m_frame.projection);
    m_program.setUniformValue("invertedYAxis", m_frame.isYAxisInverted);
    m_program.setUniformValue("Resolution", m_frame.resolution);
    // Spelled so in the sources.
    m_program.setUniformValue("displayScaleFacor", m_frame.displayScaleFactor);
    const QVector2D texelSize(1.0F / float(m_textureSize.width()),
                              1.0F / float(m_textureSize.height()));
    m_program.setUniformValue("TexelSize", texelSize);
    m_program.setUniformValue("displayMode", int(m_frame.displayMode));
    m_program.setUniformValue("msecsElapsed", int(m_timer.nsecsElapsed() / 1000000));
    m_program.setUniformValue("pixelRatio", m_frame.pixelRatio);
    m_program.setUniformValue("textureOverlayFactor", m_frame.textureOverlayFactor);
}

void GLSpriteShader::setUniform(const char *name, const QColor &color)
{
    const QVector4D components(
        float(color.redF()), float(color.greenF()), float(color.blueF()), float(color.alphaF()));
    m_program.setUniformValue(name, components);
}

void GLSpriteShader::setLightUniforms(const SceneLight &light, float brightness)
{
    setUniform("AmbientColor", light.ambient);
    setUniform("LightColor", light.color);
    m_program.setUniformValue("Brightness", brightness);
}
