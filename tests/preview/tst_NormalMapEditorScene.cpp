#include "preview/NormalMapEditorScene.h"

#include "base/Resources.h"
#include "imaging/SelectionMasks.h"
#include "model/ItemSelectionModel.h"
#include "model/NormalMapProcessor.h"
#include "model/PixelSelectionModel.h"
#include "model/Project.h"
#include "model/PropertyAngleImage.h"
#include "model/Sprite.h"
#include "model/properties/PropertyListT.h"
#include "model/properties/PropertyT.h"
#include "preview/EditorGraphicsViewVesperine.h"
#include "preview/GLGraphicsLight.h"
#include "preview/GraphicsCheck.h"
#include "preview/SpriteItem.h"
#include "preview/SpriteLayout.h"
#include "support/Documents.h"
#include "support/FakeTool.h"
#include "tools/PaintToolMove.h"

#include <QApplication>
#include <QGraphicsRectItem>
#include <QLineEdit>
#include <QScrollBar>
#include <QSignalSpy>
#include <QTest>
#include <QVBoxLayout>
#include <QWheelEvent>

namespace {
/// A window with a view, and an edit line for the focus to be elsewhere.
struct Editor
{
    Editor()
    {
        auto *layout = new QVBoxLayout(&window);
        layout->addWidget(&view);
        layout->addWidget(&edit);
        view.setEditorScene(&scene);
        window.resize(700, 560);
        window.show();
        window.activateWindow();
        view.setFocus();
        install();
    }
    ~Editor()
    {
        scene.setProject(nullptr);
        view.setEditorScene(nullptr);
    }

    void install()
    {
        bodies.setProject(&project);
        pixels.setProject(&project);
        scene.setProject(&project);
    }
    Body &add(const QString &name, const QSize &size = {64, 64})
    {
        Body &body = addBody(project, name, folder.writeSprite(name + QLatin1String(".png"), size));
        scene.light().setPos(-300, -200); // in nobody's way
        return body;
    }
    void select(const QList<Body *> &selected) { bodies.setSelection(selected); }
    QPoint at(const QPointF &scenePoint) const { return view.mapFromScene(scenePoint); }
    QPoint on(const Body &body, const QPointF &pixel = {20, 20}) const
    {
        return at(scene.spriteItem(&body)->pos() + pixel);
    }
    QString selectedNames() const
    {
        QStringList names;
        for (const Body *body : bodies.selection())
            names.append(body->name().value());
        return names.join(QLatin1Char(' '));
    }
    void click(const QPoint &point, Qt::KeyboardModifiers modifiers = {})
    {
        QTest::mouseClick(view.viewport(), Qt::LeftButton, modifiers, point);
    }
    void moveTo(const QPoint &point, Qt::MouseButtons buttons = Qt::NoButton)
    {
        QMouseEvent event(QEvent::MouseMove,
                          point,
                          view.viewport()->mapToGlobal(point),
                          Qt::NoButton,
                          buttons,
                          Qt::NoModifier);
        QApplication::sendEvent(view.viewport(), &event);
    }
    void drag(const QPoint &from, const QPoint &to, Qt::KeyboardModifiers modifiers = {})
    {
        QTest::mousePress(view.viewport(), Qt::LeftButton, modifiers, from);
        moveTo((from + to) / 2, Qt::LeftButton);
        moveTo(to, Qt::LeftButton);
        QTest::mouseRelease(view.viewport(), Qt::LeftButton, modifiers, to);
    }

    Folder folder;
    Project project;
    ItemSelectionModel bodies;
    PixelSelectionModel pixels;
    NormalMapEditorScene scene{bodies, pixels};
    QWidget window;
    EditorGraphicsViewVesperine view;
    QLineEdit edit;
};

/// Counts what a widget paints.
class PaintCounter : public QObject
{
public:
    explicit PaintCounter(QWidget &widget) { widget.installEventFilter(this); }
    bool eventFilter(QObject *, QEvent *event) override
    {
        count += event->type() == QEvent::Paint ? 1 : 0;
        return false;
    }
    int count = 0;
};

QString joined(const QStringList &log)
{
    return log.join(QLatin1Char('|'));
}
} // namespace

