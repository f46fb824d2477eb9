#include "number_text.h"

#include "arithmetic_fault.h"
#include "blanks.h"
#include "code_page.h"
#include "plain_number.h"

#include <algorithm>
#include <array>
#include <bit>
#include <charconv>
#include <cmath>
#include <cstdlib>
#include <cstring>
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

/// What a message shows of a number's text: long ones are cut, for a field can be megabytes long, and what no message
/// can show becomes "?".
std::string quoted(std::string_view text)
{
    constexpr std::size_t shown = 40;
    // One byte a character; what is no UTF-8 gets lost on the way.
    std::string characters = encodeCodePage(text.substr(0, (shown + 1) * mostDecodedBytes));
    const bool isCut = characters.size() > shown;
    characters.resize(std::min(shown, characters.size()));
    std::replace_if(
        characters.begin(), characters.end(), [](char c) { return (c >= '\0' && c < ' ') || c == '\x7F'; }, '?');
    return "„" + decodeCodePage(characters) + (isCut ? "…" : "") + "“";
}

template <class Real>
Real readAs(std::string_view text)
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
    std::string_view rest = text;
    const PlainNumber number = PlainNumber::take(rest);
    return number.isReal() ? number.real() : readAs<double>(text);
}

float readSingle(std::string_view text)
{
    std::string_view rest = text;
    const PlainNumber number = PlainNumber::take(rest);
    return number.isSingle() ? number.single() : readAs<float>(text);
}

std::int32_t readInteger(std::string_view text)
{
    std::string_view rest = text;
    const PlainNumber number = PlainNumber::take(rest);
    if (number.isInteger())
        return number.integer();
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

char* put(char* to, std::string_view text)
{
    return std::copy(text.begin(), text.end(), to);
}

char* putExponentForm(char* to, const Decimal& decimal)
{
    *to++ = decimal.digits.front();  // NOLINT(clang-analyzer-core.NullDereference): there is always a digit
    if (decimal.digits.size() > 1) {
        *to++ = '.';
        to = put(to, decimal.digits.substr(1));
    }
    *to++ = 'E';
    *to++ = decimal.exponent < 0 ? '-' : '+';
    const int magnitude = std::abs(decimal.exponent);
    *to++ = static_cast<char>('0' + magnitude / 10);
    *to++ = static_cast<char>('0' + magnitude % 10);
    return to;
}

char* putFixedForm(char* to, const Decimal& decimal)
{
    const auto digits = decimal.digits;
    if (decimal.exponent < 0) {
        to = put(to, "0.");
        to = std::fill_n(to, -decimal.exponent - 1, '0');
        return put(to, digits);
    }
    const auto whole = static_cast<std::size_t>(decimal.exponent) + 1;
    if (digits.size() <= whole)
        return std::fill_n(put(to, digits), whole - digits.size(), '0');
    to = put(to, digits.substr(0, whole));
    *to++ = '.';
    return put(to, digits.substr(whole));
}

/// "000102…99": two digits for one division.
constexpr std::array<char, 200> digitPairs = [] {
    std::array<char, 200> pairs{};
    for (std::size_t i = 0; i < pairs.size() / 2; ++i) {
        pairs[i * 2] = static_cast<char>('0' + i / 10);
        pairs[i * 2 + 1] = static_cast<char>('0' + i % 10);
    }
    return pairs;
}();

std::size_t digitCount(std::uint32_t value)
{
    std::size_t count = 1;
    for (std::uint32_t beyond = 10; count < 10 && value >= beyond; beyond *= 10)
        ++count;
    return count;
}

/// Exactly so many digits, with leading zeros; returns what is left of the value in front of them.
std::uint32_t putDigits(char* to, std::uint32_t value, std::size_t count)
{
    std::size_t i = count;
    for (; i >= 2; i -= 2) {
        std::memcpy(to + i - 2, digitPairs.data() + std::size_t{value % 100} * 2, 2);
        value /= 100;
    }
    for (; i > 0; --i) {
        to[i - 1] = static_cast<char>('0' + value % 10);
        value /= 10;
    }
    return value;
}

/// A whole number divided by a power of ten.
char* putDecimal(char* to, std::uint32_t digits, std::size_t decimals)
{
    const std::size_t count = digitCount(digits);
    const std::size_t whole = count > decimals ? count - decimals : 1;
    if (decimals > 0) {
        to[whole] = '.';
        digits = putDigits(to + whole + 1, digits, decimals);
    }
    putDigits(to, digits, whole);
    return to + whole + (decimals > 0 ? decimals + 1 : 0);
}

/// Writes a positive value that is a whole number of at most seven digits divided by a power of ten, as nearly all
/// typed values are. The fewest decimals that read back to the value are the shortest text. Null: it is none.
char* putShortDecimal(char* to, float value)
{
    constexpr double beyondSevenDigits = 1E7;
    constexpr float smallestFixed = 1E-4F;
    if (value < smallestFixed)
        return nullptr;
    for (std::size_t decimals = 0; decimals < PlainNumber::exactPowersOfTen.size(); ++decimals) {
        const double scaled = static_cast<double>(value) * static_cast<double>(PlainNumber::exactPowersOfTen[decimals]);
        if (scaled >= beyondSevenDigits - 1)
            return nullptr;
        const auto digits = static_cast<std::uint32_t>(scaled + 0.5);
        // Far from a whole number: not worth the division. A real differs from what it stands for by 6E-8 of it.
        if (std::abs(scaled - digits) > scaled * 1E-7)
            continue;
        if (static_cast<float>(digits) / PlainNumber::exactPowersOfTen[decimals] == value)
            return putDecimal(to, digits, decimals);
    }
    return nullptr;
}

/// The general way, for a positive value.
char* putShortest(char* to, float value)
{
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
        return putExponentForm(to, decimal);
    return putFixedForm(to, decimal);
}

}  // namespace

