#include "base/GSettings.h"
#include "base/Resources.h"
#include "framework/GApplication.h"
#include "imaging/MaskedPaste.h"
#include "imaging/NormalEncoding.h"
#include "model/Body.h"
#include "model/NormalMapProcessor.h"
#include "model/Project.h"
#include "model/PropertyAngleImage.h"
#include "model/properties/PropertyListT.h"
#include "model/properties/PropertyT.h"
#include "preview/EditorGraphicsViewVesperine.h"
#include "preview/GLGraphicsLight.h"
#include "preview/NormalMapEditorScene.h"
#include "preview/SpriteItem.h"
#include "support/DialogScript.h"
#include "support/Documents.h"
#include "support/Gestures.h"
#include "support/PaintedSurface.h"
#include "support/Widgets.h"
#include "tools/PaintToolHeightBrush.h"
#include "ui/MainWindow.h"
#include "ui/NormalMapEditor.h"
#include "ui/ShapeTreeView.h"

#include <QMap>
#include <QPainter>
#include <QPushButton>
#include <QRadioButton>
#include <QSemaphore>
#include <QSettings>
#include <QTest>
#include <QThreadPool>
#include <QToolButton>

#include <rapidcheck.h>

#include <random>

namespace {

constexpr QSize spriteSize(60, 40);
constexpr QSize packedSize(160, 110); // large enough for undo steps to be packed
constexpr int undoInStroke = 11;      // a kind of gesture

/// Keeps all workers busy until it goes.
class HeldWorkers
{
public:
    HeldWorkers()
    {
        QThreadPool &pool = *QThreadPool::globalInstance();
        for (int i = 0; i < pool.maxThreadCount(); ++i)
            pool.start(QRunnable::create([this] {
                m_held.release();
                m_gate.acquire();
            }));
        m_held.acquire(pool.maxThreadCount());
    }
    ~HeldWorkers()
    {
        m_gate.release(QThreadPool::globalInstance()->maxThreadCount());
        QThreadPool::globalInstance()->waitForDone();
    }
    HeldWorkers(const HeldWorkers &) = delete;
    HeldWorkers &operator=(const HeldWorkers &) = delete;

private:
    QSemaphore m_held;
    QSemaphore m_gate;
};

/// The window with two sprites, a and b, of which the left halves are red, and a user at it.
class Studio
{
public:
    explicit Studio(const QSize &size = spriteSize)
    {
        QImage picture(size, QImage::Format_ARGB32);
        picture.fill(Qt::blue);
        QPainter(&picture).fillRect(0, 0, size.width() / 2, size.height(), Qt::red);
        QStringList paths;
        for (const QString &name : {"a.png"_s, "b.png"_s}) {
            paths.append(m_folder.path(name));
            picture.save(paths.last());
        }
        m_window.openOrAdd(paths);
        window().resize(900, 700);
        showActive(window());
        ready();
        stack().clear();
    }

    MainWindow &window() { return m_window; }
    NormalMapEditorScene &scene() const { return editor().scene(); }
    GUndoStack &stack() const { return m_window.project().undoStack(); }
    Body &body(int index) const
    {
        return static_cast<Body &>(*m_window.project().bodies().entries().at(index));
    }
    int bodyCount() const { return m_window.project().bodies().entries().size(); }
    AngleImage surface(int index = 0) const { return body(index).surface(); }
    QWidget &viewport() const { return *view().viewport(); }

