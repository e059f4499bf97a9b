#include "base/Error.h"
#include "imaging/NormalEncoding.h"
#include "model/NormalMapExport.h"
#include "model/Project.h"
#include "model/PropertyAngleImage.h"
#include "model/Sprite.h"
#include "support/Documents.h"
#include "support/Pictures.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QTest>

#include <unistd.h>

class TestNormalMapExport : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void mapsMatchThePlainWay();
    void transparentPixelsAreFlat();
    void clashesAreRefusedBeforeWriting();
    void sourcesByOtherNames();
    void foreignFilesStay();
    void failures();
};

namespace {
NormalMapResult exportAll(const Project &project, const NormalMapExport &settings)
{
    return exportNormalMaps(project, project.bodies().all(), settings);
}

NormalMapExport into(const QString &folder, const QString &suffix = {})
{
    NormalMapExport settings;
    settings.directory = GFileName(folder);
    settings.suffix = suffix;
    return settings;
}
} // namespace

void TestNormalMapExport::mapsMatchThePlainWay()
{
    const Folder folder;
    Project project;
    std::mt19937 random(7);
    QStringList expected;
    for (int i = 0; i < 20; ++i) {
        const QSize size(randomInt(1, 60, random), randomInt(1, 60, random));
        const QString name = QStringLiteral("s%1.png").arg(i);
        auto &body = addBody(project, name, folder.writeSprite(name, size));
        if (i != 3) // one stays without a surface
            body.paintedNormalMap().setAngleImage(randomAngles(size.width(), size.height(), random),
                                                  QString());
        expected.append(folder.path(QStringLiteral("out/deep/s%1_n.png").arg(i)));
    }
    for (const int jobs : {1, 5}) {
        QStringList written;
        auto settings = into(folder.path(QStringLiteral("out/deep")), QStringLiteral("_n"));
        settings.jobs = jobs;
        settings.written = [&written](const QString &path) { written.append(path); };
        QVERIFY(exportAll(project, settings).failures.isEmpty());
        QCOMPARE(written, expected);
        for (int i = 0; i < expected.size(); ++i) {
            const AngleImage surface = project.bodies().at(i).surface();
            QImage plain = flatNormalMap(surface.size());
            toNormalMap(surface, plain);
            QCOMPARE(QImage(expected[i]).convertToFormat(QImage::Format_RGB32), plain);
        }
    }
    QCOMPARE(
        QDir(folder.path(QStringLiteral("out/deep"))).entryList(QDir::Files | QDir::Hidden).size(),
        20);
}

void TestNormalMapExport::transparentPixelsAreFlat()
{
    const Folder folder;
    QImage sprite(3, 1, QImage::Format_ARGB32);
    sprite.setPixel(0, 0, 0x00FF8040);
    sprite.setPixel(1, 0, 0x01FF8040);
    sprite.setPixel(2, 0, 0xFF000000);
    const QString path = folder.path(QStringLiteral("a.png"));
    QVERIFY(sprite.save(path));
    Project project;
    addBody(project, QString(), path)
        .paintedNormalMap()
        .setAngleImage(angles({{256, 256, 256}}), QString());
    QVERIFY(exportAll(project, into({}, QStringLiteral("_n"))).failures.isEmpty());
    const QImage map(folder.path(QStringLiteral("a_n.png")));
    QCOMPARE(map.pixel(0, 0), flatNormal);
    QCOMPARE(map.pixel(1, 0), qRgb(217, 127, 180));
    QCOMPARE(map.pixel(2, 0), qRgb(217, 127, 180));
}

void TestNormalMapExport::clashesAreRefusedBeforeWriting()
{
    const Folder folder;
    const QString out = folder.path(QStringLiteral("out"));
    const QString first = folder.writeSprite(QStringLiteral("x/a.png"), {1, 1});
    const QString second = folder.writeSprite(QStringLiteral("y/a.png"), {1, 1});
    const QByteArray content = contentOf(first);
    Project project;
    addBody(project, QString(), first);
    addBody(project, QString(), second);
    const auto refusal = [](const QString &path) {
        return QStringLiteral("Failed to save normal map '%1'").arg(path);
    };
    QCOMPARE(errorOf([&] { exportAll(project, into(out)); }),
             refusal(out + QStringLiteral("/a.png")));
    QVERIFY(!QFileInfo::exists(out));
    // A sprite's own file, behind a link too.
    QVERIFY(QFile::link(QFileInfo(first).path(), folder.path(QStringLiteral("link"))));
    project.bodies().setEntries({project.bodies().entries().first()});
    for (const QString &directory : {QString(), folder.path(QStringLiteral("link"))})
        QVERIFY(!errorOf([&] { exportAll(project, into(directory)); }).isEmpty());
    QCOMPARE(contentOf(first), content);
}

