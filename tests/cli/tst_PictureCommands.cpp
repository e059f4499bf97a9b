#include "imaging/LitImage.h"
#include "model/DataModelWriter.h"
#include "model/ImageReading.h"
#include "model/Project.h"
#include "model/PropertyAngleImage.h"
#include "support/Documents.h"
#include "support/Pictures.h"
#include "support/Program.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QTest>

/// The commands that write pictures of bodies under light, run as the real program.
class TestPictureCommands : public QObject
{
    Q_OBJECT

    QString path(const char *name) const { return m_folder.path(QString::fromUtf8(name)); }
    bool run(const QByteArray &line) { return m_program->run(line.constData()) == 0; }

    QImage picture(const char *name) const { return readImageFile(path(name)).image; }

    // The first body is painted.
    void writeProject(const char *name, const QStringList &sprites)
    {
        Project project;
        for (const QString &sprite : sprites)
            addBody(project, QFileInfo(sprite).baseName(), m_folder.path(sprite));
        for (Body *body : project.bodies().all().mid(0, 1))
            body->paintedNormalMap().setValue(
                encode(randomAngles(body->surface().size(), m_random)));
        project.filename().setValue(GFileName(path(name)));
        DataModelWriter(project).write();
    }

    Folder m_folder;
    std::unique_ptr<Program> m_program;
    std::mt19937 m_random{7};

private Q_SLOTS:
    // Each test has a project p of the sprites noise, which is painted, pale and gone.
    void init()
    {
        m_folder = Folder();
        m_program = std::make_unique<Program>(QStringLiteral(CLI_PROGRAM), path(""));
        QImage noise(m_folder.writeSprite(QStringLiteral("noise.png"), {23, 17}));
        for (int i = 0; i < 23 * 17; ++i)
            noise.setPixel(i % 23, i / 23, m_random() % 4 == 0 ? 0x00FFFFFFU : m_random());
        QVERIFY(noise.save(path("noise.png")));
        m_folder.writeSprite(QStringLiteral("pale.png"), {32, 16}, QColor(200, 100, 50, 128));
        m_folder.writeSprite(QStringLiteral("gone.png"), {4, 4});
        const QString sprites = QStringLiteral("noise.png pale.png gone.png");
        writeProject("p.vep", sprites.split(QLatin1Char(' ')));
        QVERIFY(QFile::remove(path("gone.png")));
        QVERIFY(run("set p.vep light_height=77 light_brightness=150 light_color=#ffc040 "
                    "ambient_light_color=#203040"));
        QVERIFY(QFile::link(path("noise.png"), path("link.png")));
    }

    // By the map that an engine gets.
    void litIsTheFormulaOverTheExportedMap()
    {
        run("export p.vep --output maps");
        Light lamp{QColor(0x20, 0x30, 0x40), QColor(0xFF, 0xC0, 0x40), 150.0};
        lamp.kind = Light::Kind::Position;
        for (const auto &[typed, place] :
             {std::pair("3.5,-8,12.25", QVector3D(3.5F, -8.0F, 12.25F)),
              {"-100,20", QVector3D(-100.0F, 20.0F, 77.0F)}}) {
            lamp.place = place;
            const QImage expected = litImage(picture("noise.png"), picture("maps/noise.png"), lamp);
            QVERIFY(run(QByteArray("lit p.vep --body noise --output o.PNG --light ") + typed));
            QCOMPARE(m_program->output.trimmed(), path("o.PNG"));
            QCOMPARE(picture("o.PNG"), expected.convertToFormat(QImage::Format_ARGB32));
        }
    }

    void refusals()
    {
        QVERIFY(run("remove p.vep noise pale --output-project gone.vep"));
        const QDir folder(path(""));
        const QStringList names = folder.entryList();
        const auto contents = [this] {
            return contentOf(path("p.vep")) + contentOf(path("noise.png"));
        };
        const QByteArray before = contents();
        const QByteArray lit = "lit p.vep --output o.png --body ";
        const QByteArray noise = "lit p.vep --body noise --light ";
        for (const auto &[line, code, words] : {
                 std::tuple(lit + "absent --light 1,2", 1, "no body named 'absent'"),
                 {lit + "gone --light 1,2", 1, "gone.png' is missing; bring it back"},
                 {noise + "1,nan --output o.png", 2, "the y of --light"},
                 {noise + "1,2 --output absent/o.png", 1, "absent/o.png' can't be written"},
                 {noise + "1,2 --output ./noise.png", 1, "is a sprite of the project"},
                 {noise + "1,2 --output link.png", 1, "is a sprite of the project"},
                 {"lit absent.vep --body a --light 1,2 --output o.png", 3, "'absent.vep'"},
                 {"thumbnail p.vep o.png --size 1025", 2, "--size"},
                 {"thumbnail p.vep p.vep", 1, "is the project itself"},
                 {"thumbnail p.vep noise.png", 1, "is a sprite of the project"},
                 {"thumbnail gone.vep o.png", 1, "'gone.vep' has no body with a sprite"},
                 {"thumbnail noise.png o.png", 3, "noise.png"},
             }) {
            QVERIFY2(m_program->run(line.constData()) == code, line.constData());
            QVERIFY2(m_program->says(words), qUtf8Printable(m_program->words));
            QVERIFY2(m_program->output.isEmpty(), line.constData());
            QVERIFY2(folder.entryList() == names && contents() == before, line.constData());
        }
    }

    // A sprite that fits is magnified in whole pixels, one that does not keeps its aspect.
    void thumbnailsKeepPixelsAndAspect()
    {
        writeProject("one.vep", {QStringLiteral("noise.png")});
        Light lamp{QColor(0x80, 0x80, 0x80), Qt::white, 100.0, Light::Kind::Position, {0, 0, 32}};
        QVERIFY(run("export one.vep --output maps") && run("thumbnail one.vep o.png --size 100"));
        const QImage lit = litImage(picture("noise.png"), picture("maps/noise.png"), lamp);
        QImage expected(100, 100, QImage::Format_ARGB32_Premultiplied);
        expected.fill(Qt::transparent);
        for (int i = 0; i < 92 * 68; ++i) // four times as large, in the middle
            expected.setPixelColor(4 + i % 92, 16 + i / 92, lit.pixelColor(i % 92 / 4, i / 92 / 4));
        QCOMPARE(picture("o.png"), expected.convertToFormat(QImage::Format_ARGB32));

        m_folder.writeSprite(QStringLiteral("wide.png"), {600, 150});
        writeProject("one.vep", {QStringLiteral("wide.png")});
        QVERIFY(run("thumbnail one.vep o.png"));
        const QImage shown = picture("o.png");
        QCOMPARE(shown.size(), QSize(256, 256));
        for (int y = 0; y < 256; ++y)
            QVERIFY(qAlpha(shown.pixel(128, y)) == (y >= 96 && y < 160 ? 255 : 0));
    }
};

QTEST_GUILESS_MAIN(TestPictureCommands)

#include "tst_PictureCommands.moc"
