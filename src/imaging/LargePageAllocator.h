#pragma once

#include "imaging/LargePages.h"

#include <cstddef>
#include <new>

/// The allocator of containers that lie in large pages where there is much to store.
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
        if (!isLarge(count))
            return static_cast<T *>(::operator new(count * sizeof(T)));
        void *memory = ::operator new(count * sizeof(T), std::align_val_t(page));
        adviseLargePages(memory, count * sizeof(T));
        return static_cast<T *>(memory);
    }

    void deallocate(T *memory, std::size_t count)
    {
        if (isLarge(count))
            ::operator delete(memory, std::align_val_t(page));
        else
            ::operator delete(memory);
    }

    bool operator==(const LargePageAllocator &) const { return true; }

private:
    static constexpr std::size_t page = std::size_t(2) << 20U;

    static bool isLarge(std::size_t count) { return count * sizeof(T) >= 2 * page; }
};
