#include "preview/ZoomWidget.h"

#include "framework/GAction.h"
#include "preview/EditorGraphicsViewVesperine.h"
#include "preview/EditorScene.h"

#include <QApplication>
#include <QLineEdit>
#include <QListWidget>
#include <QSignalSpy>
#include <QTest>
#include <QVBoxLayout>
#include <QWheelEvent>

#include <cmath>
#include <functional>

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
    void turnWheel(const QPointF &at, const QPoint &angle, Qt::KeyboardModifiers modifiers)
    {
        QWheelEvent event(at,
                          view.viewport()->mapToGlobal(at.toPoint()),
                          {},
                          angle,
                          Qt::NoButton,
                          modifiers,
                          Qt::NoScrollPhase,
                          false);
        QApplication::sendEvent(view.viewport(), &event);
    }
    void drag(Qt::MouseButton button, const QPoint &way)
    {
        const QPoint from(100, 80);
        QTest::mousePress(view.viewport(), button, {}, from);
        QMouseEvent move(QEvent::MouseMove, from + way, Qt::NoButton, button, Qt::NoModifier);
        QApplication::sendEvent(view.viewport(), &move);
        QTest::mouseRelease(view.viewport(), button, {}, from + way);
    }

    PlainScene scene;
    QWidget window;
    EditorGraphicsViewVesperine view;
    ZoomWidget widget;
    QListWidget list;
};
} // namespace

class tst_ZoomWidget : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void stepsSnapToLevels_data();
    void stepsSnapToLevels();
    void typedTextIsTaken_data();
    void typedTextIsTaken();
    void zoomKeepsThePointUnderThePointer();
    void resizeKeepsTheCentre();
    void fitWaitsForTheWindow();
    void viewIsPanned();
    void spacePansWhereverTheFocusIs();
};

void tst_ZoomWidget::stepsSnapToLevels_data()
{
    QTest::addColumn<double>("zoom");
    QTest::addColumn<double>("in");
    QTest::addColumn<double>("out");
    // 0 for no step.
    QTest::newRow("far below") << 0.05 << 0.1 << 0.0;
    QTest::newRow("lowest") << 0.1 << 0.2 << 0.0;
    QTest::newRow("just above the lowest") << 0.11 << 0.2 << 0.1;
    QTest::newRow("a third") << 0.33 << 0.5 << 0.25;
    QTest::newRow("shown as a third") << 0.3349 << 0.5 << 0.25;
    QTest::newRow("shown as more") << 0.336 << 0.5 << 0.33;
    QTest::newRow("one") << 1.0 << 1.5 << 0.75;
    QTest::newRow("between") << 2.7 << 3.0 << 2.0;
    QTest::newRow("highest") << 10.0 << 0.0 << 9.0;
    QTest::newRow("above") << 12.0 << 0.0 << 10.0;
}

void tst_ZoomWidget::stepsSnapToLevels()
{
    QFETCH(double, zoom);
    QFETCH(double, in);
    QFETCH(double, out);
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

void tst_ZoomWidget::typedTextIsTaken_data()
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
    QTest::newRow("left empty") << QString() << Qt::Key_Tab << 1.234;
    QTest::newRow("no number") << QStringLiteral("x") << Qt::Key_Tab << 1.234;
}

void tst_ZoomWidget::typedTextIsTaken()
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

void tst_ZoomWidget::zoomKeepsThePointUnderThePointer()
{
    ZoomWindow window;
    QVERIFY(QTest::qWaitForWindowActive(&window.window));
    const QPointF pointer(431, 97);
    const QPointF before = window.sceneAt(pointer);
    // Alt turns the wheel's axis on some platforms.
    for (const QPoint angle : {QPoint(120, 0), QPoint(0, 360), QPoint(-2400, 0), QPoint(3000, 0)}) {
        for (int part = 0; part < 3; ++part)
            window.turnWheel(pointer, angle / 3, Qt::AltModifier);
        const QPointF off = window.view.viewportTransform().map(before) - pointer;
        QVERIFY2(off.manhattanLength() <= 1.0, qPrintable(QString::number(window.view.zoom())));
    }
    QVERIFY(std::abs(window.view.zoom() - std::exp2(9.0 / 4.0)) < 1e-9);
    window.turnWheel(pointer, {0, 12000}, Qt::AltModifier);
    QCOMPARE(window.view.zoom(), 64.0);
    window.turnWheel(pointer, {0, -24000}, Qt::AltModifier);
    QCOMPARE(window.view.zoom(), 0.05);
    window.turnWheel(pointer, {0, 120}, Qt::ControlModifier);
    QCOMPARE(window.view.zoom(), 0.05);
}

