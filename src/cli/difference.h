// What differs between two inventories, source by source and field by field.
#pragma once

#include "statistics.h"

#include <array>
#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

namespace korvex {

struct Inventory;

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

struct Difference {
    std::vector<std::size_t> removed;   // positions in the old set
    std::vector<std::size_t> added;     // positions in the new set
    std::vector<SourceChange> changed;  // in the order of the old set
    bool orderDiffers = false;          // of the sources that are in both
    bool commentDiffers = false;
    bool dustCompared = true;     // false: just one side has a dust file
    std::array<Tally, 3> before;  // counts and emissions by type code less 1
    std::array<Tally, 3> after;

    [[nodiscard]] bool empty() const
    {
        return removed.empty() && added.empty() && changed.empty() && !orderDiffers && !commentDiffers && dustCompared;
    }
};

/// Sources belong together by their number; of several with one number the first to the first, the second to the
/// second. Values are compared as they are in memory, also where the files would show the same text.
[[nodiscard]] Difference differenceOf(const Inventory& before, const Inventory& after);

}  // namespace korvex
