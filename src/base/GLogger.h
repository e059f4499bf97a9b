#pragma once

#include <QtGlobal>

/// How much of the log is written to standard error. The steps are those of the system log.
namespace GLogger {
constexpr int warnings = 4;
constexpr int information = 6;
constexpr int debugging = 7;
constexpr int everything = 2147483647;

/// Takes over the toolkit's message handler.
void install();
/// Writes messages up to @p level from now on.
void setVerbosity(int level);
} // namespace GLogger
