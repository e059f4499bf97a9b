#include "model/Inflation.h"
#include "model/ProjectArchive.h"
#include "model/SaveDevice.h"
#include "support/ArchiveBuilder.h"

#include <QBuffer>
#include <QElapsedTimer>
#include <QFile>
#include <QTemporaryDir>
#include <QTest>

#include <functional>
#include <random>

#include <sys/stat.h>

using Change = std::function<void(BuiltArchive &)>;
Q_DECLARE_METATYPE(Change)

namespace {

const QByteArray xml = "<vesperine_project>\n    <bodies/>\n</vesperine_project>\n";

/// Counts what is written and keeps nothing.
class CountingDevice : public QIODevice
{
public:
    qint64 size() const override { return m_size; }

protected:
    qint64 readData(char *, qint64) override { return -1; }
    qint64 writeData(const char *, qint64 length) override
    {
        m_size = std::max(m_size, pos() + length);
        return length;
    }

private:
    qint64 m_size = 0;
};

// A small project as the program saves it.
QByteArray smallProject()
{
    QByteArray surface(20000, '\0');
    for (int i = 0; i < surface.size(); ++i)
        surface[i] = static_cast<char>((i / 7) * (i % 13));
    QByteArray bytes;
    QBuffer buffer(&bytes);
    buffer.open(QIODevice::WriteOnly);
    ProjectArchiveWriter writer(buffer);
    writer.addDirectory(QStringLiteral("datafiles/"));
    writer.addFile(QStringLiteral("project.vexml"), xml);
    writer.addFile(QStringLiteral("datafiles/9f"), qCompress(surface));
    writer.addFile(QStringLiteral("datafiles/empty"), qCompress(QByteArray()));
    return writer.close() ? bytes : QByteArray();
}

} // namespace

class TestProjectArchive : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void readsWhatItWrites();
    void readsWhatOthersWrite_data();
    void readsWhatOthersWrite();
    void manyEntries();
    void writerRefusesWhatTheFormatCannotHold();
    void writerStopsAtFourGigabytes();
    void readsRegularFilesOnly();
    void fileChangedAfterTheCheck();
    void unpacking_data();
    void unpacking();
    void mutationsAreFoundOut();
};

void TestProjectArchive::readsWhatItWrites()
{
    const QTemporaryDir folder;
    const QString path = folder.filePath(QStringLiteral("a.vep"));
    const QByteArray noise = smallProject();
    SaveDevice device(path);
    QVERIFY(device.open(QIODevice::WriteOnly));
    ProjectArchiveWriter writer(device);
    QVERIFY(writer.addDirectory(QStringLiteral("datafiles/")));
    QVERIFY(writer.addFile(QStringLiteral("project.vexml"), xml));
    QVERIFY(writer.addFile(QStringLiteral("datafiles/ä 🦊"), noise));
    QVERIFY(writer.addFile(QStringLiteral("datafiles/empty"), {}));
    QVERIFY(writer.close() && device.commit());

    ProjectArchiveReader reader;
    QString reason;
    QVERIFY2(reader.open(path, &reason), qPrintable(reason));
    QCOMPARE(reader.entryNames(),
             (QStringList{QStringLiteral("datafiles/"),
                          QStringLiteral("project.vexml"),
                          QStringLiteral("datafiles/ä 🦊"),
                          QStringLiteral("datafiles/empty")}));
    QCOMPARE(reader.content(QStringLiteral("project.vexml")).value_or("none"), xml);
    QCOMPARE(reader.content(QStringLiteral("datafiles/ä 🦊")).value_or("none"), noise);
    QCOMPARE(reader.content(QStringLiteral("datafiles/empty")).value_or("none"), QByteArray());
    QVERIFY(!reader.content(QStringLiteral("datafiles/missing")));

    // Stored, in this order, with these modes: other programs read them as well.
    QFile file(path);
    QVERIFY(file.open(QIODevice::ReadOnly));
    const QByteArray bytes = file.readAll();
    QVERIFY(bytes.contains(xml) && bytes.contains(noise));
    const int directoryAt = bytes.indexOf("PK\x01\x02");
    const auto modeOf = [&bytes](int headerAt) {
        return static_cast<uchar>(bytes.at(headerAt + 40)) + 256 * uchar(bytes.at(headerAt + 41));
    };
    // The toolkit's writer drops the third permission of the folder.
    QCOMPARE(modeOf(directoryAt) & ~0100, 0040600);
    QCOMPARE(modeOf(bytes.indexOf("PK\x01\x02", directoryAt + 1)), 0100600);
}

