#include "framework/KeyEdit.h"

#include <QKeyEvent>

// Tab goes on to the next field, as everywhere, and is told all the same.
bool KeyEdit::event(QEvent *event)
{
    if (event->type() == QEvent::KeyPress) {
        const int key = static_cast<QKeyEvent &>(*event).key();
        if (key == Qt::Key_Tab || key == Qt::Key_Backtab)
            Q_EMIT pressed(QKeySequence(key));
    }
    return QKeySequenceEdit::event(event);
}

void KeyEdit::keyPressEvent(QKeyEvent *event)
{
    const QKeySequence former = keySequence();
    clear();
    QKeySequenceEdit::keyPressEvent(event);
    event->accept();
    const QKeySequence keys = keySequence();
    // Ends the recording, which would wait for more; a modifier alone is no key.
    setKeySequence(keys.isEmpty() ? former : keys);
    if (keys.isEmpty())
        return;
    Q_EMIT pressed(keys);
    if (event->modifiers() == Qt::NoModifier &&
        (event->key() == Qt::Key_Escape || event->key() == Qt::Key_Return ||
         event->key() == Qt::Key_Enter))
        Q_EMIT left();
}
