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

/// Fails at one step of a save, and at the same kind of step never again.
class FaultyDevice : public SaveDevice
{
public:
    FaultyDevice(const QString &path, int failingStep)
        : SaveDevice(path)
        , m_left(failingStep)
    {
    }
    bool hasFailed() const { return m_left < 0; }

protected:
    bool allows(Step) override
    {
        errno = EIO;
        return m_left-- != 0;
    }

private:
    int m_left;
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
int saveForEver(const QString &path, int firstRound)
{
    for (int round = firstRound;; ++round) {
        SaveDevice device(path);
        if (!saveProject(device, contentOfRound(round)))
            return 1;
        if (round == firstRound) {
            std::puts("saving");
            std::fflush(stdout);
        }
    }
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
    void saversSideBySide();
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
    QVERIFY(syncFolder(folder.path()));
    QVERIFY(!syncFolder(folder.filePath(QStringLiteral("missing"))));
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
    QTest::newRow("over an old file") << QByteArray("old");
    QTest::newRow("a new file") << QByteArray();
}

void TestSaveDevice::everyFailureKeepsTheOldFile()
{
    QFETCH(QByteArray, old);
    const QTemporaryDir folder;
    const QString path = folder.filePath(QStringLiteral("a"));
    if (!old.isEmpty())
        put(path, old);
    const QStringList filesBefore = filesIn(folder.path());
    int failures = 0;
    for (int step = 0;; ++step) {
        FaultyDevice device(path, step);
        const bool saved = saveProject(device, "new");
        QCOMPARE(saved, !device.hasFailed());
        if (saved)
            break;
        ++failures;
        QVERIFY(!device.errorString().isEmpty());
        QCOMPARE(filesIn(folder.path()), filesBefore);
        if (!old.isEmpty())
            QCOMPARE(contentOf(path), old);
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

void TestSaveDevice::saversSideBySide()
{
    const QTemporaryDir folder;
    const QString path = folder.filePath(QStringLiteral("a.vep"));
    constexpr int savers = 4;
    constexpr int rounds = 40;
    std::vector<std::unique_ptr<QThread>> threads;
    std::atomic<int> failures{0};
    for (int saver = 0; saver < savers; ++saver) {
        threads.emplace_back(QThread::create([&] {
            for (int round = 0; round < rounds; ++round) {
                SaveDevice device(path, SaveDevice::Sync::Later);
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

void TestSaveDevice::killedAtAnyMoment()
{
    const QTemporaryDir folder;
    const QString path = folder.filePath(QStringLiteral("a.vep"));
    QRandomGenerator random(4);
    constexpr int kills = 200;
    for (int kill = 0; kill < kills; ++kill) {
        QProcess saver;
        saver.start(QCoreApplication::applicationFilePath(),
                    {QStringLiteral("--save-for-ever"), path, QString::number(kill)});
        QVERIFY(saver.waitForReadyRead(30000));
        QThread::usleep(random.bounded(30000));
        saver.kill();
        QVERIFY(saver.waitForFinished(30000));
        QCOMPARE(saver.exitStatus(), QProcess::CrashExit);
        QVERIFY(isWholeProject(path));
        QStringList files = filesIn(folder.path());
        // The process that moves the file may be a moment behind the program that was killed.
        for (int wait = 0; wait < 100 && files.size() > 1; ++wait) {
            QThread::msleep(5);
            files = filesIn(folder.path());
        }
        QCOMPARE(files, QStringList{QStringLiteral("a.vep")});
    }
}

int main(int argc, char *argv[])
{
    QCoreApplication application(argc, argv);
    const QStringList arguments = QCoreApplication::arguments();
    if (arguments.value(1) == QLatin1String("--save-for-ever"))
        return saveForEver(arguments.value(2), arguments.value(3).toInt());
    TestSaveDevice test;
    return QTest::qExec(&test, argc, argv);
}

#include "tst_SaveDevice.moc"
