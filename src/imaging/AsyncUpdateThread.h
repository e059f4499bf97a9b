#pragma once

#include "imaging/PoolTask.h"
#include "imaging/SynchronousUpdateAlgorithm.h"

#include <QObject>
#include <QPointer>
#include <QVector>

#include <utility>

/// The part of AsyncUpdateThread that signals; it lives on the interface thread.
class AsyncUpdateThreadBase : public QObject
{
    Q_OBJECT

public:
    AsyncUpdateThreadBase();

public Q_SLOTS:
    /// Delivers the result of the running task when it is there. A call that comes late, as for a
    /// task that was waited for, does nothing.
    virtual void updateTaskFinished() = 0;

Q_SIGNALS:
    /// A task has finished: its result can be read.
    void resultAvailable();
    /// Emitted on the pool's thread.
    void taskComputed(QPrivateSignal);

protected:
    void postTaskFinished() { Q_EMIT taskComputed({}); }
};

/// Runs the requests of one owner in the background, one at a time and in their order, and hands
/// each result over on the interface thread. The algorithm is borrowed and outlives this.
///
/// The destructor waits for a running task; neither its result nor what is queued is delivered.
template <class Params, class Result>
class AsyncUpdateThread : public AsyncUpdateThreadBase
{
public:
    using Algorithm = SynchronousUpdateAlgorithm<Params, Result>;

    /// With @p mergeRequests at most one request waits: a new one is merged into it.
    AsyncUpdateThread(Algorithm *algorithm, bool mergeRequests)
        : m_algorithm(algorithm)
        , m_mergeRequests(mergeRequests)
    {
    }
    ~AsyncUpdateThread() override;

    void requestUpdate(const Params &params);
    /// The last result; default-made before the first resultAvailable().
    const Result &result() const { return m_result; }
    /// What the last result was computed from.
    const Params &finishedParams() const { return m_finished; }
    bool isBusy() const { return m_busy; }
    /// Returns when no task runs and none is queued, having delivered each result as it came.
    void waitForIdle();
    /// Waits at most @p patience for the running task, and delivers its result; false when it goes
    /// on.
    bool waitForResult(std::chrono::milliseconds patience);

    void updateTaskFinished() override;

private:
    void start();

    Algorithm *m_algorithm;
    bool m_mergeRequests;
    bool m_busy = false;
    PoolTask<Result> m_task;
    QVector<Params> m_queue;
    Result m_result;
    Params m_running;
    Params m_finished;
};

template <class Params, class Result>
AsyncUpdateThread<Params, Result>::~AsyncUpdateThread()
{
    if (m_busy)
        m_task.wait();
}

template <class Params, class Result>
void AsyncUpdateThread<Params, Result>::requestUpdate(const Params &params)
{
    if (m_mergeRequests && !m_queue.isEmpty())
        m_queue.append(m_algorithm->merge(m_queue.takeFirst(), params));
    else
        m_queue.append(params);
    start();
}

template <class Params, class Result>
void AsyncUpdateThread<Params, Result>::start()
{
    if (m_busy || m_queue.isEmpty())
        return;
    m_running = m_queue.takeFirst();
    m_busy = true;
    m_task = PoolTask<Result>(
        [algorithm = m_algorithm, params = m_running] { return algorithm->compute(params); },
        [this] { postTaskFinished(); });
}

template <class Params, class Result>
void AsyncUpdateThread<Params, Result>::updateTaskFinished()
{
    if (!m_busy || !m_task.isFinished())
        return;
    m_busy = false;
    m_result = m_task.take();
    m_finished = std::exchange(m_running, {});
    const QPointer<AsyncUpdateThreadBase> alive(this);
    Q_EMIT resultAvailable();
    if (alive)
        start();
}

template <class Params, class Result>
void AsyncUpdateThread<Params, Result>::waitForIdle()
{
    const QPointer<AsyncUpdateThreadBase> alive(this);
    start(); // called from resultAvailable(), nothing runs yet while something waits
    while (alive && m_busy) {
        m_task.wait();
        updateTaskFinished();
    }
}

template <class Params, class Result>
bool AsyncUpdateThread<Params, Result>::waitForResult(std::chrono::milliseconds patience)
{
    if (m_busy && !m_task.waitFor(patience))
        return false;
    updateTaskFinished();
    return true;
}
