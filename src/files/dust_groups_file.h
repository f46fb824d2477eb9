// Reading and writing a dust groups file (*.spr).
#pragma once

#include "file_calls.h"
#include "file_error.h"
#include "safety_copies.h"

#include <cstddef>
#include <functional>
#include <string>
#include <string_view>
#include <vector>

namespace korvex {

class GroupLines;

/// Hands over the lines of the file in order, without their ends, in UTF-8. After an error those before it have been
/// handed over.
[[nodiscard]] Result<void> readGroupsFile(const std::string& path,
    const std::function<void(std::string_view line)>& take, FileCalls& calls = FileCalls::system());

/// Replaces the file's contents by the comment line (trimmed; ";" alone when empty) and the group lines as they stand.
/// Gives the lines of the file, from 1, in which a character that the code page lacks was written as "?".
[[nodiscard]] Result<std::vector<std::size_t>> saveGroupsFile(const std::string& path, std::string_view comment,
    const GroupLines& groups, const SafetyCopies& copies, FileCalls& calls = FileCalls::system());

}  // namespace korvex
