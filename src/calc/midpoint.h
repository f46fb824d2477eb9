// The midpoint of a line source's segment.
#pragma once

#include <cstdint>

namespace korvex {

/// X and Y become the midpoint of (x1, y1) and (x2, y2), all in m, rounded to whole metres with halves to even. The
/// sums are formed in 64 bits. Throws ArithmeticFault, and leaves both, when one does not fit 32 bits.
void CalcXY(std::int32_t& X, std::int32_t& Y, float x1, float y1, float x2, float y2);

}  // namespace korvex
