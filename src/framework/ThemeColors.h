#pragma once

#include <QColor>
#include <QPalette>

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

/// The further colours that go with @p palette, told by the lightness of its window colour.
ThemeColors themeColors(const QPalette &palette);

/// All roles of the dark or the light theme.
QPalette themePalette(bool isDark);
bool isDarkPalette(const QPalette &palette);