class tst_NormalMapEditorScene : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase() { initialiseResources(); }

    void newSpritesAreLaidOut_data();
    void newSpritesAreLaidOut();
    void clicksAndBandSelect();
    void dragMovesSelected();
    void placesLiveWithTheirBodies();
    void toolGetsEvents();
    void toolFollowsCurrentBody();
    void toolPaintsThroughSelection();
    void brokenStrokesLeaveNothing();
    void strokesStayWhileTheViewMoves();
    void lightIsDragged();
    void lightTurnsByElapsedTime();
    void pointerShowsWhatItDoes();
    void nothingIsDrawnAtRest();
};

void tst_NormalMapEditorScene::newSpritesAreLaidOut_data()
{
    using Sizes = QVector<QSize>;
    using Rects = QVector<QRect>;
    QTest::addColumn<Sizes>("sizes");
    QTest::addColumn<Rects>("others");
    QTest::addColumn<QRect>("bounds");
    const QSize small(64, 64);
    const QRect first(-32, -32, 64, 64);
    QTest::newRow("none") << Sizes() << Rects() << QRect();
    QTest::newRow("one around the origin") << Sizes{small} << Rects() << first;
    QTest::newRow("four in a square") << Sizes(4, small) << Rects() << QRect(-72, -72, 144, 144);
    QTest::newRow("rather wide") << Sizes(5, small) << Rects() << QRect(-112, -72, 224, 144);
    QTest::newRow("many") << Sizes(400, small) << Rects() << QRect(-792, -792, 1584, 1584);
    QTest::newRow("narrow ones in one row")
        << Sizes(6, QSize(10, 160)) << Rects() << QRect(-70, -80, 140, 160);
    QTest::newRow("mixed") << Sizes{{200, 10}, {40, 90}, {90, 90}, {30, 30}} << Rects()
                           << QRect(-100, -58, 200, 116);
    QTest::newRow("without pixels") << Sizes(2, QSize()) << Rects() << QRect(-9, 0, 18, 1);
    QTest::newRow("right of another") << Sizes{small} << Rects{first} << first.translated(80, 0);
    QTest::newRow("below a row") << Sizes{small} << Rects{first, first.translated(80, 0)}
                                 << first.translated(0, 80);
    QTest::newRow("into a gap") << Sizes{small}
                                << Rects{first, first.translated(80, 0), first.translated(0, 80)}
                                << first.translated(80, 80);
    QTest::newRow("a gap too small")
        << Sizes{{70, 70}} << Rects{first, first.translated(160, 0)} << QRect(-32, 48, 70, 70);
}

void tst_NormalMapEditorScene::newSpritesAreLaidOut()
{
    QFETCH(QVector<QSize>, sizes);
    QFETCH(QVector<QRect>, others);
    QFETCH(QRect, bounds);

    const QVector<QPoint> places = layoutSprites(sizes, others);
    QCOMPARE(places.size(), sizes.size());
    QRect united;
    for (int i = 0; i < places.size(); ++i) {
        const QRect rect(places[i], sizes[i].expandedTo({1, 1}));
        const QRect claimed = rect.marginsAdded({spriteGap, spriteGap, spriteGap, spriteGap});
        for (const QRect &other : std::as_const(others))
            QVERIFY2(!other.intersects(claimed), qPrintable(QString::number(i)));
        others.append(rect);
        united |= rect;
    }
    QCOMPARE(united, bounds);
}

