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

void dragTo(QWidget &widget, const QPoint &place, Qt::MouseButtons buttons)
{
    QMouseEvent event(
        QEvent::MouseMove, place, widget.mapToGlobal(place), Qt::NoButton, buttons, Qt::NoModifier);
    sendFromOutside(widget, event);
}

void drag(QWidget &widget,
          const QPoint &from,
          const QPoint &to,
          Qt::MouseButton button,
          Qt::KeyboardModifiers modifiers)
{
    QTest::mousePress(&widget, button, modifiers, from);
    dragTo(widget, (from + to) / 2, button);
    dragTo(widget, to, button);
    QTest::mouseRelease(&widget, button, modifiers, to);
}

void turnWheel(QWidget &widget,
               const QPoint &place,
               const QPoint &angle,
               Qt::KeyboardModifiers modifiers)
{
    QWheelEvent event(
        place, widget.mapToGlobal(place), {}, angle, {}, modifiers, Qt::NoScrollPhase, false);
    sendFromOutside(widget, event);
}
