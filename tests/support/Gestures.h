#pragma once

#include <QPoint>

class QWidget;

/// Moves the pointer with the left button held. (QTest moves it with none.)
void dragTo(QWidget &widget, const QPoint &place);
/// Turns the wheel over the middle of @p widget as the system does: who ignores it hands it to its
/// parent.
void turnWheel(QWidget &widget, int notches);
