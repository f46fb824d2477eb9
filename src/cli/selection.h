// Which sources of an inventory are meant: by number, type, place and name.
#pragma once

#include "source_set.h"

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace korvex {

/// Both ends belong to it.
struct NumberRange {
    std::int32_t first;
    std::int32_t last;
};

/// Reads "1-10,15,200-": single numbers and ranges, an open end meaning all from there on. None for anything else.
[[nodiscard]] std::optional<std::vector<NumberRange>> readNumberRanges(std::string_view text);
[[nodiscard]] bool contains(const std::vector<NumberRange>& ranges, std::int32_t number);

/// A finite number with "." that is all of the text.
[[nodiscard]] std::optional<double> readPlainReal(std::string_view text);

/// Both ends belong to it; in m.
struct BoundingBox {
    double left;
    double bottom;
    double right;
    double top;
};

/// Reads "X1,Y1,X2,Y2", two opposite corners in any order.
[[nodiscard]] std::optional<BoundingBox> readBoundingBox(std::string_view text);

/// Reads "point,area,line", or some of them, as type codes; none are meant by an empty text.
[[nodiscard]] std::optional<std::vector<std::int32_t>> readTypes(std::string_view text);

/// All conditions that are given have to hold.
struct Selection {
    std::vector<std::int32_t> types;   // type codes; empty: any
    std::vector<NumberRange> numbers;  // empty: any
    std::optional<BoundingBox> box;    // for X, Y of the source, with segments too
    std::string name;                  // stands somewhere in the source's name; letter case counts

    [[nodiscard]] bool matches(const cZdroje& source) const;
};

enum class Take { Matching, Others };

/// Keeps the sources asked for, in their order, and drops the others. Returns how many were dropped.
std::size_t select(SourceSet& set, const Selection& selection, Take take);

}  // namespace korvex
