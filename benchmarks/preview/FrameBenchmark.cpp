#include "preview/NormalMapEditorScene.h"

#include "Ratio.h"
#include "model/Documents.h"
#include "model/ItemSelectionModel.h"
#include "model/NormalMapProcessor.h"
#include "model/PixelSelectionModel.h"
#include "model/Project.h"
#include "preview/SpriteItem.h"

#include <QOffscreenSurface>
#include <QOpenGLContext>
#include <QOpenGLFramebufferObject>
#include <QOpenGLFunctions>
#include <QOpenGLPaintDevice>
#include <QPainter>

namespace {

constexpr QRect view(-1100, -1100, 2200, 2200); // one pixel of the scene is one of the picture

/// Draws the sprites of a project into a picture, the same part of the scene each time.
class Frame
{
public:
    Frame(int bodies, const QSize &size)
        : m_painted(bodies, size)
    {
        m_surface.create();
        m_context.create();
        m_context.makeCurrent(&m_surface);
        m_picture = std::make_unique<QOpenGLFramebufferObject>(
            view.size(), QOpenGLFramebufferObject::CombinedDepthStencil);
        m_scene.setProject(m_painted.project.get());
        for (const Body *body : m_painted.project->bodies().all())
            m_scene.spriteItem(body)->processor().waitForIdle();
    }

    ~Frame()
    {
        m_scene.setProject(nullptr);
        m_context.makeCurrent(&m_surface);
        m_picture.reset();
    }

    void draw()
    {
        m_context.makeCurrent(&m_surface);
        m_picture->bind();
        QOpenGLPaintDevice device(m_picture->size());
        QPainter painter(&device);
        m_scene.render(&painter, QRectF(QPointF(), m_picture->size()), view);
        painter.end();
        m_context.functions()->glFinish();
    }

private:
    PaintedProject m_painted;
    ItemSelectionModel m_bodies;
    PixelSelectionModel m_pixels;
    QOffscreenSurface m_surface;
    QOpenGLContext m_context;
    NormalMapEditorScene m_scene{m_bodies, m_pixels};
    std::unique_ptr<QOpenGLFramebufferObject> m_picture;
};

// Both sides cover the same area: 50 × 256 × 256 pixels are 2048 × 1600.
const bool row = addRatio("a frame, 50 sprites of 256x256 / one as large as all", 1 / 1.2, [] {
    auto many = std::make_shared<Frame>(50, QSize(256, 256));
    auto one = std::make_shared<Frame>(1, QSize(2048, 1600));
    return Contest{[many] { many->draw(); }, [one] { one->draw(); }};
});

} // namespace
