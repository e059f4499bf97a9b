#include "base/GSettings.h"
#include "base/Resources.h"
#include "framework/GDoubleEdit.h"
#include "framework/GIntEdit.h"
#include "imaging/CircularBrush.h"
#include "imaging/MaskedPaste.h"
#include "imaging/SlopeArithmetic.h"
#include "imaging/Smoothing.h"
#include "imaging/StrokePainting.h"
#include "imaging/StructureSurface.h"
#include "support/Documents.h"
#include "support/PaintedSurface.h"
#include "support/Widgets.h"
#include "tools/PaintToolBlurBrush.h"
#include "tools/PaintToolStructure.h"
#include "tools/PatternBox.h"
#include "tools/ToolPanel.h"

#include <QPushButton>
#include <QTest>
#include <QThreadPool>
#include <QVector2D>

#include <random>

namespace {

using Points = QVector<QPointF>;
const Points scribble{{20, 30}, {60, 10}, {22, 31}, {-9, 40}, {95, 69}};
const QSize size(90, 70);

/// Everything that is computed arrives; nothing does meanwhile.
void settle()
{
    for (int round = 0; round < 4; ++round) {
        QThreadPool::globalInstance()->waitForDone();
        QCoreApplication::processEvents();
    }
}

QImage somePattern(unsigned seed)
{
    std::mt19937 random(seed);
    QImage pattern(16, 9, QImage::Format_ARGB32);
    for (int i = 0; i < 16 * 9; ++i)
        pattern.setPixelColor(i % 16, i / 16, QColor::fromRgb(QRgb(random()) | 0xff000000U));
    return pattern;
}

FloatImage coverageOf(const Points &points, float opacity = 1.0F)
{
    CircularBrushCos brush;
    brush.sizeX = brush.sizeY = 30;
    brush.amplitude = opacity;
    brush.softness = 1.0F;
    brush.update();
    FloatImage coverage(size.width(), size.height());
    for (int i = 0; i < points.size(); ++i)
        paintSegmentMax(
            brush, QVector2D(points[std::max(i - 1, 0)]), QVector2D(points[i]), coverage);
    return coverage;
}

// What a stroke leaves, computed in one go over the whole surface.
AngleImage smooth(AngleImage start, const Points &points, const AngleImage &blurred)
{
    pasteMasked(start, coverageOf(points), {}, blurred);
    return start;
}

AngleImage withStructure(AngleImage start, const FloatImage &weights, const AngleImage &structure)
{
    addSlopes(start, weights, {}, structure);
    return start;
}

} // namespace

