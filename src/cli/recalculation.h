// The window's calculations over an inventory, with the old and the new values of each source.
#pragma once

#include "selection.h"

#include <cstddef>
#include <string>
#include <vector>

namespace korvex {

enum class Quantity { Vs, d, w0, XY };

struct ValueChange {
    std::size_t column;  // column::Index
    std::string before;
    std::string after;
};

struct Recalculated {
    std::size_t position;
    std::vector<ValueChange> changes;
};

struct NotComputed {
    std::size_t position;
    std::string fault;  // of the arithmetic, in Czech; empty: the divisor (w0 for d, d for w0) is 0
};

struct Recalculation {
    std::size_t computed = 0;              // sources with a result
    std::vector<Recalculated> changed;     // those to which the files will show another value
    std::vector<NotComputed> notComputed;  // they keep their values
};

/// Vs, d and w0 of stacks, X and Y of segments; sources of other types are passed over. pressure, in Pa, acts on all
/// three gas quantities; not 0. numbers: empty for all.
[[nodiscard]] Recalculation recalculate(
    SourceSet& set, Quantity quantity, float pressure, const std::vector<NumberRange>& numbers);

}  // namespace korvex
