#include "model/ProjectArchive.h"
#include "support/ArchiveBuilder.h"

#include <QBuffer>
#include <QTest>

namespace {

const char *const local = "PK\x03\x04";
const char *const directory = "PK\x01\x02";
const char *const end = "PK\x05\x06";

// The archive with other bytes in a header of one of its entries.
QByteArray changed(QByteArray archive, const char *header, int entry, int at, const char *hex)
{
    int headerAt = archive.indexOf(header);
    for (; entry > 0; --entry)
        headerAt = archive.indexOf(header, headerAt + 1);
    const QByteArray value = QByteArray::fromHex(hex);
    return archive.replace(headerAt + at, value.size(), value);
}

// "refused", or how many of its entries are damaged, which are not read.
QByteArray verdict(const QByteArray &archive)
{
    ProjectArchiveReader reader;
    QString reason;
    const bool wasSound = openBytes(&reader, soundArchive().bytes(), &reason);
    const bool isOpen = openBytes(&reader, archive, &reason);
    if (!isOpen && wasSound && !reason.isEmpty() && reader.entryNames().isEmpty())
        return "refused";
    int damaged = 0;
    for (const QString &name : reader.entryNames())
        damaged += int(reader.isDamaged(name) && !reader.content(name));
    return isOpen ? QByteArray::number(damaged) + " damaged" : "neither";
}

} // namespace

class TestArchiveGuard : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    // Entry 0 is a folder, 1 deflated, 2 stored.
    void findsFalseFields()
    {
        const QByteArray sound = soundArchive().bytes();
        const auto one = [&](const char *name, auto header, int entry, int at, const char *hex) {
            QVERIFY2(verdict(changed(sound, header, entry, at, hex)) == "refused", name);
        };
        one("more entries than there are", end, 0, 8, "04000400");
        one("directory of another size", end, 0, 12, "01");
        one("link", directory, 2, 41, "a1");
        one("entry is outside", directory, 1, 42, "f0ffffff");
        one("checksums differ", local, 1, 14, "00");
        one("sizes differ", local, 1, 22, "89");
        one("names differ", local, 1, 30, "50");
        // Bytes before the end.
        QCOMPARE(verdict(QByteArray(sound).insert(sound.indexOf(end), 'x')), "refused");

        const char *expected = "refused";
        const auto both = [&](const char *name, int entry, int at, const char *hex) {
            const QByteArray first = changed(sound, local, entry, at, hex);
            QVERIFY2(verdict(changed(first, directory, entry, at + 2, hex)) == expected, name);
        };
        both("encrypted", 1, 6, "01");
        both("claims what can't be", 1, 22, "00c2eb0b");
        both("stored with two sizes", 2, 22, "06");
        both("data reaches into the directory", 2, 18, "3c0000003c000000");
        both("far too large", 2, 18, "ffffffffffffffff");
        expected = "1 damaged";
        both("wrong checksum, deflated", 1, 14, "00");
        both("wrong checksum, stored", 2, 14, "00");
        both("claims less than it unfolds to", 1, 22, "87");
        both("claims more than it unfolds to", 1, 22, "89");
    }

    void refusesNames()
    {
        // The first one is empty.
        const QByteArray bad = " / . ./ .. ../a a/../b a/.. /a a//b a/./b a\\b a\nb ... a\x7f a\1b";
        const QByteArray twins = " datafiles datafiles/1 ./datafiles/1 .project.vexml";
        for (const QByteArray &name : (bad + twins + QByteArray(" a\0b", 4)).split(' ')) {
            const QByteArray archive = soundArchive().add(storedEntry(name, {})).bytes();
            QVERIFY2(verdict(archive) == "refused", name.constData());
        }
    }

    void refusesBombs()
    {
        BuiltArchive archive;
        const auto isTaken = [&](qint64 inflatedEntry, qint64 inflatedTotal) {
            QBuffer buffer;
            buffer.setData(archive.bytes());
            buffer.open(QIODevice::ReadOnly);
            QString reason;
            return checkArchive(buffer, &reason, {inflatedEntry, inflatedTotal}).has_value();
        };
        archive.add(deflatedEntry("a", QByteArray(100'000, 'a')));
        archive.add(deflatedEntry("b", QByteArray(100'000, 'b')));
        archive.add(storedEntry("c", QByteArray(300'000, 'c')));
        QVERIFY(isTaken(100'000, 200'000));
        QVERIFY(!isTaken(99'999, 200'000));
        QVERIFY(!isTaken(100'000, 199'999));
        // It claims little and would give more than the limit.
        archive.entries[0].numbers.replace(8, 4, QByteArray::fromHex("0a000000"));
        QCOMPARE(verdict(archive.bytes()), "1 damaged");
    }
};

QTEST_GUILESS_MAIN(TestArchiveGuard)

#include "tst_ArchiveGuard.moc"
