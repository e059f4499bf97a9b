#include "preview/PenInput.h"

#include <QAbstractScrollArea>
#include <QApplication>
#include <QStyleHints>
#include <QTabletEvent>

namespace {
constexpr int echoTime = 300; // in ms, after which a mouse event is no echo of the pen's
} // namespace

PenInput::PenInput(const QAbstractScrollArea &view)
    : m_view(view)
{
    qApp->installEventFilter(this);
}

// Without mouse events the toolkit does not notice which widget a pen leaves.
bool PenInput::eventFilter(QObject *watched, QEvent *event)
{
    const bool isElsewhere = event->type() == QEvent::TabletMove && watched->isWidgetType() &&
                             watched != m_view.viewport();
    // Taken away while it touches, or broken down: it will not be told that it was lifted.
    if (event->type() == QEvent::TabletLeaveProximity && isDown())
        Q_EMIT lost();
    const bool isGone = isElsewhere || event->type() == QEvent::TabletLeaveProximity;
    if (isGone && m_isHere && !isDown()) {
        m_isHere = false;
        Q_EMIT left();
    }
    return false;
}

QMouseEvent PenInput::mouseEvent(const QTabletEvent &event)
{
    const QEvent::Type type = typeOf(event);
    m_buttons = event.buttons();
    m_place = event.globalPos();
    m_isHere = true;
    m_sinceEvent.start();
    const bool isMove = type == QEvent::MouseMove;
    return {type,
            event.posF(),
            event.posF(),
            event.globalPosF(),
            isMove ? Qt::NoButton : event.button(),
            event.buttons(),
            event.modifiers(),
            Qt::MouseEventSynthesizedByApplication};
}

QEvent::Type PenInput::typeOf(const QTabletEvent &event)
{
    if (event.type() == QEvent::TabletMove)
        return QEvent::MouseMove;
    if (event.type() == QEvent::TabletRelease)
        return QEvent::MouseButtonRelease;
    return isSecondPress(event) ? QEvent::MouseButtonDblClick : QEvent::MouseButtonPress;
}

bool PenInput::isSecondPress(const QTabletEvent &event)
{
    const QStyleHints &hints = *QGuiApplication::styleHints();
    const QPoint way = event.globalPos() - m_pressPlace;
    const bool isSecond = m_pressButton == event.button() && m_sincePress.isValid() &&
                          m_sincePress.elapsed() < hints.mouseDoubleClickInterval() &&
                          way.manhattanLength() < hints.startDragDistance();
    // The third press is a first one again.
    m_pressButton = isSecond ? Qt::NoButton : event.button();
    m_pressPlace = event.globalPos();
    m_sincePress.start();
    return isSecond;
}

// A core pointer that follows the pen tells of no source, but stands where the pen does.
bool PenInput::isEcho(const QMouseEvent &event) const
{
    const bool isSoon = m_sinceEvent.isValid() && m_sinceEvent.elapsed() < echoTime;
    const bool isLikeThePen =
        event.source() != Qt::MouseEventNotSynthesized || event.globalPos() == m_place;
    return isDown() || (isSoon && isLikeThePen);
}
