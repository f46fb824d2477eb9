// Laws of the stack gas calculations over many stacks: the order of operations, and that each undoes the other.
#include "stack_gas.h"

#include "calculation_fixture.h"
#include "number_text.h"

#include <gtest/gtest.h>

#include <cmath>
#include <cstdint>
#include <random>

namespace korvex {
namespace {

constexpr int stackCount = 20'000;

/// A stack as there are such, with the numbers as a user would type them.
struct Stack {
    float ts;
    float d;
    float w0;
    float p;
};

class Stacks {
public:
    [[nodiscard]] Stack next()
    {
        return {decimal(-40, 1200, 1), decimal(0.05, 15, 2), decimal(0.1, 60, 2), decimal(85000, 108000, 0)};
    }

private:
    /// A number with so many decimals.
    [[nodiscard]] float decimal(double from, double to, int decimals)
    {
        const double steps = std::pow(10.0, decimals);
        // The library's own distributions may differ between machines.
        const double fraction = static_cast<double>(m_engine() >> 11U) / 9007199254740992.0;
        return static_cast<float>(std::round((from + fraction * (to - from)) * steps) / steps);
    }

    std::mt19937_64 m_engine{20260101};
};

/// One in the seventh significant digit.
double seventhDigit(double value)
{
    return std::pow(10.0, std::floor(std::log10(std::abs(value))) - 6.0);
}

// ---- The formulas step by step, written down a second time ----

float plainVs(const Stack& stack)
{
    double a = std::pow(static_cast<double>(stack.d), 2.0);
    a = a * 3.1415926535;
    a = a / 4.0;
    a = a * static_cast<double>(stack.w0);
    const double b = 273.15 / (static_cast<double>(stack.ts) + 273.15);
    a = a * b;
    const double c = static_cast<double>(stack.p) / 101325.0;
    a = a * c;
    return static_cast<float>(a);
}

double plainNumerator(float ts, float Vs)
{
    double n = static_cast<double>(Vs) * 4.0;
    n = n * (static_cast<double>(ts) + 273.15);
    return n * 101325.0;
}

float plainW0(const Stack& stack, float Vs)
{
    double m = std::pow(static_cast<double>(stack.d), 2.0);
    m = m * 3.1415926535;
    m = m * 273.15;
    m = m * static_cast<double>(stack.p);
    return static_cast<float>(plainNumerator(stack.ts, Vs) / m);
}

float plainD(const Stack& stack, float Vs)
{
    double m = static_cast<double>(stack.w0) * 3.1415926535;
    m = m * 273.15;
    m = m * static_cast<double>(stack.p);
    return static_cast<float>(std::sqrt(plainNumerator(stack.ts, Vs) / m));
}

TEST(StackGasLaws, OperationsAreDoneInTheirOrder)
{
    Stacks stacks;
    for (int i = 0; i < stackCount; ++i) {
        const Stack stack = stacks.next();
        const StackGas stackGas(stack.p);
        const float Vs = plainVs(stack);
        ASSERT_EQ(stackGas.CalcVs(stack.ts, stack.d, stack.w0, stack.p), Vs) << i;
        ASSERT_EQ(stackGas.CalcW0(stack.ts, Vs, stack.d, stack.p), plainW0(stack, Vs)) << i;
        ASSERT_EQ(stackGas.CalcD(stack.ts, Vs, stack.w0, stack.p), plainD(stack, Vs)) << i;
    }
}

// Stacks so rare that the same formulas, grouped in another way, end in another digit.
TEST(StackGasLaws, AnotherOrderOfTheOperationsWouldShow)
{
    EXPECT_EQ(singleText(StackGas(101780).CalcVs(184, 9.11F, 17.59F, 101780)), "688.1463");
    EXPECT_EQ(singleText(StackGas(96554).CalcW0(194, 21.14F, 7.91F, 96554)), "0.7720823");
}

TEST(StackGasLaws, W0AndDUndoVsWithinOneOfTheSeventhDigit)
{
    Stacks stacks;
    for (int i = 0; i < stackCount; ++i) {
        const Stack stack = stacks.next();
        const StackGas stackGas(stack.p);
        const float Vs = stackGas.CalcVs(stack.ts, stack.d, stack.w0, stack.p);
        // Hardly more: a 32-bit real is not exactly where its decimal text is.
        constexpr double allowance = 1.0001;
        ASSERT_NEAR(stackGas.CalcW0(stack.ts, Vs, stack.d, stack.p), stack.w0, seventhDigit(stack.w0) * allowance) << i;
        ASSERT_NEAR(stackGas.CalcD(stack.ts, Vs, stack.w0, stack.p), stack.d, seventhDigit(stack.d) * allowance) << i;
    }
}

}  // namespace
}  // namespace korvex
