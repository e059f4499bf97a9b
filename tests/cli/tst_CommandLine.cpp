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

/// Runs the real program.
class TestCommandLine : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    // Each test has a folder with the sprites a, b and b, and a project of them.
    void init();
    void mainJob();
    void endings_data();
    void endings();
    void creating();
    void changing();
    void settings();
    void checkAndRepair();
    void importing();
    void exporting();
    void unreadableProjects();
    void oddNames();
    void lostOutputIsAFailure();
    void umlautsInTheCLocale();

private:
    /// Runs a line of words that hold no blanks.
    int run(const char *line);
    bool exists(const char *name) const { return QFileInfo::exists(path(name)); }
    bool says(const char *text) const { return m_words.contains(QLatin1String(text)); }
    QString path(const char *name) const { return m_folder.path(QString::fromUtf8(name)); }
    void sprite(const char *name, const QSize &size, const QColor &color = Qt::blue) const
    {
        m_folder.writeSprite(QString::fromUtf8(name), size, color);
    }
    QJsonObject info(const char *project);
    QJsonValue setting(const char *key);
    QJsonArray bodies(const char *project = "p.vep");
    /// A value of each body, in one line.
    QString each(const char *key);

    Folder m_folder;
    QString m_output;
    QString m_words;
    QProcessEnvironment m_environment; // beside the test's own
};

int TestCommandLine::run(const char *line)
{
    Program program(QStringLiteral(CLI_PROGRAM), path(""));
    for (const QString &key : m_environment.keys())
        program.environment.insert(key, m_environment.value(key));
    const int code = program.run(line);
    m_output = program.output;
    m_words = program.words;
    return code;
}

QJsonObject TestCommandLine::info(const char *project)
{
    run(QByteArray("info --json ").append(project).constData());
    return QJsonDocument::fromJson(m_output.toUtf8()).object();
}

QJsonValue TestCommandLine::setting(const char *key)
{
    const auto settings = info("p.vep").value(QLatin1String("settings")).toObject();
    return settings.value(QLatin1String(key));
}

QJsonArray TestCommandLine::bodies(const char *project)
{
    return info(project).value(QLatin1String("bodies")).toArray();
}

QString TestCommandLine::each(const char *key)
{
    QStringList values;
    for (const auto &body : bodies())
        values.append(body.toObject().value(QLatin1String(key)).toVariant().toString());
    return values.join(QLatin1Char(' '));
}

void TestCommandLine::init()
{
    m_folder = Folder();
    sprite("s/a.png", {3, 2});
    sprite("s/b.png", {1, 1});
    sprite("s/t/b.jpg", {8, 8});
    QCOMPARE(run("create p.vep s"), 0);
    QVERIFY2(m_output.isEmpty() && m_words.isEmpty(), qUtf8Printable(m_output + m_words));
}

void TestCommandLine::mainJob()
{
    const QByteArray before = contentOf(path("p.vep"));
    QCOMPARE(run("export p.vep"), 0);
    const QStringList maps{path("s/a_n.png"), path("s/b_n.png"), path("s/t/b_n.jpg")};
    QCOMPARE(m_output.split(QLatin1Char('\n'), Qt::SkipEmptyParts), maps);
    QCOMPARE(QImage(path("s/a_n.png")).size(), QSize(3, 2));
    QCOMPARE(contentOf(path("p.vep")), before);
    // A second run does not feed on the first.
    QCOMPARE(run("create q.vep s"), 0);
    QVERIFY(says("s/a_n.png': it is the normal map"));
    QCOMPARE(bodies("q.vep").size(), 3);
}

void TestCommandLine::endings_data()
{
    QTest::addColumn<int>("code");
    const auto all = [](int code, const char *lines) {
        for (const QByteArray &line : QByteArray(lines).split('|'))
            QTest::newRow(line.constData()) << code;
    };
    all(0,
        "--help|--version|export --help|export --version|info p.vep -vvv|-vv --quiet info p.vep");
    all(1, "create p.vep s|create n.vep absent|create absent/n.vep s|add p.vep absent.png");
    all(1, "remove p.vep b|remove p.vep #4|remove p.vep a c");
    all(1, "import p.vep --body a s/b.png|import p.vep --body a absent.png");
    all(2, "|paint p.vep|create p.vep|create p.zip s|export p.vep --jobs 0|set p.vep light_height");
    all(2, "set p.vep light_height=1025|set p.vep light_height=12x|set p.vep light_color=red");
    all(2, "set p.vep light_height=9 light_brightness=9|set p.vep bodies=1");
}

