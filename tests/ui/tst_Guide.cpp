#include "base/GSettings.h"
#include "base/Resources.h"
#include "framework/GAction.h"
#include "framework/ManualDialog.h"
#include "imaging/NormalEncoding.h"
#include "imaging/effects/FilterCreateRimAlgorithm.h"
#include "support/Documents.h"
#include "support/Program.h"
#include "support/Widgets.h"
#include "tools/PaintTool.h"
#include "tools/effects/Filter.h"
#include "ui/EditorTools.h"

#include <QDirIterator>
#include <QImage>
#include <QLineEdit>
#include <QPainter>
#include <QRegularExpression>
#include <QSet>
#include <QStandardPaths>
#include <QTest>
#include <QTextBrowser>
#include <QToolButton>
#include <QTreeWidget>

#include <algorithm>
#include <cmath>

namespace {
const QDir guide(QStringLiteral(":/guide"));

QString read(const QString &page)
{
    QFile file(guide.filePath(page));
    return file.open(QIODevice::ReadOnly) ? QString::fromUtf8(file.readAll()) : QString();
}

QStringList found(const QString &text, const char *expression)
{
    QStringList all;
    const QRegularExpression sought(QLatin1String(expression),
                                    QRegularExpression::DotMatchesEverythingOption);
    for (auto matches = sought.globalMatch(text); matches.hasNext();)
        all.append(matches.next().captured(1));
    return all;
}

QSet<QString> filesBelow(const QDir &folder)
{
    QSet<QString> files;
    for (QDirIterator each(folder.path(), QDir::Files, QDirIterator::Subdirectories);
         each.hasNext();)
        files.insert(folder.relativeFilePath(each.next()));
    return files;
}

/// A disc that the bevel makes a dome.
QImage dome()
{
    RimParams params;
    params.sprite = QImage(100, 100, QImage::Format_ARGB32);
    params.sprite.fill(Qt::transparent);
    QPainter painter(&params.sprite);
    painter.setBrush(Qt::gray);
    painter.drawEllipse(2, 2, 95, 95);
    painter.end();
    params.rimWidth = 48;
    params.smoothness = 0;
    return exportedNormalMap(FilterCreateRimAlgorithm().compute(params), params.sprite);
}
} // namespace

