// How well two colours can be told apart, as the accessibility guidelines for web pages measure it.
#pragma once

#include <QColor>

#include <algorithm>
#include <cmath>

namespace korvex {

/// The brightness that the eye sees, 0 to 1.
[[nodiscard]] inline double brightness(const QColor& colour)
{
    const auto linear
        = [](double part) { return part <= 0.04045 ? part / 12.92 : std::pow((part + 0.055) / 1.055, 2.4); };
    return 0.2126 * linear(colour.redF()) + 0.7152 * linear(colour.greenF()) + 0.0722 * linear(colour.blueF());
}

/// From 1, the same, to 21, black on white.
[[nodiscard]] inline double contrastOf(const QColor& one, const QColor& other)
{
    const double a = brightness(one);
    const double b = brightness(other);
    return (std::max(a, b) + 0.05) / (std::min(a, b) + 0.05);
}

}  // namespace korvex
