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
