#pragma once

#include <QtGlobal>

class LogRing;
class QString;

/// Where the program's messages go: as many as wished to standard error, all of them to the last
/// lines in memory and, once it is kept, to the log file. The steps are those of the system log.
namespace GLogger {
constexpr int warnings = 4;
constexpr int information = 6;
constexpr int debugging = 7;
constexpr int everything = 2147483647;

/// Takes over the toolkit's message handler.
void install();
/// Writes messages up to @p level to standard error from now on.
void setVerbosity(int level);
/// Writes all messages to a log file in @p folder too, of bounded size. Never fails: where no file
/// can be written, there is none.
void keepIn(const QString &folder);

/// What a report of a fault needs; readable at any time.
const LogRing &lastLines();
} // namespace GLogger
