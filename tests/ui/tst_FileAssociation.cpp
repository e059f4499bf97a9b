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

        const QStringList registered{QStringLiteral(".x/Content Type=a/x"),
                                     QStringLiteral(".x/OpenWithProgids/P.X="),
                                     QStringLiteral("P.X/Default=A file")};
        const QStringList opened{
            QStringLiteral(".x/Default=P.X"),
            QStringLiteral("P.X/shell/open/command/Default=\"C:\\My 1\\p.exe\" \"%1\"")};
        const QStringList shown{QStringLiteral("P.X/DefaultIcon/Default=C:\\i.ico")};
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
        const FileAssociation association{QStringLiteral(".x"),
                                          QStringLiteral("P.X"),
                                          QStringLiteral("A file"),
                                          QStringLiteral("a/x"),
                                          QStringLiteral("C:\\i.ico"),
                                          flags[0],
                                          flags[1],
                                          flags[2]};
        const QString program = QStringLiteral("C:\\My 1\\p.exe");
        QCOMPARE(storeAssociation(association, program, *m_classes), !expected.isEmpty());
        QCOMPARE(stored(), sorted(expected));
        // A second start writes nothing, another place of the program its command.
        QVERIFY(!storeAssociation(association, program, *m_classes));
        QCOMPARE(storeAssociation(association, QStringLiteral("D:\\p.exe"), *m_classes), flags[1]);
    }

    void projects()
    {
        const QString program = QStringLiteral("/opt/v/vesperine");
        for (const FileAssociation &type : projectFileTypes(QStringLiteral("/opt/v")))
            QVERIFY(storeAssociation(type, program, *m_classes));
        const QString mime = QStringLiteral("/Content Type=application/x-vesperine-project");
        const QString offered = QStringLiteral("/OpenWithProgids/Vesperine.Project=");
        QCOMPARE(stored(),
                 sorted({QStringLiteral(".vep") + mime,
                         QStringLiteral(".vep") + offered,
                         QStringLiteral(".vep/Default=Vesperine.Project"),
                         QStringLiteral(".vex") + mime,
                         QStringLiteral(".vex") + offered,
                         QStringLiteral("Vesperine.Project/Default=Vesperine Project"),
                         QStringLiteral("Vesperine.Project/DefaultIcon/Default="
                                        "/opt/v/icons/VEP.ico"),
                         QStringLiteral("Vesperine.Project/shell/open/command/Default="
                                        "\"/opt/v/vesperine\" \"%1\"")}));
    }

    void init()
    {
        m_folder = std::make_unique<QTemporaryDir>();
        m_classes = std::make_unique<QSettings>(m_folder->filePath(QStringLiteral("classes.ini")),
                                                QSettings::IniFormat);
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
            lines.append(key + QLatin1Char('=') + file.value(key).toString());
        return sorted(lines);
    }

    std::unique_ptr<QTemporaryDir> m_folder;
    std::unique_ptr<QSettings> m_classes;
};

QTEST_GUILESS_MAIN(TestFileAssociation)
#include "tst_FileAssociation.moc"
