#pragma once

#include <QKeySequenceEdit>

/// Takes the keys of a command by their being pressed: one at a time, at once.
class KeyEdit : public QKeySequenceEdit
{
    Q_OBJECT

public:
    using QKeySequenceEdit::QKeySequenceEdit;

    bool event(QEvent *event) override;

Q_SIGNALS:
    void pressed(const QKeySequence &keys);
    /// Escape or Enter, which are told too, give up the focus.
    void left();

protected:
    void keyPressEvent(QKeyEvent *event) override;
};
