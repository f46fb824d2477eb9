// Telling text in UTF-8 from text of the code page.
#pragma once

#include <string_view>

namespace korvex {

/// Whether a line is text in UTF-8. Text of the code page nearly never is: the letters of a character would have to
/// meet by chance, and make one that the code page has as well.
[[nodiscard]] bool looksLikeUtf8(std::string_view line);

}  // namespace korvex