// A hard link stands for a second mount, too: both show in the file's number only.
void TestNormalMapExport::sourcesByOtherNames()
{
    const Folder folder;
    const QString sprite = folder.writeSprite(QStringLiteral("a.png"), {1, 1});
    const QString map = folder.path(QStringLiteral("a_n.png"));
    const QByteArray content = contentOf(sprite);
    Project project;
    addBody(project, QString(), sprite);
    addBody(project, QString(), folder.writeSprite(QStringLiteral("b.png"), {1, 1}));
    auto settings = into({}, QStringLiteral("_n"));
    settings.replacesForeign = true;
    QCOMPARE(::link(qPrintable(sprite), qPrintable(map)), 0);
    QVERIFY(!errorOf([&] { exportAll(project, settings); }).isEmpty());
    QVERIFY(!writeImageFile(QImage(sprite), map, sourceFiles(project)));
    // It comes while the maps are made.
    QVERIFY(QFile::remove(map));
    settings.progress = [&](int) {
        return ::link(qPrintable(sprite), qPrintable(folder.path(QStringLiteral("b_n.png")))) == 0;
    };
    QCOMPARE(exportAll(project, settings).failures.size(), 1);
    QVERIFY(contentOf(map) != content);
    QCOMPARE(contentOf(folder.path(QStringLiteral("b_n.png"))), content);
}

void TestNormalMapExport::foreignFilesStay()
{
    const Folder folder;
    Project project;
    addBody(project, QString(), folder.writeSprite(QStringLiteral("a.png"), {1, 1}));
    const QString map = folder.write(QStringLiteral("a_n.png"), "somebody's work");
    auto settings = into({}, QStringLiteral("_n"));
    QCOMPARE(foreignFiles(project, project.bodies().all(), settings), QStringList(map));
    QCOMPARE(exportAll(project, settings).failures.size(), 1);
    QCOMPARE(contentOf(map), QByteArray("somebody's work"));
    settings.replacesForeign = true;
    QVERIFY(exportAll(project, settings).failures.isEmpty());
    settings.replacesForeign = false; // the map is ours now
    QVERIFY(foreignFiles(project, project.bodies().all(), settings).isEmpty());
    QVERIFY(exportAll(project, settings).failures.isEmpty());
}

void TestNormalMapExport::failures()
{
    const Folder folder;
    Project project;
    for (const char *name : {"a.png", "b.png", "c.png"})
        addBody(project, QString(), folder.writeSprite(QString::fromLatin1(name), {1, 1}));
    const QString out = folder.path(QStringLiteral("out"));
    QVERIFY(QDir().mkpath(out + QStringLiteral("/b.png"))); // a folder in a map's place
    auto settings = into(out);
    const QStringList failure{QStringLiteral("Failed to save normal map '%1/b.png'").arg(out)};
    QCOMPARE(exportAll(project, settings).failures, failure);
    QVERIFY(QFileInfo::exists(out + QStringLiteral("/a.png")));
    QVERIFY(!QFileInfo::exists(out + QStringLiteral("/c.png")));
    settings.goesOn = true;
    QCOMPARE(exportAll(project, settings).failures, failure);
    QVERIFY(QFileInfo::exists(out + QStringLiteral("/c.png")));

    const QString blocked = folder.path(QStringLiteral("a.png/deep"));
    QCOMPARE(exportAll(project, into(blocked)).failures,
             QStringList(QStringLiteral("Cannot create directory '%1'").arg(blocked)));
    // Neither a sprite nor a surface: there is nothing to write.
    addBody(project, QString(), folder.path(QStringLiteral("gone.png")));
    QCOMPARE(exportAll(project, into(folder.path(QStringLiteral("new")))).failures.size(), 1);
}

QTEST_GUILESS_MAIN(TestNormalMapExport)

#include "tst_NormalMapExport.moc"
