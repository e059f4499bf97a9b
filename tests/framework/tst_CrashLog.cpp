#include "base/GLogger.h"
#include "framework/CrashHandler.h"
#include "framework/CrashLog.h"
#include "framework/CrashReportDialog.h"
#include "imaging/PoolTask.h"
#include "support/DialogScript.h"
#include "support/Documents.h"
#include "support/Widgets.h"

#include <QApplication>
#include <QClipboard>
#include <QDir>
#include <QPlainTextEdit>
#include <QProcess>
#include <QTest>

#ifdef Q_OS_UNIX
#include <sys/mman.h>
#include <sys/resource.h>

#include <csignal>
#endif

// What fails in the child, to be found by name in its report. A null pointer a sanitizer would find
// before it is used.
int *volatile nowhere = reinterpret_cast<int *>(64); // NOLINT(performance-no-int-to-ptr)
volatile int depth = 0;

Q_NEVER_INLINE int stopItself()
{
    std::abort();
}

Q_NEVER_INLINE int writeNowhere()
{
    *nowhere = 1;
    return depth;
}

// NOLINTNEXTLINE(misc-no-recursion): until there is no room left
Q_NEVER_INLINE int callForEver(const int *former)
{
    volatile int room[1000] = {}; // NOLINT(*-avoid-c-arrays)
    room[0] = *former + 1;
    depth = room[0];
    int mine = room[0];
    return depth < 0 ? 0 : callForEver(&mine) + room[0] + mine;
}

int overflow()
{
    int none = 0;
    return callForEver(&none);
}

namespace {

constexpr int logged = 250;

// The handler's own reading of the log faults.
int spoilTheReport()
{
    const auto begin = quintptr(&GLogger::lastLines()) / 4096 * 4096;
    mprotect(
        reinterpret_cast<void *>(begin), 65536, PROT_NONE); // NOLINT(performance-no-int-to-ptr)
    return writeNowhere();
}

int crash(const QByteArray &kind)
{
    int (*const fail)() = kind.contains("abort")      ? stopItself
                          : kind.contains("overflow") ? overflow
                          : kind.contains("spoilt")   ? spoilTheReport
                                                      : writeNowhere;
    if (!kind.startsWith("pool"))
        return fail();
    setPoolThreadPrologue(CrashHandler::prepareThread);
    return PoolTask<int>(fail).take();
}

/// The program as a child that fails, without an application object.
int runChild(const QByteArray &kind, const QString &folder)
{
    const rlimit none{0, 0};
    setrlimit(RLIMIT_CORE, &none);
    QCoreApplication::setApplicationName("Child"_s);
    QCoreApplication::setApplicationVersion("1.2.3"_s);
    GLogger::install();
    CrashLog::install(folder);
    CrashHandler::setGraphics("Renderer: a slow one");
    for (int i = 0; i < logged; ++i)
        qInfo("line %d.", i);
    return crash(kind);
}

} // namespace

