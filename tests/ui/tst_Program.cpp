#include "support/Documents.h"
#include "support/Program.h"

#include <QTest>

/// The editor as a process, as far as it ends by itself.
class TestProgram : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void endsWithOneLineWithoutADisplay()
    {
        const Folder home;
        Program program(QStringLiteral(EDITOR_PROGRAM), home.path(QString()));
        for (const char *name : {"WAYLAND_DISPLAY", "QT_QPA_PLATFORM", "DISPLAY"})
            program.environment.remove(QLatin1String(name));
        for (const bool isNamed : {false, true}) {
            if (isNamed) // one that nobody serves
                program.environment.insert(QStringLiteral("DISPLAY"), QStringLiteral(":4711"));
            QCOMPARE(program.run(""), 1);
            QCOMPARE(program.output, QString());
            QCOMPARE(program.words.trimmed().count(QLatin1Char('\n')), 0);
            QVERIFY(program.says("There is no display to open a window on"));
        }
    }
};

QTEST_GUILESS_MAIN(TestProgram)
#include "tst_Program.moc"
