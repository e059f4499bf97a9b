#pragma once

#include <QColor>
#include <QPalette>

enum class ThemeChoice { System, Dark, Light };

/// The colours that a palette has no role for.
struct ThemeColors
{
    QColor quietText; ///< labels of groups, second lines
    QColor line;      ///< separators and borders
    QColor field;     ///< borders of what can be filled in or ticked
    QColor accent;    ///< what is active or adds something
    QColor onAccent;  ///< text and icons on the accent
    QColor trouble;
};

/// Sets style and palette of the application; may be called again at any time. System takes dark or
/// light after the desktop's own palette, dark where it tells nothing.
void applyTheme(ThemeChoice choice);

/// The further colours that go with @p palette, told by the lightness of its window colour.
ThemeColors themeColors(const QPalette &palette);
