#pragma once

#include <QDialog>

/// The program's icon, name and version, what it is for, and its licence.
class AboutDialog : public QDialog
{
    Q_OBJECT

public:
    AboutDialog(const QString &sentence, const QString &licence, QWidget *parent = nullptr);
};
