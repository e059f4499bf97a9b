#pragma once

#include "framework/UpdateChecker.h"

class NoticeBar;
class UpdateDialog;
QT_BEGIN_NAMESPACE
class QAction;
class QMainWindow;
QT_END_NAMESPACE

/// What a window shows about updates: the question whether to ask for them, the news, and what the
/// user asks by a menu. Owns the checker.
class UpdateNotices : public QObject
{
    Q_OBJECT

public:
    /// @p settings and @p window outlive this.
    UpdateNotices(UpdateChecker::Source source, GSettings &settings, QMainWindow &window);
    ~UpdateNotices() override;

    /// The command for the Help menu.
    QAction &checkAction() const { return *m_checkAction; }

    /// Done a minute after the start, and every quarter of an hour from then on: puts the one
    /// question to the user if it never was, or asks the feed if that is agreed and due.
    void look();

private:
    void askUser();
    void checkNow();
    void tell(const UpdateAnswer &answer);
    NoticeBar &makeBar(const QString &text);
    UpdateDialog &dialog();

    UpdateSettings m_settings;
    UpdateChecker m_checker;
    QMainWindow &m_window;
    QAction *m_checkAction;
    QPointer<NoticeBar> m_bar;
    QPointer<UpdateDialog> m_dialog;
    QTimer m_timer;
};
