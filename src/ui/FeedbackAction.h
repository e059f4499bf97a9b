#pragma once

#include <QString>

#include <functional>

class GAction;
class GMainWindow;
class GSettings;

/// Adds an entry that asks for feedback to the Help menu, and returns it for other places.
/// @p systemInformation tells about the window's own part of the system when it is triggered;
/// @p settings outlive the window.
GAction &addFeedbackAction(GMainWindow &window,
                           GSettings &settings,
                           const std::function<QString()> &systemInformation);
