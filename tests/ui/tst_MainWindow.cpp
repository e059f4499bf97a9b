#include "base/GSettings.h"
#include "base/Resources.h"
#include "framework/GApplication.h"
#include "framework/RecentFiles.h"
#include "model/Project.h"
#include "model/Sprite.h"
#include "model/properties/PropertyT.h"
#include "preview/GLGraphicsLight.h"
#include "preview/NormalMapEditorScene.h"
#include "support/DialogScript.h"
#include "support/Documents.h"
#include "ui/MainWindow.h"
#include "ui/NormalMapEditor.h"
#include "ui/ShapeTreeView.h"
#include "ui/SpritesSidebar.h"
#include "ui/ToolsSidebar.h"

#include <QAbstractButton>
#include <QAccessible>
#include <QAction>
#include <QComboBox>
#include <QDesktopServices>
#include <QDropEvent>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QMenu>
#include <QMenuBar>
#include <QMimeData>
#include <QSettings>
#include <QSlider>
#include <QTest>
#include <QToolBar>
#include <QUrl>

#include <cmath>

namespace {
QString operator""_s(const char *text, std::size_t size)
{
    return QString::fromUtf8(text, int(size));
}

// The window of a test with what a test asks it for.
class TestedWindow : public MainWindow
{
public:
    using MainWindow::documentPath;
    using MainWindow::isDocumentModified;
    using MainWindow::MainWindow;
};
} // namespace

