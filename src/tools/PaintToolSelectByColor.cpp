#include "tools/PaintToolSelectByColor.h"

#include "framework/GAction.h"
#include "framework/GIntEdit.h"
#include "framework/SliderScale.h"
#include "framework/ThemedIcon.h"
#include "tools/ToolPanel.h"

PaintToolSelectByColor::PaintToolSelectByColor(QObject *parent)
    : PaintToolSelect(themedIcon(QStringLiteral(":/painttoolicons/magic_wand.svg")),
                      tr("Select by color"),
                      tr("Color"),
                      QStringLiteral("A"),
                      parent)
{
    action().setStatusTip(tr("Selects the color that you click, as far as it reaches."));
    const GIntEdit *tolerance = panel().addIntegerRow(
        tr("Tolerance"), QStringLiteral("Tolerance"), SliderScale(0, 64, 255), m_tolerance);
    connect(tolerance, &GIntEdit::valueChanged, this, [this](int value) { m_tolerance = value; });
    addModeSwitch();
    panel().addHelp(action().statusTip() + tr("\nclick or drag | select the color there"
                                              "\nShift | add to the selection"
                                              "\nAlt | subtract from the selection"
                                              "\nclick outside | clear the selection"));
}

void PaintToolSelectByColor::deactivate()
{
    m_colors = {};
    m_last = {};
    PaintToolSelect::deactivate();
}

void PaintToolSelectByColor::mouseRelease(const ToolPointerEvent & /*event*/)
{
    m_last = {};
}

void PaintToolSelectByColor::updateTexture(QImage image)
{
    m_colors = {};
    m_last = {};
    PaintToolSelect::updateTexture(std::move(image));
}

void PaintToolSelectByColor::pressAt(const QPoint &pixel)
{
    m_last = {};
    if (texture().valid(pixel))
        fillFrom(pixel);
    else if (mode() == SelectionMode::Replace)
        clearSelection();
}

void PaintToolSelectByColor::moveTo(const QPoint &pixel, bool isHeld)
{
    if (isHeld && texture().valid(pixel))
        fillFrom(pixel);
}

void PaintToolSelectByColor::fillFrom(const QPoint &seed)
{
    const auto mode = this->mode();
    if (!mode || (mode == SelectionMode::Subtract && selection().isNull()))
        return;
    if (m_colors.isNull())
        m_colors = fillColors(texture());
    if (isFilledAlready(seed, *mode))
        return;
    m_last = {seed, m_tolerance, *mode, colorFill(m_colors, seed, m_tolerance)};
    const FloatImage result = combined(selection(), m_last.mask, *mode);
    if (result.isNull())
        clearSelection();
    else
        select(result, mode == SelectionMode::Replace);
}

// Each pixel is compared with the seed alone: from a seed of the same colour inside of a fill comes
// the same fill.
bool PaintToolSelectByColor::isFilledAlready(const QPoint &seed, SelectionMode mode) const
{
    return !m_last.mask.isNull() && mode == m_last.mode && m_tolerance == m_last.tolerance &&
           m_last.mask.row(seed.y())[seed.x()] != 0.0F &&
           m_colors.pixel(seed) == m_colors.pixel(m_last.seed);
}
