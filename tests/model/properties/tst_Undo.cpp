#include "model/properties/GProject.h"
#include "model/properties/PropertyByteArray.h"
#include "support/RecordingObserver.h"

#include <QTest>

#include <random>

class TestUndo : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void continuousEditsMerge();
    void emptyMacrosLeaveNothing();
    void observersAndObservablesComeAndGo();
    void onlyDocumentStepsModify();
    void largeBytesComeBackExactly();
    void largeBytesAreLetGo();
    void closedStepsTakeNothingUp();
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
    PropertyByteArray bytes{project, QStringLiteral("bytes")};
    Selection selection;
};
QByteArray filled(int length, quint32 word)
{
    QByteArray bytes(length, Qt::Uninitialized);
    for (int i = 0; i < length; ++i)
        bytes[i] = char(word >> (8 * (i % 4)));
    return bytes;
}

// Some runs of words made anew: each word for itself, all alike, or as they were but for a bit.
QByteArray edited(QByteArray bytes, std::mt19937 &random)
{
    auto *words = reinterpret_cast<quint32 *>(bytes.data());
    const auto count = quint32(bytes.size()) / 4;
    for (auto runs = random() % 40; count > 0 && runs > 0; --runs) {
        const quint32 first = random() % count;
        const quint32 longest = random() % 8 == 0 ? count : 200;
        const quint32 end = std::min<quint32>(count, first + random() % longest);
        const quint32 word = random();
        const auto form = random() % 3;
        for (quint32 i = first; i < end; ++i)
            words[i] = form == 0 ? random() : form == 1 ? word : words[i] ^ (i % 3);
    }
    return bytes;
}
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

void TestUndo::largeBytesComeBackExactly()
{
    std::mt19937 random(5);
    const QVector<int> lengths{0, 1 << 10, 1 << 16, (1 << 16) + 3, (1 << 17) + 8};
    for (int round = 0; round < 20; ++round) {
        Document document;
        QVector<QByteArray> history{{}};
        int now = 0;
        for (int action = 0; action < 60; ++action) {
            if (now > 0 && random() % 3 == 0) {
                document.stack.undo();
                --now;
            } else if (now + 1 < history.size() && random() % 2 == 0) {
                document.stack.redo();
                ++now;
            } else {
                const bool isResized = now == 0 || random() % 10 == 0;
                const QByteArray base =
                    isResized ? filled(lengths[int(random() % 5)], random()) : history[now];
                const QByteArray next = edited(base, random);
                document.bytes.setValue(next, text, false);
                if (next == history[now])
                    continue;
                history.resize(++now);
                history.append(next);
            }
            QCOMPARE(document.stack.index(), now);
            QVERIFY(document.bytes.value() == history[now]);
        }
    }
}

// By what shares their blocks: no step keeps a whole value.
void TestUndo::largeBytesAreLetGo()
{
    Document document;
    auto &bytes = document.bytes;
    const QByteArray first = filled(1 << 20, 7);
    bytes.setValue(QByteArray(first.constData(), first.size()));
    QByteArray before = bytes.value();
    bytes.setValue(first + QByteArray(4, 'x'), text, false); // another length: kept whole
    QVERIFY(!before.isDetached());
    document.stack.undo();
    document.stack.clear();

    QByteArray after = before;
    after[1000] = 'x';
    for (const bool mergeable : {false, true}) {
        bytes.setValue(after, text, mergeable);
        QVERIFY(bytes.value().constData() == after.constData());
        QCOMPARE(before.isDetached(), !mergeable);
        {
            const UndoMacro macro(document.stack, text);
            document.number.setValue(mergeable ? 1 : 2, text, false);
        }
        QVERIFY(before.isDetached());
        after = {};
        QVERIFY(bytes.value().isDetached());
        document.stack.undo();
        document.stack.undo();
        QVERIFY(bytes.value() == first);
        document.stack.redo();
        after = bytes.value();
        QVERIFY(after.at(1000) == 'x');
        before = first;
        before.detach();
        bytes.setValue(before);
    }

    // What was changed without a step is no value that the step knows.
    for (const QByteArray &wrong : {filled(1 << 20, 9), filled(4, 7), QByteArray()}) {
        bytes.setValue(wrong);
        QTest::ignoreMessage(QtWarningMsg, "A value was changed without an undo step and is kept.");
        document.stack.undo();
        QVERIFY(bytes.value() == wrong);
        QTest::ignoreMessage(QtWarningMsg, "A value was changed without an undo step and is kept.");
        document.stack.redo();
    }
}

void TestUndo::closedStepsTakeNothingUp()
{
    Document document;
    document.stack.closeStep();
    document.number.setValue(1, text);
    document.number.setValue(2, text);
    document.stack.closeStep();
    document.number.setValue(3, text);
    QCOMPARE(document.stack.count(), 2);
    document.stack.undo();
    document.number.setValue(4, text);
    QCOMPARE(document.stack.count(), 2);
    document.stack.undo();
    QCOMPARE(document.number.value(), 2);
}

QTEST_GUILESS_MAIN(TestUndo)

#include "tst_Undo.moc"
