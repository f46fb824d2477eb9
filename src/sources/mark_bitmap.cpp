#include "mark_bitmap.h"

#include <algorithm>
#include <bit>

namespace korvex {

std::size_t MarkBitmap::count() const
{
    std::size_t marked = 0;
    for (const std::uint64_t word : m_words)
        marked += static_cast<std::size_t>(std::popcount(word));
    return marked;
}

void MarkBitmap::resize(std::size_t size)
{
    m_size = size;
    m_words.resize((size + 63) / 64, 0);
    clearBeyondSize();
}

void MarkBitmap::markAll(bool on)
{
    std::fill(m_words.begin(), m_words.end(), on ? ~std::uint64_t{0} : 0);
    clearBeyondSize();
}

void MarkBitmap::invert()
{
    for (std::uint64_t& word : m_words)
        word = ~word;
    clearBeyondSize();
}

void MarkBitmap::clearBeyondSize()
{
    if (m_size % 64 != 0)
        m_words.back() &= (std::uint64_t{1} << (m_size % 64)) - 1;
}

}  // namespace korvex
