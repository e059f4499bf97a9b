#include "model/ProjectArchive.h"
#include "model/SaveDevice.h"
#include "support/Documents.h"

#include <QDir>
#include <QProcess>
#include <QRandomGenerator>
#include <QScopeGuard>
#include <QTest>
#include <QThread>

#include <csignal>
#include <cstdio>
#include <cstdlib>
#include <thread>

#include <sys/resource.h>
#include <sys/stat.h>
#include <unistd.h>

namespace {

/// A saver whose file may have a name from the start, and that may fail at one step.
struct TestedDevice : SaveDevice
{
    using SaveDevice::SaveDevice;

    bool allows(Step step) override
    {
        if (step == Step::Nameless)
            return !isNamed;
        if (step == Step::Lock)
            return isLocked;
        errno = EIO;
        return steps++ != failingStep;
    }

    bool isNamed = false;
    bool isLocked = true;
    int failingStep = -1;
    int steps = 0;
};

// An archive of @p size bytes that tells its @p round at every place.
bool saveProject(SaveDevice &device, int round = 0, int size = 2 << 20)
{
    if (!device.open(QIODevice::WriteOnly))
        return false;
    ProjectArchiveWriter archive(device);
    for (const char *name : {"1", "2"})
        archive.addFile(QLatin1String(name), QByteArray(size / 2, char('a' + round % 26)));
    return archive.close() && device.commit();
}

bool isWholeProject(const QString &path)
{
    ProjectArchiveReader reader;
    QString reason;
    if (!reader.open(path, &reason))
        return false;
    const QByteArray first = reader.content(QStringLiteral("1")).value_or("");
    return first == reader.content(QStringLiteral("2")) && first == QByteArray(1 << 20, first[0]);
}

// What the killed program does on threads, one beside the other.
void saveForEver(const QString &path, bool isNamed)
{
    for (int round = 0;; ++round) {
        TestedDevice device(path);
        device.isNamed = isNamed;
        if (!saveProject(device, round))
            std::_Exit(1);
        std::puts("saved");
        std::fflush(stdout);
    }
}

bool save(const QString &path, const QByteArray &content)
{
    SaveDevice device(path);
    return device.open(QIODevice::WriteOnly) && device.write(content) == content.size() &&
           device.commit();
}

} // namespace

