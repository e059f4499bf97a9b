#include "ui/EditorTools.h"

#include "tools/PaintToolAngleBrush.h"
#include "tools/PaintToolBlurBrush.h"
#include "tools/PaintToolEraser.h"
#include "tools/PaintToolHeightBrush.h"
#include "tools/PaintToolMove.h"
#include "tools/PaintToolSelectByColor.h"
#include "tools/PaintToolSelectWithPolygon.h"
#include "tools/PaintToolStructure.h"
#include "tools/effects/FilterCreateRim.h"
#include "tools/effects/FilterEmboss.h"
#include "tools/effects/ImportNormalMap.h"
#include "tools/effects/ImportNormalMaps.h"

#include <QCoreApplication>

namespace {
QString tr(const char *text)
{
    return QCoreApplication::translate("EditorTools", text);
}
} // namespace

// A brush is added here, and nowhere else in the window.
std::vector<std::unique_ptr<PaintTool>> makeTools(const GSettings &settings)
{
    std::vector<std::unique_ptr<PaintTool>> tools;
    tools.push_back(std::make_unique<PaintToolMove>());
    tools.push_back(std::make_unique<PaintToolHeightBrush>());
    tools.push_back(std::make_unique<PaintToolAngleBrush>());
    tools.push_back(std::make_unique<PaintToolStructure>(settings));
    tools.push_back(std::make_unique<PaintToolBlurBrush>());
    tools.push_back(std::make_unique<PaintToolEraser>());
    tools.push_back(std::make_unique<PaintToolSelectByColor>());
    tools.push_back(std::make_unique<PaintToolSelectWithPolygon>());
    return tools;
}

std::vector<std::unique_ptr<Filter>> makeEffects(GSettings &settings)
{
    std::vector<std::unique_ptr<Filter>> effects;
    effects.push_back(std::make_unique<FilterCreateRim>());
    effects.push_back(std::make_unique<FilterEmboss>());
    effects.push_back(std::make_unique<ImportNormalMap>(settings));
    effects.push_back(std::make_unique<ImportNormalMaps>(settings));
    return effects;
}

QList<ShortcutGroup> editorGestures()
{
    const ShortcutGroup view{tr("View and sprites"),
                             {{tr("Move the light"), tr("Drag it")},
                              {tr("Place the light at the pointer"), tr("P")},
                              {tr("Zoom around the pointer"), tr("Alt+Wheel")},
                              {tr("Pan"), tr("Space+Drag, middle button")},
                              {tr("Add a sprite to the selection"), tr("Ctrl or Shift+Click")},
                              {tr("Select the sprites in a frame"), tr("Drag beside sprites")}}};
    const ShortcutGroup brushes{tr("Brushes"),
                                {{tr("Brush size"), tr("[ ], Ctrl+Wheel")},
                                 {tr("Hardness"), tr("Shift+[ ], Ctrl+Shift+Wheel")},
                                 {tr("Size and hardness"), tr("Ctrl+Alt+Right drag")},
                                 {tr("Opacity, 10 to 90 %, 100 %"), tr("1 to 9, 0")},
                                 {tr("Straight line from the last stroke"), tr("Shift+Click")},
                                 {tr("Take the stroke back"), tr("Esc")},
                                 {tr("Height brush: up or down"), tr("X")},
                                 {tr("Angle brush: pick an angle"), tr("Alt+Click")},
                                 {tr("Size, opacity or height"), tr("Pen pressure")},
                                 {tr("Erase with any brush"), tr("Eraser end of the pen")}}};
    const ShortcutGroup selection{tr("Selecting pixels"),
                                  {{tr("Add to the selection"), tr("Shift+Click")},
                                   {tr("Subtract from the selection"), tr("Alt+Click")},
                                   {tr("Lasso: close"), tr("Enter, double click")},
                                   {tr("Lasso: remove the last corner"), tr("Backspace")},
                                   {tr("Lasso: cancel"), tr("Esc")}}};
    const ShortcutGroup effects{tr("Bevel and emboss"),
                                {{tr("Apply"), tr("Enter")}, {tr("Discard"), tr("Esc")}}};
    return {view, brushes, selection, effects};
}
