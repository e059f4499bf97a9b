#include "model/ProjectArchive.h"
#include "model/SaveDevice.h"

#include <QDir>
#include <QProcess>
#include <QRandomGenerator>
#include <QTemporaryDir>
#include <QTest>
#include <QThread>

#include <csignal>
#include <cstdio>
#include <cstring>

#include <sys/resource.h>
#include <sys/stat.h>
#include <unistd.h>

namespace {

QByteArray contentOf(const QString &path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray("unreadable");
}

void put(const QString &path, const QByteArray &content)
{
    QFile file(path);
    QVERIFY(file.open(QIODevice::WriteOnly) && file.write(content) == content.size());
}

QStringList filesIn(const QString &folder)
{
    return QDir(folder).entryList(QDir::AllEntries | QDir::Hidden | QDir::System |
                                  QDir::NoDotAndDotDot);
}

/// A saver whose file has a name from the start, and that may fail at one step.
class TestedDevice : public SaveDevice
{
public:
    static constexpr int never = -1;

    TestedDevice(const QString &path, bool isNamed, int failingStep = never)
        : SaveDevice(path)
        , m_isNamed(isNamed)
        , m_failingStep(failingStep)
    {
    }
    bool hasFailed() const { return m_failingStep != never && m_steps > m_failingStep; }

protected:
    bool allows(Step step) override
    {
        if (step == Step::Nameless)
            return !m_isNamed;
        errno = EIO;
        return m_steps++ != m_failingStep;
    }

private:
    bool m_isNamed;
    int m_failingStep;
    int m_steps = 0;
};

// Several megabytes that tell their @p round at every place.
QByteArray contentOfRound(int round)
{
    return QByteArray(2 << 20, static_cast<char>('a' + round % 26));
}

bool saveProject(SaveDevice &device, const QByteArray &content)
{
    if (!device.open(QIODevice::WriteOnly))
        return false;
    ProjectArchiveWriter archive(device);
    archive.addDirectory(QStringLiteral("datafiles/"));
    archive.addFile(QStringLiteral("datafiles/1"), content);
    archive.addFile(QStringLiteral("datafiles/2"), content);
    return archive.close() && device.commit();
}

// What the killed program does: saves until it is ended.
int saveForEver(const QString &path, int firstRound, bool isNamed)
{
    for (int round = firstRound;; ++round) {
        TestedDevice device(path, isNamed);
        if (!saveProject(device, contentOfRound(round)))
            return 1;
        if (round == firstRound) {
            std::puts("saving");
            std::fflush(stdout);
        }
    }
}

void eitherWay()
{
    QTest::addColumn<bool>("isNamed");
    QTest::newRow("nameless until it is moved") << false;
    QTest::newRow("named from the start") << true;
}

bool isWholeProject(const QString &path)
{
    ProjectArchiveReader reader;
    QString reason;
    if (!reader.open(path, &reason))
        return false;
    const auto first = reader.content(QStringLiteral("datafiles/1"));
    const auto second = reader.content(QStringLiteral("datafiles/2"));
    return first && first == second && first->size() == 2 << 20 &&
           first->count(first->at(0)) == first->size();
}

} // namespace

class TestSaveDevice : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void writesAnywhereAndReplaces();
    void nothingIsLeftWithoutCommit();
    void everyFailureKeepsTheOldFile_data();
    void everyFailureKeepsTheOldFile();
    void fullDiskKeepsTheOldFile();
    void followsLinksAndKeepsTheMode();
    void refusesWhatIsNoFile_data();
    void refusesWhatIsNoFile();
    void removesWhatAKilledSaverLeft();
    void longNames();
    void saversSideBySide_data();
    void saversSideBySide();
    void killedAtAnyMoment_data();
    void killedAtAnyMoment();
};

void TestSaveDevice::writesAnywhereAndReplaces()
{
    const QTemporaryDir folder;
    const QString path = folder.filePath(QStringLiteral("ä b.vep"));
    for (const SaveDevice::Sync sync : {SaveDevice::Sync::Now, SaveDevice::Sync::Later}) {
        SaveDevice device(path, sync);
        QVERIFY(!device.open(QIODevice::ReadWrite));
        QVERIFY(device.open(QIODevice::WriteOnly));
        QCOMPARE(device.write("0123456789"), 10);
        QVERIFY(device.seek(2));
        QCOMPARE(device.write("ab"), 2);
        QCOMPARE(device.pos(), 4);
        QCOMPARE(device.size(), 10);
        // Archive writers close their device, more than once.
        device.close();
        device.close();
        QCOMPARE(device.write("lost"), -1);
        QVERIFY(device.commit());
        QVERIFY(!device.commit());
        QCOMPARE(contentOf(path), QByteArray("01ab456789"));
        QCOMPARE(filesIn(folder.path()), QStringList{QStringLiteral("ä b.vep")});
    }
    QVERIFY(syncFolders({folder.path(), folder.path()}));
    QVERIFY(!syncFolders({folder.path(), folder.filePath(QStringLiteral("missing"))}));
}

