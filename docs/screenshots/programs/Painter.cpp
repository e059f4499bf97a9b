#include "Painter.h"

#include "framework/GNumberEdit.h"
#include "preview/EditorGraphicsViewVesperine.h"
#include "support/Gestures.h"
#include "ui/MainWindow.h"

#include <QComboBox>
#include <QDoubleSpinBox>
#include <QPainterPath>
#include <QTest>
#include <QThreadPool>

namespace {
// As a hand goes through the points: around the corners between them.
Points curve(const Points &points)
{
    constexpr int sampleDistance = 8;
    QPainterPath path(points.first());
    for (int i = 1; i + 1 < points.size(); ++i)
        path.quadTo(points[i], QPointF(points[i] + points[i + 1]) / 2.0);
    path.lineTo(points.last());
    Points result;
    const int count = int(path.length()) / sampleDistance + 1;
    for (int i = 0; i <= count; ++i)
        result.append(path.pointAtPercent(double(i) / count).toPoint());
    return result;
}

} // namespace

Points points(const char *text)
{
    Points result;
    for (const QString &pair : QString::fromLatin1(text).split(QLatin1Char(' ')))
        result.append({pair.section(QLatin1Char(','), 0, 0).toInt(),
                       pair.section(QLatin1Char(','), 1, 1).toInt()});
    return result;
}

Points beside(int column, const char *text, int side)
{
    Points result = points(text);
    for (QPoint &point : result)
        point.setX(column + side * point.x());
    return result;
}

Painter::Painter(MainWindow &window)
    : EditorUser(window)
    , m_window(window)
{
}

void Painter::hover(const QPoint &pixel) const
{
    dragTo(viewport(), at(pixel), Qt::NoButton);
}

void Painter::placeLight(const QPoint &place) const
{
    hover(place);
    key(Qt::Key_P);
}

void Painter::heightBrush(int size, double height, int hardness, Contour contour) const
{
    chooseTool("Height");
    type("BrushSize", size);
    type("Height", height);
    type("Hardness", hardness);
    auto &button =
        shownChild<QWidget>(m_window, QStringLiteral("Brush contour %1").arg(int(contour)));
    QTest::mouseClick(&button, Qt::LeftButton);
    view().setFocus();
}

void Painter::coverageBrush(const char *tool, int size, int opacity, int hardness) const
{
    chooseTool(tool);
    type("BrushSize", size);
    type("Opacity", opacity);
    type("Hardness", hardness);
}

void Painter::type(const char *name, double number) const
{
    for (const auto *edit : m_window.findChildren<GNumberEdit *>(QLatin1String(name))) {
        if (!edit->isVisible())
            continue;
        auto *box = edit->findChild<QDoubleSpinBox *>();
        box->setFocus();
        box->selectAll();
        QTest::keyClicks(box, QLocale().toString(number));
        QTest::keyClick(box, Qt::Key_Return);
    }
    view().setFocus();
}

void Painter::structureBrush(const QString &pattern,
                             double intensity,
                             int scale,
                             int rotation) const
{
    auto &patterns = shownChild<QComboBox>(m_window, QStringLiteral("Pattern"));
    QTest::keyClick(&patterns, Qt::Key_Home);
    for (int i = 0; i < patterns.count() && patterns.currentText() != pattern; ++i)
        QTest::keyClick(&patterns, Qt::Key_Down);
    type("Intensity", intensity);
    type("Scale", scale);
    type("Rotation", rotation);
    waitForBackground();
}

void Painter::chooseAngle(const QPoint &onGlobe) const
{
    auto &globe = shownChild<QWidget>(m_window, QStringLiteral("Angle"));
    QTest::mouseClick(&globe, Qt::LeftButton, {}, globe.rect().center() + onGlobe);
    view().setFocus();
}

void Painter::waitForBackground()
{
    // The first result may ask for a second.
    for (int i = 0; i < 3; ++i) {
        QThreadPool::globalInstance()->waitForDone();
        QCoreApplication::processEvents();
    }
}

void Painter::stroke(const Points &points) const
{
    waitForBackground(); // nobody is faster than what a brush takes from the surface
    paint(curve(points));
}

void Painter::dab(const QPoint &point) const
{
    paint({point});
}

void Painter::toggleDirection() const
{
    key(Qt::Key_X);
}

void Painter::lasso(const Points &corners) const
{
    chooseTool("Polygon");
    click(corners);
    key(Qt::Key_Return);
}

void Painter::click(const Points &points) const
{
    for (const QPoint &point : points)
        paint({point});
}

void Painter::wand(const QPoint &seed, int tolerance, Qt::KeyboardModifiers modifiers) const
{
    chooseTool("Color");
    type("Tolerance", tolerance);
    paint({seed}, modifiers);
}

void Painter::part(const Points &corners) const
{
    lasso(corners);
    chooseTool("Erase");
    command("EraseAll");
}

void Painter::selectNone() const
{
    key(Qt::Key_D, Qt::ControlModifier);
}
