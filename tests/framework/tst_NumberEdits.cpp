#include "framework/GDoubleEdit.h"
#include "framework/GIntEdit.h"
#include "framework/GSlider.h"
#include "framework/NumberSpinBox.h"
#include "support/Gestures.h"

#include <QApplication>
#include <QLineEdit>
#include <QScrollArea>
#include <QScrollBar>
#include <QSignalSpy>
#include <QTest>
#include <QVBoxLayout>

namespace {
/// An edit over 0 to 1024 at 100 in an active window, beside something else that takes focus.
struct Panel
{
    Panel()
    {
        edit.setRange(0, 64, 1024);
        edit.setSuffix(QStringLiteral(" px"));
        edit.setValue(100);
        layout.addWidget(&edit);
        layout.addWidget(&other);
        window.resize(400, 120);
        window.show();
        window.activateWindow();
        QVERIFY(QTest::qWaitForWindowActive(&window));
        other.setFocus();
        changes.clear();
    }

    void type(const QString &text) const
    {
        spinBox->setFocus(Qt::TabFocusReason);
        QTest::keyClicks(spinBox, text);
    }

    QPoint onSlider(double share) const
    {
        return {int(share * (slider->width() - 1)), slider->height() / 2};
    }

    QWidget window;
    QVBoxLayout layout{&window};
    GIntEdit edit;
    QLineEdit other;
    GSlider *slider = edit.findChild<GSlider *>();
    NumberSpinBox *spinBox = edit.findChild<NumberSpinBox *>();
    QSignalSpy changes{&edit, &GIntEdit::valueChanged};
    QSignalSpy finished{&edit, &GNumberEdit::editingFinished};
};
} // namespace