void tst_NormalMapEditorScene::clicksAndBandSelect()
{
    Editor editor;
    QVERIFY(!editor.scene.spritesRect().isValid());
    QVERIFY(editor.scene.contentRect().isValid());
    Body &a = editor.add(QStringLiteral("a"));
    Body &b = editor.add(QStringLiteral("b"));
    Body &c = editor.add(QStringLiteral("c"));
    const auto selected = [&editor] { return editor.selectedNames().toLatin1(); };
    const auto corner = [&editor](const Body &body, double x, double y) {
        return editor.on(body, QPointF(x, y));
    };

    editor.click(editor.on(a));
    QCOMPARE(selected(), QByteArray("a"));
    QCOMPARE(editor.scene.currentBody(), &a);
    editor.click(editor.on(b));
    QCOMPARE(selected(), QByteArray("b"));
    editor.click(editor.on(a), Qt::ShiftModifier);
    QCOMPARE(selected(), QByteArray("a b"));
    QVERIFY(!editor.scene.currentBody());
    editor.click(editor.on(b), Qt::ControlModifier);
    QCOMPARE(selected(), QByteArray("a"));
    editor.click(corner(a, -12, -12));
    QCOMPARE(selected(), QByteArray());
    QCOMPARE(editor.project.undoStack().count(), 1);

    editor.drag(corner(a, -8, -8), corner(b, 5, 20));
    QCOMPARE(selected(), QByteArray("a b"));
    editor.drag(corner(c, -8, 70), corner(c, 20, 50), Qt::ControlModifier);
    QCOMPARE(selected(), QByteArray("a b c"));
    editor.click(editor.on(c));
    QCOMPARE(selected(), QByteArray("c"));

    // The upper sprite counts only where it is opaque. It is added later than the others.
    QCoreApplication::processEvents();
    const QString holed =
        editor.folder.writeSprite(QStringLiteral("d.png"), {64, 64}, Qt::transparent);
    const Body &d = addBody(editor.project, QStringLiteral("d"), holed);
    editor.scene.spriteItem(&d)->setPos(editor.scene.spriteItem(&a)->pos() + QPointF(30, 0));
    editor.click(corner(d, 10, 20));
    QCOMPARE(selected(), QByteArray("a"));
    editor.click(corner(d, 44, 20));
    QCOMPARE(selected(), QByteArray("d"));
}

void tst_NormalMapEditorScene::dragMovesSelected()
{
    Editor editor;
    Body &a = editor.add(QStringLiteral("a"));
    Body &b = editor.add(QStringLiteral("b"));
    const auto place = [&editor](const Body &body) {
        return editor.scene.spriteItem(&body)->pos();
    };
    const QPointF beforeA = place(a);
    const QPointF beforeB = place(b);
    QSignalSpy content(&editor.scene, &NormalMapEditorScene::contentRectChanged);

    editor.drag(editor.on(b), editor.on(b) + QPoint(40, 7));
    QCOMPARE(place(b), beforeB + QPointF(40, 7));
    QCOMPARE(place(a), beforeA);
    QCOMPARE(editor.selectedNames(), QStringLiteral("b"));
    QCOMPARE(content.count(), 1);

    editor.select({&a, &b});
    editor.drag(editor.on(a), editor.on(a) + QPoint(-10, 3));
    QCOMPARE(place(a), beforeA + QPointF(-10, 3));
    QCOMPARE(place(b), beforeB + QPointF(30, 10));
    QCOMPARE(editor.selectedNames(), QStringLiteral("a b"));
}

void tst_NormalMapEditorScene::placesLiveWithTheirBodies()
{
    Editor editor;
    const Body &a = editor.add(QStringLiteral("a"));
    const Body &b = editor.add(QStringLiteral("b"));
    QCOMPARE(editor.scene.spritesRect(), QRectF(-72, -32, 144, 64));
    QCoreApplication::processEvents();
    const QPointF placeOfB = editor.scene.spriteItem(&b)->pos();
    editor.scene.spriteItem(&a)->setPos(500, 300);

    editor.project.bodies().remove(a, QStringLiteral("remove"));
    QVERIFY(!editor.scene.spriteItem(&a));
    editor.add(QStringLiteral("c"));
    QCOMPARE(editor.scene.spriteItem(&b)->pos(), placeOfB);
    editor.project.undoStack().undo();
    QCOMPARE(editor.scene.spriteItem(&a)->pos(), QPointF(500, 300));
}

