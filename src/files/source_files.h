// The three files of an inventory and what their lines have in common.
#pragma once

#include "blanks.h"

#include <string>
#include <string_view>

namespace korvex {

/// Full paths. An empty dust path means: no dust file.
struct SourceFiles {
    std::string points;
    std::string description;
    std::string dust;
};

/// Whether a line of a data file holds no record: it is empty or begins with ";" once blanks are trimmed.
[[nodiscard]] constexpr bool isCommentLine(std::string_view line)
{
    const std::string_view trimmed = trimBlanks(line);
    return trimmed.empty() || trimmed.front() == ';';
}

}  // namespace korvex
