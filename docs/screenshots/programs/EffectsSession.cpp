// Gives three sprites a bevel and an emboss in the window, takes pictures of each dialog with its
// preview, and imports a normal map. vesperine-effects-session SAMPLES FOLDER; fails when the
// imported map is not exported as it was.

#include "EffectUser.h"
#include "WindowPictures.h"
#include "model/Project.h"
#include "model/properties/GUndoStack.h"
#include "preview/GLGraphicsLight.h"
#include "preview/NormalMapEditorScene.h"
#include "support/DialogScript.h"
#include "support/Pictures.h"
#include "ui/MainWindow.h"

#include <QDir>

#include <cstdio>

namespace {

class EffectsSession : private EffectUser
{
public:
    EffectsSession(MainWindow &window, const QString &samples, const QString &folder)
        : EffectUser(window, samples)
        , m_window(window)
        , m_folder(folder)
    {
    }

    bool useEffects()
    {
        show({QStringLiteral("ghost.png"),
              QStringLiteral("toadstool.png"),
              QStringLiteral("robot.png")});
        selectAll();
        picture(QStringLiteral("1-before"));
        open("Bevel");
        set("RimWidth", 14);
        set("RimHeight", 120);
        picture(QStringLiteral("2-bevel"));
        apply();
        picture(QStringLiteral("3-beveled"));
        open("Emboss");
        set("EmbossHeight", 6);
        set("Smoothness", 2);
        picture(QStringLiteral("4-emboss"));
        apply();
        picture(QStringLiteral("5-embossed"));
        m_window.project().undoStack().undo();
        m_window.project().undoStack().undo();
        picture(QStringLiteral("6-undone"));
        return m_isComplete;
    }

    // The largest difference of a channel between the map that is imported and the one exported.
    int importAndExport()
    {
        const QString map = samples().filePath(QStringLiteral("normals/barrel_n.png"));
        DialogScript script;
        script.then(DialogScript::click(QStringLiteral("Discard")));
        m_window.newDocument();
        show({QStringLiteral("barrel.png")});
        script.then(DialogScript::chooseFile(map));
        trigger(QStringLiteral("Import normal map..."));
        picture(QStringLiteral("7-imported"));
        waitUntilSettled(m_window);
        script.then(DialogScript::click(QStringLiteral("OK")));
        script.then(DialogScript::click(QStringLiteral("OK")));
        key(Qt::Key_P, Qt::ControlModifier);
        const QImage exported(pathOf(QStringLiteral("barrel_n.png")));
        return script.isDone() ? difference(QImage(map), exported) : 255;
    }

private:
    void show(const QStringList &names) const
    {
        addSprites(names);
        const QRectF sprites = scene().spritesRect();
        scene().light().setPos(sprites.left() + 0.3 * sprites.width(), sprites.top());
    }

    void picture(const QString &name)
    {
        const QString file = QDir(m_folder).filePath(QStringLiteral("effects-%1.png").arg(name));
        m_isComplete = take(file) && m_isComplete;
    }

    MainWindow &m_window;
    QString m_folder;
    bool m_isComplete = true;
};

bool use(MainWindow &window, const QStringList &words)
{
    EffectsSession user(window, words[0], words[1]);
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
