#pragma once

#include "model/properties/ChangeManager.h"
#include "model/properties/Observer.h"
#include "preview/EditorScene.h"
#include "tools/PaintTool.h"

#include <QObject>
#include <QPointer>

class Body;
class PixelSelectionModel;
class QGraphicsScene;
class QGraphicsSceneMouseEvent;
class QKeyEvent;
class SpriteItem;

/// Between the active tool and the body that it works on: activates it, hands it events and what
/// changes elsewhere, and turns what it announces into pieces shown and undo steps. Tool, body and
/// models are borrowed.
class ToolRouting : public QObject, public Observer
{
    Q_OBJECT

public:
    ToolRouting(QGraphicsScene &scene, PixelSelectionModel &pixels, QObject *parent = nullptr);
    ~ToolRouting() override;

    PaintTool *tool() const { return m_tool; }
    void setTool(PaintTool *tool);
    SpriteItem *target() const { return m_target; }
    /// The sprite that the tool works on; null for none, which deactivates it.
    void setTarget(SpriteItem *target);
    /// Whether there are both a tool and something to work on.
    bool isActive() const { return m_isActive; }
    /// What the tool asked for last, also while it is not active.
    InteractionMode mode() const { return m_mode; }
    bool takesEvents() const { return m_isActive && m_mode == InteractionMode::Tool; }
    /// Between a press and its last release.
    bool isPressed() const { return m_isPressed; }

    // Between these lies a gesture: from the first press to the release of the last button.
    void press(const QGraphicsSceneMouseEvent &event);
    void doubleClick(const QGraphicsSceneMouseEvent &event);
    /// With buttons held only when their press came here, too.
    void move(const QGraphicsSceneMouseEvent &event);
    void release(const QGraphicsSceneMouseEvent &event);
    /// What the next of these are made of.
    void setPen(const PenTouch &touch) { m_pen = touch; }
    /// Releases all that is pressed at its last place, so that it is committed. Inside of undo and
    /// redo, where nothing can be, it is dropped.
    void finishGesture();
    bool turnWheel(double notches, Qt::KeyboardModifiers modifiers);
    void keyPress(const QKeyEvent &event);
    void keyRelease(const QKeyEvent &event);
    /// Tells the tool, once the target confines pieces to the new selection: a stroke that is open
    /// is shown anew.
    void pixelSelectionChanged(const Body *changed);
    /// Puts the tool's overlay over the sprite again, which has moved.
    void placeOverlay();

    void observableChanged(Observable &observable) override;

Q_SIGNALS:
    void cursorChanged(const ScalableToolCursor &cursor);
    /// Active or not, or another mode.
    void stateChanged();

private:
    void activate();
    void deactivate();
    void connectTool();
    void toolDestroyed();
    ToolPointerEvent toolEvent(const QGraphicsSceneMouseEvent &event,
                               Qt::MouseButton changedButton) const;
    void begin(const ToolPointerEvent &event);
    void end(const ToolPointerEvent &event);
    Body &body() const;
    bool mayPush() const;
    void prepareForPush();
    FloatImage selection() const;
    void reactivateForSize(const QSize &size);

    void setMode(InteractionMode mode);
    void showPiece(const AngleImage &piece, const QRect &area);
    void dropPieces();
    void commit(const QString &undoText);
    void select(const FloatImage &selection, const QString &undoText, bool mergeWithPrevious);

    QGraphicsScene &m_scene;
    PixelSelectionModel &m_pixels;
    QPointer<PaintTool> m_tool;
    SpriteItem *m_target = nullptr;
    QGraphicsItem *m_overlay = nullptr; // the tool's, in the scene while active
    InteractionMode m_mode = InteractionMode::MoveSprites;
    QSize m_size; ///< of the surface that the tool was activated with
    Observation m_surfaceObservation;
    Observation m_spriteObservation;
    QMetaObject::Connection m_stackConnection;
    PenTouch m_pen;
    ToolPointerEvent m_last; ///< of the gesture
    bool m_isActive = false;
    bool m_isPressed = false;
    bool m_isPushing = false;   ///< an own step
    bool m_hasPieces = false;   ///< shown and not committed
    bool m_hasSelected = false; ///< in this gesture
};