void TestCommandLine::endings()
{
    QFETCH(int, code);
    const QByteArray before = contentOf(path("p.vep"));
    QCOMPARE(run(QTest::currentDataTag()), code);
    QCOMPARE(m_words.isEmpty(), code == 0);
    QCOMPARE(m_output.isEmpty(), code != 0);
    QCOMPARE(contentOf(path("p.vep")), before);
    QVERIFY(!exists("n.vep"));
}

void TestCommandLine::creating()
{
    m_folder.write(QStringLiteral("bad.png"), "no picture");
    QCOMPARE(run("create n.vep bad.png s/a.png"), 4);
    QVERIFY(m_words.startsWith(QStringLiteral("Failed to add following files:\n\n")));
    QCOMPARE(bodies("n.vep").size(), 1);
    QCOMPARE(run("create --force p.vep s/a.png"), 0);
    QCOMPARE(each("name"), QStringLiteral("a"));
}

void TestCommandLine::changing()
{
    QCOMPARE(run("remove p.vep #2 a"), 0);
    QCOMPARE(each("sprite"), path("s/t/b.jpg"));
    QCOMPARE(run("add p.vep s/a.png absent.png"), 4);
    QCOMPARE(each("name"), QStringLiteral("b a"));
    QCOMPARE(run("remove p.vep a --output-project o.vep"), 0);
    QCOMPARE(each("name"), QStringLiteral("b a"));
    QCOMPARE(bodies("o.vep").size(), 1);
    // Projects of the older kind are read, and saved under another name.
    m_folder.write(QStringLiteral("old.vex"), "<vesperine_project/>");
    QCOMPARE(run("add old.vex s/a.png"), 2);
    QVERIFY(says("ends in .vep"));
    QCOMPARE(run("add old.vex s/a.png --output-project new.vep"), 0);
    QCOMPARE(bodies("new.vep").size(), 1);
}

void TestCommandLine::settings()
{
    QCOMPARE(run("set p.vep publish_normalmap_postfix=_x\n light_height=0 light_color=#FF8000 "
                 "publish_directory=out"),
             0);
    QCOMPARE(info("p.vep").value(QLatin1String("schema")).toInt(), 1);
    QCOMPARE(info("p.vep").value(QLatin1String("file")).toString(), path("p.vep"));
    QCOMPARE(setting("publish_normalmap_postfix").toString(), QStringLiteral("_x"));
    QCOMPARE(setting("light_height"), QJsonValue(0));
    QCOMPARE(setting("light_color").toString(), QStringLiteral("#ff8000"));
    QCOMPARE(run("export p.vep --quiet"), 0);
    QVERIFY(exists("out/a_x.png"));
    QCOMPARE(run("set p.vep light_brightness=9"), 2);
    QVERIFY(says("from 10 to 400"));
}

void TestCommandLine::checkAndRepair()
{
    QCOMPARE(run("check p.vep"), 0);
    sprite("s/a.png", {3, 2}, Qt::green);
    sprite("s/b.png", {2, 2});
    QDir().mkpath(path("moved"));
    QVERIFY(QFile::rename(path("s/t/b.jpg"), path("moved/b.jpg")));
    QCOMPARE(run("check p.vep"), 1);
    QCOMPARE(each("status"), QStringLiteral("changed wrong-size missing"));
    QCOMPARE(run("repair p.vep"), 4);
    QCOMPARE(run("repair p.vep --search moved --clear-resized"), 0);
    QVERIFY(m_output.contains(QStringLiteral("Updated file path:")));
    QVERIFY(m_output.contains(QStringLiteral("Reset normalmap: b")));
    QCOMPARE(run("check p.vep"), 0);
    QFile::remove(path("s/a.png"));
    QCOMPARE(run("repair p.vep --remove-missing"), 0);
    QVERIFY(m_output.contains(QStringLiteral("Removed sprite: a")));
}

