#pragma once

#include <QString>

/// How a command ended, as the shell sees it.
enum class ExitCode {
    Done = 0,
    Failed = 1,
    Usage = 2,
    Unreadable = 3, ///< a project can't be read
    Partly = 4,     ///< what could be done is done, the rest is named
};

/// The terminal: data on standard output, words on standard error. What a line can't hold stands in
/// it as shownText() gives it.
class Console
{
public:
    enum class PathEnd { Line, Null };
    explicit Console(bool quiet, PathEnd pathEnd = PathEnd::Line)
        : m_quiet(quiet)
        , m_endsPathsInNull(pathEnd == PathEnd::Null)
    {
    }

    /// A line of what was asked for.
    void data(const QString &line);
    /// The path of a file that was written, as it is and ended by a NUL where that was asked for.
    void path(const QString &path);
    /// False, and says so, when not all data could be written.
    bool isComplete();
    /// A line for a reader; not when quiet.
    void tell(const QString &line);
    /// A line that says what went wrong.
    void complain(const QString &line);
    /// A bar that is drawn over itself, only where somebody can watch it.
    void showProgress(int done, int total);

private:
    void endProgress();

    bool m_quiet;
    bool m_endsPathsInNull;
    bool m_showsProgress = false;
    bool m_lostData = false;
};
