#pragma once

#include <QRect>
#include <QStringList>

#include <functional>

class MainWindow;
class QWidget;

/// Does @p session in a window of the program with new settings, given the two arguments that
/// @p usage names, and returns the exit status.
int runSession(int argc,
               char **argv,
               const char *usage,
               const std::function<bool(MainWindow &window, const QStringList &words)> &session);
/// Shows @p window with nothing hovered over and waits until it has come up.
void showSettled(QWidget &window);
/// Waits until @p window is active and what it shows is up to date.
void waitUntilSettled(QWidget &window);
/// Saves what the screen shows of @p window, or of a part of it: what a user sees, and nothing
/// else.
bool savePicture(QWidget &window, const QString &path, const QRect &part = {});
