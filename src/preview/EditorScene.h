#pragma once

#include <QCursor>
#include <QGraphicsScene>

/// What pointers tell besides what the toolkit's mouse events hold.
struct PenTouch
{
    QPointF offset; ///< in scene pixels, from the mouse event's whole pixel to the exact place
    double pressure = 1.0; ///< 0 to 1; a mouse presses fully
    bool isEraser = false;
};

/// What every editor's scene has, whatever it draws: the zoom at which it is seen and the pointer
/// over it. Its scene rectangle is its content; views let the user go beyond.
class EditorScene : public QGraphicsScene
{
    Q_OBJECT

public:
    using QGraphicsScene::QGraphicsScene;

    float displayScaleFactor() const { return m_displayScaleFactor; }
    /// The logical pixels that a scene pixel has on the screen.
    virtual void setDisplayScaleFactor(float factor) { m_displayScaleFactor = factor; }
    /// Only looking, while the user holds the key that pans.
    virtual void setViewOnly(bool isViewOnly) { Q_UNUSED(isViewOnly) }

    /// What the mouse events that follow are made of.
    virtual void setPen(const PenTouch &touch) { Q_UNUSED(touch) }
    /// The point of its content that is nearest to @p place, which is @p place itself inside.
    virtual QPointF contentNear(const QPointF &place) const
    {
        const QRectF content = sceneRect();
        return {qBound(content.left(), place.x(), content.right()),
                qBound(content.top(), place.y(), content.bottom())};
    }
    /// Ends what the mouse is doing where it is, since its release will not be heard.
    virtual void finishGesture() {}
    /// The wheel turned with Control held. False when that means nothing here.
    virtual bool turnWheel(double notches, Qt::KeyboardModifiers modifiers)
    {
        Q_UNUSED(notches)
        Q_UNUSED(modifiers)
        return false;
    }

    /// The mouse pointer of all views while they don't pan.
    const QCursor &pointer() const { return m_pointer; }

Q_SIGNALS:
    void pointerChanged();

protected:
    void setPointer(const QCursor &pointer)
    {
        if (pointer == m_pointer)
            return;
        m_pointer = pointer;
        Q_EMIT pointerChanged();
    }

private:
    float m_displayScaleFactor = 1.0F;
    QCursor m_pointer;
};
