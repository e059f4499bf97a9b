#include "base/Resources.h"
#include "framework/GDoubleEdit.h"
#include "framework/GIntEdit.h"
#include "imaging/CircularBrush.h"
#include "imaging/HeightsToAngles.h"
#include "imaging/SlopeArithmetic.h"
#include "imaging/StrokePainting.h"
#include "support/PaintedSurface.h"
#include "support/Widgets.h"
#include "tools/PaintToolHeightBrush.h"

#include <QComboBox>
#include <QRadioButton>
#include <QTest>
#include <QToolButton>
#include <QVector2D>

namespace {

using Points = QVector<QPointF>;

void set(const PaintTool &tool, const char *name, int value)
{
    control<GIntEdit>(tool, name).setValue(value);
}

QVector2D pixel(const QPointF &point)
{
    return {float(std::floor(point.x())), float(std::floor(point.y()))};
}

/// What strokes leave of a surface, each computed in one go over the whole of it.
AngleImage raisedInOneGo(AngleImage result, const FloatBrushFunc &brush, const Points &points)
{
    FloatImage heights(result.width(), result.height());
    for (int i = 0; i < points.size(); ++i) {
        const QVector2D from = pixel(points[std::max(i - 1, 0)]);
        const auto paint = brush.amplitude > 0 ? paintSegmentMax : paintSegmentMin;
        paint(brush, from, pixel(points[i]), heights);
    }
    AngleImage slopes;
    heightsToAngles(heights, slopes);
    addSlopes(result, {}, {}, slopes);
    return result;
}

} // namespace

