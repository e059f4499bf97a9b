#include "framework/ThemeColors.h"

namespace {

struct Shades
{
    QRgb window, base, alternate, button, toolTip;
    QRgb text, quiet, disabled, link;
    QRgb line, field;
    QRgb accent, onAccent, trouble;
};

constexpr Shades dark{.window = 0xff2d2d30,
                      .base = 0xff232326,
                      .alternate = 0xff28282b,
                      .button = 0xff3e3e42,
                      .toolTip = 0xff1d1d1f,
                      .text = 0xffe8e8ea,
                      .quiet = 0xffa5a5ab,
                      .disabled = 0xff7c7c83,
                      .link = 0xfff2b155,
                      .line = 0xff1a1a1c,
                      .field = 0xff7b7b82,
                      .accent = 0xfff2b155,
                      .onAccent = 0xff1d1d1f,
                      .trouble = 0xffe97a72};

// The accent as text on the window's grey would fall short of 4.5:1, so links are darker.
constexpr Shades light{.window = 0xffededee,
                       .base = 0xffffffff,
                       .alternate = 0xfff6f6f7,
                       .button = 0xffdcdcdf,
                       .toolTip = 0xffffffff,
                       .text = 0xff202024,
                       .quiet = 0xff5c5c63,
                       .disabled = 0xff88888f,
                       .link = 0xff8f4f06,
                       .line = 0xffc6c6cb,
                       .field = 0xff82828a,
                       .accent = 0xffa55c08,
                       .onAccent = 0xffffffff,
                       .trouble = 0xffb3261e};

} // namespace

QPalette themePalette(bool isDark)
{
    const Shades &shades = isDark ? dark : light;
    const QColor window(shades.window);
    QPalette palette;
    const auto set = [&palette](QPalette::ColorRole role, QRgb color) {
        palette.setColor(role, QColor(color));
    };
    set(QPalette::Window, shades.window);
    set(QPalette::WindowText, shades.text);
    set(QPalette::Base, shades.base);
    set(QPalette::AlternateBase, shades.alternate);
    set(QPalette::ToolTipBase, shades.toolTip);
    set(QPalette::ToolTipText, shades.text);
    set(QPalette::PlaceholderText, shades.quiet);
    set(QPalette::Text, shades.text);
    set(QPalette::Button, shades.button);
    set(QPalette::ButtonText, shades.text);
    set(QPalette::BrightText, shades.trouble);
    set(QPalette::Highlight, shades.accent);
    set(QPalette::HighlightedText, shades.onAccent);
    set(QPalette::Link, shades.link);
    set(QPalette::LinkVisited, shades.link);
    set(QPalette::Mid, shades.line);
    set(QPalette::Dark, shades.line);
    set(QPalette::Shadow, shades.line);
    palette.setColor(QPalette::Light, window.lighter(130));
    palette.setColor(QPalette::Midlight, window.lighter(115));
    for (const QPalette::ColorRole role : {QPalette::WindowText,
                                           QPalette::Text,
                                           QPalette::ButtonText,
                                           QPalette::PlaceholderText,
                                           QPalette::Link,
                                           QPalette::LinkVisited})
        palette.setColor(QPalette::Disabled, role, QColor(shades.disabled));
    palette.setColor(QPalette::Disabled, QPalette::Base, window);
    palette.setColor(QPalette::Disabled, QPalette::Highlight, QColor(shades.button));
    palette.setColor(QPalette::Disabled, QPalette::HighlightedText, QColor(shades.disabled));
    return palette;
}

bool isDarkPalette(const QPalette &palette)
{
    return palette.color(QPalette::Window).lightness() < 128;
}

ThemeColors themeColors(const QPalette &palette)
{
    const Shades &shades = isDarkPalette(palette) ? dark : light;
    return {QColor(shades.quiet),
            QColor(shades.line),
            QColor(shades.field),
            QColor(shades.accent),
            QColor(shades.onAccent),
            QColor(shades.trouble)};
}