void tst_NormalMapEditorScene::toolGetsEvents()
{
    Editor editor;
    const Body &a = editor.add(QStringLiteral("a"));
    editor.add(QStringLiteral("b"));
    FakeTool tool;
    editor.scene.setTool(&tool);
    QCOMPARE(tool.takeLog(), QStringList());
    editor.click(editor.on(a));
    QCOMPARE(editor.selectedNames(), QStringLiteral("a"));
    QCOMPARE(joined(tool.takeLog()), QStringLiteral("activate 64x64|texture 64x64|selection 0x0"));

    // Inside, outside and over the other sprite alike.
    editor.drag(editor.on(a, {10, 12}), editor.on(a, {90, -7}));
    QCOMPARE(joined(tool.takeLog()),
             QStringLiteral("press 10,12|move 50,3|move 90,-7|release 90,-7"));
    QCOMPARE(editor.selectedNames(), QStringLiteral("a"));
    editor.moveTo(editor.on(a, {3, 4}));
    QTest::mousePress(editor.view.viewport(), Qt::RightButton, Qt::AltModifier, editor.on(a));
    QCOMPARE(tool.lastEvent.pressure, 1.0);
    QCOMPARE(tool.lastEvent.changedButton, Qt::RightButton);
    QCOMPARE(tool.lastEvent.buttons, Qt::RightButton);
    QCOMPARE(tool.lastEvent.modifiers, Qt::AltModifier);
    QTest::mouseRelease(editor.view.viewport(), Qt::RightButton, {}, editor.on(a));
    QTest::mouseDClick(editor.view.viewport(), Qt::LeftButton, {}, editor.on(a));
    QTest::mouseRelease(editor.view.viewport(), Qt::LeftButton, {}, editor.on(a));
    QCOMPARE(joined(tool.takeLog()),
             QStringLiteral("move 3,4|press 20,20|release 20,20|"
                            "double 20,20|release 20,20"));

    QTest::keyClick(&editor.view, Qt::Key_Escape);
    editor.edit.setFocus();
    QTest::keyPress(&editor.edit, Qt::Key_Shift);
    QTest::keyRelease(&editor.edit, Qt::Key_Shift);
    QTest::keyClick(&editor.edit, Qt::Key_Meta);
    QCOMPARE(joined(tool.takeLog()),
             QStringLiteral("key 1000000|key up 1000000|key 1000020|key up 1000020"));

    // Only looking: neither the tool nor the selection hears of a click.
    editor.scene.setViewOnly(true);
    editor.drag(editor.at(editor.scene.spritesRect().topLeft() - QPointF(9, 9)), editor.on(a));
    QCOMPARE(tool.takeLog(), QStringList());
    QCOMPARE(editor.selectedNames(), QStringLiteral("a"));
    editor.scene.setViewOnly(false);

    // A move tool's clicks select and drag again.
    tool.mode = InteractionMode::MoveSprites;
    Q_EMIT tool.interactionModeChanged(tool.mode);
    editor.click(editor.at(editor.scene.spritesRect().topLeft() - QPointF(9, 9)));
    QCOMPARE(editor.selectedNames(), QString());
    QCOMPARE(joined(tool.takeLog()), QStringLiteral("deactivate"));
}

