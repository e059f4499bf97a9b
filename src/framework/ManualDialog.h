#pragma once

#include <QDialog>
#include <QUrl>

QT_BEGIN_NAMESPACE
class QLabel;
class QLineEdit;
class QTextBrowser;
class QTreeWidget;
class QTreeWidgetItem;
QT_END_NAMESPACE

/// Shows pages of the manual, which are resources; links to the outside open in the browser. Its
/// list of contents are the headings and the lists of links of the first page.
class ManualDialog : public QDialog
{
    Q_OBJECT

public:
    /// @p page is a resource path, such as ":/guide/index.html".
    explicit ManualDialog(const QString &page, QWidget *parent = nullptr);

protected:
    void changeEvent(QEvent *event) override;

private:
    void createBrowser();
    void createContents();
    QLayout *createNavigation();
    void followPage(const QUrl &page);
    /// Goes to the next place of the text that is searched for, on this page or one that follows.
    void find();

    QUrl m_home;
    QTextBrowser *m_browser;
    QTreeWidget *m_contents;
    QLineEdit *m_search;
    QLabel *m_outcome;
};
