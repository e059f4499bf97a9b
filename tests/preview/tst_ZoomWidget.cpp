#include "preview/ZoomWidget.h"

#include "framework/GAction.h"
#include "preview/EditorGraphicsViewVesperine.h"
#include "preview/EditorScene.h"
#include "support/Gestures.h"

#include <QApplication>
#include <QLineEdit>
#include <QListWidget>
#include <QSignalSpy>
#include <QTest>
#include <QVBoxLayout>

#include <cmath>

namespace {
/// Remembers whether it may only be looked at.
class PlainScene : public EditorScene
{
public:
    void setViewOnly(bool isViewOnly) override { viewOnly = isViewOnly; }
    bool viewOnly = false;
};

/// A view above a zoom widget and a list, which can have the focus.
struct ZoomWindow
{
    ZoomWindow()
    {
        auto *layout = new QVBoxLayout(&window);
        layout->addWidget(&view);
        layout->addWidget(&widget);
        layout->addWidget(&list);
        list.addItems({QStringLiteral("one"), QStringLiteral("two")});
        scene.setSceneRect(-200, -100, 400, 200);
        view.setEditorScene(&scene);
        for (GAction *action : widget.zoomActions())
            window.addAction(action);
        QObject::connect(&widget, &ZoomWidget::zoomRequested, &view, &EditorGraphicsView::setZoom);
        QObject::connect(&view, &EditorGraphicsView::zoomChanged, &widget, &ZoomWidget::setZoom);
        window.resize(603, 500);
        window.show();
        window.activateWindow();
    }
    ~ZoomWindow() { view.setEditorScene(nullptr); }

    QLineEdit &edit() { return *widget.findChild<QLineEdit *>(); }
    QPointF sceneAt(const QPointF &point) const
    {
        return view.viewportTransform().inverted().map(point);
    }

    PlainScene scene;
    QWidget window;
    EditorGraphicsViewVesperine view;
    QWidget &viewport = *view.viewport();
    ZoomWidget widget;
    QListWidget list;
};
} // namespace

