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

/// The commands that give surfaces, run as the real program.
class TestEffectCommands : public QObject
{
    Q_OBJECT

    /// Runs a line, which has to end with @p code and to say @p words.
    void run(const QByteArray &line, int code = 0, const QByteArrayList &words = {})
    {
        QVERIFY2(m_program->run(line.constData()) == code, line.constData());
        for (const QByteArray &text : words)
            QVERIFY2(m_program->says(text.constData()), qUtf8Printable(m_program->words));
    }
    QString path(const char *name) const { return m_folder.path(QString::fromUtf8(name)); }
    int lines() const { return m_program->output.count(QLatin1Char('\n')); }

    void writeNoise(const char *name, const QSize &size)
    {
        QImage image(m_folder.writeSprite(QString::fromUtf8(name), size));
        for (int i = 0; i < size.width() * size.height(); ++i) {
            const auto [y, x] = std::div(i, size.width());
            image.setPixel(x, y, (x / 6 + y / 9) % 3 == 0 ? 0U : m_random() | 0xC0000000U);
        }
        QVERIFY(image.save(path(name)));
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
        const QByteArrayList commands{
            "bevel --width 5 --height 150 --smoothness 3 --down --tile",
            "emboss --height 2.5 --smoothness 2 --down",
            "smooth --radius 2.5",
            "structure --pattern Brick --intensity 2.5 --scale 50 --rotation 30",
            "fill --slope -1.5,0.5 --opacity 25",
        };
        const QImage brick(builtInPatterns() + QStringLiteral("/brick.png"));
        const auto effects = [&](const AngleImage &surface, const QImage &sprite) {
            AngleImage structured = surface;
            const auto slopes = structureSurface({brick, 2.5, 0.5, 30.0, surface.size()});
            addSlopes(structured, {}, {0, 0}, slopes);
            AngleImage filled = surface;
            const FloatImage quarter(surface.width(), surface.height(), 0.25F);
            blendSlope(filled, quarter, {-384, 128});
            return QVector<AngleImage>{
                FilterCreateRimAlgorithm().compute({sprite, surface, {}, 5, 150, 3, true, false}),
                FilterEmbossAlgorithm().compute({sprite, surface, 2.5F, false, 2}),
                smoothened(surface, 2.5),
                structured,
                filled};
        };
        const auto before = surfaces("p.vep");
        const QStringList sprites{path("s/a.png"), path("s/t/b.png"), path("s/c.png")};
        QVector<QVector<AngleImage>> after;
        for (const QByteArray &line : commands) {
            run(line + " p.vep --output-project o.vep");
            after.append(surfaces("o.vep"));
        }
        for (int i = 0; i < 3; ++i) {
            const auto expected = effects(before[i], readImageFile(sprites[i]).image);
            for (int k = 0; k < commands.size(); ++k)
                QVERIFY2(after[k][i] == expected[k], commands[k].constData());
        }
        QCOMPARE(surfaces("p.vep"), before);
        run("erase --body #3 --body b --body c p.vep");
        const QVector<AngleImage> erased{before[0], AngleImage(17, 22), AngleImage(40, 31)};
        QCOMPARE(surfaces("p.vep"), erased);
        run("erase p.vep --body a --body absent", 1);
        QCOMPARE(surfaces("p.vep"), erased);
    }

    void refusals_data()
    {
        QTest::addColumn<QByteArray>("words");
        const std::vector<std::array<QByteArray, 3>> table{
            {"bevel p.vep --width=", "-1|256|60x|2.5||1,2", "--width: it takes a whole"},
            {"bevel p.vep --width=9 --output-project=", "o.zip|p.vex", "ends in .vep"},
            {"emboss p.vep --height=", "0.09|10.1|nan|-inf|1e999|", "a number from 0.1 to 10"},
            {"smooth p.vep --radius=", "0.49|50.1", "from 0.5 to 50"},
            {"structure p.vep --pattern=", "brik|p.vep.png|s|", "bark, brick, "},
            {"fill p.vep --slope=", "-129,0|0,127.5|,", "--slope: it takes a number from -128 to"},
            {"generate s --output=o --bevel=", "256|60,,9|60,100,9x", "of --bevel: it takes"},
            {"generate s --output=o --structure=", "sand,21|sand,4,100,360", "of --structure"},
            {"generate s --bevel=9 --output=out --suffix=", "/../n", "--suffix: it takes"},
        };
        for (const auto &[command, values, words] : table)
            for (const QByteArray &value : values.split('|'))
                QTest::newRow(command + value) << words;
    }
    void refusals()
    {
        QFETCH(QByteArray, words);
        const auto before = files();
        run(QTest::currentDataTag(), 2, {words});
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
        run("bevel p.vep --width 9 --body a --body b",
            1,
            {"'a' is left alone: its sprite has another size than its surface",
             "'b' is left alone: its sprite is missing"});
        run("erase d.vep", 1, {"'d' is left alone: its surface is damaged"});
        QCOMPARE(files(), before);
        run("emboss p.vep --height 1", 4);
        QVERIFY(files() != before);
        run("fill p.vep --slope 1,1", 4, {"'b' is left alone"});
        QVERIFY(!m_program->says("'a' is left alone"));
        QCOMPARE(surfaces("p.vep")[0].row(0)->sx, qint16(256));
    }

