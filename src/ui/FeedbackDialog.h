#pragma once

#include "base/BuildOptions.h"

#include <QDialog>

class GSettings;
QT_BEGIN_NAMESPACE
class QCheckBox;
class QDialogButtonBox;
class QLabel;
class QPlainTextEdit;
class QPushButton;
QT_END_NAMESPACE

/// Where the user writes what they think of the program, and sees all that goes along. The program
/// sends nothing by itself: the text goes to the user's mail program, the clipboard or a file. What
/// went nowhere stands there again the next time.
class FeedbackDialog : public QDialog
{
    Q_OBJECT

public:
    struct Content
    {
        QString systemInformation;
        QString crashReport = {};            ///< of the last run; empty for none
        QString address = feedbackAddress(); ///< empty for none
    };

    /// @p settings outlive the dialog.
    FeedbackDialog(Content content, GSettings &settings, QWidget *parent = nullptr);

    void done(int result) override;

private:
    void placeWidgets();
    QDialogButtonBox *createButtons();
    QString appendix() const;
    QString message() const;
    bool isTooLong() const;
    void showAppendix();
    void showState();
    void mail();
    void copy();
    void save();
    void deliver(const QString &notice);

    Content m_content;
    GSettings &m_settings;
    QPlainTextEdit *m_text;
    QCheckBox *m_withSystem;
    QCheckBox *m_withCrash;
    QLabel *m_alongTitle;
    QPlainTextEdit *m_along;
    QLabel *m_notice;
    QPushButton *m_mail;
    bool m_isDelivered = false;
};
