// Tests of the number text, rule by rule: what is read as a number, and how numbers are written.
#include "number_text.h"

#include "arithmetic_fault.h"

#include <gtest/gtest.h>

#include <cfloat>
#include <cmath>
#include <cstdint>
#include <limits>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace korvex {
namespace {

using namespace std::string_literals;

constexpr std::int32_t smallestInteger = std::numeric_limits<std::int32_t>::min();
constexpr std::int32_t largestInteger = std::numeric_limits<std::int32_t>::max();
constexpr std::size_t tenMegabytes = 10'000'000;

/// The kind of fault that a call ends with; none when it returns.
template <class Call>
std::optional<FaultKind> faultOf(Call call)
{
    try {
        static_cast<void>(call());
    } catch (const ArithmeticFault& fault) {
        return fault.kind();
    }
    return std::nullopt;
}

std::optional<FaultKind> realFault(std::string_view text)
{
    return faultOf([text] { return readReal(text); });
}

std::optional<FaultKind> singleFault(std::string_view text)
{
    return faultOf([text] { return readSingle(text); });
}

std::optional<FaultKind> integerFault(std::string_view text)
{
    return faultOf([text] { return readInteger(text); });
}

std::optional<FaultKind> roundingFault(double value)
{
    return faultOf([value] { return roundToInteger(value); });
}

// ---- The reader: what counts as a number ----

TEST(NumberText, EmptyTextReadsAsZero)
{
    EXPECT_EQ(readReal(""), 0.0);
    EXPECT_EQ(readSingle(""), 0.0F);
    EXPECT_EQ(readInteger(""), 0);
    EXPECT_EQ(readReal(std::string_view()), 0.0);
}

TEST(NumberText, BlanksAloneReadAsZero)
{
    for (const std::string_view text : {" ", "    ", "\t", " \t \t"}) {
        EXPECT_EQ(readReal(text), 0.0) << '"' << text << '"';
        EXPECT_EQ(readInteger(text), 0) << '"' << text << '"';
    }
}

TEST(NumberText, TextWithoutALeadingNumberReadsAsZero)
{
    for (const std::string_view text : {"abc", "x1", ";12", ",5", "(5)", "#5", "E5", "e5", "/5", ":5", "Kotelna 12",
             "\xE2\x88\x92"
             "5"}) {
        EXPECT_EQ(readReal(text), 0.0) << text;
        EXPECT_EQ(readSingle(text), 0.0F) << text;
        EXPECT_EQ(readInteger(text), 0) << text;
    }
}

TEST(NumberText, SignsAndPointsWithoutADigitReadAsZero)
{
    for (const std::string_view text :
        {"+", "-", ".", "+.", "-.", "- .", "--5", "++5", "+-5", "-+5", "..5", ".-5", ".E5", "-.e1", "-E5", "-abc"}) {
        EXPECT_EQ(readReal(text), 0.0) << text;
        EXPECT_EQ(readSingle(text), 0.0F) << text;
        EXPECT_EQ(readInteger(text), 0) << text;
    }
}

TEST(NumberText, AnOptionalSignIsRead)
{
    EXPECT_EQ(readReal("5"), 5.0);
    EXPECT_EQ(readReal("+5"), 5.0);
    EXPECT_EQ(readReal("-5"), -5.0);
    EXPECT_EQ(readSingle("+2.5"), 2.5F);
    EXPECT_EQ(readSingle("-2.5"), -2.5F);
    EXPECT_EQ(readInteger("+42"), 42);
    EXPECT_EQ(readInteger("-42"), -42);
}

TEST(NumberText, DigitsMayStandOnOneSideOfThePointOnly)
{
    EXPECT_EQ(readReal(".5"), 0.5);
    EXPECT_EQ(readReal("5."), 5.0);
    EXPECT_EQ(readReal("-.5"), -0.5);
    EXPECT_EQ(readReal("+5."), 5.0);
    EXPECT_EQ(readReal("5.E1"), 50.0);
    EXPECT_EQ(readReal(".5E1"), 5.0);
    EXPECT_EQ(readSingle(".25"), 0.25F);
    EXPECT_EQ(readInteger("7."), 7);
    EXPECT_EQ(readInteger(".75"), 1);
}

TEST(NumberText, WhatFollowsTheNumberIsIgnored)
{
    EXPECT_EQ(readReal("12abc"), 12.0);
    EXPECT_EQ(readReal("12.5 m"), 12.5);
    EXPECT_EQ(readReal("1.2.3"), 1.2);
    EXPECT_EQ(readReal("5-3"), 5.0);
    EXPECT_EQ(readReal("5+3"), 5.0);
    EXPECT_EQ(readReal("2E3E4"), 2000.0);
    EXPECT_EQ(readReal("2E3.5"), 2000.0);
    EXPECT_EQ(readReal("1_000"), 1.0);
    EXPECT_EQ(readReal("1'000"), 1.0);
    EXPECT_EQ(readInteger("0 ;Kotelna"), 0);
    EXPECT_EQ(readInteger("3 ;12 Kotelna"), 3);
    EXPECT_EQ(readInteger("3;12"), 3);
    EXPECT_EQ(readInteger("8\r\n"), 8);
}

TEST(NumberText, TheCommaIsNoDecimalPoint)
{
    EXPECT_EQ(readReal("1,5"), 1.0);
    EXPECT_EQ(readSingle("1,5"), 1.0F);
    EXPECT_EQ(readInteger("1,9"), 1);
}

TEST(NumberText, LeadingZerosDoNotMakeANumberOctal)
{
    EXPECT_EQ(readInteger("000000012"), 12);
    EXPECT_EQ(readInteger("0987654"), 987654);
    EXPECT_EQ(readInteger("-000000001"), -1);
    EXPECT_EQ(readReal("0008.50"), 8.5);
    EXPECT_EQ(readReal("1E0005"), 100000.0);
}

TEST(NumberText, BlanksAroundANumberAreSkipped)
{
    EXPECT_EQ(readReal("  12.5"), 12.5);
    EXPECT_EQ(readReal("12.5  "), 12.5);
    EXPECT_EQ(readReal("\t-7\t"), -7.0);
    EXPECT_EQ(readInteger(" \t 0350 "), 350);
}

TEST(NumberText, BlanksInsideANumberAreSkipped)
{
    EXPECT_EQ(readReal("1 2 . 5 E 0 1"), 125.0);
    EXPECT_EQ(readSingle("1 2 . 5 E 0 1"), 125.0F);
    EXPECT_EQ(readInteger("1 2 . 5 E 0 1"), 125);
    EXPECT_EQ(readReal("- 5"), -5.0);
    EXPECT_EQ(readReal("+ . 5"), 0.5);
    EXPECT_EQ(readInteger("1 234 567"), 1234567);
    EXPECT_EQ(readInteger("1\t2"), 12);
    EXPECT_EQ(readReal("2 e + 3"), 2000.0);
    EXPECT_EQ(readReal("2E - 3"), 0.002);
}

TEST(NumberText, OnlySpacesAndTabulatorsAreSkipped)
{
    for (const std::string_view gap : {"\n", "\r", "\v", "\f", "\xA0", "\xC2\xA0"}) {
        EXPECT_EQ(readInteger(std::string(gap).append("5")), 0);
        EXPECT_EQ(readInteger(std::string("1").append(gap).append("5")), 1);
    }
}

TEST(NumberText, BothLettersBeginAnExponent)
{
    EXPECT_EQ(readReal("1.2E3"), 1200.0);
    EXPECT_EQ(readReal("1.2e3"), 1200.0);
    EXPECT_EQ(readReal("1.2E+03"), 1200.0);
    EXPECT_EQ(readReal("1.2E-03"), 0.0012);
    EXPECT_EQ(readReal("1D3"), 1.0);
}

TEST(NumberText, AnExponentCountsOnlyWhenItHasADigit)
{
    for (const std::string_view text :
        {"7E", "7e", "7E+", "7E-", "7 E ", "7E x5", "7E+-5", "7E--5", "7E.5", "7Ex", "7EE5"}) {
        EXPECT_EQ(readReal(text), 7.0) << text;
        EXPECT_EQ(readSingle(text), 7.0F) << text;
        EXPECT_EQ(readInteger(text), 7) << text;
    }
}

TEST(NumberText, HexadecimalIsNotRead)
{
    EXPECT_EQ(readReal("0x10"), 0.0);
    EXPECT_EQ(readReal("0X1F"), 0.0);
    EXPECT_EQ(readReal("&H10"), 0.0);
    EXPECT_EQ(readReal("-0x10"), 0.0);
    EXPECT_EQ(readReal("1p3"), 1.0);
    EXPECT_EQ(readInteger("0x7F"), 0);
    EXPECT_EQ(readInteger("1F"), 1);
}

TEST(NumberText, InfinityAndNotANumberAreNotRead)
{
    for (const std::string_view text :
        {"inf", "INF", "-inf", "+inf", "infinity", "Infinity", "-INFINITY", "nan", "NaN", "-nan", "nan(1)", "#INF"}) {
        EXPECT_EQ(readReal(text), 0.0) << text;
        EXPECT_EQ(readSingle(text), 0.0F) << text;
        EXPECT_EQ(readInteger(text), 0) << text;
    }
    EXPECT_EQ(readReal("1.#INF"), 1.0);
    EXPECT_EQ(readReal("1inf"), 1.0);
}

TEST(NumberText, ANulByteEndsTheNumber)
{
    EXPECT_EQ(readInteger("12\0"
                          "34"s),
        12);
    EXPECT_EQ(readInteger("\0"
                          "12"s),
        0);
    EXPECT_EQ(readReal("1.\0"
                       "5"s),
        1.0);
    EXPECT_EQ(readReal("1E\0"
                       "5"s),
        1.0);
    EXPECT_EQ(readReal("-\0"
                       "5"s),
        0.0);
    EXPECT_EQ(readSingle(std::string(1000, '\0')), 0.0F);
}

TEST(NumberText, ReadingStopsAtTheEndOfTheViewNotOfTheTextBehindIt)
{
    constexpr std::string_view text = "123456789";
    EXPECT_EQ(readInteger(text.substr(0, 3)), 123);
    EXPECT_EQ(readReal(std::string_view("1.5E2").substr(0, 4)), 1.5);
}

// ---- The reader: ranges and rounding ----

TEST(NumberText, ARealTooLargeIsAFaultNotInfinity)
{
    EXPECT_EQ(realFault("1E400"), FaultKind::Overflow);
    EXPECT_EQ(realFault("-1E400"), FaultKind::Overflow);
    EXPECT_EQ(realFault("1E309"), FaultKind::Overflow);
    EXPECT_EQ(realFault("1E99999999999999999999999"), FaultKind::Overflow);
    EXPECT_EQ(readReal("1.7976931348623157E308"), std::numeric_limits<double>::max());
}

TEST(NumberText, ARealTooSmallIsAFaultNotZero)
{
    EXPECT_EQ(realFault("1E-400"), FaultKind::Overflow);
    EXPECT_EQ(realFault("-1E-400"), FaultKind::Overflow);
    EXPECT_EQ(realFault("1E-99999999999999999999999"), FaultKind::Overflow);
    EXPECT_EQ(readReal("5E-324"), std::numeric_limits<double>::denorm_min());
}

TEST(NumberText, ASingleTooLargeIsAFaultNotInfinity)
{
    EXPECT_EQ(singleFault("1E39"), FaultKind::Overflow);
    EXPECT_EQ(singleFault("-1E39"), FaultKind::Overflow);
    EXPECT_EQ(singleFault("1E400"), FaultKind::Overflow);
    EXPECT_EQ(singleFault("3.4028236E38"), FaultKind::Overflow);
    EXPECT_EQ(readReal("1E39"), 1E39);
}

TEST(NumberText, ASingleTooSmallIsAFaultNotZero)
{
    EXPECT_EQ(singleFault("1E-60"), FaultKind::Overflow);
    EXPECT_EQ(singleFault("-1E-60"), FaultKind::Overflow);
    EXPECT_EQ(singleFault("1E-400"), FaultKind::Overflow);
    EXPECT_EQ(singleFault("7E-46"), FaultKind::Overflow);
    EXPECT_EQ(readReal("1E-60"), 1E-60);
}

TEST(NumberText, TheLimitsOfTheSingleAreRead)
{
    EXPECT_EQ(readSingle("3.4028235E38"), FLT_MAX);
    EXPECT_EQ(readSingle("-3.4028235E38"), -FLT_MAX);
    EXPECT_EQ(readSingle("3.40282356E38"), FLT_MAX);  // less than half a step beyond
    EXPECT_EQ(readSingle("1.17549435E-38"), FLT_MIN);
    EXPECT_EQ(readSingle("1E-45"), std::numeric_limits<float>::denorm_min());
    EXPECT_EQ(readSingle("8E-46"), std::numeric_limits<float>::denorm_min());  // more than half of it
    EXPECT_EQ(readSingle("1E-40"), 1E-40F);
}

TEST(NumberText, ZeroTimesAnyPowerOfTenIsZero)
{
    for (const std::string_view text : {"0E999", "0E-999", "0.000E+99999", "-0E400", "0E99999999999999999999",
             "0.0E-99999999999999999999", ".0E5000"}) {
        EXPECT_EQ(readReal(text), 0.0) << text;
        EXPECT_EQ(readSingle(text), 0.0F) << text;
        EXPECT_EQ(readInteger(text), 0) << text;
    }
}

TEST(NumberText, IntegersAreRoundedToNearestWithTiesToEven)
{
    EXPECT_EQ(readInteger("1234567.6"), 1234568);
    EXPECT_EQ(readInteger("987654.5"), 987654);
    EXPECT_EQ(readInteger("0.5"), 0);
    EXPECT_EQ(readInteger("1.5"), 2);
    EXPECT_EQ(readInteger("2.5"), 2);
    EXPECT_EQ(readInteger("3.5"), 4);
    EXPECT_EQ(readInteger("-0.5"), 0);
    EXPECT_EQ(readInteger("-1.5"), -2);
    EXPECT_EQ(readInteger("-2.5"), -2);
    EXPECT_EQ(readInteger("2.4999999"), 2);
    EXPECT_EQ(readInteger("2.5000001"), 3);
    EXPECT_EQ(readInteger("25E-1"), 2);
    EXPECT_EQ(readInteger("1.5E1"), 15);
}

TEST(NumberText, IntegersBeyondThe32BitRangeAreFaults)
{
    EXPECT_EQ(readInteger("2147483647"), largestInteger);
    EXPECT_EQ(readInteger("-2147483648"), smallestInteger);
    EXPECT_EQ(readInteger("2147483647.4"), largestInteger);
    EXPECT_EQ(readInteger("-2147483648.5"), smallestInteger);
    EXPECT_EQ(integerFault("2147483647.5"), FaultKind::Overflow);
    EXPECT_EQ(integerFault("2147483648"), FaultKind::Overflow);
    EXPECT_EQ(integerFault("-2147483648.6"), FaultKind::Overflow);
    EXPECT_EQ(integerFault("-2147483649"), FaultKind::Overflow);
    EXPECT_EQ(integerFault("4294967296"), FaultKind::Overflow);  // would be 0 if it wrapped round
    EXPECT_EQ(integerFault("1E10"), FaultKind::Overflow);
    EXPECT_EQ(integerFault("1E400"), FaultKind::Overflow);
}

TEST(NumberText, ADoubleIsRoundedToAnIntegerWithTiesToEven)
{
    EXPECT_EQ(roundToInteger(0.5), 0);
    EXPECT_EQ(roundToInteger(1.5), 2);
    EXPECT_EQ(roundToInteger(2.5), 2);
    EXPECT_EQ(roundToInteger(-1.5), -2);
    EXPECT_EQ(roundToInteger(-0.4), 0);
    EXPECT_EQ(roundToInteger(2147483647.0), largestInteger);
    EXPECT_EQ(roundToInteger(2147483647.499), largestInteger);
    EXPECT_EQ(roundToInteger(-2147483648.5), smallestInteger);
}

TEST(NumberText, ADoubleWithoutA32BitIntegerIsAFault)
{
    EXPECT_EQ(roundingFault(2147483647.5), FaultKind::Overflow);
    EXPECT_EQ(roundingFault(-2147483649.0), FaultKind::Overflow);
    EXPECT_EQ(roundingFault(1E300), FaultKind::Overflow);
    EXPECT_EQ(roundingFault(std::numeric_limits<double>::infinity()), FaultKind::Overflow);
    EXPECT_EQ(roundingFault(-std::numeric_limits<double>::infinity()), FaultKind::Overflow);
    EXPECT_TRUE(roundingFault(std::numeric_limits<double>::quiet_NaN()).has_value());
}

TEST(NumberText, ASingleIsRoundedOnceFromItsText)
{
    const float next = std::nextafter(1.0F, 2.0F);
    EXPECT_EQ(readSingle("1.000000059604644775390625"), 1.0F);  // a tie goes to the even neighbour
    // A double in between would swallow the last digit and then see a tie.
    EXPECT_EQ(readSingle("1.00000005960464477539062500001"), next);
    EXPECT_EQ(readSingle("1.00000005960464477539062499999"), 1.0F);
}

TEST(NumberText, TenMegabytesOfDigitsAreReadOrRefused)
{
    const std::string ones(tenMegabytes, '1');
    EXPECT_EQ(realFault(ones), FaultKind::Overflow);
    EXPECT_EQ(singleFault(ones), FaultKind::Overflow);
    EXPECT_EQ(integerFault(ones), FaultKind::Overflow);

    const std::string zeros(tenMegabytes, '0');
    EXPECT_EQ(readInteger(zeros + "5"), 5);
    EXPECT_EQ(readReal(std::string("0.").append(tenMegabytes, '3')), 0.33333333333333333);
    EXPECT_EQ(realFault(std::string("0.").append(zeros).append("1")), FaultKind::Overflow);
    EXPECT_EQ(readReal(std::string("1.").append(zeros).append("1")), 1.0);
    EXPECT_EQ(readReal(std::string(tenMegabytes, ' ') + "1" + std::string(tenMegabytes, ' ') + "2"), 12.0);
    EXPECT_EQ(readReal(std::string("2E").append(zeros).append("1")), 20.0);
}

TEST(NumberText, AFaultShowsTheTextThatCouldNotBeRead)
{
    try {
        static_cast<void>(readSingle(" 1E39 "));
        FAIL() << "no fault";
    } catch (const ArithmeticFault& fault) {
        EXPECT_EQ(fault.subject(), "„1E39“");
        EXPECT_NE(std::string(fault.what()).find("„1E39“"), std::string::npos) << fault.what();
    }
    try {
        static_cast<void>(readInteger("9999999999"));
        FAIL() << "no fault";
    } catch (const ArithmeticFault& fault) {
        EXPECT_EQ(fault.subject(), "„9999999999“");
    }
}

TEST(NumberText, AFaultCutsALongTextAndMasksWhatIsNotPrintable)
{
    try {
        static_cast<void>(readReal(std::string(tenMegabytes, '1')));
        FAIL() << "no fault";
    } catch (const ArithmeticFault& fault) {
        EXPECT_EQ(fault.subject(), std::string("„").append(40, '1').append("…“"));
        EXPECT_LT(std::string(fault.what()).size(), 120U);
    }
    try {
        static_cast<void>(readReal("1E400\x07\xE8"));
        FAIL() << "no fault";
    } catch (const ArithmeticFault& fault) {
        EXPECT_EQ(fault.subject(), "„1E400??“");
    }
}

TEST(NumberText, AFaultTellsItsKindInCzech)
{
    EXPECT_STREQ(ArithmeticFault(FaultKind::Overflow, "").what(), "Číslo je mimo rozsah.");
    EXPECT_STREQ(ArithmeticFault(FaultKind::DivisionByZero, "").what(), "Dělení nulou.");
    EXPECT_STREQ(ArithmeticFault(FaultKind::InvalidOperation, "d").what(), "Neplatná operace: d.");
    EXPECT_EQ(ArithmeticFault(FaultKind::DivisionByZero, "w0").kind(), FaultKind::DivisionByZero);
    EXPECT_EQ(ArithmeticFault(FaultKind::DivisionByZero, "w0").subject(), "w0");
}

// ---- The writer of reals ----

struct Written {
    float value;
    std::string_view text;
};

TEST(NumberText, ARealIsWrittenInItsShortestForm)
{
    const std::vector<Written> cases = {{1.0F, "1"}, {-1.0F, "-1"}, {2.5F, "2.5"}, {40.0F, "40"}, {3.2F, "3.2"},
        {0.1F, "0.1"}, {-0.1F, "-0.1"}, {0.8F, "0.8"}, {273.15F, "273.15"}, {101325.0F, "101325"}, {100.0F, "100"},
        {1000000.0F, "1000000"}, {12345.67F, "12345.67"}, {0.05F, "0.05"}};
    for (const Written& written : cases)
        EXPECT_EQ(singleText(written.value), written.text);
}

TEST(NumberText, ZeroIsWrittenWithoutASign)
{
    EXPECT_EQ(singleText(0.0F), "0");
    EXPECT_EQ(singleText(-0.0F), "0");
}

TEST(NumberText, MoreThanSevenDigitsAreRoundedToSeven)
{
    const std::vector<Written> cases
        = {{1.0F / 3.0F, "0.3333333"}, {2.0F / 3.0F, "0.6666667"}, {3.14159274F, "3.141593"}, {123456.789F, "123456.8"},
            {-123456.789F, "-123456.8"}, {16777216.0F, "1.677722E+07"}, {std::nextafter(1.0F, 0.0F), "0.9999999"},
            {std::nextafter(1.0F, 2.0F), "1"}, {999999.94F, "999999.9"}};
    for (const Written& written : cases)
        EXPECT_EQ(singleText(written.value), written.text);
}

TEST(NumberText, ASevenDigitTieGoesToTheEvenDigit)
{
    EXPECT_EQ(singleText(1234567.5F), "1234568");
    EXPECT_EQ(singleText(1234566.5F), "1234566");
    EXPECT_EQ(readSingle(singleText(1234567.5F)), 1234568.0F);
}

TEST(NumberText, ExponentFormStandsBelowOneTenThousandthAndFromTenMillionOn)
{
    const std::vector<Written> cases = {{0.0001F, "0.0001"}, {0.00012F, "0.00012"}, {0.0001234567F, "0.0001234567"},
        {0.00001F, "1E-05"}, {0.000012F, "1.2E-05"}, {0.00009F, "9E-05"}, {-0.000012F, "-1.2E-05"},
        {std::nextafter(0.0001F, 0.0F), "9.999999E-05"}, {9999999.0F, "9999999"}, {9999998.0F, "9999998"},
        {1.0E7F, "1E+07"}, {-1.0E7F, "-1E+07"}, {12000000.0F, "1.2E+07"}, {1.0E10F, "1E+10"}, {1.0E-10F, "1E-10"},
        {1.5E30F, "1.5E+30"}};
    for (const Written& written : cases)
        EXPECT_EQ(singleText(written.value), written.text);
}

TEST(NumberText, TwelveMillionthsSurviveInExponentForm)
{
    EXPECT_EQ(singleText(0.000012F), "1.2E-05");
    EXPECT_EQ(readSingle("1.2E-05"), 0.000012F);
    EXPECT_EQ(readSingle("0.000012"), 0.000012F);
}

TEST(NumberText, TheLimitsOfTheSingleAreWritten)
{
    EXPECT_EQ(singleText(FLT_MAX), "3.402823E+38");
    EXPECT_EQ(singleText(-FLT_MAX), "-3.402823E+38");
    EXPECT_EQ(singleText(FLT_MIN), "1.175494E-38");
    EXPECT_EQ(singleText(std::numeric_limits<float>::denorm_min()), "1E-45");
}

TEST(NumberText, InfinityAndNotANumberCannotBeWritten)
{
    const float infinity = std::numeric_limits<float>::infinity();
    for (const float value : {infinity, -infinity, std::numeric_limits<float>::quiet_NaN()}) {
        char out[widestNumber + 1] = "kept";
        EXPECT_EQ(faultOf([&] { return putSingle(out, value); }), FaultKind::InvalidOperation);
        EXPECT_STREQ(out, "kept");
        EXPECT_EQ(faultOf([&] { return singleText(value); }), FaultKind::InvalidOperation);
    }
}

TEST(NumberText, PuttingReturnsTheEndOfWhatWasWritten)
{
    char out[2 * widestNumber + 1] = {};
    char* end = putSingle(out, -2.5F);
    EXPECT_EQ(end, out + 4);
    end = putInteger(end, 7, Pattern::Altitude);
    EXPECT_EQ(end, out + 8);
    EXPECT_STREQ(out, "-2.50007");
}

// ---- Integers ----

TEST(NumberText, IntegersArePaddedToTheirPattern)
{
    EXPECT_EQ(integerText(12, Pattern::SourceNumber), "000000012");
    EXPECT_EQ(integerText(987654, Pattern::Coordinate), "0987654");
    EXPECT_EQ(integerText(350, Pattern::Altitude), "0350");
    EXPECT_EQ(integerText(1, Pattern::Plain), "1");
    EXPECT_EQ(integerText(50001, Pattern::SourceNumber), "000050001");
}

TEST(NumberText, ZeroFillsItsPattern)
{
    EXPECT_EQ(integerText(0, Pattern::SourceNumber), "000000000");
    EXPECT_EQ(integerText(0, Pattern::Coordinate), "0000000");
    EXPECT_EQ(integerText(0, Pattern::Altitude), "0000");
    EXPECT_EQ(integerText(0, Pattern::Plain), "0");
}

TEST(NumberText, AnIntegerLongerThanItsPatternIsWrittenWhole)
{
    EXPECT_EQ(integerText(1234567890, Pattern::SourceNumber), "1234567890");
    EXPECT_EQ(integerText(12345678, Pattern::Coordinate), "12345678");
    EXPECT_EQ(integerText(12345, Pattern::Altitude), "12345");
    EXPECT_EQ(integerText(12345, Pattern::Plain), "12345");
    EXPECT_EQ(integerText(999999999, Pattern::SourceNumber), "999999999");
    EXPECT_EQ(integerText(9999, Pattern::Altitude), "9999");
}

TEST(NumberText, ANegativeIntegerIsTheSignAndThePaddedDigits)
{
    EXPECT_EQ(integerText(-1, Pattern::SourceNumber), "-000000001");
    EXPECT_EQ(integerText(-1, Pattern::Coordinate), "-0000001");
    EXPECT_EQ(integerText(-1, Pattern::Altitude), "-0001");
    EXPECT_EQ(integerText(-1, Pattern::Plain), "-1");
    EXPECT_EQ(integerText(-12345, Pattern::Altitude), "-12345");
}

TEST(NumberText, TheLimitsOfTheIntegerAreWrittenWhole)
{
    for (const Pattern pattern : {Pattern::Plain, Pattern::Altitude, Pattern::Coordinate, Pattern::SourceNumber}) {
        EXPECT_EQ(integerText(largestInteger, pattern), "2147483647");
        EXPECT_EQ(integerText(smallestInteger, pattern), "-2147483648");
    }
}

TEST(NumberText, IntegersAreNotGrouped)
{
    EXPECT_EQ(integerText(1234567), "1234567");
}

}  // namespace
}  // namespace korvex