void tst_NormalMapEditorScene::toolFollowsCurrentBody()
{
    Editor editor;
    Body &a = editor.add(QStringLiteral("a"));
    Body &b = editor.add(QStringLiteral("b"), {40, 30});
    QGraphicsRectItem overlay(0, 0, 5, 5);
    PaintToolMove move;
    FakeTool tool;
    tool.overlay = &overlay;
    editor.scene.setTool(&tool);

    editor.select({&a});
    QCOMPARE(editor.pixels.body(), &a);
    QCOMPARE(overlay.scene(), &editor.scene);
    tool.takeLog();
    editor.pixels.setSelection(&a, FloatImage(64, 64, 1.0F), QStringLiteral("mask"));
    QCOMPARE(joined(tool.takeLog()), QStringLiteral("selection 64x64"));
    QVERIFY(editor.scene.spriteItem(&a)->hasSelection());

    editor.select({&b});
    QCOMPARE(joined(tool.takeLog()),
             QStringLiteral("deactivate|activate 40x30|texture 40x30|selection 0x0"));
    QVERIFY(!editor.scene.spriteItem(&a)->hasSelection());
    QCOMPARE(overlay.pos(), editor.scene.spriteItem(&b)->pos());

    // What changes elsewhere, with the same size and with another one.
    const QString text = QStringLiteral("change");
    b.paintedNormalMap().setAngleImage(AngleImage(40, 30, 7), text);
    QCOMPARE(joined(tool.takeLog()), QStringLiteral("surface 40x30"));
    QVERIFY(tool.surface == AngleImage(40, 30, 7));
    editor.pixels.setSelection(&b, FloatImage(40, 30, 1.0F), QStringLiteral("mask"));
    tool.takeLog();
    b.paintedNormalMap().setAngleImage(AngleImage(20, 30), text);
    QCOMPARE(joined(tool.takeLog()),
             QStringLiteral("deactivate|activate 40x30|texture 40x30|selection 0x0"));
    editor.project.undoStack().undo();
    tool.takeLog();

    editor.scene.setTool(&move);
    QCOMPARE(joined(tool.takeLog()), QStringLiteral("deactivate"));
    QVERIFY(!overlay.scene());
    QCOMPARE(editor.scene.interactionMode(), InteractionMode::MoveSprites);
    editor.scene.setTool(&tool);
    QCOMPARE(editor.scene.interactionMode(), InteractionMode::Tool);
    editor.select({&a, &b});
    QCOMPARE(tool.takeLog().last(), QStringLiteral("deactivate"));
    QVERIFY(!editor.pixels.body());

    // Bodies and tools may go at any time.
    editor.select({&a});
    editor.project.bodies().setEntries({editor.project.bodies().entries().last()});
    QVERIFY(!editor.scene.currentBody());
    editor.scene.setTool(nullptr);
    auto dying = std::make_unique<FakeTool>();
    editor.select({&b});
    editor.scene.setTool(dying.get());
    dying.reset();
    editor.click(editor.on(b));
    editor.scene.setProject(nullptr);
}

