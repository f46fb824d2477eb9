// What counts as a blank in the data files, and trimming them.
#pragma once

#include <string_view>

namespace korvex {

/// Space and tabulator; not what a locale calls a space.
[[nodiscard]] constexpr bool isBlank(char c)
{
    return c == ' ' || c == '\t';
}

/// The text without blanks at both ends.
[[nodiscard]] constexpr std::string_view trimBlanks(std::string_view text)
{
    while (!text.empty() && isBlank(text.front()))
        text.remove_prefix(1);
    while (!text.empty() && isBlank(text.back()))
        text.remove_suffix(1);
    return text;
}

}  // namespace korvex
