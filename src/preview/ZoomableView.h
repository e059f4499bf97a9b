#pragma once

#include "preview/PixelGrid.h"

#include <QGraphicsView>
#include <QPointer>

#include <functional>
#include <optional>

class EditorScene;

/// A view that shows its scene at any zoom, from any place, on whole pixels of the screen. Zooming
/// keeps the point under the pointer, resizing the one in the middle. Its user borrows it a scene.
class ZoomableView : public QGraphicsView
{
    Q_OBJECT

public:
    static constexpr double minimumZoom = 0.05;
    static constexpr double maximumZoom = 64.0;

    explicit ZoomableView(QWidget *parent = nullptr);
    ~ZoomableView() override;

    /// 1 shows a scene pixel as one of the screen, as two where those are half as large.
    double zoom() const { return m_grid.zoom(); }

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
    void showScene(EditorScene *scene);
    EditorScene *shownScene() const { return m_scene; }
    /// Called when the scene may have come to lie elsewhere below the pointer.
    virtual void tellPlace() {}

    void zoomAround(const QPointF &viewPoint, double zoom);
    void panBy(const QPoint &distance);
    /// The user has taken over from zoomToFit().
    void releaseFit() { m_fitted = {}; }
    /// Takes over the ratio of the screen that the window is on now.
    void followScreen();
    /// The point of the scene that is drawn at @p viewPoint, which need not be a whole pixel.
    QPointF exactlyAt(const QPointF &viewPoint) const;

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
    void applyZoom(double zoom);
    void updateTransform();
    void fit();
    void keepContentInView();
    void inOneStep(const std::function<void()> &steps);
    void updateReach();

    QPointer<EditorScene> m_scene;
    PixelGrid m_grid;
    bool m_isTransforming = false;
    std::optional<Anchor> m_anchor;
    QRectF m_fitted;
};
