#include "base/GSettings.h"
#include "base/Resources.h"
#include "framework/GApplication.h"
#include "framework/GIntEdit.h"
#include "model/Body.h"
#include "model/Project.h"
#include "model/PropertyAngleImage.h"
#include "model/Sprite.h"
#include "model/properties/PropertyT.h"
#include "preview/EditorGraphicsViewVesperine.h"
#include "preview/GLGraphicsLight.h"
#include "preview/NormalMapEditorScene.h"
#include "preview/SpriteItem.h"
#include "support/DialogScript.h"
#include "support/Documents.h"
#include "support/FakeTool.h"
#include "support/Gestures.h"
#include "support/Readability.h"
#include "support/Widgets.h"
#include "tools/PaintTool.h"
#include "ui/MainWindow.h"
#include "ui/NormalMapEditor.h"
#include "ui/ShapeTreeView.h"
#include "ui/ToolsSidebar.h"

#include <QAction>
#include <QComboBox>
#include <QDropEvent>
#include <QLineEdit>
#include <QMenuBar>
#include <QMimeData>
#include <QSettings>
#include <QShortcut>
#include <QSlider>
#include <QTest>
#include <QUrl>

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
        m_script = std::make_unique<DialogScript>();
        m_window = std::make_unique<MainWindow>(application());
        showActive(*m_window);
    }

    void cleanup()
    {
        m_window.reset();
        QVERIFY(m_script->isDone());
    }

    void droppedSpritesAreAddedAsOneStepAndSelected()
    {
        QCOMPARE(enabled({"Export normals"_s, "Export normals as..."_s, "Undo"_s}),
                 (QVector<bool>{false, false, false}));
        QVERIFY(!m_window->isWindowModified());
        m_folder.writeSprite("sprites/a.png"_s, {20, 10});
        m_folder.writeSprite("sprites/deep/b.png"_s, {12, 12});
        m_folder.writeSprite("c.png"_s, {8, 8});
        drop({m_folder.path("sprites"_s), m_folder.path("c.png"_s)});
        QCOMPARE(names(), (QStringList{"a"_s, "b"_s, "c"_s}));
        QCOMPARE(list().selectionModel()->selectedRows().size(), 3);
        QVERIFY(m_window->isWindowModified());
        QCOMPARE(enabled({"Export normals"_s, "Export lit sprite"_s}),
                 (QVector<bool>{true, false}));
        trigger("Undo"_s);
        trigger("Undo"_s);
        QCOMPARE(names(), QStringList());
        QVERIFY(!m_window->isWindowModified());
        QCOMPARE(enabled({"Export normals"_s}), (QVector<bool>{false}));
    }

    // Saving and the question whether to save come after the stroke that is still open.
    void openStrokesAreSavedAndAskedFor()
    {
        addSprites({"a.png"_s});
        const QString path = m_folder.path("open.vep"_s);
        trigger("Save As..."_s, {DialogScript::chooseFile(path)});
        FakeTool tool;
        tool.paints = true;
        scene().setTool(&tool);
        const Body &body = *project().bodies().all().first();
        scene().light().setPos(-300, -200);
        QTest::mousePress(view().viewport(), Qt::LeftButton, {}, onSprite());
        QVERIFY(!m_window->isWindowModified());
        QVERIFY(m_window->save());
        QVERIFY(!body.paintedNormalMap().angleImage().isNull());
        QVERIFY(!m_window->isWindowModified());
        project().undoStack().undo();
        QVERIFY(m_window->save());
        QTest::mousePress(view().viewport(), Qt::LeftButton, {}, onSprite());
        m_script->then(DialogScript::click("Cancel"_s));
        QVERIFY(!m_window->close());
        QCOMPARE(project().undoStack().undoText(), "stroke"_s);
        scene().setTool(nullptr);
    }

    // Held for a tool or the wheel over the view, Alt is not for the menu bar.
    void altStaysWithTheView()
    {
        addSprites({"a.png"_s});
        view().setFocus();
        const auto pressAlt = [this](const QPoint &place) {
            QTest::mouseMove(view().viewport(), place);
            QTest::qWait(20);
            QTest::keyClick(m_window->windowHandle(), Qt::Key_Alt, Qt::NoModifier);
            QCoreApplication::processEvents();
        };
        pressAlt(onSprite());
        QVERIFY(view().hasFocus());
        FakeTool tool;
        scene().setTool(&tool);
        tool.takeLog();
        QTest::keyClick(m_window->windowHandle(), Qt::Key_Alt);
        for (const Qt::Key key : {Qt::Key_Backspace, Qt::Key_Escape})
            QTest::keyClick(m_window->windowHandle(), key);
        QCOMPARE(tool.takeLog(),
                 QByteArray("key 1000023|key up 1000023|key 1000003|key up 1000003|"
                            "key 1000000|key up 1000000"));
        scene().setTool(nullptr);
        QTest::keyClick(m_window->windowHandle(), Qt::Key_F, Qt::AltModifier);
        QTRY_VERIFY(QApplication::activePopupWidget());
        QApplication::activePopupWidget()->close();
    }

    void unreadableFilesAreNamedAndTheOthersAdded()
    {
        m_folder.writeSprite("good.png"_s, {4, 4});
        m_folder.write("bad.png"_s, "no picture");
        m_script->then(DialogScript::click("OK"_s));
        drop({m_folder.path("good.png"_s), m_folder.path("bad.png"_s)});
        QVERIFY(m_script->seen().value(0).contains("Failed to add following files:"_s));
        QVERIFY(m_script->seen().value(0).contains(m_folder.path("bad.png"_s)));
        QCOMPARE(names(), QStringList{"good"_s});
    }

    void keysSelectAndRemove()
    {
        addSprites({"a.png"_s, "b.png"_s});
        clickRow(1);
        QTest::keyClick(&list(), Qt::Key_A, Qt::ControlModifier);
        QCOMPARE(list().selectionModel()->selectedRows().size(), 2);
        clickRow(1);
        QTest::keyClick(&list(), Qt::Key_Delete);
        QCOMPARE(names(), QStringList{"a"_s});
        trigger("Undo"_s);
        QCOMPARE(names(), (QStringList{"a"_s, "b"_s}));
    }

    void theSidebarReachesTheScene()
    {
        auto &scene = m_window->findChild<NormalMapEditor *>()->scene();
        QCOMPARE(scene.displayMode(), DisplayMode::LitTexture);
        const DisplayMode modes[] = {DisplayMode::NormalMap,
                                     DisplayMode::LitTexture,
                                     DisplayMode::LitSurface,
                                     DisplayMode::Texture};
        for (int i = 0; i < 4; ++i) {
            QTest::keyClick(m_window.get(), Qt::Key(Qt::Key_4 - i), Qt::AltModifier);
            QCOMPARE(scene.displayMode(), modes[i]);
            QCOMPARE(scene.light().isVisible(), i == 1 || i == 2);
        }
        QTest::keyClick(m_window.get(), Qt::Key_2, Qt::AltModifier);
        auto &height = shownChild<QSlider>(*m_window, "Z position"_s);
        height.setFocus();
        QTest::keyClick(&height, Qt::Key_End);
        QCOMPARE(scene.light().position().z(), 1024.0F);
        QVERIFY(m_window->isWindowModified());
        trigger("Undo"_s);
        QCOMPARE(scene.light().position().z(), 32.0F);
    }

    void keysOfToolsClashWithNothing()
    {
        addSprites({"a.png"_s});
        const auto tools = m_window->findChild<ToolsSidebar *>()->actions();
        const auto actions = tools + m_window->findChildren<QAction *>();
        for (QAction *tool : tools) {
            tool->trigger();
            QList<QKeySequence> keys;
            for (const QAction *each : actions)
                keys += each->shortcuts();
            for (const QShortcut *each : m_window->findChildren<QShortcut *>()) {
                if (each->isEnabled())
                    keys << each->key();
            }
            QVERIFY(keys.size() > 30);
            for (const QKeySequence &key : keys)
                QVERIFY2(keys.count(key) == 1, qPrintable(key.toString()));
        }
    }

    void keysOfToolsWorkInTheViewAndAreTextInFields()
    {
        addSprites({"a.png"_s});
        QWidget &view = m_window->findChild<NormalMapEditor *>()->view();
        view.setFocus();
        const auto activeTool = [this] {
            return m_window->findChild<ToolsSidebar *>()->activeTool()->text();
        };
        QTest::keyClick(&view, Qt::Key_B);
        QCOMPARE(activeTool(), "Height brush"_s);
        const auto *size = m_window->findChild<GIntEdit *>("BrushSize"_s);
        QTest::keyClick(&view, Qt::Key_BracketRight);
        const int larger = size->value();
        QVERIFY(larger > 30);
        trigger("Tools"_s); // hides the sidebar
        QVERIFY(!size->isVisible());
        QTest::keyClick(&view, Qt::Key_BracketLeft);
        QVERIFY(size->value() < larger);
        clickRow(0);
        QTest::keyClick(&list(), Qt::Key_F2);
        QTest::keyClicks(QApplication::focusWidget(), "xv]1"_s);
        QTest::keyClick(QApplication::focusWidget(), Qt::Key_Return);
        QTRY_COMPARE(names(), QStringList{"xv]1"_s});
        QCOMPARE(activeTool(), "Height brush"_s);
        QVERIFY(size->value() < larger);
    }

    void whatIsBeingTypedIsSavedOrAskedFor()
    {
        addSprites({"a.png"_s});
        trigger("Save As..."_s, {DialogScript::chooseFile(m_folder.path("p"_s))});
        QVERIFY(m_window->windowTitle().startsWith("p.vep"_s));
        const auto typeName = [this](const QString &name) {
            clickRow(0);
            QTest::keyClick(&list(), Qt::Key_F2);
            QTest::keyClicks(QApplication::focusWidget(), name);
        };
        typeName("moon"_s);
        QTest::keyClick(QApplication::focusWidget(), Qt::Key_S, Qt::ControlModifier);
        QCOMPARE(names(), QStringList{"moon"_s});
        QVERIFY(!m_window->isWindowModified());
        QVERIFY(action("Undo rename body"_s).isEnabled());
        typeName("star"_s);
        m_script->then(DialogScript::click("Cancel"_s));
        QVERIFY(!m_window->close());
        QCOMPARE(names(), QStringList{"star"_s});

        m_script->then(DialogScript::click("Discard"_s));
        QVERIFY(m_window->openPath(m_folder.path("p.vep"_s)));
        QCOMPARE(names(), QStringList{"moon"_s});
        QVERIFY(!m_window->isWindowModified());
        QCOMPARE(enabled({"Undo"_s, "Export lit sprite"_s}), (QVector<bool>{false, true}));
    }

    void projectsOfTheFormerFormatAreSavedAnew()
    {
        const QString obsolete = m_folder.path("old.vex"_s);
        const QString path = m_folder.path("new.vep"_s);
        trigger("Save As..."_s,
                {DialogScript::chooseFile(obsolete),
                 DialogScript::click("OK"_s),
                 DialogScript::chooseFile(path)});
        QVERIFY(m_script->seen().value(1).startsWith("File format change|'.vex' file"_s));
        QVERIFY(!QFile::exists(obsolete));
        QVERIFY(QFile::exists(path));
    }

    void aBrokenProjectLeavesTheOneThatIsOpen()
    {
        addSprites({"a.png"_s});
        m_script->then(DialogScript::click("Discard"_s)).then(DialogScript::click("OK"_s));
        QVERIFY(!m_window->openPath(m_folder.write("broken.vep"_s, "no archive")));
        QVERIFY(m_script->seen().value(1).startsWith("Error|Failed to load"_s));
        QCOMPARE(names(), QStringList{"a"_s});
    }

    void missingMovedAndResizedSpritesAreAskedFor()
    {
        addSprites({"gone.png"_s, "moved.png"_s, "grown.png"_s});
        const QString path = m_folder.path("p.vep"_s);
        trigger("Save As..."_s, {DialogScript::chooseFile(path)});
        QFile::remove(m_folder.path("gone.png"_s));
        QDir().mkdir(m_folder.path("else"_s));
        QFile::rename(m_folder.path("moved.png"_s), m_folder.path("else/moved.png"_s));
        m_folder.writeSprite("grown.png"_s, {40, 30});

        m_script->then(DialogScript::click("Search..."_s))
            .then(DialogScript::chooseFile(m_folder.path("else"_s)))
            .then(DialogScript::click("Remove from project"_s))
            .then(DialogScript::click("Clear normal map"_s))
            .then(DialogScript::click("Continue"_s));
        QVERIFY(m_window->openPath(path));
        QCOMPARE(m_script->seen().mid(1),
                 (QStringList{"Textures not found"_s,
                              "Select search path"_s,
                              "Textures not found"_s,
                              "Size conflict"_s,
                              "Summary"_s}));
        QCOMPARE(names(), (QStringList{"moved"_s, "grown"_s}));
        QCOMPARE(project().bodies().at(1).paintedSize(), QSize(40, 30));
        QVERIFY(m_window->isWindowModified());
    }

    void publishDialogAsksUntilTheSpritesAreSafe()
    {
        addSprites({"a.png"_s});
        const auto clear = [](QWidget &dialog) {
            const auto edits = dialog.findChildren<QLineEdit *>();
            for (QLineEdit *edit : edits)
                edit->clear();
            DialogScript::click("OK"_s)(dialog);
        };
        const auto click = &DialogScript::click;
        trigger("Export normals"_s, {clear, click("Back"_s), click("Cancel"_s)});
        QCOMPARE(QDir(m_folder.path(QString())).entryList(QDir::Files), QStringList{"a.png"_s});

        trigger("Export normals"_s, {click("OK"_s), click("OK"_s)});
        QCOMPARE(m_script->seen().last(), "|Exported 1 normal maps|to sprite directory"_s);
        const QImage map(m_folder.path("a_n.png"_s));
        QCOMPARE(map.pixel(0, 0), 0xFF7F7FFFU);
        QCOMPARE(project().publishNormalmapPostfix().value(), "_n"_s);

        // The settings are known now: no dialog, but the report.
        project().publishDirectory().setValue(GFileName(m_folder.path("maps/deep"_s)));
        trigger("Export normals"_s, {click("OK"_s)});
        QVERIFY(m_script->seen().last().endsWith("|to "_s + m_folder.path("maps/deep"_s)));
        QVERIFY(QFile::exists(m_folder.path("maps/deep/a_n.png"_s)));
    }

    void exportsALitSpriteBesideTheSprite()
    {
        addSprites({"hero.png"_s});
        QString proposed;
        const auto acceptProposal = [&proposed](QWidget &dialog) {
            proposed = dialog.findChild<QLineEdit *>("fileNameEdit"_s)->text();
            QMetaObject::invokeMethod(&dialog, "accept");
        };
        trigger("Export lit sprite"_s, {acceptProposal});
        QVERIFY(proposed.endsWith("hero_lit.png"_s));
        QCOMPARE(QImage(m_folder.path("hero_lit.png"_s)).size(), QSize(16, 16));

        trigger("Export lit sprite"_s, {DialogScript::chooseFile(m_folder.path("named"_s))});
        QVERIFY(QFile::exists(m_folder.path("named.png"_s)));

        const QString unknown = m_folder.path("lit.unknown"_s);
        trigger("Export lit sprite"_s,
                {DialogScript::chooseFile(unknown), DialogScript::click("Close"_s)});
        QCOMPARE(m_script->seen().last(), "Error|Export to '%1' failed!|"_s.arg(unknown));
    }

    void preferencesAreKeptAndTakeEffectAtOnce()
    {
        const auto choose = [this](QWidget &dialog) {
            auto *patterns = dialog.findChild<QLineEdit *>();
            patterns->setFocus();
            QTest::keyClicks(patterns, m_folder.path(QString()));
            auto *theme = dialog.findChild<QComboBox *>();
            theme->setCurrentIndex(theme->findData(int(ThemeChoice::Light)));
            DialogScript::click("OK"_s)(dialog);
        };
        trigger("Preferences..."_s, {choose});
        QCOMPARE(QDir(application().settings().value("patterns"_s).toString()),
                 QDir(m_folder.path(QString())));
        QCOMPARE(application().theme(), ThemeChoice::Light);
        QVERIFY(m_window->palette().color(QPalette::Window).lightness() > 200);
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

    void everythingIsNamedAndReadable()
    {
        addSprites({"a.png"_s});
        QStringList faults;
        const auto look = [&faults](QWidget &dialog) {
            faults += readingFaultsOf(dialog);
            dialog.close();
        };
        for (const ThemeChoice theme : {ThemeChoice::Light, ThemeChoice::Dark}) {
            application().setTheme(theme);
            faults += readingFaultsOf(*m_window);
            trigger("Preferences..."_s, {look});
            trigger("Export normals as..."_s, {look});
            trigger("Send feedback..."_s, {look});
        }
        QCOMPARE(faults.join(QLatin1Char('\n')), QString());
    }

private:
    static GApplication &application() { return *static_cast<GApplication *>(qApp); }
    Project &project() const { return m_window->project(); }

    ShapeTreeView &list() const { return *m_window->findChild<ShapeTreeView *>(); }

    EditorGraphicsViewVesperine &view() const
    {
        return *m_window->findChild<EditorGraphicsViewVesperine *>();
    }

    NormalMapEditorScene &scene() const
    {
        return m_window->findChild<NormalMapEditor *>()->scene();
    }

    QPoint onSprite() const
    {
        return view().mapFromScene(scene().spriteItem(scene().currentBody())->pos() +
                                   QPointF(3.5, 4.5));
    }

    QStringList names() const
    {
        QStringList result;
        for (const Body *body : project().bodies().all())
            result.append(body->name().value());
        return result;
    }

    QAction &action(const QString &text) const
    {
        const auto actions = m_window->findChildren<QAction *>();
        const auto found = std::find_if(actions.begin(), actions.end(), [&text](const auto *each) {
            return each->text().remove(QLatin1Char('&')) == text;
        });
        if (found == actions.end())
            qFatal("There is no action '%s'", qUtf8Printable(text));
        return **found;
    }

    void trigger(const QString &text, const std::vector<DialogScript::Answer> &answers = {}) const
    {
        for (const auto &answer : answers)
            m_script->then(answer);
        action(text).trigger();
    }

    QVector<bool> enabled(const QStringList &texts) const
    {
        QVector<bool> result;
        for (const QString &text : texts)
            result.append(action(text).isEnabled());
        return result;
    }

    void drop(const QStringList &paths) const
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
        const Qt::DropActions offered = Qt::CopyAction | Qt::MoveAction;
        QDropEvent event({50, 50}, offered, &data, Qt::LeftButton, Qt::ShiftModifier);
        QCoreApplication::sendEvent(editor, &event);
        QCOMPARE(event.dropAction(), Qt::CopyAction); // else the sprites' files would go
    }

    void addSprites(const QStringList &fileNames) const
    {
        QStringList paths;
        for (const QString &name : fileNames)
            paths.append(m_folder.writeSprite(name, {16, 16}));
        drop(paths);
    }

    void clickRow(int row) const
    {
        const QRect place = list().visualRect(list().model()->index(row, 0));
        QTest::mouseClick(list().viewport(), Qt::LeftButton, Qt::NoModifier, place.center());
    }

    Folder m_folder;
    std::unique_ptr<DialogScript> m_script;
    std::unique_ptr<MainWindow> m_window;
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
