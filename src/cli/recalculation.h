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
        TooSmall,    // a value that the result is made of: there is no stack with such a one
        OutOfRange,  // the result, for the files or for a 32-bit number
    };
    std::size_t position;
    Reason reason;
    std::size_t column;  // column::Index of that value
    std::string value;   // empty for a result, of which there is none
};

struct Recalculation {
    std::vector<std::size_t> computed;  // positions of the sources with a result
    std::vector<Recalculated> changed;  // those to which the files will show another value
    std::vector<NotComputed> notComputed;
};

/// The air pressures that are somewhere on the ground, in Pa; a number beyond them is most likely of another unit.
inline constexpr float lowestPressure = 30000.0F;
inline constexpr float highestPressure = 120000.0F;
/// At or below it there is no gas.
inline constexpr float absoluteZero = -273.15F;

/// Vs, d and w0 of stacks, X and Y of segments; sources of other types are passed over. pressure acts on all three gas
/// quantities. numbers: empty for all. The window computes whatever the formulas give; here a result has to be
/// possible, that is made of a ts above absoluteZero and of other values above 0.
[[nodiscard]] Recalculation recalculate(
    SourceSet& set, Quantity quantity, float pressure, const std::vector<NumberRange>& numbers);

}  // namespace korvex
