#include "base/GSettings.h"
#include "base/Resources.h"
#include "framework/GApplication.h"
#include "imaging/MaskedPaste.h"
#include "imaging/NormalEncoding.h"
#include "model/Body.h"
#include "model/NormalMapProcessor.h"
#include "model/Project.h"
#include "model/properties/PropertyListT.h"
#include "model/properties/PropertyT.h"
#include "preview/EditorGraphicsViewVesperine.h"
#include "preview/GLGraphicsLight.h"
#include "preview/NormalMapEditorScene.h"
#include "preview/SpriteItem.h"
#include "support/DialogScript.h"
#include "support/Documents.h"
#include "support/EditorUser.h"
#include "support/PaintedSurface.h"
#include "support/Widgets.h"
#include "tools/PaintToolHeightBrush.h"
#include "ui/MainWindow.h"
#include "ui/NormalMapEditor.h"
#include "ui/ShapeTreeView.h"

#include <QMap>
#include <QPainter>
#include <QSettings>
#include <QTest>
#include <QThreadPool>

#include <rapidcheck.h>

#include <random>

namespace {

constexpr QSize spriteSize(60, 40);
constexpr int undoInStroke = 11; // a kind of gesture

struct OpenWindow
{
    Folder folder;
    MainWindow window{*static_cast<GApplication *>(qApp)};
};

/// The window with two sprites, a and b, of which the left halves are red, and a user at it.
class Studio : private OpenWindow, public EditorUser
{
public:
    Studio()
        : EditorUser(window)
    {
        QImage picture(spriteSize, QImage::Format_ARGB32);
        picture.fill(Qt::blue);
        QPainter(&picture).fillRect(0, 0, spriteSize.width() / 2, spriteSize.height(), Qt::red);
        QStringList paths;
        for (const QString &name : {"a.png"_s, "b.png"_s}) {
            paths.append(folder.path(name));
            picture.save(paths.last());
        }
        window.openOrAdd(paths);
        window.resize(900, 700);
        showActive(window);
        ready();
        stack().clear();
    }

    GUndoStack &stack() const { return window.project().undoStack(); }
    Body &body(int index) const
    {
        return static_cast<Body &>(*window.project().bodies().entries().at(index));
    }
    AngleImage surface(int index = 0) const { return body(index).surface(); }

    void ready()
    {
        window.findChild<NormalMapEditor *>()->zoomToFit();
        scene().light().setPos(-900, -900); // in nobody's way
        select(0);
    }
    void select(int index)
    {
        auto &list = *window.findChild<ShapeTreeView *>();
        const QRect row = list.visualRect(list.model()->index(index, 0));
        QTest::mouseClick(list.viewport(), Qt::LeftButton, {}, row.center());
        view().setFocus();
    }
    bool openAgain()
    {
        const QString path = folder.path("p.vep"_s);
        DialogScript script;
        if (window.project().filename().value().path().isEmpty())
            script.then(DialogScript::chooseFile(path));
        key(Qt::Key_S, Qt::ControlModifier);
        if (!script.isDone() || !window.openPath(path))
            return false;
        ready();
        return true;
    }

    /// What is shown is what is stored.
    bool showsWhatIsStored() const
    {
        for (int index = 0; index < 2; ++index) {
            NormalMapProcessor &processor = scene().spriteItem(&body(index))->processor();
            processor.waitForIdle();
            QImage normals = flatNormalMap(spriteSize);
            toNormalMap(surface(index), normals);
            if (normals != processor.normalMap())
                return false;
        }
        return true;
    }
};

struct Gesture
{
    int kind;
    QPoint from;
    QPoint to;
};

std::ostream &operator<<(std::ostream &out, const Gesture &gesture)
{
    return out << gesture.kind << " (" << gesture.from.x() << "," << gesture.from.y() << ")-("
               << gesture.to.x() << "," << gesture.to.y() << ")";
}
} // namespace

