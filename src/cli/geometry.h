// Where a source lies, for mapping programs: stacks and areas are points, segments are lines.
#pragma once

#include <string>

namespace korvex {

class cZdroje;

/// An area source is a point as well: the inventory holds its reference point and the distance of its elements, but
/// no outline. A segment runs from its start to its end point. Coordinates as in the inventory.
[[nodiscard]] std::string wellKnownText(const cZdroje& source);
/// The same as a GeoJSON geometry object.
[[nodiscard]] std::string geoJsonGeometry(const cZdroje& source);

}  // namespace korvex
