// Two tasks of the pool add to a number that nothing guards. The test passes when the thread
// sanitizer, with the suppressions that all tests run under, reports it.

#include "imaging/PoolTask.h"

#include <atomic>

int main()
{
    QThreadPool::globalInstance()->setMaxThreadCount(2);
    int unguarded = 0;
    std::atomic<int> arrived = 0;
    const auto add = [&unguarded, &arrived] {
        // On two threads for sure, in an order that nothing but luck decides.
        arrived.fetch_add(1, std::memory_order_relaxed);
        while (arrived.load(std::memory_order_relaxed) < 2)
            continue;
        return ++unguarded;
    };
    PoolTask<int> one(add);
    PoolTask<int> other(add);
    return one.take() + other.take() > 0 ? 0 : 1;
}
