#include "source_texts.h"

#include "code_page.h"

#include <array>
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

std::uint32_t checkedLength(std::size_t size)
{
    if (size >= newDustMark)
        throw std::length_error("text of a source");
    return static_cast<std::uint32_t>(size);
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

SourceTexts::SourceTexts(std::string_view name, std::optional<std::string_view> dust)
{
    // Decoded here first where there is room: counting what a text will take is as long a way as decoding it.
    constexpr std::size_t room = 1024;
    std::array<char, room> decoded;
    if (name.size() > room / mostDecodedBytes) {
        assign(decodeCodePage(name), dust ? decodeCodePage(*dust) : newDust);
        return;
    }
    const char* const end = putDecoded(decoded.data(), name);
    const std::string_view decodedName(decoded.data(), static_cast<std::size_t>(end - decoded.data()));
    // Nothing but digits and commas, as a rule: the same bytes in UTF-8.
    if (!dust || asciiLength(*dust) == dust->size())
        assign(decodedName, dust.value_or(newDust));
    else
        assign(decodedName, decodeCodePage(*dust));
}

void SourceTexts::assign(std::string_view name, std::string_view dust)
{
    const bool isNewDust = dust == newDust;
    if (name.empty() && isNewDust) {
        m_block.reset();
        return;
    }
    // The texts can be this block's own.
    const std::unique_ptr<char[]> old = std::move(m_block);
    char* const to = makeBlock(name.size(), isNewDust ? std::nullopt : std::optional(dust.size()));
    name.copy(to, name.size());
    if (!isNewDust)
        dust.copy(to + name.size(), dust.size());
}

/// Returns where the name begins; the dust stands behind it.
char* SourceTexts::makeBlock(std::size_t nameSize, std::optional<std::size_t> dustSize)
{
    const Lengths lengths{checkedLength(nameSize), dustSize ? checkedLength(*dustSize) : newDustMark};
    // Plain new: make_unique would fill the block with zeros first.
    m_block.reset(new char[sizeof lengths + nameSize + dustSize.value_or(0)]);
    std::memcpy(m_block.get(), &lengths, sizeof lengths);
    return m_block.get() + sizeof lengths;
}

}  // namespace korvex
