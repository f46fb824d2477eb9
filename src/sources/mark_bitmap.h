// A mark for every source of a set, one bit each.
#pragma once

#include <cstddef>
#include <cstdint>
#include <vector>

namespace korvex {

/// Marks of the positions 1 … size(). A selection kept as ranges would be quadratic when every second source is
/// marked; a bit a source is not.
class MarkBitmap {
public:
    [[nodiscard]] std::size_t size() const { return m_size; }
    [[nodiscard]] std::size_t count() const;

    /// New positions come unmarked; what is beyond a smaller size is forgotten.
    void resize(std::size_t size);

    [[nodiscard]] bool marked(std::size_t position) const
    {
        return ((m_words[(position - 1) / 64] >> ((position - 1) % 64)) & 1U) != 0;
    }
    void mark(std::size_t position, bool on)
    {
        const std::uint64_t bit = std::uint64_t{1} << ((position - 1) % 64);
        std::uint64_t& word = m_words[(position - 1) / 64];
        word = on ? word | bit : word & ~bit;
    }
    void markAll(bool on);
    void invert();

private:
    void clearBeyondSize();

    std::vector<std::uint64_t> m_words;
    std::size_t m_size = 0;
};

}  // namespace korvex
