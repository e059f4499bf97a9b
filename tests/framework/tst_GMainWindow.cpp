#include "base/GSettings.h"
#include "framework/GAction.h"
#include "framework/GMainWindow.h"
#include "framework/RecentFiles.h"
#include "support/DialogScript.h"
#include "support/Documents.h"

#include <QApplication>
#include <QClipboard>
#include <QDialog>
#include <QDir>
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

/// A window whose document is a name and a flag.
class FakeWindow : public GMainWindow
{
    Q_OBJECT

public:
    explicit FakeWindow(GSettings &settings)
        : GMainWindow(settings,
                      {QStringLiteral("Documents (*.doc *.old)"),
                       QStringLiteral("Documents (*.doc)"),
                       QStringLiteral("doc"),
                       QStringLiteral("Untitled")})
        , m_file(menuBar()->addMenu(QStringLiteral("&File")))
        , m_line(new QLineEdit)
        , m_left(new QWidget)
        , m_splitter(new QSplitter)
    {
        addDocumentActions(*m_file);
        addClosingActions(*m_file);
        m_left->setWindowTitle(QStringLiteral("Sprites"));
        m_left->setObjectName(QStringLiteral("sprites"));
        m_splitter->setObjectName(QStringLiteral("splitter"));
        m_splitter->addWidget(m_left);
        m_splitter->addWidget(m_line);
        m_splitter->setFocusPolicy(Qt::StrongFocus);
        setCentralWidget(m_splitter);
        QToolBar *bar = addToolBar(QStringLiteral("Toolbar"));
        bar->setObjectName(QStringLiteral("toolbar"));
        bar->addAction(QStringLiteral("Plain"))->setObjectName(QStringLiteral("plain"));
        m_windowMenu = createWindowMenu({m_left});
        menuBar()->addMenu(m_windowMenu);
        menuBar()->addMenu(createHelpMenu({}));
        setGestures({{QStringLiteral("Wheel"), QStringLiteral("Zoom")}});
        resize(640, 480);
        restoreLayout();
    }

    using GMainWindow::updateTitle;

    QString m_path;
    bool m_isModified = false;
    bool m_failsToStore = false;
    QStringList m_log;
    QMenu *m_file;
    QMenu *m_windowMenu;
    QLineEdit *m_line;
    QWidget *m_left;
    QSplitter *m_splitter;

protected:
    void createDocument() override { become(QStringLiteral("created"), {}); }
    bool loadDocument(const QString &path) override
    {
        if (QFile::exists(path))
            become(QStringLiteral("loaded"), path);
        return path == m_path;
    }
    bool storeDocument(const QString &path) override
    {
        if (!m_failsToStore)
            become(QStringLiteral("stored"), path);
        return !m_failsToStore && QFile(path).open(QIODevice::WriteOnly);
    }
    QString documentPath() const override { return m_path; }
    bool isDocumentModified() const override { return m_isModified; }
    QString systemInformation() const override { return QStringLiteral("Graphics: none"); }

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
    void initTestCase();
    void init();
    void asksForUnsavedChanges_data();
    void asksForUnsavedChanges();
    void savesUnderChosenName_data();
    void savesUnderChosenName();
    void remembersRecentFiles();
    void tellsTitle();
    void keepsLayout();
    void returnsFocusToDocument();
    void actionsTellTheirShortcuts();
    void helpsOnce();

private:
    QString file(const QString &name) const { return m_folder.path(name); }

    Folder m_folder;
    std::unique_ptr<GSettings> m_settings;
};

void TestGMainWindow::initTestCase()
{
    QCoreApplication::setAttribute(Qt::AA_DontUseNativeDialogs);
    QGuiApplication::setApplicationDisplayName(QStringLiteral("Program"));
    QGuiApplication::setQuitOnLastWindowClosed(false);
}

void TestGMainWindow::init()
{
    m_folder = Folder();
    m_settings = std::make_unique<GSettings>();
    m_settings->setValue(QStringLiteral("documentFolder"), file(QString()));
}

void TestGMainWindow::asksForUnsavedChanges_data()
{
    QTest::addColumn<QString>("button");
    QTest::addColumn<bool>("fails");
    QTest::addColumn<bool>("goesOn");
    QTest::newRow("save") << QStringLiteral("Save") << false << true;
    QTest::newRow("save fails") << QStringLiteral("Save") << true << false;
    QTest::newRow("discard") << QStringLiteral("Discard") << true << true;
    QTest::newRow("cancel") << QStringLiteral("Cancel") << false << false;
}