void tst_NormalMapEditorScene::toolPaintsThroughSelection()
{
    Editor editor;
    Body &a = editor.add(QStringLiteral("a"), {8, 8});
    FakeTool tool;
    editor.scene.setTool(&tool);
    editor.select({&a});
    FloatImage mask(8, 8);
    mask.row(2)[3] = 1.0F;
    Q_EMIT tool.selectionChanged(mask, QStringLiteral("pixels"));
    QCOMPARE(editor.project.undoStack().undoText(), QStringLiteral("pixels"));

    const NormalMapProcessor &processor = editor.scene.spriteItem(&a)->processor();
    Q_EMIT tool.temporaryNormalMapChanged(AngleImage(2, 1, 256), QRect(3, 2, 2, 1));
    editor.scene.spriteItem(&a)->processor().waitForIdle();
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
    QCOMPARE(joined(tool.takeLog()), QStringLiteral("surface 8x8"));

    QSignalSpy pointed(&editor.scene, &NormalMapEditorScene::pointedPixelChanged);
    editor.scene.spriteItem(&a)->processor().waitForIdle();
    editor.moveTo(editor.on(a, {3, 2}));
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

void tst_NormalMapEditorScene::brokenStrokesLeaveNothing()
{
    Editor editor;
    Body &a = editor.add(QStringLiteral("a"), {8, 8});
    Body &b = editor.add(QStringLiteral("b"), {8, 8});
    FakeTool tool;
    FakeTool other;
    NormalMapProcessor &processor = editor.scene.spriteItem(&a)->processor();
    editor.scene.setTool(&tool);
    editor.select({&a});
    const auto paint = [&processor](FakeTool &painting) {
        Q_EMIT painting.temporaryNormalMapChanged(AngleImage(2, 1, 256), QRect(3, 2, 2, 1));
        processor.waitForIdle();
        return !(processor.angleImage() == AngleImage(8, 8));
    };

    QVERIFY(paint(tool));
    editor.scene.setTool(&other);
    processor.waitForIdle();
    QVERIFY(processor.angleImage() == AngleImage(8, 8));
    Q_EMIT other.commitNormalMap(QStringLiteral("of nothing"));
    QVERIFY(a.paintedNormalMap().angleImage().isNull());

    QVERIFY(paint(other));
    editor.select({&b});
    processor.waitForIdle();
    QVERIFY(processor.angleImage() == AngleImage(8, 8));
}

void tst_NormalMapEditorScene::strokesStayWhileTheViewMoves()
{
    Editor editor;
    Body &a = editor.add(QStringLiteral("a"), {200, 200});
    FakeTool tool;
    editor.scene.setTool(&tool);
    editor.select({&a});
    QVERIFY(QTest::qWaitForWindowExposed(&editor.window));
    editor.view.setZoom(2.0);
    QTest::mousePress(editor.view.viewport(), Qt::LeftButton, {}, editor.on(a, {50, 50}));
    const QPoint pointer = editor.on(a, {60, 60});
    editor.moveTo(pointer, Qt::LeftButton);
    tool.takeLog();

    QWheelEvent wheel(pointer,
                      editor.view.viewport()->mapToGlobal(pointer),
                      {},
                      {0, 240},
                      Qt::LeftButton,
                      Qt::AltModifier,
                      Qt::NoScrollPhase,
                      false);
    QApplication::sendEvent(editor.view.viewport(), &wheel);
    QVERIFY(editor.view.zoom() > 2.5);
    QCOMPARE(joined(tool.takeLog()), QStringLiteral("move 60,60"));

    // Without a stroke the middle button pans, and the pixel under the pointer stays the same.
    QTest::mouseRelease(editor.view.viewport(), Qt::LeftButton, {}, pointer);
    const QSignalSpy pointed(&editor.scene, &NormalMapEditorScene::pointedPixelChanged);
    QTest::mousePress(editor.view.viewport(), Qt::MiddleButton, {}, pointer);
    editor.moveTo(pointer + QPoint(30, 9), Qt::MiddleButton);
    QTest::mouseRelease(editor.view.viewport(), Qt::MiddleButton, {}, pointer);
    QCOMPARE(editor.on(a, {60, 60}), pointer + QPoint(30, 9));
    QVERIFY(pointed.isEmpty());
}

void tst_NormalMapEditorScene::lightIsDragged()
{
    Editor editor;
    GLGraphicsLight &light = editor.scene.light();
    QVERIFY(editor.scene.contentRect().contains(light.pos()));
    const QString path = editor.folder.writeSprite(QStringLiteral("a.png"), {400, 300});
    const Body &a = addBody(editor.project, QStringLiteral("a"), path);
    const QRectF sprites = editor.scene.spritesRect();
    QVERIFY(QRectF(sprites.topLeft(), sprites.center()).contains(light.pos()));
    FakeTool tool;
    editor.scene.setTool(&tool);
    editor.select({editor.project.bodies().all().first()});
    tool.takeLog();

    const QPointF before = light.pos();
    editor.drag(editor.at(before), editor.at(before) + QPoint(50, 20));
    QCOMPARE(light.pos(), before + QPointF(50, 20));
    QCOMPARE(tool.takeLog(), QStringList());
    editor.moveTo(editor.on(a, {200, 200}));
    editor.scene.moveLightToPointer();
    QCOMPARE(editor.at(light.pos()), editor.on(a, {200, 200}));

    editor.scene.setDisplayMode(DisplayMode::NormalMap);
    QVERIFY(!light.isVisible());
    tool.takeLog();
    editor.click(editor.at(light.pos()));
    QCOMPARE(tool.takeLog().size(), 2);
    editor.scene.setDisplayMode(DisplayMode::LitSurface);
    QVERIFY(light.isVisible());

    editor.project.lightHeight().setValue(77, QStringLiteral("height"));
    editor.project.lightColor().setValue(Qt::red, QStringLiteral("color"));
    QCOMPARE(light.position().z(), 77.0F);
    QCOMPARE(editor.scene.sceneLight().color, QColor(Qt::red));
}

void tst_NormalMapEditorScene::lightTurnsByElapsedTime()
{
    Editor editor;
    GLGraphicsLight &light = editor.scene.light();
    const QPointF before = light.pos();
    editor.scene.setAutoRotateLight(true);
    QTest::qWait(60);
    QCOMPARE(light.pos(), before);
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
    const double turned = std::fmod(angle - QLineF(centre, light.pos()).angle() + 360.0, 360.0);
    QVERIFY2(std::abs(turned - elapsed * 0.09) < 2.0, qPrintable(QString::number(turned)));
    QVERIFY(turned > 400 * 0.09 - 0.5);
    QVERIFY(std::abs(QLineF(centre, light.pos()).length() - radius) < 1e-6);
    editor.scene.setAutoRotateLight(false);
    QVERIFY(!editor.scene.isAnimating());
}

void tst_NormalMapEditorScene::pointerShowsWhatItDoes()
{
    Editor editor;
    const Body &a = editor.add(QStringLiteral("a"), {200, 200});
    const auto shape = [&editor] { return editor.view.viewport()->cursor().shape(); };
    editor.moveTo(editor.on(a, {150, 150}));
    QCOMPARE(shape(), Qt::SizeAllCursor);
    editor.moveTo(editor.at(editor.scene.spritesRect().bottomRight() + QPointF(9, 9)));
    QCOMPARE(shape(), Qt::ArrowCursor);
    editor.moveTo(editor.at(editor.scene.light().pos()));
    QCOMPARE(shape(), Qt::OpenHandCursor);

    FakeTool tool;
    editor.scene.setTool(&tool);
    editor.select({editor.project.bodies().all().first()});
    const auto outline = [&editor]() -> QGraphicsItem * {
        for (QGraphicsItem *item : editor.scene.items()) {
            if (item->toGraphicsObject() && item->zValue() > editor.scene.light().zValue())
                return item;
        }
        return nullptr;
    };
    QVERIFY(outline() && !outline()->isVisible());
    editor.moveTo(editor.on(a, {150, 150}));
    QVERIFY(outline()->isVisible());
    QCOMPARE(editor.at(outline()->pos()), editor.on(a, {150, 150}));
    QCOMPARE(shape(), Qt::BitmapCursor);
    editor.scene.setViewOnly(true);
    QVERIFY(!outline()->isVisible());
    editor.scene.setViewOnly(false);
    Q_EMIT tool.cursorChanged(ScalableToolCursor(QCursor(Qt::CrossCursor)));
    QVERIFY(!outline());
    QCOMPARE(shape(), Qt::CrossCursor);
}

void tst_NormalMapEditorScene::nothingIsDrawnAtRest()
{
    Editor editor;
    Body &a = editor.add(QStringLiteral("a"));
    editor.select({&a});
    QVERIFY(QTest::qWaitForWindowExposed(&editor.window));
    editor.scene.spriteItem(&a)->processor().waitForIdle();
    QTest::qWait(150);
    PaintCounter counter(*editor.view.viewport());
    const auto paintsWithin = [&counter](int ms) {
        counter.count = 0;
        QTest::qWait(ms);
        return counter.count;
    };

    QCOMPARE(paintsWithin(300), 0);
    editor.pixels.selectAll({&a});
    QTRY_VERIFY(counter.count > 3);
    editor.pixels.clear({&a});
    QTest::qWait(50);
    QCOMPARE(paintsWithin(300), 0);
    // A light that turns without being seen, and ants in a window that is not.
    editor.scene.setDisplayMode(DisplayMode::Texture);
    editor.scene.setAutoRotateLight(true);
    QTest::qWait(50);
    QCOMPARE(paintsWithin(200), 0);
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
    QTest::qWait(50);
    // Each change is drawn, also that of an item of the toolkit's.
    editor.scene.addRect(0, 0, 5, 5);
    QVERIFY(paintsWithin(50) > 0);
    editor.view.setZoom(3.0);
    QVERIFY(paintsWithin(50) > 0);
    editor.view.verticalScrollBar()->setValue(editor.view.verticalScrollBar()->value() + 9);
    QVERIFY(paintsWithin(50) > 0);
    QCOMPARE(paintsWithin(300), 0);
}

int main(int argc, char *argv[])
{
    prepareGraphics();
    QApplication application(argc, argv);
    tst_NormalMapEditorScene test;
    return QTest::qExec(&test, argc, argv);
}

#include "tst_NormalMapEditorScene.moc"
