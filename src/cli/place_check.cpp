// Where the sources stand: far from all others, or several at one place.
#include "check_limits.h"
#include "points_check.h"
#include "radix_sort.h"

#include <algorithm>
#include <array>
#include <bit>
#include <cstddef>
#include <string>
#include <vector>

namespace korvex {

namespace {

/// Between which coordinates the middle half of the sources lies, and how far a source may lie beyond.
struct Spread {
    std::int64_t low = 0;
    std::int64_t high = 0;
    std::int64_t allowed = 0;

    [[nodiscard]] std::int64_t beyond(std::int64_t value) const
    {
        return value < low ? low - value : value > high ? value - high : 0;
    }
};

Spread spreadOf(const CheckedPoints& points, std::int32_t CheckedPoint::*coordinate)
{
    std::vector<std::int32_t> values;
    values.reserve(points.count());
    for (const CheckedPoint& point : points.byNumber()) {
        if (point.typeId != 0)
            values.push_back(point.*coordinate);
    }
    const auto quarter = static_cast<std::ptrdiff_t>(values.size() / 4);
    const auto low = values.begin() + quarter;
    const auto high = values.end() - 1 - quarter;
    std::nth_element(values.begin(), low, values.end());
    Spread spread{*low, *low, 0};
    // Takes the lower quarter apart from the rest, so *low may be another one afterwards.
    std::nth_element(low, high, values.end());
    spread.high = *high;
    spread.allowed = std::max(static_cast<std::int64_t>(limits::spreads.value) * (spread.high - spread.low),
        static_cast<std::int64_t>(limits::leastFarAway.value));
    return spread;
}

std::string kilometres(std::int64_t metres)
{
    return integerText(roundToInteger(static_cast<double>(metres) / 1000.0));
}

/// One coordinate of the sources.
struct Axis {
    const char* name;
    std::int32_t CheckedPoint::*value;
    std::uint16_t CheckedPoint::*column;
};

void checkDistance(Findings& findings, const CheckedPoint& point, const Axis& axis, const Spread& spread)
{
    const std::int32_t value = point.*axis.value;
    const std::int64_t beyond = spread.beyond(value);
    if (beyond <= spread.allowed)
        return;
    findings.add(Rule::FarAway, {CheckedFile::Points, point.line, point.*axis.column}, point.number, [&] {
        return std::array<std::string, 6>{axis.name, integerText(value), kilometres(beyond),
            integerText(static_cast<std::int32_t>(spread.low)), integerText(static_cast<std::int32_t>(spread.high)),
            kilometres(spread.allowed)};
    });
}

void checkDistances(Findings& findings, const CheckedPoints& points)
{
    const auto isLoaded = [](const CheckedPoint& point) { return point.typeId != 0; };
    const auto loaded = std::count_if(points.byNumber().begin(), points.byNumber().end(), isLoaded);
    if (loaded < static_cast<std::ptrdiff_t>(limits::fewestSources.value))
        return;
    for (const Axis& axis : {Axis{"X", &CheckedPoint::x, &CheckedPoint::columnOfX},
             Axis{"Y", &CheckedPoint::y, &CheckedPoint::columnOfY}}) {
        const Spread spread = spreadOf(points, axis.value);
        for (const CheckedPoint& point : points.byNumber()) {
            if (isLoaded(point))
                checkDistance(findings, point, axis, spread);
        }
    }
}

/// A place as one number, and which source stands there.
struct PlacedPoint {
    std::uint64_t place;
    std::uint32_t line;
    std::uint32_t index;
};

std::uint64_t placeOf(const CheckedPoint& point)
{
    constexpr std::uint32_t signBit = 0x80000000U;
    return std::uint64_t{static_cast<std::uint32_t>(point.x) ^ signBit} << 32U
        | (static_cast<std::uint32_t>(point.y) ^ signBit);
}

void checkSamePlaces(Findings& findings, const CheckedPoints& points)
{
    std::vector<PlacedPoint, LargeMemory<PlacedPoint>> placed;
    placed.reserve(points.count());
    for (std::size_t i = 0; i < points.count(); ++i) {
        if (points.byNumber()[i].typeId != 0)
            placed.push_back({placeOf(points.byNumber()[i]), points.byNumber()[i].line, static_cast<std::uint32_t>(i)});
    }
    // In file order first: the source that stands first in the file is the one that the others name.
    const auto isBefore = [](const PlacedPoint& a, const PlacedPoint& b) { return a.line < b.line; };
    if (!std::is_sorted(placed.begin(), placed.end(), isBefore))
        sortByKey(placed, 32, [](const PlacedPoint& point) { return std::uint64_t{point.line}; });
    sortByKey(placed, 64, [](const PlacedPoint& point) { return point.place; });
    std::size_t first = 0;
    for (std::size_t i = 1; i < placed.size(); ++i) {
        if (placed[i].place != placed[first].place) {
            first = i;
            continue;
        }
        const CheckedPoint& point = points.byNumber()[placed[i].index];
        const CheckedPoint& other = points.byNumber()[placed[first].index];
        findings.add(Rule::SamePlace, {CheckedFile::Points, point.line, point.columnOfX}, point.number, [&] {
            return std::array{integerText(point.x), integerText(point.y), integerText(other.number),
                integerText(static_cast<std::int32_t>(other.line))};
        });
    }
}

}  // namespace

void checkPlaces(Findings& findings, const CheckedPoints& points)
{
    checkDistances(findings, points);
    checkSamePlaces(findings, points);
}

}  // namespace korvex
