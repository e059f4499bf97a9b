#include "base/GFileName.h"
#include "base/PlainText.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>
#include <QTest>

class TestBase : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void relativePaths_data();
    void relativePaths();
    void linkedFolderStaysInsideTheProject();
    void plainTextKeepsWhatCanBeRead_data();
    void plainTextKeepsWhatCanBeRead();
    void shownTextIsOneHarmlessLine_data();
    void shownTextIsOneHarmlessLine();
};

void TestBase::relativePaths_data()
{
    QTest::addColumn<QString>("path");
    QTest::addColumn<QString>("relative");

    QTest::newRow("inside") << "/art/project/sprites/a.png"
                            << "sprites/a.png";
    QTest::newRow("beside") << "/art/other/a.png"
                            << "../other/a.png";
    QTest::newRow("the folder itself") << "/art/project"
                                       << "./";
    QTest::newRow("the folder itself, written long") << "/art/project/x/.."
                                                     << "./";
    QTest::newRow("empty") << ""
                           << "";
    QTest::newRow("name that begins with dots") << "/art/project/..a.png"
                                                << "..a.png";
}

void TestBase::relativePaths()
{
    QFETCH(QString, path);
    QFETCH(QString, relative);
    const GFileName name(path);
    QCOMPARE(name.relativeTo(QStringLiteral("/art/project")), relative);
    QCOMPARE(GFileName::fromRelative(relative, QStringLiteral("/art/project")).path(), name.path());
}

void TestBase::linkedFolderStaysInsideTheProject()
{
    const QTemporaryDir folder;
    QDir real(folder.path());
    QVERIFY(real.mkpath(QStringLiteral("real/sprites")));
    QVERIFY(QFile::link(folder.filePath(QStringLiteral("real")),
                        folder.filePath(QStringLiteral("link"))));
    const QString base = QDir(folder.filePath(QStringLiteral("real"))).canonicalPath();
    QCOMPARE(GFileName(folder.filePath(QStringLiteral("link/sprites/a.png"))).relativeTo(base),
             QStringLiteral("sprites/a.png"));
}

void TestBase::plainTextKeepsWhatCanBeRead_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<QString>("plain");

    QTest::newRow("umlaut") << QStringLiteral("Bär %1") << QStringLiteral("Bär %1");
    QTest::newRow("emoji") << QStringLiteral("🦊 fox") << QStringLiteral("🦊 fox");
    QTest::newRow("line end") << QStringLiteral("a\nb\tc") << QStringLiteral("abc");
    QTest::newRow("lone surrogate") << QString(QChar(0xD800)) + QLatin1Char('a') << "a";
    QTest::newRow("not a character") << QString(QChar(0xFFFF)) << "";
}

void TestBase::plainTextKeepsWhatCanBeRead()
{
    QFETCH(QString, text);
    QFETCH(QString, plain);
    QCOMPARE(plainText(text), plain);
    QCOMPARE(isPlainText(text), text == plain);
}

void TestBase::shownTextIsOneHarmlessLine_data()
{
    QTest::addColumn<QByteArray>("name");
    QTest::addColumn<QString>("shown");

    QTest::newRow("letters") << QByteArray("Bär 🦊 <b>&%1\\")
                             << QStringLiteral("Bär 🦊 <b>&%1\\");
    QTest::newRow("joined emoji") << QByteArray("👩\u200d👧") << QStringLiteral("👩\u200d👧");
    QTest::newRow("lines") << QByteArray("a\nb\r\t") << QStringLiteral("a\\nb\\r\\t");
    QTest::newRow("terminal") << QByteArray("\x1b[31m\u009b")
                              << QStringLiteral("\\u001b[31m\\u009b");
    QTest::newRow("direction") << QByteArray("\u202egnp.\u2066")
                               << QStringLiteral("\\u202egnp.\\u2066");
    QTest::newRow("no UTF-8") << QByteArray("a\xff\xc3.b\xf0\x9f")
                              << QStringLiteral("a\\xff\\xc3.b\\xf0\\x9f");
}

void TestBase::shownTextIsOneHarmlessLine()
{
    QFETCH(QByteArray, name);
    QFETCH(QString, shown);
    QCOMPARE(shownBytes(name), shown);
    if (QString::fromUtf8(name).toUtf8() == name)
        QCOMPARE(shownText(QString::fromUtf8(name)), shown);
}

QTEST_GUILESS_MAIN(TestBase)

#include "tst_Base.moc"
