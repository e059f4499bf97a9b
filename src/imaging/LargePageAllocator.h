#pragma once

#include <cstdlib>
#include <new>

#ifdef __linux__
#include <sys/mman.h>
#endif

/// Asks the system for large pages where there is much to store: the first touch of small ones
/// costs as much as simple work on what they hold.
template <class T>
class LargePageAllocator
{
public:
    using value_type = T;

    LargePageAllocator() = default;
    template <class Other>
    // NOLINTNEXTLINE(google-explicit-constructor): as allocators convert
    LargePageAllocator(const LargePageAllocator<Other> &)
    {
    }

    T *allocate(std::size_t count)
    {
        constexpr std::size_t page = std::size_t(2) << 20U;
        const std::size_t bytes = count * sizeof(T);
        const bool isLarge = bytes >= 2 * page;
        const std::size_t rounded = isLarge ? (bytes + page - 1) / page * page : bytes;
        void *memory = isLarge ? std::aligned_alloc(page, rounded) : std::malloc(rounded);
        if (!memory)
            throw std::bad_alloc();
#ifdef __linux__
        if (isLarge)
            madvise(memory, rounded, MADV_HUGEPAGE); // a refusal costs only time
#endif
        return static_cast<T *>(memory);
    }

    void deallocate(T *memory, std::size_t /*count*/)
    {
        std::free(memory);
    }

    bool operator==(const LargePageAllocator &) const
    {
        return true;
    }
};
