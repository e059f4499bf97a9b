#include "base/Resources.h"
#include "imaging/Patterns.h"
#include "imaging/SlopeArithmetic.h"
#include "imaging/Smoothing.h"
#include "imaging/StructureSurface.h"
#include "imaging/effects/FilterCreateRimAlgorithm.h"
#include "imaging/effects/FilterEmbossAlgorithm.h"
#include "model/DataModelReader.h"
#include "model/DataModelWriter.h"
#include "model/ImageReading.h"
#include "model/Project.h"
#include "model/PropertyAngleImage.h"
#include "model/Sprite.h"
#include "support/Documents.h"
#include "support/Pictures.h"
#include "support/Program.h"

#include <QDir>
#include <QDirIterator>
#include <QFile>
#include <QFileInfo>
#include <QTest>

namespace {

using Effect = std::function<AngleImage(const AngleImage &, const QImage &)>;

QImage noise(const QSize &size, std::mt19937 &random)
{
    QImage image(size, QImage::Format_ARGB32);
    for (int y = 0; y < size.height(); ++y)
        for (int x = 0; x < size.width(); ++x)
            image.setPixel(x, y, (x / 6 + y / 9) % 3 == 0 ? 0U : QRgb(random()) | 0xC0000000U);
    return image;
}

AngleImage structured(AngleImage surface, const QImage &)
{
    const QImage brick(builtInPatterns() + QStringLiteral("/brick.png"));
    addSlopes(surface, {}, {0, 0}, structureSurface({brick, 2.5, 0.5, 30.0, surface.size()}));
    return surface;
}

Effect blended(float weight, AngleImage::Pixel slope)
{
    return [=](AngleImage surface, const QImage &) {
        blendSlope(surface, FloatImage(surface.width(), surface.height(), weight), slope);
        return surface;
    };
}

// A row for each line that '|' separates.
void addRows(const QByteArray &lines, const std::function<void(QTestData &)> &add)
{
    for (const QByteArray &line : lines.split('|'))
        add(QTest::newRow(line.constData()));
}

} // namespace

/// The commands that give surfaces, run as the real program.
class TestEffectCommands : public QObject
{
    Q_OBJECT

    int run(const QByteArray &line) { return m_program->run(line.constData()); }
    QString path(const char *name) const { return m_folder.path(QString::fromUtf8(name)); }
    int lines() const { return m_program->output.count(QLatin1Char('\n')); }

    void writeNoise(const char *name, const QSize &size)
    {
        m_folder.write(QString::fromUtf8(name), {});
        QVERIFY(noise(size, m_random).save(path(name), "png"));
    }

    /// The surface of each body.
    QVector<AngleImage> surfaces(const char *project) const
    {
        DataModelReader reader(QStringLiteral(".vep"), QStringLiteral(".vexml"));
        const auto read = reader.read(path(project));
        QVector<AngleImage> all;
        for (const Body *body : read->bodies().all()) {
            body->loadSprite();
            all.append(body->surface());
        }
        return all;
    }

    /// What the files below the test's folder hold.
    QMap<QString, QByteArray> files() const
    {
        QMap<QString, QByteArray> all;
        QDirIterator walk(path(""), QDir::Files, QDirIterator::Subdirectories);
        while (!walk.next().isEmpty())
            all.insert(walk.filePath(), contentOf(walk.filePath()));
        return all;
    }

    Folder m_folder;
    std::unique_ptr<Program> m_program;
    std::mt19937 m_random{11};

private Q_SLOTS:
    void initTestCase() { initialiseResources(); }

    // Each test has the sprites s/a.png, s/t/b.png and s/c.png, and a project of them in which all
    // but b are painted.
    void init()
    {
        m_folder = Folder();
        m_program = std::make_unique<Program>(QStringLiteral(CLI_PROGRAM), path(""));
        Project project;
        for (const char *name : {"s/a.png", "s/t/b.png", "s/c.png"}) {
            const bool isPainted = QByteArray(name) != "s/t/b.png";
            writeNoise(name, isPainted ? QSize(40, 31) : QSize(17, 22));
            Body &body = addBody(project, QFileInfo(path(name)).baseName(), path(name));
            if (isPainted)
                body.paintedNormalMap().setValue(encode(randomAngles(40, 31, m_random)));
        }
        project.filename().setValue(GFileName(path("p.vep")));
        DataModelWriter(project).write();
    }

