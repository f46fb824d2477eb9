#include "recalculation.h"

#include "arithmetic_fault.h"
#include "midpoint.h"
#include "number_text.h"
#include "source_columns.h"
#include "stack_gas.h"

#include <cstdint>
#include <optional>
#include <utility>

namespace korvex {

namespace {

constexpr std::int32_t indexVs = 2;
constexpr std::int32_t indexTs = 3;
constexpr std::int32_t indexD = 4;
constexpr std::int32_t indexW0 = 5;

class Run {
public:
    Run(Quantity quantity, float pressure) : m_quantity(quantity), m_pressure(pressure), m_stackGas(pressure) { }

    [[nodiscard]] bool isMeant(const cZdroje& source) const
    {
        const SourceType& wanted = m_quantity == Quantity::XY ? cLiniovyZdroj : cBodovyZdroj;
        return source.TypZdrojeId() == wanted.TypZdrojeId;
    }

    void compute(SourceSet& set, std::size_t position)
    {
        cZdroje& source = set.at(position);
        if (const std::optional<NotComputed> reason = impossibleInput(source, position)) {
            m_result.notComputed.push_back(*reason);
            return;
        }
        Recalculated recalculated{position, {}};
        try {
            if (m_quantity == Quantity::XY)
                computeMidpoint(source, recalculated.changes);
            else if (!computeGas(source, position, recalculated.changes))
                return;
        } catch (const ArithmeticFault&) {
            const std::size_t column = m_quantity == Quantity::XY ? std::size_t{column::X} : columnOf(result());
            m_result.notComputed.push_back({position, NotComputed::Reason::NoResult, column, {}});
            return;
        }
        m_result.computed.push_back(position);
        if (!recalculated.changes.empty())
            m_result.changed.push_back(std::move(recalculated));
    }

    Recalculation finish() { return std::move(m_result); }

private:
    /// The index of the parameter that is computed; not for XY.
    [[nodiscard]] std::int32_t result() const
    {
        if (m_quantity == Quantity::Vs)
            return indexVs;
        return m_quantity == Quantity::d ? indexD : indexW0;
    }

    static std::size_t columnOf(std::int32_t index)
    {
        return columnOfParameter(cBodovyZdroj, static_cast<std::size_t>(index), {});
    }

    /// What there is no sensible result of; Vs is not divided by anything.
    [[nodiscard]] std::optional<NotComputed> impossibleInput(const cZdroje& source, std::size_t position) const
    {
        if (m_quantity == Quantity::XY)
            return std::nullopt;
        const auto blame = [&](NotComputed::Reason reason, std::int32_t index) {
            return NotComputed{position, reason, columnOf(index), singleText(source.Parameters(index))};
        };
        if (!(source.Parameters(indexTs) > absoluteZero))
            return blame(NotComputed::Reason::TooCold, indexTs);
        const std::int32_t divisor = m_quantity == Quantity::d ? indexW0 : indexD;
        if (m_quantity != Quantity::Vs && source.Parameters(divisor) == 0.0F)
            return blame(NotComputed::Reason::ZeroDivisor, divisor);
        return std::nullopt;
    }

    static void computeMidpoint(cZdroje& source, std::vector<ValueChange>& changes)
    {
        std::int32_t x = 0;
        std::int32_t y = 0;
        CalcXY(x, y, source.Parameters(1), source.Parameters(2), source.Parameters(3), source.Parameters(4));
        note(changes, column::X, integerText(source.X()), integerText(x));
        note(changes, column::Y, integerText(source.Y()), integerText(y));
        source.X(x);
        source.Y(y);
    }

    /// False when the result is none that the source could be given.
    [[nodiscard]] bool computeGas(cZdroje& source, std::size_t position, std::vector<ValueChange>& changes)
    {
        const float ts = source.Parameters(indexTs);
        const float Vs = source.Parameters(indexVs);
        const float d = source.Parameters(indexD);
        const float w0 = source.Parameters(indexW0);
        const float value = m_quantity == Quantity::Vs ? m_stackGas.CalcVs(ts, d, w0, m_pressure)
            : m_quantity == Quantity::d                ? m_stackGas.CalcD(ts, Vs, w0, m_pressure)
                                                       : m_stackGas.CalcW0(ts, Vs, d, m_pressure);
        if (value < 0.0F) {
            m_result.notComputed.push_back(
                {position, NotComputed::Reason::Negative, columnOf(result()), singleText(value)});
            return false;
        }
        note(changes, columnOf(result()), singleText(source.Parameters(result())), singleText(value));
        source.Parameters(result(), value);
        return true;
    }

    static void note(std::vector<ValueChange>& changes, std::size_t column, std::string before, std::string after)
    {
        if (before != after)
            changes.push_back({column, std::move(before), std::move(after)});
    }

    Quantity m_quantity;
    float m_pressure;
    StackGas m_stackGas;
    Recalculation m_result;
};

}  // namespace

Recalculation recalculate(SourceSet& set, Quantity quantity, float pressure, const std::vector<NumberRange>& numbers)
{
    Run run(quantity, pressure);
    for (std::size_t position = 1; position <= set.size(); ++position) {
        const cZdroje& source = set.at(position);
        if (run.isMeant(source) && (numbers.empty() || contains(numbers, source.ICZ())))
            run.compute(set, position);
    }
    return run.finish();
}

}  // namespace korvex
