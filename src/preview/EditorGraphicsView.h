#pragma once

#include <QGraphicsView>

class EditorScene;

/// A view with continuous zoom and panning: middle button, Space and drag, Alt and wheel. Zooming
/// keeps the pixel under the pointer.
class EditorGraphicsView : public QGraphicsView
{
    Q_OBJECT

public:
    static constexpr double minimumZoom = 0.05;
    static constexpr double maximumZoom = 64.0;

    explicit EditorGraphicsView(QWidget *parent = nullptr);

    /// 1 shows a scene pixel as one logical pixel of the screen.
    double zoom() const;
    void setEditorScene(EditorScene *scene);

public Q_SLOTS:
    /// Keeps the point under the pointer, the centre when the pointer is elsewhere.
    void setZoom(double zoom);
    /// Shows all of @p rect, centred, with some room around; never above 1600 %.
    void zoomToFit(const QRectF &rect);

Q_SIGNALS:
    void zoomChanged(double zoom);
};
