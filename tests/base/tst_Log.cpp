#include "base/GLogger.h"
#include "base/LogFile.h"
#include "base/LogRing.h"
#include "support/Widgets.h"

#include <QDir>
#include <QTemporaryDir>
#include <QTest>

#include <array>
#include <thread>
#include <vector>

namespace {
// Tells by itself whether it is whole: one letter, as often as its place in the alphabet tells.
std::string lineOf(int index)
{
    return std::string(std::size_t(index % 26) * 19 + 1, char('a' + index % 26));
}

bool isWhole(const std::string &line)
{
    return !line.empty() && line.front() >= 'a' && line == lineOf(line.front() - 'a');
}
} // namespace

class TestLog : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void linesAreReadWholeWhileOthersAreWritten()
    {
        const auto ring = std::make_unique<LogRing>();
        constexpr std::uint32_t count = 20000;
        std::thread writer([&ring] {
            for (std::uint32_t i = 0; i < count; ++i) {
                const std::string line = lineOf(int(i));
                ring->add(line.data(), line.size());
            }
        });
        int torn = 0;
        std::uint32_t end = 0;
        std::array<char, LogRing::lineBytes> line{};
        while (end < count) {
            end = ring->count();
            for (std::uint32_t i = end - std::min(end, LogRing::lines); i != end; ++i) {
                const std::size_t size = ring->read(i, line.data());
                const std::string text(line.data(), size);
                torn += int(size > 0 && text != lineOf(int(i)));
            }
        }
        writer.join();
        QCOMPARE(torn, 0);
        QVERIFY(ring->read(count - LogRing::lines, line.data()) > 0);
        QVERIFY(ring->read(count - LogRing::lines - 1, line.data()) == 0);
        const std::string tooLong(LogRing::lineBytes + 9, 'x');
        ring->add(tooLong.data(), tooLong.size());
        QCOMPARE(ring->read(count, line.data()), LogRing::lineBytes);
    }

    void theFileIsBoundedAndItsLinesAreWhole()
    {
        const QTemporaryDir folder;
        const QString place = folder.filePath("to/be/made"_s);
        GLogger::setVerbosity(0);
        GLogger::install();
        GLogger::keepIn(place);
        std::vector<std::thread> threads(4);
        for (std::thread &thread : threads) {
            thread = std::thread([] {
                for (int i = 0; i < 3000; ++i)
                    qInfo("%s", lineOf(i).c_str());
            });
        }
        for (std::thread &thread : threads)
            thread.join();
        qInstallMessageHandler(nullptr);

        const QFileInfoList files = QDir(place).entryInfoList(QDir::Files);
        QCOMPARE(files.size(), 2);
        for (const QFileInfo &info : files) {
            QVERIFY(info.size() <= LogFile::limit);
            QFile file(info.filePath());
            QVERIFY(file.open(QIODevice::ReadOnly));
            while (!file.atEnd()) {
                const QByteArray line = file.readLine();
                QVERIFY2(isWhole(line.mid(line.lastIndexOf(' ') + 1).trimmed().toStdString()),
                         line.constData());
            }
        }
    }

    void whatCantBeWrittenIsLost()
    {
        LogFile log;
        log.write("before it is open\n");
        log.open("/proc/nowhere"_s);
        log.write("where no file can be\n");
        QVERIFY(!QFile::exists(LogFile::nameIn("/proc/nowhere"_s)));
    }
};

QTEST_GUILESS_MAIN(TestLog)
#include "tst_Log.moc"
