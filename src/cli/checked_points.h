// What the check remembers of the points file while it goes through the other files.
#pragma once

#include "large_memory.h"

#include <cstddef>
#include <cstdint>
#include <optional>
#include <vector>

namespace korvex {

/// Thirty-two bytes: a million of them are held at once.
struct CheckedPoint {
    std::int32_t number = 0;
    std::uint32_t line = 0;             // from 1
    std::int32_t x = 0;                 // m
    std::int32_t y = 0;                 // m
    std::uint32_t descriptionLine = 0;  // of its first record; 0: none was met
    std::uint32_t dustLine = 0;         // the same
    std::uint16_t columnOfX = 1;        // on its line, from 1
    std::uint16_t columnOfY = 1;
    std::int8_t typeId = 0;  // 0: not one that is loaded
};

/// The points, by number; those of one number in file order.
class CheckedPoints {
public:
    using Points = std::vector<CheckedPoint, LargeMemory<CheckedPoint>>;

    void add(const CheckedPoint& point) { m_points.push_back(point); }
    /// After the last add and before everything else.
    void sort();

    [[nodiscard]] const Points& byNumber() const { return m_points; }
    [[nodiscard]] std::size_t count() const { return m_points.size(); }
    /// The first in the file with this number; null when there is none.
    [[nodiscard]] CheckedPoint* find(std::int32_t number);

private:
    void makeBuckets();
    [[nodiscard]] std::size_t bucketOf(std::int32_t number) const;

    Points m_points;
    std::size_t m_next = 0;  // most files are in the same order

    // Only of a file that was not in number order, for then the others will hardly be: the numbers are cut into equal
    // ranges, and each range knows its first point.
    std::vector<std::uint32_t, LargeMemory<std::uint32_t>> m_buckets;
    int m_bucketShift = 0;
};

}  // namespace korvex
