// The safety copies that saves have left, and bringing one of them back.
#pragma once

#include "file_error.h"
#include "safety_copies.h"

#include <cstdint>
#include <string>
#include <vector>

namespace korvex {

struct CopiedFile {
    std::string copy;    // full path of the copy
    std::string origin;  // full path of the file that it is a copy of
    std::uintmax_t size;
    bool isThere;  // the copy itself
};

/// The files that one save replaced, as they were before it.
struct SafetyCopy {
    std::string name;  // of its folder: when the save was made
    std::vector<CopiedFile> files;

    /// When the save was made, in local time: 2026-11-21 08:53:12.
    [[nodiscard]] std::string time() const;
};

/// A copy that cannot be read.
struct DamagedCopy {
    std::string name;
    FileError error;
};

struct SafetyCopyList {
    std::vector<SafetyCopy> copies;      // the newest first
    std::vector<DamagedCopy> damaged{};  // likewise
};

/// No folder, no copies.
[[nodiscard]] Result<SafetyCopyList> safetyCopiesIn(const std::string& folder);

/// Writes the copies to where they came from, whole or not at all as far as that can be seen beforehand. What is there
/// is copied itself before it is replaced.
[[nodiscard]] Result<void> restoreFiles(const SafetyCopy& copy, const SafetyCopies& copies);

}  // namespace korvex
