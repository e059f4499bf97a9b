#pragma once

#include <QString>
#include <QWidget>

#include <algorithm>

inline QString operator""_s(const char *text, std::size_t size)
{
    return QString::fromUtf8(text, int(size));
}

/// Shows @p window and waits until it has the keyboard; ends the test when it never has.
void showActive(QWidget &window);

/// Whether a shown label in @p parent holds @p text.
bool showsText(const QWidget &parent, const QString &text);

/// The shown widget of a kind and an accessible name in @p parent; ends the test without one.
template <class Widget>
Widget &shownChild(const QWidget &parent, const QString &name)
{
    const auto widgets = parent.findChildren<Widget *>();
    const auto found = std::find_if(widgets.begin(), widgets.end(), [&name](const Widget *each) {
        return each->isVisible() && each->accessibleName() == name;
    });
    if (found == widgets.end())
        qFatal("There is no '%s' to be seen", qUtf8Printable(name));
    return **found;
}
