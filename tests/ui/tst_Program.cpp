#include "support/Documents.h"
#include "support/Program.h"

#include <QTest>

/// The editor as a process, as far as it ends by itself.
class TestProgram : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void endsWithOneLineWithoutADisplay_data()
    {
        QTest::addColumn<QString>("display");
        QTest::newRow("none") << QString();
        QTest::newRow("one that nobody serves") << QStringLiteral(":4711");
    }

    void endsWithOneLineWithoutADisplay()
    {
        QFETCH(const QString, display);
        Program program(QStringLiteral(EDITOR_PROGRAM), m_folder.path(QString()));
        program.environment.remove(QStringLiteral("WAYLAND_DISPLAY"));
        program.environment.remove(QStringLiteral("QT_QPA_PLATFORM"));
        if (display.isEmpty())
            program.environment.remove(QStringLiteral("DISPLAY"));
        else
            program.environment.insert(QStringLiteral("DISPLAY"), display);
        QCOMPARE(program.run(""), 1);
        QCOMPARE(program.output, QString());
        QCOMPARE(program.words.trimmed().count(QLatin1Char('\n')), 0);
        QVERIFY(program.says("There is no display to open a window on"));
    }

private:
    Folder m_folder;
};

QTEST_GUILESS_MAIN(TestProgram)
#include "tst_Program.moc"
