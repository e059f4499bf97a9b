#include "base/Error.h"
#include "model/DataModelReader.h"
#include "model/DataModelWriter.h"
#include "model/Project.h"
#include "model/ProjectArchive.h"
#include "model/ProjectBundle.h"
#include "model/PropertyAngleImage.h"
#include "model/Sprite.h"
#include "support/ArchiveBuilder.h"
#include "support/Documents.h"
#include "support/Pictures.h"

#include <QDir>
#include <QTest>

#include <zip.h>

class TestProjectFile : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void savedProjectComesBack();
    void archiveReadsElsewhere();
    void idsAndPackedBytesAreKept();
    void olderFormsAreRead();
    void unknownElementsAndMissingFields();
    void refusals_data();
    void refusals();
    void damageCostsOneBody();
    void missingDataFileStaysMissing();
    void sharedDataFileIsSavedTwice();
    void failedSaveKeepsTheOldFile();
    void flippedBitsCostOneBody();
    void linksLeadToTheFilesOwnFolder();
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

void TestProjectFile::archiveReadsElsewhere()
{
    const Folder folder;
    Project project;
    const AngleImage surface = angles({{1, 2}});
    addBody(project, QStringLiteral("a")).paintedNormalMap().setAngleImage(surface, QString());
    const QString path = folder.path(QStringLiteral("a.vep"));
    save(project, path);
    const QString id = project.bodies().at(0).paintedNormalMap().dataFileId();

    zip_t *archive =
        zip_open(QFile::encodeName(path).constData(), ZIP_RDONLY | ZIP_CHECKCONS, nullptr);
    QVERIFY(archive);
    QCOMPARE(zip_get_num_entries(archive, 0), zip_int64_t(3));
    QCOMPARE(zip_get_name(archive, 0, 0), "datafiles/");
    QCOMPARE(zip_get_name(archive, 1, 0), "project.vexml");
    QCOMPARE(QString::fromUtf8(zip_get_name(archive, 2, 0)), QStringLiteral("datafiles/") + id);
    QByteArray packed(1000, '\0');
    zip_file_t *file = zip_fopen_index(archive, 2, 0);
    packed.truncate(int(zip_fread(file, packed.data(), zip_uint64_t(packed.size()))));
    zip_fclose(file);
    zip_discard(archive);
    QCOMPARE(qUncompress(packed), encode(surface));
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

void TestProjectFile::unknownElementsAndMissingFields()
{
    const Folder folder;
    const auto project = load(folder.write(
        QStringLiteral("a.vep"),
        bundle(projectXml("<preset_collections/><filename></filename><mood>calm</mood>"
                          "<publish_directory>.</publish_directory><light_brightness>dim"
                          "</light_brightness><light_color>dim</light_color>"))));
    QCOMPARE(project->lightHeight().value(), 32);
    QCOMPARE(project->lightBrightness().value(), 0); // what is no number counts as 0
    QCOMPARE(project->lightColor().value(), QColor(Qt::white));
    QCOMPARE(project->publishDirectory().value().path(), QDir(folder.path(QString())).path());
}

void TestProjectFile::refusals_data()
{
    QTest::addColumn<QString>("fileName");
    QTest::addColumn<QByteArray>("content");
    QTest::addColumn<QString>("message");

    const auto row =
        [](const char *name, const char *file, const QByteArray &content, const char *message) {
            QTest::newRow(name) << QString::fromLatin1(file) << content
                                << QString::fromLatin1(message);
        };
    const QByteArray sound = bundle(projectXml({}));
    row("other extension", "a.zip", sound, "File type of '%1' not supported");
    row("upper case", "a.VEP", sound, "File type of '%1' not supported");
    row("absent", "a.vep", {}, "Failed to load '%1'");
    row("no archive", "a.vep", "vesperine", "Failed to load '%1'");
    row("cut", "a.vep", sound.left(sound.size() - 1), "Failed to load '%1'");
    row("absent text", "a.vex", {}, "Failed to open file '%1'");
    row("no project in it",
        "a.vep",
        BuiltArchive().add(storedEntry("a", "b")).bytes(),
        "Project file 'project.vexml' not found in '%1'");
    row("empty project", "a.vep", bundle({}), "Project file 'project.vexml' not found in '%1'");
    row("broken text",
        "a.vex",
        "<vesperine_project>\n<bodies>",
        "XML parser error: Premature end of document. (line 2)");
    row("other root", "a.vex", "<project/>", "'%1' is not a Vesperine project file");
    row("unknown entry",
        "a.vex",
        projectXml("<bodies><dress/></bodies>"),
        "Unknown list element 'dress'");
    row("entry of another list",
        "a.vex",
        projectXml("<bodies><sprite/></bodies>"),
        "cannot add 'sprite' to list 'bodies', wrong type");
    row("preset collection",
        "a.vex",
        projectXml("<preset_collections><brush_list/></preset_collections>"),
        "Preset collections not supported (brush_list)");
    row("entities",
        "a.vex",
        "<!DOCTYPE a [<!ENTITY b \"c\">]>" + projectXml({}),
        "XML parser error: entities are not supported (line 1)");
    row("deep",
        "a.vex",
        projectXml(QByteArray("<a>").repeated(30000)),
        "XML parser error: elements are nested too deeply (line 1)");
    row("long",
        "a.vex",
        projectXml(QByteArray(66 << 20, ' ')),
        "XML parser error: the text is longer than 64 MiB (line 1)");
}

void TestProjectFile::refusals()
{
    QFETCH(QString, fileName);
    QFETCH(QByteArray, content);
    QFETCH(QString, message);
    const Folder folder;
    const QString path =
        content.isEmpty() ? folder.path(fileName) : folder.write(fileName, content);
    const QString expected = message.contains(QLatin1String("%1")) ? message.arg(path) : message;
    QCOMPARE(errorOf([&path] { load(path); }), expected);
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

void TestProjectFile::missingDataFileStaysMissing()
{
    const Folder folder;
    const QString path =
        folder.write(QStringLiteral("a.vep"),
                     bundle(projectXml("<bodies>" + bodyXml("a", "gone") + "</bodies>")));
    QStringList damaged;
    auto project = load(path, &damaged);
    QCOMPARE(damaged.size(), 1);
    save(*project, path);
    project = load(path, &damaged);
    QCOMPARE(damaged.size(), 1);
    project->bodies().at(0).paintedNormalMap().setAngleImage(angles({{8}}),
                                                             QStringLiteral("paint"));
    save(*project, path);
    load(path, &damaged);
    QVERIFY(damaged.isEmpty());
}

void TestProjectFile::sharedDataFileIsSavedTwice()
{
    const Folder folder;
    const QString path = folder.write(
        QStringLiteral("a.vep"),
        bundle(projectXml("<bodies>" + bodyXml("a", "1") + bodyXml("b", "1") + "</bodies>"),
               {{"1", qCompress(encode(angles({{5}})))}}));
    const auto project = load(path);
    save(*project, path);
    const auto again = load(path);
    QCOMPARE(again->bodies().at(0).paintedNormalMap().angleImage(), angles({{5}}));
    QCOMPARE(again->bodies().at(1).paintedNormalMap().angleImage(), angles({{5}}));

    ProjectBundle taken(QStringLiteral("vep"), QStringLiteral("vexml"));
    taken.setFileName(path);
    taken.add(QStringLiteral("id"), std::make_shared<DataFile>());
    QCOMPARE(errorOf([&] { taken.add(QStringLiteral("id"), std::make_shared<DataFile>()); }),
             QStringLiteral("Data file 'id' already exists in bundle '%1'").arg(path));
}

void TestProjectFile::failedSaveKeepsTheOldFile()
{
    const Folder folder;
    Project project;
    QCOMPARE(errorOf([&] { DataModelWriter(project).write(); }),
             QStringLiteral("No filename set on project"));
    const QString inNoFolder = folder.path(QStringLiteral("absent/a.vep"));
    QCOMPARE(errorOf([&] { save(project, inNoFolder); }),
             QStringLiteral("File location '%1' not writable").arg(inNoFolder));

    const QString path = folder.path(QStringLiteral("a.vep"));
    save(project, path);
    const QByteArray old = contentOf(path);
    // A name that no XML text can hold would give a file that can't be opened again.
    addBody(project, QString(QChar(1)));
    QVERIFY(errorOf([&] { save(project, path); }).startsWith(QLatin1String("Failed to save '")));
    QCOMPARE(contentOf(path), old);
}

void TestProjectFile::flippedBitsCostOneBody()
{
    const Folder folder;
    const QByteArray packed = qCompress(encode(angles({{1, 2}, {3, 4}})));
    const QByteArray sound =
        bundle(projectXml("<bodies>" + bodyXml("a", "1") + bodyXml("b", "2") + "</bodies>"),
               {{"1", packed}, {"2", packed}});
    const int start = sound.indexOf(packed);
    for (int i = start; i < start + packed.size(); ++i) {
        QByteArray flipped = sound;
        flipped[i] = char(flipped[i] ^ 4);
        QStringList damaged;
        const QString path = folder.write(QStringLiteral("a.vep"), flipped);
        const auto project = load(path, &damaged);
        QCOMPARE(damaged, QStringList(QStringLiteral("a")));
        QCOMPARE(project->bodies().at(1).paintedNormalMap().angleImage(), angles({{1, 2}, {3, 4}}));
        save(*project, path);
        QVERIFY(contentOf(path).contains(flipped.mid(start, packed.size())));
    }
    QByteArray flipped = sound;
    flipped.replace("<name>", "<Name>");
    const QString path = folder.write(QStringLiteral("b.vep"), flipped);
    QCOMPARE(errorOf([&path] { load(path); }), QStringLiteral("Failed to load '%1'").arg(path));
}

void TestProjectFile::linksLeadToTheFilesOwnFolder()
{
    const Folder folder;
    Project project;
    addBody(project, QString(), folder.writeSprite(QStringLiteral("a.png"), {1, 1}));
    QVERIFY(QDir().mkpath(folder.path(QStringLiteral("real"))) &&
            QDir().mkpath(folder.path(QStringLiteral("far/away"))));
    const QString real = folder.path(QStringLiteral("real/a.vep"));
    const QString link = folder.path(QStringLiteral("far/away/a.vep"));
    save(project, real);
    QVERIFY(QFile::link(QStringLiteral("../../real/a.vep"), link));
    save(*load(link), link);
    QVERIFY(QFileInfo(link).isSymLink());
    for (const QString &path : {real, link})
        QCOMPARE(load(path)->bodies().at(0).sprite().filename().value().path(),
                 folder.path(QStringLiteral("a.png")));
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
