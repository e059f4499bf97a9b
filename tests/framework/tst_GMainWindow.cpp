#include "base/GSettings.h"
#include "framework/GAction.h"
#include "framework/GMainWindow.h"
#include "framework/RecentFiles.h"

#include <QApplication>
#include <QClipboard>
#include <QDialog>
#include <QDir>
#include <QFileDialog>
#include <QLineEdit>
#include <QMenu>
#include <QMenuBar>
#include <QMessageBox>
#include <QPushButton>
#include <QScreen>
#include <QSplitter>
#include <QTemporaryDir>
#include <QTest>
#include <QTimer>
#include <QToolBar>
#include <QToolButton>
#include <QTreeWidget>

#include <functional>

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
    int m_stored = 0;
    int m_created = 0;
    int m_loaded = 0;
    QMenu *m_file;
    QMenu *m_windowMenu;
    QLineEdit *m_line;
    QWidget *m_left;
    QSplitter *m_splitter;

protected:
    void createDocument() override
    {
        ++m_created;
        become({});
    }
    bool loadDocument(const QString &path) override
    {
        if (!QFile::exists(path))
            return false;
        ++m_loaded;
        become(path);
        return true;
    }
    bool storeDocument(const QString &path) override
    {
        if (m_failsToStore)
            return false;
        ++m_stored;
        become(path);
        QFile file(path);
        return file.open(QIODevice::WriteOnly);
    }
    QString documentPath() const override { return m_path; }
    bool isDocumentModified() const override { return m_isModified; }
    QString systemInformation() const override { return QStringLiteral("Graphics: none"); }

private:
    void become(const QString &path)
    {
        m_path = path;
        m_isModified = false;
    }
};

/// Calls each of @p steps with the modal dialog that is open then, one after another.
class ModalDriver : public QObject
{
public:
    using Step = std::function<void(QDialog &)>;

    explicit ModalDriver(QList<Step> steps)
        : m_steps(std::move(steps))
    {
        connect(&m_timer, &QTimer::timeout, this, &ModalDriver::look);
        m_timer.start(5);
    }
    bool isDone() const { return m_steps.isEmpty(); }

private:
    void look()
    {
        auto *dialog = qobject_cast<QDialog *>(QApplication::activeModalWidget());
        if (!dialog || dialog == m_last || !dialog->isVisible())
            return;
        m_last = dialog;
        // A dialog too many is closed, so that nothing waits for ever.
        const Step step = m_steps.isEmpty() ? [](QDialog &d) { d.reject(); } : m_steps.takeFirst();
        step(*dialog);
    }

    QList<Step> m_steps;
    QTimer m_timer;
    QPointer<QDialog> m_last;
};

ModalDriver::Step answer(QMessageBox::StandardButton button, const QString &part = {})
{
    return [button, part](QDialog &dialog) {
        auto *box = qobject_cast<QMessageBox *>(&dialog);
        QVERIFY(box && box->text().contains(part));
        QTest::mouseClick(box->button(button), Qt::LeftButton);
    };
}

void replace(QDialog &dialog)
{
    auto *box = qobject_cast<QMessageBox *>(&dialog);
    QVERIFY(box);
    for (QAbstractButton *button : box->buttons()) {
        if (box->buttonRole(button) == QMessageBox::AcceptRole)
            return QTest::mouseClick(button, Qt::LeftButton);
    }
}

ModalDriver::Step choose(const QString &path)
{
    return [path](QDialog &dialog) {
        auto *edit = dialog.findChild<QLineEdit *>(QStringLiteral("fileNameEdit"));
        QVERIFY(edit);
        edit->setText(path);
        QTest::keyClick(edit, Qt::Key_Return);
    };
}

void cancel(QDialog &dialog)
{
    dialog.reject();
}

} // namespace

Q_DECLARE_METATYPE(QMessageBox::StandardButton)
Q_DECLARE_METATYPE(QList<ModalDriver::Step>)

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
    void tellsTitle_data();
    void tellsTitle();
    void keepsLayout();
    void comesBackOnScreen();
    void returnsFocusToDocument();
    void actionsTellTheirShortcuts();
    void helpsOnce();

private:
    QString file(const QString &name) const { return m_folder->filePath(name); }
    QString createFile(const QString &name) const
    {
        QFile created(file(name));
        return created.open(QIODevice::WriteOnly) ? created.fileName() : QString();
    }

    std::unique_ptr<QTemporaryDir> m_folder;
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
    m_folder = std::make_unique<QTemporaryDir>();
    m_settings = std::make_unique<GSettings>();
    m_settings->setValue(QStringLiteral("documentFolder"), m_folder->path());
}

void TestGMainWindow::asksForUnsavedChanges_data()
{
    QTest::addColumn<QString>("command");
    QTest::addColumn<QMessageBox::StandardButton>("button");
    QTest::addColumn<bool>("fails");
    QTest::addColumn<bool>("goesOn");
    for (const char *command : {"close", "new", "open"}) {
        const QString name = QLatin1String(command);
        QTest::addRow("%s, save", command) << name << QMessageBox::Save << false << true;
        QTest::addRow("%s, save fails", command) << name << QMessageBox::Save << true << false;
        QTest::addRow("%s, discard", command) << name << QMessageBox::Discard << true << true;
        QTest::addRow("%s, cancel", command) << name << QMessageBox::Cancel << false << false;
    }
}

