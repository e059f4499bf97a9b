#include "base/Error.h"
#include "base/GSettings.h"
#include "model/DataModelWriter.h"
#include "model/Project.h"
#include "model/ProjectController.h"
#include "model/PropertyAngleImage.h"
#include "model/Sprite.h"
#include "model/SpriteFiles.h"
#include "support/Documents.h"
#include "support/Pictures.h"
#include "support/RecordingObserver.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QTest>

#include <sys/stat.h>

class TestProjectController : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void addingAndUndoing();
    void unreadableFilesAreNamed();
    void cancelledAddingLeavesNothing();
    void foldersBecomeFiles();
    void removingRestoresTheSelection();
    void installedProjectIsUnmodified();
    void spriteTroubleShows();
    void checkingTextures();
    void failedSaveAsKeepsTheName();

private:
    QStringList names() const;

    GSettings m_settings;
    ScriptedPrompts m_prompts;
    std::unique_ptr<ProjectController> m_controller;

private Q_SLOTS:
    void init()
    {
        m_prompts = ScriptedPrompts();
        m_controller = std::make_unique<ProjectController>(m_settings, m_prompts);
    }
};

QStringList TestProjectController::names() const
{
    QStringList result;
    for (const Body *body : m_controller->project().bodies().all())
        result.append(body->name().value());
    return result;
}

void TestProjectController::addingAndUndoing()
{
    const Folder folder;
    auto &stack = m_controller->project().undoStack();
    m_controller->addSprites({});
    QCOMPARE(stack.count(), 0);
    m_controller->addSprites({folder.writeSprite(QStringLiteral("a.b.png"), {5, 4}),
                              folder.writeSprite(QStringLiteral("c.jpg"), {2, 2})});
    QCOMPARE(names(), QStringList({QStringLiteral("a"), QStringLiteral("c")}));
    QCOMPARE(m_controller->selection().selection().size(), 2);
    const Body &body = m_controller->project().bodies().at(0);
    QCOMPARE(body.paintedNormalMap().angleImage(), AngleImage(5, 4));
    QCOMPARE(body.sprite().checksum().value().size(), 32);
    QCOMPARE(m_settings.value(QStringLiteral("lastSpriteImportPath")).toString(),
             QFileInfo(folder.path(QStringLiteral("c.jpg"))).path());
    QCOMPARE(stack.count(), 2);
    QCOMPARE(stack.text(0), QStringLiteral("add bodies"));
    QCOMPARE(stack.text(1), QStringLiteral("selection changed"));
    stack.undo();
    stack.undo();
    QVERIFY(names().isEmpty());
    stack.redo();
    QCOMPARE(names().size(), 2);
}

void TestProjectController::unreadableFilesAreNamed()
{
    const Folder folder;
    const QString fifo = folder.path(QStringLiteral("pipe.png"));
    QCOMPARE(mkfifo(QFile::encodeName(fifo).constData(), 0600), 0);
    const QString text = folder.write(QStringLiteral("text.png"), "no picture");
    const QString control = folder.writeSprite(QStringLiteral("a\tb.png"), {1, 1});
    const QString absent = folder.path(QStringLiteral("absent %1.png"));
    const QString good = folder.writeSprite(QStringLiteral("good ü.png"), {1, 1});
    const QString message = errorOf([&] {
        m_controller->addSprites({fifo, text, good, control, absent});
    });
    QCOMPARE(message,
             QStringLiteral("Failed to add following files:\n\n") +
                 QStringList({fifo, text, control, absent}).join(QLatin1Char('\n')));
    QCOMPARE(names(), QStringList(QStringLiteral("good ü")));
    const int steps = m_controller->project().undoStack().count();
    QVERIFY(!errorOf([&] { m_controller->addSprites({text}); }).isEmpty());
    QCOMPARE(m_controller->project().undoStack().count(), steps);
}

void TestProjectController::cancelledAddingLeavesNothing()
{
    const Folder folder;
    m_prompts.cancelsAt = 2;
    const QString path = folder.writeSprite(QStringLiteral("a.png"), {1, 1});
    m_controller->addSprites({path, path, path});
    QVERIFY(names().isEmpty());
    QCOMPARE(m_controller->project().undoStack().count(), 0);
}

