#include "preview/ToolRouting.h"

#include "model/Body.h"
#include "model/NormalMapProcessor.h"
#include "model/PixelSelectionModel.h"
#include "model/PropertyAngleImage.h"
#include "model/Sprite.h"
#include "model/properties/GUndoStack.h"
#include "preview/SpriteItem.h"
#include "tools/PaintTool.h"

#include <QGraphicsScene>
#include <QGraphicsSceneMouseEvent>
#include <QKeyEvent>
#include <QScopedValueRollback>

#include <utility>

namespace {
constexpr double overlayZ = 950.0; // above the sprites' frames, below the light

// Of the surface, which need not be made for it.
QSize sizeOf(const Body &body)
{
    const QSize painted = body.paintedSize();
    return painted.isEmpty() ? body.sprite().image().size() : painted;
}

Qt::MouseButton lowestOf(Qt::MouseButtons buttons)
{
    const int bits = buttons;
    return Qt::MouseButton(bits & -bits);
}
} // namespace

ToolRouting::ToolRouting(QGraphicsScene &scene, PixelSelectionModel &pixels, QObject *parent)
    : QObject(parent)
    , m_scene(scene)
    , m_pixels(pixels)
{
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
    // It asks for it itself only when it becomes active on one body.
    if (m_tool && !m_target && m_tool->worksOnSeveralBodies())
        setMode(InteractionMode::MoveSprites);
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
    disconnect(m_stackConnection);
    m_target = target;
    if (target) {
        m_surfaceObservation = ChangeManager::instance().observe(body().paintedNormalMap(), *this);
        m_spriteObservation = ChangeManager::instance().observe(body().sprite(), *this);
        m_stackConnection = connect(
            &body().undoStack(), &GUndoStack::aboutToPush, this, &ToolRouting::prepareForPush);
    }
    activate();
}

void ToolRouting::activate()
{
    if (!m_tool || !m_target)
        return;
    m_isActive = true;
    const AngleImage surface = m_target->processor().surface();
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
    finishGesture();
    if (!m_isActive)
        return;
    if (m_overlay)
        m_scene.removeItem(m_overlay);
    m_overlay = nullptr;
    // It may still commit.
    m_tool->deactivate();
    m_isActive = false;
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

// Else the step would lie below the one that makes it impossible to go on, above one that is being
// undone, or belong to a body that is gone or has become another.
bool ToolRouting::mayPush() const
{
    return m_isActive && body().parent() && !body().undoStack().isStepping() &&
           sizeOf(body()) == m_size;
}

void ToolRouting::prepareForPush()
{
    if (!m_isPushing)
        finishGesture();
}

ToolPointerEvent ToolRouting::toolEvent(const QGraphicsSceneMouseEvent &event,
                                        Qt::MouseButton changedButton) const
{
    return {event.scenePos() - m_target->pos(),
            m_pen.pressure,
            m_pen.isEraser,
            event.buttons(),
            changedButton,
            event.modifiers()};
}

void ToolRouting::press(const QGraphicsSceneMouseEvent &event)
{
    begin(toolEvent(event, event.button()));
    m_tool->mousePress(m_last);
}

void ToolRouting::doubleClick(const QGraphicsSceneMouseEvent &event)
{
    begin(toolEvent(event, event.button()));
    m_tool->mouseDoubleClick(m_last);
}

void ToolRouting::begin(const ToolPointerEvent &event)
{
    m_hasSelected = m_isPressed && m_hasSelected;
    m_isPressed = true;
    m_last = event;
}

void ToolRouting::move(const QGraphicsSceneMouseEvent &event)
{
    const bool isHover = event.buttons() == Qt::NoButton && takesEvents();
    if (!isHover && !m_isPressed)
        return;
    const ToolPointerEvent moved = toolEvent(event, Qt::NoButton);
    m_last.position = moved.position;
    m_last.modifiers = moved.modifiers;
    m_tool->mouseMove(moved);
}

void ToolRouting::release(const QGraphicsSceneMouseEvent &event)
{
    if (m_isPressed)
        end(toolEvent(event, event.button()));
}

void ToolRouting::finishGesture()
{
    while (m_isPressed) {
        ToolPointerEvent event = m_last;
        if (event.buttons != Qt::NoButton)
            event.changedButton = lowestOf(event.buttons);
        event.buttons &= ~Qt::MouseButtons(event.changedButton);
        end(event);
    }
}

void ToolRouting::end(const ToolPointerEvent &event)
{
    m_isPressed = event.buttons != Qt::NoButton;
    m_last.buttons = event.buttons;
    m_tool->mouseRelease(event);
    if (!m_isPressed && m_hasSelected)
        m_pixels.finishGesture();
}

bool ToolRouting::turnWheel(double notches, Qt::KeyboardModifiers modifiers)
{
    return takesEvents() && m_tool->turnWheel(notches, modifiers);
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
    if (!mayPush())
        return dropPieces();
    if (std::exchange(m_hasPieces, false)) {
        const QScopedValueRollback pushing(m_isPushing, true);
        m_target->storeShown(undoText);
    }
    m_tool->updateNormalMap(m_target->processor().surface());
}

void ToolRouting::select(const FloatImage &selection,
                         const QString &undoText,
                         bool mergeWithPrevious)
{
    if (!mayPush())
        return;
    m_hasSelected = true;
    const QScopedValueRollback pushing(m_isPushing, true);
    m_pixels.setSelection(&body(), selection, undoText, mergeWithPrevious);
}

void ToolRouting::pixelSelectionChanged(const Body *changed)
{
    if (m_isActive && changed == &body())
        m_tool->updateSelection(selection());
}

void ToolRouting::observableChanged(Observable &observable)
{
    if (m_isPushing)
        return;
    const QSize size = sizeOf(body());
    if (size != m_size)
        reactivateForSize(size);
    else if (m_isActive && &observable == &body().sprite())
        m_tool->updateTexture(body().sprite().image());
    else if (m_isActive)
        m_tool->updateNormalMap(m_target->processor().surface());
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
