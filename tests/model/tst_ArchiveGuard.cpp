#include "model/ProjectArchive.h"
#include "support/ArchiveBuilder.h"

#include <QBuffer>
#include <QTest>

#include <functional>

using Change = std::function<void(BuiltArchive &)>;
Q_DECLARE_METATYPE(Change)

namespace {

void row(const char *name, const Change &change)
{
    QTest::newRow(name) << change;
}

// Changes both headers of an entry alike. Entry 0 is a folder, 1 deflated, 2 stored.
void both(const char *name, int entry, const std::function<void(BuiltHeader &)> &change)
{
    row(name, [entry, change](BuiltArchive &archive) {
        change(archive.entries[entry].local);
        change(archive.entries[entry].directory);
    });
}

void addEndRows()
{
    row("second disk", [](BuiltArchive &archive) { archive.disk = 1; });
    row("entry on a second disk", [](BuiltArchive &archive) { archive.entries[1].disk = 1; });
    row("more entries than there are",
        [](BuiltArchive &a) { a.countShift = a.countHereShift = 1; });
    row("fewer entries than there are",
        [](BuiltArchive &a) { a.countShift = a.countHereShift = -1; });
    row("counts that differ", [](BuiltArchive &archive) { archive.countHereShift = -1; });
    row("directory elsewhere", [](BuiltArchive &archive) { archive.directoryShift = 1; });
    row("directory of another size",
        [](BuiltArchive &archive) { archive.directorySizeShift = -1; });
    row("bytes behind the directory", [](BuiltArchive &archive) { archive.behindDirectory = "x"; });
    row("directory is outside", [](BuiltArchive &archive) { archive.directoryShift = 1 << 30; });
    row("end record inside the comment",
        [](BuiltArchive &archive) { archive.comment = "PK\x05\x06 and enough behind it"; });
}

void addPlaceRows()
{
    row("entry is outside", [](BuiltArchive &a) { a.entries[1].localAt = 0xfffffff0; });
    row("entry in the directory",
        [](BuiltArchive &a) { a.entries[1].localAt = a.bytes().size() - 60; });
    row("two entries in one place", [](BuiltArchive &a) { a.entries[2].localAt = 0; });
    row("same data twice", [](BuiltArchive &a) {
        BuiltEntry twin = a.entries[1];
        twin.localAt = 40; // where entry 1 stands
        twin.local = twin.directory = {0, 0, 0, 0, 0, "twin"};
        a.add(twin);
    });
    row("data reaches into the next entry", [](BuiltArchive &a) {
        BuiltEntry &folder = a.entries[0];
        folder.local.name = folder.directory.name = "file";
        for (BuiltHeader *header : {&folder.local, &folder.directory})
            header->size = header->packedSize = 30;
    });
    row("data reaches into the directory", [](BuiltArchive &a) {
        for (BuiltHeader *header : {&a.entries[2].local, &a.entries[2].directory})
            header->size = header->packedSize = 60;
    });
    both("far too large", 2, [](BuiltHeader &h) { h.size = h.packedSize = 0xffffffff; });
    both("negative in 32 bits", 2, [](BuiltHeader &h) { h.size = h.packedSize = 0x80000010; });
}

void addHeaderRows()
{
    row("names differ", [](BuiltArchive &archive) { archive.entries[1].local.name = "other"; });
    row("flags differ", [](BuiltArchive &archive) { archive.entries[1].local.flags = 2; });
    row("methods differ", [](BuiltArchive &archive) { archive.entries[1].local.method = 0; });
    row("sizes differ", [](BuiltArchive &archive) { archive.entries[1].local.size += 1; });
    row("packed sizes differ", [](BuiltArchive &a) { a.entries[1].local.packedSize -= 1; });
    row("checksums differ", [](BuiltArchive &archive) { archive.entries[1].local.crc ^= 1; });
    row("sizes missing without a descriptor", [](BuiltArchive &archive) {
        BuiltHeader &header = archive.entries[1].local;
        header.crc = header.packedSize = header.size = 0;
    });
    row("descriptor says otherwise", [](BuiltArchive &archive) {
        BuiltEntry entry = streamedEntry("gold", "gold", true);
        entry.behindData[5] = static_cast<char>(entry.behindData.at(5) ^ 1);
        archive.add(entry);
    });
    row("descriptor missing", [](BuiltArchive &archive) {
        BuiltEntry entry = streamedEntry("gold", "gold", false);
        entry.behindData.clear();
        archive.add(entry);
    });
}

void addContentRows()
{
    both("encrypted", 1, [](BuiltHeader &header) { header.flags |= 0x0001; });
    both("masked headers", 1, [](BuiltHeader &header) { header.flags |= 0x2000; });
    both("unknown method", 1, [](BuiltHeader &header) { header.method = 12; });
    both("wrong checksum, deflated", 1, [](BuiltHeader &header) { header.crc ^= 0x100; });
    both("wrong checksum, stored", 2, [](BuiltHeader &header) { header.crc ^= 0x100; });
    both("claims less than it unfolds to", 1, [](BuiltHeader &header) { header.size -= 1; });
    both("claims nothing", 1, [](BuiltHeader &header) { header.size = 0; });
    both("claims more than it unfolds to", 1, [](BuiltHeader &header) { header.size += 1; });
    both("claims what can't be", 1, [](BuiltHeader &header) { header.size = 200'000'000; });
    both("stored with two sizes", 2, [](BuiltHeader &header) { header.size -= 1; });
    row("data ends early", [](BuiltArchive &archive) {
        BuiltEntry &entry = archive.entries[1];
        entry.data.chop(1);
        entry.local.packedSize = entry.directory.packedSize = quint32(entry.data.size());
    });
    row("data goes on", [](BuiltArchive &archive) {
        BuiltEntry &entry = archive.entries[1];
        entry.data.append("x");
        entry.local.packedSize = entry.directory.packedSize = quint32(entry.data.size());
    });
    row("data is no deflated stream",
        [](BuiltArchive &archive) { archive.entries[1].data.fill('\xff'); });
    row("link", [](BuiltArchive &archive) { archive.entries[2].attributes = 0120777U << 16; });
    row("folder with content", [](BuiltArchive &archive) { archive.add(storedEntry("f/", "x")); });
}

void addNameRows()
{
    const QByteArray names[] = {"",
                                "/",
                                ".",
                                "./",
                                "..",
                                "../a",
                                "a/../b",
                                "a/..",
                                "/a",
                                "a//b",
                                "a/./b",
                                "a\\b",
                                "a\nb",
                                QByteArray("a\0b", 3),
                                "...",
                                "a\x7f"};
    for (const QByteArray &name : names) {
        QTest::newRow(("name " + name.toPercentEncoding()).constData())
            << Change([name](BuiltArchive &archive) { archive.add(storedEntry(name, {})); });
    }
    const QByteArray twins[] = {"datafiles", "datafiles/1", "./datafiles/1", ".project.vexml"};
    for (const QByteArray &name : twins) {
        QTest::newRow(("a second " + name).constData())
            << Change([name](BuiltArchive &archive) { archive.add(storedEntry(name, {})); });
    }
}

} // namespace

