#pragma once

#include <cstddef>
#include <cstdint>

#ifdef __linux__
#include <sys/mman.h>
#endif

/// Asks the system for large pages under a large block that was just allocated: to touch small ones
/// for the first time, and to give them back, costs as much as simple work on what they hold.
inline void useLargePages(const void *memory, std::size_t bytes)
{
#ifdef __linux__
    // The allocator puts smaller blocks among others; these are mapped for themselves.
    constexpr std::size_t large = std::size_t(32) << 20U;
    constexpr std::uintptr_t page = 4096;
    if (bytes <= large)
        return;
    const auto begin = (reinterpret_cast<std::uintptr_t>(memory) + page - 1) & ~(page - 1);
    const auto end = (reinterpret_cast<std::uintptr_t>(memory) + bytes) & ~(page - 1);
    madvise(
        reinterpret_cast<void *>(begin), end - begin, MADV_HUGEPAGE); // a refusal costs only time
#else
    (void)memory;
    (void)bytes;
#endif
}