class tst_ZoomWidget : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void stepsSnapToLevels()
    {
        struct Steps
        {
            double zoom;
            double in; ///< 0 for no step
            double out;
        };
        const QVector<Steps> steps = {{0.05, 0.1, 0.0},
                                      {0.1, 0.2, 0.0},
                                      {0.11, 0.2, 0.1},
                                      {0.3349, 0.5, 0.25}, // shown as 33 %
                                      {0.336, 0.5, 0.33},
                                      {1.0, 1.5, 0.75},
                                      {2.7, 3.0, 2.0},
                                      {10.0, 0.0, 9.0},
                                      {12.0, 0.0, 10.0}};
        for (const auto &[zoom, in, out] : steps) {
            ZoomWidget widget;
            widget.setZoom(zoom);
            QSignalSpy requested(&widget, &ZoomWidget::zoomRequested);
            const auto stepOf = [&](int action) {
                requested.clear();
                widget.zoomActions().at(action)->trigger();
                return requested.isEmpty() ? 0.0 : requested.first().first().toDouble();
            };
            QCOMPARE(stepOf(0), in);
            QCOMPARE(stepOf(1), out);
            QCOMPARE(stepOf(2), 1.0);
        }
    }

    void typedTextIsTaken_data()
    {
        QTest::addColumn<QString>("text");
        QTest::addColumn<Qt::Key>("key");
        QTest::addColumn<double>("zoom");
        QTest::newRow("percentage") << QStringLiteral("250%") << Qt::Key_Return << 2.5;
        QTest::newRow("bare number") << QStringLiteral("40") << Qt::Key_Enter << 0.4;
        QTest::newRow("too much") << QStringLiteral("99999999999%") << Qt::Key_Return << 64.0;
        QTest::newRow("too little") << QStringLiteral("0%") << Qt::Key_Return << 0.05;
        QTest::newRow("given up") << QStringLiteral("250%") << Qt::Key_Escape << 1.234;
        QTest::newRow("left") << QStringLiteral("250%") << Qt::Key_Tab << 2.5;
        QTest::newRow("left with no number") << QStringLiteral("x") << Qt::Key_Tab << 1.234;
    }
    void typedTextIsTaken()
    {
        QFETCH(QString, text);
        QFETCH(Qt::Key, key);
        QFETCH(double, zoom);
        ZoomWindow window;
        QVERIFY(QTest::qWaitForWindowActive(&window.window));
        window.view.setZoom(1.234);
        QCOMPARE(window.edit().text(), QStringLiteral("123%"));

        window.edit().setFocus();
        window.edit().selectAll();
        QTest::keyClick(&window.edit(), Qt::Key_Delete);
        QTest::keyClicks(&window.edit(), text);
        QTest::keyClick(&window.edit(), key);
        QVERIFY(!window.edit().hasFocus());
        QCOMPARE(window.view.zoom(), zoom);
        QCOMPARE(window.widget.zoom(), zoom);
        QCOMPARE(window.scene.displayScaleFactor(), float(zoom));
        QCOMPARE(window.edit().text(), QStringLiteral("%1%").arg(qRound(zoom * 100)));
    }

    void zoomKeepsThePointUnderThePointer()
    {
        ZoomWindow window;
        QVERIFY(QTest::qWaitForWindowActive(&window.window));
        const QPoint pointer(431, 97);
        const QPointF before = window.sceneAt(pointer);
        const auto turn = [&](const QPoint &angle, Qt::KeyboardModifiers modifiers) {
            turnWheel(window.viewport, pointer, angle, modifiers);
            return window.view.zoom();
        };
        // Alt turns the wheel's axis on some platforms.
        for (const QPoint angle :
             {QPoint(120, 0), QPoint(0, 360), QPoint(-2400, 0), QPoint(3000, 0)}) {
            for (int part = 0; part < 3; ++part)
                turn(angle / 3, Qt::AltModifier);
            const QPointF off = window.view.viewportTransform().map(before) - pointer;
            QVERIFY2(off.manhattanLength() <= 1.0, qPrintable(QString::number(window.view.zoom())));
        }
        QVERIFY(std::abs(window.view.zoom() - std::exp2(9.0 / 4.0)) < 1e-9);
        QCOMPARE(turn({0, 12000}, Qt::AltModifier), 64.0);
        QCOMPARE(turn({0, -24000}, Qt::AltModifier), 0.05);
        QCOMPARE(turn({0, 120}, Qt::ControlModifier), 0.05);
    }

    void resizeKeepsTheCentre()
    {
        ZoomWindow window;
        QVERIFY(QTest::qWaitForWindowExposed(&window.window));
        window.view.setZoom(8.0);
        turnWheel(window.viewport, {50, 50}, {170, 90});
        const auto centre = [&] { return window.sceneAt(QRectF(window.viewport.rect()).center()); };
        const QPointF before = centre();
        for (const QSize size : {QSize(604, 501), QSize(901, 402), QSize(640, 481)}) {
            window.window.resize(size);
            QTest::qWait(20);
            QVERIFY((centre() - before).manhattanLength() <= 0.25);
        }
    }

    void fitWaitsForTheWindow()
    {
        ZoomWindow window;
        window.window.hide();
        window.view.zoomToFit({100, 50, 10, 40});
        window.window.resize(700, 640);
        window.window.show();
        QVERIFY(QTest::qWaitForWindowExposed(&window.window));
        const QRectF area = window.viewport.rect();
        QVERIFY(std::abs(window.view.zoom() - area.height() * 0.9 / 40) < 1e-9);
        const QPointF off = window.view.viewportTransform().map(QPointF(105, 70)) - area.center();
        QVERIFY(off.manhattanLength() <= 1.0);
        window.view.zoomToFit({0, 0, 1, 1});
        QCOMPARE(window.view.zoom(), 16.0);
    }

    void viewIsPanned()
    {
        ZoomWindow window;
        QVERIFY(QTest::qWaitForWindowExposed(&window.window));
        const auto origin = [&window] { return window.view.viewportTransform().map(QPointF()); };
        const QPointF before = origin();
        turnWheel(window.viewport, 1);
        QCOMPARE(origin() - before, QPointF(0, 60));
        turnWheel(window.viewport, {9, 9}, {0, -120}, Qt::ShiftModifier);
        QCOMPARE(origin() - before, QPointF(-60, 60));
        drag(window.viewport, {100, 80}, {130, 68}, Qt::MiddleButton);
        QCOMPARE(origin() - before, QPointF(-30, 48));
        drag(window.viewport, {100, 80}, {130, 68});
        QCOMPARE(origin() - before, QPointF(-30, 48));
        // Until all of the content has just left.
        drag(window.viewport, {100, 80}, {5100, 80}, Qt::MiddleButton);
        QVERIFY(window.sceneAt({double(window.viewport.width()), 0}).x() <= -199.0);
    }

    void spacePansWhereverTheFocusIs()
    {
        ZoomWindow window;
        QVERIFY(QTest::qWaitForWindowActive(&window.window));
        QCursor::setPos(window.viewport.mapToGlobal({100, 80}));
        QTRY_VERIFY(window.viewport.underMouse());
        window.list.setFocus();
        window.list.setCurrentRow(1);
        window.list.clearSelection();

        QTest::keyPress(&window.list, Qt::Key_Space);
        QCOMPARE(window.viewport.cursor().shape(), Qt::OpenHandCursor);
        QVERIFY(window.scene.viewOnly);
        const QPointF before = window.view.viewportTransform().map(QPointF());
        drag(window.viewport, {100, 80}, {130, 68});
        QCOMPARE(window.view.viewportTransform().map(QPointF()) - before, QPointF(30, -12));
        QTest::keyRelease(&window.list, Qt::Key_Space);
        QVERIFY(!window.scene.viewOnly);
        QCOMPARE(window.viewport.cursor().shape(), Qt::ArrowCursor);
        QVERIFY(window.list.selectedItems().isEmpty());

        window.edit().setFocus();
        QTest::keyPress(&window.edit(), Qt::Key_Space);
        QVERIFY(!window.scene.viewOnly);
        QTest::keyRelease(&window.edit(), Qt::Key_Space);

        QCursor::setPos(window.list.mapToGlobal({20, 20}));
        QTRY_VERIFY(!window.viewport.underMouse());
        window.list.setFocus();
        QTest::keyClick(&window.list, Qt::Key_Space);
        QCOMPARE(window.list.selectedItems().size(), 1);
    }
};

QTEST_MAIN(tst_ZoomWidget)
#include "tst_ZoomWidget.moc"
