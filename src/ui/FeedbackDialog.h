#pragma once

#include <QDialog>

/// Where the user writes what they think of the program. Nothing is sent: the text is copied,
/// together with what is known of the system when the user wants that.
class FeedbackDialog : public QDialog
{
    Q_OBJECT

public:
    explicit FeedbackDialog(const QString &systemInformation, QWidget *parent = nullptr);
};
