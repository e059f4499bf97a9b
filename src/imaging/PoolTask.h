#pragma once

#include "imaging/PoolThread.h"

#include <QRunnable>
#include <QThreadPool>

#include <chrono>
#include <condition_variable>
#include <exception>
#include <functional>
#include <memory>
#include <mutex>

/// One computation on the global thread pool and the place of its result. Destroying it waits for
/// the work, which owns what it uses. No task waits for another one.
///
/// Everything crosses threads under a mutex of our own, since the thread sanitizer knows nothing of
/// the locks inside the toolkit's pool.
template <class Result>
class PoolTask
{
public:
    PoolTask() = default;
    /// Starts @p work. Then @p finished is called on the pool's thread, before anybody gets at the
    /// result: who waited for it may destroy what @p finished uses.
    explicit PoolTask(std::function<Result()> work, std::function<void()> finished = {})
        : m_slot(std::make_shared<Slot>())
    {
        QThreadPool::globalInstance()->start(
            new Runnable(m_slot, std::move(work), std::move(finished)));
    }

    ~PoolTask()
    {
        if (isValid())
            wait();
    }
    PoolTask(PoolTask &&) noexcept = default;
    PoolTask &operator=(PoolTask &&) noexcept = default;

    /// False for a default-made task, and after take().
    bool isValid() const { return m_slot != nullptr; }

    /// True when take() would not have to wait.
    bool isFinished() const
    {
        const std::lock_guard lock(m_slot->mutex);
        return m_slot->isDone();
    }

    void wait() const { m_slot->waitLocked(); }

    /// Waits at most @p patience; false when the work goes on.
    bool waitFor(std::chrono::milliseconds patience) const
    {
        std::unique_lock lock(m_slot->mutex);
        return m_slot->condition.wait_for(lock, patience, [this] { return m_slot->isDone(); });
    }

    /// Waits for the result and hands it over; once. Throws what the work threw.
    Result take()
    {
        const auto slot = std::move(m_slot);
        const auto lock = slot->waitLocked();
        if (slot->problem)
            std::rethrow_exception(slot->problem);
        return std::move(*slot->result);
    }

private:
    struct Slot
    {
        std::mutex mutex;
        std::condition_variable condition;
        std::unique_ptr<Result> result;
        std::exception_ptr problem;

        bool isDone() const { return result || problem; }

        std::unique_lock<std::mutex> waitLocked()
        {
            std::unique_lock lock(mutex);
            condition.wait(lock, [this] { return isDone(); });
            return lock;
        }
    };

    class Runnable : public QRunnable
    {
    public:
        Runnable(const std::shared_ptr<Slot> &slot,
                 std::function<Result()> work,
                 std::function<void()> finished)
        {
            m_slot = slot;
            m_work = std::move(work);
            m_finished = std::move(finished);
            const std::lock_guard handOver(s_handOver);
        }

        void run() override
        {
            enterPoolThread();
            s_handOver.lock();
            s_handOver.unlock();
            std::unique_ptr<Result> result;
            std::exception_ptr problem;
            try {
                result = std::make_unique<Result>(m_work());
            } catch (...) {
                problem = std::current_exception();
            }
            m_work = nullptr; // what the work held is free before anybody is told
            const std::lock_guard lock(m_slot->mutex);
            m_slot->result = std::move(result);
            m_slot->problem = problem;
            if (m_finished)
                m_finished();
            m_slot->condition.notify_all();
        }

    private:
        // Not one of each task: a lock in memory that was handed over unseen is suspect itself.
        static inline std::mutex s_handOver;
        std::shared_ptr<Slot> m_slot;
        std::function<Result()> m_work;
        std::function<void()> m_finished;
    };

    std::shared_ptr<Slot> m_slot;
};