class TestGuide : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase() { initialiseResources(); }

    void everythingIsLinkedAndEveryLinkIsThere()
    {
        QSet<QString> used{"index.html"_s};
        QStringList missing;
        for (const QString &page : guide.entryList({"*.html"_s})) {
            for (const QString &address : found(read(page), "(?:href|src)=\"([^\"]+)\"")) {
                const bool isIcon = address.startsWith("qrc:"_s);
                if (!QFile::exists(isIcon ? address.mid(3) : guide.filePath(address)))
                    missing.append(page + ": "_s + address);
                if (page == "index.html"_s || !address.endsWith(".html"_s))
                    used.insert(address);
            }
        }
        QCOMPARE(missing.join(QLatin1Char('\n')), QString());
        const QSet<QString> all = filesBelow(guide);
        QCOMPARE(all - used, QSet<QString>());
        const QDir sources(QStringLiteral(SOURCE_FOLDER "/../docs/guide"));
        QCOMPARE(filesBelow(sources) - all, QSet<QString>{"guide.qrc"_s});
    }

    void everyToolAndEffectHasItsPage()
    {
        GSettings settings;
        const auto tools = makeTools(settings);
        const auto effects = makeEffects(settings);
        QVector<const AngleImageTool *> all;
        for (const auto &tool : tools)
            all.append(tool.get());
        for (const auto &effect : effects)
            all.append(effect.get());
        for (const AngleImageTool *tool : all) {
            const QString name = plainActionText(tool->action().text()).remove("..."_s);
            const QString key = tool->action().shortcut().toString();
            QStringList pages;
            for (const QString &page : guide.entryList({"*.html"_s})) {
                const QString text = read(page);
                QStringList headings = found(text, "<h[12]>(.*?)</h");
                headings.replaceInStrings(QRegularExpression("<.*> "_s), {});
                if (headings.contains(name) &&
                    (key.isEmpty() || text.contains("<kbd>&nbsp;%1&nbsp;"_s.arg(key))))
                    pages.append(page);
            }
            QVERIFY2(pages.size() == 1, qPrintable(name));
        }
    }

    void searchGoesOnInTheFollowingPages()
    {
        ManualDialog dialog(":/guide/index.html"_s);
        showActive(dialog);
        auto &browser = *dialog.findChild<QTextBrowser *>();
        int entries = 0;
        for (QTreeWidgetItemIterator entry(dialog.findChild<QTreeWidget *>()); *entry; ++entry)
            entries += (*entry)->childCount() == 0 ? 1 : 0;
        QCOMPARE(entries, guide.entryList({"*.html"_s}).size() - 1);
        QTest::keyClick(&dialog, Qt::Key_F, Qt::ControlModifier);
        auto *search = dialog.findChild<QLineEdit *>();
        QTest::keyClicks(search, "tolerance applies"_s);
        QTest::keyClick(search, Qt::Key_Return);
        QCOMPARE(browser.source().fileName(), "select-by-color.html"_s);
        QCOMPARE(browser.textCursor().selectedText(), "tolerance applies"_s);
        QTest::mouseClick(&shownChild<QToolButton>(dialog, "Back"_s), Qt::LeftButton);
        QCOMPARE(browser.source().fileName(), "index.html"_s);
        QTest::keyClicks(search, "which is nowhere"_s);
        QTest::keyClick(search, Qt::Key_F3);
        QCOMPARE(browser.source().fileName(), "index.html"_s);
    }

    void anEngineLightsADomeFromAbove_data()
    {
        QTest::addColumn<double>("up"); // of green, as the engine reads it
        QTest::addRow("Godot") << 1.0;
        QTest::addRow("Unity") << 1.0;
        QTest::addRow("Unreal") << -1.0;
    }

    // With what the guide tells to do there. All of them read red and green and work blue out.
    void anEngineLightsADomeFromAbove()
    {
        QFETCH(double, up);
        const QString sought = "<b>%1</b></td><td>[^<]*</td><td>([^<]*)"_s;
        const QStringList advice = found(
            read("engines.html"_s), qPrintable(sought.arg(QLatin1String(QTest::currentDataTag()))));
        QCOMPARE(advice.size(), 1);
        const double sign = advice.first().startsWith("flip"_s) ? -up : up;
        const QImage map = dome();
        const auto litAt = [&](int y) {
            const double across = qRed(map.pixel(50, y)) / 127.5 - 1.0;
            const double upwards = (qGreen(map.pixel(50, y)) / 127.5 - 1.0) * sign;
            const double rest = std::max(0.0, 1.0 - across * across - upwards * upwards);
            return std::max(0.0, 0.6 * upwards + 0.8 * std::sqrt(rest));
        };
        QVERIFY(litAt(20) > 2.0 * litAt(80));
    }

    void theExamplesBuildTheMaps()
    {
        const Folder home;
        for (const char *name : {"sprites/fox.png", "sprites/owl.png"})
            home.writeSprite(QLatin1String(name), {8, 8});
        QStringList examples = found(read("build.html"_s), "<pre>(.*?)</pre>");
        examples.replaceInStrings("&lt;"_s, "<"_s).replaceInStrings("&amp;"_s, "&"_s);
        QCOMPARE(examples.size(), 3);
        home.write("Makefile"_s, examples[0].toUtf8());
        home.write("CMakeLists.txt"_s, examples[1].toUtf8());
        home.write("check.sh"_s, examples[2].toUtf8());
        Program cli(QStringLiteral(CLI_PROGRAM), home.path(QString()));
        QCOMPARE(cli.run("create game.vep sprites"), 0);
        const auto program = [&](const char *name) {
            Program made(QLatin1String(name), home.path(QString()));
            const QString folder = QFileInfo(QStringLiteral(CLI_PROGRAM)).path();
            made.environment.insert("PATH"_s,
                                    folder + QLatin1Char(':') + qEnvironmentVariable("PATH"));
            return made;
        };
        if (!QStandardPaths::findExecutable("make"_s).isEmpty()) {
            QCOMPARE(program("make").run(""), 0);
            QVERIFY(QFile::remove(home.path("build/maps/owl_n.png"_s)));
        }
        Program cmake = program("cmake");
        QCOMPARE(cmake.run("-G Ninja -B cmake"), 0);
        QCOMPARE(cmake.run("--build cmake"), 0);
        QVERIFY(QFile::exists(home.path("cmake/maps/owl_n.png"_s)));
        QCOMPARE(cmake.run("--build cmake"), 0);
        QVERIFY(cmake.output.contains("no work to do"_s));
        Program shell = program("sh");
        QCOMPARE(shell.run("check.sh"), 0);
        QVERIFY(QFile::exists(home.path("build/maps/owl_n.png"_s)));
        QVERIFY(QFile::remove(home.path("sprites/owl.png"_s)));
        QCOMPARE(shell.run("check.sh"), 1);
        QVERIFY(shell.output.contains("owl: missing"_s));
    }
};

QTEST_MAIN(TestGuide)
#include "tst_Guide.moc"
