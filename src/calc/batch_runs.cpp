#include "batch_runs.h"

#include "arithmetic_fault.h"
#include "midpoint.h"
#include "number_text.h"
#include "progress_listener.h"
#include "source_rows.h"
#include "source_set.h"

#include <cstddef>
#include <cstdint>
#include <string_view>

namespace korvex {

namespace {

constexpr std::int32_t indexVs = 2;
constexpr std::int32_t indexTs = 3;
constexpr std::int32_t indexD = 4;
constexpr std::int32_t indexW0 = 5;

std::string zeroDivisorLine(const cZdroje& source, std::string_view wanted, std::string_view divisor)
{
    std::string line = "Pro zdroj ";
    line += integerText(source.ICZ());
    line += " nelze vypočítat '";
    line += wanted;
    line += "', protože '";
    line += divisor;
    line += "'=0";
    return line;
}

void computeStackGas(
    cZdroje& source, StackGasQuantity quantity, float p, const StackGas& stackGas, std::vector<std::string>& log)
{
    const float Vs = source.Parameters(indexVs);
    const float ts = source.Parameters(indexTs);
    const float d = source.Parameters(indexD);
    const float w0 = source.Parameters(indexW0);
    switch (quantity) {
    case StackGasQuantity::Vs:
        source.Parameters(indexVs, stackGas.CalcVs(ts, d, w0, p));
        break;
    case StackGasQuantity::d:
        if (w0 == 0.0F)
            log.push_back(zeroDivisorLine(source, "d", "w0"));
        else
            source.Parameters(indexD, stackGas.CalcD(ts, Vs, w0, p));
        break;
    case StackGasQuantity::w0:
        if (d == 0.0F)
            log.push_back(zeroDivisorLine(source, "w0", "d"));
        else
            source.Parameters(indexW0, stackGas.CalcW0(ts, Vs, d, p));
        break;
    }
}

void computeMidpoint(cZdroje& source)
{
    std::int32_t X = 0;
    std::int32_t Y = 0;
    CalcXY(X, Y, source.Parameters(1), source.Parameters(2), source.Parameters(3), source.Parameters(4));
    source.X(X);
    source.Y(Y);
}

/// Runs a calculation on a source; a fault says which source it was.
template <class Calculation>
void computeNamed(cZdroje& source, Calculation calculation)
{
    try {
        calculation(source);
    } catch (const ArithmeticFault& fault) {
        throw ArithmeticFault(fault.kind(), "zdroj " + integerText(source.ICZ()));
    }
}

}  // namespace

void runStackGas(SourceSet& set, const SourceRows& rows, StackGasQuantity quantity, float p, const StackGas& stackGas,
    std::vector<std::string>& log, ProgressListener& listener)
{
    // One more than there are rows: the bar never stands at its end, it drops back when the run is over.
    listener.progressMaximum(rows.count() + 1);
    for (std::size_t row = 0; row < rows.count(); ++row) {
        listener.progressValue(row + 1);
        if (!rows.marked(row))
            continue;
        cZdroje& source = set.at(rows.tag(row));
        if (source.TypZdrojeId() != cBodovyZdroj.TypZdrojeId)
            continue;
        computeNamed(source, [&](cZdroje& marked) { computeStackGas(marked, quantity, p, stackGas, log); });
    }
    log.emplace_back("Hotovo.");
}

void runMidpoints(SourceSet& set, const SourceRows& rows)
{
    for (std::size_t row = 0; row < rows.count(); ++row) {
        if (!rows.marked(row))
            continue;
        cZdroje& source = set.at(rows.tag(row));
        if (source.TypZdrojeId() == cLiniovyZdroj.TypZdrojeId)
            computeNamed(source, computeMidpoint);
    }
}

}  // namespace korvex
