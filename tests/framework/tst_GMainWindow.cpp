#include "base/GSettings.h"
#include "framework/GAction.h"
#include "framework/GMainWindow.h"
#include "framework/RecentFiles.h"
#include "support/DialogScript.h"
#include "support/Documents.h"

#include <QApplication>
#include <QClipboard>
#include <QDialog>
#include <QLineEdit>
#include <QMenu>
#include <QMenuBar>
#include <QPushButton>
#include <QSplitter>
#include <QTest>
#include <QToolBar>
#include <QToolButton>
#include <QTreeWidget>

namespace {

QString operator""_s(const char *text, std::size_t size)
{
    return QString::fromUtf8(text, int(size));
}

/// A window whose document is a name and a flag.
class FakeWindow : public GMainWindow
{
    Q_OBJECT

public:
    explicit FakeWindow(GSettings &settings)
        : GMainWindow(settings,
                      {"Documents (*.doc *.old)"_s, "Documents (*.doc)"_s, "doc"_s, "Untitled"_s})
    {
        QMenu *file = menuBar()->addMenu("&File"_s);
        addDocumentActions(*file);
        addClosingActions(*file);
        m_left->setWindowTitle("Sprites"_s);
        m_left->setObjectName("sprites"_s);
        m_splitter->setObjectName("splitter"_s);
        m_splitter->addWidget(m_left);
        m_splitter->addWidget(m_line);
        m_splitter->setFocusPolicy(Qt::StrongFocus);
        setCentralWidget(m_splitter);
        QToolBar *bar = addToolBar("Toolbar"_s);
        bar->setObjectName("toolbar"_s);
        bar->addAction("Plain"_s)->setObjectName("plain"_s);
        m_windowMenu = createWindowMenu({m_left});
        menuBar()->addMenu(m_windowMenu);
        menuBar()->addMenu(createHelpMenu({}));
        setGestures({{"View"_s, {{"Zoom"_s, "Wheel"_s}}}});
        resize(640, 480);
        restoreLayout();
    }

    using GMainWindow::updateTitle;

    QString m_path;
    bool m_isModified = false;
    bool m_failsToStore = false;
    QStringList m_log;
    QMenu *m_windowMenu;
    QLineEdit *m_line = new QLineEdit;
    QWidget *m_left = new QWidget;
    QSplitter *m_splitter = new QSplitter;

protected:
    void createDocument() override { become("created"_s, {}); }
    bool loadDocument(const QString &path) override
    {
        if (!QFile::exists(path))
            return false;
        become("loaded"_s, path);
        return true;
    }
    bool storeDocument(const QString &path) override
    {
        if (m_failsToStore)
            return false;
        become("stored"_s, path);
        return QFile(path).open(QIODevice::WriteOnly);
    }
    QString documentPath() const override { return m_path; }
    bool isDocumentModified() const override { return m_isModified; }
    QString systemInformation() const override { return "Graphics: none"_s; }

private:
    void become(const QString &event, const QString &path)
    {
        m_log.append(event);
        m_path = path;
        m_isModified = false;
    }
};

} // namespace