    void ready()
    {
        editor().zoomToFit();
        scene().light().setPos(-900, -900); // in nobody's way
        select(0);
    }
    void select(int index)
    {
        auto &list = *m_window.findChild<ShapeTreeView *>();
        const QRect row = list.visualRect(list.model()->index(index, 0));
        QTest::mouseClick(list.viewport(), Qt::LeftButton, {}, row.center());
        view().setFocus();
    }
    /// Of the body that is selected, or of the first one.
    QPoint at(const QPoint &pixel) const
    {
        const Body *current = scene().currentBody();
        const QPointF place = scene().spriteItem(current ? current : &body(0))->pos();
        return view().mapFromScene(place + pixel + QPointF(0.5, 0.5));
    }
    void key(int key, Qt::KeyboardModifiers modifiers = {}) const
    {
        QTest::keyClick(&viewport(), Qt::Key(key), modifiers);
    }
    void press(const QPoint &pixel, Qt::KeyboardModifiers modifiers = {}) const
    {
        QTest::mousePress(&viewport(), Qt::LeftButton, modifiers, at(pixel));
    }
    void moveTo(const QPoint &pixel) const { dragTo(viewport(), at(pixel)); }
    void release(const QPoint &pixel, Qt::KeyboardModifiers modifiers = {}) const
    {
        QTest::mouseRelease(&viewport(), Qt::LeftButton, modifiers, at(pixel));
    }
    /// While the left button is held.
    void clickRight(const QPoint &pixel) const
    {
        for (const auto type : {QEvent::MouseButtonPress, QEvent::MouseButtonRelease}) {
            const bool isPress = type == QEvent::MouseButtonPress;
            const Qt::MouseButtons held =
                isPress ? Qt::LeftButton | Qt::RightButton : Qt::LeftButton;
            const QPoint place = at(pixel);
            QMouseEvent event(
                type, place, viewport().mapToGlobal(place), Qt::RightButton, held, {});
            QCoreApplication::sendEvent(&viewport(), &event);
        }
    }
    void paint(const QVector<QPoint> &pixels, Qt::KeyboardModifiers modifiers = {}) const
    {
        press(pixels.first(), modifiers);
        for (int i = 1; i < pixels.size(); ++i)
            moveTo(pixels[i]);
        release(pixels.last(), modifiers);
    }
    /// A command of the active tool's panel.
    void command(const char *name)
    {
        for (auto *button : m_window.findChildren<QPushButton *>(QLatin1String(name))) {
            if (button->isVisible())
                button->click();
        }
    }
    bool openAgain()
    {
        const QString path = m_folder.path("p.vep"_s);
        DialogScript script;
        if (m_window.project().filename().value().path().isEmpty())
            script.then(DialogScript::chooseFile(path));
        key(Qt::Key_S, Qt::ControlModifier);
        if (!script.isDone() || !m_window.openPath(path))
            return false;
        ready();
        return true;
    }

    /// What is shown is what is stored.
    bool showsWhatIsStored() const
    {
        for (int index = 0; index < bodyCount(); ++index) {
            NormalMapProcessor &processor = scene().spriteItem(&body(index))->processor();
            processor.waitForIdle();
            QImage normals = flatNormalMap(surface(index).size());
            toNormalMap(surface(index), normals);
            if (normals != processor.normalMap())
                return false;
        }
        return true;
    }

private:
    NormalMapEditor &editor() const { return *m_window.findChild<NormalMapEditor *>(); }
    EditorGraphicsViewVesperine &view() const
    {
        return *m_window.findChild<EditorGraphicsViewVesperine *>();
    }

    Folder m_folder;
    MainWindow m_window{*static_cast<GApplication *>(qApp)};
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
        return gen::construct<Gesture>(gen::inRange(0, 26), pixel, pixel);
    }
};

} // namespace rc

