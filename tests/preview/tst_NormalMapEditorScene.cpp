#include "preview/NormalMapEditorScene.h"

#include "base/Resources.h"
#include "model/NormalMapProcessor.h"
#include "model/properties/PropertyListT.h"
#include "model/properties/PropertyT.h"
#include "preview/GLGraphicsLight.h"
#include "preview/GraphicsCheck.h"
#include "preview/SpriteItem.h"
#include "preview/SpriteLayout.h"
#include "support/FakeTool.h"
#include "support/Gestures.h"
#include "support/PaintCounter.h"
#include "support/ShownEditor.h"

#include <QApplication>
#include <QScrollBar>
#include <QSignalSpy>
#include <QTest>

#include <cmath>

class tst_NormalMapEditorScene : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase() { initialiseResources(); }

    void newSpritesAreLaidOut()
    {
        struct Case
        {
            const char *name;
            QVector<QSize> sizes;
            QVector<QRect> others;
            QRect bounds;
        };
        const QSize small(64, 64);
        const QRect first(-32, -32, 64, 64);
        const QRect second = first.translated(80, 0);
        const QRect below = first.translated(0, 80);
        const QVector<Case> cases = {
            {"none", {}, {}, {}},
            {"rather wide", QVector(5, small), {}, {-112, -72, 224, 144}},
            {"many", QVector(400, small), {}, {-792, -792, 1584, 1584}},
            {"narrow ones in one row", QVector(6, QSize(10, 160)), {}, {-70, -80, 140, 160}},
            {"mixed", {{200, 10}, {40, 90}, {90, 90}, {30, 30}}, {}, {-100, -58, 200, 116}},
            {"without pixels", QVector(2, QSize()), {}, {-9, 0, 18, 1}},
            {"right of another", {small}, {first}, second},
            {"below a row", {small}, {first, second}, below},
            {"into a gap", {small}, {first, second, below}, first.translated(80, 80)},
            {"a gap too small", {{70, 70}}, {first, first.translated(160, 0)}, {-32, 48, 70, 70}},
        };
        for (auto [name, sizes, others, bounds] : cases) {
            const QVector<QPoint> places = layoutSprites(sizes, others);
            QVERIFY2(places.size() == sizes.size(), name);
            QRect united;
            for (int i = 0; i < places.size(); ++i) {
                const QRect rect(places[i], sizes[i].expandedTo({1, 1}));
                const QRect claimed =
                    rect.marginsAdded({spriteGap, spriteGap, spriteGap, spriteGap});
                for (const QRect &other : std::as_const(others))
                    QVERIFY2(!other.intersects(claimed), name);
                others.append(rect);
                united |= rect;
            }
            QVERIFY2(united == bounds, name);
        }
    }

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

    void lightIsDragged()
    {
        ShownEditor editor;
        GLGraphicsLight &light = editor.scene.light();
        QVERIFY(editor.scene.contentRect().contains(light.pos()));
        const QString path = editor.folder.writeSprite(QStringLiteral("a.png"), {400, 300});
        Body &a = addBody(editor.project, QStringLiteral("a"), path);
        const QRectF sprites = editor.scene.spritesRect();
        QVERIFY(QRectF(sprites.topLeft(), sprites.center()).contains(light.pos()));
        FakeTool tool;
        editor.scene.setTool(&tool);
        editor.bodies.setSelection({&a});
        tool.takeLog();

        const QPointF before = light.pos();
        drag(editor.viewport, editor.at(before), editor.at(before) + QPoint(50, 20));
        QCOMPARE(light.pos(), before + QPointF(50, 20));
        QCOMPARE(tool.takeLog(), QByteArray());
        dragTo(editor.viewport, editor.on(a, {200, 200}), Qt::NoButton);
        editor.scene.moveLightToPointer();
        QCOMPARE(editor.at(light.pos()), editor.on(a, {200, 200}));

        editor.scene.setDisplayMode(DisplayMode::NormalMap);
        tool.takeLog();
        editor.click(editor.at(light.pos()));
        QCOMPARE(tool.takeLog(), QByteArray("press 200,200|release 200,200"));

        editor.project.lightColor().setValue(Qt::red, QStringLiteral("color"));
        QCOMPARE(editor.scene.sceneLight().color, QColor(Qt::red));
    }

    void lightTurnsByElapsedTime()
    {
        ShownEditor editor;
        GLGraphicsLight &light = editor.scene.light();
        editor.scene.setAutoRotateLight(true);
        QVERIFY(!editor.scene.isAnimating());
        editor.add(QStringLiteral("a"));
        QVERIFY(editor.scene.isAnimating());
        const QPointF centre = editor.scene.spritesRect().center();
        const double radius = QLineF(centre, light.pos()).length();
        QSignalSpy moved(&light, &GLGraphicsLight::moved);
        QVERIFY(moved.wait());
        QElapsedTimer timer;
        timer.start();
        const double angle = QLineF(centre, light.pos()).angle();
        QTest::qSleep(400);
        QVERIFY(moved.wait());
        const double elapsed = double(timer.nsecsElapsed()) / 1e6;
        // The line's angle counts against the clock, as seen on the screen.
        const QLineF line(centre, light.pos());
        const double turned = std::fmod(angle - line.angle() + 360.0, 360.0);
        QVERIFY2(std::abs(turned - elapsed * 0.09) < 2.0, qPrintable(QString::number(turned)));
        QVERIFY(turned > 400 * 0.09 - 0.5);
        QVERIFY(std::abs(line.length() - radius) < 1e-6);
        editor.scene.setAutoRotateLight(false);
        QVERIFY(!editor.scene.isAnimating());
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
        // A light that turns without being seen, and ants in a window that is not.
        editor.scene.setDisplayMode(DisplayMode::Texture);
        editor.scene.setAutoRotateLight(true);
        QVERIFY(restsAfter(50));
        editor.scene.setAutoRotateLight(false);
        editor.pixels.selectAll({&a});
        editor.window.hide();
        QTest::qWait(50);
        const QSignalSpy changes(&editor.scene, &QGraphicsScene::changed);
        QTest::qWait(300);
        QVERIFY(changes.size() < 5);
        editor.window.show();
        counter.count = 0;
        QTRY_VERIFY(counter.count > 3);
        editor.pixels.clear({&a});
        QVERIFY(restsAfter(50));
        // Each change is drawn, also that of an item of the toolkit's.
        editor.scene.addRect(0, 0, 5, 5);
        QVERIFY(paintsWithin(50) > 0);
        editor.view.setZoom(3.0);
        QVERIFY(paintsWithin(50) > 0);
        editor.view.verticalScrollBar()->setValue(editor.view.verticalScrollBar()->value() + 9);
        QVERIFY(paintsWithin(50) > 0);
        QVERIFY(restsAfter(0));
    }
};

int main(int argc, char *argv[])
{
    prepareGraphics();
    const QApplication application(argc, argv);
    tst_NormalMapEditorScene test;
    return QTest::qExec(&test, argc, argv);
}

#include "tst_NormalMapEditorScene.moc"
