#pragma once

#include <QTimer>
#include <QToolBar>

QT_BEGIN_NAMESPACE
class QLabel;
class QMainWindow;
class QPushButton;
QT_END_NAMESPACE

/// A line above a window's status bar that says or asks something without stopping the work. The
/// window owns it; any of its buttons takes it away for good.
class NoticeBar : public QToolBar
{
    Q_OBJECT

public:
    /// Not shown yet; @p text is taken as it stands.
    NoticeBar(const QString &text, QMainWindow &window);

    QPushButton *addButton(const QString &text);
    /// Shows it once the user's hand has rested for a second: the window's other parts move then,
    /// and nobody wants that under a stroke.
    void showAtRest();

Q_SIGNALS:
    void appeared();

protected:
    void resizeEvent(QResizeEvent *event) override;
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    void appear();

    QMainWindow &m_window;
    QLabel *m_label;
    QTimer m_rest;
};
