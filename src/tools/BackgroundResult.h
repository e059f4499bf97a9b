#pragma once

#include "imaging/AsyncUpdateThread.h"

#include <QCursor>
#include <QGuiApplication>

#include <optional>
#include <utility>

/// What a tool computes in the background while it is used: only the newest request counts, and
/// what was asked for before forget() is never seen. The algorithm is borrowed.
template <class Params, class Result>
class BackgroundResult
{
public:
    using Algorithm = SynchronousUpdateAlgorithm<Params, Result>;

    explicit BackgroundResult(Algorithm *algorithm)
        : m_thread(algorithm, true)
    {
    }

    /// Whose resultAvailable() calls for take().
    const AsyncUpdateThreadBase &thread() const { return m_thread; }
    void request(const Params &params) { m_thread.requestUpdate(params); }
    /// The result that has become available; nothing when it is an outdated one.
    std::optional<Result> take();
    /// What the result was computed from.
    const Params &params() const { return m_thread.finishedParams(); }
    /// Lets go of all that is kept here or waits, as soon as that can be without waiting.
    void forget();
    /// For commands that need the result; shows that the user has to wait.
    void waitForIdle();

private:
    AsyncUpdateThread<Params, Result> m_thread;
    bool m_isOutdated = false; ///< what is computed now
};

template <class Params, class Result>
std::optional<Result> BackgroundResult<Params, Result>::take()
{
    if (std::exchange(m_isOutdated, false))
        return {};
    return m_thread.result();
}

template <class Params, class Result>
void BackgroundResult<Params, Result>::forget()
{
    m_isOutdated = m_thread.isBusy();
    // Takes the place of a request that waits, and of the last result.
    m_thread.requestUpdate({});
}

template <class Params, class Result>
void BackgroundResult<Params, Result>::waitForIdle()
{
    if (!m_thread.isBusy())
        return;
    QGuiApplication::setOverrideCursor(Qt::WaitCursor);
    m_thread.waitForIdle();
    QGuiApplication::restoreOverrideCursor();
}
