#include "framework/RecentFiles.h"
#include "model/Body.h"
#include "model/DataModelWriter.h"
#include "model/Project.h"
#include "model/PropertyAngleImage.h"
#include "model/RecoveryStore.h"
#include "model/properties/PropertyT.h"
#include "preview/EditorGraphicsViewVesperine.h"
#include "preview/GLGraphicsLight.h"
#include "preview/NormalMapEditorScene.h"
#include "preview/SpriteItem.h"
#include "support/DialogScript.h"
#include "support/Documents.h"
#include "support/EditorUser.h"
#include "support/Widgets.h"
#include "support/WindowTest.h"
#include "ui/MainWindow.h"
#include "ui/RecoveryDialog.h"
#include "ui/ShapeTreeView.h"
#include "ui/SpritesSidebar.h"
#include "ui/ToolsSidebar.h"

#include <QAction>
#include <QLabel>
#include <QListWidget>
#include <QSlider>
#include <QTextDocument>

namespace {
// Of labels and tool tips that have a name in them as markup, or with what is no character of a
// line; and entries of lists.
QStringList markedUpNames()
{
    const auto isBad = [](const QString &text) { return text.contains(QChar(0x1b)); };
    QStringList found;
    for (const QWidget *widget : QApplication::allWidgets()) {
        const QString tip = widget->toolTip();
        if (tip.contains("<h1>"_s) || isBad(tip))
            found.append(tip);
        const auto *label = qobject_cast<const QLabel *>(widget);
        const bool isMarkup = label && label->isVisible() && label->text().contains("<h1>"_s) &&
                              label->textFormat() != Qt::PlainText;
        if (label && (isMarkup || isBad(label->text())))
            found.append(label->text());
        if (const auto *list = qobject_cast<const QListWidget *>(widget)) {
            for (int row = 0; row < list->count(); ++row) {
                if (isBad(list->item(row)->text()))
                    found.append(list->item(row)->text());
            }
        }
    }
    return found;
}
} // namespace

