#include "support/Documents.h"

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
    void mainJob();
    void usage_data();
    void usage();
    void create();
    void addAndRemove();
    void settings();
    void checkAndRepair();
    void import();
    void exporting();
    void unreadableProjects();
    void olderProjectsAreSavedElsewhere();
    void umlautsInTheCLocale();

private:
    int run(const QStringList &arguments);
    QJsonObject info(const QString &project);
    QString statusOf(int body) { return bodyValue(body, "status").toString(); }
    QJsonValue bodyValue(int body, const char *key);

    Folder m_folder;
    QString m_project;
    QString m_output;
    QString m_words;
    QProcessEnvironment m_environment = QProcessEnvironment::systemEnvironment();

private Q_SLOTS:
    // Each test has a folder and a project "p.vep" of the sprites a, b and b.
    void init();
};

int TestCommandLine::run(const QStringList &arguments)
{
    QProcess process;
    process.setProcessEnvironment(m_environment);
    process.setWorkingDirectory(m_folder.path(QString()));
    process.start(QStringLiteral(CLI_PROGRAM), arguments);
    if (!process.waitForFinished(60000) || process.exitStatus() != QProcess::NormalExit)
        return -1;
    m_output = QString::fromUtf8(process.readAllStandardOutput());
    m_words = QString::fromUtf8(process.readAllStandardError());
    return process.exitCode();
}

QJsonObject TestCommandLine::info(const QString &project)
{
    if (run({QStringLiteral("info"), project, QStringLiteral("--json")}) != 0)
        return {};
    return QJsonDocument::fromJson(m_output.toUtf8()).object();
}

QJsonValue TestCommandLine::bodyValue(int body, const char *key)
{
    const auto bodies = info(m_project).value(QLatin1String("bodies")).toArray();
    return bodies.at(body - 1).toObject().value(QLatin1String(key));
}

void TestCommandLine::init()
{
    m_folder = Folder();
    m_project = QStringLiteral("p.vep");
    m_folder.writeSprite(QStringLiteral("s/a.png"), {3, 2});
    m_folder.writeSprite(QStringLiteral("s/b.png"), {1, 1});
    m_folder.writeSprite(QStringLiteral("s/t/b.jpg"), {8, 8});
    QCOMPARE(run({QStringLiteral("create"), m_project, QStringLiteral("s")}), 0);
    QVERIFY2(m_output.isEmpty() && m_words.isEmpty(), qUtf8Printable(m_output + m_words));
}

void TestCommandLine::mainJob()
{
    const QByteArray before = contentOf(m_folder.path(m_project));
    QCOMPARE(run({QStringLiteral("export"), m_project}), 0);
    QCOMPARE(m_output.split(QLatin1Char('\n'), Qt::SkipEmptyParts),
             QStringList({m_folder.path(QStringLiteral("s/a_n.png")),
                          m_folder.path(QStringLiteral("s/b_n.png")),
                          m_folder.path(QStringLiteral("s/t/b_n.jpg"))}));
    QCOMPARE(QImage(m_folder.path(QStringLiteral("s/a_n.png"))).size(), QSize(3, 2));
    QCOMPARE(contentOf(m_folder.path(m_project)), before);
    // A second run does not feed on the first.
    QCOMPARE(run({QStringLiteral("create"), QStringLiteral("q.vep"), QStringLiteral("s")}), 0);
    QVERIFY(m_words.contains(QStringLiteral("s/a_n.png': it is the normal map")));
    QCOMPARE(info(QStringLiteral("q.vep")).value(QLatin1String("bodies")).toArray().size(), 3);
}

