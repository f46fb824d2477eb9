// Replacing the contents of files without losing the old ones to a fault that can be seen beforehand.
#pragma once

#include "file_calls.h"
#include "file_error.h"
#include "output_bytes.h"
#include "safety_copies.h"

#include <string>
#include <vector>

namespace korvex {

struct Replacement {
    std::string path;
    OutputBytes bytes;
};

/// Writes the new contents in place, so that links, owner, mode and inode stay. Before the first byte is written all
/// files are opened, the room they grow by is reserved and what they hold is copied: until then a failure leaves
/// everything as it was, with no new file left behind; so does a copy that is missing and must not be. A failure after
/// that leaves the file cut to what was written, or whole when nothing was, the files behind it untouched, and names
/// the folders of the copies in its description.
[[nodiscard]] Result<void> replaceFiles(
    const std::vector<Replacement>& replacements, const SafetyCopies& copies, FileCalls& calls);

}  // namespace korvex
