#include "imaging/AngleImage.h"
#include "model/Project.h"
#include "model/PropertyAngleImage.h"
#include "model/RecoveryWriter.h"
#include "model/properties/PropertyT.h"
#include "support/Documents.h"
#include "support/Snapshots.h"
#include "support/Widgets.h"

#include <QDir>
#include <QRandomGenerator>
#include <QSignalSpy>
#include <QTest>

class TestRecoveryWriter : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init()
    {
        m_folder = Folder();
        m_project = std::make_unique<Project>();
        for (int i = 0; i < 3; ++i) {
            const QString name = QString::number(i);
            const QString sprite = m_folder.writeSprite(name + ".png"_s, {64, 64});
            paint(addBody(*m_project, name, sprite), quint32(i));
        }
    }

    // In random order, each snapshot what the project was when it was taken; what is unchanged is
    // neither written again nor held.
    void everySnapshotIsTheProjectAsItStood()
    {
        QRandomGenerator random(7);
        RecoveryWriter writer(store());
        QHash<QString, QDateTime> before;
        for (int round = 0; round < 20; ++round) {
            if (round % 5 == 4)
                m_project->bodies().setEntries(m_project->bodies().entries().mid(1));
            else if (round % 5 == 3)
                addBody(*m_project, " "_s);
            else
                paint(anyBody(random), random.generate());
            const QByteArray expected = fingerprintOf(*m_project);
            writer.write(*m_project);
            paint(anyBody(random), 99 + quint32(round)); // too late
            QVERIFY(waitFor(writer));
            for (const Body *body : m_project->bodies().all()) {
                const QByteArray &value = body->paintedNormalMap().value();
                QVERIFY(value.isEmpty() || value.isDetached());
            }
            QCOMPARE(fingerprintOf(copied()), expected);
            QCOMPARE(copied().index->thumbnail.isEmpty(), round >= 14); // no sprite is left
        }
        writer.write(*m_project);
        QVERIFY(waitFor(writer));
        const auto files = dataFiles();
        QSignalSpy written(&writer, &RecoveryWriter::written);
        writer.write(*m_project);
        QVERIFY(!writer.isBusy() && written.isEmpty());
        m_project->lightHeight().setValue(77);
        writer.write(*m_project);
        QVERIFY(waitFor(writer));
        QCOMPARE(dataFiles(), files);
    }

    // Random slopes hardly pack; the largest surface takes a gigabyte of memory. That the sprite
    // has another size ends nothing.
    void largeSurfacesComeBack()
    {
        const int side = qEnvironmentVariableIntValue("VESPERINE_LARGEST_SURFACE") ? 8192 : 5200;
        paint(*m_project->bodies().all().first(), 3, side);
        {
            RecoveryWriter writer(store());
            writer.write(*m_project);
            QVERIFY(QTest::qWaitFor([&writer] { return !writer.isBusy(); }, 120'000));
        }
        const auto entries = store().takeLeftOvers(now());
        QStringList damaged;
        const auto project = RecoveryStore::read(entries.at(0), &damaged);
        QCOMPARE(damaged, QStringList());
        QCOMPARE(project->bodies().all().first()->paintedNormalMap().value(),
                 m_project->bodies().all().first()->paintedNormalMap().value());
    }

    void aSnapshotBelongsToOneProgram()
    {
        auto writer = std::make_unique<RecoveryWriter>(store());
        const FileStamp file{7, 1'600'000'000'123'456'789, ~quint64(0)};
        writer->write(*m_project, file);
        QVERIFY(waitFor(*writer));
        QVERIFY(store().takeLeftOvers(now()).empty());
        writer.reset();
        auto mine = store().takeLeftOvers(now());
        QCOMPARE(mine.size(), std::size_t(1));
        QVERIFY(store().takeLeftOvers(now()).empty());

        QVERIFY(mine[0].index->projectFile == file);

        // Recovered and changed, it goes on where it was, and goes when the project is saved.
        QStringList damaged;
        const auto project = RecoveryStore::read(mine[0], &damaged);
        mine[0].folder->setMark(RecoveryFolder::Mark::Shown);
        RecoveryWriter next(store());
        next.adopt(std::move(mine[0]), *project);
        next.write(*project);
        QVERIFY(!next.isBusy());
        const auto files = dataFiles();
        project->bodies().all().first()->paintedNormalMap().setValue(encode(noise(64, 5)));
        next.write(*project);
        QVERIFY(waitFor(next));
        QCOMPARE((dataFiles() & files).size(), 2);
        const RecoveryEntry copy = copied();
        QCOMPARE(fingerprintOf(copy), fingerprintOf(*project));
        QVERIFY(!copy.folder->hasMark(RecoveryFolder::Mark::Shown));
        next.write(*project);
        next.drop();
        QVERIFY(waitFor(next));
        QVERIFY(dataFiles().isEmpty());
    }

    // What is promised for it goes by what is there.
    void anAdoptedSnapshotMayBeLost()
    {
        {
            RecoveryWriter writer(store());
            writer.write(*m_project);
            QVERIFY(waitFor(writer));
        }
        auto entries = store().takeLeftOvers(now());
        QStringList damaged;
        const auto project = RecoveryStore::read(entries.at(0), &damaged);
        RecoveryWriter next(store());
        next.adopt(std::move(entries[0]), *project);
        QVERIFY(next.hasAdopted());
        QVERIFY(QDir(snapshotPath()).removeRecursively());
        QVERIFY(!next.hasAdopted());
        next.write(*project);
        QVERIFY(waitFor(next));
        QVERIFY(next.hasAdopted());
        next.giveUp();
        QVERIFY(!next.hasAdopted());
        entries = store().takeLeftOvers(now());
        QCOMPARE(entries.size(), std::size_t(1));
        QVERIFY(entries[0].folder->hasMark(RecoveryFolder::Mark::GivenUp));
        QCOMPARE(fingerprintOf(entries[0]), fingerprintOf(*project));
    }

    void whatIsDroppedIsGone()
    {
        for (int delay = 0; delay < 12; ++delay) {
            RecoveryWriter writer(store());
            paint(*m_project->bodies().all().first(), quint32(delay));
            writer.write(*m_project);
            QTest::qWait(delay / 2);
            writer.drop();
            if (delay % 2)
                QVERIFY(waitFor(writer));
        }
        QVERIFY(QDir(root()).entryList(QDir::AllEntries | QDir::NoDotAndDotDot).isEmpty());
    }

    void leftOversAreKeptUntilSeen_data()
    {
        QTest::addColumn<int>("days");
        QTest::addColumn<bool>("isShown");
        QTest::addColumn<bool>("isGivenUp");
        QTest::addColumn<QByteArray>("index");
        QTest::addColumn<bool>("isKept");
        QTest::newRow("just seen") << 0 << true << false << QByteArray() << true;
        QTest::newRow("seen, within a week") << 6 << true << false << QByteArray() << true;
        QTest::newRow("seen, after it") << 8 << true << false << QByteArray() << false;
        QTest::newRow("given up, after it") << 8 << true << true << QByteArray() << true;
        QTest::newRow("never seen") << 400 << false << false << QByteArray() << true;
        QTest::newRow("not readable") << 400 << true << false << QByteArray("{}\n<x/>") << true;
    }

    void leftOversAreKeptUntilSeen()
    {
        QFETCH(int, days);
        QFETCH(bool, isShown);
        QFETCH(bool, isGivenUp);
        QFETCH(QByteArray, index);
        QFETCH(bool, isKept);
        {
            RecoveryWriter writer(store());
            writer.write(*m_project);
            QVERIFY(waitFor(writer));
        }
        {
            const auto entries = store().takeLeftOvers(now());
            const RecoveryEntry &entry = entries.at(0);
            entry.folder->setMark(RecoveryFolder::Mark::Shown, isShown);
            entry.folder->setMark(RecoveryFolder::Mark::GivenUp, isGivenUp);
            // Written long ago, by the clock: the user was away.
            RecoveryIndex old = *entry.index;
            old.time = old.time.addDays(-100);
            m_folder.write(QDir(m_folder.path({})).relativeFilePath(entry.folder->indexPath()),
                           index.isEmpty() ? old.toBytes() : index);
        }
        const auto later = store().takeLeftOvers(now().addDays(days));
        QCOMPARE(later.size(), std::size_t(isKept));
        if (isKept)
            QCOMPARE(later[0].index.has_value(), index.isEmpty());
        if (!index.isEmpty())
            QVERIFY(fingerprintOf(later[0]).isEmpty());
    }

private:
    QString root() const { return m_folder.path("recovery"_s); }
    RecoveryStore store() const { return RecoveryStore(root()); }
    static QDateTime now() { return QDateTime::currentDateTimeUtc(); }
    static bool waitFor(const RecoveryWriter &writer)
    {
        return QTest::qWaitFor([&writer] { return !writer.isBusy(); });
    }
    static void paint(Body &body, quint32 seed, int side = 64)
    {
        body.paintedNormalMap().setValue(encode(noise(side, seed)));
    }
    Body &anyBody(QRandomGenerator &random) const
    {
        const auto bodies = m_project->bodies().all();
        return *bodies[random.bounded(bodies.size())];
    }
    QString snapshotPath() const
    {
        const QStringList names = QDir(root()).entryList(QDir::Dirs | QDir::NoDotAndDotDot);
        return root() + u'/' + names.value(0);
    }
    QSet<QString> dataFiles() const
    {
        const QDir folder(snapshotPath());
        const QStringList names = folder.entryList({"*.data"_s}, QDir::Files);
        return {names.begin(), names.end()};
    }
    // The snapshot as another program would find it, had this one crashed now and the computer got
    // another name.
    RecoveryEntry copied()
    {
        m_copy = std::make_unique<QTemporaryDir>();
        const QDir source(snapshotPath());
        QDir(m_copy->path()).mkdir("s"_s);
        for (const QString &name : source.entryList(QDir::Files)) {
            if (name != QLatin1String("lock"))
                QFile::copy(source.filePath(name), m_copy->filePath("s/"_s + name));
        }
        QFile lock(m_copy->filePath("s/lock"_s));
        lock.open(QIODevice::WriteOnly);
        lock.write("47\nvesperine\nformer name\n\n");
        lock.close();
        auto entries = RecoveryStore(m_copy->path()).takeLeftOvers(now());
        return std::move(entries.at(0));
    }

    Folder m_folder;
    std::unique_ptr<QTemporaryDir> m_copy;
    std::unique_ptr<Project> m_project;
};

QTEST_GUILESS_MAIN(TestRecoveryWriter)
#include "tst_RecoveryWriter.moc"