void TestCommandLine::usage_data()
{
    QTest::addColumn<QStringList>("arguments");
    QTest::addColumn<int>("code");
    const auto row = [](const char *line, int code) {
        QTest::newRow(line) << QString::fromLatin1(line).split(QLatin1Char(' '), Qt::SkipEmptyParts)
                            << code;
    };
    row("--help", 0);
    row("--version", 0);
    row("export --help", 0);
    row("export --version", 0);
    row("info p.vep -vvv", 0);
    row("-vv --quiet info p.vep", 0);
    row("", 2);
    row("paint p.vep", 2);
    row("create p.vep", 2);
    row("export p.vep --jobs 0", 2);
    row("create p.zip s", 2);
    row("create p.vep s", 1);
    row("set p.vep light_height=1025", 2);
    row("set p.vep light_height=12x", 2);
    row("set p.vep light_color=red", 2);
    row("set p.vep bodies=1", 2);
    row("set p.vep light_height", 2);
    row("remove p.vep b", 1);
    row("remove p.vep #4", 1);
    row("remove p.vep a c", 1);
}

void TestCommandLine::usage()
{
    QFETCH(QStringList, arguments);
    QFETCH(int, code);
    const QByteArray before = contentOf(m_folder.path(m_project));
    QCOMPARE(run(arguments), code);
    QCOMPARE(m_words.isEmpty(), code == 0);
    QCOMPARE(m_output.isEmpty(), code != 0);
    QCOMPARE(contentOf(m_folder.path(m_project)), before);
}

void TestCommandLine::create()
{
    m_folder.write(QStringLiteral("bad.png"), "no picture");
    QCOMPARE(run({QStringLiteral("create"), QStringLiteral("n.vep"), QStringLiteral("bad.png")}),
             1);
    QVERIFY(m_words.startsWith(QStringLiteral("Failed to add following files:\n\n")));
    QVERIFY(!QFileInfo::exists(m_folder.path(QStringLiteral("n.vep"))));
    QCOMPARE(run({QStringLiteral("create"),
                  QStringLiteral("n.vep"),
                  QStringLiteral("bad.png"),
                  QStringLiteral("s/a.png")}),
             4);
    QVERIFY(QFileInfo::exists(m_folder.path(QStringLiteral("n.vep"))));
    QCOMPARE(run({QStringLiteral("create"),
                  QStringLiteral("--force"),
                  m_project,
                  QStringLiteral("s/a.png")}),
             0);
    QCOMPARE(info(m_project).value(QLatin1String("bodies")).toArray().size(), 1);
    QCOMPARE(run({QStringLiteral("create"), QStringLiteral("absent/n.vep"), QStringLiteral("s")}),
             1);
    QVERIFY(m_words.contains(m_folder.path(QStringLiteral("absent/n.vep"))));
}

void TestCommandLine::addAndRemove()
{
    QCOMPARE(run({QStringLiteral("remove"), m_project, QStringLiteral("#2"), QStringLiteral("a")}),
             0);
    QCOMPARE(bodyValue(1, "sprite").toString(), m_folder.path(QStringLiteral("s/t/b.jpg")));
    QCOMPARE(run({QStringLiteral("add"),
                  m_project,
                  QStringLiteral("s/a.png"),
                  QStringLiteral("absent.png")}),
             4);
    QCOMPARE(bodyValue(2, "name").toString(), QStringLiteral("a"));
    QCOMPARE(run({QStringLiteral("add"), m_project, QStringLiteral("absent.png")}), 1);
    QCOMPARE(run({QStringLiteral("remove"),
                  m_project,
                  QStringLiteral("a"),
                  QStringLiteral("--output-project"),
                  QStringLiteral("o.vep")}),
             0);
    QCOMPARE(info(m_project).value(QLatin1String("bodies")).toArray().size(), 2);
    QCOMPARE(info(QStringLiteral("o.vep")).value(QLatin1String("bodies")).toArray().size(), 1);
}

