// Laws of the number text over very many numbers, held against the C library; and that no locale changes it.
#include "number_text.h"

#include "arithmetic_fault.h"

#include <gtest/gtest.h>

#include <bit>
#include <cfloat>
#include <clocale>
#include <cmath>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <limits>
#include <random>
#include <string>
#include <string_view>
#include <vector>

namespace korvex {
namespace {

constexpr std::int32_t smallestInteger = std::numeric_limits<std::int32_t>::min();
constexpr std::int32_t largestInteger = std::numeric_limits<std::int32_t>::max();

float singleOfBits(std::uint32_t bits)
{
    return std::bit_cast<float>(bits);
}

std::uint32_t randomBits(std::mt19937& random)
{
    return static_cast<std::uint32_t>(random());
}

std::uint32_t bitsOf(float value)
{
    return std::bit_cast<std::uint32_t>(value);
}

/// Finite reals of every size: the borders, all powers of two and ten with their neighbours, and random bits.
std::vector<float> manySingles()
{
    std::vector<float> values = {0.0F, -0.0F, FLT_MAX, -FLT_MAX, FLT_MIN, -FLT_MIN};
    const auto addWithNeighbours = [&values](float value) {
        for (const float sign : {1.0F, -1.0F}) {
            values.push_back(sign * value);
            values.push_back(sign * std::nextafter(value, 0.0F));
            const float above = std::nextafter(value, std::numeric_limits<float>::infinity());
            if (std::isfinite(above))
                values.push_back(sign * above);
        }
    };
    for (int power = -149; power <= 127; ++power)
        addWithNeighbours(std::ldexp(1.0F, power));
    for (int power = -45; power <= 38; ++power)
        addWithNeighbours(std::strtof(("1E" + integerText(power)).c_str(), nullptr));
    for (std::uint32_t denormal = 1; denormal < 2000; ++denormal)
        values.push_back(singleOfBits(denormal));

    std::mt19937 random(20240229);
    while (values.size() < 300'000) {
        const float value = singleOfBits(randomBits(random));
        if (std::isfinite(value))
            values.push_back(value);
    }
    // What inventories hold, far more often than random bits would: a power of ten as good as any other, and texts
    // of few digits.
    std::uniform_real_distribution<double> exponent(-6.0, 9.0);
    for (int i = 0; i < 150'000; ++i)
        values.push_back(static_cast<float>(std::pow(10.0, exponent(random))));
    for (int i = 0; i < 150'000; ++i) {
        const auto digits = static_cast<double>(random() % 10'000'000);
        values.push_back(static_cast<float>(digits / std::pow(10.0, static_cast<double>(random() % 12))));
    }
    return values;
}

/// The slow way to the same text, with the C library: the fewest digits that read back, else seven of them. Next to
/// the digits that lie closest stand others that can read back when those do not: a power of two has its lower
/// neighbour closer than its upper one.
std::string obviousText(float value)
{
    if (value == 0.0F)
        return "0";
    const double exact = static_cast<double>(value);
    char text[64];
    for (int digits = 1; digits <= 7; ++digits) {
        std::snprintf(text, sizeof text, "%.*E", digits - 1, exact);
        const double closest = std::strtod(text, nullptr);
        const double step = std::pow(10.0, std::atoi(std::strchr(text, 'E') + 1) - digits + 1);
        for (const double candidate : {closest, closest + step, closest - step}) {
            std::snprintf(text, sizeof text, "%.*E", digits - 1, candidate);
            if (std::strtof(text, nullptr) == value) {
                std::snprintf(text, sizeof text, "%.7G", candidate);
                return text;
            }
        }
    }
    std::snprintf(text, sizeof text, "%.7G", exact);
    return text;
}

int significantDigits(std::string_view text)
{
    int digits = 0;
    for (const char c : text.substr(0, text.find('E'))) {
        if (c >= '0' && c <= '9' && (digits > 0 || c != '0'))
            ++digits;
    }
    return digits;
}

TEST(NumberTextLaws, TheWriterAgreesWithTheSlowObviousOne)
{
    for (const float value : manySingles())
        ASSERT_EQ(singleText(value), obviousText(value)) << "bits " << bitsOf(value);
}

TEST(NumberTextLaws, AWrittenRealReadsBackTheSameWhenSevenDigitsCanHoldIt)
{
    int held = 0;
    for (const float value : manySingles()) {
        if (value == 0.0F)
            continue;
        char sevenDigits[64];
        std::snprintf(sevenDigits, sizeof sevenDigits, "%.6E", static_cast<double>(value));
        if (std::strtof(sevenDigits, nullptr) != value)
            continue;
        ++held;
        ASSERT_EQ(bitsOf(readSingle(singleText(value))), bitsOf(value)) << singleText(value);
    }
    EXPECT_GT(held, 10'000);
}

TEST(NumberTextLaws, WritingWhatWasReadIsAFixedPoint)
{
    for (const float value : manySingles()) {
        const std::string text = singleText(value);
        ASSERT_EQ(singleText(readSingle(text)), text) << "bits " << bitsOf(value);
    }
}

TEST(NumberTextLaws, AWrittenRealHasAtMostSevenDigitsNoTrailingZeroAndNoOtherSeparator)
{
    for (const float value : manySingles()) {
        const std::string text = singleText(value);
        ASSERT_EQ(text.find_first_not_of("0123456789.E+-"), std::string::npos) << text;
        ASSERT_LE(significantDigits(text), 7) << text;
        ASSERT_LE(text.size(), widestNumber) << text;
        if (text.find('.') != std::string::npos) {
            const std::string mantissa = text.substr(0, text.find('E'));
            ASSERT_NE(mantissa.back(), '0') << text;
            ASSERT_NE(mantissa.back(), '.') << text;
        }
    }
}

TEST(NumberTextLaws, TheReaderAgreesWithTheCLibrary)
{
    std::mt19937 random(1250);
    const auto upTo = [&random](unsigned most) { return static_cast<int>(random() % (most + 1)); };
    for (int i = 0; i < 200'000; ++i) {
        std::string text;
        const int sign = upTo(2);
        if (sign > 0)
            text += sign == 1 ? '+' : '-';
        const int whole = upTo(12);
        for (int digit = 0; digit < whole; ++digit)
            text += static_cast<char>('0' + upTo(9));
        const int decimals = whole == 0 ? 1 + upTo(20) : upTo(20);
        if (decimals > 0)
            text += '.';
        for (int digit = 0; digit < decimals; ++digit)
            text += static_cast<char>('0' + upTo(9));
        if (upTo(1) == 1) {
            text += upTo(1) == 1 ? "E-" : "e";
            text += integerText(upTo(20));
        }
        ASSERT_EQ(readReal(text), std::strtod(text.c_str(), nullptr)) << text;
        ASSERT_EQ(bitsOf(readSingle(text)), bitsOf(std::strtof(text.c_str(), nullptr))) << text;
    }
}

struct Typed {
    std::string text;
    int exponent = 0;  // of the first significant digit
};

/// A decimal text of some significant digits, as a user might type it: with or without exponent, padded with zeros.
Typed randomDecimal(std::mt19937& random, int digits, int lowestExponent, int highestExponent)
{
    std::string digitText(1, static_cast<char>('1' + random() % 9));
    while (static_cast<int>(digitText.size()) < digits)
        digitText += static_cast<char>('0' + random() % 10);
    Typed typed;
    typed.exponent
        = lowestExponent + static_cast<int>(random() % static_cast<unsigned>(highestExponent - lowestExponent + 1));
    if (random() % 2 == 0)
        typed.text += '-';
    if (typed.exponent >= 0 && typed.exponent < digits) {
        const auto whole = static_cast<std::size_t>(typed.exponent + 1);
        typed.text += std::string(random() % 3, '0') + digitText.substr(0, whole) + "." + digitText.substr(whole);
    } else if (typed.exponent < 0 && random() % 2 == 0) {
        typed.text += (random() % 2 == 0 ? "0." : ".") + std::string(static_cast<std::size_t>(-typed.exponent - 1), '0')
            + digitText + std::string(random() % 3, '0');
    } else {
        typed.text += digitText.substr(0, 1) + "." + digitText.substr(1) + "E" + integerText(typed.exponent);
    }
    return typed;
}

std::string canonicalText(const std::string& typed)
{
    char text[64];
    std::snprintf(text, sizeof text, "%.7G", std::strtod(typed.c_str(), nullptr));
    return text;
}

TEST(NumberTextLaws, EveryTextOfAtMostSixDigitsSurvives)
{
    std::mt19937 random(6);
    for (int i = 0; i < 200'000; ++i) {
        const Typed typed = randomDecimal(random, 1 + static_cast<int>(random() % 6), -37, 37);
        ASSERT_EQ(singleText(readSingle(typed.text)), canonicalText(typed.text)) << typed.text;
    }
}

TEST(NumberTextLaws, EveryTextOfSevenDigitsSurvivesFromOneThousandthToTenMillion)
{
    std::mt19937 random(7);
    for (int i = 0; i < 200'000; ++i) {
        const Typed typed = randomDecimal(random, 7, -3, 6);
        ASSERT_EQ(singleText(readSingle(typed.text)), canonicalText(typed.text)) << typed.text;
    }
}

TEST(NumberTextLaws, EveryTextOfSevenDigitsSurvivesWhereSinglesLieNoFartherApartThanTheirTexts)
{
    std::mt19937 random(77);
    int checked = 0;
    for (int i = 0; i < 200'000; ++i) {
        const Typed typed = randomDecimal(random, 7, -37, 37);
        const float value = std::fabs(std::strtof(typed.text.c_str(), nullptr));
        const double apart = static_cast<double>(std::nextafter(value, FLT_MAX)) - static_cast<double>(value);
        if (apart > std::pow(10.0, typed.exponent - 6))
            continue;
        ++checked;
        ASSERT_EQ(singleText(readSingle(typed.text)), canonicalText(typed.text)) << typed.text;
    }
    EXPECT_GT(checked, 150'000);
}

TEST(NumberTextLaws, WhereSinglesLieFartherApartASevenDigitTextMovesOnceAndThenStays)
{
    // No writer can do better: both texts are the same 32-bit real.
    EXPECT_EQ(readSingle("8.589973E+09"), readSingle("8.589974E+09"));
    EXPECT_EQ(singleText(readSingle("8.589973E+09")), "8.589974E+09");
    EXPECT_EQ(singleText(readSingle("8.589974E+09")), "8.589974E+09");
    // A text that is exactly between shorter ones keeps its own, shorter form.
    EXPECT_EQ(singleText(readSingle("8.6E+09")), "8.6E+09");
}

TEST(NumberTextLaws, AWrittenIntegerReadsBackTheSame)
{
    std::mt19937 random(32);
    std::vector<std::int32_t> values
        = {0, 1, -1, largestInteger, smallestInteger, largestInteger - 1, smallestInteger + 1};
    for (int i = 0; i < 50'000; ++i)
        values.push_back(static_cast<std::int32_t>(randomBits(random)) >> (random() % 32));
    for (const std::int32_t value : values) {
        for (const Pattern pattern : {Pattern::Plain, Pattern::Altitude, Pattern::Coordinate, Pattern::SourceNumber}) {
            const std::string text = integerText(value, pattern);
            ASSERT_EQ(readInteger(text), value) << text;
            ASSERT_GE(text.size(), static_cast<std::size_t>(pattern) + (value < 0 ? 1U : 0U)) << text;
        }
    }
}

// ---- Locale ----

/// Sets the locale of the whole process for one scope.
class LocaleScope {
public:
    explicit LocaleScope(const char* name) : m_previous(std::setlocale(LC_ALL, nullptr))
    {
        m_set = std::setlocale(LC_ALL, name) != nullptr;
    }
    ~LocaleScope() { std::setlocale(LC_ALL, m_previous.c_str()); }
    LocaleScope(const LocaleScope&) = delete;
    LocaleScope& operator=(const LocaleScope&) = delete;

    [[nodiscard]] bool set() const { return m_set; }

private:
    std::string m_previous;
    bool m_set = false;
};

TEST(NumberText, TheLocaleChangesNeitherReadingNorWriting)
{
    const LocaleScope czech("cs_CZ.UTF-8");
    if (!czech.set())
        GTEST_SKIP() << "this machine has no Czech locale";
    char probe[16];
    std::snprintf(probe, sizeof probe, "%.1f", 1.5);
    ASSERT_STREQ(probe, "1,5") << "the locale was to change the decimal separator";

    EXPECT_EQ(readReal("1.5"), 1.5);
    EXPECT_EQ(readReal("1,5"), 1.0);
    EXPECT_EQ(readSingle("1 2 . 5 E 0 1"), 125.0F);
    EXPECT_EQ(readSingle("1.2E-05"), 0.000012F);
    EXPECT_EQ(readSingle("\xC2\xA0"
                         "5"),
        0.0F);
    EXPECT_EQ(readInteger("987654.5"), 987654);
    EXPECT_EQ(readInteger("1234567.6"), 1234568);
    EXPECT_THROW(static_cast<void>(readSingle("1E39")), ArithmeticFault);
    EXPECT_THROW(static_cast<void>(readSingle("1E-60")), ArithmeticFault);

    EXPECT_EQ(singleText(2.5F), "2.5");
    EXPECT_EQ(singleText(0.000012F), "1.2E-05");
    EXPECT_EQ(singleText(16777216.0F), "1.677722E+07");
    EXPECT_EQ(singleText(1234567.5F), "1234568");
    EXPECT_EQ(singleText(FLT_MAX), "3.402823E+38");
    EXPECT_EQ(integerText(1234567), "1234567");
    EXPECT_EQ(integerText(-1, Pattern::SourceNumber), "-000000001");

    std::mt19937 random(420);
    for (int i = 0; i < 20'000; ++i) {
        const float value = singleOfBits(randomBits(random));
        if (!std::isfinite(value))
            continue;
        const std::string text = singleText(value);
        ASSERT_EQ(text.find(','), std::string::npos) << text;
        ASSERT_EQ(singleText(readSingle(text)), text);
    }
}

}  // namespace
}  // namespace korvex
