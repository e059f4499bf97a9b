#include "imaging/PoolThread.h"

#include <QThreadPool>

#include <algorithm>
#include <atomic>

namespace {
std::atomic<void (*)()> present{nullptr};
} // namespace

void setPoolThreadPrologue(void (*prologue)())
{
    present.store(prologue, std::memory_order_release);
}

void enterPoolThread()
{
    if (void (*const prologue)() = present.load(std::memory_order_acquire))
        prologue();
}

int backgroundThreads()
{
    return std::max(1, QThreadPool::globalInstance()->maxThreadCount() / 2);
}