class TestArchiveGuard : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void refusesHostileArchives_data();
    void refusesHostileArchives();
    void refusesBombs();
};

void TestArchiveGuard::refusesHostileArchives_data()
{
    QTest::addColumn<Change>("change");
    addEndRows();
    addPlaceRows();
    addHeaderRows();
    addContentRows();
    addNameRows();
}

void TestArchiveGuard::refusesHostileArchives()
{
    QFETCH(Change, change);
    BuiltArchive archive = soundArchive();
    ProjectArchiveReader reader;
    QString reason;
    QVERIFY2(openBytes(&reader, archive.bytes(), &reason), qPrintable(reason));
    change(archive);
    if (!openBytes(&reader, archive.bytes(), &reason)) {
        QVERIFY(!reason.isEmpty());
        QVERIFY(reader.entryNames().isEmpty());
        return;
    }
    // Sound but for an entry, which is never read.
    const QStringList names = reader.entryNames();
    QVERIFY(std::any_of(names.begin(), names.end(), [&reader](const QString &name) {
        return reader.isDamaged(name) && !reader.content(name);
    }));
}

void TestArchiveGuard::refusesBombs()
{
    const auto isTaken = [](const BuiltArchive &archive, const ArchiveLimits &limits) {
        QByteArray bytes = archive.bytes();
        QBuffer buffer(&bytes);
        buffer.open(QIODevice::ReadOnly);
        QString reason;
        return checkArchive(buffer, &reason, limits).has_value();
    };
    BuiltArchive archive;
    archive.add(deflatedEntry("a", QByteArray(100'000, 'a')));
    archive.add(deflatedEntry("b", QByteArray(100'000, 'b')));
    archive.add(storedEntry("c", QByteArray(300'000, 'c')));
    QVERIFY(isTaken(archive, {100'000, 200'000}));
    QVERIFY(!isTaken(archive, {99'999, 200'000}));
    QVERIFY(!isTaken(archive, {100'000, 199'999}));
    // It claims little and would give more than the limit.
    archive.entries[0].local.size = archive.entries[0].directory.size = 10;
    QByteArray bytes = archive.bytes();
    QBuffer buffer(&bytes);
    buffer.open(QIODevice::ReadOnly);
    QString reason;
    QVERIFY(checkArchive(buffer, &reason)->at(0).isDamaged);
}

QTEST_GUILESS_MAIN(TestArchiveGuard)

#include "tst_ArchiveGuard.moc"
