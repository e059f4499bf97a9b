#include "base/Error.h"
#include "model/DataModelReader.h"
#include "model/DataModelWriter.h"
#include "model/Project.h"
#include "model/ProjectArchive.h"
#include "model/PropertyAngleImage.h"
#include "model/Sprite.h"
#include "model/XmlGuard.h"
#include "support/ArchiveBuilder.h"
#include "support/Documents.h"
#include "support/Pictures.h"

#include <QDir>
#include <QTest>

class TestProjectFile : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void savedProjectComesBack();
    void placesAreWrittenOnceMoved();
    void idsAndPackedBytesAreKept();
    void olderFormsAreRead();
    void damageCostsOneBody();
    void failedSaveKeepsTheOldFile();
    void trapsAreRefusedInWords_data();
    void trapsAreRefusedInWords();
    void asManyBodiesAsAllowedAreRead();
    void surfacesHaveALimitInAll();
    void mutatedContentIsReadOrRefused();
};

namespace {
std::shared_ptr<Project> load(const QString &path, QStringList *damaged = nullptr)
{
    DataModelReader reader(QStringLiteral("vep"), QStringLiteral("vexml"));
    auto project = reader.read(path);
    if (damaged)
        *damaged = reader.damagedBodies();
    return project;
}

void save(Project &project, const QString &path)
{
    project.filename().setValue(GFileName(path));
    DataModelWriter(project).write();
}

QByteArray projectXml(const QByteArray &content)
{
    return "<vesperine_project>" + content + "</vesperine_project>";
}

QByteArray bodyXml(const QByteArray &name, const QByteArray &id)
{
    return "<body><name>" + name + "</name><painted_normal_map datafile=\"" + id + "\"/></body>";
}

QByteArray bundle(const QByteArray &xml, const QVector<QPair<QByteArray, QByteArray>> &files = {})
{
    BuiltArchive archive;
    archive.add(storedEntry("project.vexml", xml));
    for (const auto &[id, packed] : files)
        archive.add(storedEntry("datafiles/" + id, packed));
    return archive.bytes();
}
} // namespace

void TestProjectFile::savedProjectComesBack()
{
    const Folder folder;
    Project project;
    const QString odd = QStringLiteral("  %1 <&>\"ü🦊  ");
    addBody(project, odd, folder.writeSprite(QStringLiteral("sprites/ä %2.b.png"), {3, 2}))
        .paintedNormalMap()
        .setAngleImage(angles({{1, {-2, 3}, 32767}, {-32768, 0, {7, 7}}}), QStringLiteral("paint"));
    addBody(project, QStringLiteral("   "));
    project.publishNormalmapPostfix().setValue(QStringLiteral("_%1"));
    project.publishDirectory().setValue(GFileName(folder.path(QString())));
    project.lightHeight().setValue(77);
    project.lightColor().setValue(QColor(1, 2, 3, 4));
    save(project, folder.path(QStringLiteral("a.vep")));
    const QByteArray first = contentOf(folder.path(QStringLiteral("a.vep")));
    QVERIFY(
        QDir().rename(folder.path(QStringLiteral("a.vep")), folder.path(QStringLiteral("b.vep"))));

    const auto loaded = load(folder.path(QStringLiteral("b.vep")));
    QCOMPARE(loaded->filename().value().path(), folder.path(QStringLiteral("b.vep")));
    QCOMPARE(loaded->publishDirectory().value().path(), QDir(folder.path(QString())).path());
    QCOMPARE(loaded->publishNormalmapPostfix().value(), QStringLiteral("_%1"));
    QCOMPARE(loaded->lightHeight().value(), 77);
    QCOMPARE(loaded->lightBrightness().value(), 100);
    QCOMPARE(loaded->lightColor().value(), QColor(1, 2, 3));
    QVERIFY(!loaded->undoStack().isModified());
    QCOMPARE(loaded->bodies().size(), 2);
    const Body &body = loaded->bodies().at(0);
    QCOMPARE(body.name().value(), odd);
    QCOMPARE(loaded->bodies().at(1).name().value(), QStringLiteral("   "));
    QCOMPARE(body.sprite().filename().value().path(),
             folder.path(QStringLiteral("sprites/ä %2.b.png")));
    QCOMPARE(body.sprite().checksum().value(), project.bodies().at(0).sprite().checksum().value());
    QCOMPARE(body.paintedNormalMap().angleImage(),
             angles({{1, {-2, 3}, 32767}, {-32768, 0, {7, 7}}}));
    QVERIFY(loaded->bodies().at(1).paintedNormalMap().angleImage().isNull());
    QVERIFY(loaded->bodies().at(1).sprite().filename().value().isEmpty());
    // What was loaded saves as the same file, but for the times in it.
    QVERIFY(first.contains("<filename>sprites/"));
    QVERIFY(first.contains("<publish_directory>./</publish_directory>"));
    save(*loaded, folder.path(QStringLiteral("a.vep")));
    QCOMPARE(contentOf(folder.path(QStringLiteral("a.vep"))).size(), first.size());
}

