#include "model/Inflation.h"
#include "model/ProjectArchive.h"
#include "support/ArchiveBuilder.h"
#include "support/Documents.h"

#include <QBuffer>
#include <QElapsedTimer>
#include <QFile>
#include <QTest>

#include <random>

#include <sys/stat.h>

namespace {

/// A writer into memory.
struct Written
{
    Written() { buffer.open(QIODevice::WriteOnly); }
    bool add(const QString &name, const QByteArray &content = {})
    {
        return writer.addFile(name, content);
    }

    QBuffer buffer;
    ProjectArchiveWriter writer{buffer};
};

// All that is sound in an archive by its name; nothing for one that is refused.
QMap<QString, QByteArray> contentsOf(const QByteArray &bytes)
{
    ProjectArchiveReader reader;
    QString reason;
    QMap<QString, QByteArray> contents;
    if (openBytes(&reader, bytes, &reason))
        for (const QString &name : reader.entryNames())
            if (!reader.isDamaged(name))
                contents.insert(name, reader.content(name).value_or("unreadable"));
    return contents;
}

// A small project as the program saves it.
QByteArray smallProject()
{
    QByteArray surface;
    for (int i = 0; i < 20000; ++i)
        surface += static_cast<char>((i / 7) * (i % 13));
    Written written;
    const bool done = written.writer.addDirectory(QStringLiteral("datafiles/")) &&
                      written.add(QStringLiteral("project.vexml"), "<vesperine_project/>") &&
                      written.add(QStringLiteral("datafiles/ä 🦊"), qCompress(surface)) &&
                      written.add(QStringLiteral("datafiles/empty")) && written.writer.close();
    return done ? written.buffer.data() : QByteArray();
}

} // namespace

