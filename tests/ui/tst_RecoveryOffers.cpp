#include "model/Body.h"
#include "model/Project.h"
#include "model/PropertyAngleImage.h"
#include "model/RecoveryStore.h"
#include "support/DialogScript.h"
#include "support/Snapshots.h"
#include "support/Widgets.h"
#include "support/WindowTest.h"
#include "ui/MainWindow.h"
#include "ui/ProjectRecovery.h"

#include <QDir>
#include <QListWidget>
#include <QTimer>

namespace {
QDateTime now()
{
    return QDateTime::currentDateTimeUtc();
}

// As the program does, with the files that it was given.
std::unique_ptr<MainWindow> start(const QStringList &paths)
{
    auto window = std::make_unique<MainWindow>(application());
    showActive(*window);
    window->recovery().offer();
    window->openNamed(paths);
    return window;
}

// What a program that works on the project of @p path leaves when it ends without being closed.
QByteArray leaveSnapshot(const QString &path)
{
    MainWindow window(application());
    if (!window.openPath(path))
        return {};
    Body &body = *window.project().bodies().all().first();
    body.paintedNormalMap().setAngleImage(noise(40, 77), "paint"_s);
    const QByteArray kept = fingerprintOf(window.project());
    window.recovery().takeSnapshot();
    const auto &writer = window.recovery().writer();
    return QTest::qWaitFor([&writer] { return !writer.isBusy(); }) ? kept : QByteArray();
}
} // namespace