void TestProjectFile::placesAreWrittenOnceMoved()
{
    const Folder folder;
    const QString path = folder.path(QStringLiteral("forest.vep"));
    Project project;
    Body &body = addBody(project, QStringLiteral("fox"));
    body.paintedNormalMap().setDataFileId(QStringLiteral("id-1"));
    // The text as it was before there were places, to the byte.
    const QByteArray before = R"(<!DOCTYPE vesperine_project>
<vesperine_project>
    <preset_collections/>
    <filename>forest.vep</filename>
    <bodies>
        <body>
            <name>fox</name>
            <sprite>
                <filename></filename>
                <checksum></checksum>
            </sprite>
            <painted_normal_map datafile="id-1"/>
        </body>
    </bodies>
    <publish_directory></publish_directory>
    <publish_normalmap_postfix></publish_normalmap_postfix>
    <light_height>32</light_height>
    <light_brightness>100</light_brightness>
    <light_color>#ffffff</light_color>
    <ambient_light_color>#808080</ambient_light_color>
</vesperine_project>
)";
    const QByteArray surface = "            <painted_normal_map datafile=\"id-1\"/>\n";
    const auto saved = [&] {
        save(project, path);
        return contentOf(path);
    };
    QVERIFY(saved().contains(before));
    QVERIFY(!load(path)->bodies().at(0).place());

    body.moveTo({-3, 70}, QStringLiteral("move"));
    QVERIFY(saved().contains(QByteArray(before).replace(
        surface, surface + "            <position x=\"-3\" y=\"70\"/>\n")));
    QVERIFY(load(path)->bodies().at(0).place() == QPoint(-3, 70));
    body.moveTo({0, 0}, QStringLiteral("move"));
    saved();
    QVERIFY(load(path)->bodies().at(0).place() == QPoint(0, 0));
    project.undoStack().setIndex(0);
    QVERIFY(saved().contains(before));

    const auto read = [&](const QByteArray &position) {
        const QByteArray xml = "<bodies><body>" + position + "</body></bodies>";
        return load(folder.write(QStringLiteral("a.vep"), bundle(projectXml(xml))));
    };
    for (const char *position : {R"(<position x="nan" y="1"/>)",
                                 R"(<position x="1" y="-inf"/>)",
                                 R"(<position x="1e300" y="1"/>)",
                                 R"(<position x="1" y="1048577"/>)",
                                 R"(<position x="left" y="1"/>)",
                                 R"(<position y="1"/>)",
                                 "<position>1 1</position>"})
        QVERIFY2(!read(position)->bodies().at(0).place(), position);
    const auto odd = read(R"(<position x="-1048576" y="2.6"/>)");
    QVERIFY(odd->bodies().at(0).place() == QPoint(-1048576, 3));
    odd->bodies().at(0).moveTo({-2000000000, 5}, QStringLiteral("move"));
    QVERIFY(odd->bodies().at(0).place() == QPoint(-Body::farthestPlace, 5));
}

void TestProjectFile::idsAndPackedBytesAreKept()
{
    const Folder folder;
    Project project;
    auto &property = addBody(project, QStringLiteral("a")).paintedNormalMap();
    property.setAngleImage(AngleImage(40, 40, 5), QString());
    save(project, folder.path(QStringLiteral("a.vep")));
    const QString id = property.dataFileId();
    QVERIFY(!id.isEmpty() && !id.contains(QLatin1Char('{')));
    const auto file = property.dataFile();
    save(project, folder.path(QStringLiteral("a.vep")));
    QCOMPARE(property.dataFileId(), id);
    QCOMPARE(property.dataFile(), file); // packed once
    property.setAngleImage(AngleImage(40, 40, 6), QString());
    save(project, folder.path(QStringLiteral("a.vep")));
    QVERIFY(property.dataFile() != file);
    const auto loaded = load(folder.path(QStringLiteral("a.vep")));
    QCOMPARE(loaded->bodies().at(0).paintedNormalMap().dataFileId(), id);
    QCOMPARE(loaded->bodies().at(0).paintedNormalMap().angleImage(), AngleImage(40, 40, 6));
}