class TestPainting : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase() { initialiseResources(); }
    void init() { static_cast<GApplication *>(qApp)->settings().clear(); }

    void eachBrushMakesAStepAGesture_data()
    {
        QTest::addColumn<int>("key");
        QTest::addColumn<QString>("text");
        QTest::addColumn<QByteArray>("command");
        QTest::addColumn<QString>("commandText");
        QTest::newRow("height") << int(Qt::Key_B) << "Height"_s << QByteArray() << QString();
        QTest::newRow("angle") << int(Qt::Key_Y) << "Angle"_s << QByteArray("Fill") << "Fill"_s;
        QTest::newRow("structure")
            << int(Qt::Key_S) << "Structure"_s << QByteArray("FillAll") << "Add structure"_s;
        QTest::newRow("smoothen") << 0 << "Smoothen"_s << QByteArray("SmoothenAll") << "Blur all"_s;
        QTest::newRow("erase") << int(Qt::Key_E) << "Erase"_s << QByteArray("EraseAll")
                               << "Erase all"_s;
    }

    void eachBrushMakesAStepAGesture()
    {
        QFETCH(int, key);
        QFETCH(QString, text);
        QFETCH(QByteArray, command);
        QFETCH(QString, commandText);
        Studio studio;
        studio.key(Qt::Key_B);
        studio.paint({{20, 20}, {30, 20}});
        chooseBrush(studio, key);
        QThreadPool::globalInstance()->waitForDone();
        QCoreApplication::processEvents();
        const AngleImage before = studio.surface();
        studio.paint({{10, 10}, {40, 20}, {20, 25}});
        const AngleImage after = studio.surface();
        const bool isFlatTurnedFlat = key == Qt::Key_Y && before == after;
        QVERIFY(!(before == after) || isFlatTurnedFlat);
        QCOMPARE(studio.stack().undoText(), text);
        studio.key(Qt::Key_Z, Qt::ControlModifier);
        QCOMPARE(studio.surface(), before);
        QVERIFY(studio.showsWhatIsStored());
        studio.key(Qt::Key_Z, Qt::ControlModifier | Qt::ShiftModifier);
        QCOMPARE(studio.surface(), after);
        QVERIFY(studio.showsWhatIsStored());
        if (command.isEmpty())
            return;
        const int steps = studio.stack().index();
        studio.command(command.constData());
        QCOMPARE(studio.stack().index(), steps + 1);
        QCOMPARE(studio.stack().undoText(), commandText);
        studio.key(Qt::Key_Z, Qt::ControlModifier);
        QCOMPARE(studio.surface(), after);
    }

    void aScribbleIsTheSameAsInOneGo()
    {
        Studio studio;
        studio.key(Qt::Key_B);
        QVector<QPoint> points;
        QVector<QPointF> places;
        std::mt19937 random(1);
        for (int i = 0; i < 300; ++i) {
            points.append({int(random() % 80) - 10, int(random() % 60) - 10});
            places.append(points.last());
        }
        PaintToolHeightBrush brush;
        PaintedSurface inOneGo(brush, studio.surface());
        inOneGo.paint(places);
        studio.paint(points);
        QCOMPARE(studio.surface(), inOneGo.stored);
        QVERIFY(studio.showsWhatIsStored());
        // A straight line goes on from its end.
        inOneGo.paint({{3, 3}}, Qt::ShiftModifier);
        studio.paint({{3, 3}}, Qt::ShiftModifier);
        QCOMPARE(studio.surface(), inOneGo.stored);
    }

    void selectedPixelsConfineStrokes()
    {
        Studio studio;
        PaintToolHeightBrush brush;
        const AngleImage flat = studio.surface();
        PaintedSurface everywhere(brush, flat);
        everywhere.paint({{10, 10}, {50, 30}});
        studio.key(Qt::Key_A);
        studio.paint({{5, 5}});
        studio.key(Qt::Key_B);
        studio.press({10, 10});
        studio.moveTo({50, 30});
        AngleImage left = flat;
        copyRegion(left, {}, everywhere.stored, QRect(0, 0, 30, 40));
        studio.scene().spriteItem(&studio.body(0))->processor().waitForIdle();
        AngleImage twice;
        {
            // The next stroke begins before what the first has left is computed.
            const HeldWorkers held;
            studio.release({50, 30});
            QCOMPARE(studio.surface(), left);
            everywhere.replace(left);
            everywhere.paint({{40, 10}, {20, 35}});
            twice = left;
            copyRegion(twice, {}, everywhere.stored, QRect(0, 0, 30, 40));
            studio.press({40, 10});
            studio.moveTo({20, 35});
        }
        studio.release({20, 35});
        QCOMPARE(studio.surface(), twice);
        QVERIFY(studio.showsWhatIsStored());
        QCOMPARE(studio.stack().index(), 3);
    }

    void wandAndLasso()
    {
        Studio studio;
        const auto filled = [&studio] {
            studio.key(Qt::Key_S);
            QThreadPool::globalInstance()->waitForDone();
            studio.command("FillAll");
            QRect changed;
            const AngleImage surface = studio.surface();
            for (int y = 0; y < surface.height(); ++y)
                for (int x = 0; x < surface.width(); ++x)
                    if (!(surface.row(y)[x] == AngleImage::Pixel()))
                        changed |= QRect(x, y, 1, 1);
            studio.key(Qt::Key_Z, Qt::ControlModifier);
            return changed;
        };
        const QRect leftHalf(0, 0, 30, 40);
        studio.key(Qt::Key_A);
        studio.paint({{5, 5}});
        QVERIFY(leftHalf.contains(filled()));
        studio.key(Qt::Key_A);
        studio.paint({{50, 5}}, Qt::ShiftModifier);
        QVERIFY(filled().width() > 50);
        studio.key(Qt::Key_A);
        studio.paint({{5, 5}}, Qt::AltModifier);
        QVERIFY(filled().left() >= 30);
        QCOMPARE(studio.stack().index(), 3);

        // The corner at (50, 5) is taken back; what Escape ends leaves the selection alone.
        studio.key(Qt::Key_L);
        const int steps = studio.stack().index();
        for (const QPoint &corner : {QPoint(5, 5), QPoint(50, 5)})
            studio.paint({corner});
        studio.key(Qt::Key_Backspace);
        for (const QPoint &corner : {QPoint(20, 5), QPoint(20, 30), QPoint(6, 6)})
            studio.paint({corner});
        const QRect triangle = filled();
        QVERIFY(!triangle.isEmpty() && QRect(5, 5, 16, 26).contains(triangle));
        QCOMPARE(studio.stack().index(), steps + 2);
        studio.key(Qt::Key_L);
        for (const QPoint &corner : {QPoint(5, 5), QPoint(50, 5)})
            studio.paint({corner}, Qt::ShiftModifier);
        studio.key(Qt::Key_Escape);
        QCOMPARE(filled(), triangle);
    }

    void whatHappensInTheMiddleOfAStroke()
    {
        Studio studio;
        studio.key(Qt::Key_B);
        studio.press({20, 20});
        studio.key(Qt::Key_Escape);
        studio.release({20, 20});
        QCOMPARE(studio.stack().index(), 0);
        QVERIFY(studio.showsWhatIsStored());

        studio.press({20, 20});
        studio.key(Qt::Key_E); // another tool
        QCOMPARE(studio.stack().undoText(), "Height"_s);
        const AngleImage dab = studio.surface();
        studio.release({20, 20});
        QCOMPARE(studio.stack().index(), 1);

        studio.key(Qt::Key_B);
        studio.press({40, 20});
        studio.key(Qt::Key_Z, Qt::ControlModifier);
        QVERIFY(studio.showsWhatIsStored());
        studio.moveTo({45, 20});
        studio.release({45, 20});
        QCOMPARE(studio.stack().index(), 1);
        QVERIFY(!(studio.surface() == dab));

        const AngleImage before = studio.surface();
        const int steps = studio.stack().index();
        studio.press({10, 30});
        studio.select(1);
        QCOMPARE(studio.stack().index(), steps + 2); // the stroke, and the selection
        QVERIFY(!(studio.surface(0) == before));
        QVERIFY(studio.surface(1) == AngleImage(60, 40));
        studio.release({10, 30});
        QVERIFY(studio.showsWhatIsStored());
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

    void aDragOfTheWandThatReturnsIsNoStep()
    {
        Studio studio;
        studio.key(Qt::Key_A);
        studio.paint({{5, 5}});
        QCOMPARE(studio.stack().index(), 1);
        studio.paint({{5, 5}, {50, 5}, {5, 5}});
        QCOMPARE(studio.stack().index(), 1);
        studio.paint({{5, 5}, {50, 5}});
        QCOMPARE(studio.stack().index(), 2);
    }

    void directionTogglesOnlyWhileTheBrushIsActive()
    {
        Studio studio;
        const auto *down = studio.window().findChild<QRadioButton *>("DirectionDown"_s);
        studio.key(Qt::Key_E);
        studio.key(Qt::Key_X);
        QVERIFY(!down->isChecked());
        studio.key(Qt::Key_B);
        studio.key(Qt::Key_X);
        QVERIFY(down->isChecked());
    }

    void altPicksTheAngle()
    {
        Studio studio;
        studio.key(Qt::Key_B);
        studio.paint({{20, 20}});
        studio.key(Qt::Key_Y);
        const AngleImage before = studio.surface();
        studio.paint({{26, 20}}, Qt::AltModifier);
        QCOMPARE(studio.surface(), before);
        studio.command("Fill");
        const AngleImage filled = studio.surface();
        QVERIFY(!(before.row(20)[26] == AngleImage::Pixel()));
        QCOMPARE(filled.row(3)[50], before.row(20)[26]);
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
        for (auto *button : studio.window().findChildren<QToolButton *>()) {
            if (key == 0 && button->text() == "Smoothen"_s)
                button->click();
        }
        if (key != 0)
            studio.key(key);
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
        } else if (kind == 14) {
            studio.key(Qt::Key_Y);
            studio.command("Fill");
        } else if (kind == 15) {
            chooseBrush(studio, 0);
            studio.command("SmoothenAll");
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
    const QTemporaryDir home;
    QSettings::setPath(QSettings::NativeFormat, QSettings::UserScope, home.path());
    qputenv("RC_PARAMS", qEnvironmentVariable("RC_PARAMS", "max_success=25"_s).toUtf8());
    GApplication::prepare();
    GApplication application(argc, argv);
    TestPainting test;
    return QTest::qExec(&test, argc, argv);
}

#include "tst_Painting.moc"
