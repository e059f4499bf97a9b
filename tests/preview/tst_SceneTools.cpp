#include "preview/NormalMapEditorScene.h"

#include "imaging/SelectionMasks.h"
#include "model/NormalMapProcessor.h"
#include "model/PropertyAngleImage.h"
#include "model/properties/PropertyListT.h"
#include "model/properties/PropertyT.h"
#include "preview/SpriteItem.h"
#include "support/Gestures.h"
#include "support/ToolEditor.h"
#include "support/Widgets.h"
#include "support/WindowTest.h"

#include <QTabletEvent>
#include <QWindow>

namespace {
enum class PenEnd { Tip, Eraser };

#if QT_VERSION < QT_VERSION_CHECK(6, 0, 0)
QTabletEvent penEvent(QEvent::Type type,
                      const QPointF &place,
                      const QPointF &global,
                      double pressure,
                      Qt::MouseButton button,
                      Qt::MouseButtons buttons,
                      PenEnd end)
{
    const auto pointer = end == PenEnd::Tip ? QTabletEvent::Pen : QTabletEvent::Eraser;
    const auto device = QTabletEvent::Stylus;
    return {type, place, global, device, pointer, pressure, 0, 0, 0, 0, 0, {}, 1, button, buttons};
}
#else
QTabletEvent penEvent(QEvent::Type type,
                      const QPointF &place,
                      const QPointF &global,
                      double pressure,
                      Qt::MouseButton button,
                      Qt::MouseButtons buttons,
                      PenEnd end)
{
    using Device = QPointingDevice;
    const auto make = [](Device::PointerType pointer) {
        const auto pressed = QInputDevice::Capability::Pressure;
        return Device({}, 1, QInputDevice::DeviceType::Stylus, pointer, pressed, 1, 1);
    };
    static const Device tip = make(Device::PointerType::Pen);
    static const Device eraser = make(Device::PointerType::Eraser);
    const Device &device = end == PenEnd::Tip ? tip : eraser;
    return {type, &device, place, global, pressure, 0, 0, 0, 0, 0, {}, button, buttons};
}
#endif

/// As the platform tells of it, at the window.
void sendPen(const ShownEditor &editor,
             QEvent::Type type,
             const QPointF &place,
             double pressure,
             Qt::MouseButton button = Qt::LeftButton,
             PenEnd end = PenEnd::Tip)
{
    const bool isDown = pressure > 0 && type != QEvent::TabletRelease;
    const QPointF offset = editor.viewport.mapTo(&editor.window, QPoint());
    const QPointF global = editor.viewport.mapToGlobal(QPoint());
    QTabletEvent event = penEvent(type,
                                  place + offset,
                                  place + global,
                                  pressure,
                                  type == QEvent::TabletMove ? Qt::NoButton : button,
                                  isDown ? Qt::MouseButtons(button) : Qt::NoButton,
                                  end);
    QCoreApplication::sendEvent(editor.window.windowHandle(), &event);
}
} // namespace