    void surfacesAreThoseOfTheFunctions()
    {
        const std::vector<std::pair<const char *, Effect>> commands{
            {"bevel --width 5 --height 150 --smoothness 3 --down --tile",
             [](const auto &surface, const auto &sprite) {
                 return FilterCreateRimAlgorithm().compute(
                     {sprite, surface, {}, 5, 150, 3, true, false});
             }},
            {"emboss --height 2.5 --smoothness 2 --down",
             [](const auto &surface, const auto &sprite) {
                 return FilterEmbossAlgorithm().compute({sprite, surface, 2.5F, false, 2});
             }},
            {"smooth --radius 2.5", [](const auto &s, const auto &) { return smoothened(s, 2.5); }},
            {"structure --pattern Brick --intensity 2.5 --scale 50 --rotation 30", structured},
            {"erase", blended(1.0F, {})},
            {"fill --slope -1.5,0.5 --opacity 25", blended(0.25F, {-384, 128})},
        };
        const auto before = surfaces("p.vep");
        const QStringList sprites{path("s/a.png"), path("s/t/b.png"), path("s/c.png")};
        for (const auto &[line, effect] : commands) {
            QVERIFY2(run(QByteArray(line) + " p.vep --output-project o.vep") == 0, line);
            const auto after = surfaces("o.vep");
            for (int i = 0; i < 3; ++i)
                QVERIFY2(after[i] == effect(before[i], readImageFile(sprites[i]).image), line);
        }
        QCOMPARE(surfaces("p.vep"), before);
        QCOMPARE(run("erase --body #3 --body b --body c p.vep"), 0);
        const QVector<AngleImage> erased{before[0], AngleImage(17, 22), AngleImage(40, 31)};
        QCOMPARE(surfaces("p.vep"), erased);
        QCOMPARE(run("erase p.vep --body a --body absent"), 1);
        QCOMPARE(surfaces("p.vep"), erased);
    }

    void refusals_data()
    {
        QTest::addColumn<QByteArray>("words");
        const auto all = [](const QByteArray &command, const char *values, const char *words) {
            addRows(command + QByteArray(values).replace("|", '|' + command),
                    [words](QTestData &row) { row << QByteArray(words); });
        };
        all("bevel p.vep --width=", "-1|256|60x|2.5||1,2", "--width: it takes a whole");
        all("bevel p.vep --width=9 --height=", "24|401", "a whole number from 25 to 400");
        all("bevel p.vep --width=9 --smoothness=", "-1|256", "from 0 to 255");
        all("bevel p.vep --width=9 --output-project=", "o.zip|p.vex", "ends in .vep");
        all("emboss p.vep --height=", "0.09|10.1|nan|-inf|1e999|", "a number from 0.1 to 10");
        all("emboss p.vep --height=1 --smoothness=", "0|10|1.5", "from 1 to 9");
        all("smooth p.vep --radius=", "0.49|50.1", "from 0.5 to 50");
        all("structure p.vep --pattern=brick --intensity=", "0|20.1", "from 0.1 to 20");
        all("structure p.vep --pattern=brick --scale=", "9|401", "from 10 to 400");
        all("structure p.vep --pattern=brick --rotation=", "-1|360", "from 0 to 359");
        all("structure p.vep --pattern=", "brik|p.vep.png|s|", "bark, brick, ");
        all("erase p.vep --opacity=", "0|101", "from 1 to 100");
        all("fill p.vep --slope=", "1|1,2,3|", "--slope: it takes X,Y");
        all("fill p.vep --slope=", "-129,0|0,127.5|,", "--slope: it takes a number from -128 to");
        all("generate s --output=o --bevel=", "256|60,,9|60,100,9x", "of --bevel: it takes");
        all("generate s --output=o --bevel=", "1,100,10,5", "at most WIDTH,HEIGHT,SMOOTHNESS");
        all("generate s --output=o --emboss=", "0|1,", "of --emboss: it takes");
        all("generate s --output=o --structure=", "sand,21|sand,4,100,360", "of --structure");
        all("generate s --output=o --structure=", "sand,4x|sand,|san|", "bark, brick");
        all("generate s --output=o --structure=", "sand,1,4,100,90", "INTENSITY,SCALE,ROTATION");
        all("generate s --output=o --down", "", "--bevel, --emboss, --structure");
        all("generate s --output=o --structure=sand ", "--down", "--down is for");
        all("generate s --output=o --emboss=1 ", "--tile", "--tile is for");
        all("generate s --bevel=9 --output=", "", "it takes a folder");
        all("generate s --bevel=9 --output=out --suffix=", "/../n", "--suffix: it takes");
    }
    void refusals()
    {
        QFETCH(QByteArray, words);
        const auto before = files();
        QCOMPARE(run(QTest::currentDataTag()), 2);
        QVERIFY2(m_program->says(words.constData()), qUtf8Printable(m_program->words));
        QCOMPARE(files(), before);
    }