class TestGMainWindow : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase()
    {
        QCoreApplication::setAttribute(Qt::AA_DontUseNativeDialogs);
        QGuiApplication::setApplicationDisplayName("Program"_s);
        QGuiApplication::setQuitOnLastWindowClosed(false);
    }

    void init()
    {
        m_folder = Folder();
        m_settings = std::make_unique<GSettings>();
        m_settings->setValue("documentFolder"_s, file(QString()));
    }

    void asksForUnsavedChanges_data()
    {
        QTest::addColumn<QString>("button");
        QTest::addColumn<bool>("fails");
        QTest::addColumn<bool>("goesOn");
        QTest::newRow("save") << "Save"_s << false << true;
        QTest::newRow("save fails") << "Save"_s << true << false;
        QTest::newRow("discard") << "Discard"_s << true << true;
        QTest::newRow("cancel") << "Cancel"_s << false << false;
    }

    void asksForUnsavedChanges()
    {
        QFETCH(QString, button);
        QFETCH(bool, fails);
        QFETCH(bool, goesOn);
        const QString other = m_folder.write("other.doc"_s, {});
        for (const char *command : {"created", "loaded", "closed"}) {
            const QString event = QLatin1String(command);
            FakeWindow window(*m_settings);
            window.show();
            window.m_path = file("mine.doc"_s);
            window.m_isModified = true;
            window.m_failsToStore = fails;
            DialogScript script;
            script.then(DialogScript::click(button));
            if (event == QLatin1String("created"))
                window.newDocument();
            else if (event == QLatin1String("loaded"))
                QCOMPARE(window.openPath(other), goesOn);
            else if (window.close())
                window.m_log.append(event);
            QVERIFY(script.isDone() && script.seen().first().contains("mine.doc"_s));
            QStringList expected;
            if (goesOn && !fails)
                expected.append("stored"_s);
            if (goesOn)
                expected.append(event);
            QCOMPARE(window.m_log, expected);
        }
    }

    void savesUnderChosenName_data()
    {
        QTest::addColumn<QString>("typed");
        QTest::addColumn<QStringList>("clicks");
        QTest::addColumn<QString>("saved");
        const QStringList none;
        QTest::newRow("suffix is added") << "hero"_s << none << "hero.doc"_s;
        QTest::newRow("former suffix stays") << "hero.old"_s << none << "hero.old"_s;
        QTest::newRow("suffix of another kind is a part of the name")
            << "hero 1.5"_s << none << "hero 1.5.doc"_s;
        QTest::newRow("existing name with suffix is replaced")
            << "there"_s << QStringList{"Replace"_s} << "there.doc"_s;
        QTest::newRow("refused, another one is chosen")
            << "there"_s << QStringList{"Cancel"_s, "Cancel"_s} << QString();
    }

    void savesUnderChosenName()
    {
        QFETCH(QString, typed);
        QFETCH(QStringList, clicks);
        QFETCH(QString, saved);
        m_folder.write("there.doc"_s, {});
        FakeWindow window(*m_settings);
        window.m_isModified = true;
        window.updateTitle();
        DialogScript script;
        script.then(DialogScript::chooseFile(file(typed)));
        for (const QString &button : clicks)
            script.then(DialogScript::click(button));
        QCOMPARE(window.save(), !saved.isEmpty());
        QVERIFY(script.isDone());
        QCOMPARE(window.m_path, saved.isEmpty() ? QString() : file(saved));
        QCOMPARE(window.isWindowModified(), saved.isEmpty());
    }

    void remembersRecentFiles()
    {
        const auto entries = [](const FakeWindow &window) {
            auto *menu = window.findChild<RecentFiles *>();
            Q_EMIT menu->aboutToShow();
            QList<QAction *> actions = menu->actions();
            actions.erase(actions.end() - 2, actions.end());
            return actions;
        };
        {
            FakeWindow window(*m_settings);
            QVERIFY(!window.findChild<RecentFiles *>()->menuAction()->isEnabled());
            for (int i = 0; i < 12; ++i)
                QVERIFY(window.openPath(m_folder.write("%1&.doc"_s.arg(i), {})));
            // The same file by another path.
            QVERIFY(QFile::link(file("5&.doc"_s), file("link.doc"_s)));
            QVERIFY(window.openPath(file("link.doc"_s)));
            QVERIFY(!window.openPath(file("never.doc"_s)));
        }
        QVERIFY(QFile::remove(file("10&.doc"_s)));
        FakeWindow window(*m_settings);
        const QList<QAction *> actions = entries(window);
        QStringList names;
        for (const QAction *action : actions)
            names.append(QFileInfo(action->data().toString()).completeBaseName());
        QCOMPARE(names.join(QLatin1Char(' ')), "5& 11& 10& 9& 8& 7& 6& 4& 3& 2&"_s);
        QVERIFY(actions.at(0)->text().startsWith("&1  5&&.doc"_s));
        QVERIFY(!actions.at(2)->isEnabled());
        actions.at(1)->trigger();
        QCOMPARE(QFileInfo(window.m_path).fileName(), "11&.doc"_s);
        QCOMPARE(entries(window).at(0)->data().toString(),
                 QFileInfo(window.m_path).canonicalFilePath());
        window.findChild<RecentFiles *>()->actions().constLast()->trigger();
        QVERIFY(entries(FakeWindow(*m_settings)).isEmpty());
    }

    void tellsTitle()
    {
        FakeWindow window(*m_settings);
        window.updateTitle();
        QCOMPARE(window.windowTitle(), "Untitled[*] \u2013 Program"_s);
        window.m_path = "/a/looks like the mark [*]%1.doc"_s;
        window.updateTitle();
        QCOMPARE(window.windowTitle(), "looks like the mark [*][*]%1.doc[*] \u2013 Program"_s);
    }

    void keepsLayout()
    {
        QRect geometry;
        QList<int> sizes;
        {
            FakeWindow window(*m_settings);
            window.show();
            QVERIFY(QTest::qWaitForWindowExposed(&window));
            window.setGeometry(120, 90, 700, 500);
            window.m_splitter->setSizes({500, 180});
            window.addToolBar(Qt::BottomToolBarArea, window.findChild<QToolBar *>());
            geometry = window.geometry();
            sizes = window.m_splitter->sizes();
            QAction *panel = window.m_windowMenu->actions().constLast();
            QCOMPARE(panel->text(), "Sprites"_s);
            panel->trigger();
            QVERIFY(!window.m_left->isVisible());
            window.close();
        }
        FakeWindow window(*m_settings);
        window.show();
        QVERIFY(QTest::qWaitForWindowExposed(&window));
        QCOMPARE(window.geometry(), geometry);
        QCOMPARE(window.toolBarArea(window.findChild<QToolBar *>()), Qt::BottomToolBarArea);
        const QAction *panel = window.m_windowMenu->actions().constLast();
        QVERIFY(!window.m_left->isVisible() && !panel->isChecked());
        window.m_left->show();
        QVERIFY(panel->isChecked());
        QTRY_COMPARE(window.m_splitter->sizes(), sizes);
    }

    void returnsFocusToDocument()
    {
        FakeWindow window(*m_settings);
        window.show();
        QApplication::setActiveWindow(&window);
        QVERIFY(QTest::qWaitForWindowActive(&window));
        window.m_line->setFocus();
        auto *button = qobject_cast<QToolButton *>(window.findChild<QToolBar *>()->widgetForAction(
            window.findChild<QAction *>("plain"_s)));
        QVERIFY(button);
        QTest::mouseClick(button, Qt::LeftButton);
        QCOMPARE(QApplication::focusWidget(), window.m_line);
        QCOMPARE(button->focusPolicy(), Qt::TabFocus);
        window.m_line->clearFocus();
        QTRY_COMPARE(QApplication::focusWidget(), window.m_splitter);
    }

    void actionsTellTheirShortcuts()
    {
        GAction action("Add &sprites && more..."_s);
        QCOMPARE(action.toolTip(), "Add sprites & more"_s);
        action.setShortcut(QKeySequence("Ctrl+B"_s));
        QCOMPARE(action.toolTip(), "Add sprites & more (Ctrl+B)"_s);
        action.setText("Add"_s);
        QCOMPARE(action.toolTip(), "Add (Ctrl+B)"_s);
    }

    void helpsOnce()
    {
        FakeWindow window(*m_settings);
        window.show();
        const auto open = [&window](const QString &name) {
            for (QAction *action : window.findChildren<GAction *>()) {
                if (plainActionText(action->text()) == name)
                    action->trigger();
            }
        };
        open("Keyboard Shortcuts"_s);
        open("Keyboard Shortcuts"_s);
        const auto dialogs = window.findChildren<QDialog *>();
        QCOMPARE(dialogs.size(), 1);
        auto *list = dialogs.constFirst()->findChild<QTreeWidget *>();
        const auto shown = [list] {
            QStringList rows;
            for (QTreeWidgetItemIterator row(list, QTreeWidgetItemIterator::NotHidden); *row; ++row)
                rows.append(((*row)->text(0) + QLatin1Char(' ') + (*row)->text(1)).trimmed());
            return rows.join(QLatin1Char('|'));
        };
        QVERIFY(shown().contains("|View|Zoom Wheel"_s));
        QTest::keyClicks(dialogs.constFirst()->findChild<QLineEdit *>(), "ctrl+"_s);
        QCOMPARE(shown(),
                 "File|New Ctrl+N|Open Ctrl+O|Save Ctrl+S|Save As Ctrl+Shift+S|"
                 "Close Ctrl+W|Quit Ctrl+Q|Window|Minimise Ctrl+M"_s);
        QTest::keyClick(dialogs.constFirst(), Qt::Key_Escape);
        QTRY_VERIFY(window.findChildren<QDialog *>().isEmpty());

        open("System Information"_s);
        for (QPushButton *button : window.findChildren<QPushButton *>()) {
            if (button->text() == QLatin1String("Copy"))
                button->click();
        }
        const QString text = QGuiApplication::clipboard()->text();
        QVERIFY(text.contains(QLatin1String(qVersion())) &&
                text.contains(QLatin1String("Graphics: none")));
    }

private:
    QString file(const QString &name) const { return m_folder.path(name); }

    Folder m_folder;
    std::unique_ptr<GSettings> m_settings;
};

QTEST_MAIN(TestGMainWindow)
#include "tst_GMainWindow.moc"
