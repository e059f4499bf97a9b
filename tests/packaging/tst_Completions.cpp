#include "support/Documents.h"
#include "support/SaidBy.h"
#include "support/Widgets.h"

#include <QDir>
#include <QRegularExpression>
#include <QStandardPaths>
#include <QTest>

/// Manual pages and completions as the build makes them, by the programs that read them.
class TestCompletions : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase()
    {
        for (const char *name : {"s.vep", "s.png", "s.txt", "sprites/s.jpg", "x y/z.vex"})
            m_folder.write(QLatin1String(name), "x");
        QVERIFY(QDir::setCurrent(m_folder.path({})));
        const QByteArray programs =
            QFile::encodeName(QFileInfo(QStringLiteral(CLI_PROGRAM)).path());
        qputenv("PATH", programs + ':' + qgetenv("PATH"));
    }

    // They are made from the tables of options; here they are compared with what the program says.
    void everyOption()
    {
        const QByteArrayList texts = {
            contentOf(made("man/vesperine-cli.1")).replace("\\-", "-"),
            contentOf(made("bash/vesperine-cli")),
            contentOf(made("zsh/_vesperine-cli")),
            contentOf(made("fish/vesperine-cli.fish")).replace(" -l ", " --")};
        const QString program = QStringLiteral(CLI_PROGRAM);
        const QString help = "--help"_s;
        const QByteArray all = said(program, {help});
        const QRegularExpression commandLine(R"(^  (\w+) )"_s, QRegularExpression::MultilineOption);
        const QRegularExpression optionName("--[a-z-]+"_s);
        auto commands = commandLine.globalMatch(QString::fromUtf8(all.mid(all.indexOf("Subcomm"))));
        int count = 0;
        for (; commands.hasNext(); ++count) {
            const QString command = commands.next().captured(1);
            const QString own = QString::fromUtf8(said(program, {command, help}));
            for (auto options = optionName.globalMatch(own); options.hasNext();) {
                const QByteArray option = options.next().captured().toUtf8();
                for (const QByteArray &text : texts)
                    QVERIFY2(text.contains(option) && text.contains(command.toUtf8()),
                             command.toUtf8() + ' ' + option);
            }
        }
        QVERIFY(count > 15);
    }

    void manualPages()
    {
        if (QStandardPaths::findExecutable("man"_s).isEmpty())
            QSKIP("There is no man");
        for (const char *page : {"man/vesperine.1", "man/vesperine-cli.1"})
            QCOMPARE(
                said("sh"_s,
                     {"-c"_s, "man --warnings -E UTF-8 -l '%1' 2>&1 >/dev/null"_s.arg(made(page))}),
                QByteArray());
    }

    void bash_data()
    {
        QTest::addColumn<QString>("line");
        QTest::addColumn<QByteArray>("offered");

        const auto row = [](const char *name, const char *line, const char *offered) {
            QTest::newRow(name) << line << QByteArray(offered);
        };
        row("command", "vesperine-cli exp", "export");
        row("commands", "vesperine-cli re", "remove repair");
        row("option", "vesperine-cli export s.vep --out", "--output");
        row("options", "vesperine-cli export s.vep --o", "--output --overwrite");
        row("option for all commands", "vesperine-cli export --q", "--quiet");
        row("option before the command", "vesperine-cli --v", "--version");
        row("project or folder", "vesperine-cli info s", "s.vep sprites");
        row("sprite or folder", "vesperine-cli generate s", "s.png sprites");
        row("folder", "vesperine-cli export s.vep --output s", "sprites");
        row("after a sign", "vesperine-cli export s.vep --output = s", "sprites");
        row("name with a blank", "vesperine-cli info x", "x y");
        row("pattern", "vesperine-cli structure s.vep --pattern bri", "brick");
        row("value of no kind", "vesperine-cli export s.vep --suffix s", "");
        row("editor's option", "vesperine --fl", "--flushsettings");
        row("editor's file", "vesperine s", "s.png s.txt s.vep sprites");
    }

    void bash()
    {
        QFETCH(const QString, line);
        const QString program = line.section(u' ', 0, 0);
        const QString script =
            "source '%1'; COMP_WORDS=(%2); COMP_CWORD=$((${#COMP_WORDS[@]} - 1)); "
            "%3; echo -n \"${COMPREPLY[*]}\""_s.arg(
                made("bash/") + program, line, QString(u'_' + program).replace(u'-', u'_'));
        QTEST(said("bash"_s, {"-uc"_s, script}), "offered");
    }

    void otherShells()
    {
        const std::pair<const char *, const char *> files[] = {{"zsh", "zsh/_vesperine"},
                                                               {"zsh", "zsh/_vesperine-cli"},
                                                               {"fish", "fish/vesperine.fish"}};
        for (const auto &[shell, file] : files)
            if (!QStandardPaths::findExecutable(QLatin1String(shell)).isEmpty())
                QCOMPARE(said(QLatin1String(shell), {"-n"_s, made(file)}), QByteArray());
        if (QStandardPaths::findExecutable("fish"_s).isEmpty())
            QSKIP("There is no fish to ask");
        const QString script =
            "source '%1'; complete -C 'vesperine-cli expo'; "
            "complete -C 'vesperine-cli export --outp'; "
            "complete -C 'vesperine-cli export --output sp'"_s.arg(made("fish/vesperine-cli.fish"));
        const QByteArray offered = said("fish"_s, {"-c"_s, script});
        QVERIFY2(offered.contains("export\t") && offered.contains("--output\t") &&
                     offered.contains("sprites/") && !offered.contains("s.vep"),
                 offered);
    }

private:
    static QString made(const char *name)
    {
        return QStringLiteral(BUILD_FOLDER "/packaging/manual/") + QLatin1String(name);
    }

    Folder m_folder;
};

QTEST_GUILESS_MAIN(TestCompletions)
#include "tst_Completions.moc"
