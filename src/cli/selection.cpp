#include "selection.h"

#include "fields.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>
#include <cstddef>
#include <limits>
#include <system_error>
#include <utility>

namespace korvex {

namespace {

/// Takes a whole number away from the front of a text.
std::optional<std::int32_t> takeNumber(std::string_view& text)
{
    std::int32_t number = 0;
    const auto read = std::from_chars(text.data(), text.data() + text.size(), number);
    if (read.ec != std::errc())
        return std::nullopt;
    text.remove_prefix(static_cast<std::size_t>(read.ptr - text.data()));
    return number;
}

std::optional<NumberRange> readRange(std::string_view text)
{
    const std::optional<std::int32_t> first = takeNumber(text);
    if (!first)
        return std::nullopt;
    if (text.empty())
        return NumberRange{*first, *first};
    if (text.front() != '-')
        return std::nullopt;
    text.remove_prefix(1);
    if (text.empty())
        return NumberRange{*first, std::numeric_limits<std::int32_t>::max()};
    const std::optional<std::int32_t> last = takeNumber(text);
    if (!last || !text.empty() || *last < *first)
        return std::nullopt;
    return NumberRange{*first, *last};
}

}  // namespace

std::optional<std::vector<NumberRange>> readNumberRanges(std::string_view text)
{
    std::vector<NumberRange> ranges;
    const auto count = static_cast<std::size_t>(std::count(text.begin(), text.end(), ',')) + 1;
    Fields fields(text, ',');
    for (std::size_t i = 0; i < count; ++i) {
        const std::optional<NumberRange> range = readRange(fields.next());
        if (!range)
            return std::nullopt;
        ranges.push_back(*range);
    }
    return ranges;
}

bool contains(const std::vector<NumberRange>& ranges, std::int32_t number)
{
    return std::any_of(ranges.begin(), ranges.end(),
        [number](const NumberRange& range) { return range.first <= number && number <= range.last; });
}

std::optional<double> readPlainReal(std::string_view text)
{
    double value = 0.0;
    const auto read = std::from_chars(text.data(), text.data() + text.size(), value);
    if (read.ec != std::errc() || read.ptr != text.data() + text.size() || !std::isfinite(value))
        return std::nullopt;
    return value;
}

std::optional<BoundingBox> readBoundingBox(std::string_view text)
{
    constexpr auto corners = 3;
    if (std::count(text.begin(), text.end(), ',') != corners)
        return std::nullopt;
    std::array<double, 4> values{};
    Fields fields(text, ',');
    for (double& value : values) {
        const std::optional<double> read = readPlainReal(fields.next());
        if (!read)
            return std::nullopt;
        value = *read;
    }
    return BoundingBox{std::min(values[0], values[2]), std::min(values[1], values[3]), std::max(values[0], values[2]),
        std::max(values[1], values[3])};
}

std::optional<std::vector<std::int32_t>> readTypes(std::string_view text)
{
    constexpr std::array<std::string_view, 3> names{"point", "area", "line"};
    std::vector<std::int32_t> types;
    if (text.empty())
        return types;
    const auto count = std::count(text.begin(), text.end(), ',') + 1;
    Fields fields(text, ',');
    for (std::ptrdiff_t i = 0; i < count; ++i) {
        const auto* const found = std::find(names.begin(), names.end(), fields.next());
        if (found == names.end())
            return std::nullopt;
        types.push_back(static_cast<std::int32_t>(found - names.begin()) + 1);
    }
    return types;
}

bool Selection::matches(const cZdroje& source) const
{
    if (!types.empty() && std::find(types.begin(), types.end(), source.TypZdrojeId()) == types.end())
        return false;
    if (!numbers.empty() && !contains(numbers, source.ICZ()))
        return false;
    if (box && (source.X() < box->left || source.X() > box->right || source.Y() < box->bottom || source.Y() > box->top))
        return false;
    return source.NazevZdroje().find(name) != std::string_view::npos;
}

std::size_t select(SourceSet& set, const Selection& selection, Take take)
{
    SourceSet selected;
    for (std::size_t position = 1; position <= set.size(); ++position) {
        if (selection.matches(set.at(position)) == (take == Take::Matching))
            selected.append(std::move(set.at(position)));
    }
    const std::size_t dropped = set.size() - selected.size();
    set = std::move(selected);
    return dropped;
}

}  // namespace korvex