class TestBrushes : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase() { initialiseResources(); }

    void heightStrokes_data()
    {
        QTest::addColumn<int>("size");
        QTest::addColumn<int>("hardness");
        QTest::addColumn<int>("contour");
        QTest::addColumn<bool>("isUp");
        QTest::addColumn<Points>("points");
        const Points scribble{{20.9, 30.2}, {60, 10}, {22, 31}, {-9.5, 40}, {95, 69.9}};
        QTest::newRow("a dab") << 30 << 0 << 0 << true << Points{{40, 30}};
        QTest::newRow("floored beside the image") << 30 << 0 << 0 << true << Points{{-0.5, -0.5}};
        QTest::newRow("over itself and the borders") << 17 << 50 << 1 << true << scribble;
        QTest::newRow("down") << 30 << 100 << 2 << false << scribble;
        QTest::newRow("a pixel") << 1 << 100 << 0 << true << scribble;
        QTest::newRow("larger than the image") << 500 << 0 << 2 << false << scribble;
    }

    void heightStrokes()
    {
        QFETCH(int, size);
        QFETCH(int, hardness);
        QFETCH(int, contour);
        QFETCH(bool, isUp);
        QFETCH(Points, points);
        PaintToolHeightBrush tool;
        set(tool, "BrushSize", size);
        set(tool, "Hardness", hardness);
        control<GDoubleEdit>(tool, "Height").setValue(35.0);
        control<QWidget>(tool, "Contour").findChildren<QToolButton *>().at(contour)->click();
        control<QRadioButton>(tool, isUp ? "DirectionUp" : "DirectionDown").setChecked(true);

        const std::array<std::shared_ptr<FloatBrushFunc>, 3> contours{
            std::make_shared<CircularBrushCos>(),
            std::make_shared<CircularBrushRamp>(),
            std::make_shared<CircularBrushCircle>()};
        FloatBrushFunc &brush = *contours.at(size_t(contour));
        brush.sizeX = brush.sizeY = size;
        brush.amplitude = float(size * 0.5 * (isUp ? 35.0 : -35.0) / 100.0);
        brush.softness = float(100 - hardness) / 100.0F;
        brush.update();
        const AngleImage start = someSurface();
        PaintedSurface surface(tool, start);
        surface.paint(points);
        const AngleImage once = raisedInOneGo(start, brush, points);
        QCOMPARE(surface.stored, once);
        QCOMPARE(surface.commits, QStringList{"Height"_s});
        // The next stroke adds to it.
        surface.paint({{40, 40}, {44, 40}});
        QCOMPARE(surface.stored, raisedInOneGo(once, brush, {{40, 40}, {44, 40}}));
        // What is beside the image is not announced.
        const int announced = surface.areas.size();
        surface.paint({{-900, -900}, {-901, -900}});
        QCOMPARE(surface.areas.size(), announced);
    }

    void endsOfAStroke()
    {
        PaintToolHeightBrush tool;
        const AngleImage start = someSurface();
        PaintedSurface surface(tool, start);
        surface.press({20, 20});
        surface.moveTo({60, 50});
        QVERIFY(!(surface.shown == start));
        tool.keyPress(Qt::Key_Escape, {});
        QCOMPARE(surface.shown, start);
        surface.moveTo({30, 20});
        surface.release({30, 20});
        QVERIFY(surface.commits.isEmpty());
        QCOMPARE(surface.shown, start);

        // After an undo in between it goes on from the image that is there then.
        const AngleImage flat(90, 70);
        surface.press({20, 20});
        surface.replace(flat);
        surface.moveTo({25, 20});
        surface.release({25, 20});
        const AngleImage undone = surface.stored;
        surface.replace(flat);
        surface.paint({{20, 20}, {25, 20}});
        QCOMPARE(undone, surface.stored);
    }

    // Each move is painted, even when they come faster than results can be computed.
    void fastMovesShareAnnouncements()
    {
        PaintToolHeightBrush tool;
        const AngleImage start = someSurface();
        Points points;
        for (int i = 0; i < 300; ++i)
            points.append({10.0 + i % 70, i % 2 == 0 ? 20.0 : 50.0});
        PaintedSurface fast(tool, start);
        fast.paint(points);
        QVERIFY2(fast.areas.size() < points.size() / 2,
                 qPrintable(QString::number(fast.areas.size())));
        PaintedSurface slow(tool, start);
        slow.press(points[0]);
        for (const QPointF &point : points) {
            const int before = slow.areas.size();
            slow.moveTo(point);
            if (point == points[3])
                QTRY_COMPARE(slow.areas.size(), before + 1); // without another move
        }
        slow.release(points.last());
        QCOMPARE(slow.stored, fast.stored);

        // What waits is dropped with a stroke that is cancelled.
        slow.press({20, 20});
        slow.moveTo({60, 50});
        slow.moveTo({20, 50});
        tool.keyPress(Qt::Key_Escape, {});
        QTest::qWait(20);
        QCOMPARE(slow.shown, fast.stored);
    }

    void linesByShift()
    {
        PaintToolHeightBrush tool;
        set(tool, "BrushSize", 20);
        const AngleImage flat(90, 70);
        PaintedSurface surface(tool, flat);
        surface.paint({{20, 20}, {40, 20}, {40, 50}});
        const AngleImage inOneStroke = surface.stored;
        surface.replace(flat);
        // No joint is seen, and a line is a step of its own.
        surface.paint({{20, 20}, {40, 20}}, Qt::ShiftModifier);
        surface.paint({{40, 50}}, Qt::ShiftModifier);
        QCOMPARE(surface.stored, inOneStroke);
        QCOMPARE(surface.commits.size(), 3);

        // Painted otherwise it is a stroke over the other one.
        surface.replace(flat);
        surface.paint({{20, 20}, {40, 20}});
        const AngleImage first = surface.stored;
        set(tool, "BrushSize", 8);
        surface.paint({{40, 50}}, Qt::ShiftModifier);
        const AngleImage both = surface.stored;
        surface.replace(first);
        surface.paint({{40, 20}, {40, 50}});
        QCOMPARE(both, surface.stored);

        // What it would go on from is taken back with it.
        surface.replace(flat);
        surface.paint({{20, 20}});
        const AngleImage dab = surface.stored;
        surface.press({60, 20}, Qt::ShiftModifier);
        tool.keyPress(Qt::Key_Escape, Qt::ShiftModifier);
        QCOMPARE(surface.shown, dab);
    }

    void penStrokes()
    {
        PaintToolHeightBrush tool;
        set(tool, "BrushSize", 40);
        const AngleImage flat(90, 70);
        const auto dab = [&](double pressure, bool isEraser) {
            PaintedSurface surface(tool, isEraser ? someSurface() : flat);
            tool.mousePress({{40, 30}, pressure, isEraser, Qt::LeftButton, Qt::LeftButton, {}});
            tool.mouseRelease({{40, 30}, 0.0, isEraser, {}, Qt::LeftButton, {}});
            return surface.stored;
        };
        auto &use = control<QComboBox>(tool, "PenPressure");
        use.setCurrentText("Height"_s);
        const AngleImage half = dab(0.5, false);
        const AngleImage whole = dab(1.0, false);
        control<GDoubleEdit>(tool, "Height").setValue(5.0);
        QCOMPARE(dab(1.0, false), half);
        use.setCurrentText("Off"_s);
        QCOMPARE(dab(0.25, false), half);
        use.setCurrentText("Size"_s);
        const AngleImage small = dab(0.5, false);
        set(tool, "BrushSize", 20);
        QCOMPARE(dab(1.0, false), small);
        QVERIFY(!(small == half));

        set(tool, "Hardness", 100);
        const AngleImage erased = dab(1.0, true);
        QCOMPARE(erased.row(30)[40], AngleImage::Pixel());
        QCOMPARE(erased.row(30)[51], someSurface().row(30)[51]);
    }
};

QTEST_MAIN(TestBrushes)
#include "tst_Brushes.moc"
