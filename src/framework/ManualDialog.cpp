#include "framework/ManualDialog.h"

#include "framework/UiScale.h"

#include <QDialogButtonBox>
#include <QEvent>
#include <QPushButton>
#include <QTextBrowser>
#include <QUrl>
#include <QVBoxLayout>

ManualDialog::ManualDialog(const QString &page, QWidget *parent)
    : QDialog(parent)
    , m_browser(new QTextBrowser)
{
    setWindowTitle(tr("Manual"));
    resize(scaled(760), scaled(640));
    m_browser->setAccessibleName(tr("Manual"));
    m_browser->setOpenExternalLinks(true);
    m_browser->document()->setDocumentMargin(scaled(16));
    m_browser->setSource(QUrl(QStringLiteral("qrc") + page));

    auto *buttons = new QDialogButtonBox(QDialogButtonBox::Close);
    buttons->button(QDialogButtonBox::Close)->setAutoDefault(false);
    QPushButton *home = buttons->addButton(tr("Contents"), QDialogButtonBox::ResetRole);
    QPushButton *back = buttons->addButton(tr("Back"), QDialogButtonBox::ResetRole);
    back->setEnabled(false);
    for (QPushButton *button : {home, back})
        button->setAutoDefault(false);
    connect(home, &QPushButton::clicked, m_browser, &QTextBrowser::home);
    connect(back, &QPushButton::clicked, m_browser, &QTextBrowser::backward);
    connect(m_browser, &QTextBrowser::backwardAvailable, back, &QWidget::setEnabled);
    connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);

    auto *layout = new QVBoxLayout(this);
    layout->addWidget(m_browser);
    layout->addWidget(buttons);
    m_browser->setFocus();
}

void ManualDialog::changeEvent(QEvent *event)
{
    QDialog::changeEvent(event);
    // Links got their colour when the page was read.
    if (event->type() == QEvent::PaletteChange)
        m_browser->reload();
}
