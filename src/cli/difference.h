// What differs between two inventories, source by source and field by field.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

namespace korvex {

struct Inventory;
class SourceSet;

struct FieldChange {
    std::size_t column;  // column::Index
    std::string before;  // empty where the type before does not have it
    std::string after;
};

struct SourceChange {
    std::size_t oldPosition;  // in its set
    std::size_t newPosition;
    std::vector<FieldChange> fields;
};

/// Sums over all sources, in 64 bits. Index 0: with the emission alone; 1: times the yearly use (Alfa).
struct EmissionSums {
    std::array<std::size_t, 3> counts{};           // by type code less 1
    std::array<std::array<double, 2>, 3> grams{};  // g/s; of segments ML times their length

    [[nodiscard]] static EmissionSums of(const SourceSet& set);
};

struct Difference {
    std::vector<std::size_t> removed;   // positions in the old set
    std::vector<std::size_t> added;     // positions in the new set
    std::vector<SourceChange> changed;  // in the order of the old set
    bool orderDiffers = false;          // of the sources that are in both
    bool commentDiffers = false;
    bool dustCompared = true;  // false: just one side has a dust file
    EmissionSums before;
    EmissionSums after;

    [[nodiscard]] bool empty() const
    {
        return removed.empty() && added.empty() && changed.empty() && !orderDiffers && !commentDiffers && dustCompared;
    }
};

/// Sources belong together by their number; of several with one number the first to the first, the second to the
/// second. Values are compared as they are in memory, also where the files would show the same text.
[[nodiscard]] Difference differenceOf(const Inventory& before, const Inventory& after);

}  // namespace korvex
