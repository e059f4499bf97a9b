#include "base/Resources.h"
#include "framework/GIntEdit.h"
#include "support/Pictures.h"
#include "tools/PaintToolSelectByColor.h"
#include "tools/PaintToolSelectWithPolygon.h"

#include <QAbstractButton>
#include <QButtonGroup>
#include <QGraphicsItem>
#include <QSignalSpy>
#include <QTest>

#include <array>

namespace {

ToolPointerEvent
pointer(const QPointF &position, int modifiers = 0, Qt::MouseButton button = Qt::LeftButton)
{
    return {position, 1.0, false, button, button, Qt::KeyboardModifiers(modifiers)};
}

// One row of weights; nothing for the null image.
FloatImage row(const QByteArray &weights)
{
    FloatImage image(weights.size(), 1);
    for (int x = 0; x < image.width(); ++x)
        image.row(0)[x] = float(weights[x] - '0');
    return image;
}

// As in "1100 pixel selection changed, merged".
QByteArray described(const QList<QVariant> &announced)
{
    const auto mask = announced[0].value<FloatImage>();
    QByteArray text;
    for (int x = 0; x < mask.width(); ++x)
        text += mask.row(0)[x] == 1.0F ? '1' : '0';
    return text + ' ' + announced[1].toByteArray() + (announced[2].toBool() ? ", merged" : "");
}

QPolygon corners(const QString &text)
{
    QPolygon polygon;
    for (const QString &corner : text.split(QLatin1Char(' '), Qt::SkipEmptyParts))
        polygon << QPoint(corner.section(QLatin1Char(','), 0, 0).toInt(),
                          corner.section(QLatin1Char(','), 1).toInt());
    return polygon;
}

// Presses at "3,4"; what is no gesture is a key.
void perform(PaintToolSelectWithPolygon &tool, const QString &step, int held)
{
    if (step.contains(QLatin1Char(',')))
        tool.mousePress(pointer(QPointF(corners(step).first()) + QPointF(0.9, 0.9), held));
    else if (step == QLatin1String("double"))
        tool.mouseDoubleClick(pointer({20, 20}));
    else if (step == QLatin1String("undo"))
        tool.stepBack();
    else
        tool.keyPress(QKeySequence(step)[0], {});
}

} // namespace

