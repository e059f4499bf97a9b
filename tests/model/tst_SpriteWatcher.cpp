#include "base/GSettings.h"
#include "model/Project.h"
#include "model/ProjectController.h"
#include "model/PropertyAngleImage.h"
#include "model/Sprite.h"
#include "model/SpriteLoading.h"
#include "model/SpriteWatcher.h"
#include "support/Documents.h"
#include "support/Widgets.h"

#include <QBuffer>
#include <QDir>
#include <QTest>

#include <cstdio>
#include <random>

namespace {
QByteArray picture(QRgb color, const QSize &size = {40, 30})
{
    QImage image(size, QImage::Format_ARGB32);
    image.fill(color);
    QBuffer buffer;
    buffer.open(QIODevice::WriteOnly);
    image.save(&buffer, "png");
    return buffer.data();
}

// As programs save: into the file, in two goes; by another file that takes its name; anew.
enum Way { InPlace, Renaming, Anew };

void replace(const QString &path, const QByteArray &content, int way)
{
    const QString written = way == Renaming ? path + "~"_s : path;
    if (way == Anew)
        QFile::remove(path);
    QFile file(written);
    QVERIFY(file.open(QIODevice::WriteOnly | QIODevice::Unbuffered));
    file.write(content.left(30));
    file.write(content.mid(30));
    file.close();
    if (way == Renaming)
        QCOMPARE(std::rename(qPrintable(written), qPrintable(path)), 0);
}

int replacements()
{
    const int asked = qEnvironmentVariableIntValue("VESPERINE_REPLACEMENTS");
    return asked > 0 ? asked : 3;
}
} // namespace

class TestSpriteWatcher : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init()
    {
        m_folder = Folder();
        m_path = m_folder.write("art/a.png"_s, picture(1));
        m_controller = std::make_unique<ProjectController>(m_settings, m_prompts);
        m_controller->addSprites({m_path, m_folder.write("art/b.png"_s, picture(1)), m_path});
        m_controller->project().undoStack().clear();
        m_watcher = std::make_unique<SpriteWatcher>();
        m_reloads = 0;
        connect(m_watcher.get(), &SpriteWatcher::changed, this, [this] {
            ++m_reloads;
            reloadSprites(m_controller->project(), m_watcher->takeChanges());
        });
        m_watcher->setProject(&m_controller->project());
        QTRY_VERIFY(m_watcher->isIdle());
        QCOMPARE(m_reloads, 0);
    }

    void everyReplacementIsSeen_data()
    {
        QTest::addColumn<int>("way");
        QTest::newRow("in place") << int(InPlace);
        QTest::newRow("renamed over") << int(Renaming);
        QTest::newRow("created anew") << int(Anew);
    }

    void everyReplacementIsSeen()
    {
        QFETCH(int, way);
        for (int i = 2; i < 2 + replacements(); ++i) {
            replace(m_path, picture(0xff000000 + i), way);
            QTRY_COMPARE(shown(0), 0xff000000 + i);
            QCOMPARE(shown(2), shown(0)); // the same file
        }
        // In any order and haste, while the watcher reads: what comes last is shown.
        std::mt19937 random(way);
        for (int i = 0; i < 10 * replacements(); ++i) {
            replace(m_path, picture(i), i % 4 == 0 ? int(random() % 3) : way);
            QTest::qWait(int(random() % 40));
        }
        replace(m_path, picture(0xff123456), way);
        QTRY_COMPARE(shown(0), 0xff123456);
        QCOMPARE(shown(1), 1U);
        QVERIFY(!m_controller->project().undoStack().isModified());
        QVERIFY(body(0).paintedNormalMap().angleImage() == AngleImage(40, 30));
    }

    // As long as it is not whole for about a second, it is not missing.
    void halfWrittenAndMissing()
    {
        QFile file(m_path);
        QVERIFY(file.open(QIODevice::WriteOnly | QIODevice::Unbuffered));
        const QByteArray content = picture(7);
        for (const char byte : content.left(20)) {
            file.write(&byte, 1);
            QTest::qWait(60);
            QCOMPARE(shown(0), 1U);
        }
        file.write(content.mid(20));
        QTRY_COMPARE(shown(0), 7U);
        QCOMPARE(m_reloads, 1);

        body(1).paintedNormalMap().setValue({}); // nothing but its image tells a size
        const QString folder = m_folder.path("art"_s);
        QVERIFY(QDir().rename(folder, m_folder.path("elsewhere"_s)));
        QTRY_VERIFY(!body(0).sprite().isLoaded() && !body(1).sprite().isLoaded());
        QVERIFY(shown(1) == QColor(Qt::red).rgba() && !body(1).sprite().statusIcon().isEmpty());
        QCOMPARE(body(1).sprite().image().size(), QSize(40, 30));
        QTest::qWait(50);
        QVERIFY(QDir().mkpath(folder) &&
                QDir().rename(m_folder.path("elsewhere/b.png"_s), folder + "/b.png"_s));
        QTRY_COMPARE(shown(1), 1U);
        QVERIFY(body(1).sprite().statusIcon().isEmpty() && !body(0).sprite().isLoaded());
    }

    // A sprite that is added, or has another file; and what no event tells.
    void followsTheProject()
    {
        const QString other = m_folder.write("other/c.png"_s, picture(3));
        m_controller->addSprites({other});
        body(1).sprite().filename().setValue(GFileName(m_path));
        QTRY_COMPARE(m_watcher->isIdle(), true);
        replace(other, picture(4, {41, 30}), Renaming);
        QTRY_VERIFY(body(3).sprite().isWrongSized());
        replace(m_path, picture(5), Renaming);
        QTRY_COMPARE(shown(1), 5U);
        m_watcher->setProject(nullptr);
        QTest::qWait(300);
        replace(m_path, picture(6), InPlace);
        QTest::qWait(300);
        QCOMPARE(shown(0), 5U);
        m_watcher->setProject(&m_controller->project()); // looks what has happened meanwhile
        QTRY_COMPARE(shown(0), 6U);
    }

private:
    Body &body(int index) const { return m_controller->project().bodies().at(index); }
    QRgb shown(int index) const { return body(index).sprite().image().pixel(0, 0); }

    Folder m_folder;
    QString m_path;
    GSettings m_settings;
    ScriptedPrompts m_prompts;
    std::unique_ptr<ProjectController> m_controller;
    std::unique_ptr<SpriteWatcher> m_watcher;
    int m_reloads = 0;
};

QTEST_GUILESS_MAIN(TestSpriteWatcher)

#include "tst_SpriteWatcher.moc"
