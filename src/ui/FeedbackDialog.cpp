#include "ui/FeedbackDialog.h"

#include "base/GSettings.h"
#include "framework/PanelLabels.h"
#include "framework/UiScale.h"
#include "model/FileWriting.h"

#include <QCheckBox>
#include <QClipboard>
#include <QDesktopServices>
#include <QDialogButtonBox>
#include <QDir>
#include <QFileDialog>
#include <QFontDatabase>
#include <QGuiApplication>
#include <QLabel>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QStandardPaths>
#include <QUrl>
#include <QVBoxLayout>

namespace {
// What all desktops hand to a mail program: the shortest limit is that of Windows, 2083.
constexpr int maxMailLength = 2000;

QString draftKey()
{
    return QStringLiteral("feedback/draft");
}

QUrl mailUrl(const QString &address, const QString &body)
{
    const QString subject =
        FeedbackDialog::tr("Feedback on %1 %2")
            .arg(QGuiApplication::applicationDisplayName(), QCoreApplication::applicationVersion());
    QString lines = body;
    lines.replace(QLatin1Char('\n'), QLatin1String("\r\n")); // as mail has them
    return QUrl::fromEncoded("mailto:" + QUrl::toPercentEncoding(address, "@") +
                             "?subject=" + QUrl::toPercentEncoding(subject) +
                             "&body=" + QUrl::toPercentEncoding(lines));
}
} // namespace

FeedbackDialog::FeedbackDialog(Content content, GSettings &settings, QWidget *parent)
    : QDialog(parent)
    , m_content(std::move(content))
    , m_settings(settings)
    , m_text(new QPlainTextEdit(this))
    , m_withSystem(new QCheckBox(tr("Add the system information"), this))
    , m_withCrash(new QCheckBox(tr("Add the report of the last crash"), this))
    , m_alongTitle(createPanelTitle(tr("This goes along:"), this))
    , m_along(new QPlainTextEdit(this))
    , m_notice(createQuietText({}, this))
    , m_mail(new QPushButton(this))
{
    setWindowTitle(tr("Send feedback"));
    m_text->setAccessibleName(tr("Your feedback"));
    m_text->setTabChangesFocus(true);
    m_text->setPlainText(m_settings.value(draftKey()).toString());
    m_withSystem->setChecked(true);
    m_withCrash->setVisible(!m_content.crashReport.isEmpty());
    m_along->setAccessibleName(tr("What goes along"));
    m_along->setTabChangesFocus(true);
    m_along->setReadOnly(true);
    m_along->setFont(QFontDatabase::systemFont(QFontDatabase::FixedFont));
    m_along->setLineWrapMode(QPlainTextEdit::NoWrap);
    m_notice->setTextFormat(Qt::PlainText);
    placeWidgets();
    connect(m_text, &QPlainTextEdit::textChanged, this, &FeedbackDialog::showState);
    connect(m_withSystem, &QCheckBox::toggled, this, &FeedbackDialog::showAppendix);
    connect(m_withCrash, &QCheckBox::toggled, this, &FeedbackDialog::showAppendix);
    showAppendix();
    m_text->setFocus();
}

void FeedbackDialog::placeWidgets()
{
    auto *intro = new QLabel(tr("What works well, what is missing, what went wrong? Write it here. "
                                "Nothing leaves this machine unless you send it."),
                             this);
    intro->setWordWrap(true);
    auto *layout = new QVBoxLayout(this);
    layout->setContentsMargins(scaled(16), scaled(16), scaled(16), scaled(12));
    layout->setSpacing(scaled(8));
    layout->addWidget(intro);
    layout->addWidget(m_text, 3);
    layout->addWidget(m_withSystem);
    layout->addWidget(m_withCrash);
    layout->addWidget(m_alongTitle);
    layout->addWidget(m_along, 2);
    layout->addWidget(m_notice);
    layout->addWidget(createButtons());
    resize(scaled(560), scaled(480));
}

