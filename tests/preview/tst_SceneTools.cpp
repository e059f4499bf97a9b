#include "preview/NormalMapEditorScene.h"

#include "base/Resources.h"
#include "imaging/SelectionMasks.h"
#include "model/NormalMapProcessor.h"
#include "model/PropertyAngleImage.h"
#include "model/Sprite.h"
#include "model/properties/PropertyListT.h"
#include "model/properties/PropertyT.h"
#include "preview/GLGraphicsLight.h"
#include "preview/GraphicsCheck.h"
#include "preview/SpriteItem.h"
#include "support/FakeTool.h"
#include "support/Gestures.h"
#include "support/ShownEditor.h"
#include "tools/PaintToolMove.h"

#include <QApplication>
#include <QDialog>
#include <QGraphicsRectItem>
#include <QMenu>
#include <QSemaphore>
#include <QSignalSpy>
#include <QTabletEvent>
#include <QTest>
#include <QThreadPool>
#include <QWindow>

namespace {
/// Keeps all threads of the pool busy for as long as it lives.
class HeldPool
{
public:
    HeldPool()
    {
        for (int i = 0; i < m_count; ++i)
            QThreadPool::globalInstance()->start([this] { m_gate.acquire(); });
    }
    ~HeldPool() { m_gate.release(m_count); }
    HeldPool(const HeldPool &) = delete;
    HeldPool &operator=(const HeldPool &) = delete;

private:
    const int m_count = QThreadPool::globalInstance()->maxThreadCount();
    QSemaphore m_gate;
};

/// As the platform tells of it, at the window.
void sendPen(const ShownEditor &editor,
             QEvent::Type type,
             const QPointF &place,
             double pressure,
             Qt::MouseButton button = Qt::LeftButton,
             QTabletEvent::PointerType end = QTabletEvent::Pen)
{
    const bool isDown = pressure > 0 && type != QEvent::TabletRelease;
    const QPointF offset = editor.viewport.mapTo(&editor.window, QPoint());
    const QPointF global = editor.viewport.mapToGlobal(QPoint());
    QTabletEvent event(type,
                       place + offset,
                       place + global,
                       QTabletEvent::Stylus,
                       end,
                       pressure,
                       0,
                       0,
                       0,
                       0,
                       0,
                       Qt::NoModifier,
                       1,
                       type == QEvent::TabletMove ? Qt::NoButton : button,
                       isDown ? Qt::MouseButtons(button) : Qt::NoButton);
    QCoreApplication::sendEvent(editor.window.windowHandle(), &event);
}

void sendMouse(QWidget &widget, QEvent::Type type, const QPoint &place, Qt::MouseEventSource source)
{
    const bool isRelease = type == QEvent::MouseButtonRelease;
    QMouseEvent event(type,
                      place,
                      place,
                      widget.mapToGlobal(place),
                      type == QEvent::MouseMove ? Qt::NoButton : Qt::LeftButton,
                      isRelease ? Qt::NoButton : Qt::LeftButton,
                      Qt::NoModifier,
                      source);
    QCoreApplication::sendEvent(&widget, &event);
}
} // namespace

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

    // However a gesture ends, its step is on the stack, below the one of what ended it.
    void lostGesturesAreCommitted()
    {
        ShownEditor editor;
        Body &a = editor.add(QStringLiteral("a"), {8, 8});
        Body &b = editor.add(QStringLiteral("b"), {8, 8});
        GUndoStack &stack = editor.project.undoStack();
        FakeTool other;
        FakeTool tool;
        tool.paints = true;
        QDialog dialog;
        dialog.setModal(true);
        QMenu menu;
        menu.addAction(QStringLiteral("action"));
        QEvent ungrab(QEvent::UngrabMouse);
        struct Ending
        {
            const char *name;
            std::function<void()> run;
            int steps = 1;
        };
        const QVector<Ending> endings = {
            {"release", [&] { QTest::mouseRelease(&editor.viewport, Qt::LeftButton); }},
            {"modal dialog", [&] { dialog.show(); }},
            {"popup", [&] { menu.popup(editor.window.pos()); }},
            {"grab", [&] { QCoreApplication::sendEvent(&editor.viewport, &ungrab); }},
            {"focus", [&] { editor.edit.setFocus(); }},
            {"hidden", [&] { editor.view.hide(); }},
            {"scene", [&] { editor.scene.finishGesture(); }},
            {"tool", [&] { editor.scene.setTool(&other); }},
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
        for (const bool isLate : {false, true}) {
            for (const auto &[name, run, steps] : endings) {
                tool.commitsLate = isLate;
                if (isLate && qstrcmp(name, "tool") != 0)
                    continue;
                editor.bodies.setSelection({&a});
                editor.scene.setTool(&tool);
                editor.scene.light().setPos(-300, -200); // out of the way
                stack.clear();
                QTest::mousePress(&editor.viewport, Qt::LeftButton, {}, editor.on(a, {1, 2}));
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
                menu.close();
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
    }

    // What undo and redo take from under a stroke takes the stroke along.
    void undoDropsStrokes()
    {
        ShownEditor editor;
        Body &a = editor.add(QStringLiteral("a"), {8, 8});
        GUndoStack &stack = editor.project.undoStack();
        const QString text = QStringLiteral("before");
        FakeTool tool;
        tool.paints = true;
        editor.scene.setTool(&tool);
        editor.bodies.setSelection({&a});
        auto clone = std::make_shared<Body>(editor.project);
        clone->sprite().filename().setValue(a.sprite().filename().value());
        clone->loadSprite();
        Body &b = *clone;
        editor.project.bodies().append(clone, text);
        editor.bodies.setSelection({&b});
        for (const int steps : {1, 2}) {
            for (const bool isLate : {false, true}) {
                tool.commitsLate = isLate;
                QTest::mousePress(&editor.viewport, Qt::LeftButton, {}, editor.on(b, {1, 2}));
                const int count = stack.count();
                stack.setIndex(stack.index() - steps); // selects a, removes b
                QCOMPARE(stack.count(), count);
                QVERIFY(stack.canRedo());
                QVERIFY(editor.scene.currentBody() != &b);
                QTest::mouseRelease(&editor.viewport, Qt::LeftButton, {}, editor.on(a, {1, 2}));
                stack.setIndex(count);
                QCOMPARE(stack.count(), count);
                QCOMPARE(editor.scene.currentBody(), &b);
                editor.scene.spriteItem(&b)->processor().waitForIdle();
                QVERIFY(editor.scene.spriteItem(&b)->processor().angleImage() == AngleImage(8, 8));
                QVERIFY(b.paintedNormalMap().angleImage().isNull());
            }
        }

        // The same surface: the stroke goes on from the one undone to.
        tool.commitsLate = false;
        b.paintedNormalMap().setAngleImage(AngleImage(8, 8, 7), text);
        QTest::mousePress(&editor.viewport, Qt::LeftButton, {}, editor.on(b, {1, 2}));
        stack.undo();
        dragTo(editor.viewport, editor.on(b, {3, 2}));
        QTest::mouseRelease(&editor.viewport, Qt::LeftButton, {}, editor.on(b, {3, 2}));
        AngleImage expected(8, 8);
        expected.row(2)[3] = {256, 0};
        QVERIFY(b.surface() == expected);

        // One that paints nothing leaves no step and an unpainted body as it is.
        stack.undo();
        QVERIFY(stack.canRedo());
        QTest::mouseClick(&editor.viewport, Qt::LeftButton, {}, editor.on(b, {-5, 2}));
        Q_EMIT tool.temporaryNormalMapChanged(AngleImage(1, 1), QRect(2, 2, 1, 1));
        Q_EMIT tool.commitNormalMap(text);
        QVERIFY(stack.canRedo());
    }

    void maskConfinesStrokesWhileTheWorkerIsHeld()
    {
        ShownEditor editor;
        Body &a = editor.add(QStringLiteral("a"), {8, 8});
        FakeTool tool;
        tool.paints = true;
        editor.scene.setTool(&tool);
        editor.bodies.setSelection({&a});
        FloatImage mask(8, 8);
        mask.row(2)[1] = mask.row(2)[3] = 1.0F;
        editor.pixels.setSelection(&a, mask, QStringLiteral("mask"));
        editor.click(editor.on(a, {1, 2}));
        {
            const HeldPool held;
            QTest::mousePress(&editor.viewport, Qt::LeftButton, {}, editor.on(a, {2, 2}));
            dragTo(editor.viewport, editor.on(a, {3, 2}));
        }
        QTest::mouseRelease(&editor.viewport, Qt::LeftButton, {}, editor.on(a, {3, 2}));
        AngleImage expected(8, 8);
        expected.row(2)[1] = expected.row(2)[3] = {256, 0};
        QVERIFY(a.surface() == expected);
        editor.project.undoStack().undo();
        expected.row(2)[3] = {};
        QVERIFY(a.surface() == expected);
    }

    void dragsSelectByOneStep()
    {
        ShownEditor editor;
        Body &a = editor.add(QStringLiteral("a"), {8, 8});
        FakeTool tool;
        editor.scene.setTool(&tool);
        editor.bodies.setSelection({&a});
        const int before = editor.project.undoStack().count();
        FloatImage mask(8, 8);
        for (int gesture = 1; gesture <= 2; ++gesture) {
            QTest::mousePress(&editor.viewport, Qt::LeftButton, {}, editor.on(a, {1, 2}));
            for (int x = 0; x < 3; ++x) {
                mask.row(gesture)[x] = 1.0F;
                Q_EMIT tool.selectionChanged(mask, QStringLiteral("select"), true);
            }
            QTest::mouseRelease(&editor.viewport, Qt::LeftButton, {}, editor.on(a, {1, 2}));
            QCOMPARE(editor.project.undoStack().count(), before + gesture);
        }
    }

    void penPaintsWithItsPressure()
    {
        ShownEditor editor;
        Body &a = editor.add(QStringLiteral("a"), {200, 200});
        QVERIFY(QTest::qWaitForWindowExposed(&editor.window));
        FakeTool tool;
        editor.scene.setTool(&tool);
        editor.bodies.setSelection({&a});
        const QPointF start = editor.on(a, {10, 10});
        const auto expectedPlace = [&](int i) { return QPointF(10 + (i % 180), 10.25 + i * 0.1); };
        sendPen(editor, QEvent::TabletMove, start, 0.0);
        QVERIFY(tool.takeLog().endsWith("|move 10,10"));
        sendPen(editor, QEvent::TabletPress, start, 0.5);
        sendMouse(editor.viewport,
                  QEvent::MouseButtonPress,
                  start.toPoint(),
                  Qt::MouseEventNotSynthesized);
        QCOMPARE(tool.takeLog(), QByteArray("press 10,10"));
        QCOMPARE(tool.lastEvent.pressure, 0.5);
        QVERIFY(!tool.lastEvent.isEraser);
        QVERIFY(editor.view.hasFocus());
        tool.pressures.clear();
        QVector<double> sent;
        for (int i = 0; i < 1000; ++i) {
            sent.append((1 + i % 100) / 100.0);
            const QPointF place = start + expectedPlace(i) - QPointF(10, 10);
            sendPen(editor, QEvent::TabletMove, place, sent.last());
            QCOMPARE(tool.lastEvent.position, expectedPlace(i));
            if (i % 100 == 0)
                sendMouse(editor.viewport,
                          QEvent::MouseMove,
                          place.toPoint(),
                          Qt::MouseEventSynthesizedByQt);
        }
        QCOMPARE(tool.pressures, sent);
        QCOMPARE(tool.lastEvent.buttons, Qt::LeftButton);
        tool.takeLog();
        sendPen(editor, QEvent::TabletRelease, start, 0.0);
        for (const QEvent::Type type : {QEvent::MouseButtonPress, QEvent::MouseButtonRelease})
            sendMouse(editor.viewport,
                      type,
                      start.toPoint() + QPoint(9, 9),
                      Qt::MouseEventSynthesizedBySystem);
        QCOMPARE(tool.takeLog(), QByteArray("release 10,10"));
        QCOMPARE(tool.lastEvent.pressure, 0.0);

        // The other end, a double click, the button that pans, and a mouse after all that.
        const QPointF far = start + QPointF(50, 0);
        for (int i = 0; i < 2; ++i) {
            sendPen(editor, QEvent::TabletPress, far, 1.0, Qt::LeftButton, QTabletEvent::Eraser);
            QVERIFY(tool.lastEvent.isEraser);
            sendPen(editor, QEvent::TabletRelease, far, 0.0, Qt::LeftButton, QTabletEvent::Eraser);
        }
        QCOMPARE(tool.takeLog(),
                 QByteArray("press 60,10|release 60,10|double 60,10|release 60,10"));
        sendPen(editor, QEvent::TabletPress, far, 1.0, Qt::MiddleButton);
        sendPen(editor, QEvent::TabletMove, far + QPointF(30, 9), 1.0, Qt::MiddleButton);
        sendPen(editor, QEvent::TabletRelease, far + QPointF(30, 9), 0.0, Qt::MiddleButton);
        QCOMPARE(editor.on(a, {60, 10}), (far + QPointF(30, 9)).toPoint());
        tool.takeLog();
        editor.click(editor.on(a, {5, 6}));
        QCOMPARE(tool.takeLog(), QByteArray("press 5,6|release 5,6"));
        QCOMPARE(tool.lastEvent.pressure, 1.0);
        QVERIFY(!tool.lastEvent.isEraser);

        // One that is taken away tells no release; the mouse goes on.
        const QPointF place = editor.on(a, {20, 20});
        sendPen(editor, QEvent::TabletPress, place, 0.5);
        tool.takeLog();
        sendPen(editor, QEvent::TabletLeaveProximity, place, 0.0);
        QCOMPARE(tool.takeLog(), QByteArray("release 20,20"));
        editor.click(editor.on(a, {5, 6}));
        QCOMPARE(tool.takeLog(), QByteArray("press 5,6|release 5,6"));
    }

    void wheelAndRightButtonReachTheTool()
    {
        ShownEditor editor;
        Body &a = editor.add(QStringLiteral("a"));
        FakeTool tool;
        tool.usesWheel = true;
        editor.scene.setTool(&tool);
        editor.bodies.setSelection({&a});
        tool.takeLog();
        const double zoom = editor.view.zoom();
        turnWheel(editor.viewport, editor.on(a), {0, 30}, Qt::ControlModifier);
        turnWheel(editor.viewport,
                  editor.on(a),
                  {-240, 0},
                  Qt::ControlModifier | Qt::ShiftModifier); // the axis turned
        turnWheel(editor.viewport, editor.on(a), {}, Qt::ControlModifier);
        QCOMPARE(tool.takeLog(), QByteArray("wheel 0.25 4000000|wheel -2 6000000"));
        QCOMPARE(editor.view.zoom(), zoom);

        QContextMenuEvent menu(QContextMenuEvent::Mouse, editor.on(a));
        QCoreApplication::sendEvent(&editor.viewport, &menu);
        QVERIFY(menu.isAccepted());
        drag(editor.viewport, editor.on(a, {1, 2}), editor.on(a, {5, 6}), Qt::RightButton);
        QCOMPARE(tool.takeLog(), QByteArray("press 1,2|move 3,4|move 5,6|release 5,6"));
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
