#include "preview/GLGraphicsScene.h"

#include "base/Error.h"
#include "preview/BorrowedContext.h"
#include "preview/GLGraphicsLight.h"
#include "preview/GLGraphicsSprite.h"
#include "preview/LitSprite.h"
#include "preview/SceneRenderer.h"

#include <QGraphicsView>
#include <QLoggingCategory>
#include <QOpenGLContext>
#include <QOpenGLFunctions>
#include <QPaintEngine>
#include <QPainter>
#include <QTimer>
#include <QWindow>

#include <algorithm>

namespace {

Q_LOGGING_CATEGORY(lcScene, "GLGraphicsScene")

constexpr int unseenInterval = 100; // ms between looks whether a view shows again

bool isOpenGL(const QPaintEngine *engine)
{
    return engine &&
           (engine->type() == QPaintEngine::OpenGL2 || engine->type() == QPaintEngine::OpenGL);
}

/// The viewport that is painted, in the device's pixels and in those of the scene.
class PaintedViewport
{
public:
    explicit PaintedViewport(const QPainter &painter)
        : m_device(*painter.paintEngine()->paintDevice())
        , m_transform(painter.combinedTransform())
    {
    }

    QSize pixels() const { return {m_device.width(), m_device.height()}; }
    qreal pixelRatio() const { return m_device.devicePixelRatioF(); }
    // By the painter's own transformation: a part that is exposed alone shifts nothing.
    QPolygonF sceneQuad() const
    {
        const QPolygonF corners = m_transform.inverted().map(QPolygonF(rect()));
        return corners.mid(0, 4);
    }
    QMatrix4x4 projection() const
    {
        QMatrix4x4 matrix;
        matrix.ortho(rect());
        return matrix * QMatrix4x4(m_transform);
    }

private:
    QRectF rect() const { return {QPointF(), pixels()}; }

    const QPaintDevice &m_device;
    QTransform m_transform;
};

} // namespace

GLGraphicsScene::GLGraphicsScene(QObject *parent)
    : EditorScene(parent)
    , m_light(new GLGraphicsLight)
{
    m_light->setZValue(1000.0);
    addItem(m_light);
    // The view repaints by the scene's own calls only.
    connect(m_light, &GLGraphicsLight::moved, this, [this] { update(); });
}

GLGraphicsScene::~GLGraphicsScene()
{
    releaseGraphics();
}

void GLGraphicsScene::setDisplayMode(DisplayMode mode)
{
    m_displayMode = mode;
    m_light->setVisible(mode == DisplayMode::LitSurface || mode == DisplayMode::LitTexture);
    update();
}

void GLGraphicsScene::setDisplayScaleFactor(float factor)
{
    EditorScene::setDisplayScaleFactor(factor);
    m_light->setDisplayScaleFactor(factor);
    update();
}

void GLGraphicsScene::setTextureOverlayFactor(float factor)
{
    m_textureOverlayFactor = factor;
    update();
}

void GLGraphicsScene::setSceneLight(const SceneLight &light)
{
    m_sceneLight = light;
    m_light->setColor(light.color);
    update();
}

void GLGraphicsScene::setAnimating(bool isAnimating)
{
    m_isAnimating = isAnimating;
    if (isAnimating && !m_isAdvanceScheduled)
        scheduleAdvance();
}

void GLGraphicsScene::timedAdvance()
{
    advance();
    update();
    m_isAdvanceScheduled = m_isAnimating;
    if (m_isAnimating)
        QTimer::singleShot(isSeen() ? 0 : unseenInterval, this, &GLGraphicsScene::scheduleAdvance);
}

// Windows that are hidden or minimised get no frames.
bool GLGraphicsScene::isSeen() const
{
    const QList<QGraphicsView *> all = views();
    return all.isEmpty() || std::any_of(all.begin(), all.end(), [](const QGraphicsView *view) {
               const QWindow *window = view->window()->windowHandle();
               return view->isVisible() && window && window->isExposed();
           });
}

void GLGraphicsScene::scheduleAdvance()
{
    m_isAdvanceScheduled = true;
    QTimer::singleShot(1, this, &GLGraphicsScene::timedAdvance);
}

