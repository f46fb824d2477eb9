// Writing an inventory, whole or only its marked sources, to its three files.
#pragma once

#include "file_calls.h"
#include "file_error.h"
#include "progress_listener.h"
#include "safety_copies.h"
#include "source_files.h"

#include <cstdint>
#include <string>
#include <vector>

namespace korvex {

class SourceRows;
class SourceSet;

enum class SaveScope { All, Marked };

struct SaveRequest {
    SourceFiles files;
    std::string comment;  // trimmed for writing; when nothing is left, no header lines are written at all
    SaveScope scope = SaveScope::All;
    SafetyCopies copies{""};
};

struct SaveReport {
    /// Numbers of the sources with a character that the code page lacks; it was written as "?".
    std::vector<std::int32_t> replacedIn;
    bool replacedInHeader = false;  // the same for the comment or a file name
    /// Numbers of the sources with a semicolon in their name: the next load will end the name there.
    std::vector<std::int32_t> semicolonIn;
};

/// Writes the sources in the rows' display order and clears the set's modified flag, also when only the marked ones
/// were written (the caller meant to save just those). On an error the flag stays and the files are as replaceFiles
/// leaves them. Progress: the row's index, of the number of rows and two.
[[nodiscard]] Result<SaveReport> saveSourceSet(const SaveRequest& request, SourceSet& set, const SourceRows& rows,
    ProgressListener& listener, FileCalls& calls = FileCalls::system());

}  // namespace korvex
