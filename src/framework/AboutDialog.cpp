#include "framework/AboutDialog.h"

#include "framework/ThemeColors.h"
#include "framework/UiScale.h"

#include <QDialogButtonBox>
#include <QGuiApplication>
#include <QHBoxLayout>
#include <QIcon>
#include <QLabel>
#include <QPushButton>
#include <QVBoxLayout>

AboutDialog::AboutDialog(const QString &sentence, const QString &licence, QWidget *parent)
    : QDialog(parent)
{
    const QString name = QGuiApplication::applicationDisplayName();
    setWindowTitle(tr("About %1").arg(name));
    auto *picture = new QLabel;
    const QSize pictureSize(scaled(96), scaled(96));
    picture->setPixmap(QGuiApplication::windowIcon().pixmap(windowHandle(), pictureSize));

    auto *title = new QLabel(name);
    QFont titleFont = font();
    titleFont.setPointSizeF(titleFont.pointSizeF() * 1.8);
    titleFont.setWeight(QFont::DemiBold);
    title->setFont(titleFont);
    auto *version = new QLabel(tr("Version %1").arg(QCoreApplication::applicationVersion()));
    version->setVisible(!QCoreApplication::applicationVersion().isEmpty());
    auto *purpose = new QLabel(sentence);
    auto *terms = new QLabel(licence);
    for (QLabel *label : {purpose, terms}) {
        label->setWordWrap(true);
        label->setFixedWidth(scaled(320));
    }
    QPalette quiet = palette();
    quiet.setColor(QPalette::WindowText, themeColors(quiet).quietText);
    for (QLabel *label : {version, terms})
        label->setPalette(quiet);

    auto *texts = new QVBoxLayout;
    texts->setSpacing(scaled(4));
    texts->addWidget(title);
    texts->addWidget(version);
    texts->addSpacing(scaled(12));
    texts->addWidget(purpose);
    texts->addSpacing(scaled(4));
    texts->addWidget(terms);
    texts->addStretch();
    auto *top = new QHBoxLayout;
    top->setSpacing(scaled(24));
    top->addWidget(picture, 0, Qt::AlignTop);
    top->addLayout(texts, 1);

    auto *buttons = new QDialogButtonBox(QDialogButtonBox::Close);
    buttons->button(QDialogButtonBox::Close)->setAutoDefault(false);
    connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
    auto *layout = new QVBoxLayout(this);
    layout->setContentsMargins(scaled(24), scaled(24), scaled(24), scaled(16));
    layout->setSpacing(scaled(24));
    layout->addLayout(top);
    layout->addWidget(buttons);
    layout->setSizeConstraint(QLayout::SetFixedSize);
}