    void bodiesInTrouble()
    {
        // a is of another size now, b is missing and not painted, d has no surface.
        writeNoise("s/a.png", {3, 3});
        QFile::remove(path("s/t/b.png"));
        Project project;
        addBody(project, QStringLiteral("d")).paintedNormalMap().setValue("no surface");
        project.filename().setValue(GFileName(path("d.vep")));
        DataModelWriter(project).write();
        const auto before = files();
        QCOMPARE(run("bevel p.vep --width 9 --body a --body b"), 1);
        QVERIFY(m_program->says("'a' is left alone: its sprite has another size than its surface"));
        QVERIFY(m_program->says("'b' is left alone: its sprite is missing"));
        QCOMPARE(run("erase d.vep"), 1);
        QVERIFY(m_program->says("'d' is left alone: its surface is damaged"));
        QCOMPARE(files(), before);
        QCOMPARE(run("emboss p.vep --height 1"), 4);
        QVERIFY(files() != before);
        QCOMPARE(run("fill p.vep --slope 1,1"), 4);
        QVERIFY(m_program->says("'b' is left alone") && !m_program->says("'a' is left alone"));
        QCOMPARE(surfaces("p.vep")[0].row(0)->sx, qint16(256));
    }

    void generatingIsCreatingAndExporting()
    {
        QCOMPARE(run("create q.vep s"), 0);
        QCOMPARE(run("bevel q.vep --width 5 --smoothness 0 --tile --down"), 0);
        QCOMPARE(run("emboss q.vep --height 2 --down"), 0);
        QCOMPARE(run("structure q.vep --pattern sand --intensity 3 --scale 80"), 0);
        QCOMPARE(run("export q.vep --output flat --suffix _n"), 0);
        const QStringList maps{path("deep/a_n.png"), path("deep/c_n.png"), path("deep/t/b_n.png")};
        for (const char *jobs : {"1", "3"}) {
            QDir(path("deep")).removeRecursively();
            QCOMPARE(
                run(QByteArray("generate s --output deep --bevel 5,100,0 --emboss 2 --structure "
                               "sand,3,80 --tile --down --jobs ") +
                    jobs),
                0);
            QCOMPARE(m_program->output.split(QLatin1Char('\n'), Qt::SkipEmptyParts), maps);
            for (const QString &map : maps)
                QCOMPARE(contentOf(map), contentOf(path("flat/") + QFileInfo(map).fileName()));
        }
        // A file that is named has no place below anything.
        QCOMPARE(run("generate s/t/b.png s --structure sand --output deep2"), 0);
        QVERIFY(QFileInfo::exists(path("deep2/b_n.png")) &&
                QFileInfo::exists(path("deep2/t/b_n.png")));
    }

    void sourcesAreSafe_data()
    {
        QTest::addColumn<int>("code");
        const auto all = [](int code, const char *lines) {
            addRows(lines, [code](QTestData &row) { row << code; });
        };
        // @ is the test's folder; link leads to s, new to a folder that does not exist in it.
        all(1, "s --output s --suffix=|s --output link --suffix=|@/s --output s/../s --suffix=");
        all(1,
            "s/t/b.png s --output link/t --suffix=|s s/t/b.png --output absent/../s/t --suffix=");
        // Somebody's pictures that are no sources, and two maps of one name, or through links.
        all(1, "s/u/a.png --output s/u --suffix _north|s/a.png s/c.png --output twins");
        all(1, "s --output s --suffix _north|s --output s/u --suffix=|s s/u --output out");
        all(0, "s s/a.png s --output out --suffix=|s --output link/new/deep|s --output s/t");
    }
    void sourcesAreSafe()
    {
        QFETCH(int, code);
        writeNoise("s/u/a.png", {5, 5});
        writeNoise("s/u/a_north.png", {5, 5});
        QVERIFY(QFile::link(path("s"), path("link")));
        QDir().mkpath(path("twins"));
        QVERIFY(QFile::link(path("one.png"), path("twins/a_n.png")));
        QVERIFY(QFile::link(path("twins/a_n.png"), path("twins/c_n.png")));
        const auto before = files();
        const QByteArray line = QByteArray("generate --bevel 3 ") + QTest::currentDataTag();
        QCOMPARE(run(QByteArray(line).replace("@", path("").toUtf8())), code);
        auto after = files();
        for (const QString &file : before.keys())
            QCOMPARE(after.take(file), before[file]);
        QCOMPARE(after.isEmpty(), code != 0);
        QVERIFY(code == 0 || m_program->says("Nothing is written"));
    }