void TestCommandLine::importing()
{
    sprite("map.png", {3, 2}, QColor(254, 127, 127));
    QCOMPARE(run("import p.vep map.png --body #2"), 1);
    QCOMPARE(m_words, QStringLiteral("Normal map has wrong size!\n"));
    QCOMPARE(run("import p.vep map.png --body a"), 0);
    QCOMPARE(each("painted"), QStringLiteral("true false false"));
    QCOMPARE(run("export p.vep --output out"), 0);
    // The slope is 514/256; its normal has another length than the color that was imported.
    QCOMPARE(QImage(path("out/a.png")).pixel(2, 1), qRgb(241, 127, 114));
}

void TestCommandLine::exporting()
{
    QCOMPARE(run("set p.vep publish_directory=s"), 0);
    QCOMPARE(run("export p.vep"), 1);
    QVERIFY(says("Failed to save normal map"));
    // Two projects of one run never write one file.
    QCOMPARE(run("create q.vep s/a.png"), 0);
    QCOMPARE(run("export p.vep q.vep absent.vep --output out --suffix _m --jobs 1"), 4);
    QCOMPARE(m_output.count(QLatin1Char('\n')), 3);
    QVERIFY(says("Nothing of 'q.vep' is written"));
    QVERIFY(says("Failed to load 'absent.vep'"));
    // Nor a sprite of a project whose turn is yet to come.
    sprite("s/a_m.png", {1, 1});
    QCOMPARE(run("create r.vep s/a_m.png"), 0);
    QCOMPARE(run("export q.vep r.vep --suffix _m"), 4);
    QVERIFY(says("Nothing of 'q.vep' is written"));
    // Goes on after a body that fails.
    QDir().mkpath(path("o2/a.png"));
    QCOMPARE(run("export p.vep --output o2"), 4);
    QCOMPARE(m_output.count(QLatin1Char('\n')), 2);
}

void TestCommandLine::unreadableProjects()
{
    m_folder.write(QStringLiteral("text.vep"), "no archive");
    for (const char *project : {"text.vep", "absent.vep", "s", "s/a.png"}) {
        QCOMPARE(run(QByteArray("check ").append(project).constData()), 3);
        QVERIFY2(says(project), qUtf8Printable(m_words));
    }
}

void TestCommandLine::oddNames()
{
    sprite("[x]/#hero.png", {1, 1});
    QCOMPARE(run("create n.vep [x]"), 0);
    QCOMPARE(run("export n.vep --output o --suffix /../_m"), 1);
    QCOMPARE(run("export n.vep --output o --suffix \n_m"), 0);
    QVERIFY(exists("o/#hero_m.png"));
    QCOMPARE(run("set n.vep publish_normalmap_postfix=/../_m"), 2);
    QCOMPARE(run("remove n.vep #hero"), 0);
    // Without a path there is no place for the map.
    m_folder.write(QStringLiteral("e.vex"),
                   "<vesperine_project><bodies><body><name>empty</name></body></bodies>"
                   "</vesperine_project>");
    QCOMPARE(run("export e.vex --output o2"), 1);
    QVERIFY(says("Failed to save normal map 'empty'"));
}

void TestCommandLine::lostOutputIsAFailure()
{
    QProcess shell;
    shell.setWorkingDirectory(path(""));
    shell.start(QStringLiteral("sh"),
                {QStringLiteral("-c"), QStringLiteral(CLI_PROGRAM " info p.vep >/dev/full")});
    QVERIFY(shell.waitForFinished());
    QCOMPARE(shell.exitCode(), 1);
}

void TestCommandLine::umlautsInTheCLocale()
{
    m_environment.insert(QStringLiteral("LC_ALL"), QStringLiteral("C"));
    sprite("ü🦊/ä.b.png", {1, 1});
    QCOMPARE(run("create ö.vep ü🦊"), 0);
    QCOMPARE(run("export ö.vep"), 0);
    QCOMPARE(m_output.trimmed(), path("ü🦊/ä.b_n.png"));
    QVERIFY(exists("ü🦊/ä.b_n.png"));
    m_environment.remove(QStringLiteral("LC_ALL"));
}

QTEST_GUILESS_MAIN(TestCommandLine)

#include "tst_CommandLine.moc"
