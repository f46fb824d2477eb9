// Tests of the midpoint of a segment: whole metres, halves to even, and what does not fit.
#include "midpoint.h"

#include "calculation_fixture.h"

#include <gtest/gtest.h>

#include <cstdint>
#include <limits>

namespace korvex {
namespace {

constexpr float twoToThe31 = 2147483648.0F;
constexpr float largestSingle = std::numeric_limits<float>::max();

std::int32_t middleX(float x1, float x2)
{
    std::int32_t X = 0;
    std::int32_t Y = 0;
    CalcXY(X, Y, x1, 0, x2, 0);
    return X;
}

std::int32_t middleY(float y1, float y2)
{
    std::int32_t X = 0;
    std::int32_t Y = 0;
    CalcXY(X, Y, 0, y1, 0, y2);
    return Y;
}

TEST(Midpoint, IsHalfwayOnBothAxes)
{
    std::int32_t X = -1;
    std::int32_t Y = -1;
    CalcXY(X, Y, 100, 1000, 300, 5000);
    EXPECT_EQ(X, 200);
    EXPECT_EQ(Y, 3000);
}

TEST(Midpoint, HalvesAreRoundedToTheEvenNumber)
{
    for (const auto& middle : {middleX, middleY}) {
        EXPECT_EQ(middle(1, 2), 2);
        EXPECT_EQ(middle(2, 3), 2);
        EXPECT_EQ(middle(3, 4), 4);
        EXPECT_EQ(middle(-3, 0), -2);
        EXPECT_EQ(middle(-2, -3), -2);
        EXPECT_EQ(middle(0, 1), 0);
        EXPECT_EQ(middle(0, -1), 0);
    }
}

TEST(Midpoint, OtherFractionsAreRoundedToTheNearestNumber)
{
    EXPECT_EQ(middleX(100.6F, 200), 150);
    EXPECT_EQ(middleX(101.4F, 200), 151);
    EXPECT_EQ(middleX(-100.6F, -200), -150);
}

TEST(Midpoint, OfTwoEqualPointsIsThePointRounded)
{
    EXPECT_EQ(middleX(12.4F, 12.4F), 12);
    EXPECT_EQ(middleX(12.6F, 12.6F), 13);
    EXPECT_EQ(middleX(12.5F, 12.5F), 12);
    EXPECT_EQ(middleY(13.5F, 13.5F), 14);
    EXPECT_EQ(middleY(-0.5F, -0.5F), 0);
}

TEST(Midpoint, SumsAreFormedIn64Bits)
{
    // In 32 bits the sum would lose the 3 and end at 33554432.
    EXPECT_EQ(middleX(67108864, 3), 33554434);
    EXPECT_EQ(middleY(67108864, 3), 33554434);
    EXPECT_EQ(middleX(largestSingle, -largestSingle), 0);
}

TEST(Midpoint, ReachesBothEndsOf32Bits)
{
    EXPECT_EQ(middleX(-twoToThe31, -twoToThe31), std::numeric_limits<std::int32_t>::min());
    // Halves at the ends: one rounds into the range, the other out of it.
    EXPECT_EQ(middleX(-twoToThe31 * 2, -1), std::numeric_limits<std::int32_t>::min());
    EXPECT_EQ(middleX(twoToThe31 * 2, -2), std::numeric_limits<std::int32_t>::max());
    EXPECT_EQ(faultOf([] { return middleX(twoToThe31 * 2, -1); }), FaultKind::Overflow);
    EXPECT_EQ(faultOf([] { return middleX(-twoToThe31 * 2, -2); }), FaultKind::Overflow);
}

TEST(Midpoint, Beyond32BitsIsAnOverflow)
{
    for (const auto& middle : {middleX, middleY}) {
        EXPECT_EQ(faultOf([=] { return middle(twoToThe31, twoToThe31); }), FaultKind::Overflow);
        EXPECT_EQ(faultOf([=] { return middle(-3e9F, -3e9F); }), FaultKind::Overflow);
        EXPECT_EQ(faultOf([=] { return middle(largestSingle, largestSingle); }), FaultKind::Overflow);
        EXPECT_EQ(faultOf([=] { return middle(-largestSingle, -largestSingle); }), FaultKind::Overflow);
    }
}

TEST(Midpoint, OverflowOfEitherAxisLeavesBothResults)
{
    std::int32_t X = 11;
    std::int32_t Y = 22;
    EXPECT_THROW(CalcXY(X, Y, 3e9F, 2, 3e9F, 4), ArithmeticFault);
    EXPECT_EQ(X, 11);
    EXPECT_EQ(Y, 22);
    EXPECT_THROW(CalcXY(X, Y, 2, 3e9F, 4, 3e9F), ArithmeticFault);
    EXPECT_EQ(X, 11);
    EXPECT_EQ(Y, 22);
}

}  // namespace
}  // namespace korvex