// Tools that work in the editor's scene: what they hear and what they paint.
class tst_SceneTools : public QObject
{
    Q_OBJECT

private Q_SLOTS:
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
    }

    void toolFollowsCurrentBody()
    {
        ToolEditor editor({64, 64});
        Body &a = editor.a;
        Body &b = editor.add(QStringLiteral("b"), {40, 30});
        FakeTool &tool = editor.tool;
        editor.pixels.setSelection(&a, FloatImage(64, 64, 1.0F), QStringLiteral("mask"));
        QCOMPARE(tool.takeLog(), QByteArray("selection 64x64"));
        QVERIFY(editor.scene.spriteItem(&a)->hasSelection());

        const QByteArray startsOver = "deactivate|activate 40x30|texture 40x30|selection 0x0";
        editor.bodies.setSelection({&b});
        QCOMPARE(tool.takeLog(), startsOver);
        QVERIFY(!editor.scene.spriteItem(&a)->hasSelection());

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

        editor.bodies.setSelection({&a, &b});
        QCOMPARE(tool.takeLog(), QByteArray("deactivate"));
        QVERIFY(!editor.pixels.body());

        // Bodies and tools may go at any time.
        editor.bodies.setSelection({&a});
        editor.project.bodies().setEntries({editor.project.bodies().entries().last()});
        QVERIFY(!editor.scene.currentBody());
        auto dying = std::make_unique<FakeTool>();
        editor.bodies.setSelection({&b});
        editor.scene.setTool(dying.get());
        dying.reset();
        editor.click(editor.on(b));
        editor.scene.setProject(nullptr);
    }

    void toolPaints()
    {
        ToolEditor editor;
        GUndoStack &stack = editor.project.undoStack();
        NormalMapProcessor &processor = editor.scene.spriteItem(&editor.a)->processor();
        Q_EMIT editor.tool.temporaryNormalMapChanged(AngleImage(2, 1, 512), QRect(3, 2, 2, 1));
        processor.waitForIdle();
        QVERIFY(editor.a.paintedNormalMap().angleImage().isNull());
        Q_EMIT editor.tool.commitNormalMap(QStringLiteral("stroke"));
        QCOMPARE(stack.undoText(), QStringLiteral("stroke"));
        AngleImage expected(8, 8);
        expected.row(2)[3] = expected.row(2)[4] = {512, 0};
        QVERIFY(editor.a.surface() == expected);
        QVERIFY(editor.tool.surface == expected);
        QCOMPARE(editor.tool.takeLog(), QByteArray("surface 8x8"));

        stack.undo();
        QVERIFY(editor.tool.surface == AngleImage(8, 8));
        Q_EMIT editor.tool.commitNormalMap(QStringLiteral("nothing painted"));
        QVERIFY(stack.canRedo());
    }

    void penPaintsWithItsPressure()
    {
        ToolEditor editor({200, 200});
        const Body &a = editor.a;
        FakeTool &tool = editor.tool;
        showActive(editor.window);
        const QPointF start = editor.on(a, {10, 10});
        sendPen(editor, QEvent::TabletMove, start, 0.0);
        QCOMPARE(tool.takeLog(), QByteArray("move 10,10"));
        sendPen(editor, QEvent::TabletPress, start, 0.5);
        editor.click(start.toPoint());
        QCOMPARE(tool.takeLog(), QByteArray("press 10,10"));
        QCOMPARE(tool.lastEvent.pressure, 0.5);
        QVERIFY(!tool.lastEvent.isEraser);
        QTRY_VERIFY(editor.view.hasFocus());
        tool.pressures.clear();
        QVector<double> sent;
        for (int i = 0; i < 1000; ++i) {
            sent.append((1 + i % 100) / 100.0);
            const QPointF way(i % 180, 0.25 + i * 0.1);
            sendPen(editor, QEvent::TabletMove, start + way, sent.last());
            QCOMPARE(tool.lastEvent.position, QPointF(10, 10) + way);
        }
        QCOMPARE(tool.pressures, sent);
        QCOMPARE(tool.lastEvent.buttons, Qt::LeftButton);
        tool.takeLog();
        sendPen(editor, QEvent::TabletRelease, start, 0.0);
        QCOMPARE(tool.takeLog(), QByteArray("release 10,10"));
        QCOMPARE(tool.lastEvent.pressure, 0.0);

        // The other end, a double click, and a mouse after all that.
        const QPointF far = start + QPointF(50, 0);
        for (int i = 0; i < 2; ++i) {
            sendPen(editor, QEvent::TabletPress, far, 1.0, Qt::LeftButton, PenEnd::Eraser);
            QVERIFY(tool.lastEvent.isEraser);
            sendPen(editor, QEvent::TabletRelease, far, 0.0, Qt::LeftButton, PenEnd::Eraser);
        }
        QCOMPARE(tool.takeLog(),
                 QByteArray("press 60,10|release 60,10|double 60,10|release 60,10"));
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
};

int main(int argc, char **argv)
{
    return runGraphicsTest<tst_SceneTools>(argc, argv);
}

#include "tst_SceneTools.moc"
