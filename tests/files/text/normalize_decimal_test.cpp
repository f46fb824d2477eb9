// Tests of number texts in the form of the user's locale.
#include "normalize_decimal.h"

#include "number_text.h"

#include <gtest/gtest.h>

#include <limits>
#include <string_view>

namespace korvex {
namespace {

constexpr std::string_view comma = ",";
constexpr std::string_view point = ".";
constexpr std::string_view arabicSeparator = "\u066B";

float single(std::string_view text, std::string_view separator)
{
    return readSingle(NormalizeDecimal(text, separator));
}

TEST(NormalizeDecimal, CommaBecomesAPointWhereTheCommaIsTheSeparator)
{
    EXPECT_EQ(NormalizeDecimal("12,5", comma), "12.5");
    EXPECT_EQ(single("12,5", comma), 12.5F);
}

TEST(NormalizeDecimal, PointIsTakenAlsoWhereTheCommaIsTheSeparator)
{
    EXPECT_EQ(NormalizeDecimal("12.5", comma), "12.5");
    EXPECT_EQ(single("12.5", comma), 12.5F);
}

TEST(NormalizeDecimal, OnlyTheFirstSeparatorIsReplaced)
{
    EXPECT_EQ(NormalizeDecimal("1,2,3", comma), "1.2,3");
    EXPECT_EQ(single("1,2,3", comma), 1.2F);
}

TEST(NormalizeDecimal, PointBeforeTheCommaEndsTheNumberAtTheSecondPoint)
{
    EXPECT_EQ(NormalizeDecimal("1.2,3", comma), "1.2.3");
    EXPECT_EQ(single("1.2,3", comma), 1.2F);
}

TEST(NormalizeDecimal, CommaEndsTheNumberWhereThePointIsTheSeparator)
{
    EXPECT_EQ(NormalizeDecimal("12,5", point), "12,5");
    EXPECT_EQ(single("12,5", point), 12.0F);
    EXPECT_EQ(single("12.5", point), 12.5F);
}

TEST(NormalizeDecimal, TextWithoutSeparatorIsUnchanged)
{
    for (const std::string_view text : {"", "0", "-12", " 7 ", "abc", "1E5", "žluť"}) {
        EXPECT_EQ(NormalizeDecimal(text, comma), text);
        EXPECT_EQ(NormalizeDecimal(text, point), text);
    }
}

TEST(NormalizeDecimal, SeparatorMayStandAnywhere)
{
    EXPECT_EQ(NormalizeDecimal(",5", comma), ".5");
    EXPECT_EQ(NormalizeDecimal("5,", comma), "5.");
    EXPECT_EQ(NormalizeDecimal(",", comma), ".");
    EXPECT_EQ(NormalizeDecimal("abc,d", comma), "abc.d");
    EXPECT_EQ(single(",5", comma), 0.5F);
    EXPECT_EQ(single("-2,5E2", comma), -250.0F);
}

TEST(NormalizeDecimal, EmptyAndOtherTextsAreZero)
{
    for (const std::string_view text : {"", " ", ",", "abc", "x12,5", "-"})
        EXPECT_EQ(single(text, comma), 0.0F) << '"' << text << '"';
}

TEST(NormalizeDecimal, WhatFollowsTheNumberIsIgnored)
{
    EXPECT_EQ(single("12,5 m3/s", comma), 12.5F);
    EXPECT_EQ(single("98000 Pa", comma), 98000.0F);
}

TEST(NormalizeDecimal, SeparatorOfSeveralBytesIsReplacedAsAWhole)
{
    EXPECT_EQ(NormalizeDecimal("12\u066B5", arabicSeparator), "12.5");
    EXPECT_EQ(NormalizeDecimal("1\u066B2\u066B3", arabicSeparator), "1.2\u066B3");
    EXPECT_EQ(single("1\u066B2\u066B3", arabicSeparator), 1.2F);
    EXPECT_EQ(NormalizeDecimal("12,5", arabicSeparator), "12,5");
    // Shares its first byte alone.
    EXPECT_EQ(NormalizeDecimal("12\u066C5", arabicSeparator), "12\u066C5");
}

TEST(NormalizeDecimal, WithoutASeparatorNothingIsReplaced)
{
    EXPECT_EQ(NormalizeDecimal("12,5", ""), "12,5");
    EXPECT_EQ(NormalizeDecimal("", ""), "");
}

TEST(LocalSingleText, HasTheUsersSeparator)
{
    EXPECT_EQ(localSingleText(2.5F, comma), "2,5");
    EXPECT_EQ(localSingleText(2.5F, point), "2.5");
    EXPECT_EQ(localSingleText(2.5F, arabicSeparator), "2\u066B5");
    EXPECT_EQ(localSingleText(-0.25F, comma), "-0,25");
    EXPECT_EQ(localSingleText(1.25e-5F, comma), "1,25E-05");
}

TEST(LocalSingleText, HasNoSeparatorWithoutAFractionAndNoneOfThousands)
{
    EXPECT_EQ(localSingleText(101325.0F, comma), "101325");
    EXPECT_EQ(localSingleText(0.0F, comma), "0");
    EXPECT_EQ(localSingleText(-0.0F, comma), "0");
}

TEST(LocalSingleText, HasAtMostSevenSignificantDigits)
{
    EXPECT_EQ(localSingleText(5.06986904F, comma), "5,069869");
    EXPECT_EQ(localSingleText(688.146301F, comma), "688,1463");
}

TEST(LocalSingleText, ReadsBackUnderTheSameLocale)
{
    for (const float value : {2.5F, 0.1F, 1.2F, -273.15F, 101325.0F, 1.5e10F, 3e-20F, 0.0F}) {
        for (const std::string_view separator : {comma, point, arabicSeparator})
            EXPECT_EQ(single(localSingleText(value, separator), separator), value);
    }
}

}  // namespace
}  // namespace korvex