void TestCommandLine::settings()
{
    QCOMPARE(run({QStringLiteral("set"),
                  m_project,
                  QStringLiteral("publish_normalmap_postfix=_x\n"),
                  QStringLiteral("light_height=0"),
                  QStringLiteral("light_color=#FF8000"),
                  QStringLiteral("publish_directory=out")}),
             0);
    const auto object = info(m_project);
    QCOMPARE(object.value(QLatin1String("schema")).toInt(), 1);
    QCOMPARE(object.value(QLatin1String("file")).toString(), m_folder.path(m_project));
    const auto values = object.value(QLatin1String("settings")).toObject();
    QCOMPARE(values.value(QLatin1String("publish_normalmap_postfix")).toString(),
             QStringLiteral("_x"));
    QCOMPARE(values.value(QLatin1String("light_height")), QJsonValue(0));
    QCOMPARE(values.value(QLatin1String("light_color")).toString(), QStringLiteral("#ff8000"));
    QCOMPARE(run({QStringLiteral("export"), m_project, QStringLiteral("--quiet")}), 0);
    QVERIFY(QFileInfo::exists(m_folder.path(QStringLiteral("out/a_x.png"))));
    // An earlier good setting is not kept when a later one is refused.
    QCOMPARE(run({QStringLiteral("set"),
                  m_project,
                  QStringLiteral("light_height=9"),
                  QStringLiteral("light_brightness=9")}),
             2);
    QVERIFY(m_words.contains(QStringLiteral("from 10 to 400")));
    QCOMPARE(info(m_project)
                 .value(QLatin1String("settings"))
                 .toObject()
                 .value(QLatin1String("light_height")),
             QJsonValue(0));
}

void TestCommandLine::checkAndRepair()
{
    QCOMPARE(run({QStringLiteral("check"), m_project}), 0);
    m_folder.writeSprite(QStringLiteral("s/a.png"), {3, 2}, Qt::green);
    m_folder.writeSprite(QStringLiteral("s/b.png"), {2, 2});
    QVERIFY(QDir().mkpath(m_folder.path(QStringLiteral("moved"))));
    QVERIFY(QFile::rename(m_folder.path(QStringLiteral("s/t/b.jpg")),
                          m_folder.path(QStringLiteral("moved/b.jpg"))));
    QCOMPARE(run({QStringLiteral("check"), m_project}), 1);
    QCOMPARE(statusOf(1), QStringLiteral("changed"));
    QCOMPARE(statusOf(2), QStringLiteral("wrong-size"));
    QCOMPARE(statusOf(3), QStringLiteral("missing"));
    QCOMPARE(run({QStringLiteral("repair"), m_project}), 4);
    QCOMPARE(run({QStringLiteral("repair"),
                  m_project,
                  QStringLiteral("--search"),
                  QStringLiteral("moved"),
                  QStringLiteral("--clear-resized")}),
             0);
    QVERIFY(m_output.contains(QStringLiteral("Updated file path:")));
    QVERIFY(m_output.contains(QStringLiteral("Reset normalmap: b")));
    QCOMPARE(run({QStringLiteral("check"), m_project}), 0);
    QVERIFY(QFile::remove(m_folder.path(QStringLiteral("s/a.png"))));
    QCOMPARE(run({QStringLiteral("repair"), m_project, QStringLiteral("--remove-missing")}), 0);
    QVERIFY(m_output.contains(QStringLiteral("Removed sprite: a")));
}

void TestCommandLine::import()
{
    QImage map(3, 2, QImage::Format_RGB32);
    map.fill(qRgb(254, 127, 127));
    QVERIFY(map.save(m_folder.path(QStringLiteral("map.png"))));
    const QStringList command{
        QStringLiteral("import"), m_project, QStringLiteral("map.png"), QStringLiteral("--body")};
    QCOMPARE(run(command + QStringList(QStringLiteral("#2"))), 1);
    QCOMPARE(m_words, QStringLiteral("Normal map has wrong size!\n"));
    QCOMPARE(bodyValue(1, "painted").toBool(), false);
    QCOMPARE(run(command + QStringList(QStringLiteral("a"))), 0);
    QCOMPARE(bodyValue(1, "painted").toBool(), true);
    QCOMPARE(run({QStringLiteral("export"),
                  m_project,
                  QStringLiteral("--output"),
                  QStringLiteral("out")}),
             0);
    // 514/256 is the slope; its normal is written as the map, but for truncation.
    const QRgb pixel = QImage(m_folder.path(QStringLiteral("out/a.png"))).pixel(2, 1);
    QCOMPARE(pixel, qRgb(241, 127, 114));
}

