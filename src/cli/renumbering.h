// Giving sources new numbers.
#pragma once

#include "selection.h"

#include <cstddef>
#include <cstdint>
#include <vector>

namespace korvex {

/// With a wider number the dust of a source would be cut wrongly when it is read again.
inline constexpr std::int32_t largestNumber = 999'999'999;

struct RenumberRequest {
    std::vector<NumberRange> from;  // the numbers that are to change; empty: all
    std::int32_t start = 1;         // the first new number
    std::int32_t step = 1;
};

struct NumberChange {
    std::size_t position;
    std::int32_t before;
    std::int32_t after;
};

struct Renumbering {
    std::vector<NumberChange> changes;  // of the sources whose number is meant, also where it stays as it was
    std::vector<NumberChange> clashes;  // those whose new number a source that is not meant has
    bool isTooWide = false;             // a new number would be negative or have more than nine digits

    [[nodiscard]] bool isPossible() const { return clashes.empty() && !isTooWide; }
};

/// In set order; each source gets a number of its own, also those that share one.
[[nodiscard]] Renumbering planRenumbering(const SourceSet& set, const RenumberRequest& request);
/// Names stay. Only for a plan that is possible.
void renumber(SourceSet& set, const Renumbering& renumbering);

}  // namespace korvex
