#include "support/Gestures.h"

#include <QApplication>
#include <QMouseEvent>
#include <QTest>
#include <QWidget>

namespace {
// QCoreApplication::sendEvent() would make it one of the program's own.
void sendFromOutside(QWidget &widget, QEvent &event)
{
    QSpontaneKeyEvent::setSpontaneous(&event);
    qApp->notify(&widget, &event);
}
} // namespace

void dragTo(QWidget &widget, const QPoint &place)
{
    QMouseEvent event(QEvent::MouseMove,
                      place,
                      widget.mapToGlobal(place),
                      Qt::NoButton,
                      Qt::LeftButton,
                      Qt::NoModifier);
    sendFromOutside(widget, event);
}

void turnWheel(QWidget &widget, int notches)
{
    constexpr int notch = 120;
    const QPoint middle = widget.rect().center();
    QWheelEvent event(middle,
                      widget.mapToGlobal(middle),
                      {},
                      {0, notch * notches},
                      Qt::NoButton,
                      Qt::NoModifier,
                      Qt::NoScrollPhase,
                      false);
    sendFromOutside(widget, event);
}
