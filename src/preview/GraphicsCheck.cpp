#include "preview/GraphicsCheck.h"

#include <QCoreApplication>
#include <QOffscreenSurface>
#include <QOpenGLContext>
#include <QOpenGLFunctions>
#include <QStringList>
#include <QSurfaceFormat>

namespace {

struct Words
{
    Q_DECLARE_TR_FUNCTIONS(GraphicsCheck)
};

/// An OpenGL context like those of the program's windows, current when it could be made.
class ProbeContext
{
public:
    ProbeContext()
    {
        m_surface.setFormat(QSurfaceFormat::defaultFormat());
        m_surface.create();
        m_isCurrent = m_context.create() && m_context.makeCurrent(&m_surface);
    }

    /// Null when there is none.
    QOpenGLFunctions *functions() const { return m_isCurrent ? m_context.functions() : nullptr; }
    /// Drivers of version 1 have their shaders, if any, under names that the toolkit does not call.
    bool hasShaders() const
    {
        return m_isCurrent && m_context.format().majorVersion() >= 2 &&
               functions()->hasOpenGLFeature(QOpenGLFunctions::Shaders);
    }

private:
    QOffscreenSurface m_surface;
    QOpenGLContext m_context;
    bool m_isCurrent = false;
};

QString textOf(QOpenGLFunctions &functions, GLenum name)
{
    return QString::fromLatin1(reinterpret_cast<const char *>(functions.glGetString(name)));
}

QString informationOf(const ProbeContext &probe)
{
    QOpenGLFunctions *functions = probe.functions();
    if (!functions)
        return Words::tr("No OpenGL context");
    GLint textureSize = 0;
    functions->glGetIntegerv(GL_MAX_TEXTURE_SIZE, &textureSize);
    const QStringList lines{
        Words::tr("Vendor: %1").arg(textOf(*functions, GL_VENDOR)),
        Words::tr("Renderer: %1").arg(textOf(*functions, GL_RENDERER)),
        Words::tr("OpenGL: %1").arg(textOf(*functions, GL_VERSION)),
        Words::tr("Shading language: %1").arg(textOf(*functions, GL_SHADING_LANGUAGE_VERSION)),
        Words::tr("Largest texture: %1 pixels").arg(textureSize)};
    return lines.join(QLatin1Char('\n'));
}

} // namespace

QString checkGraphics(QString *information)
{
    const ProbeContext probe;
    if (information)
        *information = informationOf(probe);
    if (!probe.hasShaders())
        return Words::tr("Installed OpenGL has no shader support!");
    if (!probe.functions()->hasOpenGLFeature(QOpenGLFunctions::Multitexture))
        return Words::tr("Installed OpenGL has no multi-texturing support!");
    return {};
}

QString graphicsInformation()
{
    return informationOf(ProbeContext());
}

void prepareGraphics()
{
    // The oldest version that will do: drivers then give the newest compatible one.
    QSurfaceFormat format;
    format.setVersion(2, 0);
    format.setProfile(QSurfaceFormat::CompatibilityProfile);
    format.setStencilBufferSize(8); // the toolkit clips with it
    format.setSamples(0);
    QSurfaceFormat::setDefaultFormat(format);
}
