// Reals of 64 bits as text: sums, which the data files do not hold.
#pragma once

#include <string>

namespace korvex {

/// With "." and at most nine significant digits, whatever the locale.
[[nodiscard]] std::string sumText(double value);

}  // namespace korvex
