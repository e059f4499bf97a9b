#include "base/Resources.h"
#include "model/ItemSelectionModel.h"
#include "model/Project.h"
#include "model/Sprite.h"
#include "model/properties/PropertyT.h"
#include "support/Documents.h"
#include "support/Widgets.h"
#include "ui/ShapeTreeView.h"

#include <QAction>
#include <QLineEdit>
#include <QSignalSpy>
#include <QTest>
#include <QWindow>

#include <memory>

namespace {
QStringList words(const char *text)
{
    return QString::fromLatin1(text).split(QLatin1Char(' '));
}
} // namespace

class TestShapeTreeView : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase() { initialiseResources(); }

    void init()
    {
        m_project = std::make_unique<Project>();
        m_selection.setProject(m_project.get());
        m_list = std::make_unique<ShapeTreeView>(m_selection);
        m_list->setProject(m_project.get());
        m_list->resize(300, 400);
        showActive(*m_list);
        m_list->setFocus();
    }

    void cleanup()
    {
        m_list->setProject(nullptr);
        m_selection.setProject(nullptr);
        m_list.reset();
    }

    void theDocumentsSelectionIsShown()
    {
        addBodies("a b c d e");
        click("b");
        // Keeps the steps of the selection apart.
        m_project->publishNormalmapPostfix().setValue("_m"_s, QString());
        const int steps = m_project->undoStack().count();
        select("e c a");
        QCOMPARE(shown(), "a c e"_s);
        QCOMPARE(m_project->undoStack().count(), steps + 1);
        m_project->undoStack().undo();
        QCOMPARE(shown(), "b"_s);
        m_project->undoStack().redo();
        QCOMPARE(shown(), "a c e"_s);
        // A range starts at the body that was selected from outside.
        select("d");
        click("e", Qt::ShiftModifier);
        QCOMPARE(selected(), "d e"_s);
    }

    void rowsKeepUp()
    {
        addBodies("a b c d e");
        select("b d");
        const auto before = m_project->bodies().entries();
        const auto now = [&](std::initializer_list<int> order) {
            PropertyList::Entries entries;
            for (const int i : order)
                entries.append(before.at(i));
            m_project->bodies().setEntries(entries);
            QStringList expected;
            for (const int i : order)
                expected.append(QChar('a' + i));
            return rows() == expected.join(QLatin1Char(' '));
        };
        const int steps = m_project->undoStack().count();
        QVERIFY(now({0, 3}));
        QCOMPARE(shown(), "d"_s);
        QVERIFY(now({0, 1, 2, 3, 4}));
        QCOMPARE(shown(), "b d"_s);
        QVERIFY(now({1, 3, 4}));
        QVERIFY(now({0, 1, 2, 4}));
        QVERIFY(now({4, 2, 0, 1}));
        QCOMPARE(shown(), "b"_s);
        QVERIFY(now({}));
        QVERIFY(now({2}));
        // What was selected in the document stays, and nothing was pushed.
        QCOMPARE(m_selection.selection().size(), 2);
        QCOMPARE(m_project->undoStack().count(), steps);
        QSignalSpy inserted(m_list->model(), &QAbstractItemModel::rowsInserted);
        QVERIFY(now({0, 1, 2, 3, 4}));
        QCOMPARE(inserted.count(), 2);
        body("c"_s).name().setValue("other"_s);
        QCOMPARE(rows(), "a b other d e"_s);
    }

    // Which belong to a command, be it at rest or not.
    void lettersOfCommandsBeginNoName()
    {
        addBodies("hero heel eel");
        click("hero");
        QAction command;
        command.setShortcut(Qt::Key_E);
        m_list->addAction(&command);
        QSignalSpy runs(&command, &QAction::triggered);
        for (const bool isEnabled : {true, false}) {
            command.setEnabled(isEnabled);
            press(Qt::Key_E);
            QCOMPARE(selected(), "hero"_s);
        }
        command.setEnabled(true);
        for (const int key : {Qt::Key_H, Qt::Key_E, Qt::Key_E})
            press(key);
        QCOMPARE(selected(), "heel"_s);
        QCOMPARE(runs.count(), 1);
    }

    void renaming()
    {
        addBodies("body");
        click("body");
        const int steps = m_project->undoStack().count();
        const auto renamed = [this](const QString &typed, Qt::Key end) {
            QTest::keyClick(m_list.get(), Qt::Key_F2);
            auto *editor = m_list->findChild<QLineEdit *>();
            if (!editor || editor->text() != "body"_s)
                return "no editor"_s;
            editor->selectAll();
            editor->insert(typed);
            QTest::keyClick(editor, end);
            if (!QTest::qWaitFor([this] { return !m_list->findChild<QLineEdit *>(); }))
                return "still edited"_s;
            return rows();
        };
        QCOMPARE(renamed("new"_s, Qt::Key_Escape), "body"_s);
        QCOMPARE(renamed("   "_s, Qt::Key_Return), "body"_s);
        QCOMPARE(m_project->undoStack().count(), steps);
        QCOMPARE(renamed("new ü"_s, Qt::Key_Return), "new ü"_s);
        QCOMPARE(m_project->undoStack().count(), steps + 1);
        QCOMPARE(m_project->undoStack().undoText(), "rename body"_s);
        m_project->undoStack().undo();
        QCOMPARE(rows(), "body"_s);
    }

private:
    // At the window, where the system tells of it.
    void press(int key) { QTest::keyClick(m_list->windowHandle(), Qt::Key(key)); }

    void addBodies(const char *names)
    {
        for (const QString &name : words(names))
            addBody(*m_project, name);
    }

    int row(const QString &name) const { return rows().split(QLatin1Char(' ')).indexOf(name); }

    Body &body(const QString &name) const { return m_project->bodies().at(row(name)); }

    void select(const char *names)
    {
        QList<Body *> bodies;
        for (const QString &name : words(names))
            bodies.append(&body(name));
        m_selection.setSelection(bodies);
    }

    void click(const char *name, Qt::KeyboardModifiers modifiers = {})
    {
        const QModelIndex index = m_list->model()->index(row(QString::fromLatin1(name)), 0);
        const QPoint at = m_list->visualRect(index).center();
        QTest::mouseClick(m_list->viewport(), Qt::LeftButton, modifiers, at);
    }

    QString selected() const
    {
        QStringList names;
        for (const Body *body : m_selection.selection())
            names.append(body->name().value());
        return names.join(QLatin1Char(' '));
    }

    QString rows() const
    {
        QStringList names;
        for (int i = 0; i < m_list->model()->rowCount(); ++i)
            names.append(m_list->model()->index(i, 0).data().toString());
        return names.join(QLatin1Char(' '));
    }

    QString shown() const
    {
        QStringList names;
        for (const QModelIndex &index : m_list->selectionModel()->selectedRows())
            names.append(index.data().toString());
        names.sort();
        return names.join(QLatin1Char(' '));
    }

    std::unique_ptr<Project> m_project;
    ItemSelectionModel m_selection;
    std::unique_ptr<ShapeTreeView> m_list;
};

QTEST_MAIN(TestShapeTreeView)
#include "tst_ShapeTreeView.moc"
