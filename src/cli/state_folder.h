// Where the copies of replaced files are kept: the same folder as the window's.
#pragma once

#include <string>

namespace korvex {

/// $XDG_STATE_HOME/korvexzdr, or ~/.local/state/korvexzdr when that names no full path; empty without a home.
[[nodiscard]] std::string stateFolder();

}  // namespace korvex