void TestProjectFile::olderFormsAreRead()
{
    const Folder folder;
    const QByteArray xml =
        projectXml("<light_height>5</light_height><bodies>" + bodyXml("a", "1") + "</bodies>");
    BuiltArchive archive;
    archive.add(storedEntry("old.one.veproject/", {}));
    archive.add(storedEntry("old.one.veproject/old.one.vexml", xml));
    archive.add(storedEntry("old.one.veproject/datafiles/1", qCompress(encode(angles({{9}})))));
    const auto bundled = load(folder.write(QStringLiteral("new.vep"), archive.bytes()));
    QCOMPARE(bundled->lightHeight().value(), 5);
    QCOMPARE(bundled->bodies().at(0).paintedNormalMap().angleImage(), angles({{9}}));

    QStringList damaged;
    const auto bare = load(folder.write(QStringLiteral("old.vex"), xml), &damaged);
    QCOMPARE(bare->lightHeight().value(), 5);
    QVERIFY(bare->bodies().at(0).paintedNormalMap().value().isEmpty());
    QVERIFY(damaged.isEmpty());
    QCOMPARE(errorOf([&] { DataModelWriter(*bare).write(); }),
             QStringLiteral("File type of '%1' not supported")
                 .arg(folder.path(QStringLiteral("old.vex"))));
}

void TestProjectFile::damageCostsOneBody()
{
    const Folder folder;
    const QByteArray surface = encode(angles({{1, 2}, {3, 4}}));
    QByteArray wrongLength = surface;
    wrongLength.chop(1);
    const QByteArray broken = qCompress(surface).left(20);
    const QString path = folder.write(
        QStringLiteral("a.vep"),
        bundle(projectXml("<bodies>" + bodyXml("broken", "1") + bodyXml("sound", "2") +
                          bodyXml("short", "3") + "</bodies>"),
               {{"1", broken}, {"2", qCompress(surface)}, {"3", qCompress(wrongLength)}}));
    QStringList damaged;
    auto project = load(path, &damaged);
    QCOMPARE(damaged, QStringList({QStringLiteral("broken"), QStringLiteral("short")}));
    QCOMPARE(project->bodies().at(1).paintedNormalMap().value(), surface);
    QVERIFY(project->bodies().at(0).paintedNormalMap().angleImage().isNull());

    // A painted body is whole again; undoing the paint brings the damaged bytes back.
    auto &first = project->bodies().at(0).paintedNormalMap();
    first.setAngleImage(angles({{8}}), QStringLiteral("paint"));
    QVERIFY(!first.isDamaged());
    project->undoStack().undo();
    QVERIFY(first.isDamaged());
    project->bodies().at(2).paintedNormalMap().setAngleImage(angles({{8}}),
                                                             QStringLiteral("paint"));
    save(*project, path);
    ProjectArchiveReader archive;
    QString reason;
    QVERIFY(archive.open(path, &reason));
    QCOMPARE(archive.content(QStringLiteral("datafiles/1")), broken);
    load(path, &damaged);
    QCOMPARE(damaged, QStringList(QStringLiteral("broken")));
}

void TestProjectFile::failedSaveKeepsTheOldFile()
{
    const Folder folder;
    Project project;
    const QString path = folder.path(QStringLiteral("a.vep"));
    save(project, path);
    const QByteArray old = contentOf(path);
    // A name that no XML text can hold would give a file that can't be opened again.
    addBody(project, QString(QChar(1)));
    QVERIFY(errorOf([&] { save(project, path); }).startsWith(QLatin1String("Failed to save '")));
    QCOMPARE(contentOf(path), old);
}

