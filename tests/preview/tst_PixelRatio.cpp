#include "model/Body.h"
#include "preview/SpriteItem.h"
#include "support/FakeTool.h"
#include "support/ShownEditor.h"
#include "support/WindowTest.h"

#include <QMap>
#include <QProcess>
#include <QScreen>
#include <QScrollBar>

#include <algorithm>
#include <cmath>
#include <random>

namespace {
constexpr QSize spriteSize(97, 61);
constexpr int firstValue = 100;
constexpr QRect inside(5, 5, 80, 50); // of the frame around a selected sprite

/// Each pixel's colour tells where it is.
QImage plan()
{
    QImage picture(spriteSize, QImage::Format_RGB32);
    for (int y = 0; y < picture.height(); ++y) {
        for (int x = 0; x < picture.width(); ++x)
            picture.setPixel(x, y, qRgb(firstValue + x, firstValue + y, 77));
    }
    return picture;
}

QPoint pixelOf(QRgb color)
{
    return {qRed(color) - firstValue, qGreen(color) - firstValue};
}

/// The screen, in its own pixels.
QImage screenshot()
{
    QImage screen = QGuiApplication::primaryScreen()->grabWindow(0).toImage();
    screen.setDevicePixelRatio(1.0);
    return screen.convertToFormat(QImage::Format_RGB32);
}

/// Where the first pixel of the inside begins; (-1, -1) where it does not show.
QPoint startIn(const QImage &screen)
{
    const QRgb first = plan().pixel(inside.topLeft());
    for (int y = 0; y < screen.height(); ++y) {
        const auto *line = reinterpret_cast<const QRgb *>(screen.constScanLine(y));
        const auto *found = std::find(line, line + screen.width(), first);
        if (found != line + screen.width())
            return {int(found - line), y};
    }
    return {-1, -1};
}

void moveRealPointer(const QVector<QPoint> &places, const QStringList &more = {})
{
    QStringList arguments;
    for (const QPoint &place : places)
        arguments +=
            {QStringLiteral("mousemove"), QString::number(place.x()), QString::number(place.y())};
    QCOMPARE(QProcess::execute(QStringLiteral("xdotool"), arguments + more), 0);
}
} // namespace

