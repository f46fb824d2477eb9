#include "source_texts.h"

#include <cstdint>
#include <cstring>
#include <limits>
#include <stdexcept>
#include <utility>

namespace korvex {

namespace {

/// The block begins with the two lengths; behind them stand the characters of the name and of the dust.
struct Lengths {
    std::uint32_t name = 0;
    std::uint32_t dust = 0;
};

constexpr std::uint32_t newDustMark = std::numeric_limits<std::uint32_t>::max();

Lengths lengthsOf(const char* block)
{
    Lengths lengths;
    std::memcpy(&lengths, block, sizeof lengths);
    return lengths;
}

std::uint32_t checkedLength(std::string_view text)
{
    if (text.size() >= newDustMark)
        throw std::length_error("text of a source");
    return static_cast<std::uint32_t>(text.size());
}

}  // namespace

std::string_view SourceTexts::name() const
{
    if (!m_block)
        return {};
    return {m_block.get() + sizeof(Lengths), lengthsOf(m_block.get()).name};
}

std::string_view SourceTexts::dust() const
{
    if (!m_block)
        return newDust;
    const Lengths lengths = lengthsOf(m_block.get());
    if (lengths.dust == newDustMark)
        return newDust;
    return {m_block.get() + sizeof(Lengths) + lengths.name, lengths.dust};
}

void SourceTexts::assign(std::string_view name, std::string_view dust)
{
    const bool isNewDust = dust == newDust;
    if (name.empty() && isNewDust) {
        m_block.reset();
        return;
    }
    const Lengths lengths{checkedLength(name), isNewDust ? newDustMark : checkedLength(dust)};
    const std::size_t dustSize = isNewDust ? 0 : dust.size();
    // Plain new: make_unique would fill the block with zeros first.
    std::unique_ptr<char[]> block(new char[sizeof lengths + name.size() + dustSize]);
    char* to = block.get();
    std::memcpy(to, &lengths, sizeof lengths);
    to += sizeof lengths;
    name.copy(to, name.size());
    dust.copy(to + name.size(), dustSize);
    m_block = std::move(block);
}

}  // namespace korvex
