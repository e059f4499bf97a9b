#include "tools/PaintTool.h"

#include "framework/GAction.h"
#include "tools/ToolPanel.h"

#include <QShortcut>
#include <QWidget>

PaintTool::PaintTool(const QIcon &icon,
                     const QString &label,
                     const QString &shortLabel,
                     const QString &shortcut,
                     QObject *parent)
    : AngleImageTool(icon, label, shortLabel, shortcut, parent)
    , m_settingsPanel(std::make_unique<QWidget>())
{
}

PaintTool::~PaintTool() = default;

QString PaintTool::text() const
{
    return action().text();
}

ToolPanel &PaintTool::panel()
{
    if (!m_panel)
        m_panel = std::make_unique<ToolPanel>(*m_settingsPanel);
    return *m_panel;
}

QVector<ToolSetting> PaintTool::settings() const
{
    return m_panel ? m_panel->settings() : QVector<ToolSetting>();
}

void PaintTool::addShortcut(const QKeySequence &keys, const std::function<void()> &run)
{
    auto *shortcut = new QShortcut(keys, m_settingsPanel.get());
    shortcut->setEnabled(false);
    connect(shortcut, &QShortcut::activated, this, run);
    // Two of them may be ways to write one key; the toolkit then tells of either.
    connect(shortcut, &QShortcut::activatedAmbiguously, this, run);
    m_shortcuts.append(shortcut);
}

void PaintTool::moveShortcuts(QWidget &widget)
{
    for (QShortcut *shortcut : std::as_const(m_shortcuts))
        shortcut->setParent(&widget);
}

void PaintTool::setInUse(bool isInUse)
{
    for (QShortcut *shortcut : std::as_const(m_shortcuts)) {
        if (shortcut)
            shortcut->setEnabled(isInUse);
    }
    if (m_panel)
        m_panel->setCommandsEnabled(isInUse);
}

void PaintTool::activate(const ToolContext & /*context*/, const AngleImage & /*image*/)
{
    setInUse(true);
}

void PaintTool::deactivate()
{
    setInUse(false);
}

void PaintTool::mousePress(const ToolPointerEvent & /*event*/) {}
void PaintTool::mouseMove(const ToolPointerEvent & /*event*/) {}
void PaintTool::mouseRelease(const ToolPointerEvent & /*event*/) {}
void PaintTool::mouseDoubleClick(const ToolPointerEvent & /*event*/) {}
void PaintTool::keyPress(int /*key*/, Qt::KeyboardModifiers /*modifiers*/) {}
void PaintTool::keyRelease(int /*key*/, Qt::KeyboardModifiers /*modifiers*/) {}

bool PaintTool::turnWheel(double /*notches*/, Qt::KeyboardModifiers /*modifiers*/)
{
    return false;
}

void PaintTool::reload() {}
// Values, for tools that keep them. NOLINTBEGIN(performance-unnecessary-value-param)
void PaintTool::updateTexture(QImage /*image*/) {}
void PaintTool::updateNormalMap(AngleImage /*normalmap*/) {}
void PaintTool::updateSelection(FloatImage /*selection*/) {}
// NOLINTEND(performance-unnecessary-value-param)
