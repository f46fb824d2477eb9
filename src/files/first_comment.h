// The comment at the top of a data file, without reading the rest of it.
#pragma once

#include "file_calls.h"
#include "file_error.h"

#include <string>

namespace korvex {

/// The text behind the ";" of the first comment line, trimmed; empty when the file has none. UTF-8.
[[nodiscard]] Result<std::string> firstComment(const std::string& path, FileCalls& calls = FileCalls::system());

}  // namespace korvex