class TestMainWindow : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase()
    {
        initialiseResources();
        QCoreApplication::setAttribute(Qt::AA_DontUseNativeDialogs);
    }

    void init()
    {
        m_folder = Folder();
        application().settings().clear();
        openWindow();
    }

    void cleanup() { m_window.reset(); }

    void startsEmptyWithNothingToExport()
    {
        QCOMPARE(enabled({"Export normals"_s,
                          "Export normals as..."_s,
                          "Export lit sprite"_s,
                          "Remove sprites"_s,
                          "Undo"_s,
                          "Save As..."_s}),
                 (QVector<bool>{false, false, false, true, false, true}));
        const auto menus = m_window->menuBar()->actions();
        QStringList titles;
        for (const QAction *menu : menus)
            titles.append(menu->text());
        QCOMPARE(titles.mid(0, 4) << titles.last(),
                 (QStringList{"&File"_s, "&Edit"_s, "&Draw"_s, "&View"_s, "&Help"_s}));
        const auto *bar = m_window->findChild<QToolBar *>();
        QStringList tools;
        for (const QAction *action : bar->actions()) {
            if (!action->isSeparator() && !action->text().isEmpty())
                tools.append(plain(action->text()));
        }
        QCOMPARE(tools.mid(1, 7),
                 (QStringList{"Save"_s,
                              "Add sprites..."_s,
                              "Remove sprites"_s,
                              "Undo"_s,
                              "Redo"_s,
                              "Export normals"_s,
                              "Export lit sprite"_s}));
        QCOMPARE(tools.last(), "Send feedback..."_s);
        QVERIFY(!m_window->isDocumentModified());
    }

    void droppedSpritesAreAddedAsOneStepAndSelected()
    {
        m_folder.writeSprite("sprites/a.png"_s, {20, 10});
        m_folder.writeSprite("sprites/deep/b.png"_s, {12, 12});
        m_folder.writeSprite("c.png"_s, {8, 8});
        drop({m_folder.path("sprites"_s), m_folder.path("c.png"_s)});
        QCOMPARE(names(), (QStringList{"a"_s, "b"_s, "c"_s}));
        QCOMPARE(m_window->findChild<ShapeTreeView *>()->selectionModel()->selectedRows().size(),
                 3);
        QVERIFY(m_window->isDocumentModified());
        QCOMPARE(enabled({"Export normals"_s, "Export lit sprite"_s}),
                 (QVector<bool>{true, false}));
        trigger("Undo"_s);
        trigger("Undo"_s);
        QCOMPARE(names(), QStringList());
        QVERIFY(!m_window->isDocumentModified());
        QCOMPARE(enabled({"Export normals"_s}), (QVector<bool>{false}));
    }

    void unreadableFilesAreNamedAndTheOthersAdded()
    {
        m_folder.writeSprite("good.png"_s, {4, 4});
        m_folder.write("bad.png"_s, "no picture");
        DialogScript script;
        script.then(DialogScript::click("OK"_s));
        drop({m_folder.path("good.png"_s), m_folder.path("bad.png"_s)});
        QVERIFY(script.isDone());
        QVERIFY(script.seen().first().contains("Failed to add following files:"_s));
        QVERIFY(script.seen().first().contains(m_folder.path("bad.png"_s)));
        QCOMPARE(names(), QStringList{"good"_s});
    }

    void removesRenamesAndSelectsByKeys()
    {
        addSprites({"a.png"_s, "b.png"_s});
        auto *list = m_window->findChild<ShapeTreeView *>();
        list->setFocus();
        QTest::keyClick(list, Qt::Key_A, Qt::ControlModifier);
        QCOMPARE(list->selectionModel()->selectedRows().size(), 2);
        clickRow(1);
        QTest::keyClick(list, Qt::Key_F2);
        auto *edit = qobject_cast<QLineEdit *>(QApplication::focusWidget());
        QVERIFY(edit);
        edit->selectAll();
        QTest::keyClicks(edit, "moon"_s);
        QTest::keyClick(edit, Qt::Key_Return);
        QTRY_COMPARE(names(), (QStringList{"a"_s, "moon"_s}));
        QVERIFY(action("Undo"_s, "&Edit"_s)->text().contains("rename body"_s));
        QTest::keyClick(list, Qt::Key_Delete);
        QCOMPARE(names(), QStringList{"a"_s});
        trigger("Undo"_s);
        QCOMPARE(names(), (QStringList{"a"_s, "moon"_s}));
    }

    void displayModesFollowMenuKeysAndPanels()
    {
        auto &scene = m_window->findChild<NormalMapEditor *>()->scene();
        QCOMPARE(scene.displayMode(), DisplayMode::LitTexture);
        const DisplayMode modes[] = {DisplayMode::Texture,
                                     DisplayMode::LitSurface,
                                     DisplayMode::LitTexture,
                                     DisplayMode::NormalMap};
        for (int i = 0; i < 4; ++i) {
            QTest::keyClick(m_window.get(), Qt::Key(Qt::Key_1 + i), Qt::AltModifier);
            QCOMPARE(scene.displayMode(), modes[i]);
            QCOMPARE(scene.light().isVisible(), i == 1 || i == 2);
        }
    }

    void lightSettingsAreUndoableAndReachTheScene()
    {
        auto &scene = m_window->findChild<NormalMapEditor *>()->scene();
        auto *sidebar = m_window->findChild<SpritesSidebar *>();
        QSlider *height = nullptr;
        const auto sliders = sidebar->findChildren<QSlider *>();
        for (QSlider *slider : sliders) {
            if (slider->isVisible() && !height)
                height = slider;
        }
        QVERIFY(height);
        height->setFocus();
        QTest::keyClick(height, Qt::Key_End);
        QCOMPARE(scene.light().position().z(), 1024.0F);
        QVERIFY(m_window->isDocumentModified());
        trigger("Undo"_s);
        QCOMPARE(scene.light().position().z(), 32.0F);
    }

    void savesClosesAndReopens()
    {
        addSprites({"a.png"_s});
        const QString path = m_folder.path("game"_s);
        DialogScript script;
        script.then(DialogScript::chooseFile(path));
        trigger("Save As..."_s);
        QVERIFY(script.isDone());
        QCOMPARE(m_window->documentPath(), path + ".vep"_s);
        QVERIFY(!m_window->isWindowModified());
        QVERIFY(m_window->windowTitle().startsWith("game.vep"_s));

        addSprites({"b.png"_s});
        QVERIFY(m_window->isWindowModified());
        script.then(DialogScript::click("Cancel"_s));
        QVERIFY(!m_window->close());
        script.then(DialogScript::click("Discard"_s));
        QVERIFY(m_window->close());
        QVERIFY(script.isDone());

        openWindow();
        QVERIFY(m_window->openPath(path + ".vep"_s));
        QCOMPARE(names(), QStringList{"a"_s});
        QVERIFY(!m_window->isDocumentModified());
        QCOMPARE(enabled({"Undo"_s, "Export lit sprite"_s}), (QVector<bool>{false, true}));
        const auto *recent = m_window->findChild<RecentFiles *>();
        QVERIFY(recent->actions().first()->text().contains("game.vep"_s));
    }

    void whatIsBeingTypedIsSavedOrAskedFor()
    {
        addSprites({"a.png"_s});
        DialogScript script;
        script.then(DialogScript::chooseFile(m_folder.path("p.vep"_s)));
        trigger("Save As..."_s);
        const auto typeName = [this](const QString &name) {
            clickRow(0);
            QTest::keyClick(m_window->findChild<ShapeTreeView *>(), Qt::Key_F2);
            QTest::keyClicks(QApplication::focusWidget(), name);
        };
        typeName("moon"_s);
        QTest::keyClick(QApplication::focusWidget(), Qt::Key_S, Qt::ControlModifier);
        QCOMPARE(names(), QStringList{"moon"_s});
        QVERIFY(!m_window->isDocumentModified());
        typeName("star"_s);
        script.then(DialogScript::click("Cancel"_s));
        QVERIFY(!m_window->close());
        QVERIFY(script.isDone());
        QCOMPARE(names(), QStringList{"star"_s});
    }

    void projectsOfTheFormerFormatAreSavedAnew()
    {
        const QString obsolete = m_folder.path("old.vex"_s);
        const QString path = m_folder.path("new.vep"_s);
        DialogScript script;
        script.then(DialogScript::chooseFile(obsolete))
            .then(DialogScript::click("OK"_s))
            .then(DialogScript::chooseFile(path));
        trigger("Save As..."_s);
        QVERIFY(script.isDone());
        QVERIFY(script.seen()[1].startsWith("File format change|'.vex' file"_s));
        QVERIFY(!QFile::exists(obsolete));
        QVERIFY(QFile::exists(path));
    }

    void aBrokenProjectLeavesTheOneThatIsOpen()
    {
        addSprites({"a.png"_s});
        const QString broken = m_folder.write("broken.vep"_s, "no archive");
        DialogScript script;
        script.then(DialogScript::click("Discard"_s)).then(DialogScript::click("OK"_s));
        QVERIFY(!m_window->openPath(broken));
        QVERIFY(script.isDone());
        QVERIFY(script.seen()[1].startsWith("Error|Failed to load"_s));
        QCOMPARE(names(), QStringList{"a"_s});
    }

    void publishDialogAsksUntilTheSpritesAreSafe()
    {
        addSprites({"a.png"_s});
        DialogScript script;
        const auto clear = [](QWidget &dialog) {
            const auto edits = dialog.findChildren<QLineEdit *>();
            for (QLineEdit *edit : edits)
                edit->clear();
            DialogScript::click("OK"_s)(dialog);
        };
        script.then(clear)
            .then(DialogScript::click("Back"_s))
            .then(DialogScript::click("Cancel"_s));
        trigger("Export normals"_s);
        QVERIFY(script.isDone());
        QCOMPARE(QDir(m_folder.path(QString())).entryList(QDir::Files), QStringList{"a.png"_s});

        script.then(DialogScript::click("OK"_s)).then(DialogScript::click("OK"_s));
        trigger("Export normals"_s);
        QVERIFY(script.isDone());
        QCOMPARE(script.seen().last(), "|Exported 1 normal maps|to sprite directory"_s);
        const QImage map(m_folder.path("a_n.png"_s));
        QCOMPARE(map.pixel(0, 0), 0xFF7F7FFFU);
        QCOMPARE(project().publishNormalmapPostfix().value(), "_n"_s);

        // The settings are known now: no dialog, but the report.
        project().publishDirectory().setValue(GFileName(m_folder.path("maps/deep"_s)));
        script.then(DialogScript::click("OK"_s));
        trigger("Export normals"_s);
        QVERIFY(script.isDone());
        QVERIFY(script.seen().last().endsWith("|to "_s + m_folder.path("maps/deep"_s)));
        QVERIFY(QFile::exists(m_folder.path("maps/deep/a_n.png"_s)));
    }

    void exportsALitSpriteBesideTheSprite()
    {
        addSprites({"hero.png"_s});
        DialogScript script;
        QString proposed;
        script.then([&](QWidget &dialog) {
            proposed = dialog.findChild<QLineEdit *>("fileNameEdit"_s)->text();
            QMetaObject::invokeMethod(&dialog, "accept");
        });
        trigger("Export lit sprite"_s);
        QVERIFY(script.isDone());
        QVERIFY(proposed.endsWith("hero_lit.png"_s));
        QCOMPARE(QImage(m_folder.path("hero_lit.png"_s)).size(), QSize(16, 16));

        script.then(DialogScript::chooseFile(m_folder.path("named"_s)));
        trigger("Export lit sprite"_s);
        QVERIFY(QFile::exists(m_folder.path("named.png"_s)));

        script.then(DialogScript::chooseFile(m_folder.path("lit.unknown"_s)))
            .then(DialogScript::click("Close"_s));
        trigger("Export lit sprite"_s);
        QVERIFY(script.isDone());
        QCOMPARE(script.seen().last(),
                 "Error|Export to '%1' failed!|"_s.arg(m_folder.path("lit.unknown"_s)));
    }

    void preferencesAreKeptAndTakeEffectAtOnce()
    {
        DialogScript script;
        script.then([this](QWidget &dialog) {
            auto *patterns = dialog.findChild<QLineEdit *>();
            patterns->setFocus();
            QTest::keyClicks(patterns, m_folder.path(QString()));
            auto *theme = dialog.findChild<QComboBox *>();
            theme->setCurrentIndex(theme->findData(int(ThemeChoice::Light)));
            DialogScript::click("OK"_s)(dialog);
        });
        trigger("Preferences..."_s);
        QVERIFY(script.isDone());
        QCOMPARE(QDir(application().settings().value("patterns"_s).toString()),
                 QDir(m_folder.path(QString())));
        QCOMPARE(application().theme(), ThemeChoice::Light);
        QVERIFY(m_window->palette().color(QPalette::Window).lightness() > 200);
        application().setTheme(ThemeChoice::Dark);
        QVERIFY(m_window->palette().color(QPalette::Window).lightness() < 60);
    }

    void missingMovedAndResizedSpritesAreAskedFor()
    {
        addSprites({"gone.png"_s, "moved.png"_s, "grown.png"_s});
        const QString path = m_folder.path("p.vep"_s);
        DialogScript script;
        script.then(DialogScript::chooseFile(path));
        trigger("Save As..."_s);
        QFile::remove(m_folder.path("gone.png"_s));
        QDir().mkdir(m_folder.path("else"_s));
        QFile::rename(m_folder.path("moved.png"_s), m_folder.path("else/moved.png"_s));
        m_folder.writeSprite("grown.png"_s, {40, 30});

        script.then(DialogScript::click("Search..."_s))
            .then(DialogScript::chooseFile(m_folder.path("else"_s)))
            .then(DialogScript::click("Remove from project"_s))
            .then(DialogScript::click("Clear normal map"_s))
            .then(DialogScript::click("Continue"_s));
        QVERIFY(m_window->openPath(path));
        QVERIFY(script.isDone());
        QCOMPARE(script.seen().mid(1),
                 (QStringList{"Textures not found"_s,
                              "Select search path"_s,
                              "Textures not found"_s,
                              "Size conflict"_s,
                              "Summary"_s}));
        QCOMPARE(names(), (QStringList{"moved"_s, "grown"_s}));
        QCOMPARE(body(1).paintedSize(), QSize(40, 30));
        QVERIFY(m_window->isDocumentModified());
    }

    void tabFollowsTheEyeThroughPanelsMadeAnew()
    {
        addSprites({"a.png"_s, "b.png"_s});
        clickRow(1);
        QStringList names;
        for (int i = 0; i < 12; ++i) {
            QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
            names.append(QApplication::focusWidget()->accessibleName());
        }
        QCOMPARE(names.join(QLatin1Char(',')),
                 "Name,Image,Choose Image,Texture,Lit surface,Lit texture,Normal map,"
                 "Z position,Brightness,Light color,Ambient light,"_s);
    }

    void everythingIsNamedAndReadable_data()
    {
        QTest::addColumn<int>("theme");
        QTest::newRow("dark") << int(ThemeChoice::Dark);
        QTest::newRow("light") << int(ThemeChoice::Light);
    }

    void everythingIsNamedAndReadable()
    {
        QFETCH(const int, theme);
        application().setTheme(ThemeChoice(theme));
        addSprites({"a.png"_s});
        QStringList faults = faultsOf(*m_window);
        DialogScript script;
        for (const QString &dialog :
             {"Preferences..."_s, "Export normals as..."_s, "Send feedback..."_s}) {
            script.then([&](QWidget &shown) {
                faults += faultsOf(shown);
                shown.close();
            });
            trigger(dialog);
        }
        QVERIFY(script.isDone());
        QCOMPARE(faults.join(QLatin1Char('\n')), QString());
    }

