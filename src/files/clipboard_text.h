// The marked rows of the list as text for the clipboard.
#pragma once

#include <string>

namespace korvex {

class SourceRows;
class SourceSet;

/// One line a marked row in display order: the number as the list shows it, a tabulator, the name, CR LF. UTF-8.
[[nodiscard]] std::string clipboardText(const SourceSet& set, const SourceRows& rows);

}  // namespace korvex