/// On a screen whose ratio of device to logical pixels is told from outside.
class TestPixelRatio : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase()
    {
        m_editor = std::make_unique<ShownEditor>();
        m_editor->window.move(37, 23);
        const QString path = m_editor->folder.path(QStringLiteral("plan.png"));
        QVERIFY(plan().save(path));
        m_body = &addBody(m_editor->project, QStringLiteral("plan"), path);
        m_editor->scene.setDisplayMode(DisplayMode::Texture);
        m_editor->bodies.setSelection({m_body});
        QVERIFY(QTest::qWaitForWindowExposed(&m_editor->window));
        connect(&m_editor->scene,
                &NormalMapEditorScene::pointedPixelChanged,
                this,
                [this](const PointedPixel &pointed) { m_pointed.append(pointed.pixel); });
    }
    void cleanupTestCase() { m_editor.reset(); }

    void fullSizeShowsEachPixelInWholeDevicePixels()
    {
        const QMap<QByteArray, int> sides{
            {"1", 1}, {"1.0008", 1}, {"1.04", 1}, {"1.25", 1}, {"1.5", 2}, {"2", 2}};
        const int side = sides.value(qgetenv("QT_SCALE_FACTOR"));
        for (const int zoom : {1, 3}) {
            const int times = side * zoom;
            // Wherever it is scrolled to.
            for (int step = 0; step < 4; ++step) {
                show(zoom);
                m_editor->view.horizontalScrollBar()->triggerAction(
                    QScrollBar::SliderSingleStepAdd);
                const QSize size(inside.width() * times, inside.height() * times);
                const QRect place(startIn(screenshot()), size);
                QTRY_COMPARE(screenshot().copy(place), plan().copy(inside).scaled(size));
            }
        }
    }

    void aClickTakesThePixelThatIsDrawnThere()
    {
        FakeTool tool;
        m_editor->scene.setTool(&tool);
        for (const int percent : {100, 140, 300}) {
            show(percent / 100.0);
            const QImage screen = screenshot();
            QVector<QPoint> places;
            QVector<QPoint> drawn;
            for (int step = 0; step < 45; ++step) {
                places.append(startIn(screen) + QPoint(step, step / 2));
                const QPoint pixel = pixelOf(screen.pixel(places.last()));
                if (drawn.isEmpty() || pixel != drawn.last())
                    drawn.append(pixel);
            }
            moveRealPointer({{1, 1}});
            QTRY_VERIFY(!m_editor->viewport.underMouse());
            m_pointed.clear();
            tool.lastEvent = {};
            moveRealPointer(places, {QStringLiteral("click"), QStringLiteral("1")});
            // As the pointer comes in, it is told where it was before.
            QTRY_COMPARE(m_pointed.mid(m_pointed.lastIndexOf(drawn.first())), drawn);
            QTRY_COMPARE(tool.lastEvent.changedButton, Qt::LeftButton);
            QCOMPARE(tool.lastEvent.pixel(), drawn.last());
        }
        m_editor->scene.setTool(nullptr);
    }

    void aDragAwayAndBackMovesNothing()
    {
        show(1.0);
        const QPoint start = startIn(screenshot());
        const int steps = m_editor->project.undoStack().count();
        for (int step = 0; step < 6; ++step) {
            const QPoint from = start + QPoint(20 + step, 20 + step);
            moveRealPointer({from}, {QStringLiteral("mousedown"), QStringLiteral("1")});
            moveRealPointer({from + QPoint(61, 33), from},
                            {QStringLiteral("mouseup"), QStringLiteral("1")});
            moveRealPointer({{1, 1}});
            QTRY_VERIFY(!m_editor->viewport.underMouse() && !m_editor->scene.isGestureOpen());
        }
        QCOMPARE(m_editor->project.undoStack().count(), steps);
    }

    // A scroll position shifts the transformation, which may clamp the scroll position.
    void everyZoomBeginsAtADevicePixel()
    {
        EditorGraphicsViewVesperine &view = m_editor->view;
        std::mt19937 random(1);
        const auto upTo = [&random](int end) { return int(random() % unsigned(end)); };
        for (int i = 0; i < 600; ++i) {
            if (i % 50 == 0)
                m_editor->window.resize(300 + upTo(900), 300 + upTo(700));
            view.setZoom(std::exp2(upTo(100) / 10.0 - 4.0));
            // From here the toolkit goes over to another way of placing the scene.
            const double full = m_editor->viewport.width() / view.sceneRect().width();
            const double nearby = 1.0 + (upTo(21) - 10) * 1e-4;
            view.setZoom(full * nearby * view.zoom() / view.transform().m11());
            const QPointF origin =
                view.viewportTransform().map(QPointF()) * view.devicePixelRatioF();
            const QPointF off = origin - origin.toPoint();
            QVERIFY2(off.manhattanLength() < 1e-3, qPrintable(QString::number(i)));
        }
        m_editor->window.resize(700, 560);
    }

    void fitAndZoomAgree()
    {
        m_editor->view.zoomToFit(m_editor->scene.spritesRect());
        const QSizeF view = m_editor->viewport.size();
        const QSizeF shown = m_editor->view.transform().m11() * QSizeF(spriteSize);
        const double share = std::max(shown.width() / view.width(), shown.height() / view.height());
        QVERIFY2(std::abs(share - 0.9) < 1e-6, qPrintable(QString::number(share)));
    }

private:
    void show(double zoom) const
    {
        m_editor->view.setZoom(zoom);
        m_editor->view.centerOn(m_editor->scene.spritesRect().center());
        QCoreApplication::processEvents();
        QTRY_VERIFY(startIn(screenshot()).x() >= 0);
    }

    std::unique_ptr<ShownEditor> m_editor;
    Body *m_body = nullptr;
    QVector<QPoint> m_pointed;
};

int main(int argc, char **argv)
{
    if (qEnvironmentVariableIsSet("QT_SCALE_FACTOR"))
        return runWindowTest<TestPixelRatio>(argc, argv);
    // Nothing but what is told here.
    qputenv("QT_ENABLE_HIGHDPI_SCALING", "0");
    QStringList arguments;
    for (int i = 1; i < argc; ++i)
        arguments.append(QString::fromLocal8Bit(argv[i]));
    int failures = 0;
    for (const char *ratio : {"1", "1.0008", "1.04", "1.25", "1.5", "2"}) {
        qputenv("QT_SCALE_FACTOR", ratio);
        failures += QProcess::execute(QString::fromLocal8Bit(argv[0]), arguments) != 0;
    }
    return failures;
}

#include "tst_PixelRatio.moc"
