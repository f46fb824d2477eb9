// The core reads and writes numbers and letters the same way in every locale: which words its code may not use.
#pragma once

#include "folder_table.h"
#include "source_text.h"

#include <cstddef>
#include <string>
#include <vector>

namespace korvex::architecture {

/// A place where a forbidden word is harmless.
struct AllowedWord {
    std::string path;  // below src/; a folder ends in "/"
    std::string word;
    std::size_t times = 0;  // exactly so often in the file; not looked at for a folder
    std::string reason;
};

/// Words of the folders without Qt that obey the locale, each with file, line and what to use instead; also allowed
/// places that are not as the list says, so that it names no more than is needed. Text cannot tell of which type an
/// argument is: to_string and the streams are faults wherever they stand.
[[nodiscard]] std::vector<std::string> localeFaults(
    const FolderTable& table, const std::vector<SourceFile>& files, const std::vector<AllowedWord>& allowed);

}  // namespace korvex::architecture
