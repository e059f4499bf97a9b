#include "base/Resources.h"
#include "model/Project.h"
#include "support/DialogScript.h"
#include "support/Documents.h"
#include "ui/MainWindow.h"
#include "ui/VesperineApplication.h"

#include <QDesktopServices>
#include <QSettings>
#include <QTest>
#include <QUrl>

namespace {
// Opens the preferences by their link, as the structure tool does, then closes the window.
void useWindow(QString &seen, int &bodies)
{
    MainWindow *window = nullptr;
    const auto widgets = QApplication::topLevelWidgets();
    for (QWidget *widget : widgets)
        window = window ? window : qobject_cast<MainWindow *>(widget);
    DialogScript script;
    script.then([](QWidget &dialog) { dialog.close(); });
    QDesktopServices::openUrl(QUrl(QStringLiteral("ve://elsewhere")));
    QDesktopServices::openUrl(QUrl(QStringLiteral("ve://preferences")));
    seen = script.seen().join(QLatin1Char(','));
    bodies = window->project().bodies().all().size();
    script.then(DialogScript::click(QStringLiteral("Discard")));
    window->close();
}
} // namespace

/// The program from its start to the closing of its window: the arguments name sprites to open.
int main(int argc, char **argv)
{
    const Folder folder;
    qputenv("XDG_DATA_HOME", folder.path(QString()).toLocal8Bit());
    QSettings::setPath(QSettings::NativeFormat, QSettings::UserScope, folder.path(QString()));
    qputenv("XDG_DATA_HOME", folder.path(QStringLiteral("data")).toLocal8Bit());
    QByteArray sprite = folder.writeSprite(QStringLiteral("a.png"), {8, 8}).toLocal8Bit();
    char *arguments[] = {argv[0], sprite.data(), nullptr};
    int count = 2;
    Q_UNUSED(argc)

    initialiseResources();
    VesperineApplication::prepare();
    VesperineApplication application(count, arguments);
    QString seen;
    int bodies = 0;
    // After the start, which is queued too.
    QTimer::singleShot(0, &application, [&] { useWindow(seen, bodies); });
    const int status = application.run();
    const bool isGood = status == 0 && bodies == 1 && seen == QLatin1String("Preferences");
    if (!isGood)
        qWarning("status %d, bodies %d, dialogs '%s'", status, bodies, qPrintable(seen));
    return isGood ? 0 : 1;
}
