#pragma once

#include <QPoint>
#include <Qt>

class QWidget;

/// Moves the pointer with @p buttons held. (QTest moves it with none.)
void dragTo(QWidget &widget, const QPoint &place, Qt::MouseButtons buttons = Qt::LeftButton);
/// Presses, goes on in two steps and releases.
void drag(QWidget &widget,
          const QPoint &from,
          const QPoint &to,
          Qt::MouseButton button = Qt::LeftButton,
          Qt::KeyboardModifiers modifiers = {});
/// Turns the wheel as the system does: who ignores it hands it to its parent.
void turnWheel(QWidget &widget,
               const QPoint &place,
               const QPoint &angle,
               Qt::KeyboardModifiers modifiers = {});