void TestProjectFile::trapsAreRefusedInWords_data()
{
    QTest::addColumn<QByteArray>("content");
    QTest::addColumn<QString>("problem");
    const auto element = [](int attributes) {
        QByteArray xml = "\n<light_height";
        for (int i = 0; i < attributes; ++i)
            xml += " a" + QByteArray::number(i) + "='>'";
        return projectXml(xml + ">5</light_height>");
    };
    const auto bodies = [](int count) {
        return projectXml("<bodies>" + QByteArray("<body/>").repeated(count) + "</bodies>");
    };
    const QByteArray hidden = "<!-- ' --><?x ' ?><name><![CDATA[<a '>]]></name>";
    const QString attributes =
        QStringLiteral("XML parser error: an element has more than 100 attributes (line 2)");
    QTest::newRow("100 attributes") << element(100) << QString();
    QTest::newRow("many attributes") << element(200'000) << attributes;
    QTest::newRow("many attributes without an end")
        << element(200'000).left(1'000'000) << attributes;
    QTest::newRow("many attributes behind others' quotes") << hidden + element(101) << attributes;
    QTest::newRow("many equal signs in a text")
        << projectXml("<x>" + QByteArray("=\"").repeated(1000) + "</x>") << QString();
    QTest::newRow("a hidden declaration")
        << "<!DOCTYPE a SYSTEM '>' [<!ENTITY b 'c'>]>" + projectXml({})
        << "XML parser error: entities are not supported (line 1)";
    QTest::newRow("an empty document type")
        << "<!DOCTYPE vesperine_project [ ]>" + projectXml({}) << QString();
    QTest::newRow("many bodies") << bodies(100'001)
                                 << "XML parser error: the project has more than 100,000 bodies; "
                                    "split it into several projects (line 1)";
    QTest::newRow("many attributes in all")
        << projectXml(QByteArray("<a a='' b=''/>").repeated(250'001))
        << "XML parser error: the text has more than 500,000 attributes; split the project into "
           "several ones (line 1)";
    QTest::newRow("many elements") << projectXml(QByteArray("<a/>").repeated(2'000'000))
                                   << "XML parser error: the text has more than two million "
                                      "elements; split the project into several ones (line 1)";
}

// Reading them took a minute, or the memory of the machine.
void TestProjectFile::trapsAreRefusedInWords()
{
    QFETCH(QByteArray, content);
    QFETCH(QString, problem);
    const Folder folder;
    const QString path = folder.write(QStringLiteral("a.vep"), bundle(content));
    QCOMPARE(errorOf([&path] { load(path); }), problem);
}

void TestProjectFile::asManyBodiesAsAllowedAreRead()
{
    const QByteArray body = "<body><name>a</name><sprite><filename>a.png</filename><checksum>0"
                            "</checksum></sprite><painted_normal_map datafile='a'/>"
                            "<position x='1' y='1'/></body>";
    QVERIFY(!findXmlProblem(projectXml("<bodies>" + body.repeated(100'000) + "</bodies>")));
}

void TestProjectFile::surfacesHaveALimitInAll()
{
    // As little as can claim the largest surface; none is unpacked.
    const QByteArray packed = QByteArray::fromHex("10000008") + QByteArray(260'200, '\0');
    QVector<QPair<QByteArray, QByteArray>> files;
    QByteArray bodies;
    for (int i = 0; i < 33; ++i) {
        files.append({QByteArray::number(i), packed});
        bodies += bodyXml("a", QByteArray::number(i));
    }
    const Folder folder;
    const QString path = folder.write(QStringLiteral("a.vep"),
                                      bundle(projectXml("<bodies>" + bodies + "</bodies>"), files));
    QCOMPARE(errorOf([&path] { load(path); }),
             QStringLiteral("Failed to load '%1': its surfaces take 8448 MiB, more than the 8192 "
                            "that a project may have. Go back to an older copy of it.")
                 .arg(path));
}

// Right checksums lead the faults past the archive, into the text and the surfaces.
void TestProjectFile::mutatedContentIsReadOrRefused()
{
    const Folder folder;
    std::mt19937 random(11);
    const QByteArray xml =
        projectXml("<light_height>5</light_height><bodies>" + bodyXml("a", "1") +
                   bodyXml("b", "2") + "</bodies><publish_directory>./</publish_directory>");
    const QByteArray surface = encode(randomAngles(3, 2, random));
    const auto mutate = [&random](QByteArray bytes) {
        for (int i = randomInt(0, 3, random); i > 0; --i)
            bytes[randomInt(0, bytes.size() - 1, random)] = char(randomInt(0, 255, random));
        return randomInt(0, 9, random) == 0 ? bytes.left(randomInt(0, bytes.size(), random))
                                            : bytes;
    };
    int loaded = 0;
    for (int i = 0; i < 2000; ++i) {
        const QString path = folder.write(
            QStringLiteral("a.vep"),
            bundle(i % 2 == 0 ? xml : mutate(xml),
                   {{"1", qCompress(mutate(surface))}, {"2", mutate(qCompress(surface))}}));
        std::shared_ptr<Project> project;
        if (!errorOf([&] { project = load(path); }).isEmpty())
            continue;
        ++loaded;
        // What was read can be saved, and reads back as the same.
        save(*project, path);
        const auto again = load(path);
        QCOMPARE(again->bodies().size(), project->bodies().size());
        for (int body = 0; body < again->bodies().size(); ++body)
            QCOMPARE(again->bodies().at(body).paintedNormalMap().value(),
                     project->bodies().at(body).paintedNormalMap().value());
    }
    QVERIFY2(loaded > 1000 && loaded < 2000, QByteArray::number(loaded).constData());
}

QTEST_GUILESS_MAIN(TestProjectFile)

#include "tst_ProjectFile.moc"
