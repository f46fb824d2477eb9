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

/// A source that keeps its values.
struct NotComputed {
    enum class Reason {
        TooCold,      // ts at or below absoluteZero
        ZeroDivisor,  // d or w0, by which the result would have to be divided
        Negative,     // the result
        NoResult,     // none, or one out of range for the files or for a 32-bit number
    };
    std::size_t position;
    Reason reason;
    std::size_t column;  // column::Index of the value to blame, or of the result
    std::string value;   // empty for a result that there is not
};

struct Recalculation {
    std::vector<std::size_t> computed;  // positions of the sources with a result
    std::vector<Recalculated> changed;  // those to which the files will show another value
    std::vector<NotComputed> notComputed;
};

/// At or below it there is no gas.
inline constexpr float absoluteZero = -273.15F;

/// Vs, d and w0 of stacks, X and Y of segments; sources of other types are passed over. pressure acts on all three gas
/// quantities. numbers: empty for all. What the window computes is computed here; only a result that no stack can have,
/// negative or made of a ts at or below absoluteZero, is not taken.
[[nodiscard]] Recalculation recalculate(
    SourceSet& set, Quantity quantity, float pressure, const std::vector<NumberRange>& numbers);

}  // namespace korvex
