#pragma once

#include "imaging/PoolTask.h"

#include <chrono>
#include <cstddef>
#include <deque>
#include <functional>
#include <utility>

/// Many computations side by side on the global thread pool, a few ahead of the one whose result is
/// asked for; results come in order.
template <class Result>
class PoolQueue
{
public:
    /// Makes the computation of one index, on the caller's thread, when its turn comes.
    using Work = std::function<std::function<Result()>(int index)>;

    /// @p jobs are worked on at a time; 0 for one a processor.
    PoolQueue(int count, Work work, int jobs = 0)
        : m_count(count)
        , m_work(std::move(work))
    {
        const int processors = QThreadPool::globalInstance()->maxThreadCount();
        // One more than is worked on waits, so that no processor idles while a result is used.
        m_ahead = std::size_t(jobs > 0 ? jobs : processors) + 1;
    }

    /// Waits for the next result, of which there are as many as indices. Throws what the work
    /// threw.
    Result next()
    {
        start();
        auto task = std::move(m_tasks.front());
        m_tasks.pop_front();
        return task.take();
    }

    /// Waits at most @p patience; false when next() would have to wait longer.
    bool waitForNext(std::chrono::milliseconds patience)
    {
        start();
        return m_tasks.front().waitFor(patience);
    }

private:
    void start()
    {
        for (; m_tasks.size() < m_ahead && m_started < m_count; ++m_started)
            m_tasks.emplace_back(m_work(m_started));
    }

    int m_count;
    Work m_work;
    std::size_t m_ahead;
    int m_started = 0;
    std::deque<PoolTask<Result>> m_tasks;
};
