#include "preview/ViewKeys.h"

#include "preview/PenInput.h"

#include <QAbstractScrollArea>
#include <QApplication>
#include <QComboBox>
#include <QKeyEvent>
#include <QKeySequenceEdit>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QTextEdit>

namespace {
bool takesText(const QWidget *widget)
{
    if (const auto *box = qobject_cast<const QComboBox *>(widget))
        return box->isEditable();
    return qobject_cast<const QLineEdit *>(widget) || qobject_cast<const QTextEdit *>(widget) ||
           qobject_cast<const QPlainTextEdit *>(widget) ||
           qobject_cast<const QKeySequenceEdit *>(widget);
}
} // namespace

ViewKeys::ViewKeys(const QAbstractScrollArea &view, const PenInput &pen)
    : m_view(view)
    , m_pen(pen)
{
    qApp->installEventFilter(this);
}

bool ViewKeys::eventFilter(QObject * /*watched*/, QEvent *event)
{
    const QEvent::Type type = event->type();
    const bool isKey = type == QEvent::KeyPress || type == QEvent::KeyRelease;
    if (!isKey && type != QEvent::ShortcutOverride)
        return false;
    const auto &key = static_cast<const QKeyEvent &>(*event);
    if (isKey)
        return key.key() == Qt::Key_Space && takesSpace(key);
    // A menu bar would take the focus at the release of Alt, and with it the keys that follow, as
    // it was held for a tool or for the wheel. With another key it opens menus as ever.
    if (key.key() != Qt::Key_Alt || !isPointerHere())
        return false;
    event->accept();
    return true;
}

bool ViewKeys::takesSpace(const QKeyEvent &event)
{
    const bool isRelease = event.type() == QEvent::KeyRelease;
    if (m_isSpaceHeld && isRelease && !event.isAutoRepeat()) {
        setSpaceHeld(false);
        return true;
    }
    if (m_isSpaceHeld || isRelease || event.isAutoRepeat() || !mayHold())
        return m_isSpaceHeld;
    setSpaceHeld(true);
    return true;
}

bool ViewKeys::mayHold() const
{
    return isPointerHere() && !takesText(QApplication::focusWidget());
}

bool ViewKeys::isPointerHere() const
{
    const bool isHere = m_view.viewport()->underMouse() || m_pen.isHere();
    return isHere && !QApplication::activeModalWidget() && !QApplication::activePopupWidget();
}

void ViewKeys::setSpaceHeld(bool isHeld)
{
    if (isHeld == m_isSpaceHeld)
        return;
    m_isSpaceHeld = isHeld;
    Q_EMIT spaceHeldChanged();
}