void TestCommandLine::exporting()
{
    QCOMPARE(run({QStringLiteral("export"), m_project, QStringLiteral("--suffix"), QString()}), 1);
    QVERIFY(m_words.contains(QStringLiteral("Failed to save normal map")));
    // Two projects of one run never write one file.
    QCOMPARE(run({QStringLiteral("create"), QStringLiteral("q.vep"), QStringLiteral("s/a.png")}),
             0);
    QCOMPARE(run({QStringLiteral("export"),
                  m_project,
                  QStringLiteral("q.vep"),
                  QStringLiteral("absent.vep"),
                  QStringLiteral("--output"),
                  QStringLiteral("out"),
                  QStringLiteral("--suffix"),
                  QStringLiteral("_m"),
                  QStringLiteral("--jobs"),
                  QStringLiteral("1")}),
             4);
    QCOMPARE(m_output.count(QLatin1Char('\n')), 3);
    QVERIFY(m_words.contains(QStringLiteral("of another project of this run")));
    QVERIFY(m_words.contains(QStringLiteral("Failed to load 'absent.vep'")));
    // Goes on after a body that fails.
    QVERIFY(QDir().mkpath(m_folder.path(QStringLiteral("o2/a.png"))));
    QCOMPARE(run({QStringLiteral("export"),
                  m_project,
                  QStringLiteral("--output"),
                  QStringLiteral("o2")}),
             4);
    QCOMPARE(m_output.count(QLatin1Char('\n')), 2);
}

void TestCommandLine::unreadableProjects()
{
    m_folder.write(QStringLiteral("text.vep"), "no archive");
    for (const char *name : {"text.vep", "absent.vep", "s", "s/a.png"}) {
        for (const char *command : {"info", "check", "export"}) {
            QCOMPARE(run({QString::fromLatin1(command), QString::fromLatin1(name)}), 3);
            QVERIFY2(m_words.contains(QLatin1String(name)), qUtf8Printable(m_words));
        }
    }
}

void TestCommandLine::olderProjectsAreSavedElsewhere()
{
    m_folder.write(QStringLiteral("old.vex"),
                   "<vesperine_project><light_height>7</light_height></vesperine_project>");
    const QStringList command{
        QStringLiteral("set"), QStringLiteral("old.vex"), QStringLiteral("light_brightness=50")};
    QCOMPARE(run(command), 2);
    QVERIFY(m_words.contains(QStringLiteral("ends in .vep")));
    QCOMPARE(
        run(command + QStringList({QStringLiteral("--output-project"), QStringLiteral("new.vep")})),
        0);
    QCOMPARE(info(QStringLiteral("new.vep"))
                 .value(QLatin1String("settings"))
                 .toObject()
                 .value(QLatin1String("light_height")),
             QJsonValue(7));
}

void TestCommandLine::umlautsInTheCLocale()
{
    m_environment.insert(QStringLiteral("LC_ALL"), QStringLiteral("C"));
    m_folder.writeSprite(QStringLiteral("ü 🦊/ä.b.png"), {1, 1});
    QCOMPARE(run({QStringLiteral("create"), QStringLiteral("ö.vep"), QStringLiteral("ü 🦊")}),
             0);
    QCOMPARE(run({QStringLiteral("export"), QStringLiteral("ö.vep")}), 0);
    QCOMPARE(m_output.trimmed(), m_folder.path(QStringLiteral("ü 🦊/ä.b_n.png")));
    QVERIFY(QFileInfo::exists(m_output.trimmed()));
    m_environment.remove(QStringLiteral("LC_ALL"));
}

QTEST_GUILESS_MAIN(TestCommandLine)

#include "tst_CommandLine.moc"