void TestSaveDevice::nothingIsLeftWithoutCommit()
{
    const QTemporaryDir folder;
    {
        SaveDevice device(folder.filePath(QStringLiteral("a")));
        QVERIFY(device.open(QIODevice::WriteOnly));
        device.write("half");
    }
    QCOMPARE(filesIn(folder.path()), QStringList());
}

void TestSaveDevice::everyFailureKeepsTheOldFile_data()
{
    QTest::addColumn<QByteArray>("old");
    QTest::addColumn<bool>("isNamed");
    QTest::newRow("over an old file") << QByteArray("old") << false;
    QTest::newRow("a new file") << QByteArray() << false;
    QTest::newRow("over an old file, named") << QByteArray("old") << true;
    QTest::newRow("a new file, named") << QByteArray() << true;
}

void TestSaveDevice::everyFailureKeepsTheOldFile()
{
    QFETCH(QByteArray, old);
    QFETCH(bool, isNamed);
    const QTemporaryDir folder;
    const QString path = folder.filePath(QStringLiteral("a"));
    if (!old.isEmpty())
        put(path, old);
    const QStringList filesBefore = filesIn(folder.path());
    int failures = 0;
    for (bool saved = false; !saved; failures += saved ? 0 : 1) {
        {
            TestedDevice device(path, isNamed, failures);
            saved = saveProject(device, "new");
            QCOMPARE(saved, !device.hasFailed());
            QVERIFY(saved || !device.errorString().isEmpty());
        }
        QVERIFY(saved || filesIn(folder.path()) == filesBefore);
        QVERIFY(saved || old.isEmpty() || contentOf(path) == old);
    }
    // Opening, mode, sync, move, and at least one write for each part of the archive.
    QVERIFY2(failures > 12, qPrintable(QString::number(failures)));
}

void TestSaveDevice::fullDiskKeepsTheOldFile()
{
    const QTemporaryDir folder;
    const QString path = folder.filePath(QStringLiteral("a"));
    put(path, "old");
    struct rlimit before
    {
    };
    QCOMPARE(getrlimit(RLIMIT_FSIZE, &before), 0);
    const auto handler = std::signal(SIGXFSZ, SIG_IGN);
    // The writes that hit the limit are short first and fail then.
    for (const rlim_t size : {1UL, 45UL, 1000UL, 2000000UL, 4000000UL, 4194600UL}) {
        const struct rlimit limit = {size, before.rlim_max};
        QCOMPARE(setrlimit(RLIMIT_FSIZE, &limit), 0);
        SaveDevice device(path);
        const bool saved = saveProject(device, contentOfRound(0));
        const QString error = device.errorString();
        setrlimit(RLIMIT_FSIZE, &before);
        QVERIFY2(!saved && !error.isEmpty(), qPrintable(QString::number(size)));
    }
    std::signal(SIGXFSZ, handler);
    QCOMPARE(contentOf(path), QByteArray("old"));
    QCOMPARE(filesIn(folder.path()), QStringList{QStringLiteral("a")});
}

void TestSaveDevice::followsLinksAndKeepsTheMode()
{
    const QTemporaryDir folder;
    const QDir dir(folder.path());
    QVERIFY(dir.mkdir(QStringLiteral("real")) && dir.mkdir(QStringLiteral("links")));
    const QString path = folder.filePath(QStringLiteral("real/a"));
    const QString inner = folder.filePath(QStringLiteral("links/inner"));
    const QString outer = folder.filePath(QStringLiteral("outer"));
    QCOMPARE(symlink("../real/a", qPrintable(inner)), 0);
    QCOMPARE(symlink("links/inner", qPrintable(outer)), 0);

    // The first save makes the file that the links lead to, the second one replaces it.
    for (const char *content : {"first", "second"}) {
        SaveDevice device(outer);
        QVERIFY2(device.open(QIODevice::WriteOnly), qPrintable(device.errorString()));
        device.write(content);
        QVERIFY(device.commit());
        QCOMPARE(contentOf(path), QByteArray(content));
        QVERIFY(QFileInfo(outer).isSymLink() && QFileInfo(inner).isSymLink());
        struct stat info
        {
        };
        QCOMPARE(stat(qPrintable(path), &info), 0);
        if (qstrcmp(content, "second") == 0)
            QCOMPARE(int(info.st_mode & 07777U), 0640);
        QCOMPARE(chmod(qPrintable(path), 0640), 0);
    }
    QCOMPARE(filesIn(folder.filePath(QStringLiteral("real"))), QStringList{QStringLiteral("a")});

    QCOMPARE(symlink("round", qPrintable(folder.filePath(QStringLiteral("round")))), 0);
    SaveDevice circle(folder.filePath(QStringLiteral("round")));
    QVERIFY(!circle.open(QIODevice::WriteOnly));
}

