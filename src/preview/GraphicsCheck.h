#pragma once

#include <QString>

/// Why the preview can't work with this graphics stack, empty when it can: "Installed OpenGL has no
/// shader support!" (also when no context can be made) or "Installed OpenGL has no multi-texturing
/// support!". @p information, if given, becomes what graphicsInformation() tells.
QString checkGraphics(QString *information = nullptr);

/// Vendor, renderer, version, shading language and texture limit, one a line.
QString graphicsInformation();

/// Sets the format that every OpenGL surface of the program has; called before the application
/// object is made.
void prepareGraphics();
