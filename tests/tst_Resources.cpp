#include "base/Resources.h"

#include <QDirIterator>
#include <QFile>
#include <QRegularExpression>
#include <QTest>

class TestResources : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void everyPathThatTheProgramNamesOpens()
    {
        initialiseResources();
        const QRegularExpression quoted(QStringLiteral("\"(://?[^\"%]+)\""));
        QStringList missing;
        int named = 0;
        QDirIterator files(
            QStringLiteral(SOURCE_FOLDER), QDir::Files, QDirIterator::Subdirectories);
        while (files.hasNext()) {
            QFile file(files.next());
            QVERIFY(file.open(QIODevice::ReadOnly));
            auto matches = quoted.globalMatch(QString::fromUtf8(file.readAll()));
            for (; matches.hasNext(); ++named) {
                const QString path = matches.next().captured(1);
                if (!QFileInfo::exists(path))
                    missing.append(path);
            }
        }
        QCOMPARE(missing.join(QLatin1Char(' ')), QString());
        QVERIFY(named > 30);
    }
};

QTEST_APPLESS_MAIN(TestResources)
#include "tst_Resources.moc"