void TestProjectArchive::readsWhatOthersWrite_data()
{
    QTest::addColumn<Change>("change");
    QTest::addColumn<QString>("name");
    QTest::addColumn<QByteArray>("content");

    const auto adds = [](const char *row, const BuiltEntry &entry, const QString &name) {
        const QByteArray content = "gold gold gold gold gold";
        QTest::newRow(row) << Change([entry](BuiltArchive &archive) { archive.add(entry); }) << name
                           << content;
    };
    const QByteArray gold = "gold gold gold gold gold";
    const QString name = QStringLiteral("gold");
    adds("stored", storedEntry("gold", gold), name);
    adds("deflated", deflatedEntry("gold", gold), name);
    adds("streamed", streamedEntry("gold", gold, true), name);
    adds("streamed without signature", streamedEntry("gold", gold, false), name);
    adds("dots before the name", storedEntry("./gold", gold), name);
    adds("UTF-8 without its mark", storedEntry("g\xc3\xb6ld", gold), QStringLiteral("göld"));
    adds("old encoding", storedEntry("g\xf6ld", gold), QStringLiteral("göld"));
    BuiltEntry entry = storedEntry("gold", gold);
    entry.localExtra = QByteArray::fromHex("5554010000");
    entry.madeBy = 0;
    entry.attributes = 0x20;
    adds("made on another system, extra field", entry, name);
    QTest::newRow("comment") << Change([&](BuiltArchive &archive) { archive.comment = "hello"; })
                             << QStringLiteral("datafiles/1") << QByteArray("content");
    QTest::newRow("gap before") << Change([](BuiltArchive &archive) { archive.before = "#!"; })
                                << QStringLiteral("datafiles/1") << QByteArray("content");
}

void TestProjectArchive::readsWhatOthersWrite()
{
    QFETCH(Change, change);
    QFETCH(QString, name);
    QFETCH(QByteArray, content);
    BuiltArchive archive = soundArchive();
    change(archive);
    ProjectArchiveReader reader;
    QString reason;
    QVERIFY2(openBytes(&reader, archive.bytes(), &reason), qPrintable(reason));
    QCOMPARE(reader.content(name).value_or("none"), content);
    QCOMPARE(reader.content(QStringLiteral("project.vexml")).value_or("none"),
             QByteArray(5000, 'x'));
}

void TestProjectArchive::manyEntries()
{
    QByteArray bytes;
    QBuffer buffer(&bytes);
    buffer.open(QIODevice::WriteOnly);
    ProjectArchiveWriter writer(buffer);
    constexpr int most = 65535;
    for (int i = 0; i < most; ++i)
        QVERIFY(writer.addFile(QStringLiteral("datafiles/%1").arg(i), QByteArray::number(i)));
    QVERIFY(writer.close());

    const QTemporaryDir folder;
    QFile file(folder.filePath(QStringLiteral("many.vep")));
    QVERIFY(file.open(QIODevice::WriteOnly) && file.write(bytes) == bytes.size());
    file.close();
    QElapsedTimer timer;
    timer.start();
    ProjectArchiveReader reader;
    QString reason;
    QVERIFY2(reader.open(file.fileName(), &reason), qPrintable(reason));
    const qint64 opened = timer.elapsed();
    const QStringList names = reader.entryNames();
    QCOMPARE(names.size(), most);
    for (int i = 0; i < most; ++i)
        QVERIFY(reader.content(names.at(i)) == QByteArray::number(i));
    qInfo("65,535 entries: %lld ms to open, %lld ms to read all", opened, timer.elapsed() - opened);
    QVERIFY(timer.elapsed() < 20000);
}