class TestProjectArchive : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void readsWhatItWrites()
    {
        const QByteArray bytes = smallProject();
        const auto contents = contentsOf(bytes);
        QCOMPARE(QStringList(contents.keys()).join(QLatin1Char('|')),
                 QStringLiteral("datafiles/|datafiles/empty|datafiles/ä 🦊|project.vexml"));
        const QByteArray &xml = contents.last();
        const QByteArray packed = contents[QStringLiteral("datafiles/ä 🦊")];
        QCOMPARE(xml, QByteArray("<vesperine_project/>"));
        QCOMPARE(unpackBytes(packed, 20000).value_or("").size(), 20000);
        QCOMPARE(contents[QStringLiteral("datafiles/empty")], QByteArray());
        // Stored, with these modes: other programs read them as well.
        QVERIFY(bytes.contains(xml) && bytes.contains(packed));
        const int folderAt = bytes.indexOf("PK\x01\x02");
        const int fileAt = bytes.indexOf("PK\x01\x02", folderAt + 1);
        QCOMPARE(bytes.mid(fileAt + 40, 2).toHex(), QByteArray("8081")); // 0100600
        // The toolkit's writer drops the third permission of the folder.
        QVERIFY(QByteArrayList({"8041", "c041"}).contains(bytes.mid(folderAt + 40, 2).toHex()));
    }

    void readsWhatOthersWrite()
    {
        const QByteArray gold = "gold gold gold gold gold";
        const auto reads = [&](const BuiltEntry &entry, const char *name = "gold") {
            // Made on another system, and with a comment.
            QByteArray bytes = soundArchive().add(entry).bytes();
            bytes.replace(QByteArray("PK\x01\x02\x00\x03", 6), QByteArray("PK\x01\x02\x00\x00", 6));
            bytes.replace(bytes.size() - 2, 2, QByteArray("\x05\x00hello", 7));
            const auto contents = contentsOf(bytes);
            QCOMPARE(contents[QString::fromUtf8(name)], gold);
            QCOMPARE(contents[QStringLiteral("project.vexml")], QByteArray(5000, 'x'));
        };
        reads(deflatedEntry("gold", gold));
        reads(streamedEntry("gold", gold, true));
        reads(streamedEntry("gold", gold, false));
        reads(storedEntry("./gold", gold));
        reads(storedEntry("g\xc3\xb6ld", gold), "göld"); // UTF-8 without its mark
        reads(storedEntry("g\xf6ld", gold), "göld");
        BuiltEntry entry = storedEntry("gold", gold);
        entry.extra = QByteArray::fromHex("5554010000");
        entry.descriptor = "a gap";
        reads(entry);
    }

    void manyEntries()
    {
        Written written;
        QMap<QString, QByteArray> contents;
        for (int i = 0; i < 65535; ++i) {
            contents.insert(QString::number(i), QByteArray::number(i));
            QVERIFY(written.add(QString::number(i), QByteArray::number(i)));
        }
        QVERIFY(!written.add(QStringLiteral("one more")) && !written.writer.close());
        // What was refused is not in the archive; all the others are.
        QElapsedTimer timer;
        timer.start();
        QVERIFY(contentsOf(written.buffer.data()) == contents);
        QVERIFY(timer.elapsed() < 20000);
    }

    void writerRefusesNames()
    {
        QStringList names{QChar(0xD800), QString(65536, QLatin1Char('a'))};
        for (const char *name : {"", "../a", "a\\b", "a\nb", ".a", "a/", "twin"})
            names << QLatin1String(name);
        for (const QString &name : names) {
            Written written;
            QVERIFY(written.add(QStringLiteral("twin"), "x"));
            const qint64 size = written.buffer.size();
            QVERIFY2(!written.add(name, "x"), qPrintable(name));
            QVERIFY(!written.add(QStringLiteral("later"), "x") && written.buffer.size() == size);
            QVERIFY(!written.writer.close() && !written.writer.reason().isEmpty());
        }
    }

    void writerStopsAtFourGigabytes()
    {
        QFile device(QStringLiteral("/dev/null"));
        QVERIFY(device.open(QIODevice::WriteOnly));
        ProjectArchiveWriter writer(device);
        const QByteArray part(1 << 28, 'x');
        for (int i = 10; i < 25; ++i)
            QVERIFY(writer.addFile(QString::number(i), part));
        // What is left for names and headers is known beforehand, to the byte.
        constexpr qint64 headers = 15 * (30 + 46 + 2 * 2) + (30 + 46 + 2 * 4) + 22;
        constexpr auto last = static_cast<int>(0xffffffff - (15LL << 28) - headers);
        QVERIFY(writer.addFile(QStringLiteral("last"), part.left(last)));
        QVERIFY(!writer.addFile(QStringLiteral("more"), {}));
        QVERIFY(writer.reason().contains(QLatin1String("4 GiB")));
    }

    void readsRegularFilesOnly()
    {
        const Folder folder;
        QCOMPARE(mkfifo(qPrintable(folder.path(QStringLiteral("pipe"))), 0600), 0);
        folder.write(QStringLiteral("empty"), {});
        for (const char *name : {"pipe", "", "missing", "empty"}) {
            ProjectArchiveReader reader;
            QString reason;
            QVERIFY2(!reader.open(folder.path(QLatin1String(name)), &reason), name);
            QVERIFY(!reason.isEmpty());
        }
    }

    void fileChangedAfterTheCheck()
    {
        const Folder folder;
        BuiltArchive archive;
        archive.add(deflatedEntry("a", QByteArray(5000, 'x')));
        // Larger than what the reader might have in memory from the check.
        archive.add(storedEntry("b", QByteArray(500'000, 'x')));
        QFile file(folder.write(QStringLiteral("a.vep"), archive.bytes()));
        QVERIFY(file.open(QIODevice::ReadWrite | QIODevice::Unbuffered));
        ProjectArchiveReader reader;
        QString reason;
        QVERIFY(reader.open(file.fileName(), &reason));
        QVERIFY(file.seek(35) && file.write("changed") == 7);
        QVERIFY(!reader.content(QStringLiteral("a")));
        QVERIFY(reader.content(QStringLiteral("b")));
        QVERIFY(file.resize(100'000));
        QVERIFY(!reader.content(QStringLiteral("b")));
    }

    void unpacking()
    {
        const QByteArray text = "slopes slopes slopes";
        const QByteArray stream = qCompress(text).mid(4);
        const QByteArray zeros(5'000'000, '\0');
        const auto unpacks =
            [](const char *claim, const QByteArray &bytes, qint64 maximum = 1LL << 40) {
                return unpackBytes(QByteArray::fromHex(claim) + bytes, maximum).value_or("refused");
            };
        QCOMPARE(unpacks("00000014", stream, 20), text);
        for (const char *empty : {"00000000", "00000000789c030000000001"})
            QCOMPARE(unpacks(empty, {}, 0), QByteArray());
        QCOMPARE(unpacks("", qCompress(zeros, 9), zeros.size()), zeros); // the best ratio

        const QByteArray refused = "refused";
        QCOMPARE(unpacks("00000014", stream, 19), refused);
        for (const char *claim : {"00000013", "00000015", "00000000", "7fffffff", "ffffffff"})
            QCOMPARE(unpacks(claim, stream), refused);
        QByteArray damaged = stream;
        damaged.back() = static_cast<char>(damaged.back() ^ 1);
        for (const QByteArray &bad : {QByteArray(), stream.chopped(1), stream + 'x', damaged})
            QCOMPARE(unpacks("00000014", bad), refused);
        for (const char *cut : {"", "000000"})
            QCOMPARE(unpacks(cut, {}), refused);
    }

    // Whatever becomes of the file on its way: what is still read is what was saved.
    void mutationsAreFoundOut()
    {
        const QByteArray original = smallProject();
        const auto sound = contentsOf(original);
        QCOMPARE(sound.size(), 4);
        std::mt19937 random(20);
        const auto below = [&random](int end) {
            return static_cast<int>(random() % unsigned(end));
        };
        int taken = 0;
        for (int round = 0; round < 10000; ++round) {
            QByteArray bytes = original;
            for (int change = below(3); change >= 0; --change) {
                // Half of them in the headers at the end, where there is more to break.
                const int at = below(2) ? below(bytes.size()) : bytes.size() - 1 - below(300);
                const int kind = below(6);
                if (kind < 2)
                    bytes[at] = static_cast<char>(bytes.at(at) ^ (1 << below(8)));
                else if (kind == 2)
                    bytes.remove(at, 1 + below(20));
                else if (kind == 3)
                    bytes.insert(at, QByteArray(1 + below(20), static_cast<char>(below(256))));
                else if (kind == 4)
                    bytes.replace(at, 4, original.mid(below(original.size() - 4), 4));
                else
                    bytes.fill('\xff').replace(0, at, original.left(at));
            }
            QElapsedTimer timer;
            timer.start();
            const auto contents = contentsOf(bytes);
            taken += contents.isEmpty() ? 0 : 1;
            for (const QString &name : contents.keys())
                QVERIFY2(sound.value(name, "none") == contents[name], qPrintable(name));
            QVERIFY(timer.elapsed() < 2000);
        }
        QVERIFY2(taken < 5000, qPrintable(QString::number(taken)));
    }
};

QTEST_GUILESS_MAIN(TestProjectArchive)

#include "tst_ProjectArchive.moc"
