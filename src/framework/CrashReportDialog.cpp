#include "framework/CrashReportDialog.h"

#include "framework/UiScale.h"

#include <QClipboard>
#include <QDesktopServices>
#include <QDialogButtonBox>
#include <QFileInfo>
#include <QFontDatabase>
#include <QGuiApplication>
#include <QLabel>
#include <QLocale>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QUrl>
#include <QVBoxLayout>

namespace {
QLabel *createText(const QString &text)
{
    auto *label = new QLabel(text);
    label->setTextFormat(Qt::PlainText);
    label->setWordWrap(true);
    return label;
}
} // namespace

CrashReportDialog::CrashReportDialog(const CrashLog::Report &report, QWidget *parent)
    : QDialog(parent)
{
    setWindowTitle(tr("Crash Report"));
    resize(scaled(640), scaled(480));
    const QString time = QLocale().toString(report.time, QLocale::ShortFormat);
    auto *what = createText(
        tr("%1 ended unexpectedly on %2. ").arg(QGuiApplication::applicationDisplayName(), time) +
        CrashLog::explain(report));
    QFont strong = font();
    strong.setWeight(QFont::DemiBold);
    what->setFont(strong);
    auto *then = createText(
        tr("This report tells what the program did and where it was. It may hold the "
           "names of your files. It stays on this computer; nothing is sent. If you want "
           "the fault to be mended, add the report to what you write under Help > Send "
           "feedback."));
    auto *text = new QPlainTextEdit(report.text);
    text->setAccessibleName(windowTitle());
    text->setReadOnly(true);
    text->setLineWrapMode(QPlainTextEdit::NoWrap);
    text->setFont(QFontDatabase::systemFont(QFontDatabase::FixedFont));
    text->document()->setDocumentMargin(scaled(8));

    auto *buttons = new QDialogButtonBox;
    QPushButton *copying = buttons->addButton(tr("Copy"), QDialogButtonBox::ActionRole);
    QPushButton *folder = buttons->addButton(tr("Show Folder"), QDialogButtonBox::ActionRole);
    buttons->addButton(QDialogButtonBox::Close); // last, as it stands, for the Tab key
    connect(copying, &QPushButton::clicked, this, [text = report.text] {
        QGuiApplication::clipboard()->setText(text);
    });
    connect(folder, &QPushButton::clicked, this, [path = QFileInfo(report.path).absolutePath()] {
        QDesktopServices::openUrl(QUrl::fromLocalFile(path));
    });
    connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
    auto *layout = new QVBoxLayout(this);
    layout->setContentsMargins(scaled(12), scaled(12), scaled(12), scaled(12));
    layout->setSpacing(scaled(8));
    layout->addWidget(what);
    layout->addWidget(then);
    layout->addWidget(text, 1);
    layout->addWidget(buttons);
    buttons->button(QDialogButtonBox::Close)->setDefault(true);
    buttons->button(QDialogButtonBox::Close)->setFocus();
}

void CrashReportDialog::showLast(QWidget *parent)
{
    if (const auto report = CrashLog::takeUnread(CrashLog::folder()))
        CrashReportDialog(*report, parent).exec();
}
