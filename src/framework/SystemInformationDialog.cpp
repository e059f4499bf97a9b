#include "framework/SystemInformationDialog.h"

#include "framework/UiScale.h"

#include <QClipboard>
#include <QDialogButtonBox>
#include <QDir>
#include <QFontDatabase>
#include <QGuiApplication>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QScreen>
#include <QSettings>
#include <QSysInfo>
#include <QVBoxLayout>

namespace {

QString describe(const QScreen &screen)
{
    const QSize size = screen.size();
    return SystemInformationDialog::tr("%1, %2 x %3, %4 dpi, ratio %5")
        .arg(screen.name())
        .arg(size.width())
        .arg(size.height())
        .arg(screen.logicalDotsPerInch())
        .arg(screen.devicePixelRatio());
}

} // namespace

QString systemSummary()
{
    QStringList lines;
    const auto add = [&lines](const QString &name, const QString &value) {
        if (!value.isEmpty())
            lines.append(QStringLiteral("%1: %2").arg(name, value));
    };
    add(QGuiApplication::applicationDisplayName(), QCoreApplication::applicationVersion());
    add(QStringLiteral("Qt"),
        SystemInformationDialog::tr("%1 (built with %2), %3")
            .arg(QLatin1String(qVersion()), QStringLiteral(QT_VERSION_STR), QSysInfo::buildAbi()));
    add(SystemInformationDialog::tr("System"),
        SystemInformationDialog::tr("%1, kernel %2")
            .arg(QSysInfo::prettyProductName(), QSysInfo::kernelVersion()));
    add(SystemInformationDialog::tr("Desktop"), qEnvironmentVariable("XDG_CURRENT_DESKTOP"));
    add(SystemInformationDialog::tr("Platform"), QGuiApplication::platformName());
    for (const QScreen *screen : QGuiApplication::screens())
        add(SystemInformationDialog::tr("Screen"), describe(*screen));
    add(SystemInformationDialog::tr("Scale factor"), QString::number(uiScaleFactor()));
    add(SystemInformationDialog::tr("Settings"), QDir::toNativeSeparators(QSettings().fileName()));
    return lines.join(QLatin1Char('\n')) + QLatin1Char('\n');
}

SystemInformationDialog::SystemInformationDialog(const QString &text, QWidget *parent)
    : QDialog(parent)
{
    setWindowTitle(tr("System Information"));
    resize(scaled(560), scaled(400));
    auto *view = new QPlainTextEdit(text);
    view->setAccessibleName(windowTitle());
    view->setReadOnly(true);
    view->setFont(QFontDatabase::systemFont(QFontDatabase::FixedFont));
    view->document()->setDocumentMargin(scaled(8));

    auto *buttons = new QDialogButtonBox;
    QPushButton *copying = buttons->addButton(tr("Copy"), QDialogButtonBox::ActionRole);
    buttons->addButton(QDialogButtonBox::Close)->setAutoDefault(false);
    connect(copying, &QPushButton::clicked, this, [text] {
        QGuiApplication::clipboard()->setText(text);
    });
    connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
    auto *layout = new QVBoxLayout(this);
    layout->addWidget(view);
    layout->addWidget(buttons);
}