void TestProjectArchive::writerRefusesWhatTheFormatCannotHold()
{
    const auto closes = [](const std::function<bool(ProjectArchiveWriter &)> &fill) {
        QBuffer buffer;
        buffer.open(QIODevice::WriteOnly);
        ProjectArchiveWriter writer(buffer);
        const bool filled = fill(writer);
        const qint64 size = buffer.size();
        const bool again = writer.addFile(QStringLiteral("later"), "x");
        return filled || writer.close() || again || buffer.size() < size ||
               writer.reason().isEmpty();
    };
    QVERIFY(!closes([](ProjectArchiveWriter &writer) {
        for (int i = 0; i < 65535; ++i)
            writer.addFile(QString::number(i), {});
        return writer.addFile(QStringLiteral("one more"), {});
    }));
    for (const char *name : {"", "../a", "a\\b", "a\nb", ".a", "a/"})
        QVERIFY2(!closes([name](auto &w) { return w.addFile(QLatin1String(name), "x"); }), name);
    QVERIFY(!closes([](ProjectArchiveWriter &writer) {
        writer.addFile(QStringLiteral("a"), "x");
        return writer.addFile(QStringLiteral("a"), "y");
    }));
    QVERIFY(!closes([](auto &writer) { return writer.addFile(QString(QChar(0xD800)), {}); }));
    QVERIFY(
        !closes([](auto &writer) { return writer.addFile(QString(65536, QLatin1Char('a')), {}); }));
}

void TestProjectArchive::writerStopsAtFourGigabytes()
{
    CountingDevice device;
    device.open(QIODevice::WriteOnly);
    ProjectArchiveWriter writer(device);
    const QByteArray part(1 << 28, 'x');
    for (int i = 0; i < 15; ++i)
        QVERIFY(writer.addFile(QString::number(i), part));
    // What is left for names and headers is known beforehand, to the byte.
    constexpr qint64 most = 0xffffffff;
    const qint64 header = 30 + 4;
    qint64 directory = 22 + (46 + 4);
    for (int i = 0; i < 15; ++i)
        directory += 46 + QByteArray::number(i).size();
    const auto last = static_cast<int>(most - device.size() - header - directory);
    QVERIFY(writer.addFile(QStringLiteral("last"), part.left(last)));
    const qint64 written = device.size();
    QVERIFY(!writer.addFile(QStringLiteral("more"), {}));
    QCOMPARE(device.size(), written);
    QVERIFY(writer.reason().contains(QLatin1String("4 GiB")));
}

void TestProjectArchive::readsRegularFilesOnly()
{
    const QTemporaryDir folder;
    const QString pipe = folder.filePath(QStringLiteral("pipe.vep"));
    QCOMPARE(mkfifo(qPrintable(pipe), 0600), 0);
    QFile empty(folder.filePath(QStringLiteral("empty.vep")));
    QVERIFY(empty.open(QIODevice::WriteOnly));
    for (const QString &path : {pipe,
                                folder.path(),
                                QStringLiteral("/dev/zero"),
                                folder.filePath(QStringLiteral("missing")),
                                empty.fileName()}) {
        ProjectArchiveReader reader;
        QString reason;
        QVERIFY2(!reader.open(path, &reason), qPrintable(path));
        QVERIFY(!reason.isEmpty());
    }
}

