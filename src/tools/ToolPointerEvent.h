#pragma once

#include <QPoint>
#include <QPointF>
#include <Qt>
#include <QtMath>

/// A press, move, release or double click, as tools see it.
struct ToolPointerEvent
{
    QPointF position;      ///< in pixels of the sprite, which may lie outside of it
    double pressure = 1.0; ///< 0 to 1; a mouse presses fully
    bool isEraser = false; ///< the other end of a pen
    Qt::MouseButtons buttons = Qt::NoButton;
    Qt::MouseButton changedButton = Qt::NoButton; ///< none for a move
    Qt::KeyboardModifiers modifiers = Qt::NoModifier;

    /// The one that holds the position.
    QPoint pixel() const { return {qFloor(position.x()), qFloor(position.y())}; }
};
