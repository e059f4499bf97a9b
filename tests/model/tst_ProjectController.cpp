#include "base/GSettings.h"
#include "model/FileLock.h"
#include "model/Project.h"
#include "model/ProjectController.h"
#include "model/PropertyAngleImage.h"
#include "model/Sprite.h"
#include "support/Documents.h"
#include "support/Pictures.h"

#include <QDir>
#include <QFile>
#include <QProcess>
#include <QSysInfo>
#include <QTest>

#include <algorithm>
#include <atomic>
#include <memory>
#include <thread>
#include <vector>

#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

class TestProjectController : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init()
    {
        m_folder = Folder();
        m_prompts = ScriptedPrompts();
        m_controller = std::make_unique<ProjectController>(m_settings, m_prompts);
    }

    void addingAndUndoing()
    {
        m_controller->addSprites({});
        const QString file = sprite("c.jpg", {2, 2});
        m_prompts.cancelsAt = 2;
        m_controller->addSprites({file, file, file});
        m_prompts.cancelsAt = -1;
        QCOMPARE(names(), QString());
        QCOMPARE(stack().count(), 0);
        m_controller->addSprites({sprite("a.b.png", {5, 4}), file});
        QCOMPARE(names(), QStringLiteral("a|c"));
        QCOMPARE(m_controller->selection().selection().size(), 2);
        QCOMPARE(body(0).paintedNormalMap().angleImage(), AngleImage(5, 4));
        QCOMPARE(body(0).sprite().checksum().value().size(), 32);
        QCOMPARE(stack().count(), 2);
        stack().undo();
        stack().undo();
        QCOMPARE(names(), QString());
        stack().redo();
        QCOMPARE(names(), QStringLiteral("a|c"));
    }

    void removingRestoresTheSelection()
    {
        const QString file = sprite("a.png", {1, 1});
        m_controller->addSprites({file, file, file});
        const auto bodies = m_controller->project().bodies().all();
        auto &selection = m_controller->selection();
        selection.setSelection({bodies[1], bodies[2]});
        const int before = stack().count();
        m_controller->removeBodies({});
        QCOMPARE(stack().count(), before);
        m_controller->removeBodies({bodies[0], bodies[2]});
        QCOMPARE(stack().count(), before + 1);
        QCOMPARE(selection.selection(), QList<Body *>({bodies[1]}));
        QVector<QList<Body *>> seen;
        connect(&selection,
                &ItemSelectionModel::bodySelectionChanged,
                this,
                [&seen](const QList<Body *> &, const QList<Body *> &now) { seen.append(now); });
        stack().undo();
        QCOMPARE(m_controller->project().bodies().all(), bodies);
        QCOMPARE(seen, QVector<QList<Body *>>({{bodies[1], bodies[2]}}));
        selection.setSelection({bodies[2], bodies[1]});
        QCOMPARE(seen.size(), 1);
    }

    void savingAndOpening()
    {
        m_controller->addSprites({sprite("a.png", {1, 1})});
        QVERIFY(stack().isModified());
        const GFileName good(path("p.vep"));
        m_controller->saveAs(good);
        QVERIFY(!stack().isModified());
        // A save that fails leaves the name.
        m_controller->project().lightHeight().setValue(3, QString());
        for (const char *name : {"absent/p.vep", "p.vex", ""})
            QVERIFY(!errorOf([&] { m_controller->saveAs(GFileName(path(name))); }).isEmpty());
        QVERIFY(m_controller->project().filename().value() == good);
        QVERIFY(stack().isModified());
        QVERIFY(m_controller->openProject(path("p.vep"), ProjectController::Lock::OnOpening));
        QCOMPARE(stack().count(), 0);
        QVERIFY(!stack().isModified());
        QCOMPARE(m_controller->selection().selection().size(), 1);
    }

    void aProjectHasOneWriter()
    {
        using Lock = ProjectController::Lock;
        const GFileName file(path("shared.vep"));
        m_controller->saveAs(file);
        const QString link = path("link.vep");
        QVERIFY(QFile::link(file.path(), link));
        GSettings settings;
        ScriptedPrompts prompts;
        prompts.readsOnly = false;
        ProjectController second(settings, prompts);
        QVERIFY(!second.openProject(link, Lock::OnOpening));
        QVERIFY(
            prompts.holders.value(0).contains(QString::number(QCoreApplication::applicationPid())));
        prompts.readsOnly = true;
        QVERIFY(second.openProject(link, Lock::OnOpening));
        QVERIFY(second.isReadOnly());
        const QByteArray before = contentOf(file.path());
        QVERIFY(!errorOf([&] { second.saveAs(file); }).isEmpty());
        QCOMPARE(contentOf(file.path()), before);
        second.saveAs(GFileName(path("own.vep")));
        QVERIFY(!second.isReadOnly());
        m_controller->createProject();
        QVERIFY(second.openProject(link, Lock::OnOpening));
        QVERIFY(!second.isReadOnly());
    }

    void locksThatNobodyHolds()
    {
        const QString file = path("left.vep");
        m_controller->saveAs(GFileName(file));
        m_controller->createProject();
        QProcess dead;
        dead.start(QStringLiteral("true"), {});
        QVERIFY(dead.waitForStarted());
        const auto text = [](qint64 process, const QString &host) {
            return QByteArray::number(process) + "\ntst_ProjectController\n" + host.toUtf8() + '\n';
        };
        const QByteArray killed = text(dead.processId(), QSysInfo::machineHostName());
        QVERIFY(dead.waitForFinished());
        const QString lock = path(".left.vep.lock");
        using Opening = ProjectController::Lock;
        // In a sandbox the dead one had the same number. A full disk or a kill cuts the text.
        const QByteArray own =
            text(QCoreApplication::applicationPid(), QSysInfo::machineHostName());
        for (const QByteArray &left : {killed,
                                       own,
                                       QByteArray(),
                                       own.left(3),
                                       own.chopped(2),
                                       QByteArray("\n\n\n\n"),
                                       QByteArray("x\ny\nz\n"),
                                       QByteArray(100000, '\0'),
                                       text(1, QString())}) {
            m_folder.write(QStringLiteral(".left.vep.lock"), left);
            QVERIFY(m_controller->openProject(file, Opening::OnOpening));
            QVERIFY2(!m_controller->isReadOnly() && m_prompts.holders.isEmpty(), left.left(80));
            m_controller->createProject();
            QVERIFY(!QFile::exists(lock));
        }
        // A drive or a synchronised folder may not pass the locks of other computers on.
        m_folder.write(QStringLiteral(".left.vep.lock"), text(47, QStringLiteral("elsewhere")));
        QVERIFY(m_controller->openProject(file, Opening::OnOpening));
        QVERIFY(m_controller->isReadOnly());
        QVERIFY(m_prompts.holders.value(0).contains(QStringLiteral("47) of ")));
        QVERIFY(m_prompts.holders.value(0).contains(lock));
        m_controller->createProject();
        // One that is held is named, whatever it says.
        QFile held(lock);
        QVERIFY(held.open(QIODevice::WriteOnly) && flock(held.handle(), LOCK_EX) == 0);
        QVERIFY(errorOf([&] { m_controller->saveAs(GFileName(file)); }).contains(lock));
        held.close();
        m_controller->saveAs(GFileName(file));
    }

    void aLockThatCanNotBeOpenedIsHeld()
    {
        const QString lock = path("lock");
        const QByteArray name = QFile::encodeName(lock);
        const auto taken = [&] { return FileLock(lock).take(); };
        using Taking = FileLock::Taking;
        QVERIFY(QDir().mkdir(lock) && taken() == Taking::Held && QDir().rmdir(lock));
        QVERIFY(mkfifo(name, 0666) == 0 && taken() == Taking::Held && QFile::remove(lock));
        QVERIFY(symlink("absent", name) == 0 && taken() == Taking::Held && QFile::remove(lock));
        // Nobody can have these.
        QVERIFY(FileLock(path("absent/lock")).take() == Taking::Impossible);
        QVERIFY(FileLock(path(QByteArray(300, 'a'))).take() == Taking::Impossible);
        // What an older version works with stays until it is done.
        const QString removal = lock + QStringLiteral(".rmlock");
        QFile busy(removal);
        QVERIFY(busy.open(QIODevice::WriteOnly) && flock(busy.handle(), LOCK_EX) == 0);
        QVERIFY(taken() == Taking::Done && QFile::exists(removal));
        busy.close();
        QVERIFY(taken() == Taking::Done && !QFile::exists(removal));
        // Where the kernel alone decides, a holder needs no text.
        QFile unseen(lock);
        QVERIFY(unseen.open(QIODevice::WriteOnly) && flock(unseen.handle(), LOCK_EX) == 0);
        QVERIFY(FileLock(lock, FileLock::Rule::Kernel).take() == Taking::Held);
        QVERIFY(QFile::remove(lock));
        // Those of other users can be read, whatever their masks, and are theirs if they can't.
        const auto mask = umask(077);
        FileLock theirs(lock);
        const bool isTaken = theirs.take() == Taking::Done;
        umask(mask);
        QVERIFY(isTaken && (QFile(lock).permissions() & QFile::ReadOther));
        constexpr uid_t nobody = 65534;
        const uid_t user = geteuid();
        QVERIFY(chmod(QFile::encodeName(path("")), 0755) == 0 && chmod(name, 0) == 0);
        QVERIFY(user != 0 || seteuid(nobody) == 0);
        const Taking taking = taken();
        QVERIFY(user != 0 || seteuid(user) == 0);
        QVERIFY(taking == Taking::Held);
    }

    // Some find it abandoned, some find it given up while they open it.
    void aLockHasOneHolder()
    {
        const QString lock = m_folder.write(QStringLiteral("lock"), "1\nx\n");
        std::atomic<int> holders = 0;
        std::atomic<int> most = 0;
        std::atomic<int> taken = 0;
        constexpr int programs = 4;
        std::vector<std::thread> threads;
        threads.reserve(programs);
        for (int i = 0; i < programs; ++i) {
            threads.emplace_back([&] {
                for (int round = 0; round < 500; ++round) {
                    FileLock own(lock);
                    if (own.take() != FileLock::Taking::Done)
                        continue;
                    ++taken;
                    most = std::max(most.load(), ++holders);
                    std::this_thread::yield();
                    --holders;
                }
            });
        }
        for (auto &thread : threads)
            thread.join();
        QCOMPARE(most.load(), 1);
        QVERIFY(taken > 0 && !QFile::exists(lock));
    }

    void aFileThatAnotherProgramChangedIsNotReplaced()
    {
        const GFileName file(path("changed.vep"));
        m_controller->saveAs(file);
        GSettings settings;
        ScriptedPrompts prompts;
        ProjectController other(settings, prompts);
        QVERIFY(other.openProject(file.path(), ProjectController::Lock::OnSaving));
        m_controller->createProject();
        other.saveAs(file); // what this one read is still there
        QVERIFY(m_controller->openProject(file.path(), ProjectController::Lock::OnSaving));
        other.project().lightHeight().setValue(5, QString());
        other.saveAs(file);
        other.createProject();
        const QByteArray theirs = contentOf(file.path());
        QVERIFY(m_controller->isChangedOnDisk(file));
        QVERIFY(!errorOf([&] { m_controller->saveAs(file); }).isEmpty());
        QCOMPARE(contentOf(file.path()), theirs);
        m_controller->saveAs(file, ProjectController::Changed::Replace);
        QVERIFY(contentOf(file.path()) != theirs);
        QFile::remove(file.path());
        m_controller->saveAs(file);
        QVERIFY(QFile::exists(file.path()));
    }

    void aPictureNeverReplacesASourceOfTheProject()
    {
        const QImage picture = QImage(sprite("a.png", {2, 2})).mirrored();
        m_controller->addSprites({path("a.png")});
        const GFileName file(path("p.vep"));
        m_controller->saveAs(file);
        const QByteArray content = contentOf(path("a.png"));
        QVERIFY(errorOf([&] {
                    m_controller->writeImage(picture, path("a.png"));
                }).contains(QStringLiteral("stays as it is")));
        QVERIFY(!errorOf([&] { m_controller->writeImage(picture, file.path()); }).isEmpty());
        QCOMPARE(contentOf(path("a.png")), content);
    }

    void checkingTextures()
    {
        QStringList paths;
        for (const char *name : {"moved.png", "lost.png", "grown.png", "cut.png"})
            paths.append(sprite(name, {2, 2}));
        m_controller->addSprites(paths);
        m_controller->checkTextures();
        QVERIFY(m_prompts.summary.isEmpty());

        const QString moved = path("new/moved.png");
        QVERIFY(QDir().mkpath(path("new")) && QFile::rename(paths[0], moved));
        QFile::remove(paths[1]);
        sprite("grown.png", {3, 5});
        m_folder.write(QStringLiteral("cut.png"), contentOf(paths[3]).chopped(12));
        m_prompts.missingAnswers = {ProjectPrompts::MissingTextures::Search,
                                    ProjectPrompts::MissingTextures::Remove};
        m_prompts.searchFolder = path("new");
        m_prompts.resizedAnswer.action = ResizedAnswer::Action::Clear;
        m_controller->checkTextures();
        QCOMPARE(m_prompts.missing,
                 QStringList({paths[1], paths[3]})); // asked again for what is still missing
        QCOMPARE(m_prompts.resized, QStringList(paths[2]));
        QCOMPARE(m_prompts.summary.join(QLatin1Char('|')),
                 QStringLiteral("Updated file path:\n%1\n-->\n%2|Removed sprite: lost|"
                                "Reset normalmap: grown")
                     .arg(paths[0], moved));
        QCOMPARE(names(), QStringLiteral("moved|grown|cut"));
        QVERIFY(
            m_prompts.told.last().endsWith(QLatin1String("can't be read: the file ends early")));
        const Body &grown = body(1);
        QCOMPARE(grown.paintedNormalMap().angleImage().size(), QSize(3, 5));
        QVERIFY(grown.sprite().statusIcon().isEmpty());
        QVERIFY(stack().isModified());
        stack().undo(); // the surface has the old size again
        QVERIFY(grown.sprite().isWrongSized());
        QCOMPARE(grown.sprite().image().size(), QSize(2, 2));
        stack().undo();
        stack().undo();
        const Sprite &found = body(0).sprite();
        QVERIFY(!found.isLoaded()); // the old path is back
        while (stack().canRedo())
            stack().redo();
        QVERIFY(found.isLoaded() && grown.sprite().statusIcon().isEmpty());
    }

private:
    QString path(const char *name) const { return m_folder.path(QString::fromUtf8(name)); }
    QString sprite(const char *name, const QSize &size) const
    {
        return m_folder.writeSprite(QString::fromUtf8(name), size);
    }
    Body &body(int index) const { return m_controller->project().bodies().at(index); }
    GUndoStack &stack() const { return m_controller->project().undoStack(); }
    QString names() const
    {
        QStringList result;
        for (const Body *body : m_controller->project().bodies().all())
            result.append(body->name().value());
        return result.join(QLatin1Char('|'));
    }

    Folder m_folder;
    GSettings m_settings;
    ScriptedPrompts m_prompts;
    std::unique_ptr<ProjectController> m_controller;
};

QTEST_GUILESS_MAIN(TestProjectController)

#include "tst_ProjectController.moc"
