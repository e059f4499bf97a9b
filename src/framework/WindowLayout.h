#pragma once

#include <QList>

class GSettings;
class QAction;
class QMainWindow;
class QWidget;

// Geometry, toolbars, splitters (those with an object name) and shown panels of a window, kept in
// the settings under "window/".

/// Where and how large a window was: also the sizes in its splitters.
void keepLayout(const QMainWindow &window, GSettings &settings);
void restoreLayout(QMainWindow &window, const GSettings &settings);

/// The check entry that shows and hides @p panel, named by its window title, and follows it when
/// something else does so; a child of @p panel.
QAction *createPanelAction(QWidget *panel);

/// Buttons in @p panel take the focus by the Tab key, not by a click, which leaves it where the
/// user works.
void leaveFocusOnClick(QWidget &panel);
