#include "preview/LitSprite.h"

#include "preview/GLGraphicsSprite.h"
#include "preview/SceneRenderer.h"

#include <QOffscreenSurface>
#include <QOpenGLContext>
#include <QOpenGLFramebufferObject>
#include <QOpenGLFunctions>

#include <algorithm>

namespace {

// No driver has smaller limits for what the shaders need; larger pieces are not much faster.
constexpr int tileSize = 2048;

/// Makes a context current for as long as it lives, and then the former one again.
class OwnContext
{
public:
    OwnContext()
        : m_former(QOpenGLContext::currentContext())
        , m_formerSurface(m_former ? m_former->surface() : nullptr)
    {
        m_surface.setFormat(QSurfaceFormat::defaultFormat());
        m_surface.create();
        m_isCurrent = m_context.create() && m_context.makeCurrent(&m_surface);
    }
    ~OwnContext()
    {
        m_context.doneCurrent();
        if (m_former)
            m_former->makeCurrent(m_formerSurface);
    }
    OwnContext(const OwnContext &) = delete;
    OwnContext &operator=(const OwnContext &) = delete;

    bool isCurrent() const { return m_isCurrent; }
    QOpenGLContext &context() { return m_context; }

private:
    QOpenGLContext *m_former;
    QSurface *m_formerSurface;
    QOffscreenSurface m_surface;
    QOpenGLContext m_context;
    bool m_isCurrent = false;
};

int tileSizeOf(QOpenGLFunctions &functions)
{
    GLint viewport[2] = {};
    GLint texture = 0;
    functions.glGetIntegerv(GL_MAX_VIEWPORT_DIMS, viewport);
    functions.glGetIntegerv(GL_MAX_TEXTURE_SIZE, &texture);
    return std::min({tileSize, int(texture), int(viewport[0]), int(viewport[1])});
}

// Bright light makes colours that are above their alpha, which none can be that is premultiplied.
void cutAtAlpha(QImage &premultiplied)
{
    for (int y = 0; y < premultiplied.height(); ++y) {
        auto *row = reinterpret_cast<QRgb *>(premultiplied.scanLine(y));
        std::transform(row, row + premultiplied.width(), row, [](QRgb pixel) {
            const int alpha = qAlpha(pixel);
            return qRgba(std::min(qRed(pixel), alpha),
                         std::min(qGreen(pixel), alpha),
                         std::min(qBlue(pixel), alpha),
                         alpha);
        });
    }
}

// Draws @p area of a sprite's images, whose top left corner is at @p origin in the scene.
QImage litTile(SceneRenderer &renderer,
               const QImage &colors,
               const QImage &normals,
               const QRect &area,
               const QPointF &origin)
{
    GLGraphicsSprite tile;
    tile.setColorImage(colors.copy(area));
    tile.setNormalImage(normals.copy(area));
    tile.setPos(origin + area.topLeft());

    const QRectF place(tile.pos(), area.size());
    ShaderFrame frame;
    // The first row of the frame buffer is the lowest one.
    frame.projection.ortho(float(place.left()),
                           float(place.right()),
                           float(place.bottom()),
                           float(place.top()),
                           -1.0F,
                           1.0F);
    frame.resolution = area.size();
    renderer.setFrame(frame);

    QOpenGLFramebufferObject buffer(area.size());
    buffer.bind();
    QOpenGLFunctions &functions = *QOpenGLContext::currentContext()->functions();
    functions.glViewport(0, 0, area.width(), area.height());
    functions.glDisable(GL_BLEND);
    renderer.drawSprite(tile, false);
    QImage result = buffer.toImage().convertToFormat(QImage::Format_ARGB32_Premultiplied);
    cutAtAlpha(result);
    return result.convertToFormat(QImage::Format_ARGB32);
}

void copyInto(QImage &target, const QImage &tile, const QPoint &place)
{
    for (int y = 0; y < tile.height(); ++y)
        std::copy_n(reinterpret_cast<const QRgb *>(tile.constScanLine(y)),
                    tile.width(),
                    reinterpret_cast<QRgb *>(target.scanLine(place.y() + y)) + place.x());
}

} // namespace

QImage
litSprite(const GLGraphicsSprite &sprite, const SceneLight &light, const QVector3D &lightPosition)
{
    const QImage &colors = sprite.colorImage();
    OwnContext own;
    if (!own.isCurrent() || colors.isNull())
        return {};
    SceneRenderer renderer(own.context());
    renderer.setLight(light, lightPosition, {});
    // As the shader stretches a normal map of another size.
    const QImage normals = sprite.normalImage().size() == colors.size()
                               ? sprite.normalImage()
                               : sprite.normalImage().scaled(colors.size());
    const int step = tileSizeOf(*own.context().functions());
    QImage result(colors.size(), QImage::Format_ARGB32);
    for (int y = 0; y < colors.height(); y += step) {
        for (int x = 0; x < colors.width(); x += step) {
            const QRect area = QRect(x, y, step, step) & colors.rect();
            copyInto(result,
                     litTile(renderer, colors, normals, area, sprite.scenePos()),
                     area.topLeft());
        }
    }
    return result;
}
