// What the tests of the calculations share: faults as values, the user's locale, and inventories with their rows.
#pragma once

#include "arithmetic_fault.h"
#include "progress_listener.h"
#include "source_rows.h"
#include "source_set.h"

#include <gtest/gtest.h>

#include <clocale>
#include <cstddef>
#include <cstdint>
#include <optional>
#include <stdexcept>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace korvex {

constexpr float normalPressure = 101325.0F;
/// As a user types absolute zero: -273.15 °C.
constexpr float typedAbsoluteZero = -273.15F;

/// The kind of the fault that a call ends with; none when it gives a result.
template <class Call>
[[nodiscard]] std::optional<FaultKind> faultOf(Call call)
{
    try {
        static_cast<void>(call());
    } catch (const ArithmeticFault& fault) {
        return fault.kind();
    }
    return std::nullopt;
}

/// The whole text of the fault that a call ends with; empty when it runs through.
template <class Call>
[[nodiscard]] std::string faultTextOf(Call call)
{
    try {
        call();
    } catch (const ArithmeticFault& fault) {
        return fault.what();
    }
    return {};
}

/// The locale that the suite is run under, which a test program does not have by itself.
class UnderTheUsersLocale : public testing::Test {
protected:
    void SetUp() override { static_cast<void>(std::setlocale(LC_ALL, "")); }
    void TearDown() override { static_cast<void>(std::setlocale(LC_ALL, "C")); }
};

/// Everything that a run told its listener.
class RecordingListener : public ProgressListener {
public:
    void statusText(std::string_view text) override { texts.emplace_back(text); }
    void progressMaximum(std::size_t maximum) override
    {
        maxima.push_back(maximum);
        valuesBeforeTheMaximum += values.size();
    }
    void progressValue(std::size_t value) override { values.push_back(value); }

    std::vector<std::string> texts;
    std::vector<std::size_t> maxima;
    std::vector<std::size_t> values;
    std::size_t valuesBeforeTheMaximum = 0;
};

/// The four linked quantities of a stack.
struct FlueGas {
    float Vs;
    float ts;
    float d;
    float w0;
};

[[nodiscard]] inline FlueGas flueGasOf(const cZdroje& source)
{
    return {source.Parameters(2), source.Parameters(3), source.Parameters(4), source.Parameters(5)};
}

/// A set and rows that show it.
class Inventory {
public:
    cZdroje& add(const SourceType& type, std::int32_t number)
    {
        cZdroje source(type);
        source.ICZ(number);
        set.append(std::move(source));
        rows.refill(set.size());
        return set.last();
    }
    /// Parameters 2 to 5 of a point or an area.
    cZdroje& addGas(const SourceType& type, std::int32_t number, const FlueGas& gas)
    {
        cZdroje& source = add(type, number);
        source.Parameters(2, gas.Vs);
        source.Parameters(3, gas.ts);
        source.Parameters(4, gas.d);
        source.Parameters(5, gas.w0);
        return source;
    }
    cZdroje& addPoint(std::int32_t number, const FlueGas& gas) { return addGas(cBodovyZdroj, number, gas); }
    cZdroje& addLine(std::int32_t number, float x1, float y1, float x2, float y2)
    {
        cZdroje& source = add(cLiniovyZdroj, number);
        source.Parameters(1, x1);
        source.Parameters(2, y1);
        source.Parameters(3, x2);
        source.Parameters(4, y2);
        return source;
    }

    /// Marks the rows of these numbers and no others.
    void markOnly(const std::vector<std::int32_t>& numbers)
    {
        rows.markAll(false);
        for (std::size_t row = 0; row < rows.count(); ++row) {
            for (const std::int32_t number : numbers) {
                if (set.at(rows.tag(row)).ICZ() == number)
                    rows.mark(row, true);
            }
        }
    }

    [[nodiscard]] const cZdroje& numbered(std::int32_t number) const
    {
        for (std::size_t position = 1; position <= set.size(); ++position) {
            if (set.at(position).ICZ() == number)
                return set.at(position);
        }
        throw std::out_of_range("no source of this number");
    }

    /// All records of all sources.
    [[nodiscard]] std::vector<std::string> records() const
    {
        std::vector<std::string> texts;
        for (std::size_t position = 1; position <= set.size(); ++position) {
            const cZdroje& source = set.at(position);
            texts.push_back(source.LineSource() + '|' + source.LineParameters() + '|' + source.LineDust());
        }
        return texts;
    }

    SourceSet set;
    SourceRows rows;
};

}  // namespace korvex
