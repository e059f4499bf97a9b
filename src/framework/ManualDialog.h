#pragma once

#include <QDialog>

/// Shows pages of the manual, which are resources; links to the outside open in the browser.
class ManualDialog : public QDialog
{
    Q_OBJECT

public:
    /// @p page is a resource path, such as ":/manual/index.html".
    explicit ManualDialog(const QString &page, QWidget *parent = nullptr);
};
