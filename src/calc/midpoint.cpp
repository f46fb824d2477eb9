#include "midpoint.h"

#include "number_text.h"

namespace korvex {

void CalcXY(std::int32_t& X, std::int32_t& Y, float x1, float y1, float x2, float y2)
{
    const std::int32_t x = roundToInteger((static_cast<double>(x1) + static_cast<double>(x2)) * 0.5);
    const std::int32_t y = roundToInteger((static_cast<double>(y1) + static_cast<double>(y2)) * 0.5);
    X = x;
    Y = y;
}

}  // namespace korvex
