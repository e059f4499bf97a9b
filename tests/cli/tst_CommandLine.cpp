#include "support/ArchiveBuilder.h"
#include "support/Documents.h"
#include "support/Program.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QProcess>
#include <QTest>

#include <cstdio>
#include <memory>

/// Runs the real program.
class TestCommandLine : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    // Each test has a folder with the sprites a, b and b, and a project of them.
    void init()
    {
        m_folder = Folder();
        m_program = std::make_unique<Program>(QStringLiteral(CLI_PROGRAM), path(""));
        sprite("s/a.png", {3, 2});
        sprite("s/b.png", {1, 1});
        sprite("s/t/b.jpg", {8, 8});
        QCOMPARE(run("create p.vep s"), 0);
        QCOMPARE(output() + m_program->words, QString());
    }

    void mainJob()
    {
        const QByteArray before = contentOf(path("p.vep"));
        QCOMPARE(run("export p.vep"), 0);
        const QStringList maps{path("s/a_n.png"), path("s/b_n.png"), path("s/t/b_n.jpg")};
        QCOMPARE(output().split(QLatin1Char('\n'), Qt::SkipEmptyParts), maps);
        QCOMPARE(QImage(path("s/a_n.png")).size(), QSize(3, 2));
        QCOMPARE(contentOf(path("p.vep")), before);
        // A second run does not feed on the first.
        QCOMPARE(run("create q.vep s"), 0);
        QVERIFY(says("s/a_n.png': it is the normal map"));
        QCOMPARE(each("name", "q.vep"), QStringLiteral("a b b"));
        // Output that is lost is a failure.
        QCOMPARE(QProcess::execute(QStringLiteral("sh"),
                                   {QStringLiteral("-c"),
                                    QStringLiteral("cd '%1' && '%2' info p.vep >/dev/full")
                                        .arg(path(""), QStringLiteral(CLI_PROGRAM))}),
                 1);
    }

    void endings()
    {
        m_folder.write(QStringLiteral("text.vep"), "no archive");
        const QByteArray before = contentOf(path("p.vep"));
        const QVector<const char *> linesOfCode{
            "--help|--version|export --help|export --version|info p.vep -vvv|-vv --quiet info "
            "p.vep",
            "create p.vep s|create n.vep absent|create absent/n.vep s|add p.vep absent.png|"
            "remove p.vep b|remove p.vep #4|remove p.vep a c|import p.vep --body a s/b.png|"
            "import p.vep --body a absent.png",
            "|paint p.vep|create p.vep|create p.zip s|export p.vep --jobs 0|"
            "set p.vep light_height|set p.vep light_height=1025|set p.vep light_height=12x|"
            "set p.vep light_color=red|set p.vep light_height=9 light_brightness=9|"
            "set p.vep bodies=1|set p.vep publish_normalmap_postfix=n/m",
            "check text.vep|check absent.vep|check s|check s/a.png"};
        for (int code = 0; code < linesOfCode.size(); ++code)
            for (const QByteArray &line : QByteArray(linesOfCode[code]).split('|')) {
                QVERIFY2(run(line) == code, line);
                QVERIFY2(m_program->words.isEmpty() == (code == 0), line);
                QVERIFY2(output().isEmpty() == (code != 0), line);
                QVERIFY2(code != 3 || says(line.mid(6)), line);
                QVERIFY2(contentOf(path("p.vep")) == before && !exists("n.vep"), line);
            }
    }

    void changing()
    {
        m_folder.write(QStringLiteral("bad.png"), "no picture");
        QCOMPARE(run("create n.vep bad.png s/a.png"), 4);
        QVERIFY(m_program->words.startsWith(QLatin1String("Failed to add following files:\n\n")));
        QCOMPARE(each("name", "n.vep"), QStringLiteral("a"));
        QCOMPARE(run("create --force n.vep s/b.png"), 0);
        QCOMPARE(each("name", "n.vep"), QStringLiteral("b"));
        QCOMPARE(run("remove p.vep #2 a"), 0);
        QCOMPARE(each("sprite"), path("s/t/b.jpg"));
        QCOMPARE(run("add p.vep s/a.png absent.png"), 4);
        QCOMPARE(run("remove p.vep a --output-project o.vep"), 0);
        QCOMPARE(each("name"), QStringLiteral("b a"));
        QCOMPARE(each("name", "o.vep"), QStringLiteral("b"));
        // A path counts from the current folder, and is kept from the project's.
        QCOMPARE(run("set o.vep publish_directory=maps --output-project s/t/o.vep"), 0);
        const QJsonObject settings = info("s/t/o.vep")[QStringLiteral("settings")].toObject();
        QCOMPARE(settings[QStringLiteral("publish_directory")].toString(), path("maps"));
        QVERIFY(contentOf(path("s/t/o.vep")).contains("<publish_directory>../../maps<"));
        // Projects of the older kind are read, and saved under another name.
        m_folder.write(QStringLiteral("old.vex"), "<vesperine_project/>");
        QCOMPARE(run("add old.vex s/a.png"), 2);
        QVERIFY(says("ends in .vep"));
        QCOMPARE(run("add old.vex s/a.png --output-project new.vep"), 0);
        QCOMPARE(each("name", "new.vep"), QStringLiteral("a"));
    }

    void namesThatNoLineCanHold()
    {
        QVERIFY(QDir().mkpath(path("odd/more")));
        const QByteArray folder = QFile::encodeName(path("odd/"));
        for (const char *name : {"\xff.png", "\xfe.txt", "more/\xfd.JPG", "b\n\x1b[31m.png"}) {
            sprite("odd/a.png", {2, 2});
            QVERIFY(std::rename(folder + "a.png", folder + name) == 0);
        }
        sprite("odd/a.png", {2, 2});
        QCOMPARE(run("create n.vep odd"), 4);
        QCOMPARE(m_program->words.split(QLatin1Char('\n')),
                 QStringList({QStringLiteral("Failed to add following files:"),
                              QString(),
                              path("odd/\\xff.png"),
                              path("odd/more/\\xfd.JPG"),
                              path("odd/b\\n\\u001b[31m.png"),
                              QString()}));
        QCOMPARE(run("export n.vep -0 --output odd/b\nc"), 0);
        QCOMPARE(output(), path("odd/b\nc/a.png") + QChar());
        QCOMPARE(run("export n.vep --output odd/b\nc"), 0);
        QCOMPARE(output(), path("odd/b\\nc/a.png") + QLatin1Char('\n'));
        QCOMPARE(run("check --null n.vep"), 2);
    }

    // Read as texts they would be the name that stands there.
    void wordsThatAreNoText()
    {
        QVERIFY(QFile::copy(path("p.vep"), path("q\uFFFD.vep")));
        const QByteArray before = contentOf(path("q\uFFFD.vep"));
        for (const char *line : {"set q%b.vep light_height=77",
                                 "set p.vep publish_directory=%b",
                                 "export p.vep --output=q%b",
                                 "generate s --output q%b",
                                 "info -- p.vep q%b.vep"}) {
            const auto script =
                QStringLiteral("cd '%1' && '%2' $(printf '%3' '\\0375') 2>words")
                    .arg(path(""), QStringLiteral(CLI_PROGRAM), QString::fromLatin1(line));
            QVERIFY2(QProcess::execute(QStringLiteral("sh"), {QStringLiteral("-c"), script}) == 2,
                     line);
            QVERIFY2(contentOf(path("words")).contains("\\xfd"), line);
        }
        QCOMPARE(contentOf(path("q\uFFFD.vep")), before);
        QVERIFY(!exists("q\uFFFD"));
    }

    void checkAndRepair()
    {
        QCOMPARE(run("check p.vep"), 0);
        BuiltArchive archive;
        archive.add(storedEntry("project.vexml",
                                "<vesperine_project><bodies><body><name>thin</name>"
                                "<painted_normal_map datafile=\"1\"/></body></bodies>"
                                "</vesperine_project>"));
        archive.add(storedEntry("datafiles/1", qCompress(QByteArray("\0\0\0\0\5\0\0\0", 8))));
        m_folder.write(QStringLiteral("thin.vep"), archive.bytes());
        QCOMPARE(run("check thin.vep"), 1);
        QVERIFY(output().contains(QStringLiteral("thin: empty-surface: ")));
        QVERIFY(says("have a side of 0 pixels, they count as not painted: thin"));
        sprite("s/a.png", {3, 2}, Qt::green);
        sprite("s/b.png", {2, 2});
        QDir().mkpath(path("moved"));
        QVERIFY(QFile::rename(path("s/t/b.jpg"), path("moved/b.jpg")));
        QCOMPARE(run("check p.vep"), 1);
        QCOMPARE(each("status"), QStringLiteral("changed wrong-size missing"));
        QCOMPARE(run("repair p.vep"), 4);
        QCOMPARE(run("repair p.vep --search moved --clear-resized"), 0);
        QVERIFY(output().contains(QStringLiteral("Updated file path:")));
        QVERIFY(output().contains(QStringLiteral("Reset normalmap: b")));
        QCOMPARE(run("check p.vep"), 0);
        sprite("s/b.png", {5, 4});
        QCOMPARE(run("repair p.vep --scale-resized --clear-resized"), 2);
        QCOMPARE(run("repair p.vep --anchor-resized aside"), 2);
        QCOMPARE(run("repair p.vep --anchor-resized top-left"), 0);
        QVERIFY(output().contains(QStringLiteral("Anchored normalmap: b")));
        sprite("s/b.png", {2, 2});
        QCOMPARE(run("repair p.vep --scale-resized"), 0);
        QVERIFY(output().contains(QStringLiteral("Scaled normalmap: b")));
        QCOMPARE(run("check p.vep"), 0);
        QFile::remove(path("s/a.png"));
        QCOMPARE(run("repair p.vep --remove-missing"), 0);
        QVERIFY(output().contains(QStringLiteral("Removed sprite: a")));
        // What is there and can't be read is kept, and told from what is missing.
        m_folder.write(QStringLiteral("s/b.png"), contentOf(path("s/b.png")).chopped(12));
        QCOMPARE(run("repair p.vep --remove-missing"), 4);
        QVERIFY(says("Still unreadable: b (the file ends early)"));
        QCOMPARE(each("status"), QStringLiteral("unreadable ok"));
        QCOMPARE(run("check p.vep"), 1);
        QVERIFY(output().contains(QStringLiteral("b.png (the file ends early)\n")));
    }

    void importing()
    {
        sprite("map.png", {3, 2}, QColor(254, 127, 127));
        QCOMPARE(run("import p.vep map.png --body #2"), 1);
        QCOMPARE(m_program->words, QStringLiteral("Normal map has wrong size!\n"));
        QCOMPARE(run("import p.vep map.png --body a"), 0);
        QCOMPARE(each("painted"), QStringLiteral("true false false"));
        QCOMPARE(run("export p.vep --output out"), 0);
        // The slope is 514/256; its normal has another length than the color that was imported.
        QCOMPARE(QImage(path("out/a.png")).pixel(2, 1), qRgb(241, 127, 114));
    }

    void exporting()
    {
        QCOMPARE(run("set p.vep publish_directory=s"), 0);
        QCOMPARE(run("export p.vep"), 1);
        QVERIFY(says("Failed to save normal map"));
        // Two projects of one run never write one file.
        QCOMPARE(run("create q.vep s/a.png"), 0);
        QCOMPARE(run("export p.vep q.vep absent.vep --output out --suffix _m --jobs 1"), 4);
        QCOMPARE(output().count(QLatin1Char('\n')), 3);
        QVERIFY(says("Nothing of 'q.vep' is written") && says("Failed to load 'absent.vep'"));
        // Nor a sprite of a project whose turn is yet to come.
        sprite("s/a_m.png", {1, 1});
        QCOMPARE(run("create r.vep s/a_m.png"), 0);
        QCOMPARE(run("export q.vep r.vep --suffix _m"), 4);
        QVERIFY(says("Nothing of 'q.vep' is written"));
        // Goes on after a body that fails.
        QDir().mkpath(path("o2/a.png"));
        QCOMPARE(run("export p.vep --output o2"), 4);
        QCOMPARE(output().count(QLatin1Char('\n')), 2);
        // What it did not write is replaced only on request.
        const QString foreign = m_folder.write(QStringLiteral("o3/a.png"), "foreign");
        QCOMPARE(run("export q.vep --output o3"), 1);
        QVERIFY(says("was not written by this program") && says("--overwrite"));
        QCOMPARE(contentOf(foreign), QByteArray("foreign"));
        QCOMPARE(run("export q.vep --output o3 --overwrite"), 0);
        QCOMPARE(run("export q.vep --output o3"), 0);
    }

private:
    int run(const char *line) { return m_program->run(line); }
    bool says(const char *text) const { return m_program->says(text); }
    QString output() const { return m_program->output; }
    QString path(const char *name) const { return m_folder.path(QString::fromUtf8(name)); }
    bool exists(const char *name) const { return QFileInfo::exists(path(name)); }
    void sprite(const char *name, const QSize &size, const QColor &color = Qt::blue) const
    {
        m_folder.writeSprite(QString::fromUtf8(name), size, color);
    }
    QJsonObject info(const char *project)
    {
        run(QByteArray("info --json ").append(project));
        return QJsonDocument::fromJson(output().toUtf8()).object();
    }
    /// A value of each body, in one line.
    QString each(const char *key, const char *project = "p.vep")
    {
        QStringList values;
        for (const QJsonValue body : info(project)[QStringLiteral("bodies")].toArray())
            values.append(body[QLatin1String(key)].toVariant().toString());
        return values.join(QLatin1Char(' '));
    }

    Folder m_folder;
    std::unique_ptr<Program> m_program;
};

QTEST_GUILESS_MAIN(TestCommandLine)

#include "tst_CommandLine.moc"
