#include "tools/PaintToolSelect.h"

#include "tools/ToolPanel.h"

#include <QAbstractButton>
#include <QButtonGroup>
#include <QPixmap>

namespace {

// X11 calls Alt Meta while Shift is held.
Qt::KeyboardModifiers modifiersOf(int key)
{
    switch (key) {
    case Qt::Key_Shift:
        return Qt::ShiftModifier;
    case Qt::Key_Control:
        return Qt::ControlModifier;
    case Qt::Key_Alt:
        return Qt::AltModifier;
    case Qt::Key_Meta:
        return Qt::AltModifier | Qt::MetaModifier;
    default:
        return Qt::NoModifier;
    }
}

QString cursorFile(std::optional<SelectionMode> mode)
{
    if (mode == SelectionMode::Add)
        return QStringLiteral(":/cursors/cross-add.png");
    if (mode == SelectionMode::Subtract)
        return QStringLiteral(":/cursors/cross-subtract.png");
    return QStringLiteral(":/cursors/cross.png");
}

} // namespace

void PaintToolSelect::activate(const ToolContext &context, const AngleImage &image)
{
    PaintTool::activate(context, image);
    m_texture = context.texture;
    m_selection = context.selection;
    m_modifiers = Qt::NoModifier;
    Q_EMIT interactionModeChanged(InteractionMode::Tool);
    showCursor();
}

void PaintToolSelect::deactivate()
{
    m_texture = {};
    m_selection = {};
    PaintTool::deactivate();
}

std::optional<SelectionMode> PaintToolSelect::mode() const
{
    switch (int(m_modifiers)) {
    case Qt::NoModifier:
        return m_modeWithoutKeys;
    case Qt::ShiftModifier:
        return SelectionMode::Add;
    case Qt::AltModifier:
        return SelectionMode::Subtract;
    default:
        return std::nullopt;
    }
}

void PaintToolSelect::addModeSwitch()
{
    // In the order of SelectionMode.
    const QButtonGroup *group = panel().addSwitch(QStringLiteral("SelectionMode"),
                                                  {tr("Replace"), tr("Add"), tr("Subtract")});
    group->button(0)->setToolTip(tr("What you select takes the place of the selection"));
    group->button(1)->setToolTip(tr("Adds to the selection, as Shift does"));
    group->button(2)->setToolTip(tr("Takes away from the selection, as Alt does"));
    connect(group, &QButtonGroup::idToggled, this, [this](int id, bool isChecked) {
        if (!isChecked)
            return;
        m_modeWithoutKeys = SelectionMode(id);
        showCursor();
    });
}

void PaintToolSelect::select(const FloatImage &selection, bool mergeWithPrevious)
{
    // The answer through updateSelection() may bring another one.
    m_selection = selection;
    Q_EMIT selectionChanged(selection, tr("pixel selection changed"), mergeWithPrevious);
}

void PaintToolSelect::clearSelection()
{
    m_selection = {};
    Q_EMIT selectionChanged({}, tr("pixel selection cleared"));
}

void PaintToolSelect::mousePress(const ToolPointerEvent &event)
{
    setModifiers(event.modifiers);
    if (event.changedButton == Qt::LeftButton)
        pressAt(event.pixel());
}

void PaintToolSelect::mouseMove(const ToolPointerEvent &event)
{
    setModifiers(event.modifiers);
    moveTo(event.pixel(), event.buttons.testFlag(Qt::LeftButton));
}

void PaintToolSelect::mouseDoubleClick(const ToolPointerEvent &event)
{
    setModifiers(event.modifiers);
    if (event.changedButton == Qt::LeftButton)
        doubleClickAt(event.pixel());
}

// Whether the modifiers hold the key itself differs: X11 tells how it was before the event.
void PaintToolSelect::keyPress(int key, Qt::KeyboardModifiers modifiers)
{
    setModifiers(modifiers | modifiersOf(key));
}

void PaintToolSelect::keyRelease(int key, Qt::KeyboardModifiers modifiers)
{
    setModifiers(modifiers & ~modifiersOf(key));
}

void PaintToolSelect::setModifiers(Qt::KeyboardModifiers modifiers)
{
    // Neither a keypad nor a keyboard's second group changes a meaning.
    constexpr auto known =
        Qt::ShiftModifier | Qt::ControlModifier | Qt::AltModifier | Qt::MetaModifier;
    if ((modifiers & known) == m_modifiers)
        return;
    m_modifiers = modifiers & known;
    showCursor();
}

void PaintToolSelect::showCursor()
{
    const QPixmap picture(cursorFile(mode()));
    Q_EMIT cursorChanged(ScalableToolCursor(picture, {-1, -1}));
}

// Kept. NOLINTBEGIN(performance-unnecessary-value-param)
void PaintToolSelect::updateTexture(QImage image)
{
    m_texture = image;
}

void PaintToolSelect::updateSelection(FloatImage selection)
{
    m_selection = selection;
}
// NOLINTEND(performance-unnecessary-value-param)
