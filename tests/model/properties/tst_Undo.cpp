#include "model/properties/GProject.h"
#include "model/properties/PropertyT.h"
#include "support/RecordingObserver.h"

#include <QTest>

class TestUndo : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void continuousEditsMerge();
    void brokenChainsAndSeparateStepsStay();
    void equalValuesPushNothing();
    void emptyMacrosLeaveNothing();
    void holdingMacroTellsOnce();
    void observersAndObservablesComeAndGo();
    void onlyDocumentStepsModify();
    void selectionKeepsTheSavedPlace();
};

namespace {
// A selection as the undo stack sees it: an object that is no property.
struct Selection
{
    int value = 0;
    void set(const int &newValue) { value = newValue; }

    void push(GUndoStack &stack, int newValue)
    {
        pushUndoStep(
            stack, *this, &Selection::set, value, newValue, QStringLiteral("select"), false);
    }
};

const QString text = QStringLiteral("edit");
} // namespace

void TestUndo::continuousEditsMerge()
{
    GProject project(QStringLiteral("project"));
    PropertyInt number(project, QStringLiteral("number"), 1);
    number.setValue(3, QStringLiteral("first"));
    number.setValue(5, QStringLiteral("second"));
    QCOMPARE(project.undoStack().count(), 1);
    QCOMPARE(project.undoStack().undoText(), QStringLiteral("second"));
    project.undoStack().undo();
    QCOMPARE(number.value(), 1);
    project.undoStack().redo();
    QCOMPARE(number.value(), 5);
}

void TestUndo::brokenChainsAndSeparateStepsStay()
{
    GProject project(QStringLiteral("project"));
    PropertyInt number(project, QStringLiteral("number"));
    PropertyInt other(project, QStringLiteral("other"));
    number.setValue(1, text);
    number.setValue(7); // somebody set it without a step
    number.setValue(2, text);
    QCOMPARE(project.undoStack().count(), 2);
    other.setValue(2, text);
    QCOMPARE(project.undoStack().count(), 3);
    other.setValue(3, text, false);
    other.setValue(4, text, false);
    QCOMPARE(project.undoStack().count(), 5);
}

void TestUndo::equalValuesPushNothing()
{
    GProject project(QStringLiteral("project"));
    PropertyString name(project, QStringLiteral("name"), text);
    RecordingObserver observer(name);
    name.setValue(text, text);
    QCOMPARE(project.undoStack().count(), 0);
    QCOMPARE(observer.calls, 0);
    name.setValue(text); // the plain setter does not compare
    QCOMPARE(observer.calls, 1);
}

void TestUndo::emptyMacrosLeaveNothing()
{
    GProject project(QStringLiteral("project"));
    PropertyInt number(project, QStringLiteral("number"));
    auto &stack = project.undoStack();
    number.setValue(1, text);
    stack.undo();
    {
        const UndoMacro outer(stack, QStringLiteral("outer"));
        const UndoMacro inner(stack, QStringLiteral("inner"));
        number.setValue(0, text);
    }
    QCOMPARE(stack.count(), 1);
    QVERIFY(stack.canRedo());
    {
        const UndoMacro outer(stack, QStringLiteral("outer"));
        {
            const UndoMacro inner(stack, QStringLiteral("inner"));
            number.setValue(4, text);
        }
        number.setValue(6, text);
    }
    QCOMPARE(stack.count(), 1);
    QCOMPARE(stack.undoText(), QStringLiteral("outer"));
    stack.undo();
    QCOMPARE(number.value(), 0);
}

void TestUndo::holdingMacroTellsOnce()
{
    GProject project(QStringLiteral("project"));
    PropertyInt held(project, QStringLiteral("held"));
    PropertyInt loose(project, QStringLiteral("loose"));
    RecordingObserver heldObserver(held);
    RecordingObserver looseObserver(loose);
    {
        const UndoMacro macro(project.undoStack(), text, {&held});
        for (int i = 1; i <= 3; ++i)
            held.setValue(i, text);
        loose.setValue(1, text);
        QCOMPARE(heldObserver.calls, 0);
        QCOMPARE(looseObserver.calls, 1);
    }
    QCOMPARE(heldObserver.calls, 1);
    held.setValue(9, text);
    QCOMPARE(heldObserver.calls, 2);
}

void TestUndo::observersAndObservablesComeAndGo()
{
    GProject project(QStringLiteral("project"));
    auto number = std::make_unique<PropertyInt>(project, QStringLiteral("number"));
    RecordingObserver first(*number);
    auto second = std::make_unique<RecordingObserver>(*number);
    auto third = std::make_unique<RecordingObserver>(*number);
    first.action = [&second] { second.reset(); };
    number->setValue(1);
    QCOMPARE(third->calls, 1);
    // One observer destroys what it observes; the next is not called with it any more.
    first.action = [&number] { number.reset(); };
    ChangeManager::instance().notify(*number);
    QCOMPARE(first.calls, 2);
    QCOMPARE(third->calls, 1);
    // A held observable that is destroyed is not delivered.
    auto held = std::make_unique<PropertyInt>(project, QStringLiteral("held"));
    RecordingObserver observer(*held);
    ChangeManager::instance().hold({held.get()});
    held->setValue(2);
    held.reset();
    ChangeManager::instance().release();
    QCOMPARE(observer.calls, 0);
}

void TestUndo::onlyDocumentStepsModify()
{
    GProject project(QStringLiteral("project"));
    PropertyInt number(project, QStringLiteral("number"));
    Selection selection;
    auto &stack = project.undoStack();
    QVERIFY(!stack.isModified());
    selection.push(stack, 1);
    QVERIFY(!stack.isModified());
    {
        const UndoMacro macro(stack, text);
        selection.push(stack, 2);
        number.setValue(1, text);
    }
    QVERIFY(stack.isModified());
    stack.markSaved();
    QVERIFY(!stack.isModified());
    stack.undo();
    QVERIFY(stack.isModified());
    stack.undo();
    stack.redo();
    stack.redo();
    QVERIFY(!stack.isModified());
}

void TestUndo::selectionKeepsTheSavedPlace()
{
    GProject project(QStringLiteral("project"));
    PropertyInt number(project, QStringLiteral("number"));
    Selection selection;
    auto &stack = project.undoStack();
    selection.push(stack, 1);
    stack.markSaved();
    stack.undo();
    selection.push(stack, 2); // the saved place is cut off, the document is still the saved one
    QVERIFY(!stack.isModified());
    number.setValue(1, text, false);
    stack.markSaved();
    stack.undo();
    selection.push(stack, 3); // now the saved document can't be reached any more
    QVERIFY(stack.isModified());
}

QTEST_GUILESS_MAIN(TestUndo)

#include "tst_Undo.moc"