void TestProjectController::foldersBecomeFiles()
{
    const Folder folder;
    for (const char *name : {"s/a10.png",
                             "s/a2.png",
                             "s/B.JPG",
                             "s/z/c.jpeg",
                             "s/a2_n.png",
                             "s/lone_n.png",
                             "s/.hidden.png",
                             "s/text.txt",
                             "s/y/d.png"})
        folder.write(QString::fromLatin1(name), "x");
    QVERIFY(QFile::link(folder.path(QStringLiteral("s")), folder.path(QStringLiteral("s/z/loop"))));
    QVERIFY(
        QFile::link(folder.path(QStringLiteral("gone")), folder.path(QStringLiteral("s/x.png"))));
    const QString root = folder.path(QStringLiteral("s"));
    const auto relative = [&root](QStringList paths) {
        for (QString &path : paths)
            path = QDir(root).relativeFilePath(path);
        return paths.join(QLatin1Char(' '));
    };
    const auto found = findSpriteFiles({root}, QStringLiteral("_n"));
    QCOMPARE(relative(found.files),
             QStringLiteral("a2.png a10.png B.JPG lone_n.png y/d.png z/c.jpeg"));
    QCOMPARE(relative(found.skipped), QStringLiteral("a2_n.png"));
    // A file that is named is meant.
    const QString single = folder.path(QStringLiteral("s/a2_n.png"));
    QCOMPARE(findSpriteFiles({single}, QStringLiteral("_n")).files, QStringList(single));
}

void TestProjectController::removingRestoresTheSelection()
{
    const Folder folder;
    const QString path = folder.writeSprite(QStringLiteral("a.png"), {1, 1});
    m_controller->addSprites({path, path, path});
    auto bodies = m_controller->project().bodies().all();
    auto &stack = m_controller->project().undoStack();
    m_controller->selection().setSelection({bodies[1], bodies[2]});
    const int before = stack.count();
    m_controller->removeBodies({});
    QCOMPARE(stack.count(), before);
    m_controller->removeBodies({bodies[0], bodies[2]});
    QCOMPARE(stack.count(), before + 1);
    QCOMPARE(stack.undoText(), QStringLiteral("remove bodies"));
    QCOMPARE(m_controller->selection().selection(), QList<Body *>({bodies[1]}));
    QVector<QList<Body *>> seen;
    connect(&m_controller->selection(),
            &ItemSelectionModel::bodySelectionChanged,
            this,
            [&seen](const QList<Body *> &, const QList<Body *> &now) { seen.append(now); });
    stack.undo();
    QCOMPARE(m_controller->project().bodies().all(), bodies);
    QCOMPARE(seen, QVector<QList<Body *>>({{bodies[1], bodies[2]}}));
    m_controller->selection().setSelection({bodies[2], bodies[1]});
    QCOMPARE(seen.size(), 1);
}

void TestProjectController::installedProjectIsUnmodified()
{
    const Folder folder;
    m_controller->addSprites({folder.writeSprite(QStringLiteral("a.png"), {1, 1})});
    auto &stack = m_controller->project().undoStack();
    QVERIFY(stack.isModified());
    m_controller->saveAs(GFileName(folder.path(QStringLiteral("p.vep"))));
    QVERIFY(!stack.isModified());
    m_controller->openProject(folder.path(QStringLiteral("p.vep")));
    QCOMPARE(m_controller->project().undoStack().count(), 0);
    QVERIFY(!m_controller->project().undoStack().isModified());
    QCOMPARE(m_controller->selection().selection().size(), 1);
}

