#pragma once

#include <QDialog>

/// A small window for settings that stays above the window which it belongs to. It comes up below
/// the pointer the first time, and where the user left it later. It covers no question.
class PositionedDialog : public QDialog
{
    Q_OBJECT

public:
    explicit PositionedDialog(QWidget *parent = nullptr);

    void done(int result) override;

Q_SIGNALS:
    /// Still to be seen; @p result is Accepted or Rejected.
    void aboutToFinish(int result);

protected:
    bool event(QEvent *event) override;
    void showEvent(QShowEvent *event) override;

private:
    void placeBelowPointer();

    bool m_isPositioned = false;
};
