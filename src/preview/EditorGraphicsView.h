#pragma once

#include "preview/EditorScene.h"
#include "preview/ZoomableView.h"

#include <memory>

class PenInput;
class QGestureEvent;
class ViewKeys;

/// What the user does in a zoomable view: panning by middle button, Space and drag, wheel, zooming
/// by Alt and wheel, Space and wheel, two fingers. A pen does what a mouse does, and tells the
/// scene of its pressure.
class EditorGraphicsView : public ZoomableView
{
    Q_OBJECT

public:
    explicit EditorGraphicsView(QWidget *parent = nullptr);
    ~EditorGraphicsView() override;

    void setEditorScene(EditorScene *scene);

protected:
    bool event(QEvent *event) override;
    bool viewportEvent(QEvent *event) override;
    void wheelEvent(QWheelEvent *event) override;
    void mousePressEvent(QMouseEvent *event) override;
    void mouseMoveEvent(QMouseEvent *event) override;
    void mouseReleaseEvent(QMouseEvent *event) override;
    void mouseDoubleClickEvent(QMouseEvent *event) override;
    void tellPlace() override;

private:
    void updatePointer();

    void updateHeld();
    bool startPan(QMouseEvent &event);
    void press(QMouseEvent &event);
    void move(QMouseEvent &event);
    void release(QMouseEvent &event);
    bool takeMouse(const QMouseEvent &event);
    void takePen(QTabletEvent &event);
    void penLeft();
    void loseGesture();
    void pinch(const QGestureEvent &event);

    Qt::MouseButton m_panButton = Qt::NoButton;
    QPoint m_panFrom;
    QPointF m_pointerPlace; // of the last event, in the viewport
    PenTouch m_touch;
    std::unique_ptr<PenInput> m_pen;
    std::unique_ptr<ViewKeys> m_keys;
};
