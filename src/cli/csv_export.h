// An inventory as comma-separated values: one row a source, named columns, the geometry as well-known text.
#pragma once

#include "output_bytes.h"

#include <string>
#include <string_view>

namespace korvex {

class SourceSet;

/// The comment of the inventory; stands in the first row.
inline constexpr std::string_view commentColumn = "soupis";
/// Named so because mapping programs take a column of this name for the geometry.
inline constexpr std::string_view geometryColumn = "WKT";

/// An inventory without a dust file has no column for it.
enum class DustColumn { Present, Absent };

/// The whole file, in UTF-8.
[[nodiscard]] OutputBytes csvBytes(const SourceSet& set, std::string_view comment, DustColumn dust);
/// The one line of the file beside it that tells the types of the columns.
[[nodiscard]] OutputBytes csvTypeBytes(DustColumn dust);
/// The path of that file: "csvt" in place of the ending.
[[nodiscard]] std::string csvTypePath(const std::string& csvPath);

}  // namespace korvex
