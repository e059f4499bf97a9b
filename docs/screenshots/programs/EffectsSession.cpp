// Gives three sprites a bevel and an emboss in the window, takes pictures of each dialog with its
// preview, and imports a normal map. vesperine-effects-session SAMPLES FOLDER; fails when the
// imported map is not exported as it was.

#include "WindowPictures.h"
#include "model/Project.h"
#include "model/properties/GUndoStack.h"
#include "model/properties/PropertyListT.h"
#include "preview/GLGraphicsLight.h"
#include "preview/NormalMapEditorScene.h"
#include "support/DialogScript.h"
#include "support/EditorUser.h"
#include "support/Pictures.h"
#include "tools/effects/PositionedDialog.h"
#include "ui/MainWindow.h"
#include "ui/NormalMapEditor.h"
#include "ui/ShapeTreeView.h"
#include "ui/ToolsSidebar.h"

#include <QAction>
#include <QDir>
#include <QDoubleSpinBox>
#include <QScreen>
#include <QTemporaryDir>
#include <QTest>
#include <QThreadPool>

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
        set("RimWidth", 14);
        set("RimHeight", 120);
        take(QStringLiteral("2-bevel"));
        apply();
        take(QStringLiteral("3-beveled"));
        open("Emboss");
        set("EmbossHeight", 6);
        set("Smoothness", 2);
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
        return script.isDone() ? difference(QImage(map), exported) : 255;
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

    // The dialog comes up below the pointer: where it hides neither sprites nor tools.
    void open(const char *effect) const
    {
        QCursor::setPos(m_window.mapToGlobal({m_window.width() - 160, 340}));
        chooseTool(effect);
        waitUntilSettled(dialog());
    }

    QWidget &dialog() const
    {
        for (auto *each : m_window.findChildren<PositionedDialog *>()) {
            if (each->isVisible())
                return *each;
        }
        qFatal("There is no dialog");
    }

    void set(const char *name, int number) const
    {
        auto *edit = dialog().findChild<QWidget *>(QLatin1String(name));
        auto *box = edit->findChild<QDoubleSpinBox *>();
        box->setFocus();
        box->selectAll();
        QTest::keyClicks(box, QString::number(number));
        QTest::keyClick(box, Qt::Key_Tab);
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

    MainWindow &m_window;
    QDir m_samples;
    QString m_folder;
    QTemporaryDir m_home;
    QDir m_sprites{m_home.path()};
    bool m_isComplete = true;
};

bool use(MainWindow &window, const QStringList &words)
{
    EffectUser user(window, words[0], words[1]);
    if (!user.useEffects())
        return false;
    const int most = user.importAndExport();
    std::printf("Largest difference between the imported and the exported map: %d\n", most);
    return most <= 1;
}

} // namespace

int main(int argc, char **argv)
{
    return runSession(argc, argv, "vesperine-effects-session SAMPLES FOLDER", use);
}