QDialogButtonBox *FeedbackDialog::createButtons()
{
    auto *buttons = new QDialogButtonBox(this);
    buttons->addButton(m_mail, QDialogButtonBox::ActionRole);
    auto *copying = buttons->addButton(tr("Copy"), QDialogButtonBox::ActionRole);
    auto *saving = buttons->addButton(tr("Save..."), QDialogButtonBox::ActionRole);
    buttons->addButton(QDialogButtonBox::Close); // last, as it stands, for the Tab key
    m_mail->setVisible(!m_content.address.isEmpty());
    connect(m_mail, &QPushButton::clicked, this, &FeedbackDialog::mail);
    connect(copying, &QPushButton::clicked, this, &FeedbackDialog::copy);
    connect(saving, &QPushButton::clicked, this, &FeedbackDialog::save);
    connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
    return buttons;
}

void FeedbackDialog::done(int result)
{
    m_settings.setValue(draftKey(), m_isDelivered ? QString() : m_text->toPlainText());
    QDialog::done(result);
}

QString FeedbackDialog::appendix() const
{
    QStringList parts;
    if (m_withSystem->isChecked())
        parts.append(m_content.systemInformation.trimmed());
    if (m_withCrash->isChecked())
        parts.append(m_content.crashReport.trimmed());
    return parts.join(QLatin1String("\n\n"));
}

QString FeedbackDialog::message() const
{
    const QString added = appendix();
    return added.isEmpty() ? m_text->toPlainText()
                           : m_text->toPlainText() + QLatin1String("\n\n") + added;
}

bool FeedbackDialog::isTooLong() const
{
    const QString body = message();
    // Encoded, it only becomes longer.
    return body.size() > maxMailLength ||
           mailUrl(m_content.address, body).toEncoded().size() > maxMailLength;
}

void FeedbackDialog::showAppendix()
{
    const QString added = appendix();
    m_along->setPlainText(added);
    m_along->setVisible(!added.isEmpty());
    m_alongTitle->setVisible(!added.isEmpty());
    showState();
}

// After every change of what there is to send. The appendix, which may be long, stands as it is
// while the text is written.
void FeedbackDialog::showState()
{
    m_isDelivered = false;
    const bool needsCopy = !m_content.address.isEmpty() && isTooLong();
    m_mail->setText(needsCopy ? tr("Copy and write a mail") : tr("Write a mail"));
    m_notice->setText(needsCopy ? tr("This is longer than what mail programs take over: it is "
                                     "copied, and you paste it into the mail.")
                                : QString());
}

void FeedbackDialog::mail()
{
    const bool needsCopy = isTooLong();
    if (needsCopy)
        QGuiApplication::clipboard()->setText(message());
    const QString body = needsCopy ? tr("(Paste here what was copied.)") : message();
    if (QDesktopServices::openUrl(mailUrl(m_content.address, body)))
        deliver(needsCopy ? tr("It is copied. Paste it into the mail.")
                          : tr("Your mail program has it. Send it from there."));
    else
        m_notice->setText(tr("No mail program could be opened. Copy the text and send it to %1.")
                              .arg(m_content.address));
}

void FeedbackDialog::copy()
{
    QGuiApplication::clipboard()->setText(message());
    deliver(tr("It is copied."));
}

void FeedbackDialog::save()
{
    const QDir folder(QStandardPaths::writableLocation(QStandardPaths::DocumentsLocation));
    const QString path =
        QFileDialog::getSaveFileName(this,
                                     tr("Save feedback"),
                                     folder.filePath(QStringLiteral("vesperine-feedback.txt")),
                                     tr("Text files (*.txt);;All files (*)"));
    if (path.isEmpty())
        return;
    const QString name = QDir::toNativeSeparators(path);
    const QString problem = writeFile(path, message().toUtf8() + '\n');
    if (problem.isEmpty())
        deliver(tr("It is saved as %1.").arg(name));
    else
        m_notice->setText(tr("%1 can't be written: %2").arg(name, problem));
}

// The text has gone somewhere: it need not stand there again the next time.
void FeedbackDialog::deliver(const QString &notice)
{
    m_isDelivered = true;
    m_notice->setText(notice);
}
