#pragma once

#include "preview/BodyOutlines.h"

#include <QCoreApplication>
#include <QHash>
#include <QPointF>
#include <QTimer>

class Body;
class BodyItems;
class ItemSelectionModel;
class QGraphicsScene;
class QGraphicsSceneMouseEvent;
class SpriteItem;

/// What the mouse does to the selected bodies: click, extend, rubber band, move. The view draws the
/// rubber band itself. Moved bodies learn of it at the end, by one undo step. All that it works on
/// is borrowed.
class SceneSelection
{
    Q_DECLARE_TR_FUNCTIONS(SceneSelection)

public:
    SceneSelection(QGraphicsScene &scene, const BodyItems &items, ItemSelectionModel &selection);

    /// Accepts the press on a body, whose drag moves the selected ones when it @p mayMove;
    /// elsewhere ignores it, so that the view begins a rubber band.
    void press(QGraphicsSceneMouseEvent &event, bool mayMove);
    void move(const QGraphicsSceneMouseEvent &event);
    /// True when sprites have been moved.
    bool release(const QGraphicsSceneMouseEvent &event);
    bool isPressed() const { return m_gesture != Gesture::None; }
    /// True between the press on a body and its release.
    bool isOnBodies() const { return m_gesture == Gesture::Click || m_gesture == Gesture::Move; }
    /// Ends what was begun where it is.
    void finish();
    /// Takes back what was begun.
    void cancel();
    /// Frames the selected bodies where they are now.
    void updateOutlines();

private:
    enum class Gesture { None, Click, Move, Band };

    void pressBody(Body *body, Qt::KeyboardModifiers modifiers);
    void startMove();
    void placeMoved();
    void storeMoved(const QHash<SpriteItem *, QPointF> &moved);
    void forget();
    /// Also those selected before while the band extends.
    QList<Body *> bodiesInBand(const QGraphicsSceneMouseEvent &event) const;
    void outline(const QList<Body *> &bodies);

    const BodyItems &m_items;
    ItemSelectionModel &m_selection;
    BodyOutlines *m_outlines; // the scene's
    Gesture m_gesture = Gesture::None;
    bool m_mayMove = false;
    bool m_isDragged = false;
    Body *m_selectedAtRelease = nullptr; ///< alone, unless the press becomes a drag
    QHash<SpriteItem *, QPointF> m_startPositions;
    QPointF m_way;   // of the pointer since the press
    QTimer m_moving; // until the sprites follow
};
