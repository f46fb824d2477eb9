#include "number_text.h"

#include "arithmetic_fault.h"
#include "blanks.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>
#include <cstdlib>
#include <limits>
#include <system_error>

namespace korvex {

namespace {

bool isDigit(char c)
{
    return c >= '0' && c <= '9';
}

/// The leading decimal number of a text, without blanks and without a plus sign, as std::from_chars wants it; empty
/// when the text does not begin with a number.
class NumberPrefix {
public:
    explicit NumberPrefix(std::string_view text) : m_rest(text)
    {
        const char sign = peek();
        if (sign == '+' || sign == '-')
            take();
        if (sign == '-')
            m_number += '-';
        const bool hasDigit = takeDigits();
        bool hasDecimal = false;
        if (peek() == '.') {
            take();
            m_number += '.';
            hasDecimal = takeDigits();
        }
        if (!hasDigit && !hasDecimal) {
            m_number.clear();
            return;
        }
        takeExponent();
    }

    [[nodiscard]] const std::string& number() const { return m_number; }

private:
    void skipBlanks()
    {
        while (!m_rest.empty() && isBlank(m_rest.front()))
            m_rest.remove_prefix(1);
    }

    /// The next character that is not a blank, or NUL at the end (a NUL in the text ends a number just the same).
    char peek()
    {
        skipBlanks();
        return m_rest.empty() ? '\0' : m_rest.front();
    }

    void take() { m_rest.remove_prefix(1); }

    bool takeDigits()
    {
        bool any = false;
        while (isDigit(peek())) {
            m_number += m_rest.front();
            take();
            any = true;
        }
        return any;
    }

    void takeExponent()
    {
        if (peek() != 'e' && peek() != 'E')
            return;
        const std::size_t lengthWithout = m_number.size();
        take();
        m_number += 'e';
        const char sign = peek();
        if (sign == '+' || sign == '-') {
            take();
            m_number += sign;
        }
        if (!takeDigits())
            m_number.resize(lengthWithout);
    }

    std::string_view m_rest;
    std::string m_number;
};

/// What a message shows of a number's text: long ones are cut, for a field can be megabytes long.
std::string quoted(std::string_view text)
{
    constexpr std::size_t shown = 40;
    std::string out = "„";
    for (const char c : text.substr(0, shown))
        out += (c >= ' ' && c <= '~') ? c : '?';
    if (text.size() > shown)
        out += "…";
    return out + "“";
}

template <class Real> Real readAs(std::string_view text)
{
    const NumberPrefix prefix(text);
    const std::string& number = prefix.number();
    if (number.empty())
        return 0;
    Real value = 0;
    const auto [end, error] = std::from_chars(number.data(), number.data() + number.size(), value);
    if (error == std::errc::result_out_of_range)
        throw ArithmeticFault(FaultKind::Overflow, quoted(trimBlanks(text)));
    return value;
}

}  // namespace

double readReal(std::string_view text)
{
    return readAs<double>(text);
}

float readSingle(std::string_view text)
{
    return readAs<float>(text);
}

std::int32_t readInteger(std::string_view text)
{
    const double value = std::nearbyint(readReal(text));
    if (value < std::numeric_limits<std::int32_t>::min() || value > std::numeric_limits<std::int32_t>::max())
        throw ArithmeticFault(FaultKind::Overflow, quoted(trimBlanks(text)));
    return static_cast<std::int32_t>(value);
}

std::int32_t roundToInteger(double value)
{
    const double rounded = std::nearbyint(value);
    if (!(rounded >= std::numeric_limits<std::int32_t>::min() && rounded <= std::numeric_limits<std::int32_t>::max()))
        throw ArithmeticFault(FaultKind::Overflow, "");
    return static_cast<std::int32_t>(rounded);
}

namespace {

constexpr int mostDigits = 7;

/// A positive real as its significant digits (no trailing zeros) and the power of ten of the first.
struct Decimal {
    std::string_view digits;
    int exponent = 0;
};

/// Takes "d.ddde±XX" apart in place; the buffer must outlive the result.
Decimal takeApart(char* begin, char* end)
{
    char* const letter = std::find(begin, end, 'e');
    Decimal decimal;
    const char* exponentText = letter + 1;
    if (*exponentText == '+')
        ++exponentText;
    std::from_chars(exponentText, end, decimal.exponent);
    char* last = letter;
    if (letter - begin > 1) {
        begin[1] = begin[0];  // the digits stand together once the point is gone
        ++begin;
        while (last - begin > 1 && last[-1] == '0')
            --last;
    }
    decimal.digits = std::string_view(begin, static_cast<std::size_t>(last - begin));
    return decimal;
}

void appendExponentForm(std::string& out, const Decimal& decimal)
{
    out += decimal.digits.front();
    if (decimal.digits.size() > 1) {
        out += '.';
        out += decimal.digits.substr(1);
    }
    out += 'E';
    out += decimal.exponent < 0 ? '-' : '+';
    const int magnitude = std::abs(decimal.exponent);
    if (magnitude < 10)
        out += '0';
    appendInteger(out, magnitude);
}

void appendFixedForm(std::string& out, const Decimal& decimal)
{
    const auto digits = decimal.digits;
    if (decimal.exponent < 0) {
        out += "0.";
        out.append(static_cast<std::size_t>(-decimal.exponent - 1), '0');
        out += digits;
        return;
    }
    const auto whole = static_cast<std::size_t>(decimal.exponent) + 1;
    if (digits.size() <= whole) {
        out += digits;
        out.append(whole - digits.size(), '0');
        return;
    }
    out += digits.substr(0, whole);
    out += '.';
    out += digits.substr(whole);
}

}  // namespace

void appendSingle(std::string& out, float value)
{
    if (!std::isfinite(value))
        throw ArithmeticFault(FaultKind::InvalidOperation, "");
    if (value == 0.0F) {
        out += '0';
        return;
    }
    if (value < 0.0F) {
        out += '-';
        value = -value;
    }
    std::array<char, 32> buffer{};
    char* const begin = buffer.data();
    auto written = std::to_chars(begin, begin + buffer.size(), value, std::chars_format::scientific);
    Decimal decimal = takeApart(begin, written.ptr);
    if (decimal.digits.size() > mostDigits) {
        written = std::to_chars(begin, begin + buffer.size(), value, std::chars_format::scientific, mostDigits - 1);
        decimal = takeApart(begin, written.ptr);
    }
    // The same borders as the general form of the C library: seven digits before the point, four zeros behind it.
    if (decimal.exponent < -4 || decimal.exponent >= mostDigits)
        appendExponentForm(out, decimal);
    else
        appendFixedForm(out, decimal);
}

std::string singleText(float value)
{
    std::string out;
    appendSingle(out, value);
    return out;
}

void appendInteger(std::string& out, std::int32_t value, Pattern pattern)
{
    const bool negative = value < 0;
    const auto magnitude = negative ? 0U - static_cast<std::uint32_t>(value) : static_cast<std::uint32_t>(value);
    std::array<char, 10> buffer{};
    const auto written = std::to_chars(buffer.data(), buffer.data() + buffer.size(), magnitude);
    const auto length = static_cast<std::size_t>(written.ptr - buffer.data());
    const auto width = static_cast<std::size_t>(pattern);
    if (negative)
        out += '-';
    if (length < width)
        out.append(width - length, '0');
    out.append(buffer.data(), length);
}

std::string integerText(std::int32_t value, Pattern pattern)
{
    std::string out;
    appendInteger(out, value, pattern);
    return out;
}

}  // namespace korvex