class TestNumberEdits : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void scalesThroughPoints_data()
    {
        QTest::addColumn<QVector<double>>("points");
        QTest::newRow("one part") << QVector<double>{0, 9999};
        QTest::newRow("two parts") << QVector<double>{0.1, 10, 200};
        QTest::newRow("below zero") << QVector<double>{-5, -4, 100};
        QTest::newRow("five parts") << QVector<double>{1, 2, 20, 40, 100, 500};
    }

    void scalesThroughPoints()
    {
        QFETCH(QVector<double>, points);
        const SliderScale scale(points);
        const int stepsInPart = SliderScale::stepCount / (points.size() - 1);
        for (int step = 0; step < SliderScale::stepCount; ++step) {
            const int part = step / stepsInPart;
            const double extent = points[part + 1] - points[part];
            const double expected =
                extent * (step % stepsInPart) / (stepsInPart - 1) + points[part];
            QCOMPARE(scale.valueAt(step), expected);
            // Two steps have the value of a point between two parts.
            const int found = scale.stepOf(expected);
            QVERIFY2(found == step || (step == part * stepsInPart && found == step - 1),
                     qPrintable(QString::number(step)));
        }
        QCOMPARE(scale.stepOf(points.first() - 1), 0);
        QCOMPARE(scale.stepOf(points.last() + 1), SliderScale::stepCount - 1);
    }

    void keysAndTypedNumbers_data()
    {
        QTest::addColumn<QVector<int>>("keys");
        QTest::addColumn<bool>("isOnSlider");
        QTest::addColumn<int>("result");
        using Keys = QVector<int>;
        for (const bool isOnSlider : {false, true}) {
            const char *place = isOnSlider ? "slider" : "spin box";
            const Keys keys{Qt::Key_PageUp,
                            Qt::Key_PageUp,
                            Qt::Key_PageDown,
                            Qt::Key_Up,
                            Qt::Key_Down,
                            Qt::Key_Down};
            QTest::addRow("steps on %s", place) << keys << isOnSlider << 109;
        }
        QTest::newRow("beyond the end and back")
            << Keys{Qt::Key_End, Qt::Key_Right, Qt::Key_Left} << true << 1023;
        QTest::newRow("home and right") << Keys{Qt::Key_Home, Qt::Key_Right} << true << 1;
        QTest::newRow("typed and up") << Keys{Qt::Key_4, Qt::Key_2, Qt::Key_Up} << false << 43;
        QTest::newRow("too large") << Keys(5, Qt::Key_9) << false << 1024;
        QTest::newRow("nothing typed") << Keys{Qt::Key_Delete} << false << 100;
    }

    void keysAndTypedNumbers()
    {
        QFETCH(QVector<int>, keys);
        QFETCH(bool, isOnSlider);
        QFETCH(int, result);
        Panel panel;
        QWidget *part = isOnSlider ? static_cast<QWidget *>(panel.slider) : panel.spinBox;
        part->setFocus(Qt::TabFocusReason);
        for (const int key : keys)
            QTest::keyClick(part, Qt::Key(key));
        QTest::keyClick(part, Qt::Key_Return);
        QCOMPARE(panel.edit.value(), result);
        QCOMPARE(panel.spinBox->text(), QStringLiteral("%1 px").arg(result));
        QCOMPARE(QApplication::focusWidget(), nullptr);
        QCOMPARE(panel.finished.count(), result == 100 ? 0 : 1);
    }

    void escapeRestores()
    {
        Panel panel;
        panel.type(QStringLiteral("77"));
        QTest::keyClick(panel.spinBox, Qt::Key_Escape);
        QCOMPARE(panel.changes.count(), 0);
        QCOMPARE(panel.spinBox->text(), QStringLiteral("100 px"));
        QCOMPARE(QApplication::focusWidget(), nullptr);

        QTest::mousePress(panel.slider, Qt::LeftButton, {}, panel.onSlider(0.25));
        QVERIFY(qAbs(panel.edit.value() - 32) < 4);
        dragTo(*panel.slider, panel.onSlider(1.0));
        QCOMPARE(panel.edit.value(), 1024);
        QTest::keyClick(panel.slider, Qt::Key_Escape);
        dragTo(*panel.slider, panel.onSlider(0.7));
        QTest::mouseRelease(panel.slider, Qt::LeftButton, {}, panel.onSlider(0.7));
        QCOMPARE(panel.edit.value(), 100);
        QCOMPARE(panel.finished.count(), 0);

        // What came from elsewhere meanwhile stays.
        panel.spinBox->setFocus();
        panel.edit.setValue(50);
        QTest::keyClick(panel.spinBox, Qt::Key_Escape);
        QCOMPARE(panel.edit.value(), 50);
    }

    void wheelNeedsFocus()
    {
        QScrollArea area;
        auto *content = new QWidget;
        auto *edit = new GDoubleEdit(content);
        edit->setRange(0.5, 10, 50);
        edit->setValue(3);
        content->setMinimumSize(200, 2000);
        area.setWidget(content);
        area.show();
        area.activateWindow();
        QVERIFY(QTest::qWaitForWindowActive(&area));
        area.setFocus();
        auto *spinBox = edit->findChild<NumberSpinBox *>();
        turnWheel(*edit->findChild<GSlider *>(), -1);
        turnWheel(*spinBox, -1);
        QCOMPARE(edit->value(), 3.0);
        QVERIFY(area.verticalScrollBar()->value() > 0);
        const int scrolled = area.verticalScrollBar()->value();
        spinBox->setFocus();
        turnWheel(*edit->findChild<GSlider *>(), 1);
        turnWheel(*spinBox, 1);
        QCOMPARE(edit->value(), 3.2);
        QCOMPARE(area.verticalScrollBar()->value(), scrolled);
    }

    void mixedUntilSet()
    {
        Panel panel;
        panel.edit.setMixed(true);
        QCOMPARE(panel.spinBox->text(), QStringLiteral("\u2014"));
        // Looking is not editing.
        panel.spinBox->setFocus(Qt::TabFocusReason);
        QTest::keyClick(panel.spinBox, Qt::Key_Return);
        QCOMPARE(panel.changes.count(), 0);
        QCOMPARE(panel.spinBox->text(), QStringLiteral("\u2014"));
        // The value that one of them has already counts.
        panel.type(QStringLiteral("100"));
        QTest::keyClick(panel.spinBox, Qt::Key_Enter);
        QCOMPARE(panel.changes.count(), 1);
        QCOMPARE(panel.spinBox->text(), QStringLiteral("100 px"));
        panel.edit.setMixed(true);
        QTest::mousePress(panel.slider, Qt::LeftButton, {}, panel.onSlider(0.3));
        QCOMPARE(panel.changes.count(), 2);
        QTest::keyClick(panel.slider, Qt::Key_Escape);
        QCOMPARE(panel.spinBox->text(), QStringLiteral("\u2014"));
    }
};

QTEST_MAIN(TestNumberEdits)
#include "tst_NumberEdits.moc"
