#include "csv_number.h"

#include "blanks.h"
#include "number_text.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cstddef>
#include <system_error>
#include <vector>

namespace korvex {

namespace {

bool isDigit(char c)
{
    return c >= '0' && c <= '9';
}

std::size_t digitsAt(std::string_view text)
{
    return static_cast<std::size_t>(std::find_if_not(text.begin(), text.end(), isDigit) - text.begin());
}

void skipSign(std::string_view& text)
{
    if (!text.empty() && (text.front() == '+' || text.front() == '-'))
        text.remove_prefix(1);
}

/// The lenient reader of the data files would take 3,5 for 3 and abc for 0: here that is a fault.
bool isReal(std::string_view text)
{
    skipSign(text);
    std::size_t digits = digitsAt(text);
    text.remove_prefix(digits);
    if (!text.empty() && text.front() == '.') {
        text.remove_prefix(1);
        const std::size_t decimals = digitsAt(text);
        digits += decimals;
        text.remove_prefix(decimals);
    }
    if (digits == 0)
        return false;
    if (text.empty())
        return true;
    if (text.front() != 'e' && text.front() != 'E')
        return false;
    text.remove_prefix(1);
    return isWholeNumber(text);
}

/// Of what stands at the front and may part groups of digits; 0 for anything else. The blanks are those that
/// spreadsheets put there: common, no-break, narrow no-break and thin.
std::size_t groupSeparatorLength(std::string_view text)
{
    constexpr std::array<std::string_view, 8> separators{" ", ".", ",", "'", "\u00A0", "\u202F", "\u2009", "\u2019"};
    for (const std::string_view separator : separators) {
        if (text.substr(0, separator.size()) == separator)
            return separator.size();
    }
    return 0;
}

/// A number as its digits, without zeros at both ends, and the power of ten that they are multiplied by.
struct Decimal {
    std::string digits;
    int exponent = 0;

    /// real: as isReal takes it.
    explicit Decimal(std::string_view real)
    {
        skipSign(real);
        const std::size_t end = std::min(real.find_first_of("eE"), real.size());
        const std::size_t point = std::min(real.find('.'), end);
        digits = real.substr(0, point);
        if (point < end)
            digits += real.substr(point + 1, end - point - 1);
        digits.erase(0, digits.find_first_not_of('0'));
        if (digits.empty())
            return;
        readExponent(real.substr(end));
        if (point < end)
            exponent -= static_cast<int>(end - point - 1);
        const std::size_t length = digits.find_last_not_of('0') + 1;
        exponent += static_cast<int>(digits.size() - length);
        digits.resize(length);
    }

    friend bool operator==(const Decimal&, const Decimal&) = default;

private:
    void readExponent(std::string_view text)
    {
        if (text.empty())
            return;
        text.remove_prefix(text.substr(1, 1) == "+" ? 2 : 1);
        std::from_chars(text.data(), text.data() + text.size(), exponent);
    }
};

}  // namespace

bool isWholeNumber(std::string_view text)
{
    skipSign(text);
    return !text.empty() && digitsAt(text) == text.size();
}

bool hasThousandsSeparators(std::string_view text)
{
    skipSign(text);
    if (text.empty() || !isDigit(text.front()))
        return false;
    std::size_t marks = 0;
    std::size_t others = 0;
    bool hasGroup = false;
    for (;;) {
        text.remove_prefix(digitsAt(text));
        if (text.empty())
            break;
        const std::size_t length = groupSeparatorLength(text);
        if (length == 0)
            return false;
        ++(text.front() == '.' || text.front() == ',' ? marks : others);
        text.remove_prefix(length);
        hasGroup = hasGroup || digitsAt(text) == 3;
    }
    return hasGroup && marks + 2 * others > 1;
}

DecimalMark::Form DecimalMark::take(std::string_view text, std::string& plain)
{
    plain = text;
    const std::size_t at = text.find_first_of(".,");
    const bool isKnown = m_mark != '\0';
    if (at != std::string_view::npos)
        plain[at] = '.';
    if (!isReal(plain))
        return Form::None;
    if (at == std::string_view::npos || text[at] == m_mark)
        return Form::Real;
    if (isKnown)
        return Form::OtherMark;
    m_mark = text[at];
    return Form::Real;
}

std::optional<std::string> roundedInFile(std::string_view plain, float value)
{
    std::string written = singleText(value);
    if (plain == written || Decimal(plain) == Decimal(written))
        return std::nullopt;
    return written;
}

bool isDustText(std::string_view text)
{
    std::vector<std::string_view> fields;
    for (std::size_t end = 0; end != std::string_view::npos; text.remove_prefix(std::min(end + 1, text.size()))) {
        end = text.find(',');
        fields.push_back(trimBlanks(text.substr(0, end)));
        if (end == std::string_view::npos)
            break;
    }
    constexpr std::size_t groupField = 1;
    constexpr std::size_t countField = 2;
    DecimalMark point(',');
    std::string plain;
    for (std::size_t i = 0; i < fields.size(); ++i) {
        const bool isNumber = i == groupField || i == countField
            ? isWholeNumber(fields[i])
            : point.take(fields[i], plain) == DecimalMark::Form::Real;
        if (!isNumber)
            return false;
    }
    if (fields.size() <= groupField)
        return false;
    const bool hasGroup = fields[groupField].find_first_not_of("+-0") != std::string_view::npos;
    if (hasGroup)
        return fields.size() == groupField + 1;
    std::size_t particles = 0;
    const std::string_view count = fields.size() > countField ? fields[countField] : std::string_view();
    const auto read = std::from_chars(count.data(), count.data() + count.size(), particles);
    return read.ec == std::errc() && read.ptr == count.data() + count.size()
        && fields.size() == countField + 1 + 2 * particles;
}

}  // namespace korvex