namespace rc {
template <>
struct Arbitrary<Gesture>
{
    static Gen<Gesture> arbitrary()
    {
        const auto pixel = gen::construct<QPoint>(gen::inRange(-8, 68), gen::inRange(-8, 48));
        return gen::construct<Gesture>(gen::inRange(0, 18), pixel, pixel);
    }
};

} // namespace rc

class TestPainting : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase() { initialiseResources(); }
    void init() { static_cast<GApplication *>(qApp)->settings().clear(); }

    void eachBrushPaints()
    {
        Studio studio;
        const QVector<std::pair<int, QString>> brushes{{Qt::Key_B, "Height"_s},
                                                       {Qt::Key_Y, "Angle"_s},
                                                       {Qt::Key_S, "Structure"_s},
                                                       {0, "Smoothen"_s},
                                                       {Qt::Key_E, "Erase"_s}};
        for (const auto &[key, text] : brushes) {
            chooseBrush(studio, key);
            QThreadPool::globalInstance()->waitForDone();
            QCoreApplication::processEvents();
            const AngleImage before = studio.surface();
            const AngleImage::Pixel picked = before.row(20)[46];
            studio.paint({{46, 20}}, Qt::AltModifier);
            QCOMPARE(studio.surface() == before, key == Qt::Key_Y);
            studio.paint({{10, 10}, {40, 20}, {20, 25}});
            QVERIFY(!(studio.surface() == before));
            QCOMPARE(studio.stack().undoText(), text);
            if (key == Qt::Key_Y) {
                QVERIFY(!(picked == AngleImage::Pixel()));
                QCOMPARE(studio.surface().row(20)[40], picked);
            }
        }
    }

    // As in one go over the whole surface, of which the selected half is taken.
    void selectedPixelsConfineStrokes()
    {
        QVector<QPoint> scribble;
        QVector<QPointF> places;
        std::mt19937 random(1);
        for (int i = 0; i < 300; ++i) {
            scribble.append({int(random() % 80) - 10, int(random() % 60) - 10});
            places.append(scribble.last());
        }
        for (const int selecting : {0, int(Qt::Key_A), int(Qt::Key_L)}) {
            Studio studio;
            selectLeftHalf(studio, selecting);
            const int steps = studio.stack().index();
            PaintToolHeightBrush brush;
            PaintedSurface everywhere(brush, studio.surface());
            const auto confined = [&](AngleImage below) {
                const QRect selected(0, 0, selecting == 0 ? 60 : 30, 40);
                copyRegion(below, {}, everywhere.stored, selected);
                return below;
            };
            everywhere.paint(places);
            const AngleImage once = confined(studio.surface());
            studio.key(Qt::Key_B);
            studio.press(scribble.first());
            for (const QPoint &pixel : scribble)
                studio.moveTo(pixel);
            studio.release(scribble.last());
            QCOMPARE(studio.surface(), once);
            // The next stroke begins while what the first one has left is computed.
            everywhere.replace(once);
            everywhere.paint({{40, 10}, {20, 35}});
            studio.paint({{40, 10}, {20, 35}});
            QCOMPARE(studio.surface(), confined(once));
            QVERIFY(studio.showsWhatIsStored());
            QCOMPARE(studio.stack().index(), steps + 2);
            // A straight line goes on from its end.
            everywhere.paint({{3, 3}}, Qt::ShiftModifier);
            studio.paint({{3, 3}}, Qt::ShiftModifier);
            if (selecting == 0)
                QCOMPARE(studio.surface(), everywhere.stored);
        }
    }

    // Whatever is done can be undone and done again, through saving and loading, bit for bit.
    void anySequenceOfGestures()
    {
        QVERIFY(rc::check("undo gives back what was", [](const std::vector<Gesture> &gestures) {
            Studio studio;
            QMap<int, QByteArray> states{{0, stateOf(studio)}};
            for (const Gesture &gesture : gestures) {
                const int before = studio.stack().index();
                const bool isTravel = perform(studio, gesture, states);
                const int now = studio.stack().index();
                const QByteArray state = stateOf(studio);
                if (isTravel && states.contains(now))
                    RC_ASSERT(state == states[now]);
                // What was undone to paint something else can't come back.
                const int kept = gesture.kind == undoInStroke ? std::max(before - 1, 0) : before;
                while (!isTravel && !states.isEmpty() && states.lastKey() > kept)
                    states.remove(states.lastKey());
                states[now] = state;
                RC_ASSERT(studio.showsWhatIsStored());
            }
            studio.stack().setIndex(0);
            RC_ASSERT(stateOf(studio) == states[0]);
            RC_ASSERT(studio.showsWhatIsStored());
        }));
    }

