#pragma once

#include <QDialog>

/// Versions, system, screens and the settings file, in lines.
QString systemSummary();

/// Shows a text that goes into a report of a fault, with a button that copies it.
class SystemInformationDialog : public QDialog
{
    Q_OBJECT

public:
    explicit SystemInformationDialog(const QString &text, QWidget *parent = nullptr);
};
