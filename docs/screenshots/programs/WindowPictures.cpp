#include "WindowPictures.h"

#include "base/Resources.h"
#include "ui/MainWindow.h"
#include "ui/VesperineApplication.h"

#include <QPixmap>
#include <QScreen>
#include <QSettings>
#include <QTemporaryDir>
#include <QTest>

#include <cstdio>

int runSession(int argc,
               char **argv,
               const char *usage,
               const std::function<bool(MainWindow &window, const QStringList &words)> &session)
{
    if (argc != 3) {
        std::fprintf(stderr, "%s\n", usage);
        return 2;
    }
    initialiseResources();
    VesperineApplication::prepare();
    const QTemporaryDir home;
    QSettings::setPath(QSettings::NativeFormat, QSettings::UserScope, home.path());
    GApplication application(argc, argv);
    MainWindow window(application);
    window.resize(1280, 800);
    showSettled(window);
    return session(window, QCoreApplication::arguments().mid(1)) ? 0 : 1;
}

void showSettled(QWidget &window)
{
    QCursor::setPos(window.screen()->geometry().bottomRight());
    window.show();
    waitUntilSettled(window);
}

void waitUntilSettled(QWidget &window)
{
    constexpr int settledAfter = 300; // milliseconds, normal maps and the server included
    window.activateWindow();
    if (!QTest::qWaitForWindowExposed(&window) || !QTest::qWaitForWindowActive(&window))
        qWarning("The window does not come up");
    QTest::qWait(settledAfter);
}

bool savePicture(QWidget &window, const QString &path, const QRect &part)
{
    waitUntilSettled(window);
    const QRect shown = part.isNull() ? window.rect() : part;
    const QPixmap picture = window.screen()->grabWindow(
        window.winId(), shown.x(), shown.y(), shown.width(), shown.height());
    return picture.save(path, nullptr, 0);
}