private:
    static void chooseBrush(Studio &studio, int key)
    {
        if (key == 0)
            studio.chooseTool("Smoothen"_s);
        else
            studio.key(key);
    }

    static void selectLeftHalf(Studio &studio, int key)
    {
        if (key == 0)
            return;
        studio.key(key);
        if (key == Qt::Key_A) {
            studio.paint({{5, 5}});
            return;
        }
        for (const QPoint &corner : {QPoint(0, 0), QPoint(30, 0), QPoint(50, 5)})
            studio.paint({corner});
        studio.key(Qt::Key_Backspace);
        for (const QPoint &corner : {QPoint(30, 40), QPoint(0, 40), QPoint(0, 0)})
            studio.paint({corner});
    }

    static QByteArray stateOf(const Studio &studio)
    {
        return encode(studio.surface(0)) + encode(studio.surface(1));
    }

    /// True when it only goes along the undo steps.
    static bool perform(Studio &studio, const Gesture &gesture, QMap<int, QByteArray> &states)
    {
        const auto [kind, from, to] = gesture;
        constexpr int brushes[] = {Qt::Key_B, Qt::Key_Y, Qt::Key_S, Qt::Key_E, 0};
        constexpr Qt::KeyboardModifiers held[] = {{}, Qt::ShiftModifier, Qt::AltModifier};
        if (kind < 5) {
            chooseBrush(studio, brushes[kind]);
            studio.paint({from, to, from}, held[(from.x() + 8) % 2]);
        } else if (kind < 8) {
            studio.key(Qt::Key_A);
            studio.paint({from, to}, held[kind - 5]);
        } else if (kind < 10) {
            studio.key(Qt::Key_L);
            for (const QPoint &corner : {from, QPoint(to.x(), from.y()), to, from})
                studio.paint({corner}, held[kind - 8]);
        } else if (kind == 10) {
            studio.select(std::abs(from.x()) % 2);
        } else if (kind == undoInStroke) {
            studio.key(Qt::Key_B);
            studio.press(from);
            studio.key(Qt::Key_Z, Qt::ControlModifier);
            studio.moveTo(to);
            studio.release(to);
            return false;
        } else if (kind == 12) {
            studio.key(Qt::Key_B);
            studio.press(from);
            studio.select(std::abs(to.x()) % 2);
            studio.release(to);
        } else if (kind == 13) {
            const QByteArray state = stateOf(studio);
            RC_ASSERT(studio.openAgain());
            RC_ASSERT(stateOf(studio) == state);
            states.clear();
        } else if (kind == 14) {
            studio.key(Qt::Key_Y);
            studio.command("Fill"_s);
        } else {
            const bool isUndo = kind < 17;
            studio.key(Qt::Key_Z, Qt::ControlModifier | (isUndo ? held[0] : held[1]));
            return true;
        }
        return false;
    }
};

int main(int argc, char **argv)
{
    const QTemporaryDir home;
    QSettings::setPath(QSettings::NativeFormat, QSettings::UserScope, home.path());
    qputenv("RC_PARAMS", qEnvironmentVariable("RC_PARAMS", "max_success=25"_s).toUtf8());
    GApplication::prepare();
    GApplication application(argc, argv);
    TestPainting test;
    return QTest::qExec(&test, argc, argv);
}

#include "tst_Painting.moc"
