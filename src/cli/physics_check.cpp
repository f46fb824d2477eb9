#include "physics_check.h"

#include "arithmetic_fault.h"
#include "blanks.h"
#include "check_limits.h"
#include "fields.h"
#include "midpoint.h"
#include "number_text.h"
#include "stack_gas.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstdint>
#include <string>
#include <vector>

namespace korvex {

namespace {

enum Parameter : int { M = 0, H = 1, Vs = 2, ts = 3, d = 4, w0 = 5 };
enum RoadParameter : int { X1el = 1, Y1el = 2, X2el = 3, Y2el = 4 };

float valueOf(const DescribedSource& source, int parameter)
{
    return source.parameters[static_cast<std::size_t>(parameter)];
}

Place placeOf(const DescribedSource& source, int parameter)
{
    constexpr std::size_t fieldOfFirst = 2;
    const std::string_view text = field(source.line.bytes, ',', fieldOfFirst + static_cast<std::size_t>(parameter));
    return source.line.placeOf(trimBlanks(text).data());
}

/// To so many decimals as a reader of a message can use.
std::string shortText(double value)
{
    // Beyond that nobody looks at the digits, and a 32-bit real has to hold it.
    constexpr double mostShown = 1E9;
    value = std::min(value, mostShown);
    const double step = std::abs(value) >= 100.0 ? 1.0 : 100.0;
    return singleText(static_cast<float>(std::nearbyint(value * step) / step));
}

/// ts, d and w0 mean something: always with a stack, with an area source only when d or w0 is given.
bool hasGas(const DescribedSource& source)
{
    switch (source.type.TypZdrojeId) {
    case stackId:
        return true;
    case areaId:
        return valueOf(source, d) != 0.0F || valueOf(source, w0) != 0.0F;
    default:
        return false;
    }
}

bool isGasRule(Rule rule)
{
    return rule == Rule::RangeTs || rule == Rule::RangeD || rule == Rule::RangeW0;
}

void checkRanges(Findings& findings, const DescribedSource& source)
{
    for (const ParameterRange& range : parameterRanges) {
        if (range.typeId != source.type.TypZdrojeId || (isGasRule(range.rule) && !hasGas(source)))
            continue;
        const float value = valueOf(source, range.parameter);
        if (value >= range.low && value <= range.high)
            continue;
        findings.add(range.rule, placeOf(source, range.parameter), source.point.number, [&] {
            return std::vector<std::string>{
                range.symbol, singleText(value), singleText(range.low), singleText(range.high), range.unit};
        });
    }
}

void checkEmission(Findings& findings, const DescribedSource& source)
{
    const float emission = valueOf(source, M);
    if (emission > limits::smallestEmission.value)
        return;
    findings.add(Rule::Emission, placeOf(source, M), source.point.number, [&] {
        const bool isRoad = source.type.TypZdrojeId == roadId;
        return std::vector<std::string>{isRoad      ? "ML"
                : source.type.TypZdrojeId == areaId ? "ME"
                                                    : "M",
            singleText(emission), isRoad ? "g/s/m" : "g/s", singleText(limits::smallestEmission.value)};
    });
}

void checkVs(Findings& findings, const DescribedSource& source)
{
    // Without a cross-section or a velocity there is nothing to compare with; the ranges tell.
    if (!(valueOf(source, d) > 0.0F && valueOf(source, w0) > 0.0F))
        return;
    double expected = 0.0;
    try {
        expected = StackGas(source.pressure)
                       .CalcVs(valueOf(source, ts), valueOf(source, d), valueOf(source, w0), source.pressure);
    } catch (const ArithmeticFault&) {
        return;  // a temperature at absolute zero or a value beyond all measure: the ranges tell
    }
    if (!(expected > 0.0))
        return;
    const double difference = 100.0 * std::abs(valueOf(source, Vs) - expected) / expected;
    if (difference <= static_cast<double>(limits::vsDifference.value))
        return;
    static const std::string limit = singleText(limits::vsDifference.value);
    findings.add(Rule::VsMismatch, placeOf(source, Vs), source.point.number, [&] {
        return std::array{singleText(valueOf(source, Vs)), singleText(source.pressure),
            singleText(static_cast<float>(expected)), shortText(difference), limit};
    });
}

void checkDiameter(Findings& findings, const DescribedSource& source)
{
    const float height = valueOf(source, H);
    const float diameter = valueOf(source, d);
    if (height <= 0.0F || diameter <= height * limits::diameterToHeight.value)
        return;
    findings.add(Rule::DiameterHeight, placeOf(source, d), source.point.number, [&] {
        return std::array{singleText(diameter), singleText(height),
            shortText(static_cast<double>(diameter) / static_cast<double>(height)),
            singleText(limits::diameterToHeight.value)};
    });
}

void checkPlumeRise(Findings& findings, const DescribedSource& source)
{
    const float rise = valueOf(source, ts);
    if (hasGas(source) || rise <= limits::highestPlumeRise.value)
        return;
    findings.add(Rule::PlumeRise, placeOf(source, ts), source.point.number, [&] {
        return std::array{singleText(rise), singleText(limits::highestPlumeRise.value)};
    });
}

void checkMidpoint(Findings& findings, const DescribedSource& source)
{
    std::int32_t x = 0;
    std::int32_t y = 0;
    try {
        CalcXY(x, y, valueOf(source, X1el), valueOf(source, Y1el), valueOf(source, X2el), valueOf(source, Y2el));
    } catch (const ArithmeticFault&) {
        return;  // beyond whole numbers: such a segment is far away in any case
    }
    const auto distance = [](std::int32_t a, std::int32_t b) { return std::abs(std::int64_t{a} - std::int64_t{b}); };
    const std::int64_t off = std::max(distance(source.point.x, x), distance(source.point.y, y));
    if (off <= static_cast<std::int64_t>(limits::midpointDistance.value))
        return;
    // The place to mend is in the points file.
    const Place place{CheckedFile::Points, source.point.line, source.point.columnOfX};
    findings.add(Rule::Midpoint, place, source.point.number, [&] {
        return std::array{integerText(source.point.x), integerText(source.point.y), integerText(x), integerText(y),
            shortText(static_cast<double>(off)), singleText(limits::midpointDistance.value)};
    });
}

void checkRoad(Findings& findings, const DescribedSource& source)
{
    const float x1 = valueOf(source, X1el);
    const float y1 = valueOf(source, Y1el);
    if (x1 == valueOf(source, X2el) && y1 == valueOf(source, Y2el)) {
        findings.add(Rule::NoLength, placeOf(source, X1el), source.point.number, [&] {
            return std::array{singleText(x1), singleText(y1)};
        });
    } else {
        checkMidpoint(findings, source);
    }
}

}  // namespace

void checkPhysics(Findings& findings, const DescribedSource& source)
{
    checkRanges(findings, source);
    checkEmission(findings, source);
    if (source.type.TypZdrojeId == roadId) {
        checkRoad(findings, source);
        return;
    }
    if (hasGas(source))
        checkVs(findings, source);
    if (source.type.TypZdrojeId == stackId)
        checkDiameter(findings, source);
    else
        checkPlumeRise(findings, source);
}

}  // namespace korvex