    void generatingIsCreatingAndExporting()
    {
        for (const char *line : {"create q.vep s",
                                 "bevel q.vep --width 5 --smoothness 0 --tile --down",
                                 "emboss q.vep --height 2 --down",
                                 "structure q.vep --pattern sand --intensity 3 --scale 80",
                                 "export q.vep --output flat --suffix _n"})
            run(line);
        const QStringList maps{path("deep/a_n.png"), path("deep/c_n.png"), path("deep/t/b_n.png")};
        for (const char *jobs : {"1", "3"}) {
            QDir(path("deep")).removeRecursively();
            const QByteArray line("generate s --output deep --bevel 5,100,0 --emboss 2 --tile "
                                  "--structure sand,3,80 --down --jobs ");
            run(line + jobs);
            QCOMPARE(m_program->output.split(QLatin1Char('\n'), Qt::SkipEmptyParts), maps);
            for (const QString &map : maps)
                QCOMPARE(contentOf(map), contentOf(path("flat/") + QFileInfo(map).fileName()));
        }
        // A file that is named has no place below anything.
        run("generate s/t/b.png s --structure sand --output deep2");
        QVERIFY(QFileInfo::exists(path("deep2/b_n.png")) &&
                QFileInfo::exists(path("deep2/t/b_n.png")));
        // Pictures in trouble do not keep the others from their maps.
        m_folder.write(QStringLiteral("s/bad.png"), "no picture");
        QVERIFY(QFile::link(path("nowhere.png"), path("s/lost.png")));
        run("generate s absent.png --bevel 3 --output out --jobs 1",
            4,
            {"s/lost.png", "s/bad.png", "absent.png"});
        QCOMPARE(lines(), 3);
    }

    void sourcesAreSafe_data()
    {
        QTest::addColumn<int>("code");
        // @ is the test's folder; link leads to s, new to a folder that does not exist in it. Then
        // somebody's pictures that are no sources, and two maps of one name, or through links.
        const QByteArray refused(
            "s --output s --suffix=|s --output link --suffix=|@/s --output s/../s --suffix=|"
            "s/t/b.png s --output link/t --suffix=|s s/t/b.png --output absent/../s/t --suffix=|"
            "s/u/a.png --output s/u --suffix _north|s/a.png s/c.png --output twins|"
            "s --output s --suffix _north|s --output s/u --suffix=|s s/u --output out");
        const QByteArray fine(
            "s s/a.png s --output out --suffix=|s --output link/new/deep|s --output s/t");
        for (const auto &[code, lines] : {std::pair(1, refused), std::pair(0, fine)})
            for (const QByteArray &line : lines.split('|'))
                QTest::newRow(line) << code;
    }
    void sourcesAreSafe()
    {
        QFETCH(int, code);
        writeNoise("s/u/a.png", {5, 5});
        writeNoise("s/u/a_north.png", {5, 5});
        QDir().mkpath(path("twins"));
        QVERIFY(QFile::link(path("s"), path("link")));
        QVERIFY(QFile::link(path("one.png"), path("twins/a_n.png")));
        QVERIFY(QFile::link(path("twins/a_n.png"), path("twins/c_n.png")));
        const auto before = files();
        const QByteArray line = QByteArray("generate --bevel 3 ") + QTest::currentDataTag();
        run(QByteArray(line).replace("@", path("").toUtf8()), code);
        QVERIFY(code == 0 || m_program->says("Nothing is written"));
        auto after = files();
        for (const QString &file : before.keys())
            QCOMPARE(after.take(file), before[file]);
        QCOMPARE(after.isEmpty(), code != 0);
    }

    void resultsAreNoSources()
    {
        // Wherever they lie, whatever their suffix was, a second run gives the same files.
        for (const char *line : {"generate s --bevel 3 --output s",
                                 "generate s --bevel 3 --output s --suffix _other",
                                 "generate s --bevel 3 --output s/bare --suffix="}) {
            run(line);
            const auto first = files();
            run(line);
            QCOMPARE(lines(), 3);
            QCOMPARE(files(), first);
        }
        QFile::remove(path("s/a.png"));
        run("generate s --bevel 3 --output fresh",
            0,
            {"Skipped '", "s/a_n.png': it is a normal map"});
        QCOMPARE(lines(), 2);
        // The maps of an export are known too.
        run("export p.vep --output x");
        run("generate x s/a_n.png --bevel 3 --output y", 1, {"No sprites found"});
        QVERIFY(!QFileInfo::exists(path("y")));
        QDir().mkpath(path("empty"));
        run("generate empty --bevel 3 --output y", 1, {"No sprites found"});
        QVERIFY(!QFileInfo::exists(path("y")));
        // A shell names the maps of an earlier run along with the sprites.
        run("generate s/c.png s/c_n.png --bevel 3 --output s");
        QCOMPARE(lines(), 1);
    }
};

QTEST_GUILESS_MAIN(TestEffectCommands)

#include "tst_EffectCommands.moc"
