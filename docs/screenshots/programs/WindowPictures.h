#pragma once

#include <QRect>

class QString;
class QWidget;

/// Shows @p window with nothing hovered over and waits until it has come up.
void showSettled(QWidget &window);
/// Waits until @p window is active and what it shows is up to date.
void waitUntilSettled(QWidget &window);
/// Saves what the screen shows of @p window, or of a part of it: what a user sees, and nothing
/// else.
bool savePicture(QWidget &window, const QString &path, const QRect &part = {});
