#include "ui/FeedbackDialog.h"

#include "framework/UiScale.h"

#include <QCheckBox>
#include <QClipboard>
#include <QDialogButtonBox>
#include <QGuiApplication>
#include <QLabel>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QVBoxLayout>

FeedbackDialog::FeedbackDialog(const QString &systemInformation, QWidget *parent)
    : QDialog(parent)
{
    setWindowTitle(tr("Send feedback"));
    auto *intro = new QLabel(tr("What works well, what is missing, what went wrong? Write it here "
                                "and copy it into a message to us."),
                             this);
    intro->setWordWrap(true);
    auto *text = new QPlainTextEdit(this);
    text->setAccessibleName(tr("Your feedback"));
    text->setTabChangesFocus(true);
    auto *withSystem = new QCheckBox(tr("Add the system information"), this);
    withSystem->setToolTip(systemInformation);
    withSystem->setChecked(true);
    auto *buttons = new QDialogButtonBox(QDialogButtonBox::Close, this);
    auto *copy = buttons->addButton(tr("Copy"), QDialogButtonBox::ActionRole);
    connect(copy, &QPushButton::clicked, this, [text, withSystem, systemInformation] {
        const QString appendix =
            withSystem->isChecked() ? QStringLiteral("\n\n") + systemInformation : QString();
        QGuiApplication::clipboard()->setText(text->toPlainText() + appendix);
    });
    connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);

    auto *layout = new QVBoxLayout(this);
    layout->setContentsMargins(scaled(16), scaled(16), scaled(16), scaled(12));
    layout->setSpacing(scaled(8));
    layout->addWidget(intro);
    layout->addWidget(text, 1);
    layout->addWidget(withSystem);
    layout->addWidget(buttons);
    resize(scaled(480), scaled(320));
}
