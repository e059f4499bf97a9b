#include "model/properties/GProject.h"
#include "model/properties/PropertyT.h"
#include "support/RecordingObserver.h"

#include <QTest>

class TestUndo : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void continuousEditsMerge();
    void equalValuesPushNothing();
    void emptyMacrosLeaveNothing();
    void holdingMacroTellsOnce();
    void observersAndObservablesComeAndGo();
    void onlyDocumentStepsModify();
};

namespace {
const QString text = QStringLiteral("edit");

// A selection as the undo stack sees it: an object that is no property.
struct Selection
{
    int value = 0;
    void set(const int &newValue) { value = newValue; }
};

struct Document
{
    void select(int value)
    {
        pushUndoStep(stack, selection, &Selection::set, selection.value, value, text, false);
    }

    GProject project{QStringLiteral("project")};
    GUndoStack &stack = project.undoStack();
    PropertyInt number{project, QStringLiteral("number")};
    PropertyInt other{project, QStringLiteral("other")};
    Selection selection;
};
} // namespace

void TestUndo::continuousEditsMerge()
{
    Document document;
    auto &stack = document.stack;
    document.number.setValue(1);
    document.number.setValue(3, QStringLiteral("first"));
    document.number.setValue(5, text);
    QCOMPARE(stack.count(), 1);
    QCOMPARE(stack.undoText(), text);
    stack.undo();
    QCOMPARE(document.number.value(), 1);
    stack.redo();
    QCOMPARE(document.number.value(), 5);
    document.number.setValue(7); // without a step, which breaks the chain
    document.number.setValue(2, text);
    QCOMPARE(stack.count(), 2);
    document.other.setValue(2, text);
    QCOMPARE(stack.count(), 3);
    document.other.setValue(3, text, false);
    document.other.setValue(4, text, false);
    QCOMPARE(stack.count(), 5);
}

void TestUndo::equalValuesPushNothing()
{
    Document document;
    RecordingObserver observer(document.number);
    document.number.setValue(0, text);
    QCOMPARE(document.stack.count(), 0);
    QCOMPARE(observer.calls, 0);
    document.number.setValue(0); // the plain setter does not compare
    QCOMPARE(observer.calls, 1);
}

void TestUndo::emptyMacrosLeaveNothing()
{
    Document document;
    auto &stack = document.stack;
    document.number.setValue(1, QStringLiteral("undone"));
    stack.undo();
    for (const int value : {0, 4}) { // the first pass changes nothing
        {
            const UndoMacro outer(stack, text);
            {
                const UndoMacro inner(stack, QStringLiteral("inner"));
                document.number.setValue(value, QStringLiteral("step"));
            }
            document.number.setValue(value * 2, QStringLiteral("step"));
        }
        QCOMPARE(stack.count(), 1);
        QCOMPARE(stack.canRedo(), value == 0);
    }
    QCOMPARE(stack.undoText(), text);
    stack.undo();
    QCOMPARE(document.number.value(), 0);
}

void TestUndo::holdingMacroTellsOnce()
{
    Document document;
    RecordingObserver held(document.number);
    RecordingObserver loose(document.other);
    {
        const UndoMacro macro(document.stack, text, {&document.number});
        for (int i = 1; i <= 3; ++i)
            document.number.setValue(i, text);
        document.other.setValue(1, text);
        QCOMPARE(held.calls, 0);
        QCOMPARE(loose.calls, 1);
    }
    QCOMPARE(held.calls, 1);
    document.number.setValue(9, text);
    QCOMPARE(held.calls, 2);
}

void TestUndo::observersAndObservablesComeAndGo()
{
    Document document;
    auto number = std::make_unique<PropertyInt>(document.project, text);
    RecordingObserver first(*number);
    auto second = std::make_unique<RecordingObserver>(*number);
    RecordingObserver third(*number);
    first.action = [&second] { second.reset(); };
    number->setValue(1);
    QCOMPARE(third.calls, 1);
    // One observer destroys what it observes; the next is not called with it any more.
    first.action = [&number] { number.reset(); };
    ChangeManager::instance().notify(*number);
    QCOMPARE(first.calls, 2);
    QCOMPARE(third.calls, 1);
    // A held observable that is destroyed is not delivered.
    auto held = std::make_unique<PropertyInt>(document.project, text);
    RecordingObserver observer(*held);
    ChangeManager::instance().hold({held.get()});
    held->setValue(2);
    held.reset();
    ChangeManager::instance().release();
    QCOMPARE(observer.calls, 0);
}

void TestUndo::onlyDocumentStepsModify()
{
    Document document;
    auto &stack = document.stack;
    QVERIFY(!stack.isModified());
    document.select(1);
    QVERIFY(!stack.isModified());
    {
        const UndoMacro macro(stack, text);
        document.select(2);
        document.number.setValue(1, text);
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

    document.select(3);
    stack.markSaved();
    stack.undo();
    document.select(4); // the saved place is cut off, the document is still the saved one
    QVERIFY(!stack.isModified());
    document.number.setValue(5, text, false);
    stack.markSaved();
    stack.undo();
    document.select(5); // now the saved document can't be reached any more
    QVERIFY(stack.isModified());
}

QTEST_GUILESS_MAIN(TestUndo)

#include "tst_Undo.moc"
