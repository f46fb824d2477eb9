#include "checked_points.h"

#include "radix_sort.h"

#include <algorithm>

namespace korvex {

namespace {

bool isLess(const CheckedPoint& a, const CheckedPoint& b)
{
    return a.number < b.number;
}

}  // namespace

void CheckedPoints::sort()
{
    if (std::is_sorted(m_points.begin(), m_points.end(), isLess))
        return;
    // Negative numbers first.
    constexpr std::uint32_t signBit = 0x80000000U;
    sortByKey(m_points, 32,
        [](const CheckedPoint& point) { return std::uint64_t{static_cast<std::uint32_t>(point.number) ^ signBit}; });
    makeBuckets();
}

std::size_t CheckedPoints::bucketOf(std::int32_t number) const
{
    const std::int64_t behindFirst = std::int64_t{number} - m_points.front().number;
    return static_cast<std::size_t>(behindFirst >> m_bucketShift);
}

void CheckedPoints::makeBuckets()
{
    while (bucketOf(m_points.back().number) >= m_points.size() * 2)
        ++m_bucketShift;
    m_buckets.reserve(bucketOf(m_points.back().number) + 2);
    for (std::size_t i = 0; i < m_points.size(); ++i) {
        while (m_buckets.size() <= bucketOf(m_points[i].number))
            m_buckets.push_back(static_cast<std::uint32_t>(i));
    }
    m_buckets.push_back(static_cast<std::uint32_t>(m_points.size()));
}

CheckedPoint* CheckedPoints::find(std::int32_t number)
{
    const auto isFirst = [this, number](std::size_t rank) {
        return rank < m_points.size() && m_points[rank].number == number
            && (rank == 0 || m_points[rank - 1].number != number);
    };
    if (!isFirst(m_next)) {
        if (m_points.empty() || number < m_points.front().number || number > m_points.back().number)
            return nullptr;
        const bool hasBuckets = !m_buckets.empty();
        const std::size_t bucket = hasBuckets ? bucketOf(number) : 0;
        const auto begin = m_points.begin() + (hasBuckets ? m_buckets[bucket] : 0);
        const auto end = hasBuckets ? m_points.begin() + m_buckets[bucket + 1] : m_points.end();
        CheckedPoint wanted;
        wanted.number = number;
        const auto found = std::lower_bound(begin, end, wanted, isLess);
        const auto rank = static_cast<std::size_t>(found - m_points.begin());
        if (!isFirst(rank))
            return nullptr;
        m_next = rank;
    }
    return &m_points[m_next++];
}

}  // namespace korvex
