#include "colour_contrast.h"

#include <algorithm>
#include <cmath>

namespace korvex {

namespace {

/// The brightness that the eye sees, 0 to 1.
double luminance(const QColor& colour)
{
    const auto linear
        = [](double part) { return part <= 0.04045 ? part / 12.92 : std::pow((part + 0.055) / 1.055, 2.4); };
    return 0.2126 * linear(colour.redF()) + 0.7152 * linear(colour.greenF()) + 0.0722 * linear(colour.blueF());
}

}  // namespace

double contrast(const QColor& one, const QColor& other)
{
    constexpr double flare = 0.05;
    const auto [darker, lighter] = std::minmax({luminance(one), luminance(other)});
    return (lighter + flare) / (darker + flare);
}

QColor mixed(const QColor& one, const QColor& other, double shareOfOther)
{
    const auto mix = [shareOfOther](int a, int b) { return static_cast<int>(std::lround(a + (b - a) * shareOfOther)); };
    return {mix(one.red(), other.red()), mix(one.green(), other.green()), mix(one.blue(), other.blue())};
}

QColor drawnTowards(
    const QColor& colour, const QColor& other, std::initializer_list<QColor> grounds, double sufficientContrast)
{
    constexpr int steps = 10;
    for (int step = 0; step < steps; ++step) {
        const QColor drawn = mixed(colour, other, 1.0 * step / steps);
        if (std::all_of(grounds.begin(), grounds.end(),
                [&](const QColor& ground) { return contrast(drawn, ground) >= sufficientContrast; }))
            return drawn;
    }
    return other;
}

}  // namespace korvex
