#pragma once

#include <QElapsedTimer>
#include <QMouseEvent>
#include <QObject>

class QAbstractScrollArea;
class QTabletEvent;

/// What a pen does, as mouse events, and which mouse events the system makes of the same. Owned by
/// the view that hears it.
class PenInput : public QObject
{
    Q_OBJECT

public:
    explicit PenInput(const QAbstractScrollArea &view);

    /// The mouse event that @p event stands for; a second press soon at the same place is a double
    /// click.
    QMouseEvent mouseEvent(const QTabletEvent &event);
    /// Whether @p event only repeats what the pen has said.
    bool isEcho(const QMouseEvent &event) const;

    bool isDown() const { return m_buttons != Qt::NoButton; }
    /// Over the view, of which the system need not tell.
    bool isHere() const { return m_isHere; }
    void leave() { m_isHere = false; }
    /// Its release will not be heard.
    void lift() { m_buttons = Qt::NoButton; }

    bool eventFilter(QObject *watched, QEvent *event) override;

Q_SIGNALS:
    /// Hovers elsewhere now.
    void left();
    /// Is gone while it is down; whoever hears it calls lift().
    void lost();

private:
    QEvent::Type typeOf(const QTabletEvent &event);
    bool isSecondPress(const QTabletEvent &event);

    const QAbstractScrollArea &m_view;
    Qt::MouseButtons m_buttons;
    bool m_isHere = false;
    QElapsedTimer m_sinceEvent;
    QPoint m_place; // on the screen
    QElapsedTimer m_sincePress;
    QPoint m_pressPlace;
    Qt::MouseButton m_pressButton = Qt::NoButton;
};