    void resultsAreNoSources()
    {
        // Wherever they lie, whatever their suffix was, a second run gives the same files.
        for (const char *line : {"generate s --bevel 3 --output s",
                                 "generate s --bevel 3 --output s --suffix _other",
                                 "generate s --bevel 3 --output s/bare --suffix="}) {
            QCOMPARE(run(line), 0);
            const auto first = files();
            QCOMPARE(run(line), 0);
            QCOMPARE(lines(), 3);
            QCOMPARE(files(), first);
        }
        QFile::remove(path("s/a.png"));
        QCOMPARE(run("generate s --bevel 3 --output fresh"), 0);
        QVERIFY(m_program->says("Skipped '") && m_program->says("s/a_n.png': it is a normal map"));
        QCOMPARE(lines(), 2);
        // The maps of an export are known too.
        QCOMPARE(run("export p.vep --output x"), 0);
        QCOMPARE(run("generate x s/a_n.png --bevel 3 --output y"), 1);
        QVERIFY(m_program->says("No sprites found") && !QFileInfo::exists(path("y")));
        // A shell names the maps of an earlier run along with the sprites.
        QCOMPARE(run("generate s/c.png s/c_n.png --bevel 3 --output s"), 0);
        QCOMPARE(lines(), 1);
    }

    void picturesInTrouble()
    {
        m_folder.write(QStringLiteral("s/bad.png"), "no picture");
        QVERIFY(QFile::link(path("nowhere.png"), path("s/lost.png")));
        QCOMPARE(run("generate s absent.png --bevel 3 --output out --jobs 1"), 4);
        QVERIFY(m_program->says("s/lost.png"));
        QVERIFY(m_program->says("s/bad.png") && m_program->says("absent.png"));
        QCOMPARE(lines(), 3);
        QDir().mkpath(path("empty"));
        QCOMPARE(run("generate empty --bevel 3 --output out2"), 1);
        QVERIFY(m_program->says("No sprites found") && !QFileInfo::exists(path("out2")));
    }

    void patterns()
    {
        writeNoise("mine/my,own,7.png", {6, 5});
        writeNoise("mine/brick.png", {7, 7});
        m_folder.write(QStringLiteral("config/Vesperine/Vesperine.conf"),
                       "[General]\npatterns=" + path("mine").toUtf8() + '\n');
        QCOMPARE(run("patterns"), 0);
        QVERIFY(m_program->output.startsWith(QLatin1String("bark\nbrick\n")));
        QVERIFY(m_program->output.endsWith(QLatin1String("\nwoven-cloth\nbrick\nmy,own,7\n")));
        QCOMPARE(run("patterns --json"), 0);
        const QString json = QStringLiteral(
            R"({"builtIn":false,"file":"%1","height":5,"name":"my,own,7","width":6})");
        QVERIFY(
            m_program->output.endsWith(json.arg(path("mine/my,own,7.png")) + QLatin1Char('\n')));
        // The program's own comes before the user's of that name.
        QVector<QByteArray> maps;
        for (const char *choice :
             {"My,own,7", "my,own,7.png", "mine/my,own,7.png", "brick", "mine/brick.png"}) {
            QCOMPARE(
                run(QByteArray("generate s/a.png --output out --structure ") + choice + ",2,50,0"),
                0);
            maps.append(contentOf(path("out/a_n.png")));
        }
        QVERIFY(maps[0] == maps[1] && maps[1] == maps[2]);
        QVERIFY(maps[2] != maps[3] && maps[3] != maps[4] && maps[4] != maps[2]);
    }
};

QTEST_GUILESS_MAIN(TestEffectCommands)

#include "tst_EffectCommands.moc"
