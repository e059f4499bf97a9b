#pragma once

#include <QPixmap>
#include <QPointF>
#include <QWidget>

/// A ball seen from above, lit from the upper left, with a marker that mouse and keys move over it.
/// Knows places, as offsets from the ball's centre; which slope lies where is its owner's matter.
class AngleGlobeView : public QWidget
{
    Q_OBJECT

public:
    /// @p globeSize is the ball's diameter, around which there is a margin.
    AngleGlobeView(int globeSize, int margin, QWidget *parent = nullptr);

    void setMarker(const QPointF &position);
    /// Shows the directions and rings to which places snap, and moves from one to the next by keys.
    void setDiscrete(bool isDiscrete);

Q_SIGNALS:
    /// A place that the marker may stand on was pointed at.
    void pointed(const QPointF &position);
    void resetRequested();

protected:
    bool event(QEvent *event) override;
    void paintEvent(QPaintEvent *event) override;
    void mousePressEvent(QMouseEvent *event) override;
    void mouseMoveEvent(QMouseEvent *event) override;
    void mouseReleaseEvent(QMouseEvent *event) override;
    void keyPressEvent(QKeyEvent *event) override;
    void hideEvent(QHideEvent *event) override;

private:
    void point(const QMouseEvent &event);
    QPointF moved(const QPoint &step, bool isFar) const;
    QPointF turned(const QPoint &step, bool isFar);
    double radius() const;
    void drawBall(QPainter &painter);
    void drawRim(QPainter &painter) const;
    void drawSnapLines(QPainter &painter) const;
    void drawMarker(QPainter &painter) const;

    int m_globeSize;
    QPointF m_marker;
    bool m_isDiscrete = false;
    int m_direction; ///< of 12, from +Y towards +X; kept while the marker is in the centre
    QPixmap m_ball;  ///< for the pixel ratio that it was painted with last
};
