// Counts, ranges and sums of an inventory.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <map>
#include <vector>

namespace korvex {

class SourceSet;

/// In g/s: M, ME, and ML times the length of the segment. Alfa is a fraction of 1, Pd counts as a fraction of 24 hours.
struct EmissionSum {
    double full = 0.0;
    double withAlfa = 0.0;
    double withPd = 0.0;
    double withBoth = 0.0;
};

/// Sources that have something in common.
struct Tally {
    std::array<std::size_t, 3> countOfType{};  // stacks, areas, roads
    EmissionSum emission;

    [[nodiscard]] std::size_t count() const { return countOfType[0] + countOfType[1] + countOfType[2]; }
};

/// Smallest, middle and largest value of one quantity of one type.
struct ValueRange {
    std::int32_t typeId;
    const char* symbol;
    const char* unit;
    std::size_t count = 0;  // sources that have it; without any there is no range
    float smallest = 0.0F;
    float median = 0.0F;  // of an even number of values: the mean of the two in the middle
    float largest = 0.0F;
};

struct InventoryStatistics {
    Tally all;
    std::array<Tally, 3> ofType;
    std::map<std::int32_t, Tally> ofGroup;
    std::map<std::int32_t, Tally> ofCluster;
    double roadLength = 0.0;  // m
    std::vector<ValueRange> ranges;
};

/// ts, d and w0 of an area source count only when d or w0 is given; otherwise its third value is Delta h.
[[nodiscard]] InventoryStatistics statisticsOf(const SourceSet& set);

}  // namespace korvex
