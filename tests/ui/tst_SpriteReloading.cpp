#include "imaging/SurfaceResizing.h"
#include "model/Body.h"
#include "model/PropertyAngleImage.h"
#include "model/Sprite.h"
#include "model/properties/GUndoStack.h"
#include "model/properties/PropertyT.h"
#include "preview/EditorGraphicsViewVesperine.h"
#include "support/DialogScript.h"
#include "support/Pictures.h"
#include "support/Studio.h"
#include "support/WindowTest.h"
#include "ui/AnchorGrid.h"
#include "ui/NormalMapEditor.h"

#include <QAction>
#include <QFile>
#include <QLineEdit>
#include <QStatusBar>
#include <QToolButton>

namespace {
class WatchedStudio : public Studio
{
public:
    MainWindow &window() const { return static_cast<MainWindow &>(*view().window()); }
    QString said() const { return window().statusBar()->currentMessage(); }
    Sprite &sprite(int index) const { return body(index).sprite(); }
    QRgb shown(int index) const { return sprite(index).image().pixel(1, 1); }

    void replace(int index, const QColor &color, const QSize &size = {60, 40}) const
    {
        QImage picture(size, QImage::Format_ARGB32);
        picture.fill(color);
        QVERIFY(picture.save(sprite(index).filename().value().path()));
    }

    void replaceBoth(const QSize &size) const
    {
        replace(0, Qt::green, size);
        replace(1, Qt::green, size);
    }

    QAction &reload() const { return *window().findChild<QAction *>("reloadSprites"_s); }
};

// One down from the middle by keys, then to the left by mouse.
void anchorAtBottomLeft(QWidget &dialog)
{
    auto &grid = *dialog.findChild<AnchorGrid *>();
    auto &middle = shownChild<QToolButton>(grid, "Middle"_s);
    showActive(dialog);
    // Without a window manager, the focus may go for a moment.
    const auto pressDown = [&] {
        middle.setFocus();
        QTest::keyClick(&middle, Qt::Key_Down);
        return grid.anchor() == (Qt::AlignHCenter | Qt::AlignBottom);
    };
    if (QTest::qWaitFor(pressDown))
        QTest::mouseClick(&shownChild<QToolButton>(grid, "Bottom left"_s), Qt::LeftButton);
    DialogScript::click("Anchor surface"_s)(dialog);
}
} // namespace

class TestSpriteReloading : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void thePaintStays()
    {
        const WatchedStudio studio;
        studio.chooseTool("Height");
        studio.paint({{10, 10}, {30, 20}});
        const AngleImage painted = studio.surface();
        const int steps = studio.stack().count();
        studio.replace(0, Qt::green);
        QTRY_COMPARE(studio.shown(0), QColor(Qt::green).rgba());
        QCOMPARE(studio.said(), "Sprites reloaded: a"_s);
        QVERIFY(studio.surface() == painted && studio.showsWhatIsStored());
        QCOMPARE(studio.stack().count(), steps);

        QVERIFY(QFile::remove(studio.sprite(0).filename().value().path()));
        QTRY_COMPARE(studio.said(), "Sprites missing: a"_s);
        QCOMPARE(studio.shown(0), QColor(Qt::red).rgba());
        studio.replace(0, Qt::yellow);
        QTRY_COMPARE(studio.shown(0), QColor(Qt::yellow).rgba());
        QVERIFY(studio.sprite(0).statusIcon().isEmpty() && studio.surface() == painted);
    }

    void whatIsUnderWayIsNotDisturbed()
    {
        const WatchedStudio studio;
        DialogScript script;
        studio.chooseTool("Height");
        studio.press({10, 10});
        studio.replaceBoth({61, 41});
        for (int x = 10; x < 50; ++x) {
            studio.moveTo({x, 20});
            QTest::qWait(20);
        }
        QVERIFY(script.seen().isEmpty() && !studio.sprite(0).isWrongSized());
        script.then(DialogScript::click("Scale surface"_s));
        studio.release({50, 20});
        QTRY_COMPARE(studio.surface(1).size(), QSize(61, 41));
        QVERIFY(script.isDone());
        QCOMPARE(studio.stack().undoText(), "scale surfaces"_s);
        QVERIFY(!(studio.surface() == AngleImage(61, 41)) && studio.showsWhatIsStored());

        studio.chooseTool("Bevel");
        studio.replaceBoth({70, 50});
        QTest::qWait(700);
        QVERIFY(!studio.sprite(0).isWrongSized() && !studio.reload().isEnabled());
        script.then(DialogScript::click("Clear normal map"_s));
        studio.window().findChild<NormalMapEditor *>()->discardEffect();
        showActive(studio.window()); // without a window manager
        QTRY_COMPARE(studio.surface(1).size(), QSize(70, 50));
        QVERIFY(script.isDone() && script.seen().size() == 2);
    }

    void anotherSize()
    {
        const WatchedStudio studio;
        DialogScript script;
        std::mt19937 random(3);
        const AngleImage painted = randomAngles(60, 40, random);
        studio.body(0).paintedNormalMap().setAngleImage(painted, "import"_s);
        script.then([](QWidget &dialog) { dialog.close(); });
        studio.replaceBoth({50, 80});
        QTRY_VERIFY(script.isDone());
        QTest::qWait(500); // answered once
        QVERIFY(studio.surface() == painted && studio.sprite(0).isWrongSized());
        script.then(anchorAtBottomLeft);
        studio.reload().trigger();
        QTRY_VERIFY(studio.sprite(1).hasOwnImage());
        QVERIFY(studio.surface() == anchoredTo(painted, {50, 80}, Qt::AlignBottom | Qt::AlignLeft));
        QCOMPARE(studio.said(), "Anchored normalmap: a · Anchored normalmap: b"_s);
        QCOMPARE(studio.stack().undoText(), "anchor surfaces"_s);
        studio.stack().undo();
        QVERIFY(studio.surface() == painted && studio.sprite(1).isWrongSized());
        studio.stack().redo();
        QVERIFY(studio.sprite(0).hasOwnImage() && script.isDone());
        studio.reload().trigger();
        QTRY_COMPARE(studio.said(), "No sprite has changed"_s);
    }

    void chosenImageOfAnotherSize()
    {
        const WatchedStudio studio;
        DialogScript script;
        const Folder folder;
        const QString former = studio.sprite(0).filename().value().path();
        const QString larger = folder.writeSprite("larger.png"_s, {90, 60});
        const auto choose = [&studio](const QString &path) {
            auto &line = shownChild<QLineEdit>(studio.window(), "Image"_s);
            line.setFocus();
            line.selectAll();
            QTest::keyClicks(&line, path);
            QTest::keyClick(&line, Qt::Key_Return);
        };
        script.then(DialogScript::click("Scale surface"_s));
        choose(larger);
        QTRY_COMPARE(studio.surface().size(), QSize(90, 60));
        QVERIFY(script.isDone() && studio.sprite(0).hasOwnImage());
        QCOMPARE(script.seen().value(0).section(QLatin1Char('|'), 0, 0), "Size conflict"_s);
        // Undo and redo ask nothing.
        studio.stack().undo();
        studio.stack().undo();
        QCOMPARE(studio.sprite(0).filename().value().path(), former);
        QVERIFY(studio.sprite(0).hasOwnImage());
        studio.stack().redo();
        studio.stack().redo();
        QTest::qWait(300);
        QVERIFY(script.isDone() && script.seen().size() == 1);
    }
};

int main(int argc, char **argv)
{
    return runWindowTest<TestSpriteReloading>(argc, argv);
}

#include "tst_SpriteReloading.moc"
