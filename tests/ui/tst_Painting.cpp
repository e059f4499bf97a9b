#include "imaging/MaskedPaste.h"
#include "model/Body.h"
#include "model/PropertyAngleImage.h"
#include "preview/EditorGraphicsViewVesperine.h"
#include "preview/NormalMapEditorScene.h"
#include "preview/SpriteItem.h"
#include "support/PaintCounter.h"
#include "support/PaintedSurface.h"
#include "support/Studio.h"
#include "support/Widgets.h"
#include "support/WindowTest.h"
#include "tools/PaintToolHeightBrush.h"
#include "tools/ToolPanel.h"

#include <QAction>
#include <QMap>
#include <QProcess>
#include <QThreadPool>

#include <rapidcheck.h>

#include <random>

namespace {

constexpr QSize packedSize(160, 110); // large enough for undo steps to be packed
constexpr int undoInStroke = 11;      // a kind of gesture

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
        return gen::construct<Gesture>(gen::inRange(0, 26), pixel, pixel);
    }
};

} // namespace rc

class TestPainting : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase()
    {
        qputenv("RC_PARAMS", qEnvironmentVariable("RC_PARAMS", "max_success=25"_s).toUtf8());
    }
    void init() { application().settings().clear(); }

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

    // While the program is busy, as it is during a repaint. Events made here would not wait in the
    // X server's queue, which is where they got lost.
    void aFastStrokePaintsEveryMove()
    {
        constexpr int moves = 200;
        Studio studio({220, 60});
        studio.body(0).paintedNormalMap().setAngleImage(AngleImage(220, 60, 7), "import"_s);
        studio.key(Qt::Key_E);
        const QMap<QString, int> small{{"BrushSize"_s, 3}, {"Hardness"_s, 100}};
        for (const ToolSetting &setting : studio.scene().tool()->settings()) {
            if (small.contains(setting.key))
                setting.write(small[setting.key]);
        }
        QStringList arguments;
        const auto goTo = [&](const QPoint &pixel) {
            const QPointF place = studio.viewport().mapToGlobal(studio.at(pixel));
            const QPoint real = (place * studio.viewport().devicePixelRatioF()).toPoint();
            arguments += {"mousemove"_s, QString::number(real.x()), QString::number(real.y())};
        };
        const auto corner = [](int move) { return QPoint(10 + move, move % 2 == 0 ? 15 : 45); };
        goTo(corner(0));
        arguments += {"mousedown"_s, "1"_s};
        for (int move = 1; move <= moves; ++move)
            goTo(corner(move));
        arguments += {"mouseup"_s, "1"_s};
        const PaintCounter frames(studio.viewport());
        QCOMPARE(QProcess::execute("xdotool"_s, arguments), 0);
        QTRY_COMPARE(studio.stack().undoText(), "Erase"_s);
        for (int move = 0; move <= moves; ++move) {
            const QPoint tip = corner(move);
            QVERIFY2(studio.surface().row(tip.y())[tip.x()] == AngleImage::Pixel(),
                     qPrintable("move %1 is not painted"_s.arg(move)));
        }
        QVERIFY2(frames.count < moves / 10, qPrintable(QString::number(frames.count)));
    }

    void aSecondButtonDoesNotLoseTheStroke()
    {
        Studio studio;
        studio.key(Qt::Key_B);
        studio.press({20, 20});
        studio.clickRight({22, 20});
        studio.select(1);
        QCOMPARE(studio.stack().text(0), "Height"_s);
        QVERIFY(!(studio.surface(0) == AngleImage(60, 40)));
    }

    void aStepFromElsewhereLiesAboveTheStroke()
    {
        Studio studio;
        const AngleImage flat = studio.surface();
        studio.key(Qt::Key_B);
        studio.press({20, 20});
        studio.body(0).paintedNormalMap().setAngleImage(AngleImage(60, 40, 7), "import"_s);
        const AngleImage imported = studio.surface();
        studio.release({20, 20});
        QCOMPARE(studio.stack().count(), 2);
        studio.stack().undo();
        const AngleImage stroke = studio.surface();
        QVERIFY(!(stroke == flat) && !(stroke == imported));
        studio.stack().undo();
        QCOMPARE(studio.surface(), flat);
        studio.stack().setIndex(2);
        QCOMPARE(studio.surface(), imported);
    }

    void aSelectionUndoneInAStrokeConfinesNothing()
    {
        Studio studio;
        studio.key(Qt::Key_B);
        studio.paint({{20, 20}, {50, 20}, {56, 20}});
        const AngleImage everywhere = studio.surface();
        studio.key(Qt::Key_Z, Qt::ControlModifier);
        studio.key(Qt::Key_A);
        studio.paint({{5, 5}});
        studio.key(Qt::Key_B);
        studio.press({20, 20});
        studio.moveTo({50, 20});
        studio.key(Qt::Key_Z, Qt::ControlModifier);
        studio.moveTo({56, 20});
        studio.release({56, 20});
        QCOMPARE(studio.surface(), everywhere);
        QVERIFY(studio.showsWhatIsStored());
    }

    void aDragOfTheWandIsOneStep()
    {
        Studio studio;
        studio.key(Qt::Key_A);
        studio.paint({{5, 5}});
        QCOMPARE(studio.stack().index(), 1);
        studio.paint({{5, 5}, {50, 5}, {5, 5}}); // selects what was selected
        QCOMPARE(studio.stack().index(), 1);
        studio.paint({{5, 5}, {50, 5}, {5, 5}, {50, 5}});
        QCOMPARE(studio.stack().index(), 2);
    }

    void undoTakesBackTheCornersOfAnOpenLasso()
    {
        Studio studio;
        auto &window = *studio.view().window();
        const auto *undo = window.findChild<QAction *>("undo"_s);
        const auto *redo = window.findChild<QAction *>("redo"_s);
        const auto isOpen = [undo] { return undo->text() == "Remove last corner"_s; };
        const auto hasSelection = [&studio] {
            return studio.scene().spriteItem(&studio.body(0))->hasSelection();
        };
        studio.key(Qt::Key_L);
        studio.paint({{10, 5}}, Qt::ShiftModifier); // which is no step
        QVERIFY(isOpen());
        studio.chooseTool("Undo");
        QVERIFY(!isOpen() && !undo->isEnabled());

        studio.key(Qt::Key_A);
        studio.paint({{5, 5}});
        studio.paint({{50, 5}});
        studio.key(Qt::Key_Z, Qt::ControlModifier);
        studio.key(Qt::Key_L);
        for (const QPoint &corner : {QPoint(40, 5), QPoint(55, 5), QPoint(20, 20)})
            studio.paint({corner}, Qt::ShiftModifier);
        QVERIFY(isOpen() && !redo->isEnabled());
        for (const int left : {2, 1, 0}) {
            studio.key(Qt::Key_Z, Qt::ControlModifier);
            QCOMPARE(isOpen(), left > 0);
        }
        QCOMPARE(studio.stack().index(), 1);
        QVERIFY(redo->isEnabled());
        // One that took the selection away brings it back in the end.
        studio.paint({{3, 3}});
        studio.key(Qt::Key_Z, Qt::ControlModifier);
        QVERIFY(!isOpen() && !hasSelection());
        studio.key(Qt::Key_Z, Qt::ControlModifier);
        QVERIFY(hasSelection());
    }

    // Whatever is done can be undone and done again, through saving and loading, bit for bit.
    void anySequenceOfGestures()
    {
        QVERIFY(rc::check("undo gives back what was", [](const std::vector<Gesture> &gestures) {
            Studio studio(packedSize);
            QMap<int, QByteArray> states{{0, stateOf(studio)}};
            for (const Gesture &gesture : gestures) {
                const int before = studio.stack().index();
                const bool isTravel = perform(studio, gesture, states);
                const int now = studio.stack().index();
                const QByteArray state = stateOf(studio);
                const bool isKnown = isTravel || (now == before && gesture.kind != undoInStroke);
                if (isKnown && states.contains(now))
                    RC_ASSERT(state == states[now]);
                // What was undone to paint something else can't come back.
                const int kept = gesture.kind == undoInStroke ? std::max(before - 1, 0) : before;
                while (!isTravel && !states.isEmpty() && states.lastKey() > kept)
                    states.erase(std::prev(states.end()));
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
            studio.chooseTool("Smoothen");
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
        QByteArray state;
        for (int index = 0; index < studio.bodyCount(); ++index)
            state += encode(studio.surface(index));
        return state;
    }

    static constexpr int brushes[] = {Qt::Key_B, Qt::Key_Y, Qt::Key_S, Qt::Key_E, 0};
    static constexpr Qt::KeyboardModifiers held[] = {{}, Qt::ShiftModifier, Qt::AltModifier};

    /// A stroke with something else in the middle of it; false when the kind is none.
    static bool performInStroke(Studio &studio, const Gesture &gesture)
    {
        const auto [kind, from, to] = gesture;
        const bool isKnown = kind == undoInStroke || kind == 12 || kind == 17 || kind == 19 ||
                             (kind == 20 && studio.bodyCount() > 1);
        if (!isKnown)
            return false;
        chooseBrush(studio, brushes[kind == undoInStroke ? 0 : std::abs(to.y()) % 5]);
        studio.press(from, held[kind == 17 ? std::abs(to.x()) % 2 : 0]);
        if (kind == undoInStroke) {
            studio.key(Qt::Key_Z, Qt::ControlModifier);
            studio.moveTo(to);
        } else if (kind == 12) {
            studio.select(std::abs(to.x()) % studio.bodyCount());
        } else if (kind == 17) {
            studio.moveTo(to);
            studio.key(Qt::Key_Escape);
        } else if (kind == 19) {
            studio.clickRight(to);
            studio.moveTo(to);
            studio.key(Qt::Key_V);
        } else {
            studio.key(Qt::Key_Delete);
        }
        studio.release(to);
        if (kind == 20)
            studio.select(0);
        return true;
    }

    /// True when it only goes along the undo steps.
    static bool perform(Studio &studio, const Gesture &gesture, QMap<int, QByteArray> &states)
    {
        const auto [kind, from, to] = gesture;
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
            studio.select(std::abs(from.x()) % studio.bodyCount());
        } else if (kind == 13) {
            const QByteArray state = stateOf(studio);
            RC_ASSERT(studio.openAgain());
            RC_ASSERT(stateOf(studio) == state);
            states.clear();
        } else if (kind == 14 || kind == 15) {
            chooseBrush(studio, kind == 14 ? int(Qt::Key_Y) : 0);
            // With no sprite selected no tool comes up.
            if (studio.scene().currentBody())
                studio.command(kind == 14 ? "Fill" : "SmoothenAll");
        } else if (kind == 16) { // left open
            studio.key(Qt::Key_L);
            studio.paint({from}, held[std::abs(to.x()) % 2]);
        } else if (kind == 18) {
            const bool inverts = from.x() % 2 == 0;
            studio.key(inverts ? Qt::Key_I : Qt::Key_D,
                       inverts ? Qt::ShiftModifier | Qt::ControlModifier : Qt::ControlModifier);
        } else if (!performInStroke(studio, gesture)) {
            const bool isUndo = kind < 24;
            studio.key(Qt::Key_Z, Qt::ControlModifier | (isUndo ? held[0] : held[1]));
            return true;
        }
        return false;
    }
};

int main(int argc, char **argv)
{
    return runWindowTest<TestPainting>(argc, argv);
}

#include "tst_Painting.moc"
