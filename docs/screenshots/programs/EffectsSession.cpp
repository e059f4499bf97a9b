// Gives three sprites a bevel and an emboss in the window, takes pictures of each dialog with its
// preview, and imports a normal map. vesperine-effects-session SAMPLES FOLDER; fails when the
// imported map is not exported as it was.

#include "WindowPictures.h"
#include "base/Resources.h"
#include "framework/GDoubleEdit.h"
#include "framework/GIntEdit.h"
#include "model/Project.h"
#include "model/properties/GUndoStack.h"
#include "model/properties/PropertyListT.h"
#include "preview/GLGraphicsLight.h"
#include "preview/NormalMapEditorScene.h"
#include "support/DialogScript.h"
#include "support/EditorUser.h"
#include "tools/effects/PositionedDialog.h"
#include "ui/MainWindow.h"
#include "ui/NormalMapEditor.h"
#include "ui/ShapeTreeView.h"
#include "ui/ToolsSidebar.h"
#include "ui/VesperineApplication.h"

#include <QAction>
#include <QDir>
#include <QScreen>
#include <QSettings>
#include <QTemporaryDir>
#include <QTest>
#include <QThreadPool>

#include <algorithm>
#include <cstdio>

namespace {

class EffectUser : private EditorUser
{
public:
    EffectUser(MainWindow &window, const QString &samples, const QString &folder)
        : EditorUser(window)
        , m_window(window)
        , m_samples(QDir(samples).absolutePath())
        , m_folder(folder)
    {
    }

    bool useEffects()
    {
        addSprites({QStringLiteral("ghost.png"),
                    QStringLiteral("toadstool.png"),
                    QStringLiteral("robot.png")});
        selectAll();
        take(QStringLiteral("1-before"));
        open("Bevel");
        set<GIntEdit>("RimWidth", 14);
        set<GIntEdit>("RimHeight", 120);
        take(QStringLiteral("2-bevel"));
        apply();
        take(QStringLiteral("3-beveled"));
        open("Emboss");
        set<GDoubleEdit>("EmbossHeight", 6.0);
        set<GIntEdit>("Smoothness", 2);
        take(QStringLiteral("4-emboss"));
        apply();
        take(QStringLiteral("5-embossed"));
        m_window.project().undoStack().undo();
        m_window.project().undoStack().undo();
        take(QStringLiteral("6-undone"));
        return m_isComplete;
    }

    // The largest difference of a channel between the map that is imported and the one exported.
    int importAndExport()
    {
        const QString map = m_samples.filePath(QStringLiteral("normals/barrel_n.png"));
        DialogScript script;
        script.then(DialogScript::click(QStringLiteral("Discard")));
        m_window.newDocument();
        addSprites({QStringLiteral("barrel.png")});
        script.then(DialogScript::chooseFile(map));
        trigger(QStringLiteral("Import normal map..."));
        take(QStringLiteral("7-imported"));
        waitUntilSettled(m_window);
        script.then(DialogScript::click(QStringLiteral("OK")));
        script.then(DialogScript::click(QStringLiteral("OK")));
        key(Qt::Key_P, Qt::ControlModifier);
        const QImage exported(m_sprites.filePath(QStringLiteral("barrel_n.png")));
        return script.isDone() ? largestDifference(QImage(map), exported) : 255;
    }

private:
    void addSprites(const QStringList &names)
    {
        QStringList paths;
        for (const QString &name : names) {
            paths.append(m_sprites.filePath(name));
            QFile::copy(m_samples.filePath(name), paths.last());
        }
        m_window.openOrAdd(paths);
        QTest::qWait(100); // new sprites find their places
        m_window.findChild<NormalMapEditor *>()->zoomToFit();
        const QRectF sprites = scene().spritesRect();
        scene().light().setPos(sprites.left() + 0.3 * sprites.width(), sprites.top());
    }

    void selectAll()
    {
        m_window.findChild<ShapeTreeView *>()->setFocus();
        QTest::keyClick(m_window.findChild<ShapeTreeView *>(), Qt::Key_A, Qt::ControlModifier);
    }

    void trigger(const QString &text)
    {
        for (QAction *action : m_window.findChild<ToolsSidebar *>()->actions()) {
            if (action->text() == text)
                action->trigger();
        }
    }

    // The dialog comes up below the pointer: beside the sprites.
    void open(const char *effect)
    {
        QCursor::setPos(m_window.mapToGlobal({m_window.width() - 210, 70}));
        chooseTool(effect);
    }

    QWidget &dialog() const
    {
        for (auto *each : m_window.findChildren<PositionedDialog *>()) {
            if (each->isVisible())
                return *each;
        }
        qFatal("There is no dialog");
    }

    template <class Edit, class Number>
    void set(const char *name, Number value)
    {
        dialog().findChild<Edit *>(QLatin1String(name))->setValue(value);
    }

    void apply() { QTest::keyClick(&dialog(), Qt::Key_Return); }

    // With what stands over the window.
    void take(const QString &name)
    {
        for (int round = 0; round < 3; ++round) {
            QThreadPool::globalInstance()->waitForDone();
            QTest::qWait(100);
        }
        const QRect place(m_window.mapToGlobal(QPoint()), m_window.size());
        const QPixmap picture =
            m_window.screen()->grabWindow(0, place.x(), place.y(), place.width(), place.height());
        const QString file = QDir(m_folder).filePath(QStringLiteral("effects-%1.png").arg(name));
        m_isComplete = picture.save(file) && m_isComplete;
    }

    static int largestDifference(const QImage &a, const QImage &b)
    {
        if (a.isNull() || a.size() != b.size())
            return 255;
        int largest = 0;
        for (int i = 0; i < a.width() * a.height(); ++i) {
            const QColor one = a.pixelColor(i % a.width(), i / a.width());
            const QColor other = b.pixelColor(i % a.width(), i / a.width());
            largest = std::max({largest,
                                std::abs(one.red() - other.red()),
                                std::abs(one.green() - other.green()),
                                std::abs(one.blue() - other.blue())});
        }
        return largest;
    }

    MainWindow &m_window;
    QDir m_samples;
    QString m_folder;
    QTemporaryDir m_home;
    QDir m_sprites{m_home.path()};
    bool m_isComplete = true;
};

} // namespace

int main(int argc, char **argv)
{
    if (argc != 3) {
        std::fputs("vesperine-effects-session SAMPLES FOLDER\n", stderr);
        return 2;
    }
    initialiseResources();
    VesperineApplication::prepare();
    const QTemporaryDir home;
    QSettings::setPath(QSettings::NativeFormat, QSettings::UserScope, home.path());
    GApplication application(argc, argv);
    const QStringList words = QCoreApplication::arguments();
    MainWindow window(application);
    window.resize(1280, 800);
    showSettled(window);
    EffectUser user(window, words[1], words[2]);
    if (!user.useEffects())
        return 1;
    const int difference = user.importAndExport();
    std::printf("Largest difference between the imported and the exported map: %d\n", difference);
    return difference <= 1 ? 0 : 1;
}