class TestMainWindow : public QObject
{
    Q_OBJECT

private Q_SLOTS:
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
        QVERIFY(!action("Export normals as..."_s).isEnabled() && !action("Undo"_s).isEnabled());
        m_folder.writeSprite("sprites/a.png"_s, {20, 10});
        m_folder.writeSprite("sprites/deep/b.png"_s, {12, 12});
        const QString bad = m_folder.write("bad.png"_s, "no picture");
        m_script->then(click("OK"_s));
        drop({m_folder.path("sprites"_s), bad, m_folder.writeSprite("c.png"_s, {8, 8})});
        QVERIFY(m_script->seen().value(0).endsWith(bad + QLatin1Char('|')));
        QCOMPARE(names(), (QStringList{"a"_s, "b"_s, "c"_s}));
        QCOMPARE(list().selectionModel()->selectedRows().size(), 3);
        QVERIFY(m_window->isWindowModified());
        QVERIFY(action("Export normals"_s).isEnabled());
        QVERIFY(!action("Export lit sprite"_s).isEnabled()); // it is of one
        clickRow(1);
        QTest::keyClick(&list(), Qt::Key_Delete);
        QCOMPARE(names(), (QStringList{"a"_s, "c"_s}));
        QTest::keyClick(&list(), Qt::Key_A, Qt::ControlModifier);
        QCOMPARE(list().selectionModel()->selectedRows().size(), 2);
        while (project().undoStack().canUndo())
            trigger("Undo"_s);
        QCOMPARE(names(), QStringList());
        QVERIFY(!m_window->isWindowModified());
        QVERIFY(!action("Export normals"_s).isEnabled());
    }

    void theSidebarReachesTheScene()
    {
        const NormalMapEditorScene &scene = EditorUser(*m_window).scene();
        QTest::keyClick(m_window.get(), Qt::Key_4, Qt::AltModifier);
        QCOMPARE(scene.displayMode(), DisplayMode::NormalMap);
        QTest::keyClick(m_window.get(), Qt::Key_2, Qt::AltModifier);
        QCOMPARE(scene.displayMode(), DisplayMode::LitSurface);
        auto &height = shownChild<QSlider>(*m_window, "Z position"_s);
        height.setFocus();
        QTest::keyClick(&height, Qt::Key_End);
        QCOMPARE(scene.light().position().z(), 1024.0F);
    }

    void theViewFollowsWhatThereIsToSee()
    {
        const EditorUser user(*m_window);
        const auto shows = [&](const QRectF &rect, double share) {
            const QRectF seen = user.view()
                                    .mapToScene(user.viewport().rect())
                                    .boundingRect()
                                    .adjusted(-1, -1, 1, 1);
            const double shown =
                std::max(rect.width() / seen.width(), rect.height() / seen.height());
            return seen.contains(rect) && shown > share;
        };
        drop({m_folder.writeSprite("large.png"_s, {900, 900}),
              m_folder.writeSprite("sheet.png"_s, {64, 8})});
        QVERIFY(shows(user.scene().spritesRect(), 0.8));
        QCoreApplication::processEvents();
        // A window that was maximised gets its size after it is shown.
        m_window->resize(1300, 1000);
        QTRY_VERIFY(user.viewport().width() > 600 && shows(user.scene().spritesRect(), 0.8));

        const QRect row = list().visualRect(list().model()->index(1, 0));
        QTest::mouseDClick(list().viewport(), Qt::LeftButton, {}, row.center());
        QTest::keyClick(QApplication::focusWidget(), Qt::Key_Escape);
        QVERIFY(shows(user.scene().spritesRect(), 0.8));
        const QPoint thumbnail(row.left() + row.height() / 2, row.center().y());
        QTest::mouseClick(list().viewport(), Qt::LeftButton, {}, thumbnail);
        QTest::mouseDClick(list().viewport(), Qt::LeftButton, {}, thumbnail);
        const QRectF sheet =
            user.scene().spriteItem(&project().bodies().at(1))->sceneBoundingRect();
        QVERIFY(shows(sheet, 0.8));

        list().setFocus();
        QTest::keyClick(&list(), Qt::Key_A, Qt::ControlModifier);
        QTest::keyClick(&list(), Qt::Key_Delete);
        QTRY_VERIFY(shows(user.scene().contentRect(), 0.8));
        trigger("Undo"_s);
        QTRY_VERIFY(shows(user.scene().spritesRect(), 0.8));
        m_script->then(click("Discard"_s));
        QVERIFY(m_window->close());
    }

    void hiddenPanelsStayHidden()
    {
        action("Tools"_s).trigger();
        QVERIFY(m_window->close());
        m_window = std::make_unique<MainWindow>(application());
        showActive(*m_window);
        QVERIFY(m_window->findChild<ToolsSidebar *>()->isHidden());
        QVERIFY(m_window->findChild<SpritesSidebar *>()->isVisible());
        action("Tools"_s).trigger();
        QVERIFY(m_window->findChild<ToolsSidebar *>()->isVisible());
    }

    // What is being typed, and the stroke that is still open.
    void whatIsUnfinishedIsSavedOrAskedFor()
    {
        addSprites({"a.png"_s});
        const QString obsolete = m_folder.path("p.vex"_s);
        trigger("Save As..."_s, {choose(obsolete), click("OK"_s), choose(m_folder.path("p"_s))});
        QVERIFY(m_script->seen().value(1).startsWith("File format change|'.vex' file"_s));
        QVERIFY(!QFile::exists(obsolete));
        QVERIFY(m_window->windowTitle().startsWith("p.vep"_s));
        typeName("moon xv]1"_s); // keys of tools
        QTest::keyClick(QApplication::focusWidget(), Qt::Key_S, Qt::ControlModifier);
        QCOMPARE(names(), QStringList{"moon xv]1"_s});
        QVERIFY(!m_window->isWindowModified());
        QVERIFY(action("Undo rename body"_s).isEnabled());
        typeName("star"_s);
        m_script->then(click("Cancel"_s));
        QVERIFY(!m_window->close());
        QCOMPARE(names(), QStringList{"star"_s});

        m_script->then(click("Discard"_s));
        QVERIFY(m_window->openPath(m_folder.path("p.vep"_s)));
        QCOMPARE(names(), QStringList{"moon xv]1"_s});
        QVERIFY(!m_window->isWindowModified());
        QVERIFY(!action("Undo"_s).isEnabled() && action("Export lit sprite"_s).isEnabled());

        showActive(*m_window); // which takes a while after a dialog; keys reach no other one
        const EditorUser user(*m_window);
        user.key(Qt::Key_B);
        user.press({8, 8});
        QVERIFY(m_window->save());
        QCOMPARE(project().undoStack().index(), 1);
        QVERIFY(!m_window->isWindowModified());
        user.press({8, 8});
        m_script->then(click("Cancel"_s));
        QVERIFY(!m_window->close());
        QCOMPARE(project().undoStack().index(), 2);

        // One that can't be read leaves the one that is open.
        m_script->then(click("Discard"_s)).then(click("OK"_s));
        QVERIFY(!m_window->openPath(m_folder.write("broken.vep"_s, "no archive")));
        QVERIFY(m_script->seen().last().startsWith("Error|Failed to load"_s));
        QCOMPARE(names(), QStringList{"moon xv]1"_s});
    }

    void missingMovedAndResizedSpritesAreAskedFor()
    {
        addSprites({"gone.png"_s, "moved.png"_s, "grown.png"_s});
        const QString path = m_folder.path("p.vep"_s);
        trigger("Save As..."_s, {choose(path)});
        QFile::remove(m_folder.path("gone.png"_s));
        QDir().mkdir(m_folder.path("else"_s));
        QFile::rename(m_folder.path("moved.png"_s), m_folder.path("else/moved.png"_s));
        m_folder.writeSprite("grown.png"_s, {40, 30});

        m_script->then(click("Search..."_s))
            .then(choose(m_folder.path("else"_s)))
            .then(click("Remove from project"_s))
            .then([this, &path](QWidget &dialog) {
                drop({path}); // the question is of this project
                click("Clear normal map"_s)(dialog);
            })
            .then(click("Continue"_s));
        QVERIFY(m_window->openPath(path));
        QCOMPARE(
            m_script->seen().mid(1).join(QLatin1Char('|')),
            "Textures not found|Select search path|Textures not found|Size conflict|Summary"_s);
        QCOMPARE(names(), (QStringList{"moved"_s, "grown"_s}));
        QCOMPARE(project().bodies().at(1).paintedSize(), QSize(40, 30));
    }

    // Neither as markup nor as what would break lines, in every place that a name comes to.
    void namesAreShownAsTheyStand()
    {
        const QString odd = "<h1>&[*]\x1b\n"_s;
        const QString shown = R"(<h1>&[*]\u001b\n)"_s;
        QDir().mkpath(m_folder.path(odd));
        const QString path = m_folder.path(odd + "/<h1>\x1b.vep"_s);
        Project stored;
        for (const auto &name : {"<h1>a"_s, "<h1>b"_s, "<h1>c"_s}) {
            const QString sprite = m_folder.writeSprite(name + ".png"_s, {16, 16});
            addBody(stored, name, sprite).paintedNormalMap().setValue(encode(AngleImage(16, 16)));
        }
        stored.bodies().at(2).name().setValue("<h1>\nc"_s);
        stored.publishDirectory().setValue(GFileName(m_folder.path("<h1>"_s)));
        stored.publishNormalmapPostfix().setValue("_n"_s);
        // A project can't be saved under such a name, but be given it later.
        const QString plainPath = m_folder.path(odd + "/p.vep"_s);
        stored.filename().setValue(GFileName(plainPath));
        DataModelWriter(stored).write();
        QVERIFY(QFile::rename(plainPath, path));
        QFile::remove(m_folder.path("<h1>b.png"_s));
        m_folder.writeSprite("<h1>c.png"_s, {20, 20});

        const auto plain = [](const QString &button) {
            return [button](QWidget &dialog) {
                QCOMPARE(markedUpNames(), QStringList());
                click(button)(dialog);
            };
        };
        m_script->then(plain("Continue without texture"_s)).then(plain("Clear normal map"_s));
        m_script->then(plain("Continue"_s));
        QVERIFY(m_window->openPath(path));
        QVERIFY2(m_window->windowTitle().startsWith("<h1>\\u001b.vep"_s),
                 qUtf8Printable(m_window->windowTitle()));
        clickRow(0);
        QCOMPARE(list().model()->index(2, 0).data().toString(), "<h1>\\nc"_s);
        QTextDocument tip;
        tip.setHtml(list().model()->index(0, 0).data(Qt::ToolTipRole).toString());
        QCOMPARE(tip.toPlainText(), m_folder.path("<h1>a.png"_s));
        const QAction *recent = m_window->findChild<RecentFiles *>()->actions().first();
        QVERIFY2(recent->text().contains("<h1>&&[*]\\u001b\\n"_s), qUtf8Printable(recent->text()));
        QVERIFY(recent->statusTip().contains(shown));
        QCOMPARE(markedUpNames(), QStringList());

        trigger("Export normals"_s, {plain("OK"_s)});
        QVERIFY(m_script->seen().last().endsWith("/<h1>"_s));
        m_script->then(plain("OK"_s)); // what could not be added
        drop({m_folder.write("<h1>\x1b\n.png"_s, "no picture")});
        QVERIFY(m_script->seen().last().contains("<h1>\\u001b\\n.png"_s));
        m_script->then(plain("Discard"_s)).then(plain("OK"_s)); // changes, then what can't be read
        QVERIFY(!m_window->openPath(m_folder.write("<h1>\x1b broken.vep"_s, "nothing")));
        QVERIFY(m_script->seen().last().contains("<h1>\\u001b broken.vep"_s));

        std::vector<RecoveryEntry> entries(1);
        entries[0].folder = RecoveryStore(m_folder.path("recovery"_s)).createFolder();
        entries[0].index.emplace();
        entries[0].index->projectPath = path;
        RecoveryDialog dialog(entries);
        dialog.show();
        QCOMPARE(markedUpNames(), QStringList());
    }

