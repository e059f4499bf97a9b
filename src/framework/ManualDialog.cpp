#include "framework/ManualDialog.h"

#include "framework/UiScale.h"

#include <QDialogButtonBox>
#include <QPushButton>
#include <QTextBrowser>
#include <QUrl>
#include <QVBoxLayout>

ManualDialog::ManualDialog(const QString &page, QWidget *parent)
    : QDialog(parent)
{
    setWindowTitle(tr("Manual"));
    resize(scaled(760), scaled(640));
    auto *browser = new QTextBrowser;
    browser->setAccessibleName(tr("Manual"));
    browser->setOpenExternalLinks(true);
    browser->document()->setDocumentMargin(scaled(16));
    browser->setSource(QUrl(QStringLiteral("qrc") + page));

    auto *buttons = new QDialogButtonBox(QDialogButtonBox::Close);
    QPushButton *home = buttons->addButton(tr("Contents"), QDialogButtonBox::ResetRole);
    QPushButton *back = buttons->addButton(tr("Back"), QDialogButtonBox::ResetRole);
    back->setEnabled(false);
    for (QPushButton *button : {home, back})
        button->setAutoDefault(false);
    connect(home, &QPushButton::clicked, browser, &QTextBrowser::home);
    connect(back, &QPushButton::clicked, browser, &QTextBrowser::backward);
    connect(browser, &QTextBrowser::backwardAvailable, back, &QWidget::setEnabled);
    connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);

    auto *layout = new QVBoxLayout(this);
    layout->addWidget(browser);
    layout->addWidget(buttons);
    browser->setFocus();
}