class TestSaveDevice : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init() { m_folder = {}; }

    void everyFailureKeepsTheOldFile()
    {
        // With an old file, a name from the start, without locks, with SIGCHLD ignored.
        const auto restore = qScopeGuard([] { std::signal(SIGCHLD, SIG_DFL); });
        for (const int kind : {0, 1, 2, 3, 4, 5, 6, 7, 8}) {
            std::signal(SIGCHLD, kind == 8 ? SIG_IGN : SIG_DFL);
            const bool isOld = kind % 4 < 2;
            init();
            if (isOld)
                m_folder.write(QStringLiteral("a"), "old");
            const QString filesBefore = files();
            int step = 0;
            for (bool saved = false; !saved && step < 1000; ++step) {
                {
                    TestedDevice device(path("a"));
                    device.isNamed = kind % 2;
                    device.isLocked = kind % 8 < 4;
                    device.failingStep = step;
                    saved = saveProject(device, 0, 10);
                    QVERIFY(saved ? device.steps <= step : !device.errorString().isEmpty());
                }
                QVERIFY(saved || files() == filesBefore);
                QVERIFY(saved || contentOf(path("a")) == (isOld ? "old" : ""));
            }
            QCOMPARE(files(), QStringLiteral("a"));
            // Opening, mode, sync, move, and at least one write for each part of the archive.
            QVERIFY2(step > 10 && step < 1000, qPrintable(QString::number(step)));
        }
    }

    void leftFilesGoWithoutLocks()
    {
        const auto left = [&](const char *target, qint64 owner) {
            return QStringLiteral(".%1.saving-%2-%3-%4")
                .arg(QLatin1String(target), QSysInfo::machineHostName().left(64))
                .arg(owner)
                .arg(processStart(owner));
        };
        // Its number is too large for a process.
        const qint64 none = qint64(1) << 32;
        const QStringList gone = {left("a.b", none), left("b", none)};
        const QStringList kept = {left("a", none), left("b", 1)};
        for (const QString &name : gone + kept)
            m_folder.write(name, "x");
        for (const char *name : {"b", "a.b"}) {
            m_folder.write(QLatin1String(name), "old");
            TestedDevice device(path(name));
            device.isLocked = false;
            QVERIFY(saveProject(device, 0, 10));
        }
        for (const QString &name : gone)
            QVERIFY2(!QFile::exists(m_folder.path(name)), qPrintable(name));
        for (const QString &name : kept)
            QVERIFY2(QFile::exists(m_folder.path(name)), qPrintable(name));
    }

    // The writes that hit the limit are short first and fail then.
    void fullDiskKeepsTheOldFile()
    {
        m_folder.write(QStringLiteral("a"), "old");
        rlimit before{};
        QCOMPARE(getrlimit(RLIMIT_FSIZE, &before), 0);
        const auto handler = std::signal(SIGXFSZ, SIG_IGN);
        for (const rlim_t size : {1UL, 45UL, 1000UL, 1000000UL, 2000000UL, 2097329UL}) {
            const rlimit limit = {size, before.rlim_max};
            QCOMPARE(setrlimit(RLIMIT_FSIZE, &limit), 0);
            SaveDevice device(path("a"));
            const bool failed = !saveProject(device) && !device.errorString().isEmpty() &&
                                !save(path("a"), QByteArray(int(size) + 1, 'x'));
            setrlimit(RLIMIT_FSIZE, &before);
            QVERIFY2(failed, qPrintable(QString::number(size)));
        }
        std::signal(SIGXFSZ, handler);
        QVERIFY(contentOf(path("a")) == "old" && files() == QLatin1String("a"));
    }

    void followsLinksAndKeepsTheMode()
    {
        QVERIFY(QDir().mkdir(path("real")) && QDir().mkdir(path("links")));
        QCOMPARE(symlink("../real/a", qPrintable(path("links/inner"))), 0);
        QCOMPARE(symlink("links/inner", qPrintable(path("outer"))), 0);
        QCOMPARE(symlink("round", qPrintable(path("round"))), 0);
        // The first save makes the file that the links lead to, the second one replaces it.
        QVERIFY(save(path("outer"), "first") && contentOf(path("real/a")) == "first");
        QCOMPARE(chmod(qPrintable(path("real/a")), 0640), 0);
        QVERIFY(save(path("outer"), "second") && contentOf(path("real/a")) == "second");
        struct stat info = {};
        QCOMPARE(stat(qPrintable(path("real/a")), &info), 0);
        QCOMPARE(int(info.st_mode & 07777U), 0640);
        QVERIFY(QFileInfo(path("outer")).isSymLink() && QFileInfo(path("links/inner")).isSymLink());
        QVERIFY(!save(path("round"), "x"));
    }

    void killedAtAnyMoment()
    {
        for (int kill = 0; kill < 250; ++kill) {
            const bool isNamed = kill % 2 == 0;
            const QString how = isNamed ? QStringLiteral("named") : QStringLiteral("nameless");
            QProcess saver;
            saver.start(QCoreApplication::applicationFilePath(), {path("a"), how});
            QVERIFY(saver.waitForReadyRead(30000) && isWholeProject(path("a")));
            QThread::usleep(QRandomGenerator::global()->bounded(30000));
            saver.kill();
            QVERIFY(saver.waitForFinished(30000) && saver.exitStatus() == QProcess::CrashExit);
            QVERIFY(isWholeProject(path("a")));
            // What has a name stays until the next save.
            QVERIFY(!isNamed || save(path("a"), "next"));
            // The processes that move files may be a moment behind the program that was killed.
            int waits = 0;
            while (files() != QLatin1String("a") && ++waits < 1000)
                QThread::msleep(5);
            QVERIFY2(waits < 1000, qPrintable(files()));
        }
    }

private:
    QString path(const char *name) const { return m_folder.path(QLatin1String(name)); }
    QString files() const
    {
        const auto all = QDir::AllEntries | QDir::Hidden | QDir::System | QDir::NoDotAndDotDot;
        return QDir(path("")).entryList(all).join(QLatin1Char(' '));
    }

    Folder m_folder;
};

int main(int argc, char *argv[])
{
    const QCoreApplication application(argc, argv);
    const QStringList arguments = QCoreApplication::arguments();
    const bool isNamed = arguments.value(2) == QLatin1String("named");
    if (isNamed || arguments.value(2) == QLatin1String("nameless")) {
        for (int i = 0; i < 3; ++i)
            std::thread(saveForEver, arguments[1], isNamed).detach();
        saveForEver(arguments[1], isNamed);
    }
    TestSaveDevice test;
    return QTest::qExec(&test, argc, argv);
}

#include "tst_SaveDevice.moc"
