#include "tools/effects/PositionedDialog.h"

#include <QCursor>
#include <QEvent>
#include <QGuiApplication>
#include <QScreen>
#include <QWindow>

#include <algorithm>

namespace {
constexpr int belowPointer = 50; // pixels
} // namespace

PositionedDialog::PositionedDialog(QWidget *parent)
    : QDialog(parent, Qt::Tool | Qt::WindowStaysOnTopHint)
{
}

void PositionedDialog::done(int result)
{
    Q_EMIT aboutToFinish(result);
    QDialog::done(result);
}

bool PositionedDialog::event(QEvent *event)
{
    const bool isBlocked = event->type() == QEvent::WindowBlocked;
    if (isBlocked || event->type() == QEvent::WindowUnblocked)
        windowHandle()->setFlag(Qt::WindowStaysOnTopHint, !isBlocked);
    return QDialog::event(event);
}

void PositionedDialog::showEvent(QShowEvent *event)
{
    if (!m_isPositioned)
        placeBelowPointer();
    m_isPositioned = true;
    QDialog::showEvent(event);
}

void PositionedDialog::placeBelowPointer()
{
    const QPoint pointer = QCursor::pos();
    QPoint place(pointer.x() - width() / 2, pointer.y() + belowPointer);
    // Its buttons can be reached, wherever the pointer is.
    if (const QScreen *screen = QGuiApplication::screenAt(pointer)) {
        const QRect room = screen->availableGeometry();
        place.rx() = std::max(room.left(), std::min(place.x(), room.right() + 1 - width()));
        place.ry() = std::max(room.top(), std::min(place.y(), room.bottom() + 1 - height()));
    }
    move(place);
}
