#include "output_bytes.h"

namespace korvex {

namespace {

constexpr std::size_t blockSize = std::size_t{1} << 20;
constexpr std::size_t spare = 4096;  // most records fit in what is left of a block

}  // namespace

std::string& OutputBytes::room()
{
    if (m_blocks.empty() || m_blocks.back().size() + spare > blockSize) {
        m_blocks.emplace_back();
        m_blocks.back().reserve(blockSize);
    }
    return m_blocks.back();
}

std::size_t OutputBytes::size() const
{
    std::size_t size = 0;
    for (const std::string& block : m_blocks)
        size += block.size();
    return size;
}

}  // namespace korvex
