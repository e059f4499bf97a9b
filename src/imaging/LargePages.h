#pragma once

#include <cstddef>
#include <cstdint>

#ifdef __linux__
#include <sys/mman.h>
#endif

/// Asks the system for large pages under what lies whole in @p memory and was not touched so far:
/// to touch small ones for the first time, and to give them back, costs as much as simple work on
/// what they hold. A refusal costs only time.
inline void adviseLargePages([[maybe_unused]] void *memory, [[maybe_unused]] std::size_t bytes)
{
#ifdef __linux__
    constexpr std::size_t page = 4096;
    const std::size_t before = -reinterpret_cast<std::uintptr_t>(memory) % page;
    if (bytes < before + page)
        return;
    char *begin = static_cast<char *>(memory) + before;
    madvise(begin, (bytes - before) / page * page, MADV_HUGEPAGE);
#endif
}

/// The same for a block that was just allocated in whatever way, when it is large.
inline void useLargePages(const void *memory, std::size_t bytes)
{
    // The allocator puts smaller blocks among others; these are mapped for themselves.
    constexpr std::size_t large = std::size_t(32) << 20U;
    if (bytes > large)
        adviseLargePages(const_cast<void *>(memory), bytes);
}
