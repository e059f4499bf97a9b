#include "base/Resources.h"
#include "framework/GIntEdit.h"
#include "imaging/AngleGlobe.h"
#include "imaging/CircularBrush.h"
#include "imaging/SlopeArithmetic.h"
#include "imaging/StrokePainting.h"
#include "support/Gestures.h"
#include "support/PaintedSurface.h"
#include "support/Pictures.h"
#include "support/Widgets.h"
#include "tools/AnglePicker.h"
#include "tools/PaintToolAngleBrush.h"
#include "tools/PaintToolEraser.h"

#include <QCheckBox>
#include <QLabel>
#include <QPushButton>
#include <QSignalSpy>
#include <QTest>
#include <QVector2D>

namespace {

constexpr AngleImage::Pixel steep{700, -300};

template <class Control>
Control &control(const QWidget &panel, const char *name)
{
    return *panel.findChild<Control *>(QLatin1String(name));
}

/// Whose cell at (5, 6) is steep.
AngleImage someSurface()
{
    std::mt19937 random(7);
    AngleImage surface = randomAngles(60, 50, random);
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
    control<GIntEdit>(*tool.settingsPanel(), "BrushSize").setValue(22);
    control<GIntEdit>(*tool.settingsPanel(), "Hardness").setValue(30);
    control<GIntEdit>(*tool.settingsPanel(), "Opacity").setValue(50);
}

} // namespace