void tst_ZoomWidget::resizeKeepsTheCentre()
{
    ZoomWindow window;
    QVERIFY(QTest::qWaitForWindowExposed(&window.window));
    window.view.setZoom(8.0);
    window.turnWheel({50, 50}, {170, 90}, {});
    const auto centre = [&window] {
        return window.sceneAt(QRectF(window.view.viewport()->rect()).center());
    };
    const QPointF before = centre();
    for (const QSize size : {QSize(604, 501), QSize(901, 402), QSize(640, 481), QSize(605, 500)}) {
        window.window.resize(size);
        QTest::qWait(20);
        QVERIFY((centre() - before).manhattanLength() <= 0.25);
    }
}

void tst_ZoomWidget::fitWaitsForTheWindow()
{
    ZoomWindow window;
    window.window.hide();
    window.view.zoomToFit({100, 50, 10, 40});
    window.window.resize(700, 640);
    window.window.show();
    QVERIFY(QTest::qWaitForWindowExposed(&window.window));
    const QSize size = window.view.viewport()->size();
    QVERIFY(std::abs(window.view.zoom() - size.height() * 0.9 / 40) < 1e-9);
    const QPointF off = window.view.viewportTransform().map(QPointF(105, 70)) -
                        QPointF(size.width() / 2.0, size.height() / 2.0);
    QVERIFY(off.manhattanLength() <= 1.0);
    window.view.zoomToFit({0, 0, 1, 1});
    QCOMPARE(window.view.zoom(), 16.0);
}

void tst_ZoomWidget::viewIsPanned()
{
    ZoomWindow window;
    QVERIFY(QTest::qWaitForWindowExposed(&window.window));
    const auto wayOf = [&window](const std::function<void()> &action) {
        const QPointF before = window.view.viewportTransform().map(QPointF());
        action();
        return (window.view.viewportTransform().map(QPointF()) - before).toPoint();
    };
    QCOMPARE(wayOf([&] { window.turnWheel({9, 9}, {0, 120}, {}); }), QPoint(0, 60));
    QCOMPARE(wayOf([&] {
                 window.turnWheel({9, 9}, {0, -120}, Qt::ShiftModifier);
             }),
             QPoint(-60, 0));
    QCOMPARE(wayOf([&] { window.drag(Qt::MiddleButton, {30, -12}); }), QPoint(30, -12));
    QCOMPARE(wayOf([&] { window.drag(Qt::LeftButton, {30, -12}); }), QPoint(0, 0));
    // Until all of the content has just left.
    window.drag(Qt::MiddleButton, {5000, 0});
    QVERIFY(window.sceneAt({double(window.view.viewport()->width()), 0}).x() <= -199.0);
}

void tst_ZoomWidget::spacePansWhereverTheFocusIs()
{
    ZoomWindow window;
    QVERIFY(QTest::qWaitForWindowActive(&window.window));
    QCursor::setPos(window.view.viewport()->mapToGlobal({100, 80}));
    QTRY_VERIFY(window.view.viewport()->underMouse());
    window.list.setFocus();
    window.list.setCurrentRow(1);
    window.list.clearSelection();
    const auto shape = [&window] { return window.view.viewport()->cursor().shape(); };

    QTest::keyPress(&window.list, Qt::Key_Space);
    QCOMPARE(shape(), Qt::OpenHandCursor);
    QVERIFY(window.scene.viewOnly);
    const QPointF before = window.view.viewportTransform().map(QPointF());
    window.drag(Qt::LeftButton, {30, -12});
    QCOMPARE(window.view.viewportTransform().map(QPointF()) - before, QPointF(30, -12));
    QTest::keyRelease(&window.list, Qt::Key_Space);
    QVERIFY(!window.scene.viewOnly);
    QCOMPARE(shape(), Qt::ArrowCursor);
    QVERIFY(window.list.selectedItems().isEmpty());

    window.edit().setFocus();
    QTest::keyPress(&window.edit(), Qt::Key_Space);
    QVERIFY(!window.scene.viewOnly);
    QTest::keyRelease(&window.edit(), Qt::Key_Space);

    QCursor::setPos(window.list.mapToGlobal({20, 20}));
    QTRY_VERIFY(!window.view.viewport()->underMouse());
    window.list.setFocus();
    QTest::keyClick(&window.list, Qt::Key_Space);
    QCOMPARE(window.list.selectedItems().size(), 1);
}

QTEST_MAIN(tst_ZoomWidget)
#include "tst_ZoomWidget.moc"
