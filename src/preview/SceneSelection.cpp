#include "preview/SceneSelection.h"

#include "model/ItemSelectionModel.h"
#include "model/properties/GUndoStack.h"
#include "preview/BodyItems.h"
#include "preview/SpriteItem.h"

#include <QApplication>
#include <QGraphicsScene>
#include <QGraphicsSceneMouseEvent>

namespace {
bool extends(Qt::KeyboardModifiers modifiers)
{
    return modifiers & (Qt::ControlModifier | Qt::ShiftModifier);
}

bool isFarFromPress(const QGraphicsSceneMouseEvent &event)
{
    const QPoint way = event.screenPos() - event.buttonDownScreenPos(Qt::LeftButton);
    return way.manhattanLength() >= QApplication::startDragDistance();
}

QPointF wayOf(const QGraphicsSceneMouseEvent &event)
{
    // Whole pixels, so that the pixels of all sprites lie on one grid.
    return (event.scenePos() - event.buttonDownScenePos(Qt::LeftButton)).toPoint();
}

GUndoStack &stackOf(const QHash<SpriteItem *, QPointF> &items)
{
    return items.cbegin().key()->body().undoStack();
}
} // namespace

SceneSelection::SceneSelection(QGraphicsScene &scene,
                               const BodyItems &items,
                               ItemSelectionModel &selection)
    : m_items(items)
    , m_selection(selection)
    , m_outlines(new BodyOutlines)
{
    scene.addItem(m_outlines);
    m_moving.setSingleShot(true);
    QObject::connect(&m_moving, &QTimer::timeout, &m_moving, [this] { placeMoved(); });
}

void SceneSelection::press(QGraphicsSceneMouseEvent &event, bool mayMove)
{
    // Other buttons must not begin a rubber band either.
    event.accept();
    if (event.button() != Qt::LeftButton)
        return;
    finish();
    SpriteItem *item = m_items.itemAt(event.scenePos());
    m_gesture = item ? Gesture::Click : Gesture::Band;
    m_mayMove = mayMove;
    event.setAccepted(item);
    if (item)
        pressBody(&item->body(), event.modifiers());
}

void SceneSelection::pressBody(Body *body, Qt::KeyboardModifiers modifiers)
{
    QList<Body *> selected = m_selection.selection();
    const bool isSelected = selected.contains(body);
    if (isSelected && (modifiers & Qt::ControlModifier)) {
        selected.removeOne(body);
        m_mayMove = false;
        m_selection.setSelection(selected);
    } else if (!isSelected) {
        m_selection.setSelection(extends(modifiers) ? selected << body : QList<Body *>{body});
    } else if (!extends(modifiers)) {
        m_selectedAtRelease = body;
    }
}

void SceneSelection::move(const QGraphicsSceneMouseEvent &event)
{
    m_isDragged = m_isDragged || isFarFromPress(event);
    if (!m_isDragged)
        return;
    if (m_gesture == Gesture::Band)
        outline(bodiesInBand(event));
    if (m_gesture == Gesture::Click && m_mayMove)
        startMove();
    if (m_gesture != Gesture::Move)
        return;
    m_way = wayOf(event);
    // The pointer tells of every place that it was at; the sprites need the last one only.
    if (!m_moving.isActive())
        m_moving.start(0);
}

void SceneSelection::placeMoved()
{
    m_moving.stop();
    for (auto it = m_startPositions.cbegin(); it != m_startPositions.cend(); ++it)
        it.key()->setPos(it.value() + m_way);
    updateOutlines();
}

void SceneSelection::startMove()
{
    m_gesture = Gesture::Move;
    for (Body *body : m_selection.selection()) {
        if (SpriteItem *item = m_items.item(body))
            m_startPositions.insert(item, item->pos());
    }
}

bool SceneSelection::release(const QGraphicsSceneMouseEvent &event)
{
    if (event.button() != Qt::LeftButton)
        return false;
    const bool hasMoved = m_gesture == Gesture::Move;
    if (m_gesture == Gesture::Click && m_selectedAtRelease && !m_isDragged)
        m_selection.setSelection({m_selectedAtRelease});
    if (m_gesture == Gesture::Band && m_isDragged)
        m_selection.setSelection(bodiesInBand(event));
    else if (m_gesture == Gesture::Band && !extends(event.modifiers()))
        m_selection.setSelection({});
    finish();
    updateOutlines();
    return hasMoved;
}

void SceneSelection::finish()
{
    if (m_gesture == Gesture::Move)
        placeMoved();
    const auto moved = m_startPositions;
    // No step can be made inside of undo and redo.
    if (!moved.isEmpty() && stackOf(moved).isStepping()) {
        cancel();
        return;
    }
    forget();
    if (!moved.isEmpty())
        storeMoved(moved);
}

void SceneSelection::storeMoved(const QHash<SpriteItem *, QPointF> &moved)
{
    const QString text = tr("move sprites");
    const UndoMacro macro(stackOf(moved), text);
    for (auto it = moved.cbegin(); it != moved.cend(); ++it) {
        if (it.key()->pos() != it.value())
            it.key()->body().moveTo(it.key()->pos().toPoint(), text);
        // No farther than places go.
        it.key()->setPos(m_items.placeOf(it.key()->body()));
    }
}

void SceneSelection::cancel()
{
    if (!isPressed())
        return;
    for (auto it = m_startPositions.cbegin(); it != m_startPositions.cend(); ++it)
        it.key()->setPos(m_items.placeOf(it.key()->body()));
    forget();
    updateOutlines();
}

void SceneSelection::forget()
{
    m_moving.stop();
    m_way = {};
    m_gesture = Gesture::None;
    m_isDragged = false;
    m_selectedAtRelease = nullptr;
    m_startPositions.clear();
}

QList<Body *> SceneSelection::bodiesInBand(const QGraphicsSceneMouseEvent &event) const
{
    const QRectF band =
        QRectF(event.buttonDownScenePos(Qt::LeftButton), event.scenePos()).normalized();
    QList<Body *> bodies;
    if (extends(event.modifiers()))
        bodies = m_selection.selection();
    for (SpriteItem *item : m_items.items()) {
        const QRectF rect(item->pos(), item->boundingRect().size());
        if (band.intersects(rect) && !bodies.contains(&item->body()))
            bodies.append(&item->body());
    }
    return bodies;
}

void SceneSelection::updateOutlines()
{
    outline(m_selection.selection());
}

void SceneSelection::outline(const QList<Body *> &bodies)
{
    QVector<QRectF> rects;
    for (Body *body : bodies) {
        if (const SpriteItem *item = m_items.item(body))
            rects.append({item->pos(), item->boundingRect().size()});
    }
    m_outlines->setRects(rects);
}
