#pragma once

#include "framework/ShortcutGroup.h"

#include <memory>
#include <vector>

class Filter;
class GSettings;
class PaintTool;

/// All tools of the editor, in the order of their buttons. @p settings outlive them.
std::vector<std::unique_ptr<PaintTool>> makeTools(const GSettings &settings);

/// All effects, likewise.
std::vector<std::unique_ptr<Filter>> makeEffects(GSettings &settings);

/// What mouse, pen and keys do in the view, with a tool and in an effect, for the list of
/// shortcuts.
QList<ShortcutGroup> editorGestures();
