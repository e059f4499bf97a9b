#include "base/GSettings.h"
#include "framework/GAction.h"
#include "framework/KeyEdit.h"
#include "framework/RecentFiles.h"
#include "framework/ShortcutsDialog.h"
#include "model/properties/GUndoStack.h"
#include "preview/EditorGraphicsViewVesperine.h"
#include "preview/NormalMapEditorScene.h"
#include "preview/SpriteItem.h"
#include "support/DialogScript.h"
#include "support/Gestures.h"
#include "support/Studio.h"
#include "support/Widgets.h"
#include "support/WindowTest.h"
#include "tools/PaintTool.h"
#include "ui/ShapeTreeView.h"

#include <QAction>
#include <QLineEdit>
#include <QMenu>
#include <QPushButton>
#include <QSpinBox>
#include <QTreeWidget>
#include <QWindow>

/// The keys of the window's commands: where they work, and changed by hand in the dialog for it.
class TestShortcuts : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init()
    {
        application().settings().clear();
        start();
    }
    void cleanup() { m_window.reset(); }

    // A command without an id could not be given a key: it is to get one where it is made.
    void everyCommandHasAnIdOfItsOwn()
    {
        QHash<QString, const QAction *> seen;
        for (QMenu *menu : m_window->findChildren<QMenu *>()) {
            if (qobject_cast<RecentFiles *>(menu))
                continue;
            for (const QAction *action : menu->actions()) {
                if (action->isSeparator() || action->menu())
                    continue;
                const QString id = action->objectName();
                QVERIFY2(!id.isEmpty(), qPrintable(action->text()));
                QVERIFY2(seen.value(id, action) == action, qPrintable(id));
                seen.insert(id, action);
            }
        }
        QVERIFY(seen.size() > 30);
    }

    void pressedKeysCountAtOnceAndAtTheNextStart()
    {
        openDialog();
        choose("lit surf");
        QTest::keyClick(&edit(), Qt::Key_F9);
        QCOMPARE(row()->text(1), "F9"_s);
        choose("undo");
        QTest::keyClick(&edit(), Qt::Key_F8);
        m_dialog->close();
        QTRY_VERIFY(!m_window->findChild<ShortcutsDialog *>());
        for (const bool isNext : {false, true}) {
            if (isNext)
                start();
            showActive(*m_window);
            const NormalMapEditorScene &scene = EditorUser(*m_window).scene();
            QCOMPARE(scene.displayMode(), DisplayMode::LitTexture);
            QTest::keyClick(m_window.get(), Qt::Key_2, Qt::AltModifier);
            QCOMPARE(scene.displayMode(), DisplayMode::LitTexture);
            QTRY_COMPARE(QApplication::activeWindow(), m_window.get());
            QTest::keyClick(m_window.get(), Qt::Key_F9);
            QCOMPARE(scene.displayMode(), DisplayMode::LitSurface);
            QTest::keyClick(m_window.get(), Qt::Key_3, Qt::AltModifier);
        }
        // The undo command is another one with each document.
        m_window->newDocument();
        QTRY_COMPARE(keys("undo"), "F8"_s);
        QCOMPARE(kept("displayMode2"), QVariant("F9"_s));
        QVERIFY(!kept("displayMode3").isValid());
    }

    void keysThatAreTakenAreNamed_data()
    {
        QTest::addColumn<QString>("keys");
        QTest::addColumn<QString>("told");
        const std::array<const char *, 3> rows[] = {
            {"of another command", "Ctrl+L", "Export lit sprite"},
            {"of a tool", "E", "Eraser Tool"},
            {"of a gesture", "P", "Place the light"},
            {"of all brushes", "5", "of the tools"},
            {"of a menu", "Alt+F", "File"},
            {"of text fields", "Ctrl+C", "text is edited"},
            {"escape", "Esc", "takes back"},
            {"enter", "Enter", "keeps what"},
            {"tab", "Tab", "from field to field"},
            {"its own", "Ctrl+D", "already"}};
        for (const auto &[name, keys, told] : rows)
            QTest::newRow(name) << keys << told;
    }

    void keysThatAreTakenAreNamed()
    {
        QFETCH(QString, keys);
        QFETCH(QString, told);
        openDialog();
        choose("deselect");
        const int key = QKeySequence(keys)[0];
        QTest::keyClick(&edit(),
                        Qt::Key(key & ~int(Qt::KeyboardModifierMask)),
                        Qt::KeyboardModifiers(key & int(Qt::KeyboardModifierMask)));
        QVERIFY(showsText(*m_dialog, told));
        QVERIFY(m_dialog->isVisible());
        QCOMPARE(this->keys("deselect"), "Ctrl+D"_s);
        QVERIFY(application().settings().value("shortcuts/deselect"_s).isNull());
    }

    void aKeyIsTakenOverAndGivenBack()
    {
        openDialog();
        choose("deselect");
        QTest::keyClick(&edit(), Qt::Key_L, Qt::ControlModifier);
        QTest::keyClick(&edit(), Qt::Key_Tab);
        QTest::keyClick(m_dialog->focusWidget(), Qt::Key_Space);
        QCOMPARE(keys("deselect") + keys("exportLitSprite"), "Ctrl+L"_s);
        QVERIFY(!kept("exportLitSprite").isValid()); // it gives way as long as it must
        choose("invert");
        QTest::keyClick(&edit(), Qt::Key_L, Qt::ControlModifier);
        click("Take It Over");
        QCOMPARE(keys("invertSelection") + keys("deselect"), "Ctrl+L"_s);
        start(); // nobody has it twice after a start
        QCOMPARE(keys("invertSelection") + keys("deselect") + keys("exportLitSprite"), "Ctrl+L"_s);
        openDialog();
        choose("export lit");
        click("Reset");
        QVERIFY(showsText(*m_dialog, "Ctrl+L stays with"_s));
        choose("deselect");
        click("Reset");
        QCOMPARE(keys("deselect"), "Ctrl+D"_s);
        choose("invert");
        click("Reset");
        QCOMPARE(keys("exportLitSprite") + keys("invertSelection"), "Ctrl+LCtrl+Shift+I"_s);
    }

    void allAreReset()
    {
        openDialog();
        choose("zoom in");
        click("No Key");
        QCOMPARE(keys("zoomIn"), QString());
        choose("eraser");
        QTest::keyClick(&edit(), Qt::Key_F4);
        DialogScript script;
        script.then(DialogScript::click("Cancel"_s)).then(DialogScript::click("Reset All"_s));
        click("Reset All...");
        QCOMPARE(keys("PaintToolEraser"), "F4"_s);
        click("Reset All...");
        QVERIFY(script.isDone());
        QCOMPARE(keys("PaintToolEraser"), "E"_s);
        QVERIFY(!keys("zoomIn").isEmpty() && !kept("zoomIn").isValid());
    }

    void theFocusOfAPanelThatGoesReturnsToTheView()
    {
        QTRY_VERIFY(EditorUser(*m_window).view().hasFocus()); // at the start
        m_window.reset();
        const Studio studio;
        press(studio, Qt::Key_Y);
        auto &fill = *window(studio).findChild<QPushButton *>("Fill"_s);
        QTest::mouseClick(&fill, Qt::LeftButton);
        QTRY_VERIFY(fill.hasFocus());
        press(studio, Qt::Key_B);
        press(studio, Qt::Key_E);
        press(studio, Qt::Key_5);
        QTRY_VERIFY(studio.view().hasFocus());
        QCOMPARE(tool(studio), "Eraser Tool"_s);
        QCOMPARE(shownChild<QDoubleSpinBox>(window(studio), "Opacity"_s).text(), "50 %"_s);

        QTest::mouseClick(&shownChild<QDoubleSpinBox>(window(studio), "Z position"_s),
                          Qt::LeftButton);
        QVERIFY(!studio.view().hasFocus());
        press(studio, Qt::Key_1, Qt::AltModifier); // hides the light's settings
        QTRY_VERIFY(studio.view().hasFocus());
    }

    void aFieldForNumbersLeavesOtherKeysAlone_data()
    {
        QTest::addColumn<QString>("name");
        for (const char *name : {"Brush size", "Zoom in percent"})
            QTest::newRow(name) << QString::fromLatin1(name);
    }

    void aFieldForNumbersLeavesOtherKeysAlone()
    {
        QFETCH(QString, name);
        m_window.reset();
        const Studio studio;
        studio.key(Qt::Key_B);
        studio.paint({{20, 20}});
        QCOMPARE(studio.stack().index(), 1);
        auto &field = shownChild<QLineEdit>(window(studio), name);
        QTest::mouseClick(&field, Qt::LeftButton);
        QTRY_VERIFY(field.hasFocus());
        press(studio, Qt::Key_Z, Qt::ControlModifier);
        QCOMPARE(studio.stack().index(), 0);
        press(studio, Qt::Key_Z, Qt::ControlModifier | Qt::ShiftModifier);
        QCOMPARE(studio.stack().index(), 1);
        press(studio, Qt::Key_7);
        QVERIFY(field.text().contains(QLatin1Char('7')));
        press(studio, Qt::Key_Z, Qt::ControlModifier); // of what was typed
        QCOMPARE(studio.stack().index(), 1);
        press(studio, Qt::Key_7);
        press(studio, Qt::Key_Y);
        QCOMPARE(tool(studio), "Angle brush"_s);
    }

    // Their names, a and b, begin with keys of tools.
    void keysWhileSeveralSpritesAreSelected()
    {
        m_window.reset();
        Studio studio;
        studio.key(Qt::Key_E);
        studio.select(0);
        auto &list = *window(studio).findChild<ShapeTreeView *>();
        const QPoint second = list.visualRect(list.model()->index(1, 0)).center();
        QTest::mouseClick(list.viewport(), Qt::LeftButton, Qt::ControlModifier, second);
        QTRY_VERIFY(list.hasFocus() && showsText(window(studio), "Select one sprite"_s));
        for (const int key : {Qt::Key_A, Qt::Key_B, Qt::Key_L, Qt::Key_5})
            press(studio, key);
        QCOMPARE(list.selectionModel()->selectedRows().size(), 2);
        QCOMPARE(tool(studio), "Eraser Tool"_s);
        press(studio, Qt::Key_V);
        QCOMPARE(tool(studio), "Move sprites"_s);
        QVERIFY(!showsText(window(studio), "Select one sprite"_s));
        const QVector<QPointF> before = places(studio);
        const QPoint on = studio.view().mapFromScene(before[0] + QPointF(20, 20));
        drag(studio.viewport(), on, on + QPoint(90, 60));
        const QVector<QPointF> after = places(studio);
        QVERIFY(after[0] != before[0]);
        QCOMPARE(after[1] - before[1], after[0] - before[0]);
    }

