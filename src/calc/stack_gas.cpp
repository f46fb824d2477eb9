#include "stack_gas.h"

#include "checked_arithmetic.h"

namespace korvex {

namespace {

constexpr double normalTemperature = 273.15;  // K; also the offset from °C to K
constexpr double normalPressure = 101325.0;   // Pa
constexpr double pi = 3.1415926535;           // cut, not rounded: the method's own value
constexpr float absoluteZero = -273.15F;      // °C

/// In K. The 32-bit real nearest to absolute zero lies a little above it; what the user typed is zero all the same.
double kelvin(float ts)
{
    return ts == absoluteZero ? 0.0 : ts + normalTemperature;
}

double squared(float d)
{
    return checkedPower(d, 2.0);
}

/// 4 Vs (ts + 273.15) 101325, the numerator that w0 and d share.
double actualFlow(float ts, float Vs)
{
    const double n = checkedProduct(checkedProduct(Vs, 4.0), kelvin(ts));
    return checkedProduct(n, normalPressure);
}

}  // namespace

float StackGas::CalcVs(float ts, float d, float w0, float p) const
{
    double a = checkedProduct(squared(d), pi);
    a = checkedQuotient(a, 4.0);
    a = checkedProduct(a, w0);
    const double b = checkedQuotient(normalTemperature, kelvin(ts));
    a = checkedProduct(a, b);
    const double c = checkedQuotient(p, normalPressure);
    return checkedSingle(checkedProduct(a, c));
}

float StackGas::CalcW0(float ts, float Vs, float d, float /*p*/) const
{
    const double n = actualFlow(ts, Vs);
    double m = checkedProduct(squared(d), pi);
    m = checkedProduct(m, normalTemperature);
    m = checkedProduct(m, m_currentAirPressure);
    return checkedSingle(checkedQuotient(n, m));
}

float StackGas::CalcD(float ts, float Vs, float w0, float /*p*/) const
{
    const double n = actualFlow(ts, Vs);
    double m = checkedProduct(w0, pi);
    m = checkedProduct(m, normalTemperature);
    m = checkedProduct(m, m_currentAirPressure);
    return checkedSingle(checkedRoot(checkedQuotient(n, m)));
}

}  // namespace korvex