void TestProjectController::spriteTroubleShows()
{
    const Folder folder;
    const QString path = folder.writeSprite(QStringLiteral("a.png"), {3, 3});
    m_controller->addSprites({path});
    const Body &body = m_controller->project().bodies().at(0);
    Sprite &sprite = body.sprite();
    RecordingObserver observer(sprite);
    const QString checksum = sprite.checksum().value();
    QFile::remove(path);
    m_controller->loadTextures();
    QCOMPARE(observer.calls, 1);
    QVERIFY(!sprite.isLoaded());
    QCOMPARE(sprite.statusIcon(), QStringLiteral(":/qrv_tools/icons/Icons_SpriteMissing.svg"));
    QCOMPARE(sprite.image().size(), QSize(3, 3));
    QCOMPARE(sprite.image().pixel(2, 2), qRgb(255, 0, 0));
    QCOMPARE(sprite.checksum().value(), checksum);
    folder.writeSprite(QStringLiteral("a.png"), {4, 3});
    m_controller->loadTextures();
    QVERIFY(sprite.isLoaded() && sprite.isWrongSized() && sprite.isChanged());
    QCOMPARE(sprite.statusIcon(), QStringLiteral(":/qrv_tools/icons/Icons_SpriteWrongSize.svg"));
    QCOMPARE(sprite.image().size(), QSize(3, 3));
    QCOMPARE(sprite.fileSize(), QSize(4, 3));
    QVERIFY(sprite.checksum().value() != checksum);
    // Nothing painted raises no question of size.
    body.paintedNormalMap().setAngleImage(AngleImage(), QString());
    m_controller->loadTextures();
    QVERIFY(!sprite.isWrongSized() && sprite.statusIcon().isEmpty());
    QCOMPARE(body.surface().size(), QSize(4, 3));
}

void TestProjectController::checkingTextures()
{
    const Folder folder;
    QStringList paths;
    for (const char *name : {"moved.png", "lost.png", "grown.png", "kept.png"})
        paths.append(folder.writeSprite(QString::fromLatin1(name), {2, 2}));
    m_controller->addSprites(paths);
    m_controller->checkTextures();
    QVERIFY(m_prompts.summary.isEmpty());

    const QString moved = folder.path(QStringLiteral("new/moved.png"));
    QVERIFY(QDir().mkpath(folder.path(QStringLiteral("new"))) && QFile::rename(paths[0], moved));
    QFile::remove(paths[1]);
    folder.writeSprite(QStringLiteral("grown.png"), {3, 5});
    m_prompts.missingAnswers = {ProjectPrompts::MissingTextures::Search,
                                ProjectPrompts::MissingTextures::Remove};
    m_prompts.searchFolder = folder.path(QStringLiteral("new"));
    m_prompts.clearsResized = true;
    m_controller->checkTextures();
    QCOMPARE(m_prompts.missing, QStringList(paths[1])); // asked again for what is still missing
    QCOMPARE(m_prompts.resized, QStringList(paths[2]));
    QCOMPARE(m_prompts.summary,
             QStringList({QStringLiteral("Updated file path:\n%1\n-->\n%2").arg(paths[0], moved),
                          QStringLiteral("Removed sprite: lost"),
                          QStringLiteral("Reset normalmap: grown")}));
    QCOMPARE(names().join(QLatin1Char(' ')), QStringLiteral("moved grown kept"));
    const Body &grown = m_controller->project().bodies().at(1);
    QCOMPARE(grown.paintedNormalMap().angleImage().size(), QSize(3, 5));
    QVERIFY(grown.sprite().statusIcon().isEmpty());
    auto &stack = m_controller->project().undoStack();
    QVERIFY(stack.isModified());
    stack.undo(); // the surface has the old size again
    QVERIFY(grown.sprite().isWrongSized());
    QCOMPARE(grown.sprite().image().size(), QSize(2, 2));
    stack.undo();
    stack.undo();
    const Sprite &sprite = m_controller->project().bodies().at(0).sprite();
    QVERIFY(!sprite.isLoaded()); // the old path is back
    while (stack.canRedo())
        stack.redo();
    QVERIFY(sprite.isLoaded() && grown.sprite().statusIcon().isEmpty());
}

void TestProjectController::failedSaveAsKeepsTheName()
{
    const Folder folder;
    const GFileName good(folder.path(QStringLiteral("p.vep")));
    m_controller->saveAs(good);
    m_controller->project().lightHeight().setValue(3, QString());
    for (const char *name : {"absent/p.vep", "p.vex", ""})
        QVERIFY(!errorOf([&] {
                     m_controller->saveAs(GFileName(folder.path(QString::fromLatin1(name))));
                 }).isEmpty());
    QVERIFY(m_controller->project().filename().value() == good);
    QVERIFY(m_controller->project().undoStack().isModified());
}

QTEST_GUILESS_MAIN(TestProjectController)

#include "tst_ProjectController.moc"
