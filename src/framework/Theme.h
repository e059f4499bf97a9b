#pragma once

#include "framework/ThemeColors.h"

enum class ThemeChoice { System, Dark, Light };

/// Sets style and palette of the application; may be called again at any time. System takes dark or
/// light after the desktop's own palette, dark where it tells nothing.
void applyTheme(ThemeChoice choice);
