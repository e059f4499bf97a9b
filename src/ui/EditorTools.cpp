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
struct Words
{
    Q_DECLARE_TR_FUNCTIONS(EditorTools)
};
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
    const ShortcutGroup view{
        Words::tr("View and sprites"),
        {{Words::tr("Move the light"), Words::tr("Drag it")},
         {Words::tr("Place the light at the pointer"), Words::tr("P")},
         {Words::tr("Zoom around the pointer"), Words::tr("Alt or Space+Wheel")},
         {Words::tr("Pan"), Words::tr("Space+Drag, middle button")},
         {Words::tr("Add a sprite to the selection"), Words::tr("Ctrl or Shift+Click")},
         {Words::tr("Select the sprites in a frame"), Words::tr("Drag beside sprites")}}};
    const ShortcutGroup brushes{
        Words::tr("Brushes"),
        {{Words::tr("Brush size"), Words::tr("[ ], Ctrl+Wheel")},
         {Words::tr("Hardness"), Words::tr("Shift+[ ], Ctrl+Shift+Wheel")},
         {Words::tr("Size and hardness"), Words::tr("Ctrl+Alt+Right drag")},
         {Words::tr("Opacity, 10 to 90 %, 100 %"), Words::tr("1 to 9, 0")},
         {Words::tr("Straight line from the last stroke"), Words::tr("Shift+Click")},
         {Words::tr("Take the stroke back"), Words::tr("Esc")},
         {Words::tr("Height brush: up or down"), Words::tr("X")},
         {Words::tr("Angle brush: pick an angle"), Words::tr("Alt+Click")},
         {Words::tr("Size, opacity or height"), Words::tr("Pen pressure")},
         {Words::tr("Erase with any brush"), Words::tr("Eraser end of the pen")}}};
    const ShortcutGroup selection{
        Words::tr("Selecting pixels"),
        {{Words::tr("Add to the selection"), Words::tr("Shift+Click")},
         {Words::tr("Subtract from the selection"), Words::tr("Alt+Click")},
         {Words::tr("Lasso: close"), Words::tr("Enter, double click")},
         {Words::tr("Lasso: remove the last corner"), Words::tr("Backspace")},
         {Words::tr("Lasso: cancel"), Words::tr("Esc")}}};
    const ShortcutGroup effects{
        Words::tr("Bevel and emboss"),
        {{Words::tr("Apply"), Words::tr("Enter")}, {Words::tr("Discard"), Words::tr("Esc")}}};
    return {view, brushes, selection, effects};
}