void TestProjectArchive::fileChangedAfterTheCheck()
{
    const QTemporaryDir folder;
    QFile file(folder.filePath(QStringLiteral("a.vep")));
    QVERIFY(file.open(QIODevice::WriteOnly | QIODevice::Unbuffered));
    // Larger than what the reader might have in memory from the check.
    BuiltArchive archive;
    archive.add(deflatedEntry("a", QByteArray(5000, 'x')));
    archive.add(storedEntry("b", QByteArray(500'000, 'x')));
    file.write(archive.bytes());
    ProjectArchiveReader reader;
    QString reason;
    QVERIFY(reader.open(file.fileName(), &reason));
    QVERIFY(file.seek(35) && file.write("changed") == 7);
    QVERIFY(!reader.content(QStringLiteral("a")));
    QVERIFY(reader.content(QStringLiteral("b")));
    QVERIFY(file.resize(100'000));
    QVERIFY(!reader.content(QStringLiteral("b")));
}

void TestProjectArchive::unpacking_data()
{
    QTest::addColumn<QByteArray>("packed");
    QTest::addColumn<qint64>("maximum");
    QTest::addColumn<QByteArray>("unpacked"); // "refused" when it has to be
    const QByteArray text = "slopes slopes slopes";
    const QByteArray packed = qCompress(text);
    const QByteArray refused = "refused";
    const auto claiming = [](const QByteArray &packed, const char *claim) {
        return QByteArray::fromHex(claim) + packed.mid(4);
    };
    QTest::newRow("packed") << packed << qint64(text.size()) << text;
    QTest::newRow("over the limit") << packed << qint64(text.size() - 1) << refused;
    QTest::newRow("empty") << qCompress(QByteArray()) << qint64(0) << QByteArray();
    QTest::newRow("empty with a stream")
        << claiming(qCompress(QByteArray("x")).left(4) + QByteArray::fromHex("789c030000000001"),
                    "00000000")
        << qint64(0) << QByteArray();
    QTest::newRow("nothing at all") << QByteArray() << qint64(9) << refused;
    QTest::newRow("half a length") << packed.left(3) << qint64(99) << refused;
    QTest::newRow("length alone") << packed.left(4) << qint64(99) << refused;
    QTest::newRow("claims one less") << claiming(packed, "00000013") << qint64(99) << refused;
    QTest::newRow("claims one more") << claiming(packed, "00000015") << qint64(99) << refused;
    QTest::newRow("claims nothing") << claiming(packed, "00000000") << qint64(99) << refused;
    QTest::newRow("claims 2 GiB") << claiming(packed, "7fffffff") << (1LL << 40) << refused;
    QTest::newRow("claims 4 GiB") << claiming(packed, "ffffffff") << (1LL << 40) << refused;
    QTest::newRow("ends early") << packed.chopped(1) << qint64(99) << refused;
    QTest::newRow("goes on") << packed + 'x' << qint64(99) << refused;
    QByteArray damaged = packed;
    damaged[damaged.size() - 1] = static_cast<char>(damaged.back() ^ 1);
    QTest::newRow("wrong checksum") << damaged << qint64(99) << refused;
    const QByteArray zeros(5'000'000, '\0');
    QTest::newRow("best ratio") << qCompress(zeros, 9) << qint64(zeros.size()) << zeros;
}

void TestProjectArchive::unpacking()
{
    QFETCH(QByteArray, packed);
    QFETCH(qint64, maximum);
    QFETCH(QByteArray, unpacked);
    QCOMPARE(unpackBytes(packed, maximum).value_or("refused"), unpacked);
}

// Whatever becomes of the file on its way: what is still read is what was saved.
void TestProjectArchive::mutationsAreFoundOut()
{
    const QByteArray original = smallProject();
    ProjectArchiveReader reader;
    QString reason;
    QVERIFY2(openBytes(&reader, original, &reason), qPrintable(reason));
    QHash<QString, QByteArray> contents;
    for (const QString &name : reader.entryNames())
        contents.insert(name, reader.content(name).value_or("none"));

    std::mt19937 random(20);
    const auto below = [&random](int end) { return static_cast<int>(random() % unsigned(end)); };
    constexpr int rounds = 10000;
    int taken = 0;
    qint64 longest = 0;
    for (int round = 0; round < rounds; ++round) {
        QByteArray bytes = original;
        for (int change = below(3); change >= 0; --change) {
            // Half of them in the headers at the end, where there is more to break.
            const int at = below(2) ? below(bytes.size()) : bytes.size() - 1 - below(300);
            switch (below(6)) {
            case 0:
                bytes[at] = static_cast<char>(below(256));
                break;
            case 1:
                bytes[at] = static_cast<char>(bytes.at(at) ^ (1 << below(8)));
                break;
            case 2:
                bytes.remove(at, 1 + below(20));
                break;
            case 3:
                bytes.insert(at, QByteArray(1 + below(20), static_cast<char>(below(256))));
                break;
            case 4:
                bytes.replace(at, 4, original.mid(below(original.size() - 4), 4));
                break;
            default:
                bytes.fill('\xff', bytes.size()).replace(0, at, original.left(at));
                break;
            }
        }
        QElapsedTimer timer;
        timer.start();
        if (openBytes(&reader, bytes, &reason)) {
            ++taken;
            for (const QString &name : reader.entryNames()) {
                const auto content = reader.content(name);
                const bool isRight = contents.contains(name) && content == contents.value(name);
                QVERIFY2(isRight || (!content && reader.isDamaged(name)),
                         qPrintable(QStringLiteral("round %1: %2").arg(round).arg(name)));
                unpackBytes(content.value_or(QByteArray()), 1 << 20);
            }
        }
        longest = std::max(longest, timer.elapsed());
    }
    qInfo("%d of %d mutations were harmless, %lld ms at most", taken, rounds, longest);
    QVERIFY(longest < 2000);
    QVERIFY(taken < rounds / 2);
}

QTEST_GUILESS_MAIN(TestProjectArchive)

#include "tst_ProjectArchive.moc"
