#include "source_columns.h"

#include "number_text.h"
#include "source.h"

#include <algorithm>
#include <charconv>

namespace korvex {

namespace {

using Parameters = std::array<std::size_t, 9>;

constexpr Parameters stackColumns{column::Emission, column::Height, column::GasVolume, column::Temperature,
    column::Diameter, column::Velocity, column::YearlyUse, column::DailyHours, column::Count};
constexpr Parameters areaColumns{column::Emission, column::Height, column::GasVolume, column::Temperature,
    column::Diameter, column::Velocity, column::YearlyUse, column::DailyHours, column::ElementDistance};
constexpr Parameters segmentColumns{column::EmissionOfMetre, column::StartX, column::StartY, column::EndX, column::EndY,
    column::Width, column::HeightOfSegment, column::YearlyUse, column::DailyHours};

constexpr std::size_t indexD = 4;
constexpr std::size_t indexW0 = 5;

}  // namespace

std::optional<std::size_t> columnNamed(std::string_view name)
{
    const auto* const found = std::find_if(sourceColumns.begin(), sourceColumns.end(),
        [name](const SourceColumn& candidate) { return candidate.name == name; });
    if (found == sourceColumns.end())
        return std::nullopt;
    return static_cast<std::size_t>(found - sourceColumns.begin());
}

std::size_t columnOfParameter(const SourceType& type, std::size_t index, const std::array<float, 9>& parameters)
{
    if (type.TypZdrojeId == cLiniovyZdroj.TypZdrojeId)
        return segmentColumns[index];
    if (type.TypZdrojeId != cPlosnyZdroj.TypZdrojeId)
        return stackColumns[index];
    const bool isPlumeRise = parameters[indexD] == 0.0F && parameters[indexW0] == 0.0F;
    const std::size_t found = areaColumns[index];
    return found == column::Temperature && isPlumeRise ? std::size_t{column::PlumeRise} : found;
}

void SourceRow::fill(const cZdroje& source)
{
    for (std::string& text : texts)
        text.clear();
    applies.reset();
    const auto put = [this](std::size_t index, std::string_view text) {
        texts[index] = text;
        applies.set(index);
    };
    const SourceValues values = source.values();
    put(column::Number, integerText(values.number));
    put(column::Type, integerText(source.TypZdrojeId()));
    put(column::Name, values.name);
    put(column::X, integerText(values.x));
    put(column::Y, integerText(values.y));
    put(column::Altitude, integerText(values.altitude));
    put(column::Group, integerText(values.group));
    put(column::Cluster, integerText(values.cluster));
    const auto count = static_cast<std::size_t>(source.type().parameterCount);
    for (std::size_t i = 0; i < count; ++i)
        put(columnOfParameter(source.type(), i, values.parameters), singleText(values.parameters[i]));
    if (source.type().hasDust)
        put(column::Dust, values.dust);
}

std::string exactText(float value)
{
    if (value == 0.0F)
        return "0";
    std::array<char, 32> buffer{};
    const auto written = std::to_chars(buffer.data(), buffer.data() + buffer.size(), value);
    return {buffer.data(), written.ptr};
}

}  // namespace korvex
