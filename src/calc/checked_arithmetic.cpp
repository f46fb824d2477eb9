#include "checked_arithmetic.h"

#include "arithmetic_fault.h"

#include <cmath>
#include <limits>

namespace korvex {

namespace {

double checked(double result)
{
    if (std::isnan(result))
        throw ArithmeticFault(FaultKind::InvalidOperation, "");
    if (std::isinf(result))
        throw ArithmeticFault(FaultKind::Overflow, "");
    return result;
}

}  // namespace

double checkedProduct(double a, double b)
{
    return checked(a * b);
}

double checkedQuotient(double a, double b)
{
    if (b == 0.0)
        throw ArithmeticFault(a == 0.0 ? FaultKind::InvalidOperation : FaultKind::DivisionByZero, "");
    return checked(a / b);
}

double checkedPower(double base, double exponent)
{
    return checked(std::pow(base, exponent));
}

double checkedRoot(double value)
{
    return checked(std::sqrt(value));
}

float checkedSingle(double value)
{
    // Half a step beyond the largest single still rounds to it.
    const auto rounded = static_cast<float>(value);
    if (!(std::abs(rounded) <= std::numeric_limits<float>::max()))
        throw ArithmeticFault(FaultKind::Overflow, "");
    return rounded;
}

}  // namespace korvex
