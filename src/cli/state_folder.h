// Where the copies of replaced files are kept: the same folder as the window's.
#pragma once

#include "safety_copies.h"

#include <string>

namespace korvex {

/// $XDG_STATE_HOME/korvexzdr, or ~/.local/state/korvexzdr when that names no full path; empty without a home.
[[nodiscard]] std::string stateFolder();

/// The copies there. Nothing is replaced without them: what a tool does to many files nobody looks at.
[[nodiscard]] SafetyCopies safetyCopies();

}  // namespace korvex
