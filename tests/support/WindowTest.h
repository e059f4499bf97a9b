#pragma once

#include "base/GSettings.h"
#include "base/Resources.h"
#include "framework/GApplication.h"
#include "preview/GraphicsCheck.h"
#include "support/Documents.h"

#include <QSettings>
#include <QTemporaryDir>
#include <QTest>

/// Runs a test that draws sprites.
template <class Test>
int runGraphicsTest(int argc, char **argv)
{
    initialiseResources();
    prepareGraphics();
    const QApplication application(argc, argv);
    Test test;
    return QTest::qExec(&test, argc, argv);
}

/// The one that runWindowTest() makes.
inline GApplication &application()
{
    return *static_cast<GApplication *>(qApp);
}

/// Runs a test of the editor's window, with settings of its own and dialogs that it can answer.
template <class Test>
int runWindowTest(int argc, char **argv)
{
    initialiseResources();
    const QTemporaryDir home;
    qputenv("XDG_DATA_HOME", QFile::encodeName(home.path()));
    QSettings::setPath(QSettings::NativeFormat, QSettings::UserScope, home.path());
    GApplication::prepare();
    QCoreApplication::setAttribute(Qt::AA_DontUseNativeDialogs);
    GApplication application(argc, argv);
    Test test;
    return QTest::qExec(&test, argc, argv);
}

/// The program's data and settings lie in @p folder from now on, and are empty.
inline void makeHome(const Folder &folder)
{
    qputenv("XDG_DATA_HOME", QFile::encodeName(folder.path(QStringLiteral("data"))));
    qputenv("XDG_CONFIG_HOME", QFile::encodeName(folder.path(QStringLiteral("config"))));
    application().settings().clear();
}
