// Messages with places for values: the two languages put the values in different orders.
#pragma once

#include "language.h"

#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace korvex {

/// Appends the pattern with {0}, {1} … replaced by the values; a place without a value stays as it is.
void appendFilled(std::string& out, std::string_view pattern, std::span<const std::string_view> values);
[[nodiscard]] std::string filled(std::string_view pattern, const std::vector<std::string>& values);

/// A text (UTF-8) from a file for a terminal: control characters, which it would obey, are written as \x1B.
[[nodiscard]] std::string printable(std::string_view utf8);

/// The beginning of a text from a file (UTF-8) between quotation marks, printable.
[[nodiscard]] std::string quotedText(Language language, std::string_view utf8);

}  // namespace korvex
