// Tests of the arithmetic behind the calculations: exact results, and a fault where there is none.
#include "checked_arithmetic.h"

#include "calculation_fixture.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>

namespace korvex {
namespace {

constexpr double largestReal = std::numeric_limits<double>::max();
constexpr float largestSingle = std::numeric_limits<float>::max();

TEST(CheckedArithmetic, ResultsAreThoseOf64BitReals)
{
    EXPECT_EQ(checkedProduct(0.1, 3.0), 0.1 * 3.0);
    EXPECT_EQ(checkedQuotient(1.0, 3.0), 1.0 / 3.0);
    EXPECT_EQ(checkedPower(2.7, 2.0), std::pow(2.7, 2.0));
    EXPECT_EQ(checkedRoot(2.0), std::sqrt(2.0));
    EXPECT_EQ(checkedSingle(0.1), 0.1F);
}

TEST(CheckedArithmetic, ProductBeyondRangeIsAnOverflow)
{
    EXPECT_EQ(faultOf([] { return checkedProduct(largestReal, 2.0); }), FaultKind::Overflow);
    EXPECT_EQ(faultOf([] { return checkedProduct(largestReal, -2.0); }), FaultKind::Overflow);
    EXPECT_EQ(checkedProduct(largestReal, 1.0), largestReal);
}

TEST(CheckedArithmetic, QuotientByZeroIsADivisionByZeroWithAnySigns)
{
    for (const double dividend : {1.0, -1.0, 1e-300, largestReal}) {
        for (const double divisor : {0.0, -0.0})
            EXPECT_EQ(faultOf([=] { return checkedQuotient(dividend, divisor); }), FaultKind::DivisionByZero)
                << dividend;
    }
}

TEST(CheckedArithmetic, ZeroByZeroIsAnInvalidOperation)
{
    EXPECT_EQ(faultOf([] { return checkedQuotient(0.0, 0.0); }), FaultKind::InvalidOperation);
    EXPECT_EQ(faultOf([] { return checkedQuotient(-0.0, 0.0); }), FaultKind::InvalidOperation);
}

TEST(CheckedArithmetic, QuotientBeyondRangeIsAnOverflow)
{
    EXPECT_EQ(faultOf([] { return checkedQuotient(largestReal, 0.5); }), FaultKind::Overflow);
}

TEST(CheckedArithmetic, PowerBeyondRangeIsAnOverflow)
{
    EXPECT_EQ(faultOf([] { return checkedPower(1e200, 2.0); }), FaultKind::Overflow);
    EXPECT_EQ(faultOf([] { return checkedPower(-1e200, 2.0); }), FaultKind::Overflow);
    EXPECT_EQ(checkedPower(-3.0, 2.0), 9.0);
}

TEST(CheckedArithmetic, RootOfANegativeNumberIsAnInvalidOperation)
{
    EXPECT_EQ(faultOf([] { return checkedRoot(-1.0); }), FaultKind::InvalidOperation);
    EXPECT_EQ(faultOf([] { return checkedRoot(-1e-300); }), FaultKind::InvalidOperation);
    EXPECT_EQ(checkedRoot(0.0), 0.0);
}

TEST(CheckedArithmetic, RoundingTo32BitsOverflowsFromHalfAStepBeyondTheLargestSingleOn)
{
    const double largest = largestSingle;
    const double halfAStep = std::ldexp(1.0, 103);
    EXPECT_EQ(checkedSingle(largest), largestSingle);
    EXPECT_EQ(checkedSingle(std::nextafter(largest + halfAStep, 0.0)), largestSingle);
    EXPECT_EQ(checkedSingle(-std::nextafter(largest + halfAStep, 0.0)), -largestSingle);
    EXPECT_EQ(faultOf([=] { return checkedSingle(largest + halfAStep); }), FaultKind::Overflow);
    EXPECT_EQ(faultOf([=] { return checkedSingle(-largest - halfAStep); }), FaultKind::Overflow);
}

TEST(CheckedArithmetic, ResultTooSmallFor32BitsIsZeroAndNoFault)
{
    EXPECT_EQ(checkedSingle(1e-60), 0.0F);
    EXPECT_EQ(checkedProduct(1e-200, 1e-200), 0.0);
}

}  // namespace
}  // namespace korvex
