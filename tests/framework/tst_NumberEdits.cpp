#include "framework/GIntEdit.h"
#include "framework/GSlider.h"
#include "framework/NumberSpinBox.h"
#include "support/Gestures.h"

#include <QApplication>
#include <QLineEdit>
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

    void whatIsTypedAfterStepsReplacesTheNumber()
    {
        const Panel panel;
        panel.spinBox->setFocus(Qt::TabFocusReason);
        for (int step = 0; step < 3; ++step)
            QTest::keyClick(panel.spinBox, Qt::Key_Up);
        QCOMPARE(panel.edit.value(), 103);
        QTest::keyClick(panel.spinBox, Qt::Key_7);
        QTest::keyClick(panel.spinBox, Qt::Key_Return);
        QCOMPARE(panel.edit.value(), 7);
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