private:
    static MainWindow &window(const Studio &studio)
    {
        return static_cast<MainWindow &>(*studio.view().window());
    }

    /// At the window, as the system tells of it, which hands it to the widget with the focus.
    static void press(const Studio &studio, int key, Qt::KeyboardModifiers modifiers = {})
    {
        QTest::keyClick(window(studio).windowHandle(), Qt::Key(key), modifiers);
        QCoreApplication::processEvents();
    }

    static QString tool(const Studio &studio) { return studio.scene().tool()->action().text(); }

    static QVector<QPointF> places(const Studio &studio)
    {
        return {studio.scene().spriteItem(&studio.body(0))->pos(),
                studio.scene().spriteItem(&studio.body(1))->pos()};
    }

    static QVariant kept(const char *id)
    {
        return application().settings().value("shortcuts/"_s + QLatin1String(id));
    }

    void start()
    {
        m_window.reset();
        m_window = std::make_unique<MainWindow>(application());
        showActive(*m_window);
    }

    QString keys(const char *id) const
    {
        for (const QMenu *menu : m_window->findChildren<QMenu *>()) {
            for (const QAction *action : menu->actions()) {
                if (action->objectName() == QLatin1String(id))
                    return QKeySequence::listToString(action->shortcuts());
            }
        }
        qFatal("There is no command '%s'", id);
    }

    void openDialog()
    {
        m_window->findChild<QAction *>("shortcuts"_s)->trigger();
        m_dialog = m_window->findChild<ShortcutsDialog *>();
        showActive(*m_dialog);
    }

    KeyEdit &edit() const { return *m_dialog->findChild<KeyEdit *>(); }
    QTreeWidgetItem *row() const { return m_dialog->findChild<QTreeWidget *>()->currentItem(); }

    /// Searches for a command and goes to the field for its keys, by the keyboard.
    void choose(const char *text) const
    {
        auto &search = shownChild<QLineEdit>(*m_dialog, "Search"_s);
        search.clear();
        QTest::keyClicks(&search, QLatin1String(text));
        QTest::keyClick(&search, Qt::Key_Return);
        QVERIFY2(row() && row()->text(0).contains(QLatin1String(text), Qt::CaseInsensitive), text);
        auto &list = *m_dialog->findChild<QTreeWidget *>();
        QCOMPARE(m_dialog->focusWidget(), &list);
        QTest::keyClick(&list, Qt::Key_Return);
        QCOMPARE(m_dialog->focusWidget(), &edit());
    }

    void click(const char *text) const { DialogScript::click(QLatin1String(text))(*m_dialog); }

    std::unique_ptr<MainWindow> m_window;
    ShortcutsDialog *m_dialog = nullptr; // the window's
};

int main(int argc, char **argv)
{
    return runWindowTest<TestShortcuts>(argc, argv);
}

#include "tst_Shortcuts.moc"