// The tools that select pixels, by their gestures.
class tst_SelectTools : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase() { initialiseResources(); }

    void wandClicks_data()
    {
        QTest::addColumn<int>("modifiers");
        QTest::addColumn<double>("x");
        QTest::addColumn<QByteArray>("before");
        QTest::addColumn<QByteArray>("announced"); // empty for nothing
        const auto add = [](auto name, int modifiers, double x, auto before, auto announced) {
            QTest::newRow(name) << modifiers << x << QByteArray(before) << QByteArray(announced);
        };
        add("plain", 0, 1.9, "0110", "1100 pixel selection changed, merged");
        add("plain outside", 0, -0.1, "0110", " pixel selection cleared");
        add("union", Qt::SHIFT, 0, "0110", "1110 pixel selection changed");
        add("union with nothing", Qt::SHIFT, 0, "", "1100 pixel selection changed");
        add("difference", Qt::ALT, 0, "0110", "0010 pixel selection changed");
        add("difference leaves nothing", Qt::ALT, 0, "1000", " pixel selection cleared");
        add("difference from nothing", Qt::ALT, 0, "", "");
        add("difference outside", Qt::ALT, -1, "0110", "");
        add("Shift and Alt", Qt::SHIFT | Qt::ALT, 0, "0110", "");
    }

    void wandClicks()
    {
        QFETCH(int, modifiers);
        QFETCH(double, x);
        QFETCH(QByteArray, before);
        QFETCH(QByteArray, announced);
        QImage texture(4, 1, QImage::Format_ARGB32);
        texture.fill(Qt::red);
        texture.setPixelColor(2, 0, Qt::blue);
        PaintToolSelectByColor wand;
        wand.activate({texture, row(before)}, {});
        QSignalSpy spy(&wand, &PaintTool::selectionChanged);
        wand.mouseMove(pointer({x, 0.5}, modifiers, Qt::NoButton));
        wand.mousePress(pointer({x, 0.5}, modifiers, Qt::RightButton));
        QCOMPARE(spy.count(), 0);
        wand.mousePress(pointer({x, 0.5}, modifiers));
        // The second click of two quick ones.
        wand.updateSelection(row(before));
        wand.mouseDoubleClick(pointer({x, 0.5}, modifiers));
        QCOMPARE(spy.count(), announced.isEmpty() ? 0 : 2);
        for (const QList<QVariant> &one : std::as_const(spy))
            QCOMPARE(described(one), announced);
    }

    // As the keys do, which go on meaning the same.
    void switchInPlaceOfKeys()
    {
        QImage texture(4, 1, QImage::Format_ARGB32);
        texture.fill(Qt::red);
        texture.setPixelColor(2, 0, Qt::blue);
        PaintToolSelectByColor wand;
        PaintToolSelectWithPolygon lasso;
        for (PaintTool *tool :
             {static_cast<PaintTool *>(&wand), static_cast<PaintTool *>(&lasso)}) {
            const auto *group = tool->settingsPanel()->findChild<QButtonGroup *>();
            QSignalSpy spy(tool, &PaintTool::selectionChanged);
            const auto announced = [&](int held) {
                tool->activate({texture, row("0110")}, {});
                const bool isWand = tool == &wand;
                tool->mousePress(pointer({isWand ? 0.0 : 2.0, 0}, held));
                for (const QPointF &corner : {QPointF(9, 0), QPointF(9, 9)}) {
                    if (!isWand)
                        tool->mousePress(pointer(corner, held));
                }
                tool->keyPress(Qt::Key_Return, {});
                tool->deactivate();
                QByteArray result = described(spy.last());
                spy.clear();
                return result;
            };
            const std::array keys = {0, int(Qt::SHIFT), int(Qt::ALT)};
            const std::array expected = {announced(0), announced(keys[1]), announced(keys[2])};
            QVERIFY(expected[0] != expected[1] && expected[1] != expected[2]);
            for (const size_t chosen : {1, 2, 0}) {
                group->button(int(chosen))->click();
                QCOMPARE(announced(0), expected.at(chosen));
                QCOMPARE(announced(keys[1]), expected[1]);
                QCOMPARE(announced(keys[2]), expected[2]);
            }
        }
    }

    void wandDrags()
    {
        std::mt19937 random(1);
        PaintToolSelectByColor wand;
        auto *tolerance = wand.settingsPanel()->findChild<GIntEdit *>(QStringLiteral("Tolerance"));
        QSignalSpy spy(&wand, &PaintTool::selectionChanged);
        for (int round = 0; round < 40; ++round) {
            QImage texture(12, 9, QImage::Format_ARGB32);
            for (int i = 0; i < 12 * 9; ++i)
                texture.setPixel(i % 12, i / 12, qRgb(40 * randomInt(0, 2, random), 0, 0));
            wand.activate({texture, {}}, {});
            tolerance->setValue(randomInt(0, 60, random));
            wand.mousePress(pointer({0, 0}));
            FloatImage selection = colorFill(texture, {0, 0}, tolerance->value());
            for (int i = 0; i < 20; ++i) {
                const QPoint at(randomInt(-1, 12, random), randomInt(-1, 9, random));
                const auto mode = i < 10 ? SelectionMode::Replace : SelectionMode::Add;
                wand.mouseMove(pointer(at, i < 10 ? 0 : int(Qt::SHIFT)));
                const FloatImage fill = colorFill(texture, at, tolerance->value());
                selection = fill.isNull() ? selection : combined(selection, fill, mode);
                QVERIFY(spy.last()[0].value<FloatImage>() == selection);
            }
            wand.deactivate();
        }
    }

    void lasso_data()
    {
        QTest::addColumn<int>("modifiers");
        QTest::addColumn<QString>("steps");
        QTest::addColumn<QString>("closed"); // the polygon, if it is closed
        QTest::addColumn<bool>("isOpen");
        const auto add = [](auto name, int held, auto steps, auto closed, bool isOpen = false) {
            QTest::newRow(name) << held << QString::fromLatin1(steps) << QString::fromLatin1(closed)
                                << isOpen;
        };
        const char *const triangle = "2,2 20,2 20,20";
        const char *const all = "-1,-1 40,-1 40,40 -1,40";
        add("at the first corner", 0, "2,2 20,2 20,20 5,4", triangle);
        add("beside it", 0, "2,2 20,2 20,20 6,4", "", true);
        add("added", Qt::SHIFT, "2,2 20,2 20,20 2,2", triangle);
        add("subtracted", Qt::ALT, "2,2 20,2 20,20 2,2", triangle);
        add("all subtracted", Qt::ALT, "-1,-1 40,-1 40,40 -1,40 Return", all);
        add("double click", 0, "2,2 20,2 20,20 double", triangle);
        add("double click at two corners", 0, "2,2 20,20 double Return", "", true);
        add("two corners", 0, "2,2 20,2 2,2", "2,2 20,2");
        add("crossing itself", 0, "2,2 20,20 20,2 2,20 Return", "2,2 20,20 20,2 2,20");
        add("corner removed", 0, "2,2 20,2 9,30 Backspace 20,20 2,2", triangle);
        add("corner undone", 0, "2,2 20,2 9,30 undo 20,20 2,2", triangle);
        add("all undone", 0, "2,2 20,2 undo undo Return", "");
        add("cancelled", 0, "2,2 20,2 20,20 Esc Return", "");
    }

    void lasso()
    {
        QFETCH(int, modifiers);
        QFETCH(QString, steps);
        QFETCH(QString, closed);
        std::mt19937 random(2);
        FloatImage selection = randomMask({32, 32}, random);
        PaintToolSelectWithPolygon tool;
        tool.activate({QImage(32, 32, QImage::Format_ARGB32), selection}, {});
        QSignalSpy spy(&tool, &PaintTool::selectionChanged);
        for (const QString &step : steps.split(QLatin1Char(' ')))
            perform(tool, step, modifiers);
        if (modifiers != Qt::SHIFT && modifiers != Qt::ALT) {
            QCOMPARE(described(spy.takeFirst()), QByteArray(" pixel selection cleared"));
            selection = {};
        }
        QCOMPARE(spy.count(), closed.isEmpty() ? 0 : 1);
        if (!spy.isEmpty()) {
            QVERIFY(
                spy[0][0].value<FloatImage>() ==
                combinedWithPolygon(selection, corners(closed), {32, 32}, modifiers == Qt::ALT));
            QVERIFY(described(spy[0]).endsWith(" pixel selection changed"));
        }
        QTEST(!tool.overlayItem()->childItems().isEmpty(), "isOpen");
    }
};

QTEST_MAIN(tst_SelectTools)

#include "tst_SelectTools.moc"