QImage GLGraphicsScene::litImage(GLGraphicsSprite &sprite)
{
    return litSprite(sprite, m_sceneLight, m_light->position());
}

void GLGraphicsScene::releaseGraphics()
{
    disconnect(m_contextEnd);
    if (!m_renderer)
        return;
    const std::shared_ptr<BorrowedContext> context = m_renderer->context();
    context->run([this] {
        for (GLGraphicsSprite *sprite : sprites())
            sprite->releaseTextures();
        m_renderer.reset();
    });
    m_renderer.reset();
}

void GLGraphicsScene::drawBackground(QPainter *painter, const QRectF &)
{
    if (!isOpenGL(painter->paintEngine())) {
        qCWarning(lcScene,
                  "OpenGLScene: drawBackground needs a QGLWidget to be set as viewport on the "
                  "graphics view");
        return;
    }
    painter->beginNativePainting();
    useCurrentContext();
    QOpenGLFunctions &functions = *QOpenGLContext::currentContext()->functions();
    functions.glBindBuffer(GL_ARRAY_BUFFER, 0);
    functions.glEnable(GL_BLEND);
    functions.glBlendFunc(GL_ONE, GL_ONE_MINUS_SRC_ALPHA);
    try {
        if (!m_hasFailed)
            drawFrame(*painter);
    } catch (const Error &error) {
        // No exception may fly through the toolkit's painting. The next attempt fails like this.
        m_hasFailed = true;
        qCCritical(lcScene, "%s", error.what());
    }
    functions.glActiveTexture(GL_TEXTURE0);
    painter->endNativePainting();
}

// Takes up the context that is current, and lets go of a former one.
void GLGraphicsScene::useCurrentContext()
{
    QOpenGLContext &current = *QOpenGLContext::currentContext();
    if (m_renderer && m_renderer->context()->context() == &current)
        return;
    releaseGraphics();
    m_hasFailed = false;
    m_renderer = std::make_unique<SceneRenderer>(current);
    m_contextEnd = connect(
        &current, &QOpenGLContext::aboutToBeDestroyed, this, &GLGraphicsScene::releaseGraphics);
}

void GLGraphicsScene::drawFrame(const QPainter &painter)
{
    const PaintedViewport viewport(painter);
    ShaderFrame frame;
    frame.projection = viewport.projection();
    frame.resolution = viewport.pixels();
    frame.displayMode = m_displayMode;
    frame.displayScaleFactor = displayScaleFactor();
    frame.pixelRatio = float(viewport.pixelRatio());
    frame.textureOverlayFactor = m_textureOverlayFactor;
    m_renderer->setFrame(frame);

    const QVector3D position = m_light->position();
    const QVector3D middle(float(width() * 0.5), float(height() * 0.5), 0.0F);
    m_renderer->setLight(m_sceneLight, position, (position - middle).normalized());
    const QPolygonF shown = viewport.sceneQuad();
    m_renderer->drawBackground(shown);
    for (GLGraphicsSprite *sprite : sprites()) {
        if (!sprite->isVisible() || !shown.boundingRect().intersects(sprite->sceneBoundingRect()))
            continue;
        m_renderer->drawSprite(*sprite, m_light->kind() == GLGraphicsLight::Kind::Directional);
        nameScaledDown(*sprite);
    }
}

// In stacking order.
QVector<GLGraphicsSprite *> GLGraphicsScene::sprites() const
{
    QVector<GLGraphicsSprite *> result;
    for (QGraphicsItem *item : items(Qt::AscendingOrder)) {
        if (auto *sprite = qgraphicsitem_cast<GLGraphicsSprite *>(item))
            result.append(sprite);
    }
    return result;
}

void GLGraphicsScene::nameScaledDown(GLGraphicsSprite &sprite)
{
    if (!sprite.takeScaledDownNotice())
        return;
    GLint limit = 0;
    QOpenGLContext::currentContext()->functions()->glGetIntegerv(GL_MAX_TEXTURE_SIZE, &limit);
    Q_EMIT spriteScaledDown(&sprite, limit);
}
