// A number and what it counts, in the form that the language wants behind it.
#pragma once

#include "language.h"

#include <cstddef>
#include <string>

namespace korvex {

struct CountedNoun {
    const char* czechOne;   // 1 pole
    const char* czechFew;   // 2 to 4 pole
    const char* czechMany;  // 0 and 5 polí
    const char* englishOne;
    const char* englishMany;
};

[[nodiscard]] std::string countText(std::size_t count);
/// "1 pole", "5 polí".
[[nodiscard]] std::string counted(Language language, std::size_t count, const CountedNoun& noun);
/// Only the noun.
[[nodiscard]] const char* formOf(const CountedNoun& noun, Language language, std::size_t count);

}  // namespace korvex
