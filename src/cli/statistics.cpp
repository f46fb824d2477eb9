#include "statistics.h"

#include "record_fields.h"
#include "source_set.h"

#include <algorithm>
#include <cmath>
#include <string>

namespace korvex {

namespace {

constexpr std::int32_t stack = cBodovyZdroj.TypZdrojeId;
constexpr std::int32_t area = cPlosnyZdroj.TypZdrojeId;
constexpr std::int32_t road = cLiniovyZdroj.TypZdrojeId;

double parameter(const cZdroje& source, std::int32_t index)
{
    return static_cast<double>(source.Parameters(index));
}

/// Of a road, in m.
double lengthOf(const cZdroje& source)
{
    return std::hypot(parameter(source, 3) - parameter(source, 1), parameter(source, 4) - parameter(source, 2));
}

bool hasGas(const cZdroje& source)
{
    return source.TypZdrojeId() == stack || source.Parameters(4) != 0.0F || source.Parameters(5) != 0.0F;
}

enum class Wanted { Always, WithGas, WithoutGas };

/// Which quantities are looked at: a parameter, or the length of a road.
struct Quantity {
    std::int32_t typeId;
    const char* symbol;
    const char* unit;
    std::int32_t parameter;
    Wanted wanted = Wanted::Always;
};
constexpr std::int32_t length = -1;

constexpr std::array quantities{
    Quantity{stack, "H", "m", 1},
    Quantity{stack, "ts", "°C", 3},
    Quantity{stack, "d", "m", 4},
    Quantity{stack, "w0", "m/s", 5},
    Quantity{area, "H", "m", 1},
    Quantity{area, "Delta h", "m", 3, Wanted::WithoutGas},
    Quantity{area, "ts", "°C", 3, Wanted::WithGas},
    Quantity{area, "d", "m", 4, Wanted::WithGas},
    Quantity{area, "w0", "m/s", 5, Wanted::WithGas},
    Quantity{road, "L", "m", length},
    Quantity{road, "X0el", "m", 5},
    Quantity{road, "Z0el", "m", 6},
};

bool isOf(const cZdroje& source, const Quantity& quantity)
{
    if (source.TypZdrojeId() != quantity.typeId)
        return false;
    return quantity.wanted == Wanted::Always || hasGas(source) == (quantity.wanted == Wanted::WithGas);
}

ValueRange rangeOf(const Quantity& quantity, std::vector<float>& values)
{
    ValueRange range{quantity.typeId, quantity.symbol, quantity.unit};
    range.count = values.size();
    if (values.empty())
        return range;
    const auto [smallest, largest] = std::minmax_element(values.begin(), values.end());
    range.smallest = *smallest;
    range.largest = *largest;
    const auto middle = values.begin() + static_cast<std::ptrdiff_t>(values.size() / 2);
    std::nth_element(values.begin(), middle, values.end());
    range.median = *middle;
    if (values.size() % 2 == 0) {
        const double below = static_cast<double>(*std::max_element(values.begin(), middle));
        range.median = static_cast<float>((below + static_cast<double>(range.median)) / 2.0);
    }
    return range;
}

std::vector<ValueRange> rangesOf(const SourceSet& set)
{
    std::vector<ValueRange> ranges;
    std::vector<float> values;
    for (const Quantity& quantity : quantities) {
        values.clear();
        for (std::size_t position = 1; position <= set.size(); ++position) {
            const cZdroje& source = set.at(position);
            if (!isOf(source, quantity))
                continue;
            values.push_back(quantity.parameter == length ? static_cast<float>(lengthOf(source))
                                                          : source.Parameters(quantity.parameter));
        }
        ranges.push_back(rangeOf(quantity, values));
    }
    return ranges;
}

EmissionSum emissionOf(const cZdroje& source)
{
    constexpr double hoursOfDay = 24.0;
    const bool isRoad = source.TypZdrojeId() == road;
    const double full = parameter(source, 0) * (isRoad ? lengthOf(source) : 1.0);
    const double alfa = parameter(source, isRoad ? 7 : 6);
    const double pd = parameter(source, isRoad ? 8 : 7) / hoursOfDay;
    return {full, full * alfa, full * pd, full * alfa * pd};
}

void add(Tally& tally, const cZdroje& source, const EmissionSum& emission)
{
    ++tally.countOfType[static_cast<std::size_t>(source.TypZdrojeId()) - 1];
    tally.emission.full += emission.full;
    tally.emission.withAlfa += emission.withAlfa;
    tally.emission.withPd += emission.withPd;
    tally.emission.withBoth += emission.withBoth;
}

}  // namespace

InventoryStatistics statisticsOf(const SourceSet& set)
{
    InventoryStatistics statistics;
    std::string record;
    for (std::size_t position = 1; position <= set.size(); ++position) {
        const cZdroje& source = set.at(position);
        const EmissionSum emission = emissionOf(source);
        add(statistics.all, source, emission);
        add(statistics.ofType[static_cast<std::size_t>(source.TypZdrojeId()) - 1], source, emission);
        // Group and cluster are to be had from the record alone.
        record.clear();
        source.appendLineSource(record);
        RecordFields fields(record);
        constexpr int fieldsBeforeGroup = 5;
        for (int i = 0; i < fieldsBeforeGroup; ++i)
            fields.skip();
        add(statistics.ofGroup[fields.nextInteger()], source, emission);
        add(statistics.ofCluster[fields.nextInteger()], source, emission);
        if (source.TypZdrojeId() == road)
            statistics.roadLength += lengthOf(source);
    }
    statistics.ranges = rangesOf(set);
    return statistics;
}

}  // namespace korvex
