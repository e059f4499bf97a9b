#include "framework/EditorKeys.h"

#include <QApplication>
#include <QDialog>
#include <QKeyEvent>
#include <QWidget>

namespace {
bool isEnter(const QKeyEvent &event)
{
    return event.key() == Qt::Key_Return || event.key() == Qt::Key_Enter;
}
} // namespace

EditorKeys::EditorKeys(QWidget &editor,
                       std::function<void()> finish,
                       std::function<bool()> cancel,
                       QObject *parent)
    : QObject(parent)
    , m_editor(editor)
    , m_finish(std::move(finish))
    , m_cancel(std::move(cancel))
{
}

void EditorKeys::watch(QWidget &part)
{
    // Without WheelFocus, which would take the focus before the wheel is asked.
    part.setFocusPolicy(Qt::StrongFocus);
    part.installEventFilter(this);
}

bool EditorKeys::eventFilter(QObject *watched, QEvent *event)
{
    auto &part = static_cast<QWidget &>(*watched);
    switch (event->type()) {
    case QEvent::Wheel:
        if (hasFocus())
            return false;
        event->ignore();
        return true;
    case QEvent::ShortcutOverride: {
        const auto &key = static_cast<QKeyEvent &>(*event);
        if (isEnter(key) || key.key() == Qt::Key_Escape)
            event->accept();
        return false;
    }
    case QEvent::KeyPress:
        return pressed(part, static_cast<QKeyEvent &>(*event));
    case QEvent::FocusOut:
        if (static_cast<QFocusEvent &>(*event).reason() != Qt::PopupFocusReason)
            m_finish();
        return false;
    default:
        return false;
    }
}

bool EditorKeys::hasFocus() const
{
    const QWidget *focused = QApplication::focusWidget();
    return focused && (focused == &m_editor || m_editor.isAncestorOf(focused));
}

bool EditorKeys::pressed(QWidget &part, QKeyEvent &event)
{
    if (isEnter(event)) {
        m_finish();
        event.ignore(); // a dialog's default button wants it too
    } else if (event.key() == Qt::Key_Escape) {
        const bool isInDialog = qobject_cast<QDialog *>(part.window());
        event.setAccepted(m_cancel() && !isInDialog);
    } else {
        return false;
    }
    part.clearFocus();
    return true;
}
