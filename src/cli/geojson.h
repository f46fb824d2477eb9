// An inventory as GeoJSON (RFC 7946): a feature a source.
#pragma once

#include "output_bytes.h"

#include <optional>
#include <string>
#include <string_view>

namespace korvex {

class SourceSet;

/// Appends a text as JSON has it, quotes included.
void appendJsonText(std::string& out, std::string_view utf8);

/// The name of a coordinate reference system as the member "crs" wants it, of "EPSG:5514" or of such a name itself.
/// None for anything else.
[[nodiscard]] std::optional<std::string> coordinateSystemName(std::string_view text);

/// Properties are named as the columns of CSV, those of the source's type. The coordinates are those of the inventory;
/// coordinateSystem says what they are and is empty when nobody said so.
[[nodiscard]] OutputBytes geoJsonBytes(
    const SourceSet& set, std::string_view comment, bool hasDust, std::string_view coordinateSystem);

}  // namespace korvex
