#include "preview/NormalMapEditorScene.h"

#include "base/Resources.h"
#include "imaging/SelectionMasks.h"
#include "model/NormalMapProcessor.h"
#include "model/PropertyAngleImage.h"
#include "model/properties/PropertyListT.h"
#include "preview/GLGraphicsLight.h"
#include "preview/GraphicsCheck.h"
#include "preview/SpriteItem.h"
#include "support/FakeTool.h"
#include "support/Gestures.h"
#include "support/ShownEditor.h"
#include "tools/PaintToolMove.h"

#include <QApplication>
#include <QGraphicsRectItem>
#include <QSignalSpy>
#include <QTest>

// Tools that work in the editor's scene: what they hear, what they paint, and how they show.
class tst_SceneTools : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase() { initialiseResources(); }

    void toolGetsEvents()
    {
        ShownEditor editor;
        const Body &a = editor.add(QStringLiteral("a"));
        editor.add(QStringLiteral("b"));
        FakeTool tool;
        editor.scene.setTool(&tool);
        editor.click(editor.on(a));
        QCOMPARE(editor.selected(), QByteArray("a"));
        QCOMPARE(tool.takeLog(), QByteArray("activate 64x64|texture 64x64|selection 0x0"));

        // Inside, outside and over the other sprite alike.
        drag(editor.viewport, editor.on(a, {10, 12}), editor.on(a, {90, -7}));
        QCOMPARE(tool.takeLog(), QByteArray("press 10,12|move 50,3|move 90,-7|release 90,-7"));
        QCOMPARE(editor.selected(), QByteArray("a"));
        dragTo(editor.viewport, editor.on(a, {3, 4}), Qt::NoButton);
        QTest::mousePress(&editor.viewport, Qt::RightButton, Qt::AltModifier, editor.on(a));
        QCOMPARE(tool.lastEvent.pressure, 1.0);
        QCOMPARE(tool.lastEvent.changedButton, Qt::RightButton);
        QCOMPARE(tool.lastEvent.buttons, Qt::RightButton);
        QCOMPARE(tool.lastEvent.modifiers, Qt::AltModifier);
        QTest::mouseRelease(&editor.viewport, Qt::RightButton, {}, editor.on(a));
        QTest::mouseDClick(&editor.viewport, Qt::LeftButton, {}, editor.on(a));
        QTest::mouseRelease(&editor.viewport, Qt::LeftButton, {}, editor.on(a));
        QCOMPARE(tool.takeLog(),
                 QByteArray("move 3,4|press 20,20|release 20,20|double 20,20|release 20,20"));

        QTest::keyClick(&editor.view, Qt::Key_Escape);
        editor.edit.setFocus();
        QTest::keyClick(&editor.edit, Qt::Key_Shift);
        QTest::keyClick(&editor.edit, Qt::Key_Meta);
        QCOMPARE(tool.takeLog(),
                 QByteArray("key 1000000|key up 1000000|key 1000020|key up 1000020"));

        // Only looking: neither the tool nor the selection hears of a click.
        editor.scene.setViewOnly(true);
        drag(editor.viewport, editor.besideAll(), editor.on(a));
        QCOMPARE(tool.takeLog(), QByteArray());
        QCOMPARE(editor.selected(), QByteArray("a"));
        editor.scene.setViewOnly(false);

        // A move tool's clicks select and drag again.
        tool.mode = InteractionMode::MoveSprites;
        Q_EMIT tool.interactionModeChanged(tool.mode);
        editor.click(editor.besideAll());
        QCOMPARE(editor.selected(), QByteArray());
        QCOMPARE(tool.takeLog(), QByteArray("deactivate"));
    }

    void toolFollowsCurrentBody()
    {
        ShownEditor editor;
        Body &a = editor.add(QStringLiteral("a"));
        Body &b = editor.add(QStringLiteral("b"), {40, 30});
        QGraphicsRectItem overlay(0, 0, 5, 5);
        PaintToolMove move;
        FakeTool tool;
        tool.overlay = &overlay;
        editor.scene.setTool(&tool);

        editor.bodies.setSelection({&a});
        QCOMPARE(editor.pixels.body(), &a);
        QCOMPARE(overlay.scene(), &editor.scene);
        tool.takeLog();
        editor.pixels.setSelection(&a, FloatImage(64, 64, 1.0F), QStringLiteral("mask"));
        QCOMPARE(tool.takeLog(), QByteArray("selection 64x64"));
        QVERIFY(editor.scene.spriteItem(&a)->hasSelection());

        const QByteArray startsOver = "deactivate|activate 40x30|texture 40x30|selection 0x0";
        editor.bodies.setSelection({&b});
        QCOMPARE(tool.takeLog(), startsOver);
        QVERIFY(!editor.scene.spriteItem(&a)->hasSelection());
        QCOMPARE(overlay.pos(), editor.scene.spriteItem(&b)->pos());

        // What changes elsewhere, with the same size and with another one.
        const QString text = QStringLiteral("change");
        b.paintedNormalMap().setAngleImage(AngleImage(40, 30, 7), text);
        QCOMPARE(tool.takeLog(), QByteArray("surface 40x30"));
        QVERIFY(tool.surface == AngleImage(40, 30, 7));
        editor.pixels.setSelection(&b, FloatImage(40, 30, 1.0F), QStringLiteral("mask"));
        tool.takeLog();
        b.paintedNormalMap().setAngleImage(AngleImage(20, 30), text);
        QCOMPARE(tool.takeLog(), startsOver);
        editor.project.undoStack().undo();
        tool.takeLog();

        editor.scene.setTool(&move);
        QCOMPARE(tool.takeLog(), QByteArray("deactivate"));
        QVERIFY(!overlay.scene());
        QCOMPARE(editor.scene.interactionMode(), InteractionMode::MoveSprites);
        editor.scene.setTool(&tool);
        QCOMPARE(editor.scene.interactionMode(), InteractionMode::Tool);
        tool.takeLog();
        editor.bodies.setSelection({&a, &b});
        QCOMPARE(tool.takeLog(), QByteArray("deactivate"));
        QVERIFY(!editor.pixels.body());

        // Bodies and tools may go at any time.
        editor.bodies.setSelection({&a});
        editor.project.bodies().setEntries({editor.project.bodies().entries().last()});
        QVERIFY(!editor.scene.currentBody());
        editor.scene.setTool(nullptr);
        auto dying = std::make_unique<FakeTool>();
        editor.bodies.setSelection({&b});
        editor.scene.setTool(dying.get());
        dying.reset();
        editor.click(editor.on(b));
        editor.scene.setProject(nullptr);
    }

    void toolPaintsThroughSelection()
    {
        ShownEditor editor;
        Body &a = editor.add(QStringLiteral("a"), {8, 8});
        FakeTool tool;
        editor.scene.setTool(&tool);
        editor.bodies.setSelection({&a});
        FloatImage mask(8, 8);
        mask.row(2)[3] = 1.0F;
        Q_EMIT tool.selectionChanged(mask, QStringLiteral("pixels"));
        QCOMPARE(editor.project.undoStack().undoText(), QStringLiteral("pixels"));

        NormalMapProcessor &processor = editor.scene.spriteItem(&a)->processor();
        Q_EMIT tool.temporaryNormalMapChanged(AngleImage(2, 1, 256), QRect(3, 2, 2, 1));
        processor.waitForIdle();
        QVERIFY(a.paintedNormalMap().angleImage().isNull());
        QVERIFY(processor.angleImage().row(2)[3] == (AngleImage::Pixel{256, 0}));

        tool.takeLog();
        Q_EMIT tool.temporaryNormalMapChanged(AngleImage(8, 8, 512));
        Q_EMIT tool.commitNormalMap(QStringLiteral("stroke"));
        QCOMPARE(editor.project.undoStack().undoText(), QStringLiteral("stroke"));
        AngleImage expected(8, 8);
        expected.row(2)[3] = {512, 0};
        QVERIFY(a.surface() == expected);
        QVERIFY(tool.surface == expected);
        QCOMPARE(tool.takeLog(), QByteArray("surface 8x8"));

        QSignalSpy pointed(&editor.scene, &NormalMapEditorScene::pointedPixelChanged);
        processor.waitForIdle();
        dragTo(editor.viewport, editor.on(a, {3, 2}), Qt::NoButton);
        const auto pixel = pointed.last().first().value<PointedPixel>();
        QCOMPARE(pixel.body, &a);
        QCOMPARE(pixel.pixel, QPoint(3, 2));
        QCOMPARE(pixel.slope, QPointF(2, 0));
        QCOMPARE(pixel.normal, QColor(241, 127, 114));

        editor.project.undoStack().undo();
        QVERIFY(tool.surface == AngleImage(8, 8));
        Q_EMIT tool.commitNormalMap(QStringLiteral("nothing painted"));
        QVERIFY(editor.project.undoStack().canRedo());
    }

    void brokenStrokesLeaveNothing()
    {
        ShownEditor editor;
        Body &a = editor.add(QStringLiteral("a"), {8, 8});
        Body &b = editor.add(QStringLiteral("b"), {8, 8});
        FakeTool tool;
        FakeTool other;
        NormalMapProcessor &processor = editor.scene.spriteItem(&a)->processor();
        const auto isFlat = [&processor] {
            processor.waitForIdle();
            return processor.angleImage() == AngleImage(8, 8);
        };
        editor.scene.setTool(&tool);
        editor.bodies.setSelection({&a});

        Q_EMIT tool.temporaryNormalMapChanged(AngleImage(2, 1, 256), QRect(3, 2, 2, 1));
        QVERIFY(!isFlat());
        editor.scene.setTool(&other);
        QVERIFY(isFlat());
        Q_EMIT other.commitNormalMap(QStringLiteral("of nothing"));
        QVERIFY(a.paintedNormalMap().angleImage().isNull());

        Q_EMIT other.temporaryNormalMapChanged(AngleImage(2, 1, 256), QRect(3, 2, 2, 1));
        QVERIFY(!isFlat());
        editor.bodies.setSelection({&b});
        QVERIFY(isFlat());
    }

    void strokesStayWhileTheViewMoves()
    {
        ShownEditor editor;
        Body &a = editor.add(QStringLiteral("a"), {200, 200});
        FakeTool tool;
        editor.scene.setTool(&tool);
        editor.bodies.setSelection({&a});
        QVERIFY(QTest::qWaitForWindowExposed(&editor.window));
        editor.view.setZoom(2.0);
        QTest::mousePress(&editor.viewport, Qt::LeftButton, {}, editor.on(a, {50, 50}));
        const QPoint pointer = editor.on(a, {60, 60});
        dragTo(editor.viewport, pointer);
        tool.takeLog();
        turnWheel(editor.viewport, pointer, {0, 240}, Qt::AltModifier, Qt::LeftButton);
        QVERIFY(editor.view.zoom() > 2.5);
        QCOMPARE(tool.takeLog(), QByteArray("move 60,60"));

        // Without a stroke the middle button pans, and the pixel under the pointer stays the same.
        QTest::mouseRelease(&editor.viewport, Qt::LeftButton, {}, pointer);
        const QSignalSpy pointed(&editor.scene, &NormalMapEditorScene::pointedPixelChanged);
        drag(editor.viewport, pointer, pointer + QPoint(30, 9), Qt::MiddleButton);
        QCOMPARE(editor.on(a, {60, 60}), pointer + QPoint(30, 9));
        QVERIFY(pointed.isEmpty());
    }

    void pointerShowsWhatItDoes()
    {
        ShownEditor editor;
        Body &a = editor.add(QStringLiteral("a"), {200, 200});
        const auto shapeAt = [&editor](const QPoint &place) {
            dragTo(editor.viewport, place, Qt::NoButton);
            return editor.viewport.cursor().shape();
        };
        QCOMPARE(shapeAt(editor.on(a, {150, 150})), Qt::SizeAllCursor);
        QCOMPARE(shapeAt(editor.besideAll()), Qt::ArrowCursor);
        QCOMPARE(shapeAt(editor.at(editor.scene.light().pos())), Qt::OpenHandCursor);

        FakeTool tool;
        editor.scene.setTool(&tool);
        editor.bodies.setSelection({&a});
        const auto outline = [&editor]() -> QGraphicsItem * {
            for (QGraphicsItem *item : editor.scene.items()) {
                if (item->toGraphicsObject() && item->zValue() > editor.scene.light().zValue())
                    return item;
            }
            return nullptr;
        };
        QVERIFY(outline() && !outline()->isVisible());
        QCOMPARE(shapeAt(editor.on(a, {150, 150})), Qt::BitmapCursor);
        QVERIFY(outline()->isVisible());
        QCOMPARE(editor.at(outline()->pos()), editor.on(a, {150, 150}));
        editor.scene.setViewOnly(true);
        QVERIFY(!outline()->isVisible());
        editor.scene.setViewOnly(false);
        Q_EMIT tool.cursorChanged(ScalableToolCursor(QCursor(Qt::CrossCursor)));
        QVERIFY(!outline());
        QCOMPARE(editor.viewport.cursor().shape(), Qt::CrossCursor);
    }
};

int main(int argc, char *argv[])
{
    prepareGraphics();
    const QApplication application(argc, argv);
    tst_SceneTools test;
    return QTest::qExec(&test, argc, argv);
}

#include "tst_SceneTools.moc"
