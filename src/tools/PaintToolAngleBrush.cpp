#include "tools/PaintToolAngleBrush.h"

#include "framework/GAction.h"
#include "framework/ThemedIcon.h"
#include "imaging/AngleGlobe.h"
#include "imaging/SlopeArithmetic.h"
#include "tools/AnglePicker.h"
#include "tools/ToolPanel.h"

#include <QGuiApplication>
#include <QPainter>
#include <QPixmap>
#include <QPushButton>

#include <utility>

namespace {

ScalableToolCursor pickCursor()
{
    constexpr QRect picture(0, 0, 27, 27);
    constexpr QPoint tip(9, 18);
    const double ratio = qGuiApp->devicePixelRatio();
    QPixmap pixmap((QSizeF(picture.size()) * ratio).toSize());
    pixmap.setDevicePixelRatio(ratio);
    pixmap.fill(Qt::transparent);
    QPainter painter(&pixmap);
    themedIcon(QStringLiteral(":/painttoolicons/angle_picker_1_bw.svg")).paint(&painter, picture);
    painter.end();
    return {pixmap, tip};
}

} // namespace

PaintToolAngleBrush::PaintToolAngleBrush(QObject *parent)
    : PaintToolBrushBasedOnNormalMap(themedIcon(QStringLiteral(":/painttoolicons/set.svg")),
                                     tr("Angle brush"),
                                     tr("Angle"),
                                     QStringLiteral("Y"),
                                     OpacityRow | HardnessRow,
                                     parent)
    , m_picker(new AnglePicker)
{
    action().setStatusTip(tr("Turns the surface to one direction where you paint."));
    panel().addRow(tr("Angle"), m_picker);
    connect(m_picker, &AnglePicker::pixelValueChanged, this, &PaintToolAngleBrush::setAngle);
    // For who can't: a window manager may keep Alt and the mouse to itself.
    m_pick = panel().addCommand(tr("Pick from image"), QStringLiteral("Pick"));
    m_pick->setCheckable(true);
    m_pick->setFocusPolicy(Qt::TabFocus);
    m_pick->setToolTip(
        tr("The next click in the view takes the angle there, as Alt and a click do"));
    connect(m_pick, &QPushButton::toggled, this, &PaintToolAngleBrush::showPickCursor);
    m_fill = panel().addCommand(tr("Fill all"), QStringLiteral("Fill"));
    connect(m_fill, &QPushButton::clicked, this, &PaintToolAngleBrush::fill);
    panel().addHelp(action().statusTip() + QLatin1Char('\n') + keysHelp() +
                    tr("\nhold Alt | pick angle from image"));
}

void PaintToolAngleBrush::deactivate()
{
    PaintToolBrushBasedOnNormalMap::deactivate();
    m_pick->setChecked(false);
    m_showsPickCursor = false;
    m_texture = {};
}

void PaintToolAngleBrush::mousePress(const ToolPointerEvent &event)
{
    if (!picks(event))
        PaintToolBrushBasedOnNormalMap::mousePress(event);
}

void PaintToolAngleBrush::mouseMove(const ToolPointerEvent &event)
{
    if (!picks(event))
        PaintToolBrushBasedOnNormalMap::mouseMove(event);
}

void PaintToolAngleBrush::mouseRelease(const ToolPointerEvent &event)
{
    if (event.changedButton == Qt::LeftButton && std::exchange(m_hasPicked, false))
        m_pick->setChecked(false);
    PaintToolBrushBasedOnNormalMap::mouseRelease(event);
}

void PaintToolAngleBrush::keyPress(int key, Qt::KeyboardModifiers modifiers)
{
    // Whether a key's own press tells of it as a modifier, too, is the platform's choice. With
    // another one it means something else.
    const bool isAlt = key == Qt::Key_Alt || modifiers.testFlag(Qt::AltModifier);
    const bool isOther = key == Qt::Key_Control || key == Qt::Key_Shift ||
                         modifiers & (Qt::ControlModifier | Qt::ShiftModifier);
    if (key == Qt::Key_Escape)
        m_pick->setChecked(false);
    showPickCursor((isAlt || awaitsPick()) && !isOther);
    PaintToolBrushBasedOnNormalMap::keyPress(key, modifiers);
}

void PaintToolAngleBrush::keyRelease(int key, Qt::KeyboardModifiers modifiers)
{
    if (key == Qt::Key_Alt || !modifiers.testFlag(Qt::AltModifier))
        showPickCursor(awaitsPick());
    PaintToolBrushBasedOnNormalMap::keyRelease(key, modifiers);
}

void PaintToolAngleBrush::updateTexture(QImage image)
{
    m_texture = std::move(image);
}

void PaintToolAngleBrush::updateSelection(FloatImage selection)
{
    m_fill->setText(selection.isNull() ? tr("Fill all") : tr("Fill selection"));
    PaintToolBrushBasedOnNormalMap::updateSelection(std::move(selection));
}

QRect PaintToolAngleBrush::startStroke(const QPoint &point)
{
    m_strokeAngle = m_angle;
    return PaintToolBrushBasedOnNormalMap::startStroke(point);
}

SurfacePiece PaintToolAngleBrush::strokeResult(const QRect &changed)
{
    return turned(stroke().start(), stroke().layer(), changed, m_strokeAngle);
}

void PaintToolAngleBrush::updateCursor()
{
    if (m_showsPickCursor)
        Q_EMIT cursorChanged(pickCursor());
    else
        PaintToolBrushBasedOnNormalMap::updateCursor();
}

void PaintToolAngleBrush::setAngle(AngleImage::Pixel angle)
{
    if (angle == m_angle)
        return;
    m_angle = angle;
    settingsChanged();
}

void PaintToolAngleBrush::fill()
{
    if (currentImage().isNull() || isStrokeOpen())
        return;
    AngleImage surface = currentImage();
    blendSlope(surface, FloatImage(surface.width(), surface.height(), opacity()), m_angle);
    replaceSurface(surface, tr("Fill"));
}

// Not within a stroke, which Shift starts all the same.
bool PaintToolAngleBrush::awaitsPick() const
{
    return m_pick->isChecked() && !isStrokeOpen();
}

// The cursor tells what a press does, also when Alt was let go in another window.
bool PaintToolAngleBrush::picks(const ToolPointerEvent &event)
{
    const bool mayPick =
        event.modifiers == Qt::AltModifier || (awaitsPick() && event.modifiers == Qt::NoModifier);
    const bool picks = mayPick && event.buttons == Qt::LeftButton;
    showPickCursor(picks || (mayPick && event.buttons == Qt::NoButton));
    if (!picks)
        return false;
    if (const auto angle = pickedAngle(currentImage(), m_texture, event.position)) {
        m_picker->setPixelValue(*angle);
        setAngle(*angle);
        m_hasPicked = true;
    }
    return true;
}

void PaintToolAngleBrush::showPickCursor(bool isShown)
{
    if (isShown == m_showsPickCursor)
        return;
    m_showsPickCursor = isShown;
    updateCursor();
}
