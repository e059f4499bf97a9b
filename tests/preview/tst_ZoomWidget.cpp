#include "preview/ZoomWidget.h"

#include "preview/EditorGraphicsViewVesperine.h"
#include "preview/EditorScene.h"
#include "support/Gestures.h"

#include <QApplication>
#include <QLineEdit>
#include <QListWidget>
#include <QSignalSpy>
#include <QSpinBox>
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

    void spacePansWhereverTheFocusIs()
    {
        ZoomWindow window;
        QVERIFY(QTest::qWaitForWindowActive(&window.window));
        QCursor::setPos(window.viewport.mapToGlobal(QPoint(100, 80)));
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
        turnWheel(window.viewport, {100, 80}, {0, 480});
        QCOMPARE(window.view.zoom(), 2.0);
        QTest::keyRelease(&window.list, Qt::Key_Space);
        QVERIFY(!window.scene.viewOnly);
        QCOMPARE(window.viewport.cursor().shape(), Qt::ArrowCursor);
        QVERIFY(window.list.selectedItems().isEmpty());

        QSpinBox number(&window.window); // has no use for it
        number.show();
        number.setFocus();
        QTest::keyPress(&number, Qt::Key_Space);
        QVERIFY(window.scene.viewOnly);
        QTest::keyRelease(&number, Qt::Key_Space);
        window.edit().setFocus();
        QTest::keyPress(&window.edit(), Qt::Key_Space);
        QVERIFY(!window.scene.viewOnly);
        QTest::keyRelease(&window.edit(), Qt::Key_Space);

        QCursor::setPos(window.list.mapToGlobal(QPoint(20, 20)));
        QTRY_VERIFY(!window.viewport.underMouse());
        window.list.setFocus();
        QTest::keyClick(&window.list, Qt::Key_Space);
        QCOMPARE(window.list.selectedItems().size(), 1);
    }

    void typedPercentagesNeedNoSign()
    {
        ZoomWindow window;
        QVERIFY(QTest::qWaitForWindowActive(&window.window));
        QSignalSpy requests(&window.widget, &ZoomWidget::zoomRequested);
        const auto typed = [&](const QString &text) {
            window.edit().setFocus();
            window.edit().selectAll();
            QTest::keyClicks(&window.edit(), text);
            QTest::keyClick(&window.edit(), Qt::Key_Tab);
            return requests.isEmpty() ? QVariant() : requests.takeFirst().first();
        };
        QCOMPARE(typed(QStringLiteral("200")), QVariant(2.0));
        QCOMPARE(typed(QStringLiteral("%")), QVariant());
        QCOMPARE(window.edit().text(), QStringLiteral("100%"));
    }

    void zoomingOverEmptyGroundKeepsContent()
    {
        ZoomWindow window;
        QVERIFY(QTest::qWaitForWindowActive(&window.window));
        window.view.setZoom(0.25);
        const QPoint ground(window.viewport.width() - 20, 20);
        QCursor::setPos(window.viewport.mapToGlobal(ground));
        QTRY_VERIFY(window.viewport.underMouse());
        QVERIFY(!window.scene.sceneRect().contains(window.sceneAt(ground)));
        window.view.setZoom(4.0);
        QVERIFY(window.scene.sceneRect().intersects(
            window.view.mapToScene(window.viewport.rect()).boundingRect()));
    }
};

QTEST_MAIN(tst_ZoomWidget)
#include "tst_ZoomWidget.moc"
