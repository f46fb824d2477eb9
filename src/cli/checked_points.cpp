#include "checked_points.h"

#include "radix_sort.h"

#include <algorithm>

namespace korvex {

void CheckedPoints::sort()
{
    const auto isLess = [](const CheckedPoint& a, const CheckedPoint& b) { return a.number < b.number; };
    if (std::is_sorted(m_points.begin(), m_points.end(), isLess))
        return;
    struct Key {
        std::uint32_t number;
        std::uint32_t index;
    };
    std::vector<Key, LargeMemory<Key>> keys;
    keys.reserve(m_points.size());
    // Negative numbers first.
    constexpr std::uint32_t signBit = 0x80000000U;
    for (const CheckedPoint& point : m_points)
        keys.push_back({static_cast<std::uint32_t>(point.number) ^ signBit, static_cast<std::uint32_t>(keys.size())});
    sortByKey(keys, 32, [](const Key& key) { return std::uint64_t{key.number}; });
    m_order.reserve(keys.size());
    for (const Key& key : keys)
        m_order.push_back(key.index);
}

CheckedPoint& CheckedPoints::byNumber(std::size_t rank)
{
    return m_points[m_order.empty() ? rank : m_order[rank]];
}

CheckedPoint* CheckedPoints::find(std::int32_t number)
{
    const auto isFirst = [this, number](std::size_t rank) {
        return rank < count() && byNumber(rank).number == number && (rank == 0 || byNumber(rank - 1).number != number);
    };
    if (!isFirst(m_next)) {
        std::size_t low = 0;
        for (std::size_t left = count(); left > 0;) {
            const std::size_t half = left / 2;
            if (byNumber(low + half).number < number) {
                low += half + 1;
                left -= half + 1;
            } else {
                left = half;
            }
        }
        if (!isFirst(low))
            return nullptr;
        m_next = low;
    }
    return &byNumber(m_next++);
}

}  // namespace korvex
