#include "ui/EditorTools.h"

#include "tools/PaintToolHeightBrush.h"
#include "tools/PaintToolMove.h"

#include <QCoreApplication>

namespace {
QString tr(const char *text)
{
    return QCoreApplication::translate("EditorTools", text);
}
} // namespace

// A brush is added here, and nowhere else in the window.
std::vector<std::unique_ptr<PaintTool>> makeTools(const GSettings & /*settings*/)
{
    std::vector<std::unique_ptr<PaintTool>> tools;
    tools.push_back(std::make_unique<PaintToolMove>());
    tools.push_back(std::make_unique<PaintToolHeightBrush>());
    return tools;
}

QList<ShortcutGroup> toolGestures()
{
    return {{tr("Brushes"),
             {{tr("Brush size"), tr("[ ], Ctrl+Wheel")},
              {tr("Hardness"), tr("Shift+[ ], Ctrl+Shift+Wheel")},
              {tr("Size and hardness"), tr("Ctrl+Alt+Right drag")},
              {tr("Opacity, 10 to 90 %, 100 %"), tr("1 to 9, 0")},
              {tr("Straight line from the last stroke"), tr("Shift+Click")},
              {tr("Take the stroke back"), tr("Esc")},
              {tr("Height brush: up or down"), tr("X")},
              {tr("Size, opacity or height"), tr("Pen pressure")},
              {tr("Erase, with any brush"), tr("Eraser end of the pen")}}}};
}
