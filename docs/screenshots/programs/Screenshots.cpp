// Takes the pictures of the editor that stand in docs/: the start screen, each display mode and two
// dialogs, in both themes. vesperine-screenshots PROJECT FOLDER; QT_SCALE_FACTOR gives the scale.

#include "WindowPictures.h"
#include "base/GSettings.h"
#include "base/Resources.h"
#include "preview/GLGraphicsLight.h"
#include "preview/NormalMapEditorScene.h"
#include "support/DialogScript.h"
#include "ui/MainWindow.h"
#include "ui/NormalMapEditor.h"
#include "ui/VesperineApplication.h"

#include <QAction>
#include <QDir>
#include <QSettings>
#include <QTemporaryDir>
#include <QTest>

#include <cstdio>

namespace {

constexpr QSize windowSize(1280, 800);

class Photographer
{
public:
    Photographer(GApplication &application, const QString &project, const QString &folder)
        : m_application(application)
        , m_project(project)
        , m_folder(folder)
    {
    }

    bool takeAll(ThemeChoice theme, const QString &name)
    {
        m_theme = name;
        m_application.setTheme(theme);
        MainWindow window(m_application);
        window.resize(windowSize);
        showSettled(window);
        take(window, QStringLiteral("start"));
        takeDialog(window, QStringLiteral("Preferences..."), QStringLiteral("preferences"));
        if (!window.openPath(m_project))
            return false;
        placeLight(window);
        takeModes(window);
        takeDialog(window, QStringLiteral("Export normals as..."), QStringLiteral("publish"));
        return m_isComplete;
    }

private:
    // Between the sprites, where it hides none.
    static void placeLight(const MainWindow &window)
    {
        const auto &scene = window.findChild<NormalMapEditor *>()->scene();
        const QRectF sprites = scene.contentRect();
        scene.light().setPos(sprites.topLeft() +
                             QPointF(sprites.width() * 0.32, sprites.height() * 0.24));
    }

    void takeModes(MainWindow &window)
    {
        const char *names[] = {"texture", "lit-surface", "lit-texture", "normal-map"};
        for (int mode = 0; mode < 4; ++mode) {
            waitUntilSettled(window);
            QTest::keyClick(&window, Qt::Key(Qt::Key_1 + mode), Qt::AltModifier);
            take(window, QLatin1String(names[mode]));
        }
    }

    void takeDialog(QWidget &window, const QString &action, const QString &name)
    {
        DialogScript script;
        script.then([&](QWidget &dialog) {
            take(dialog, name);
            dialog.close();
        });
        for (QAction *candidate : window.findChildren<QAction *>()) {
            if (candidate->text().remove(QLatin1Char('&')) == action)
                candidate->trigger();
        }
        m_isComplete = m_isComplete && script.isDone();
    }

    void take(QWidget &window, const QString &name)
    {
        const QString scale = window.devicePixelRatioF() > 1.0 ? QStringLiteral("@2x") : QString();
        const QString file = QStringLiteral("%1-%2%3.png").arg(name, m_theme, scale);
        m_isComplete = savePicture(window, QDir(m_folder).filePath(file)) && m_isComplete;
    }

    GApplication &m_application;
    QString m_project;
    QString m_folder;
    QString m_theme;
    bool m_isComplete = true;
};

} // namespace

int main(int argc, char **argv)
{
    if (argc != 3) {
        std::fputs("vesperine-screenshots PROJECT FOLDER\n", stderr);
        return 2;
    }
    initialiseResources();
    VesperineApplication::prepare();
    const QTemporaryDir settings;
    QSettings::setPath(QSettings::NativeFormat, QSettings::UserScope, settings.path());
    GApplication application(argc, argv);
    const QStringList words = QCoreApplication::arguments();
    Photographer photographer(application, words[1], words[2]);
    const bool areTaken = photographer.takeAll(ThemeChoice::Dark, QStringLiteral("dark")) &&
                          photographer.takeAll(ThemeChoice::Light, QStringLiteral("light"));
    return areTaken ? 0 : 1;
}
