#include "base/LogRing.h"

#include <algorithm>

// Every byte is released and acquired, instead of a fence, which the thread sanitizer can't see:
// who reads a byte of a newer line sees the changed stamp too.

void LogRing::add(const char *text, std::size_t size)
{
    const std::uint32_t number = m_count.load(std::memory_order_relaxed);
    Slot &slot = m_slots[number % lines];
    slot.stamp.store(0, std::memory_order_release);
    const std::size_t kept = std::min(size, lineBytes);
    for (std::size_t i = 0; i < kept; ++i)
        slot.text[i].store(text[i], std::memory_order_release);
    slot.size.store(std::uint32_t(kept), std::memory_order_release);
    slot.stamp.store(number + 1, std::memory_order_release);
    m_count.store(number + 1, std::memory_order_release);
}

std::size_t LogRing::read(std::uint32_t number, char *target) const
{
    const Slot &slot = m_slots[number % lines];
    if (slot.stamp.load(std::memory_order_acquire) != number + 1)
        return 0;
    const std::size_t size = slot.size.load(std::memory_order_acquire);
    for (std::size_t i = 0; i < size; ++i)
        target[i] = slot.text[i].load(std::memory_order_acquire);
    return slot.stamp.load(std::memory_order_acquire) == number + 1 ? size : 0;
}