void TestGMainWindow::asksForUnsavedChanges()
{
    QFETCH(QString, button);
    QFETCH(bool, fails);
    QFETCH(bool, goesOn);
    const QString other = m_folder.write(QStringLiteral("other.doc"), {});
    for (const char *command : {"created", "loaded", "closed"}) {
        const QString event = QLatin1String(command);
        FakeWindow window(*m_settings);
        window.show();
        window.m_path = file(QStringLiteral("mine.doc"));
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
        QVERIFY(script.isDone() && script.seen().first().contains(QStringLiteral("mine.doc")));
        QStringList expected;
        if (goesOn && !fails)
            expected.append(QStringLiteral("stored"));
        if (goesOn)
            expected.append(event);
        QCOMPARE(window.m_log, expected);
    }
}

void TestGMainWindow::savesUnderChosenName_data()
{
    QTest::addColumn<QString>("typed");
    QTest::addColumn<QStringList>("clicks");
    QTest::addColumn<QString>("saved");
    const QStringList none;
    QTest::newRow("suffix is added")
        << QStringLiteral("hero") << none << QStringLiteral("hero.doc");
    QTest::newRow("former suffix stays")
        << QStringLiteral("hero.old") << none << QStringLiteral("hero.old");
    QTest::newRow("suffix of another kind is a part of the name")
        << QStringLiteral("hero 1.5") << none << QStringLiteral("hero 1.5.doc");
    QTest::newRow("existing name with suffix is replaced")
        << QStringLiteral("there") << QStringList{QStringLiteral("Replace")}
        << QStringLiteral("there.doc");
    QTest::newRow("refused, another one is chosen")
        << QStringLiteral("there")
        << QStringList{QStringLiteral("Cancel"), QStringLiteral("Cancel")} << QString();
}

void TestGMainWindow::savesUnderChosenName()
{
    QFETCH(QString, typed);
    QFETCH(QStringList, clicks);
    QFETCH(QString, saved);
    m_folder.write(QStringLiteral("there.doc"), {});
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

void TestGMainWindow::remembersRecentFiles()
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
            QVERIFY(window.openPath(m_folder.write(QStringLiteral("%1&.doc").arg(i), {})));
        // The same file by another path.
        QVERIFY(QFile::link(file(QStringLiteral("5&.doc")), file(QStringLiteral("link.doc"))));
        QVERIFY(window.openPath(file(QStringLiteral("link.doc"))));
        QVERIFY(!window.openPath(file(QStringLiteral("never.doc"))));
    }
    QVERIFY(QFile::remove(file(QStringLiteral("10&.doc"))));
    FakeWindow window(*m_settings);
    const QList<QAction *> actions = entries(window);
    QStringList names;
    for (const QAction *action : actions)
        names.append(QFileInfo(action->data().toString()).completeBaseName());
    QCOMPARE(names.join(QLatin1Char(' ')), QStringLiteral("5& 11& 10& 9& 8& 7& 6& 4& 3& 2&"));
    QVERIFY(actions.at(0)->text().startsWith(QStringLiteral("&1  5&&.doc")));
    QVERIFY(!actions.at(2)->isEnabled());
    actions.at(1)->trigger();
    QCOMPARE(QFileInfo(window.m_path).fileName(), QStringLiteral("11&.doc"));
    QCOMPARE(entries(window).at(0)->data().toString(),
             QFileInfo(window.m_path).canonicalFilePath());
    window.findChild<RecentFiles *>()->actions().constLast()->trigger();
    QVERIFY(entries(FakeWindow(*m_settings)).isEmpty());
}

void TestGMainWindow::tellsTitle()
{
    FakeWindow window(*m_settings);
    window.updateTitle();
    QCOMPARE(window.windowTitle(), QStringLiteral("Untitled[*] \u2013 Program"));
    window.m_path = QStringLiteral("/a/looks like the mark [*]%1.doc");
    window.updateTitle();
    QCOMPARE(window.windowTitle(),
             QStringLiteral("looks like the mark [*][*]%1.doc[*] \u2013 Program"));
}

