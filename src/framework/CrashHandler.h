#pragma once

#include <QByteArray>

/// What is left to do when a fault ends the program: a report is written by calls that are allowed
/// in a signal handler, on a stack of its own, and the program ends as it would have without it.
/// Works where isSupported(), that is on Linux with the GNU C library; elsewhere nothing happens.
namespace CrashHandler {
bool isSupported();

/// At a fatal signal a report is written to @p path, in a folder that exists: @p header, the text
/// of setGraphics(), the signal, the last lines of the log, and where the program was.
void install(const QByteArray &path, const QByteArray &header);
/// The driver's strings, as soon as they are known.
void setGraphics(const QByteArray &text);
/// Gives the calling thread the stack that a report of its own stack's overflow needs, until the
/// thread ends. A fault of another kind is reported of any thread. The thread that installs has it.
void prepareThread();
} // namespace CrashHandler