void TestGMainWindow::asksForUnsavedChanges()
{
    QFETCH(QString, command);
    QFETCH(QMessageBox::StandardButton, button);
    QFETCH(bool, fails);
    QFETCH(bool, goesOn);
    FakeWindow window(*m_settings);
    window.show();
    window.m_path = file(QStringLiteral("mine.doc"));
    window.m_isModified = true;
    window.m_failsToStore = fails;
    const QString other = createFile(QStringLiteral("other.doc"));
    const ModalDriver driver({answer(button, QStringLiteral("mine.doc"))});
    if (command == QLatin1String("close"))
        window.close();
    else if (command == QLatin1String("new"))
        window.newDocument();
    else
        QCOMPARE(window.openPath(other), goesOn);
    QVERIFY(driver.isDone());
    QCOMPARE(window.isVisible(), command != QLatin1String("close") || !goesOn);
    QCOMPARE(window.m_created, command == QLatin1String("new") && goesOn ? 1 : 0);
    QCOMPARE(window.m_loaded, command == QLatin1String("open") && goesOn ? 1 : 0);
    QCOMPARE(window.m_stored, button == QMessageBox::Save && !fails ? 1 : 0);
    QCOMPARE(window.m_isModified, !goesOn || (command == QLatin1String("close") && fails));
}

void TestGMainWindow::savesUnderChosenName_data()
{
    using Steps = QList<ModalDriver::Step>;
    QTest::addColumn<QString>("typed");
    QTest::addColumn<Steps>("further");
    QTest::addColumn<QString>("saved");
    QTest::newRow("suffix is added")
        << QStringLiteral("hero") << Steps() << QStringLiteral("hero.doc");
    QTest::newRow("former suffix stays")
        << QStringLiteral("hero.old") << Steps() << QStringLiteral("hero.old");
    QTest::newRow("suffix of another kind is a part of the name")
        << QStringLiteral("hero 1.5") << Steps() << QStringLiteral("hero 1.5.doc");
    QTest::newRow("existing name with suffix is replaced")
        << QStringLiteral("there") << Steps{replace} << QStringLiteral("there.doc");
    QTest::newRow("refused, another one is chosen")
        << QStringLiteral("there") << Steps{answer(QMessageBox::Cancel), cancel} << QString();
    QTest::newRow("no name") << QString() << Steps() << QString();
}

void TestGMainWindow::savesUnderChosenName()
{
    QFETCH(QString, typed);
    QFETCH(QList<ModalDriver::Step>, further);
    QFETCH(QString, saved);
    createFile(QStringLiteral("there.doc"));
    FakeWindow window(*m_settings);
    window.m_isModified = true;
    window.updateTitle();
    further.prepend(typed.isEmpty() ? ModalDriver::Step(cancel) : choose(file(typed)));
    const ModalDriver driver(further);
    QCOMPARE(window.save(), !saved.isEmpty());
    QVERIFY(driver.isDone());
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
            QVERIFY(window.openPath(createFile(QStringLiteral("%1&.doc").arg(i))));
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

void TestGMainWindow::tellsTitle_data()
{
    QTest::addColumn<QString>("path");
    QTest::addColumn<QString>("title");
    QTest::newRow("new") << QString() << QStringLiteral("Untitled[*] \u2013 Program");
    QTest::newRow("saved") << QStringLiteral("/a/b.doc")
                           << QStringLiteral("b.doc[*] \u2013 Program");
    QTest::newRow("looks like the mark")
        << QStringLiteral("/a/b[*]%1.doc") << QStringLiteral("b[*][*]%1.doc[*] \u2013 Program");
}

void TestGMainWindow::tellsTitle()
{
    QFETCH(QString, path);
    QFETCH(QString, title);
    FakeWindow window(*m_settings);
    for (const bool isModified : {false, true}) {
        window.m_path = path;
        window.m_isModified = isModified;
        window.updateTitle();
        QCOMPARE(window.windowTitle(), title);
        QCOMPARE(window.isWindowModified(), isModified);
    }
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

void TestGMainWindow::comesBackOnScreen()
{
    {
        FakeWindow window(*m_settings);
        window.setGeometry(9000, 9000, 700, 500);
        window.show();
        window.setGeometry(9000, 9000, 700, 500);
        window.close();
    }
    const FakeWindow window(*m_settings);
    QVERIFY(QGuiApplication::primaryScreen()->geometry().contains(window.geometry().topLeft()));
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

    const FakeWindow window(*m_settings);
    QStringList keys;
    for (const QAction *action : window.m_file->actions())
        keys.append(action->shortcut().toString());
    keys.removeAll(QString());
    QCOMPARE(keys.join(QLatin1Char(' ')),
             QStringLiteral("Ctrl+N Ctrl+O Ctrl+S Ctrl+Shift+S %1 Ctrl+Q")
                 .arg(QKeySequence(QKeySequence::Close).toString()));
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
            rows.append((*row)->text(0));
        return rows;
    };
    QVERIFY(shown().contains(QStringLiteral("Wheel")));
    QTest::keyClicks(dialogs.constFirst()->findChild<QLineEdit *>(), QStringLiteral("ctrl+s"));
    QCOMPARE(
        shown(),
        QStringList({QStringLiteral("File"), QStringLiteral("Save"), QStringLiteral("Save As")}));
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
