#include "base/Resources.h"
#include "framework/GIntEdit.h"
#include "imaging/CircularBrush.h"
#include "imaging/SlopeArithmetic.h"
#include "imaging/StrokePainting.h"
#include "support/PaintedSurface.h"
#include "support/Widgets.h"
#include "tools/PaintToolAngleBrush.h"
#include "tools/PaintToolEraser.h"

#include <QPushButton>
#include <QTest>
#include <QVector2D>

namespace {

constexpr AngleImage::Pixel steep{700, -300};

/// Whose cell at (5, 6) is steep.
AngleImage withSteepCell()
{
    AngleImage surface = someSurface();
    surface.row(6)[5] = steep;
    return surface;
}

AngleImage blended(AngleImage surface, const FloatImage &weights, AngleImage::Pixel slope)
{
    blendSlope(surface, weights, slope);
    return surface;
}

/// What a scribble through (20, 20), (40, 25) and back turns, in one go.
AngleImage scribbled(const AngleImage &surface, AngleImage::Pixel slope)
{
    CircularBrushCos brush;
    brush.sizeX = brush.sizeY = 22;
    brush.softness = 0.7F;
    brush.amplitude = 0.5F;
    brush.update();
    FloatImage coverage(surface.width(), surface.height());
    paintSegmentMax(brush, QVector2D(20, 20), QVector2D(40, 25), coverage);
    return blended(surface, coverage, slope);
}

void setBrush(const PaintTool &tool)
{
    control<GIntEdit>(tool, "BrushSize").setValue(22);
    control<GIntEdit>(tool, "Hardness").setValue(30);
    control<GIntEdit>(tool, "Opacity").setValue(50);
}

} // namespace

class TestAngleTools : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase() { initialiseResources(); }

    void strokesKeepTheirAngle()
    {
        const AngleImage start = withSteepCell();
        PaintToolAngleBrush tool;
        setBrush(tool);
        PaintedSurface surface(tool, start);
        surface.paint({{5.5, 6.5}}, Qt::AltModifier);
        surface.press({20, 20});
        surface.moveTo({40, 25});
        surface.moveTo({0, 0}, Qt::AltModifier); // picks for the next stroke
        surface.moveTo({20, 20});
        surface.release({0, 0}, Qt::AltModifier);
        QCOMPARE(surface.stored, scribbled(start, steep));
        QCOMPARE(surface.commits, QStringList{"Angle"_s});

        // An undo takes back what was painted, not the angle.
        surface.replace(start);
        surface.paint({{20, 20}, {40, 25}});
        const AngleImage other = scribbled(start, start.row(0)[0]);
        QCOMPARE(surface.stored, other);
        // A line by Shift does not go on from a stroke of another angle.
        surface.replace(start);
        surface.paint({{20, 20}});
        const AngleImage dab = surface.stored;
        surface.paint({{5, 6}}, Qt::AltModifier);
        surface.paint({{40, 25}}, Qt::ShiftModifier);
        QCOMPARE(surface.stored, scribbled(dab, steep));
    }

    void theSwitchPicksOnce()
    {
        const AngleImage start = withSteepCell();
        PaintToolAngleBrush tool;
        setBrush(tool);
        PaintedSurface surface(tool, start);
        auto &pick = control<QPushButton>(tool, "Pick");
        pick.click();
        tool.keyPress(Qt::Key_Escape, {});
        QVERIFY(!pick.isChecked());
        pick.click();
        surface.paint({{-5, 6}}); // beside the sprite
        QVERIFY(pick.isChecked());
        // A stroke that Shift has started goes on without it.
        surface.press({20, 20}, Qt::ShiftModifier);
        surface.moveTo({5, 6});
        surface.moveTo({40, 25});
        surface.release({40, 25});
        QVERIFY(pick.isChecked());
        const AngleImage stroke = surface.stored;
        QVERIFY(!(stroke == start));
        pick.click();
        surface.replace(start);
        surface.paint({{20, 20}, {5, 6}, {40, 25}});
        QCOMPARE(surface.stored, stroke);
        surface.replace(start);
        pick.click();
        surface.paint({{30, 6}, {5, 6}});
        QCOMPARE(surface.stored, start);
        QVERIFY(!pick.isChecked());
        surface.paint({{20, 20}, {40, 25}});
        QCOMPARE(surface.stored, scribbled(start, steep));
    }

    void strokesAndWholeSurfaces()
    {
        PaintToolAngleBrush brush;
        PaintToolEraser eraser;
        const auto check = [](PaintTool &tool, const QString &verb, AngleImage::Pixel slope) {
            const bool fills = tool.kind() == 2;
            auto &button = control<QPushButton>(tool, fills ? "Fill" : "EraseAll");
            const AngleImage start = withSteepCell();
            const FloatImage half(start.width(), start.height(), 0.5F);
            setBrush(tool);
            {
                PaintedSurface surface(tool, start);
                QCOMPARE(button.text(), verb + " all"_s);
                surface.paint({{5, 6}}, Qt::AltModifier);
                surface.replace(start);
                surface.commits.clear();
                surface.paint({{20, 20}, {40, 25}, {20, 20}});
                QCOMPARE(surface.stored, scribbled(start, slope));
                surface.replace(start);
                button.click();
                QCOMPARE(surface.stored, blended(start, half, slope));
                QCOMPARE(surface.commits,
                         (fills ? QStringList{"Angle"_s, "Fill"_s}
                                : QStringList{"Erase"_s, "Erase all"_s}));
                QCOMPARE(surface.areas.last(), start.rect());
                tool.updateSelection(half);
                QCOMPARE(button.text(), verb + " selection"_s);
            }
            QVERIFY(!button.isEnabled());
        };
        check(brush, "Fill"_s, steep);
        check(eraser, "Erase"_s, {});
        eraser.eraseAll(); // of nothing
    }
};

QTEST_MAIN(TestAngleTools)
#include "tst_AngleTools.moc"
