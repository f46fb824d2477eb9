// The two languages in which the tool speaks.
#pragma once

#include <string>

namespace korvex {

enum class Language { Czech, English };

/// One of two texts, chosen where it is used: nothing can be missing from a catalogue.
[[nodiscard]] inline std::string text(Language language, const char* czech, const char* english)
{
    return language == Language::Czech ? czech : english;
}

}  // namespace korvex