private:
    static GApplication &application() { return *static_cast<GApplication *>(qApp); }
    static QString plain(QString text) { return text.remove(QLatin1Char('&')); }

    // How well the text of @p widget, which shows one colour on another, can be read: the contrast
    // of the most frequent colour to the one that differs most from it.
    static double contrastOf(const QWidget &widget, const QImage &window)
    {
        const auto luminance = [](QRgb color) {
            const auto part = [](int value) { return std::pow(value / 255.0, 2.2); };
            return 0.2126 * part(qRed(color)) + 0.7152 * part(qGreen(color)) +
                   0.0722 * part(qBlue(color));
        };
        const QRect place(widget.mapTo(widget.window(), QPoint()), widget.size());
        const QImage image = window.copy(place).convertToFormat(QImage::Format_RGB32);
        QHash<QRgb, int> counts;
        QRgb ground = 0;
        for (int y = 0; y < image.height(); ++y) {
            for (int x = 0; x < image.width(); ++x) {
                if (++counts[image.pixel(x, y)] > counts.value(ground))
                    ground = image.pixel(x, y);
            }
        }
        double best = 1.0;
        for (auto color = counts.keyBegin(); color != counts.keyEnd(); ++color) {
            const double one = luminance(*color) + 0.05, other = luminance(ground) + 0.05;
            best = std::max({best, one / other, other / one});
        }
        return best;
    }

    // What can be focused without a name, and texts of too little contrast.
    static QStringList faultsOf(QWidget &window)
    {
        QStringList faults;
        const QImage image = window.grab().toImage();
        const auto widgets = window.findChildren<QWidget *>();
        for (QWidget *widget : widgets) {
            const auto *interface = QAccessible::queryAccessibleInterface(widget);
            if (!widget->isVisible() || !interface)
                continue;
            const QString name = interface->text(QAccessible::Name);
            const QString kind = QString::fromLatin1(widget->metaObject()->className());
            if (name.isEmpty() && !widget->focusProxy() && (widget->focusPolicy() & Qt::TabFocus))
                faults.append("no name: "_s + kind);
            const auto *label = qobject_cast<QLabel *>(widget);
            const auto *button = qobject_cast<QAbstractButton *>(widget);
            const bool hasText =
                (label && !label->text().isEmpty()) || (button && !button->text().isEmpty());
            if (!hasText || !widget->isEnabled() || widget->visibleRegion().isEmpty())
                continue;
            const double contrast = contrastOf(*widget, image);
            if (contrast < 4.5)
                faults.append("contrast %1: %2 %3"_s.arg(contrast).arg(kind, name));
        }
        return faults;
    }

    void openWindow()
    {
        m_window = std::make_unique<TestedWindow>(application());
        m_window->show();
        QVERIFY(QTest::qWaitForWindowExposed(m_window.get()));
        m_window->activateWindow();
        QVERIFY(QTest::qWaitForWindowActive(m_window.get()));
    }

    Project &project() const { return m_window->project(); }
    Body &body(int index) const { return *project().bodies().all().at(index); }

    QStringList names() const
    {
        QStringList result;
        for (const Body *body : project().bodies().all())
            result.append(body->name().value());
        return result;
    }

    // The action of this text, mnemonics aside, in the menu, or anywhere; undo texts may follow.
    QAction *action(const QString &text, const QString &menu = {}) const
    {
        const QObject *place = m_window.get();
        QList<QAction *> actions = place->findChildren<QAction *>();
        if (!menu.isEmpty()) {
            for (const QAction *entry : m_window->menuBar()->actions()) {
                if (entry->text() == menu)
                    actions = entry->menu()->actions();
            }
        }
        for (QAction *candidate : std::as_const(actions)) {
            if (plain(candidate->text()) == text ||
                (!menu.isEmpty() && plain(candidate->text()).startsWith(text)))
                return candidate;
        }
        return nullptr;
    }

    void trigger(const QString &text) { action(text)->trigger(); }

    QVector<bool> enabled(const QStringList &texts) const
    {
        QVector<bool> result;
        for (const QString &text : texts)
            result.append(action(text)->isEnabled());
        return result;
    }

    void drop(const QStringList &paths)
    {
        QMimeData data;
        QList<QUrl> urls;
        for (const QString &path : paths)
            urls.append(QUrl::fromLocalFile(path));
        data.setUrls(urls);
        auto *editor = m_window->findChild<NormalMapEditor *>();
        QDragEnterEvent enter({50, 50}, Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
        QCoreApplication::sendEvent(editor, &enter);
        QVERIFY(enter.isAccepted());
        QDropEvent event(
            {50, 50}, Qt::CopyAction | Qt::MoveAction, &data, Qt::LeftButton, Qt::ShiftModifier);
        QCoreApplication::sendEvent(editor, &event);
        QCOMPARE(event.dropAction(), Qt::CopyAction); // else the sprites' files would go
    }

    void addSprites(const QStringList &fileNames)
    {
        QStringList paths;
        for (const QString &name : fileNames)
            paths.append(m_folder.writeSprite(name, {16, 16}));
        drop(paths);
    }

    void clickRow(int row)
    {
        auto *list = m_window->findChild<ShapeTreeView *>();
        const QRect place = list->visualRect(list->model()->index(row, 0));
        QTest::mouseClick(list->viewport(), Qt::LeftButton, Qt::NoModifier, place.center());
    }

    Folder m_folder;
    std::unique_ptr<TestedWindow> m_window;
};

int main(int argc, char **argv)
{
    const QTemporaryDir home;
    QSettings::setPath(QSettings::NativeFormat, QSettings::UserScope, home.path());
    GApplication::prepare();
    GApplication application(argc, argv);
    TestMainWindow test;
    return QTest::qExec(&test, argc, argv);
}

#include "tst_MainWindow.moc"