void TestGMainWindow::keepsLayout()
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
        window.close();
    }
    {
        FakeWindow window(*m_settings);
        window.show();
        QVERIFY(QTest::qWaitForWindowExposed(&window));
        QCOMPARE(window.geometry(), geometry);
        QCOMPARE(window.m_splitter->sizes(), sizes);
        QCOMPARE(window.toolBarArea(window.findChild<QToolBar *>()), Qt::BottomToolBarArea);
        QAction *panel = window.m_windowMenu->actions().constLast();
        QCOMPARE(panel->text(), QStringLiteral("Sprites"));
        panel->trigger();
        QVERIFY(!window.m_left->isVisible());
        window.close();
    }
    FakeWindow window(*m_settings);
    window.show();
    QAction *panel = window.m_windowMenu->actions().constLast();
    QVERIFY(!window.m_left->isVisible() && !panel->isChecked());
    window.m_left->show();
    QVERIFY(panel->isChecked());
}

void TestGMainWindow::returnsFocusToDocument()
{
    FakeWindow window(*m_settings);
    window.show();
    QApplication::setActiveWindow(&window);
    QVERIFY(QTest::qWaitForWindowActive(&window));
    window.m_line->setFocus();
    auto *button = qobject_cast<QToolButton *>(window.findChild<QToolBar *>()->widgetForAction(
        window.findChild<QAction *>(QStringLiteral("plain"))));
    QVERIFY(button);
    QTest::mouseClick(button, Qt::LeftButton);
    QCOMPARE(QApplication::focusWidget(), window.m_line);
    QCOMPARE(button->focusPolicy(), Qt::TabFocus);
    window.m_line->clearFocus();
    QTRY_COMPARE(QApplication::focusWidget(), window.m_splitter);
}

void TestGMainWindow::actionsTellTheirShortcuts()
{
    GAction action(QStringLiteral("Add &sprites && more..."));
    QCOMPARE(action.toolTip(), QStringLiteral("Add sprites & more"));
    action.setShortcut(QKeySequence(QStringLiteral("Ctrl+B")));
    QCOMPARE(action.toolTip(), QStringLiteral("Add sprites & more (Ctrl+B)"));
    action.setHint(QStringLiteral("From files"));
    action.setText(QStringLiteral("Add"));
    QCOMPARE(action.toolTip(), QStringLiteral("Add (Ctrl+B)\nFrom files"));
}

void TestGMainWindow::helpsOnce()
{
    FakeWindow window(*m_settings);
    window.show();
    const auto open = [&window](const QString &name) {
        for (QAction *action : window.findChildren<GAction *>()) {
            if (plainActionText(action->text()) == name)
                action->trigger();
        }
    };
    open(QStringLiteral("Keyboard Shortcuts"));
    open(QStringLiteral("Keyboard Shortcuts"));
    const auto dialogs = window.findChildren<QDialog *>();
    QCOMPARE(dialogs.size(), 1);
    auto *list = dialogs.constFirst()->findChild<QTreeWidget *>();
    const auto shown = [list] {
        QStringList rows;
        for (QTreeWidgetItemIterator row(list, QTreeWidgetItemIterator::NotHidden); *row; ++row)
            rows.append(((*row)->text(0) + QLatin1Char(' ') + (*row)->text(1)).trimmed());
        return rows.join(QLatin1Char('|'));
    };
    QVERIFY(shown().contains(QStringLiteral("|Wheel Zoom")));
    QTest::keyClicks(dialogs.constFirst()->findChild<QLineEdit *>(), QStringLiteral("ctrl+"));
    QCOMPARE(shown(),
             QStringLiteral("File|New Ctrl+N|Open Ctrl+O|Save Ctrl+S|Save As Ctrl+Shift+S|"
                            "Close Ctrl+W|Quit Ctrl+Q|Window|Minimise Ctrl+M"));
    QTest::keyClick(dialogs.constFirst(), Qt::Key_Escape);
    QTRY_VERIFY(window.findChildren<QDialog *>().isEmpty());

    open(QStringLiteral("System Information"));
    for (QPushButton *button : window.findChildren<QPushButton *>()) {
        if (button->text() == QLatin1String("Copy"))
            button->click();
    }
    const QString text = QGuiApplication::clipboard()->text();
    QVERIFY(text.contains(QLatin1String(qVersion())) &&
            text.contains(QLatin1String("Graphics: none")));
}

QTEST_MAIN(TestGMainWindow)
#include "tst_GMainWindow.moc"