class TestCrashLog : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void namesTheFunction_data()
    {
        QTest::addColumn<int>("signal");
        QTest::addColumn<QString>("function");
        QTest::newRow("abort") << SIGABRT << "stopItself()";
        QTest::newRow("write") << SIGSEGV << "writeNowhere()";
        QTest::newRow("overflow") << SIGSEGV << "callForEver(int const*)";
        QTest::newRow("pool-abort") << SIGABRT << "stopItself()";
        QTest::newRow("pool-write") << SIGSEGV << "writeNowhere()";
        QTest::newRow("pool-overflow") << SIGSEGV << "callForEver(int const*)";
        // The report breaks off, and the program ends all the same.
        QTest::newRow("spoilt") << SIGSEGV << "";
    }

    void namesTheFunction()
    {
        if (!CrashHandler::isSupported())
            QSKIP("There are no crash reports on this system");
        QFETCH(int, signal);
        QFETCH(QString, function);
        QProcess child;
        child.start(
            QCoreApplication::applicationFilePath(),
            {"--crash"_s, QString::fromLatin1(QTest::currentDataTag()), m_folder.path(QString())});
        QVERIFY(child.waitForFinished(60000));
        QCOMPARE(child.exitStatus(), QProcess::CrashExit);
        QCOMPARE(child.exitCode(), signal);
        const auto report = CrashLog::takeUnread(m_folder.path(QString()));
        QVERIFY(report);
        const QString &text = report->text;
        for (const QString &part : {QStringLiteral("Child 1.2.3\nQt " QT_VERSION_STR),
                                    "\nSignal: %1 SIG"_s.arg(signal),
                                    "Renderer: a slow one"_s})
            QVERIFY2(text.contains(part), qPrintable(text));
        QVERIFY(qAbs(report->time.secsTo(QDateTime::currentDateTime())) < 60);
        QVERIFY(!CrashLog::explain(*report).isEmpty());
        QVERIFY(!CrashLog::takeUnread(m_folder.path(QString()))); // once
        QCOMPARE(CrashLog::lastTaken(m_folder.path(QString()))->text, report->text);
        if (function.isEmpty())
            return;
        QVERIFY2(text.section("Backtrace:"_s, 1).contains(function), qPrintable(text));
        int found = 0;
        for (int i = 0; i < logged; ++i)
            found += text.count("info: line %1.\n"_s.arg(i));
        QCOMPARE(found, 200);
        QVERIFY(text.contains("line %1.\n"_s.arg(logged - 1)));
    }

    void keepsTheNewestReports()
    {
        for (int i = 0; i < 9; ++i) {
            QFile file(m_folder.write("many/fault-%1.new.txt"_s.arg(i), "Signal: 6"));
            QVERIFY(file.open(QIODevice::ReadWrite));
            file.setFileTime(QDateTime::currentDateTime().addSecs(i - 100),
                             QFileDevice::FileModificationTime);
        }
        const QString folder = m_folder.path("many"_s);
        QProcess::execute(QCoreApplication::applicationFilePath(),
                          {"--crash"_s, "abort"_s, folder});
        const auto newest = CrashLog::takeUnread(folder);
        QVERIFY(newest && newest->text.contains("stopItself"_s));
        QStringList names = QDir(folder).entryList(QDir::Files, QDir::Time | QDir::Reversed);
        names.removeLast();
        QStringList expected;
        for (int i = 9 - CrashLog::kept; i < 9; ++i)
            expected.append("fault-%1.txt"_s.arg(i));
        QCOMPARE(names, expected);
    }

    void theNextStartShowsTheReportOnce()
    {
        qputenv("XDG_DATA_HOME", m_folder.path(QString()).toLocal8Bit());
        QFile file(QDir(CrashLog::folder()).filePath("fault-1.new.txt"_s));
        QVERIFY(QDir().mkpath(CrashLog::folder()) && file.open(QIODevice::WriteOnly));
        file.write("Signal: 11 SIGSEGV\nprogram(_Z12writeNowherev+0x1)");
        file.close();
        DialogScript script;
        script.then([](QWidget &dialog) {
            DialogScript::click("Copy"_s)(dialog);
            DialogScript::click("Close"_s)(dialog);
        });
        CrashReportDialog::showLast(nullptr);
        CrashReportDialog::showLast(nullptr);
        QVERIFY(script.isDone());
        QCOMPARE(QGuiApplication::clipboard()->text(),
                 "Signal: 11 SIGSEGV\nprogram(writeNowhere()+0x1)"_s);
    }

private:
    Folder m_folder;
};

int main(int argc, char **argv)
{
    if (argc == 4 && qstrcmp(argv[1], "--crash") == 0)
        return runChild(argv[2], QFile::decodeName(argv[3]));
    const QApplication application(argc, argv);
    TestCrashLog test;
    return QTest::qExec(&test, argc, argv);
}

#include "tst_CrashLog.moc"