private:
    static constexpr auto click = &DialogScript::click;
    static constexpr auto choose = &DialogScript::chooseFile;

    Project &project() const { return m_window->project(); }

    ShapeTreeView &list() const { return *m_window->findChild<ShapeTreeView *>(); }

    QStringList names() const
    {
        QStringList result;
        for (const Body *body : project().bodies().all())
            result.append(body->name().value());
        return result;
    }

    QAction &action(const QString &text) const { return EditorUser(*m_window).action(text); }

    void trigger(const QString &text, const std::vector<DialogScript::Answer> &answers = {}) const
    {
        for (const auto &answer : answers)
            m_script->then(answer);
        action(text).trigger();
    }

    void drop(const QStringList &paths) const { EditorUser(*m_window).drop(paths); }

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

    void typeName(const QString &name) const
    {
        showActive(*m_window);
        clickRow(0);
        QTest::keyClick(&list(), Qt::Key_F2);
        QTest::keyClicks(QApplication::focusWidget(), name);
    }

    Folder m_folder;
    std::unique_ptr<DialogScript> m_script;
    std::unique_ptr<MainWindow> m_window;
};

int main(int argc, char **argv)
{
    return runWindowTest<TestMainWindow>(argc, argv);
}

#include "tst_MainWindow.moc"
