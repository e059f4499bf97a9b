#include "base/Resources.h"
#include "model/Body.h"
#include "model/DataModelWriter.h"
#include "model/Project.h"
#include "model/PropertyAngleImage.h"
#include "model/RecoveryStore.h"
#include "model/properties/PropertyT.h"
#include "support/Documents.h"
#include "support/Program.h"
#include "support/Snapshots.h"
#include "ui/MainWindow.h"
#include "ui/ProjectRecovery.h"
#include "ui/VesperineApplication.h"

#include <QDir>
#include <QProcess>
#include <QTest>

#include <csignal>
#include <cstdio>

namespace {
MainWindow &window()
{
    const auto widgets = QApplication::topLevelWidgets();
    for (QWidget *widget : widgets) {
        if (auto *found = qobject_cast<MainWindow *>(widget))
            return *found;
    }
    qFatal("No window");
}

void paint(Project &project)
{
    project.bodies().all().first()->paintedNormalMap().setAngleImage(noise(8, 5),
                                                                     QStringLiteral("paint"));
}

// The editor with a project that is changed, or was, until it is told to end.
int work(int argc, char **argv)
{
    const QByteArray how = argv[1];
    char *arguments[] = {argv[0], argv[2], nullptr};
    int count = argc - 1;
    initialiseResources();
    VesperineApplication::prepare();
    VesperineApplication application(count, arguments);
    QTimer::singleShot(0, &application, [&] {
        paint(window().project());
        window().recovery().takeSnapshot();
        if (how == "undone")
            window().project().undoStack().undo();
        else
            window().project().lightHeight().setValue(77); // not in that snapshot
        std::puts("ready");
        std::fflush(stdout);
        if (how == "asked")
            window().close();
    });
    return application.run();
}
} // namespace

/// What is asked to end ends in order, and what was not saved is there at the next start.
class TestTerminationSignals : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void unsavedWorkIsKept_data()
    {
        QTest::addColumn<int>("signal");
        QTest::addColumn<QString>("how");
        QTest::newRow("terminal closed") << SIGHUP << QStringLiteral("painted");
        QTest::newRow("interrupted") << SIGINT << QStringLiteral("undone");
        QTest::newRow("terminated while asking") << SIGTERM << QStringLiteral("asked");
    }

    void unsavedWorkIsKept()
    {
        QFETCH(int, signal);
        QFETCH(QString, how);
        const Folder folder;
        Project project;
        addBody(project, QStringLiteral("a"), folder.writeSprite(QStringLiteral("a.png"), {8, 8}));
        project.filename().setValue(GFileName(folder.path(QStringLiteral("p.vep"))));
        DataModelWriter(project).write();

        QProcess program;
        program.setProcessEnvironment(Program({}, folder.path({})).environment);
        program.setProcessChannelMode(QProcess::ForwardedErrorChannel);
        program.start(QCoreApplication::applicationFilePath(),
                      {how, folder.path(QStringLiteral("p.vep"))});
        QVERIFY(program.waitForReadyRead());
        const QString lock = folder.path(QStringLiteral(".p.vep.lock"));
        QVERIFY(QFile::exists(lock));
        ::kill(pid_t(program.processId()), signal);
        QVERIFY(program.waitForFinished());
        QCOMPARE(program.exitStatus(), QProcess::NormalExit);
        QCOMPARE(program.exitCode(), 128 + signal);
        QVERIFY(!QFile::exists(lock));

        const QString root = folder.path(QStringLiteral("data/Vesperine/Vesperine/recovery"));
        const auto entries = RecoveryStore(root).takeLeftOvers(QDateTime::currentDateTimeUtc());
        QCOMPARE(entries.size(), std::size_t(how != QLatin1String("undone")));
        if (entries.empty())
            return;
        paint(project);
        project.lightHeight().setValue(77);
        QCOMPARE(fingerprintOf(entries[0]), fingerprintOf(project));
    }
};

int main(int argc, char **argv)
{
    if (argc == 3 && QFile::exists(QFile::decodeName(argv[2])))
        return work(argc, argv);
    const QCoreApplication application(argc, argv);
    TestTerminationSignals test;
    return QTest::qExec(&test, argc, argv);
}

#include "tst_TerminationSignals.moc"
