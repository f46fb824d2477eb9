// Reading numbers and records in the plainest way there is, to hold the program's own ways to.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace korvex::fuzz {

/// All three: nothing for a number out of range.
std::optional<double> slowReal(std::string_view text);
std::optional<float> slowSingle(std::string_view text);
std::optional<std::int32_t> slowInteger(std::string_view text);

/// The text split at every separator; one field at least.
std::vector<std::string> slowFields(std::string_view text, char separator);
/// Field n from 1, empty where there is none.
std::string slowField(std::string_view text, char separator, std::size_t n);

/// Lines without LF or CR LF; a last line without an end counts when it is not empty.
std::vector<std::string> slowLines(std::string_view bytes);

/// UTF-8 of bytes of the code page.
std::string slowDecode(std::string_view bytes);

/// Without blanks (space, tabulator) at both ends.
std::string slowTrim(std::string_view text);

}  // namespace korvex::fuzz
