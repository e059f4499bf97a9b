#pragma once

#include "framework/UpdateChecker.h"

#include <QDialog>

QT_BEGIN_NAMESPACE
class QLabel;
class QPushButton;
QT_END_NAMESPACE

/// Tells what came of a question for a newer version, and leads to the page of the one there is.
class UpdateDialog : public QDialog
{
    Q_OBJECT

public:
    /// Waits for an answer of @p host.
    explicit UpdateDialog(QString host, QWidget *parent = nullptr);

    bool isWaiting() const { return m_isWaiting; }
    void wait();
    void showAnswer(const UpdateAnswer &answer);

Q_SIGNALS:
    /// The user does not want to hear of this version again.
    void skipped(const SemanticVersion &version);

private:
    void say(const QString &title, const QString &detail);
    void openPage();
    void skip();

    QString m_host;
    bool m_isWaiting = true;
    UpdateRelease m_release;
    QLabel *m_title;
    QLabel *m_detail;
    QLabel *m_address;
    QPushButton *m_page;
    QPushButton *m_skip;
    QPushButton *m_close;
};
