#include "preview/NormalMapEditorScene.h"

#include "model/NormalMapProcessor.h"
#include "model/properties/PropertyListT.h"
#include "model/properties/PropertyT.h"
#include "preview/SpriteItem.h"
#include "support/Gestures.h"
#include "support/PaintCounter.h"
#include "support/ShownEditor.h"
#include "support/WindowTest.h"

#include <QSignalSpy>

class tst_NormalMapEditorScene : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void clicksAndBandSelect()
    {
        ShownEditor editor;
        QVERIFY(!editor.scene.spritesRect().isValid());
        QVERIFY(editor.scene.contentRect().isValid());
        const Body &a = editor.add(QStringLiteral("a"));
        const Body &b = editor.add(QStringLiteral("b"));
        const Body &c = editor.add(QStringLiteral("c"));

        editor.click(editor.on(a));
        QCOMPARE(editor.selected(), QByteArray("a"));
        QCOMPARE(editor.scene.currentBody(), &a);
        editor.click(editor.on(b));
        QCOMPARE(editor.selected(), QByteArray("b"));
        editor.click(editor.on(a), Qt::ShiftModifier);
        QCOMPARE(editor.selected(), QByteArray("a b"));
        QVERIFY(!editor.scene.currentBody());
        editor.click(editor.on(b), Qt::ControlModifier);
        QCOMPARE(editor.selected(), QByteArray("a"));
        editor.click(editor.besideAll());
        QCOMPARE(editor.selected(), QByteArray());
        QCOMPARE(editor.project.undoStack().count(), 0);

        drag(editor.viewport, editor.besideAll(), editor.on(b, {5, 20}));
        QCOMPARE(editor.selected(), QByteArray("a b"));
        drag(editor.viewport,
             editor.on(c, {-8, 70}),
             editor.on(c, {20, 50}),
             Qt::LeftButton,
             Qt::ControlModifier);
        QCOMPARE(editor.selected(), QByteArray("a b c"));
        editor.click(editor.on(c));
        QCOMPARE(editor.selected(), QByteArray("c"));

        // The upper sprite counts only where it is opaque. It is added later than the others.
        QCoreApplication::processEvents();
        const Body &d = editor.add(QStringLiteral("d"), {64, 64}, Qt::transparent);
        editor.scene.spriteItem(&d)->setPos(editor.scene.spriteItem(&a)->pos() + QPointF(30, 0));
        editor.click(editor.on(d, {10, 20}));
        QCOMPARE(editor.selected(), QByteArray("a"));
        editor.click(editor.on(d, {44, 20}));
        QCOMPARE(editor.selected(), QByteArray("d"));
    }

    void draggedSpritesKeepTheirPlaces()
    {
        ShownEditor editor;
        Body &a = editor.add(QStringLiteral("a"));
        Body &b = editor.add(QStringLiteral("b"));
        QCOMPARE(editor.scene.spritesRect(), QRectF(-72, -32, 144, 64));
        const auto place = [&editor](const Body &body) {
            return editor.scene.spriteItem(&body)->pos();
        };
        const QPointF beforeA = place(a);
        const QPointF beforeB = place(b);
        QSignalSpy content(&editor.scene, &NormalMapEditorScene::contentRectChanged);

        drag(editor.viewport, editor.on(b), editor.on(b) + QPoint(40, 7));
        QCOMPARE(place(b), beforeB + QPointF(40, 7));
        QCOMPARE(place(a), beforeA);
        QCOMPARE(editor.selected(), QByteArray("b"));
        QCOMPARE(content.count(), 1);

        editor.bodies.setSelection({&a, &b});
        drag(editor.viewport, editor.on(a), editor.on(a) + QPoint(-10, 3));
        QCOMPARE(place(a), beforeA + QPointF(-10, 3));
        QCOMPARE(place(b), beforeB + QPointF(30, 10));
        QCOMPARE(editor.selected(), QByteArray("a b"));

        // Bodies that come and go leave the others where they are, and undone ones come back there.
        QCoreApplication::processEvents();
        editor.project.bodies().remove(a, QStringLiteral("remove"));
        QVERIFY(!editor.scene.spriteItem(&a));
        editor.add(QStringLiteral("c"));
        QCOMPARE(place(b), beforeB + QPointF(30, 10));
        editor.project.undoStack().undo();
        QCOMPARE(place(a), beforeA + QPointF(-10, 3));
    }

    void moveIsOneStep()
    {
        ShownEditor editor;
        Body &a = editor.add(QStringLiteral("a"));
        Body &b = editor.add(QStringLiteral("b"));
        GUndoStack &stack = editor.project.undoStack();
        const auto places = [&editor, &a, &b] {
            return QVector<QPointF>{editor.scene.spriteItem(&a)->pos(),
                                    editor.scene.spriteItem(&b)->pos()};
        };
        editor.bodies.setSelection({&a, &b});
        const auto start = places();
        const int steps = stack.count();
        const auto dragOn = [&editor, &a](const QPoint &way) {
            const QPoint from = editor.on(a);
            QTest::mousePress(&editor.viewport, Qt::LeftButton, {}, from);
            dragTo(editor.viewport, from + way);
        };
        const auto moved = [&start](const QPointF &way) {
            return QVector<QPointF>{start[0] + way, start[1] + way};
        };

        dragOn({30, 20});
        QTRY_COMPARE(places(), moved({30, 20}));
        QTest::keyClick(&editor.view, Qt::Key_Escape);
        QCOMPARE(places(), start);
        dragTo(editor.viewport, editor.on(a) + QPoint(50, 50));
        QTest::mouseRelease(&editor.viewport, Qt::LeftButton, {}, editor.on(a));
        QCOMPARE(places(), start);
        drag(editor.viewport, editor.on(a), editor.on(a)); // and not moved
        QVERIFY(!a.place());
        QCOMPARE(editor.selected(), QByteArray("a"));
        editor.bodies.setSelection({&a, &b});
        QVERIFY(!stack.isModified());

        dragOn({30, 20});
        QTest::mouseRelease(&editor.viewport, Qt::LeftButton, {}, editor.on(a));
        QCOMPARE(places(), moved({30, 20}));
        QCOMPARE(stack.undoText(), QStringLiteral("move sprites"));
        QVERIFY(stack.isModified());
        QVERIFY(a.place() == places()[0].toPoint() && b.place() == places()[1].toPoint());
        dragOn({5, 15});
        editor.view.hide(); // the release is lost
        editor.view.show();
        QCOMPARE(places(), moved({35, 35}));
        const QRectF content = editor.scene.spritesRect();
        stack.undo();
        QCOMPARE(places(), moved({30, 20}));
        QTRY_VERIFY(editor.scene.sceneRect() != content);
        stack.undo();
        QCOMPARE(places(), start);
        QVERIFY(!a.place() && !b.place());
        QVERIFY(!stack.isModified());
        stack.redo();
        QCOMPARE(places(), moved({30, 20}));

        // What is dragged lets go when undo moves it.
        dragOn({9, 9});
        stack.undo();
        dragTo(editor.viewport, editor.on(a) + QPoint(60, 60));
        QTest::mouseRelease(&editor.viewport, Qt::LeftButton, {}, editor.on(a));
        QCOMPARE(places(), start);
        QVERIFY(stack.canRedo());
        QVERIFY(stack.count() > steps);
    }

    void spritesStandWhereTheyWereMoved()
    {
        ShownEditor editor;
        const Body &a = editor.add(QStringLiteral("a"));
        Body &b = editor.add(QStringLiteral("b"));
        const Body &c = editor.add(QStringLiteral("c"));
        const auto place = [&editor](const Body &body) {
            return editor.scene.spriteItem(&body)->pos();
        };
        const auto showAgain = [&editor] {
            editor.scene.setProject(nullptr);
            editor.scene.setProject(&editor.project);
        };
        showAgain();
        const QPointF ofA = place(a);
        const QPointF ofB = place(b);
        const QPointF ofC = place(c);
        const QPoint aside = QPoint(0, 300);
        b.moveTo(aside, QStringLiteral("move"));
        QCOMPARE(place(b), QPointF(aside));
        showAgain();
        QCOMPARE(place(b), QPointF(aside));
        QCOMPARE(place(a), ofA);
        QCOMPARE(place(c), ofC);

        // A moved sprite covers nothing that stands by itself.
        b.moveTo(ofC.toPoint() + QPoint(10, 10), QStringLiteral("move"));
        showAgain();
        QCOMPARE(place(b), ofC + QPointF(10, 10));
        QCOMPARE(place(a), ofA);
        const QRectF rectOfC(place(c), QSizeF(64, 64));
        for (const Body *other : {&a, static_cast<const Body *>(&b)})
            QVERIFY(!rectOfC.intersects(QRectF(place(*other), QSizeF(64, 64))));
        editor.project.undoStack().setIndex(0);
        QCOMPARE(place(b), ofB);

        b.position().setValue({1e300, 0});
        QCOMPARE(place(b), ofB);
    }

    void nothingIsDrawnAtRest()
    {
        ShownEditor editor;
        Body &a = editor.add(QStringLiteral("a"));
        editor.bodies.setSelection({&a});
        QVERIFY(QTest::qWaitForWindowExposed(&editor.window));
        editor.scene.spriteItem(&a)->processor().waitForIdle();
        PaintCounter counter(editor.viewport);
        const auto paintsWithin = [&counter](int ms) {
            counter.count = 0;
            QTest::qWait(ms);
            return counter.count;
        };
        const auto restsAfter = [&paintsWithin](int ms) {
            paintsWithin(ms);
            return paintsWithin(300) == 0;
        };

        QVERIFY(restsAfter(150));
        editor.pixels.selectAll({&a});
        QTRY_VERIFY(counter.count > 3);
        editor.pixels.clear({&a});
        QVERIFY(restsAfter(50));
        // A light that turns without being seen.
        editor.scene.setDisplayMode(DisplayMode::Texture);
        editor.scene.setAutoRotateLight(true);
        QVERIFY(restsAfter(50));
    }
};

int main(int argc, char **argv)
{
    return runGraphicsTest<tst_NormalMapEditorScene>(argc, argv);
}

#include "tst_NormalMapEditorScene.moc"
