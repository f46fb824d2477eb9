// Tests of the stack gas calculations: numbers to the last digit, the ignored pressure, and faults.
#include "stack_gas.h"

#include "calculation_fixture.h"
#include "number_text.h"

#include <gtest/gtest.h>

#include <limits>

namespace korvex {
namespace {

const StackGas atNormalPressure(normalPressure);

constexpr float largestSingle = std::numeric_limits<float>::max();

// ---- Numbers to the last digit ----

class StackGasNumbers : public UnderTheUsersLocale { };

TEST_F(StackGasNumbers, VsOfAStackOfOneMetreAt150Degrees)
{
    const float Vs = atNormalPressure.CalcVs(150, 1, 10, normalPressure);
    EXPECT_EQ(Vs, 5.069869F);
    EXPECT_EQ(singleText(Vs), "5.069869");
}

TEST_F(StackGasNumbers, W0AndDOfThatStackComeBack)
{
    EXPECT_EQ(singleText(atNormalPressure.CalcW0(150, 5.069869F, 1, normalPressure)), "10");
    EXPECT_EQ(singleText(atNormalPressure.CalcD(150, 5.069869F, 10, normalPressure)), "1");
}

TEST_F(StackGasNumbers, VsAtNormalConditionsIsTheVolumeFlow)
{
    EXPECT_EQ(singleText(atNormalPressure.CalcVs(0, 2, 5, normalPressure)), "15.70796");
}

TEST_F(StackGasNumbers, VsAt20DegreesAndALowerPressure)
{
    EXPECT_EQ(singleText(atNormalPressure.CalcVs(20, 2, 5, 98000)), "14.156");
}

TEST_F(StackGasNumbers, W0AndDAt20Degrees)
{
    EXPECT_EQ(singleText(atNormalPressure.CalcW0(20, 10, 2, normalPressure)), "3.416165");
    EXPECT_EQ(singleText(atNormalPressure.CalcD(20, 10, 5, normalPressure)), "1.653158");
}

// Each of these ends in another digit when pi is taken in full.
TEST_F(StackGasNumbers, PiIsCutAfterTenDecimals)
{
    EXPECT_EQ(singleText(atNormalPressure.CalcVs(150, 2.7F, 10.5F, normalPressure)), "38.80731");
    EXPECT_EQ(singleText(atNormalPressure.CalcVs(150, 5.4F, 10.5F, normalPressure)), "155.2292");
    EXPECT_EQ(singleText(atNormalPressure.CalcVs(160, 3.3F, 1, normalPressure)), "5.393623");
    EXPECT_EQ(singleText(atNormalPressure.CalcW0(40, 23, 2.1F, normalPressure)), "7.612909");
    EXPECT_EQ(singleText(atNormalPressure.CalcW0(140, 10.5F, 1.9F, normalPressure)), "5.601429");
    EXPECT_EQ(singleText(atNormalPressure.CalcD(75, 4.5F, 0.2F, normalPressure)), "6.042671");
    EXPECT_EQ(singleText(atNormalPressure.CalcD(165, 28.5F, 2.2F, normalPressure)), "5.143716");
}

// ---- Pressures ----

TEST(StackGas, VsUsesThePressureItIsGivenAndNotTheCurrentOne)
{
    const float given = atNormalPressure.CalcVs(20, 2, 5, 98000);
    EXPECT_EQ(StackGas(98000).CalcVs(20, 2, 5, 98000), given);
    EXPECT_EQ(StackGas(0).CalcVs(20, 2, 5, 98000), given);
    EXPECT_NE(StackGas(98000).CalcVs(20, 2, 5, normalPressure), given);
}

TEST(StackGas, W0AndDIgnoreThePressureTheyAreGiven)
{
    const float w0 = atNormalPressure.CalcW0(20, 10, 2, normalPressure);
    const float d = atNormalPressure.CalcD(20, 10, 5, normalPressure);
    for (const float given : {98000.0F, 1.0F, 0.0F, -5.0F, largestSingle, std::numeric_limits<float>::infinity(),
             std::numeric_limits<float>::quiet_NaN()}) {
        EXPECT_EQ(atNormalPressure.CalcW0(20, 10, 2, given), w0) << given;
        EXPECT_EQ(atNormalPressure.CalcD(20, 10, 5, given), d) << given;
    }
}

TEST(StackGas, W0AndDUseTheCurrentPressure)
{
    EXPECT_EQ(StackGas(98000).CalcW0(20, 10, 2, normalPressure), 3.5320704F);
    EXPECT_EQ(StackGas(98000).CalcD(20, 10, 5, normalPressure), 1.68096888F);
}

// ---- Nothing is checked beforehand ----

TEST(StackGas, VsTakesZerosAsTheyAre)
{
    EXPECT_EQ(atNormalPressure.CalcVs(150, 0, 10, normalPressure), 0.0F);
    EXPECT_EQ(atNormalPressure.CalcVs(150, 1, 0, normalPressure), 0.0F);
    EXPECT_EQ(atNormalPressure.CalcVs(150, 1, 10, 0), 0.0F);
}

TEST(StackGas, NegativeValuesAreUsedAsGiven)
{
    EXPECT_EQ(atNormalPressure.CalcVs(150, -1, 10, normalPressure), 5.069869F);
    EXPECT_EQ(atNormalPressure.CalcVs(150, 1, -10, normalPressure), -5.069869F);
    EXPECT_EQ(singleText(atNormalPressure.CalcW0(150, -5.069869F, 1, normalPressure)), "-10");
    EXPECT_EQ(singleText(atNormalPressure.CalcD(150, -5.069869F, -10, normalPressure)), "1");
}

TEST(StackGas, NoFlueGasHasNoVelocityAndNeedsNoDiameter)
{
    EXPECT_EQ(atNormalPressure.CalcW0(150, 0, 1, normalPressure), 0.0F);
    EXPECT_EQ(atNormalPressure.CalcD(150, 0, 10, normalPressure), 0.0F);
}

// ---- Faults ----

TEST(StackGasFaults, VsAtAbsoluteZeroAsTypedIsADivisionByZero)
{
    EXPECT_EQ(faultOf([] { return atNormalPressure.CalcVs(typedAbsoluteZero, 1, 10, normalPressure); }),
        FaultKind::DivisionByZero);
    EXPECT_EQ(faultOf([] { return atNormalPressure.CalcVs(readSingle("-273.15"), 1, 10, normalPressure); }),
        FaultKind::DivisionByZero);
    // Also with nothing else to divide: the temperature alone decides.
    EXPECT_EQ(faultOf([] { return atNormalPressure.CalcVs(typedAbsoluteZero, 0, 0, 0); }), FaultKind::DivisionByZero);
}

TEST(StackGasFaults, VsBesideAbsoluteZeroIsComputed)
{
    EXPECT_GT(atNormalPressure.CalcVs(-273.1F, 1, 10, normalPressure), 0.0F);
    EXPECT_LT(atNormalPressure.CalcVs(-273.2F, 1, 10, normalPressure), 0.0F);
}

TEST(StackGasFaults, W0AndDAtAbsoluteZeroAreZeroAndNoFault)
{
    EXPECT_EQ(atNormalPressure.CalcW0(typedAbsoluteZero, 10, 2, normalPressure), 0.0F);
    EXPECT_EQ(atNormalPressure.CalcD(typedAbsoluteZero, 10, 5, normalPressure), 0.0F);
}

TEST(StackGasFaults, DOfANegativeRadicandIsAnInvalidOperation)
{
    EXPECT_EQ(faultOf([] { return atNormalPressure.CalcD(150, -5, 10, normalPressure); }), FaultKind::InvalidOperation);
    EXPECT_EQ(faultOf([] { return atNormalPressure.CalcD(150, 5, -10, normalPressure); }), FaultKind::InvalidOperation);
    EXPECT_EQ(faultOf([] { return atNormalPressure.CalcD(-300, 5, 10, normalPressure); }), FaultKind::InvalidOperation);
    EXPECT_EQ(faultOf([] { return StackGas(-5).CalcD(150, 5, 10, normalPressure); }), FaultKind::InvalidOperation);
}

TEST(StackGasFaults, ZeroDivisorsOfW0AndDAreDivisionsByZero)
{
    EXPECT_EQ(faultOf([] { return atNormalPressure.CalcW0(150, 5, 0, normalPressure); }), FaultKind::DivisionByZero);
    EXPECT_EQ(faultOf([] { return atNormalPressure.CalcD(150, 5, 0, normalPressure); }), FaultKind::DivisionByZero);
    EXPECT_EQ(faultOf([] { return StackGas(0).CalcW0(150, 5, 1, normalPressure); }), FaultKind::DivisionByZero);
    EXPECT_EQ(faultOf([] { return StackGas(0).CalcD(150, 5, 10, normalPressure); }), FaultKind::DivisionByZero);
}

TEST(StackGasFaults, ZeroByZeroIsAnInvalidOperation)
{
    EXPECT_EQ(faultOf([] { return atNormalPressure.CalcW0(150, 0, 0, normalPressure); }), FaultKind::InvalidOperation);
    EXPECT_EQ(faultOf([] { return atNormalPressure.CalcD(150, 0, 0, normalPressure); }), FaultKind::InvalidOperation);
}

TEST(StackGasFaults, ResultBeyond32BitsIsAnOverflow)
{
    EXPECT_EQ(
        faultOf([] { return atNormalPressure.CalcVs(0, largestSingle, 1, normalPressure); }), FaultKind::Overflow);
    EXPECT_EQ(faultOf([] { return atNormalPressure.CalcVs(0, 1e15F, 1e15F, 1e15F); }), FaultKind::Overflow);
    EXPECT_EQ(
        faultOf([] { return atNormalPressure.CalcW0(0, largestSingle, 0.1F, normalPressure); }), FaultKind::Overflow);
    EXPECT_EQ(faultOf([] { return atNormalPressure.CalcD(largestSingle, largestSingle, 1e-30F, normalPressure); }),
        FaultKind::Overflow);
}

TEST(StackGasFaults, WhatIsLargeOnlyBetweenIsComputedIn64Bits)
{
    // The square and the numerator are far beyond 32 bits, the results are not.
    EXPECT_EQ(singleText(atNormalPressure.CalcVs(0, 1e30F, 1e-30F, normalPressure)), "7.853982E+29");
    EXPECT_EQ(singleText(atNormalPressure.CalcW0(0, 3E+38F, 1e15F, normalPressure)), "3.819719E+08");
}

}  // namespace
}  // namespace korvex
