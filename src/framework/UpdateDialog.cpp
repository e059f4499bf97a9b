#include "framework/UpdateDialog.h"

#include "framework/PanelLabels.h"
#include "framework/UiScale.h"

#include <QDesktopServices>
#include <QDialogButtonBox>
#include <QGuiApplication>
#include <QLabel>
#include <QLocale>
#include <QPushButton>
#include <QVBoxLayout>

UpdateDialog::UpdateDialog(QString host, QWidget *parent)
    : QDialog(parent)
    , m_host(std::move(host))
    , m_title(new QLabel(this))
    , m_detail(new QLabel(this))
    , m_address(createQuietText({}, this))
    , m_page(new QPushButton(tr("Open its page"), this))
    , m_skip(new QPushButton(tr("Skip this version"), this))
    , m_close(new QPushButton(this))
{
    setWindowTitle(tr("Updates"));
    QFont titleFont = font();
    titleFont.setPointSizeF(titleFont.pointSizeF() * 1.2);
    titleFont.setWeight(QFont::DemiBold);
    m_title->setFont(titleFont);
    // What the feed says is shown as it stands.
    for (QLabel *label : {m_title, m_detail, m_address}) {
        label->setTextFormat(Qt::PlainText);
        label->setWordWrap(true);
        label->setMinimumWidth(scaled(400));
    }
    m_address->setTextInteractionFlags(Qt::TextSelectableByMouse);
    auto *buttons = new QDialogButtonBox(this);
    buttons->addButton(m_page, QDialogButtonBox::AcceptRole);
    buttons->addButton(m_skip, QDialogButtonBox::ActionRole);
    buttons->addButton(m_close, QDialogButtonBox::RejectRole);
    connect(m_page, &QPushButton::clicked, this, &UpdateDialog::openPage);
    connect(m_skip, &QPushButton::clicked, this, &UpdateDialog::skip);
    connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);

    auto *layout = new QVBoxLayout(this);
    layout->setContentsMargins(scaled(24), scaled(24), scaled(24), scaled(16));
    layout->setSpacing(scaled(8));
    layout->addWidget(m_title);
    layout->addWidget(m_detail);
    layout->addWidget(m_address);
    layout->addStretch();
    layout->addSpacing(scaled(16));
    layout->addWidget(buttons);
    layout->setSizeConstraint(QLayout::SetFixedSize);
    wait();
}

void UpdateDialog::wait()
{
    m_isWaiting = true;
    m_release = {};
    say(tr("Looking for a newer version"), tr("Asking %1...").arg(m_host));
}

void UpdateDialog::showAnswer(const UpdateAnswer &answer)
{
    const QString name = QGuiApplication::applicationDisplayName();
    const QString running = runningVersion().toString();
    m_isWaiting = false;
    m_release = answer.newer.value_or(UpdateRelease());
    if (!answer.problem.isEmpty()) {
        say(tr("There is no answer"),
            tr("%1 was asked for a newer version than %2. %3")
                .arg(m_host, running, answer.problem));
    } else if (!answer.newer) {
        say(tr("%1 is up to date").arg(name),
            tr("There is no newer version than %1.").arg(running));
    } else {
        const QString version = m_release.version.toString();
        QString detail = tr("You have %1.").arg(running);
        if (m_release.date.isValid())
            detail += QLatin1Char(' ') +
                      tr("The new one is of %1.")
                          .arg(QLocale().toString(m_release.date, QLocale::LongFormat));
        if (!m_release.title.isEmpty())
            detail += QStringLiteral("\n\n") + m_release.title;
        say(tr("%1 %2 is there").arg(name, version), detail);
    }
}

void UpdateDialog::say(const QString &title, const QString &detail)
{
    const bool hasRelease = !m_release.page.isEmpty();
    m_title->setText(title);
    m_detail->setText(detail);
    m_address->setText(m_release.page.toString(QUrl::FullyEncoded));
    m_address->setVisible(hasRelease);
    m_page->setVisible(hasRelease);
    m_skip->setVisible(hasRelease);
    m_close->setText(hasRelease ? tr("Later") : m_isWaiting ? tr("Cancel") : tr("Close"));
    (hasRelease ? m_page : m_close)->setDefault(true);
}

void UpdateDialog::openPage()
{
    if (QDesktopServices::openUrl(m_release.page))
        accept();
    else
        m_detail->setText(tr("No browser could be opened. The page is at:"));
}

void UpdateDialog::skip()
{
    Q_EMIT skipped(m_release.version);
    accept();
}
