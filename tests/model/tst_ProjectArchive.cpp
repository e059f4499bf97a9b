#include "model/Inflation.h"
#include "model/ProjectArchive.h"
#include "support/ArchiveBuilder.h"

#include <QBuffer>
#include <QElapsedTimer>
#include <QTest>

#include <random>

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
