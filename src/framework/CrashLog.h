#pragma once

#include <QDateTime>
#include <QString>

#include <optional>

/// The reports that faults leave behind, and their way from one start of the program to the next.
/// They stay on this computer: nothing is sent.
namespace CrashLog {
struct Report
{
    QString path;
    QDateTime time;
    QString text; ///< the names of functions as they are written in the sources
};

constexpr int kept = 5; ///< reports of former runs, the newest ones

/// Where the reports of this program are.
QString folder();

/// Keeps the log in its file and writes a report if this run ends by a fault. Called by main() once
/// the application has its name.
void start();
/// Only the reports, in @p folder.
void install(const QString &folder);

/// The newest report in @p folder that was not taken before. Those that are older count as taken
/// too.
std::optional<Report> takeUnread(const QString &folder);

/// The newest report in @p folder that was taken before.
std::optional<Report> lastTaken(const QString &folder);

/// What happened, in plain words, as far as @p report tells.
QString explain(const Report &report);
} // namespace CrashLog