class TestSurfaceTools : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase() { initialiseResources(); }

    void smoothStrokesKeepWhatTheyBeganWith()
    {
        PaintToolBlurBrush tool;
        const AngleImage first = someSurface(1);
        PaintedSurface surface(tool, first);
        surface.paint(scribble);
        QCOMPARE(surface.stored, first);
        QVERIFY(surface.areas.isEmpty());
        settle();
        surface.paint(scribble);
        const AngleImage blurred = smoothened(first, 3.0);
        const AngleImage second = smooth(first, scribble, blurred);
        QCOMPARE(surface.stored, second);
        QCOMPARE(surface.commits, (QStringList{"Smoothen"_s, "Smoothen"_s}));

        // A new one arrives in mid-stroke, and before a line goes on from there.
        surface.press({20, 20});
        settle();
        surface.moveTo({40, 25});
        surface.release({40, 25});
        QCOMPARE(surface.stored, smooth(second, {{20, 20}, {40, 25}}, blurred));
        settle();
        surface.paint({{50, 60}}, Qt::ShiftModifier);
        QCOMPARE(surface.stored, smooth(second, {{20, 20}, {40, 25}, {50, 60}}, blurred));
    }

    void smoothStrokesTakeWhatArrivesLate()
    {
        PaintToolBlurBrush tool;
        const AngleImage start = someSurface(1);
        PaintedSurface surface(tool, start);
        surface.press({20, 20});
        surface.moveTo({60, 50});
        QVERIFY(surface.areas.isEmpty());
        settle();
        const AngleImage blurred = smoothened(start, 3.0);
        QCOMPARE(surface.shown, smooth(start, {{20, 20}, {60, 50}}, blurred));
        surface.release({60, 50});

        // What is undone in mid-stroke doesn't come back by its blurred copy.
        const AngleImage other = someSurface(2);
        surface.press({20, 20});
        surface.replace(other);
        surface.moveTo({30, 20});
        QCOMPARE(surface.shown, other);
        settle();
        surface.release({30, 20});
        QCOMPARE(surface.stored, smooth(other, {{20, 20}, {30, 20}}, smoothened(other, 3.0)));
    }

    void smoothenAll()
    {
        PaintToolBlurBrush tool;
        auto &radius = control<GDoubleEdit>(tool, "Smoothness");
        tool.blurAll(); // of nothing
        const AngleImage start = someSurface(1);
        PaintedSurface surface(tool, start, FloatImage(size.width(), size.height(), 1.0F));
        tool.updateSelection({});
        control<GIntEdit>(tool, "Opacity").setValue(20);
        settle();
        // A result of the former surface and the former radius are still to come.
        surface.replace(someSurface(2));
        radius.setValue(0.5);
        surface.replace(start);
        tool.blurAll();
        QCOMPARE(surface.stored, smoothened(start, 0.5));
        // A stroke is a step of its own before it.
        settle();
        surface.press({20, 20});
        const AngleImage stroked = surface.shown;
        QVERIFY(!(stroked == surface.stored));
        tool.blurAll();
        QCOMPARE(surface.stored, smoothened(stroked, 0.5));
        QCOMPARE(surface.commits, (QStringList{"Blur all"_s, "Smoothen"_s, "Blur all"_s}));
    }

    void nothingOfAnotherBodyArrives()
    {
        PaintToolBlurBrush tool;
        {
            const PaintedSurface left(tool, someSurface(1));
        }
        QThreadPool::globalInstance()->waitForDone();
        const AngleImage start = someSurface(2);
        const AngleImage smoothed = smooth(start, scribble, smoothened(start, 3.0));
        PaintedSurface surface(tool, start);
        QCoreApplication::processEvents(); // the other one's result
        surface.paint(scribble);
        QVERIFY(surface.stored == start || surface.stored == smoothed);
        surface.replace(start);
        settle();
        surface.paint(scribble);
        QCOMPARE(surface.stored, smoothed);
    }

    void structures()
    {
        const Folder folder;
        folder.write("patterns/empty"_s, {});
        const QString one = folder.path("patterns/one.png"_s);
        const QString two = folder.path("patterns/two.png"_s);
        QVERIFY(somePattern(1).save(one) && somePattern(2).save(two));
        GSettings settings;
        settings.setValue("patterns"_s, folder.path("patterns"_s));
        PaintToolStructure tool(settings);
        auto &box = control<PatternBox>(tool, "Pattern");
        box.choose(one);
        const AngleImage start = someSurface(1);
        PaintedSurface surface(tool, start);
        settle();
        PaintToolStructureParams params{somePattern(1), 4.0, 1.0, 0.0, size};
        AngleImage expected = start;
        // A stroke adds to others, but only once to itself.
        for (int stroke = 0; stroke < 2; ++stroke) {
            surface.paint(scribble);
            expected = withStructure(expected, coverageOf(scribble), structureSurface(params));
            QCOMPARE(surface.stored, expected);
        }
        QCOMPARE(surface.commits.last(), "Structure"_s);

        // All that was set until then counts, and half of it is added.
        box.choose(two);
        control<GDoubleEdit>(tool, "Intensity").setValue(2.0);
        control<GIntEdit>(tool, "Scale").setValue(150);
        control<GIntEdit>(tool, "Rotation").setValue(30);
        control<GIntEdit>(tool, "Opacity").setValue(50);
        surface.replace(start);
        control<QPushButton>(tool, "FillAll").click();
        params = {somePattern(2), 2.0, 1.5, 30.0, size};
        const FloatImage half(size.width(), size.height(), 0.5F);
        QCOMPARE(surface.stored, withStructure(start, half, structureSurface(params)));
        QCOMPARE(surface.commits.last(), "Add structure"_s);
    }
};

QTEST_MAIN(TestSurfaceTools)
#include "tst_SurfaceTools.moc"
