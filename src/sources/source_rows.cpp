#include "source_rows.h"

#include "large_memory.h"
#include "radix_sort.h"
#include "source_set.h"

#include <algorithm>
#include <bit>
#include <numeric>
#include <utility>

namespace korvex {

namespace {

/// A key that orders numbers as their nine-digit texts are ordered. A text of ten digits stands behind the text of
/// its first nine and before the next one; texts with a minus sign stand before all others.
std::int64_t textOrderKey(std::int32_t number)
{
    constexpr std::int64_t tenDigits = 1'000'000'000;
    constexpr std::int64_t followers = 11;  // the nine digits themselves and the ten texts that begin with them
    const std::int64_t magnitude = number < 0 ? -std::int64_t{number} : std::int64_t{number};
    const std::int64_t key
        = magnitude < tenDigits ? magnitude * followers : magnitude / 10 * followers + magnitude % 10 + 1;
    return number < 0 ? key - tenDigits * followers : key;
}

}  // namespace

void SourceRows::refill(std::size_t sourceCount)
{
    m_tags.resize(sourceCount);
    std::iota(m_tags.begin(), m_tags.end(), 1U);
    m_marks.resize(sourceCount);
    m_marks.markAll(false);
}

void SourceRows::add(bool mark)
{
    const std::size_t position = m_tags.size() + 1;
    m_tags.push_back(static_cast<std::uint32_t>(position));
    m_marks.resize(position);
    m_marks.mark(position, mark);
}

void SourceRows::markRange(std::size_t first, std::size_t last, bool on)
{
    for (std::size_t row = first; row <= last; ++row)
        mark(row, on);
}

void SourceRows::markByType(const SourceSet& set, std::int32_t typeId)
{
    for (std::size_t position = 1; position <= set.size(); ++position) {
        if (set.at(position).TypZdrojeId() == typeId)
            m_marks.mark(position, true);
    }
}

void SourceRows::sortByNumber(const SourceSet& set, SortDirection direction)
{
    std::vector<std::int64_t> keys(set.size());
    for (std::size_t position = 1; position <= set.size(); ++position)
        keys[position - 1] = textOrderKey(set.at(position).ICZ());
    sortByRank(keys, direction);
}

void SourceRows::sortByRank(std::span<const std::int64_t> ranks, SortDirection direction)
{
    if (m_tags.empty())
        return;
    struct Row {
        std::uint64_t key;
        std::uint32_t tag;
    };
    const auto [least, most] = std::minmax_element(ranks.begin(), ranks.end());
    const auto keyOf = [direction, least = *least, most = *most](std::int64_t rank) {
        return static_cast<std::uint64_t>(direction == SortDirection::Ascending ? rank - least : most - rank);
    };
    std::vector<Row, LargeMemory<Row>> rows(m_tags.size());
    for (std::size_t i = 0; i < rows.size(); ++i)
        rows[i] = {keyOf(ranks[m_tags[i] - 1]), m_tags[i]};
    const auto key = [](const Row& row) { return row.key; };
    const auto isBefore = [](const Row& a, const Row& b) { return a.key < b.key; };
    if (!std::is_sorted(rows.begin(), rows.end(), isBefore))
        sortByKey(rows, static_cast<int>(std::bit_width(static_cast<std::uint64_t>(*most - *least))), key);
    for (std::size_t i = 0; i < rows.size(); ++i)
        m_tags[i] = rows[i].tag;
}

}  // namespace korvex
