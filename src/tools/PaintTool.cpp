#include "tools/PaintTool.h"

#include "framework/GAction.h"

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

void PaintTool::activate(const ToolContext & /*context*/, const AngleImage & /*image*/) {}
void PaintTool::deactivate() {}
void PaintTool::mousePress(const ToolPointerEvent & /*event*/) {}
void PaintTool::mouseMove(const ToolPointerEvent & /*event*/) {}
void PaintTool::mouseRelease(const ToolPointerEvent & /*event*/) {}
void PaintTool::mouseDoubleClick(const ToolPointerEvent & /*event*/) {}
void PaintTool::keyPress(int /*key*/, Qt::KeyboardModifiers /*modifiers*/) {}
void PaintTool::keyRelease(int /*key*/, Qt::KeyboardModifiers /*modifiers*/) {}
// Values, for tools that keep them. NOLINTBEGIN(performance-unnecessary-value-param)
void PaintTool::updateTexture(QImage /*image*/) {}
void PaintTool::updateNormalMap(AngleImage /*normalmap*/) {}
void PaintTool::updateSelection(FloatImage /*selection*/) {}
// NOLINTEND(performance-unnecessary-value-param)
