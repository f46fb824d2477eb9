// A look at the beginning of a file: is it at all the one that belongs in its place?
#pragma once

#include "file_calls.h"
#include "file_error.h"
#include "findings.h"

#include <string>

namespace korvex {

/// Reports a file that is no text of the code page, or another one of an inventory's files. True when its
/// records are worth checking.
[[nodiscard]] Result<bool> looksRight(Findings& findings, CheckedFile kind, const std::string& path, FileCalls& calls);

}  // namespace korvex