/// What a former run left, as the start offers it.
class TestRecoveryOffers : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init()
    {
        m_folder = Folder();
        makeHome(m_folder);
    }

    void whatIsRecoveredIsModifiedAndStaysUntilSaved()
    {
        const QString path = m_folder.path("p.vep"_s);
        writeProject(m_folder, path, 2, 40);
        const QByteArray saved = contentOf(path);
        const QByteArray kept = leaveSnapshot(path);
        QVERIFY(!kept.isEmpty() && kept != fingerprintOf(path));

        // One that can't be read stays beside it; another is deleted; left for later, then
        // recovered.
        m_folder.write("data/Vesperine/Vesperine/recovery/broken/index"_s, "?");
        m_folder.write("data/Vesperine/Vesperine/recovery/worse/index"_s, "?");
        auto window = std::make_unique<MainWindow>(application());
        showActive(*window);
        DialogScript script;
        script.then([](QWidget &dialog) {
            dialog.findChild<QListWidget *>()->setCurrentRow(1);
            QTimer::singleShot(
                0, &dialog, [&dialog] { DialogScript::click("Delete..."_s)(dialog); });
        });
        script.then(DialogScript::click("Delete"_s)).then([](QWidget &dialog) {
            QCOMPARE(dialog.findChild<QListWidget *>()->count(), 2);
            QVERIFY(showsText(dialog, "The next start offers the others."_s));
            DialogScript::click("Later"_s)(dialog);
        });
        window->recovery().offer();
        script.then(DialogScript::click("Recover"_s));
        window->recovery().offer();
        QVERIFY(script.isDone());
        QCOMPARE(fingerprintOf(window->project()), kept);
        QVERIFY(window->isWindowModified());
        QVERIFY(window->windowTitle().startsWith("p.vep"_s));
        QCOMPARE(contentOf(path), saved);

        // A second end of that kind loses nothing either.
        window.reset();
        window = std::make_unique<MainWindow>(application());
        showActive(*window);
        script.then([](QWidget &dialog) {
            QVERIFY(showsText(dialog, "ended while recovering"_s));
            DialogScript::click("Recover"_s)(dialog);
        });
        window->recovery().offer();
        QCOMPARE(fingerprintOf(window->project()), kept);
        QVERIFY(window->save());
        QTRY_VERIFY(!window->recovery().writer().isBusy());
        window.reset();
        QCOMPARE(fingerprintOf(path), kept);
        const auto rest = RecoveryStore(ProjectRecovery::root()).takeLeftOvers(now());
        QVERIFY(rest.size() == 1 && !rest[0].index);
        QVERIFY(script.isDone());
    }

    // By hand, and no crash: it is offered once more, then it is gone.
    void whatIsGivenUpIsOfferedOnceMore()
    {
        const QString path = m_folder.path("p.vep"_s);
        writeProject(m_folder, path, 1, 40);
        DialogScript script;
        for (const bool isReplaced : {false, true}) {
            const QByteArray kept = leaveSnapshot(path);
            script.then(DialogScript::click("Recover"_s));
            auto window = start({path});
            QCOMPARE(fingerprintOf(window->project()), kept);
            script.then(DialogScript::click("Discard"_s));
            if (isReplaced)
                window->newDocument();
            else
                window->close();
            QVERIFY(script.seen().last().endsWith("offers it for the last time."_s));

            // A crash meanwhile makes it what it was.
            script.then(DialogScript::click("Recover"_s));
            window.reset();
            window = start({});
            QCOMPARE(fingerprintOf(window->project()), kept);
            script.then([](QWidget &dialog) {
                QVERIFY(showsText(dialog, "The program ended unexpectedly."_s));
                QTimer::singleShot(
                    0, &dialog, [&dialog] { DialogScript::click("Delete..."_s)(dialog); });
            });
            script.then(DialogScript::click("Delete"_s));
            window.reset();
            window = start({path});
            QVERIFY(!window->isWindowModified());
            script.then([](QWidget &dialog) {
                QVERIFY(showsText(dialog, "You gave up this unsaved work."_s));
                DialogScript::click("Don't recover"_s)(dialog);
            });
            window.reset();
            window = start({path});
            QVERIFY(script.isDone());
            QVERIFY(RecoveryStore(ProjectRecovery::root()).takeLeftOvers(now()).empty());
        }
    }

    // The user wanted it back: it is not the last offer, and the days begin anew.
    void whatFailsToBeRecoveredIsKept()
    {
        const QString path = m_folder.path("p.vep"_s);
        writeProject(m_folder, path, 1, 40);
        leaveSnapshot(path);
        leaveSnapshot(path);
        for (const auto &entry : RecoveryStore(ProjectRecovery::root()).takeLeftOvers(now()))
            entry.folder->setMark(RecoveryFolder::Mark::GivenUp);
        auto entries = RecoveryStore(ProjectRecovery::root()).takeLeftOvers(now());
        QCOMPARE(entries.size(), std::size_t(2));
        RecoveryIndex broken = *entries[0].index;
        broken.xml = "<other/>";
        broken.time = now().addDays(-30);
        m_folder.write(QDir(m_folder.path({})).relativeFilePath(entries[0].folder->indexPath()),
                       broken.toBytes());
        QVERIFY(entries[0].folder->setMark(RecoveryFolder::Mark::Shown));
        QFile shown(entries[0].folder->filePath("shown"_s));
        QVERIFY(shown.open(QIODevice::ReadWrite));
        QVERIFY(shown.setFileTime(broken.time, QFileDevice::FileModificationTime));
        entries.clear();

        DialogScript script;
        script.then([](QWidget &dialog) {
            QVERIFY(showsText(dialog, "You gave up this unsaved work:"_s));
            QVERIFY(showsText(dialog, "If you recover one, the next start offers the others."_s));
            QVERIFY(showsText(dialog, "Don't recover removes all of it."_s));
            dialog.findChild<QListWidget *>()->setCurrentRow(1);
            DialogScript::click("Recover"_s)(dialog);
        });
        script.then(DialogScript::click("OK"_s)).then([](QWidget &dialog) {
            QVERIFY(showsText(dialog, "The program ended unexpectedly."_s));
            QVERIFY(showsText(dialog, "Later removes what you gave up."_s));
            DialogScript::click("Later"_s)(dialog);
        });
        auto window = start({});
        QVERIFY(script.isDone());
        window.reset();
        const auto kept = RecoveryStore(ProjectRecovery::root()).takeLeftOvers(now().addDays(6));
        QCOMPARE(kept.size(), std::size_t(1));
        QCOMPARE(kept[0].index->xml, broken.xml);
        QVERIFY(!kept[0].folder->hasMark(RecoveryFolder::Mark::GivenUp));
    }

private:
    Folder m_folder;
};

int main(int argc, char **argv)
{
    return runWindowTest<TestRecoveryOffers>(argc, argv);
}

#include "tst_RecoveryOffers.moc"
