#pragma once

#include <QString>

/// Why no window can be shown, in one sentence; empty when one can. Works without an application
/// object, whose constructor would abort; so it takes the arguments of main() for "-platform" and
/// "-display".
QString missingDisplay(int argc = 0, const char *const *argv = nullptr);