void TestSaveDevice::refusesWhatIsNoFile_data()
{
    QTest::addColumn<QString>("path");
    QTest::newRow("folder") << QDir::tempPath();
    QTest::newRow("device") << QStringLiteral("/dev/full");
    QTest::newRow("missing folder") << QStringLiteral("/nowhere/at/all/a");
    QTest::newRow("file as a folder")
        << QCoreApplication::applicationFilePath() + QStringLiteral("/a");
    QTest::newRow("no folder to write into") << QStringLiteral("/proc/a");
    QTest::newRow("empty") << QString();
}

void TestSaveDevice::refusesWhatIsNoFile()
{
    QFETCH(QString, path);
    SaveDevice device(path);
    QVERIFY(!device.open(QIODevice::WriteOnly));
    QVERIFY(!device.errorString().isEmpty());
    QVERIFY(!device.commit());
}

void TestSaveDevice::removesWhatAKilledSaverLeft()
{
    const QTemporaryDir folder;
    const QString path = folder.filePath(QStringLiteral("a"));
    put(folder.filePath(QStringLiteral(".a.saving")), "half");
    put(folder.filePath(QStringLiteral(".a.saving2")), "half");
    put(folder.filePath(QStringLiteral(".b.saving")), "of another file");
    SaveDevice device(path);
    QVERIFY(device.open(QIODevice::WriteOnly));
    device.write("new");
    QVERIFY(device.commit());
    QCOMPARE(filesIn(folder.path()),
             (QStringList{QStringLiteral(".b.saving"), QStringLiteral("a")}));
}

void TestSaveDevice::longNames()
{
    const QTemporaryDir folder;
    const QString name(255, QLatin1Char('x'));
    for (int round = 0; round < 2; ++round) {
        SaveDevice device(folder.filePath(name));
        QVERIFY(device.open(QIODevice::WriteOnly));
        QVERIFY2(device.commit(), qPrintable(device.errorString()));
    }
    QCOMPARE(filesIn(folder.path()), QStringList{name});
}

void TestSaveDevice::saversSideBySide_data()
{
    eitherWay();
}

void TestSaveDevice::saversSideBySide()
{
    QFETCH(bool, isNamed);
    const QTemporaryDir folder;
    const QString path = folder.filePath(QStringLiteral("a.vep"));
    constexpr int savers = 4;
    constexpr int rounds = 20;
    std::vector<std::unique_ptr<QThread>> threads;
    std::atomic<int> failures{0};
    for (int saver = 0; saver < savers; ++saver) {
        threads.emplace_back(QThread::create([&] {
            for (int round = 0; round < rounds; ++round) {
                TestedDevice device(path, isNamed);
                failures += saveProject(device, contentOfRound(round)) ? 0 : 1;
            }
        }));
        threads.back()->start();
    }
    for (const auto &thread : threads) {
        while (!thread->wait(1))
            QVERIFY(!QFileInfo::exists(path) || isWholeProject(path));
    }
    QCOMPARE(failures.load(), 0);
    QCOMPARE(filesIn(folder.path()), QStringList{QStringLiteral("a.vep")});
}

void TestSaveDevice::killedAtAnyMoment_data()
{
    eitherWay();
}

void TestSaveDevice::killedAtAnyMoment()
{
    QFETCH(bool, isNamed);
    const QTemporaryDir folder;
    const QString path = folder.filePath(QStringLiteral("a.vep"));
    QRandomGenerator random(4);
    const int kills = isNamed ? 50 : 200;
    for (int kill = 0; kill < kills; ++kill) {
        QProcess saver;
        saver.start(QCoreApplication::applicationFilePath(),
                    {QStringLiteral("--save-for-ever"),
                     path,
                     QString::number(kill),
                     isNamed ? QStringLiteral("named") : QString()});
        QVERIFY(saver.waitForReadyRead(30000));
        QThread::usleep(random.bounded(30000));
        saver.kill();
        QVERIFY(saver.waitForFinished(30000));
        QCOMPARE(saver.exitStatus(), QProcess::CrashExit);
        QVERIFY(isWholeProject(path));
        QStringList files = filesIn(folder.path());
        // The process that moves the file may be a moment behind the program that was killed.
        for (int wait = 0; !isNamed && wait < 100 && files.size() > 1; ++wait) {
            QThread::msleep(5);
            files = filesIn(folder.path());
        }
        // The next round removes it: there is never more than this one.
        if (isNamed)
            files.removeAll(QStringLiteral(".a.vep.saving"));
        QCOMPARE(files, QStringList{QStringLiteral("a.vep")});
    }
    SaveDevice last(path);
    QVERIFY(saveProject(last, contentOfRound(0)));
    QCOMPARE(filesIn(folder.path()), QStringList{QStringLiteral("a.vep")});
}

int main(int argc, char *argv[])
{
    QCoreApplication application(argc, argv);
    const QStringList arguments = QCoreApplication::arguments();
    if (arguments.value(1) == QLatin1String("--save-for-ever"))
        return saveForEver(arguments.value(2),
                           arguments.value(3).toInt(),
                           arguments.value(4) == QLatin1String("named"));
    TestSaveDevice test;
    return QTest::qExec(&test, argc, argv);
}

#include "tst_SaveDevice.moc"
