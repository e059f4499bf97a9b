#pragma once

#include "preview/EditorScene.h"
#include "preview/PixelGrid.h"

#include <QGraphicsView>
#include <QPointer>

#include <functional>
#include <memory>
#include <optional>

class PenInput;
class QGestureEvent;
class ViewKeys;

/// A view with continuous zoom and panning: middle button, Space and drag, wheel, Alt and wheel,
/// two fingers. Zooming keeps the pixel under the pointer, resizing what is in the middle. A pen
/// does what a mouse does, and tells the scene of its pressure.
class EditorGraphicsView : public QGraphicsView
{
    Q_OBJECT

public:
    static constexpr double minimumZoom = 0.05;
    static constexpr double maximumZoom = 64.0;

    explicit EditorGraphicsView(QWidget *parent = nullptr);
    ~EditorGraphicsView() override;

    /// 1 shows a scene pixel as one of the screen, as two where those are half as large.
    double zoom() const { return m_grid.zoom(); }
    void setEditorScene(EditorScene *scene);

public Q_SLOTS:
    /// Keeps the point under the pointer, the centre when the pointer is elsewhere; some of the
    /// scene's content stays in view.
    void setZoom(double zoom);
    /// Shows all of @p rect, centred, with some room around; never above 1600 %. The view goes on
    /// showing it when it gets its size, until the user does something in it.
    void zoomToFit(const QRectF &rect);

Q_SIGNALS:
    void zoomChanged(double zoom);

protected:
    bool event(QEvent *event) override;
    bool viewportEvent(QEvent *event) override;
    void wheelEvent(QWheelEvent *event) override;
    void mousePressEvent(QMouseEvent *event) override;
    void mouseMoveEvent(QMouseEvent *event) override;
    void mouseReleaseEvent(QMouseEvent *event) override;
    void mouseDoubleClickEvent(QMouseEvent *event) override;
    void resizeEvent(QResizeEvent *event) override;
    void showEvent(QShowEvent *event) override;
    void scrollContentsBy(int dx, int dy) override;

private:
    /// A point of the scene that was put at a point of the view. While neither pointer nor scroll
    /// bars move it is known exactly, and zooming back and forth does not drift.
    struct Anchor
    {
        QPointF scene;
        QPointF view;
        QPoint scroll;
    };

    QPoint scroll() const;
    QPointF sceneAt(const QPointF &viewPoint) const;
    void place(const QPointF &scenePoint, const QPointF &viewPoint);
    void zoomAround(const QPointF &viewPoint, double zoom);
    void applyZoom(double zoom);
    void updateTransform();
    void followScreen();
    void fit();
    void keepContentInView();
    void panBy(const QPoint &distance);
    void inOneStep(const std::function<void()> &steps);
    void updateReach();
    void updatePointer();

    void updateHeld();
    bool startPan(QMouseEvent &event);
    void press(QMouseEvent &event);
    void move(QMouseEvent &event);
    void release(QMouseEvent &event);
    bool takeMouse(const QMouseEvent &event);
    void takePen(QTabletEvent &event);
    void tellPlace();
    QPointF exactlyAt(const QPointF &viewPoint) const;
    void penLeft();
    void loseGesture();
    void pinch(const QGestureEvent &event);

    QPointer<EditorScene> m_scene;
    PixelGrid m_grid;
    bool m_isTransforming = false;
    std::optional<Anchor> m_anchor;
    QRectF m_fitted;
    Qt::MouseButton m_panButton = Qt::NoButton;
    QPoint m_panFrom;
    QPointF m_pointerPlace; // of the last event, in the viewport
    PenTouch m_touch;
    std::unique_ptr<PenInput> m_pen;
    std::unique_ptr<ViewKeys> m_keys;
};
