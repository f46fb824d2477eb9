#include "real_text.h"

#include <array>
#include <charconv>

namespace korvex {

std::string sumText(double value)
{
    constexpr int digits = 7;
    if (value == 0.0)
        return "0";
    std::array<char, 32> buffer{};
    const auto written
        = std::to_chars(buffer.data(), buffer.data() + buffer.size(), value, std::chars_format::general, digits);
    return {buffer.data(), written.ptr};
}

}  // namespace korvex
