#include "support/Widgets.h"
#include "ui/ProjectFileTypes.h"

#include <QSettings>
#include <QTemporaryDir>
#include <QTest>

/// What the registry would hold, in a file of settings.
class TestFileAssociation : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void flags_data()
    {
        QTest::addColumn<QVector<bool>>("flags");
        QTest::addColumn<QStringList>("expected");

        const QStringList registered{
            ".x/Content Type=a/x"_s, ".x/OpenWithProgids/P.X="_s, "P.X/Default=A file"_s};
        const QStringList opened{".x/Default=P.X"_s,
                                 R"(P.X/shell/open/command/Default="C:\My 1\p.exe" "%1")"_s};
        const QStringList shown{R"(P.X/DefaultIcon/Default=C:\i.ico)"_s};
        QTest::newRow("nothing") << QVector<bool>{false, false, false} << QStringList();
        QTest::newRow("registered") << QVector<bool>{true, false, false} << registered;
        QTest::newRow("opened") << QVector<bool>{false, true, false} << opened;
        QTest::newRow("icon") << QVector<bool>{false, false, true} << shown;
        QTest::newRow("all") << QVector<bool>{true, true, true} << registered + opened + shown;
    }

    void flags()
    {
        QFETCH(const QVector<bool>, flags);
        QFETCH(const QStringList, expected);
        const FileAssociation association{
            ".x"_s, "P.X"_s, "A file"_s, "a/x"_s, R"(C:\i.ico)"_s, flags[0], flags[1], flags[2]};
        const QString program = R"(C:\My 1\p.exe)"_s;
        QCOMPARE(storeAssociation(association, program, *m_classes), !expected.isEmpty());
        QCOMPARE(stored(), sorted(expected));
        // A second start writes nothing, another place of the program its command.
        QVERIFY(!storeAssociation(association, program, *m_classes));
        QCOMPARE(storeAssociation(association, R"(D:\p.exe)"_s, *m_classes), flags[1]);
    }

    void projects()
    {
        const QString program = "/opt/v/vesperine"_s;
        for (const FileAssociation &type : projectFileTypes("/opt/v"_s))
            QVERIFY(storeAssociation(type, program, *m_classes));
        // The obsolete type is known, but opens nothing.
        QCOMPARE(stored().filter(".ve"_s).filter("Default="_s),
                 QStringList{".vep/Default=Vesperine.Project"_s});
        QCOMPARE(stored().filter("=application/x-vesperine-project"_s).size(), 2);
        QCOMPARE(stored().filter("command"_s),
                 QStringList{
                     R"(Vesperine.Project/shell/open/command/Default="/opt/v/vesperine" "%1")"_s});
    }

    void init()
    {
        m_folder = std::make_unique<QTemporaryDir>();
        m_classes =
            std::make_unique<QSettings>(m_folder->filePath("classes.ini"_s), QSettings::IniFormat);
    }

private:
    static QStringList sorted(QStringList lines)
    {
        lines.sort();
        return lines;
    }

    QStringList stored() const
    {
        m_classes->sync();
        const QSettings file(m_classes->fileName(), QSettings::IniFormat);
        QStringList lines;
        for (const QString &key : file.allKeys())
            lines.append(key + u'=' + file.value(key).toString());
        return sorted(lines);
    }

    std::unique_ptr<QTemporaryDir> m_folder;
    std::unique_ptr<QSettings> m_classes;
};

QTEST_GUILESS_MAIN(TestFileAssociation)
#include "tst_FileAssociation.moc"
