#include "preview/ToolRouting.h"

#include "model/Body.h"
#include "model/NormalMapProcessor.h"
#include "model/PixelSelectionModel.h"
#include "model/PropertyAngleImage.h"
#include "model/Sprite.h"
#include "preview/SpriteItem.h"
#include "tools/PaintTool.h"

#include <QGraphicsScene>
#include <QGraphicsSceneMouseEvent>
#include <QKeyEvent>
#include <QScopedValueRollback>

namespace {
constexpr double overlayZ = 950.0; // above the sprites' frames, below the light
} // namespace

ToolRouting::ToolRouting(QGraphicsScene &scene, PixelSelectionModel &pixels, QObject *parent)
    : QObject(parent)
    , m_scene(scene)
    , m_pixels(pixels)
{
    connect(
        &pixels, &PixelSelectionModel::selectionChanged, this, &ToolRouting::pixelSelectionChanged);
}

ToolRouting::~ToolRouting()
{
    deactivate();
}

void ToolRouting::setTool(PaintTool *tool)
{
    if (tool == m_tool)
        return;
    deactivate();
    if (m_tool)
        m_tool->disconnect(this);
    m_tool = tool;
    connectTool();
    activate();
}

void ToolRouting::connectTool()
{
    if (!m_tool)
        return;
    connect(m_tool, &PaintTool::cursorChanged, this, &ToolRouting::cursorChanged);
    connect(m_tool, &PaintTool::interactionModeChanged, this, &ToolRouting::setMode);
    connect(m_tool, &PaintTool::temporaryNormalMapChanged, this, &ToolRouting::showPiece);
    connect(m_tool, &PaintTool::commitNormalMap, this, &ToolRouting::commit);
    connect(m_tool, &PaintTool::selectionChanged, this, &ToolRouting::select);
    connect(m_tool, &QObject::destroyed, this, &ToolRouting::toolDestroyed);
}

void ToolRouting::setTarget(SpriteItem *target)
{
    if (target == m_target)
        return;
    deactivate();
    m_surfaceObservation = {};
    m_spriteObservation = {};
    m_target = target;
    if (target) {
        m_surfaceObservation = ChangeManager::instance().observe(body().paintedNormalMap(), *this);
        m_spriteObservation = ChangeManager::instance().observe(body().sprite(), *this);
    }
    activate();
}

void ToolRouting::activate()
{
    if (!m_tool || !m_target)
        return;
    m_isActive = true;
    const AngleImage surface = body().surface();
    m_size = surface.size();
    m_tool->activate({body().sprite().image(), selection()}, surface);
    m_tool->updateTexture(body().sprite().image());
    m_tool->updateSelection(selection());
    m_overlay = m_tool->overlayItem();
    if (m_overlay) {
        m_overlay->setZValue(overlayZ);
        m_scene.addItem(m_overlay);
    }
    placeOverlay();
    Q_EMIT stateChanged();
}

void ToolRouting::deactivate()
{
    m_isPressed = false;
    if (!m_isActive)
        return;
    m_isActive = false;
    if (m_overlay)
        m_scene.removeItem(m_overlay);
    m_overlay = nullptr;
    m_tool->deactivate();
    dropPieces();
    Q_EMIT stateChanged();
}

void ToolRouting::toolDestroyed()
{
    m_overlay = nullptr;
    m_isActive = false;
    m_isPressed = false;
    dropPieces();
    Q_EMIT stateChanged();
}

void ToolRouting::placeOverlay()
{
    if (m_overlay)
        m_overlay->setPos(m_target->pos());
}

Body &ToolRouting::body() const
{
    return m_target->body();
}

FloatImage ToolRouting::selection() const
{
    return m_pixels.body() == &body() ? m_pixels.selection() : FloatImage();
}

ToolPointerEvent ToolRouting::toolEvent(const QGraphicsSceneMouseEvent &event,
                                        Qt::MouseButton changedButton) const
{
    return {event.scenePos() - m_target->pos(),
            1.0,
            false,
            event.buttons(),
            changedButton,
            event.modifiers()};
}

void ToolRouting::press(const QGraphicsSceneMouseEvent &event)
{
    m_isPressed = true;
    m_tool->mousePress(toolEvent(event, event.button()));
}

void ToolRouting::doubleClick(const QGraphicsSceneMouseEvent &event)
{
    m_isPressed = true;
    m_tool->mouseDoubleClick(toolEvent(event, event.button()));
}

void ToolRouting::move(const QGraphicsSceneMouseEvent &event)
{
    const bool isHover = event.buttons() == Qt::NoButton && takesEvents();
    if (isHover || m_isPressed)
        m_tool->mouseMove(toolEvent(event, Qt::NoButton));
}

void ToolRouting::release(const QGraphicsSceneMouseEvent &event)
{
    if (!m_isPressed)
        return;
    m_isPressed = event.buttons() != Qt::NoButton;
    m_tool->mouseRelease(toolEvent(event, event.button()));
}

void ToolRouting::keyPress(const QKeyEvent &event)
{
    if (takesEvents())
        m_tool->keyPress(event.key(), event.modifiers());
}

void ToolRouting::keyRelease(const QKeyEvent &event)
{
    if (takesEvents())
        m_tool->keyRelease(event.key(), event.modifiers());
}

void ToolRouting::setMode(InteractionMode mode)
{
    m_mode = mode;
    Q_EMIT stateChanged();
}

void ToolRouting::showPiece(const AngleImage &piece, const QRect &area)
{
    if (!m_isActive)
        return;
    m_hasPieces = true;
    m_target->processor().updateRect(piece, area);
}

// A stroke that is broken off would stay to be seen, and become part of the next step.
void ToolRouting::dropPieces()
{
    if (m_hasPieces)
        m_target->processor().updateAll();
    m_hasPieces = false;
}

void ToolRouting::commit(const QString &undoText)
{
    if (!m_isActive)
        return;
    m_hasPieces = false;
    m_target->processor().waitForIdle();
    const AngleImage shown = m_target->processor().angleImage();
    if (!(shown == body().surface())) {
        const QScopedValueRollback committing(m_isCommitting, true);
        body().paintedNormalMap().setAngleImage(shown, undoText);
    }
    m_tool->updateNormalMap(body().surface());
}

void ToolRouting::select(const FloatImage &selection,
                         const QString &undoText,
                         bool mergeWithPrevious)
{
    if (m_isActive)
        m_pixels.setSelection(&body(), selection, undoText, mergeWithPrevious);
}

void ToolRouting::pixelSelectionChanged(Body *changed)
{
    if (m_isActive && changed == &body())
        m_tool->updateSelection(selection());
}

void ToolRouting::observableChanged(Observable &observable)
{
    if (m_isCommitting)
        return;
    const AngleImage surface = body().surface();
    if (surface.size() != m_size)
        reactivateForSize(surface.size());
    else if (m_isActive && &observable == &body().sprite())
        m_tool->updateTexture(body().sprite().image());
    else if (m_isActive)
        m_tool->updateNormalMap(surface);
}

void ToolRouting::reactivateForSize(const QSize &size)
{
    Body &changed = body();
    deactivate();
    m_size = size;
    // A mask of the former size fits no more.
    if (m_pixels.body() == &changed) {
        m_pixels.setBody(nullptr);
        m_pixels.setBody(&changed);
    }
    activate();
}
