#pragma once

#include <QObject>

class PenInput;
class QAbstractScrollArea;
class QKeyEvent;

/// The keys that mean the view below the pointer, heard before the widget that has the focus: Space
/// and Alt, on which a list, a button or a menu bar would act. Owned by the view; the pen is
/// borrowed.
class ViewKeys : public QObject
{
    Q_OBJECT

public:
    ViewKeys(const QAbstractScrollArea &view, const PenInput &pen);

    bool isSpaceHeld() const { return m_isSpaceHeld; }
    /// Its release will not be heard.
    void letSpaceGo() { setSpaceHeld(false); }

    bool eventFilter(QObject *watched, QEvent *event) override;

Q_SIGNALS:
    void spaceHeldChanged();

private:
    bool isPointerHere() const;
    bool mayHold() const;
    bool takesSpace(const QKeyEvent &event);
    void setSpaceHeld(bool isHeld);

    const QAbstractScrollArea &m_view;
    const PenInput &m_pen;
    bool m_isSpaceHeld = false;
};
