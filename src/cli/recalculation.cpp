#include "recalculation.h"

#include "arithmetic_fault.h"
#include "midpoint.h"
#include "number_text.h"
#include "source_columns.h"
#include "stack_gas.h"

#include <cstdint>
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
        if (dividesByZero(source)) {
            m_result.notComputed.push_back({position, {}});
            return;
        }
        Recalculated recalculated{position, {}};
        try {
            if (m_quantity == Quantity::XY)
                computeMidpoint(source, recalculated.changes);
            else
                computeGas(source, recalculated.changes);
        } catch (const ArithmeticFault& fault) {
            m_result.notComputed.push_back({position, fault.what()});
            return;
        }
        ++m_result.computed;
        if (!recalculated.changes.empty())
            m_result.changed.push_back(std::move(recalculated));
    }

    Recalculation finish() { return std::move(m_result); }

private:
    [[nodiscard]] bool dividesByZero(const cZdroje& source) const
    {
        return (m_quantity == Quantity::d && source.Parameters(indexW0) == 0.0F)
            || (m_quantity == Quantity::w0 && source.Parameters(indexD) == 0.0F);
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

    void computeGas(cZdroje& source, std::vector<ValueChange>& changes) const
    {
        const float ts = source.Parameters(indexTs);
        const float Vs = source.Parameters(indexVs);
        const float d = source.Parameters(indexD);
        const float w0 = source.Parameters(indexW0);
        if (m_quantity == Quantity::Vs)
            set(source, indexVs, column::GasVolume, m_stackGas.CalcVs(ts, d, w0, m_pressure), changes);
        else if (m_quantity == Quantity::d)
            set(source, indexD, column::Diameter, m_stackGas.CalcD(ts, Vs, w0, m_pressure), changes);
        else
            set(source, indexW0, column::Velocity, m_stackGas.CalcW0(ts, Vs, d, m_pressure), changes);
    }

    static void set(
        cZdroje& source, std::int32_t index, std::size_t column, float value, std::vector<ValueChange>& changes)
    {
        note(changes, column, singleText(source.Parameters(index)), singleText(value));
        source.Parameters(index, value);
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
