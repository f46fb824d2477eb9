// The folder table, cmake/folders.txt, and the rules for includes that follow from it.
#pragma once

#include "source_text.h"

#include <string>
#include <string_view>
#include <vector>

namespace korvex::architecture {

enum class QtUse { Forbidden, Allowed };

struct FolderRow {
    std::string folder;  // below src/
    std::vector<std::string> mayUse;
    QtUse qt = QtUse::Forbidden;
};

using FolderTable = std::vector<FolderRow>;

/// Throws std::runtime_error for a line that is neither a row, a comment nor blank: CMake would pass over it.
[[nodiscard]] FolderTable parseFolderTable(std::string_view text);

/// The row that a file belongs to: that of the deepest folder on its way. Null for a file beside the folders (the
/// editor's main.cpp) and in a folder that has no row.
[[nodiscard]] const FolderRow* rowOf(const FolderTable& table, std::string_view path);

/// What is wrong with the table itself: a folder may use only rows above it, so that there are no circles, and one
/// without Qt none with Qt.
[[nodiscard]] std::vector<std::string> tableFaults(const FolderTable& table);

/// Two headers of one name: which of them an include means would depend on the order of the include roots.
[[nodiscard]] std::vector<std::string> headerNameFaults(const std::vector<SourceFile>& files);

/// Includes that the table forbids, each with file and line.
[[nodiscard]] std::vector<std::string> includeFaults(const FolderTable& table, const std::vector<SourceFile>& files);

}  // namespace korvex::architecture
