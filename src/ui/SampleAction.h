#pragma once

#include <QString>

#include <functional>

class GMainWindow;

/// Adds an entry that opens the sample project to the Help menu, where that is installed.
void addSampleAction(GMainWindow &window, const std::function<void(const QString &path)> &open);
