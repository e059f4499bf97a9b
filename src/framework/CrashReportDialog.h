#pragma once

#include "framework/CrashLog.h"

#include <QDialog>

/// Says after a start that the program had ended by a fault, and shows the report of it, which the
/// user may copy. It sends nothing.
class CrashReportDialog : public QDialog
{
    Q_OBJECT

public:
    explicit CrashReportDialog(const CrashLog::Report &report, QWidget *parent = nullptr);

    /// Shows the report of the last fault, if there is one that was not shown before, and returns
    /// when the user has closed it.
    static void showLast(QWidget *parent);
};
