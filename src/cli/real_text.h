// Reals of 64 bits as text: sums, which the data files do not hold.
#pragma once

#include <string>

namespace korvex {

/// With "." and at most seven significant digits, as many as the values had that were summed.
[[nodiscard]] std::string sumText(double value);

}  // namespace korvex
