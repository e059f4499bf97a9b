#include "model/NormalMapProcessor.h"
#include "model/PropertyAngleImage.h"
#include "model/Sprite.h"
#include "model/properties/PropertyListT.h"
#include "model/properties/PropertyT.h"
#include "preview/GLGraphicsLight.h"
#include "preview/SpriteItem.h"
#include "support/Gestures.h"
#include "support/ToolEditor.h"
#include "support/WindowTest.h"

#include <QDialog>

// Strokes in the editor's scene that end otherwise than by a release.
class tst_StrokeEndings : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    // However a gesture ends, its step is on the stack, below the one of what ended it.
    void lostGesturesAreCommitted()
    {
        ToolEditor editor;
        Body &a = editor.a;
        Body &b = editor.add(QStringLiteral("b"), {8, 8});
        GUndoStack &stack = editor.project.undoStack();
        FakeTool other;
        FakeTool &tool = editor.tool;
        tool.paints = true;
        QDialog dialog;
        dialog.setModal(true);
        QEvent ungrab(QEvent::UngrabMouse);
        const auto setTool = [&](bool commitsLate) {
            tool.commitsLate = commitsLate;
            editor.scene.setTool(&other);
        };
        struct Ending
        {
            const char *name;
            std::function<void()> run;
            int steps = 1;
        };
        const QVector<Ending> endings = {
            {"release", [&] { QTest::mouseRelease(&editor.viewport, Qt::LeftButton); }},
            {"modal dialog", [&] { dialog.show(); }},
            {"grab", [&] { QCoreApplication::sendEvent(&editor.viewport, &ungrab); }},
            {"focus", [&] { editor.edit.setFocus(); }},
            {"hidden", [&] { editor.view.hide(); }},
            {"tool", [&] { setTool(false); }},
            {"late tool", [&] { setTool(true); }},
            {"body", [&] { editor.bodies.setSelection({&b}); }, 2},
            {"other step", [&] { a.name().setValue(QStringLiteral("c"), QStringLiteral("c")); }, 2},
            {"removal",
             [&] {
                 const UndoMacro macro(stack, QStringLiteral("remove"));
                 editor.bodies.setSelection({});
                 editor.project.bodies().remove(a, QStringLiteral("remove body"));
             },
             2},
            {"another project", [&] { editor.scene.setProject(nullptr); }},
        };
        for (const auto &[name, run, steps] : endings) {
            tool.commitsLate = false;
            editor.bodies.setSelection({&a});
            editor.scene.setTool(&tool);
            editor.scene.light().setPos(-300, -200); // out of the way
            stack.clear();
            editor.press(a, {1, 2});
            dragTo(editor.viewport, editor.on(a, {3, 2}));
            run();
            AngleImage expected(8, 8);
            expected.row(2)[1] = expected.row(2)[3] = {256, 0};
            QVERIFY2(a.surface() == expected, name);
            QVERIFY2(stack.count() == steps && stack.text(0) == QLatin1String("stroke"), name);
            QVERIFY2(tool.lastEvent.changedButton == Qt::LeftButton, name);
            QVERIFY2(tool.lastEvent.buttons == Qt::NoButton, name);

            // Nothing comes after it.
            editor.scene.setProject(&editor.project);
            dialog.close();
            editor.view.show();
            editor.window.activateWindow();
            editor.view.setFocus();
            QTRY_VERIFY2(editor.view.hasFocus(), name);
            tool.takeLog();
            dragTo(editor.viewport, QPoint(90, 90));
            QTest::mouseRelease(&editor.viewport, Qt::LeftButton, {}, QPoint(90, 90));
            QVERIFY2(!tool.takeLog().contains("release"), name);
            QVERIFY2(stack.count() == steps, name);
            while (stack.canUndo())
                stack.undo();
            QVERIFY2(a.paintedNormalMap().angleImage().isNull(), name);
        }
    }

    // What undo and redo take from under a stroke takes the stroke along.
    void undoDropsStrokes()
    {
        ToolEditor editor;
        const Body &a = editor.a;
        GUndoStack &stack = editor.project.undoStack();
        const QString text = QStringLiteral("before");
        FakeTool &tool = editor.tool;
        tool.paints = true;
        auto clone = std::make_shared<Body>(editor.project);
        clone->sprite().filename().setValue(a.sprite().filename().value());
        clone->loadSprite();
        Body &b = *clone;
        editor.project.bodies().append(clone, text);
        editor.bodies.setSelection({&b});
        for (const int steps : {1, 2}) {
            for (const bool isLate : {false, true}) {
                tool.commitsLate = isLate;
                editor.press(b, {1, 2});
                const int count = stack.count();
                stack.setIndex(stack.index() - steps); // selects a, removes b
                QCOMPARE(stack.count(), count);
                QVERIFY(stack.canRedo());
                QVERIFY(editor.scene.currentBody() != &b);
                editor.release(a, {1, 2});
                stack.setIndex(count);
                QCOMPARE(stack.count(), count);
                QCOMPARE(editor.scene.currentBody(), &b);
                editor.scene.spriteItem(&b)->processor().waitForIdle();
                QVERIFY(editor.scene.spriteItem(&b)->processor().angleImage() == AngleImage(8, 8));
                QVERIFY(b.paintedNormalMap().angleImage().isNull());
            }
        }
    }
};

int main(int argc, char **argv)
{
    return runGraphicsTest<tst_StrokeEndings>(argc, argv);
}

#include "tst_StrokeEndings.moc"
