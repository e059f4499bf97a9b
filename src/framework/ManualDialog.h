#pragma once

#include <QDialog>

class QTextBrowser;

/// Shows pages of the manual, which are resources; links to the outside open in the browser.
class ManualDialog : public QDialog
{
    Q_OBJECT

public:
    /// @p page is a resource path, such as ":/manual/index.html".
    explicit ManualDialog(const QString &page, QWidget *parent = nullptr);

protected:
    void changeEvent(QEvent *event) override;

private:
    QTextBrowser *m_browser;
};
