// The fast way through numbers as nearly all files hold them, beside the general rules in number_text.
#pragma once

#include "blanks.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdint>
#include <limits>
#include <string_view>

namespace korvex {

/// Blanks, a minus sign, a few digits, perhaps a point and a few more, perhaps an exponent, blanks; and behind it
/// nothing that the general rules would still take for a part of the number. What is plain reads the same by both ways;
/// what is not, only the general rules can tell.
struct PlainNumber {
    std::uint64_t digits = 0;  // all digits as one whole number
    int decimals = 0;          // how many of them stand behind the point; an exponent moves it
    bool negative = false;
    bool plain = false;

    /// The number that stands at the front of the text; what was looked at is taken away from it.
    static PlainNumber take(std::string_view& text);

    [[nodiscard]] bool isInteger() const
    {
        return plain && decimals == 0 && digits <= std::numeric_limits<std::int32_t>::max();
    }
    [[nodiscard]] std::int32_t integer() const
    {
        const auto magnitude = static_cast<std::int32_t>(digits);
        return negative ? -magnitude : magnitude;
    }

    /// Whether single() is the correctly rounded value: digits up to 2^24 and small powers of ten are exact in a
    /// 32-bit real, and so is then the rounding of their quotient.
    [[nodiscard]] bool isSingle() const { return isReal() && digits <= exactSingleDigits; }
    [[nodiscard]] float single() const { return quotient<float>(); }
    /// The same for a 64-bit real, which holds all the digits a plain number can have.
    [[nodiscard]] bool isReal() const
    {
        return plain && decimals >= 0 && decimals < static_cast<int>(exactPowersOfTen.size());
    }
    [[nodiscard]] double real() const { return quotient<double>(); }

    static constexpr std::array<float, 11> exactPowersOfTen{
        1E0F, 1E1F, 1E2F, 1E3F, 1E4F, 1E5F, 1E6F, 1E7F, 1E8F, 1E9F, 1E10F};

private:
    static constexpr int mostDigits = 15;

    /// The digits with their point; returns how many digits there were.
    static int takeDigits(const char*& at, const char* end, PlainNumber& number);
    /// Behind the letter; false for an exponent that is not two digits at most, with a sign or none.
    static bool takeExponent(const char*& at, const char* end, int& decimals)
    {
        const bool negative = at != end && *at == '-';
        if (at != end && (*at == '-' || *at == '+'))
            ++at;
        int exponent = 0;
        const char* const first = at;
        for (; at != end && static_cast<unsigned char>(*at - '0') < 10 && at - first <= 2; ++at)
            exponent = exponent * 10 + (*at - '0');
        decimals += negative ? exponent : -exponent;
        return at != first && at - first <= 2;
    }
    static constexpr std::uint64_t exactSingleDigits = std::uint64_t{1} << 24;

    template <class Real>
    [[nodiscard]] Real quotient() const
    {
        const Real magnitude
            = static_cast<Real>(digits) / static_cast<Real>(exactPowersOfTen[static_cast<std::size_t>(decimals)]);
        return negative ? -magnitude : magnitude;
    }
};

inline int PlainNumber::takeDigits(const char*& at, const char* end, PlainNumber& number)
{
    const auto takeRun = [&at, end, &number] {
        const char* const first = at;
        // With more than nineteen digits this overflows, without harm: it is then no plain number.
        for (; at != end && static_cast<unsigned char>(*at - '0') < 10; ++at)
            number.digits = number.digits * 10 + static_cast<std::uint64_t>(*at - '0');
        return static_cast<int>(std::min<std::ptrdiff_t>(at - first, mostDigits + 1));
    };
    int count = takeRun();
    if (at != end && *at == '.') {
        ++at;
        number.decimals = takeRun();
        count += number.decimals;
    }
    return count;
}

inline PlainNumber PlainNumber::take(std::string_view& text)
{
    PlainNumber number;
    const char* at = text.data();
    const char* const end = at + text.size();
    while (at != end && isBlank(*at))
        ++at;
    if (at != end && *at == '-') {
        number.negative = true;
        ++at;
    }
    int count = takeDigits(at, end, number);
    const bool hasExponent = at != end && (*at == 'e' || *at == 'E');
    if (hasExponent)
        count = count > 0 && takeExponent(++at, end, number.decimals) ? count : 0;
    while (at != end && isBlank(*at))
        ++at;
    const bool goesOn
        = at != end && (static_cast<unsigned char>(*at - '0') < 10 || *at == '.' || *at == 'e' || *at == 'E');
    number.plain = count > 0 && count <= mostDigits && !goesOn;
    text.remove_prefix(static_cast<std::size_t>(at - text.data()));
    return number;
}

/// The fields of a record, as long as they are plain numbers.
class PlainFields {
public:
    explicit PlainFields(std::string_view record) : m_rest(record) { }

    /// The next field. False when it is not there or not plain.
    [[nodiscard]] bool next(std::int32_t& value)
    {
        const PlainNumber number = take();
        if (!number.isInteger())
            return false;
        value = number.integer();
        return true;
    }
    [[nodiscard]] bool next(float& value)
    {
        const PlainNumber number = take();
        if (!number.isSingle())
            return false;
        value = number.single();
        return true;
    }
    /// What stands behind the last field.
    [[nodiscard]] std::string_view rest() const { return m_rest; }

private:
    PlainNumber take()
    {
        if (m_isOver)
            return {};
        const PlainNumber number = PlainNumber::take(m_rest);
        // With anything but a comma behind a number the next field is not here: the general rules find it.
        if (!m_rest.empty() && m_rest.front() == ',')
            m_rest.remove_prefix(1);
        else
            m_isOver = true;
        return number;
    }

    std::string_view m_rest;
    bool m_isOver = false;
};

}  // namespace korvex
