// The air pressures that the commands take.
#pragma once

namespace korvex {

/// In Pa, with room around what is found on the ground: a number beyond them is most likely of another unit.
inline constexpr double lowestPressure = 10000.0;
inline constexpr double highestPressure = 200000.0;

}  // namespace korvex