class TestAngleTools : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase() { initialiseResources(); }

    void strokesKeepTheirAngle()
    {
        const AngleImage start = someSurface();
        PaintToolAngleBrush tool;
        setBrush(tool);
        PaintedSurface surface(tool, start);
        surface.paint({{5.5, 6.5}}, Qt::AltModifier);
        QVERIFY(surface.areas.isEmpty() && surface.commits.isEmpty());
        surface.press({20, 20});
        surface.moveTo({40, 25});
        surface.moveTo({0, 0}, Qt::AltModifier); // picks for the next stroke
        surface.moveTo({20, 20});
        surface.release({0, 0}, Qt::AltModifier);
        QCOMPARE(surface.stored, scribbled(start, steep));
        QCOMPARE(surface.commits, QStringList{"Angle"_s});

        // An undo in between takes back what was painted, not the angle.
        surface.replace(start);
        surface.press({5, 40});
        surface.replace(start);
        surface.release({5, 40});
        QCOMPARE(surface.stored, start);
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

    void eraserFlattens()
    {
        const AngleImage start = someSurface();
        PaintToolEraser tool;
        setBrush(tool);
        PaintedSurface surface(tool, start);
        surface.paint({{20, 20}, {40, 25}, {20, 20}});
        QCOMPARE(surface.stored, scribbled(start, {}));
        QCOMPARE(surface.commits, QStringList{"Erase"_s});
    }

    void wholeSurfaces()
    {
        PaintToolAngleBrush brush;
        PaintToolEraser eraser;
        const auto check = [](PaintTool &tool, const QString &verb, AngleImage::Pixel slope) {
            const bool fills = tool.kind() == 2;
            auto &button = control<QPushButton>(*tool.settingsPanel(), fills ? "Fill" : "EraseAll");
            const AngleImage start = someSurface();
            const FloatImage half(start.width(), start.height(), 0.5F);
            setBrush(tool);
            {
                PaintedSurface surface(tool, start);
                QCOMPARE(button.text(), verb + " all"_s);
                surface.paint({{5, 6}}, Qt::AltModifier);
                surface.replace(start);
                surface.commits.clear();
                button.click();
                QCOMPARE(surface.stored, blended(start, half, slope));
                QCOMPARE(surface.commits, QStringList{fills ? "Fill"_s : "Erase all"_s});
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

    void picks()
    {
        PaintToolAngleBrush tool;
        const PaintedSurface surface(tool, someSurface());
        QImage texture(60, 50, QImage::Format_ARGB32);
        texture.fill(Qt::red);
        texture.setPixel(9, 9, 0);
        tool.updateTexture(texture);
        const QString opaque = "x 2.73  y -1.17"_s;
        const auto pick = [&](const QPointF &last) {
            surface.paint({{30, 30}, {5, 6}, last}, Qt::AltModifier);
            return control<QLabel>(*tool.settingsPanel(), "Slope").text();
        };
        QCOMPARE(pick({5.9, 6.9}), opaque);
        QCOMPARE(pick({9, 9}), "x 0.00  y 0.00"_s); // transparent
        QCOMPARE(pick({-1.5, 9}), opaque);
        QVERIFY(surface.areas.isEmpty() && surface.commits.isEmpty());
        // With another key held, too, it is a stroke.
        surface.paint({{31, 31}}, Qt::AltModifier | Qt::ShiftModifier);
        QCOMPARE(surface.commits.size(), 1);
    }

    void pickCursor()
    {
        PaintToolAngleBrush tool;
        QCursor pointer;
        connect(&tool, &PaintTool::cursorChanged, this, [&](const ScalableToolCursor &cursor) {
            pointer = cursor.pointer();
        });
        const auto shows = [&] { return pointer.shape() == Qt::BitmapCursor; };
        const auto hover = [&](Qt::KeyboardModifiers modifiers) {
            tool.mouseMove({{20, 20}, 1.0, false, {}, {}, modifiers});
        };
        const PaintedSurface surface(tool, someSurface());
        for (const Qt::KeyboardModifiers own : {Qt::NoModifier, Qt::AltModifier}) {
            tool.keyPress(Qt::Key_Alt, own);
            QVERIFY(shows());
            QCOMPARE(pointer.hotSpot(), QPoint(9, 18));
            QCOMPARE(pointer.pixmap().size() / pointer.pixmap().devicePixelRatio(), QSize(27, 27));
            surface.paint({{5, 6}}, Qt::AltModifier);
            hover(Qt::AltModifier);
            tool.keyRelease(Qt::Key_Control, Qt::AltModifier);
            QVERIFY(shows());
            tool.keyRelease(Qt::Key_Alt, own);
            QVERIFY(!shows());
        }
        // Let go in another window.
        tool.keyPress(Qt::Key_Alt, Qt::AltModifier);
        hover({});
        QVERIFY(!shows());
    }

    void globe()
    {
        AnglePicker picker;
        showActive(picker);
        auto &ball = control<QWidget>(picker, "AngleGlobe");
        const QSignalSpy changed(&picker, &AnglePicker::pixelValueChanged);
        const auto last = [&] { return changed.last().first().value<AngleImage::Pixel>(); };
        QCOMPARE(ball.size(), QSize(148, 148));

        picker.setPixelValue(steep);
        QVERIFY(changed.isEmpty());
        QTest::mousePress(&ball, Qt::LeftButton, {}, {94, 64});
        QCOMPARE(last(), globeSlopes(128, false).row(54)[84]);
        dragTo(ball, {900, 74});
        QCOMPARE(ball.cursor().shape(), Qt::BlankCursor);
        // 90 % of 64 pixels is 58 when rounded.
        QCOMPARE(last(), (AngleImage::Pixel{549, 0}));
        QTest::mouseRelease(&ball, Qt::LeftButton, {}, {900, 74});
        QVERIFY(ball.cursor().shape() != Qt::BlankCursor);

        QTest::mouseClick(&control<QPushButton>(picker, "ResetAngle"), Qt::LeftButton);
        QCOMPARE(last(), AngleImage::Pixel());
        QTest::keyClick(&ball, Qt::Key_Right);
        QTest::keyClick(&ball, Qt::Key_Down, Qt::ShiftModifier);
        QCOMPARE(last(), globeSlopes(128, false).row(72)[65]);
        QTest::keyClick(&ball, Qt::Key_Home);
        QCOMPARE(last(), AngleImage::Pixel());

        control<QCheckBox>(picker, "Discrete").click();
        const int events = changed.size();
        QTest::mouseClick(&ball, Qt::LeftButton, {}, {94, 76});
        QCOMPARE(last(), globeSlopes(128, false).row(64)[80]);
        QCOMPARE(changed.size(), events + 1);
    }

    // Out and round by keys leads to each place that the pointer can snap to, and to no other.
    void discreteKeys()
    {
        AnglePicker picker;
        showActive(picker);
        auto &ball = control<QWidget>(picker, "AngleGlobe");
        control<QCheckBox>(picker, "Discrete").click();
        const AngleImage lookup = globeSlopes(128, true);
        QSignalSpy changed(&picker, &AnglePicker::pixelValueChanged);
        for (int ring = 1; ring <= 4; ++ring) {
            QTest::keyClick(&ball, Qt::Key_Up);
            for (int direction = 5; direction > -7; --direction) {
                QTest::keyClick(&ball, Qt::Key_Right);
                const double radius = (std::min(ring, 3) + 0.5) * 16;
                const double angle = direction * M_PI / 6;
                const QPointF place(std::sin(angle) * radius, std::cos(angle) * radius);
                const QPoint at = globePixel(place, 128);
                QCOMPARE(changed.last().first().value<AngleImage::Pixel>(),
                         lookup.row(at.y())[at.x()]);
            }
        }
        QTest::keyClick(&ball, Qt::Key_Down, Qt::ShiftModifier);
        QCOMPARE(changed.last().first().value<AngleImage::Pixel>(), AngleImage::Pixel());
    }
};

QTEST_MAIN(TestAngleTools)
#include "tst_AngleTools.moc"
