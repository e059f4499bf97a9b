#pragma once

#include <array>
#include <atomic>
#include <cstddef>
#include <cstdint>

/// The last lines of the log in memory of fixed size. One thread at a time adds lines; they can be
/// read at any time without a lock, also in a signal handler and while the adding thread is stopped
/// in the middle of it.
class LogRing
{
public:
    static constexpr std::uint32_t lines = 200;
    static constexpr std::size_t lineBytes = 500; ///< the rest of a longer line is left out

    void add(const char *text, std::size_t size);

    /// The lines that were ever added; the last ones of them can be read, by their numbers from 0.
    std::uint32_t count() const { return m_count.load(std::memory_order_acquire); }
    /// Copies a line into @p target of lineBytes bytes and returns its size; 0 when it has been
    /// overwritten or is just being written.
    std::size_t read(std::uint32_t number, char *target) const;

private:
    struct Slot
    {
        std::atomic<std::uint32_t> stamp{0}; ///< the line's number plus 1, 0 while it is written
        std::atomic<std::uint32_t> size{0};
        std::array<std::atomic<char>, lineBytes> text{};
    };
    std::array<Slot, lines> m_slots;
    std::atomic<std::uint32_t> m_count{0};
};
