// Decimal commas: values that a comma has torn into two fields.
#pragma once

#include "checked_line.h"
#include "findings.h"

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string_view>
#include <vector>

namespace korvex {

/// Whether two fields that follow one another can be the two sides of a decimal comma: digits without a point and
/// without a blank between them.
[[nodiscard]] bool canBeTorn(std::string_view before, std::string_view after);
/// The text of both with the comma between them.
[[nodiscard]] std::string_view joinedFields(std::string_view before, std::string_view after);
/// fields[index] and the one behind it.
void reportDecimalComma(Findings& findings, const CheckedLine& line, std::optional<std::int32_t> source,
    const std::vector<std::string_view>& fields, std::size_t index);

/// What a record with a blank behind its commas is like.
struct RecordShape {
    std::size_t fields;        // how many it is to have
    std::size_t lastValue;     // index of the last field that may have decimals
    std::size_t mostDecimals;  // that anybody would write
};

/// Joins the fields that a decimal comma has torn apart and reports each: those without a blank between them, in a
/// record that has one behind its other commas. Of more fields than there are to be, as many as are surplus.
void joinDecimalCommas(Findings& findings, const CheckedLine& line, std::optional<std::int32_t> source,
    std::vector<std::string_view>& fields, const RecordShape& shape);

}  // namespace korvex