char* putSingle(char* to, float value)
{
    if (!std::isfinite(value))
        throw ArithmeticFault(FaultKind::InvalidOperation, "");
    if (value == 0.0F) {
        *to++ = '0';
        return to;
    }
    if (value < 0.0F) {
        *to++ = '-';
        value = -value;
    }
    char* const end = putShortDecimal(to, value);
    return end != nullptr ? end : putShortest(to, value);
}

char* SingleTexts::put(char* to, float value)
{
    constexpr std::uint32_t spread = 2654435769U;  // 2^32 divided by the golden ratio: near reals fall far apart
    constexpr int bits = 32;
    const auto valueBits = std::bit_cast<std::uint32_t>(value);
    Known& known = m_known[(valueBits * spread) >> (bits - sizeBits)];
    if (known.length == 0 || known.bits != valueBits) {
        const char* const end = putSingle(known.text.data(), value);
        known.bits = valueBits;
        known.length = static_cast<std::uint8_t>(end - known.text.data());
    }
    // All of it: copying a few bytes too many is faster than copying just so many.
    std::memcpy(to, known.text.data(), known.text.size());
    return to + known.length;
}

std::string singleText(float value)
{
    std::array<char, widestNumber> buffer{};
    return {buffer.data(), putSingle(buffer.data(), value)};
}

char* putInteger(char* to, std::int32_t value, Pattern pattern)
{
    const bool negative = value < 0;
    const auto magnitude = negative ? 0U - static_cast<std::uint32_t>(value) : static_cast<std::uint32_t>(value);
    if (negative)
        *to++ = '-';
    const std::size_t count = std::max(digitCount(magnitude), static_cast<std::size_t>(pattern));
    putDigits(to, magnitude, count);
    return to + count;
}

std::string integerText(std::int32_t value, Pattern pattern)
{
    std::array<char, widestNumber> buffer{};
    return {buffer.data(), putInteger(buffer.data(), value, pattern)};
}

}  // namespace korvex
