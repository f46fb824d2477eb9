#include "record_losses.h"

#include "blanks.h"
#include "code_page.h"
#include "fields.h"
#include "source.h"

#include <algorithm>
#include <cstdint>
#include <optional>
#include <utility>

namespace korvex {

namespace {

/// A decimal number as it is written, without what does not change its value: 0.digits times a power of ten.
class ExactDecimal {
public:
    /// None when the text is anything but one number.
    static std::optional<ExactDecimal> read(std::string_view text)
    {
        ExactDecimal decimal(text);
        if (!decimal.takeNumber() || decimal.peek() != end)
            return std::nullopt;
        decimal.normalize();
        return decimal;
    }

    friend bool operator==(const ExactDecimal& a, const ExactDecimal& b)
    {
        return a.m_isNegative == b.m_isNegative && a.m_exponent == b.m_exponent && a.m_digits == b.m_digits;
    }

private:
    static constexpr int end = -1;

    explicit ExactDecimal(std::string_view text) : m_rest(text) { }

    int peek()
    {
        while (!m_rest.empty() && isBlank(m_rest.front()))
            m_rest.remove_prefix(1);
        return m_rest.empty() ? end : static_cast<unsigned char>(m_rest.front());
    }

    /// Takes the next character when it is this one.
    bool take(char c)
    {
        const bool isThere = peek() == c;
        if (isThere)
            m_rest.remove_prefix(1);
        return isThere;
    }

    std::optional<int> takeDigit()
    {
        const int c = peek();
        if (c < '0' || c > '9')
            return std::nullopt;
        m_rest.remove_prefix(1);
        return c - '0';
    }

    bool takeNumber()
    {
        m_isNegative = take('-');
        if (!m_isNegative)
            take('+');
        bool hasDigits = takeDigits(1);
        if (take('.'))
            hasDigits = takeDigits(0) || hasDigits;
        if (!hasDigits)
            return false;
        return (!take('e') && !take('E')) || takeExponent();
    }

    /// weight: by how much a digit raises the power of ten of the first one; 1 before the point.
    bool takeDigits(int weight)
    {
        bool any = false;
        while (const std::optional<int> digit = takeDigit()) {
            any = true;
            if (m_digits.empty() && *digit == 0) {
                m_exponent -= 1 - weight;
                continue;
            }
            m_digits += static_cast<char>('0' + *digit);
            m_exponent += weight;
        }
        return any;
    }

    bool takeExponent()
    {
        // Far beyond any real: further digits change nothing.
        constexpr std::int64_t most = 1'000'000'000'000;
        const bool isNegative = take('-');
        if (!isNegative)
            take('+');
        bool any = false;
        std::int64_t exponent = 0;
        while (const std::optional<int> digit = takeDigit()) {
            exponent = std::min(exponent * 10 + *digit, most);
            any = true;
        }
        m_exponent += isNegative ? -exponent : exponent;
        return any;
    }

    void normalize()
    {
        m_digits.resize(m_digits.find_last_not_of('0') + 1);
        if (!m_digits.empty())
            return;
        m_exponent = 0;
        m_isNegative = false;
    }

    std::string_view m_rest;
    std::string m_digits;  // without zeros at either end
    std::int64_t m_exponent = 0;
    bool m_isNegative = false;
};

/// The text in front of a character, and the one behind it.
std::pair<std::string_view, std::string_view> dividedAt(char c, std::string_view text)
{
    const std::size_t at = std::min(text.find(c), text.size());
    return {text.substr(0, at), text.substr(std::min(at + 1, text.size()))};
}

std::size_t fieldCount(std::string_view fields)
{
    return static_cast<std::size_t>(std::count(fields.begin(), fields.end(), ',')) + 1;
}

/// What stands behind so many fields, with the blank field ends there left out.
std::string_view behindFields(std::string_view fields, std::size_t count)
{
    for (std::size_t i = 0; i < count; ++i)
        fields = dividedAt(',', fields).second;
    while (!fields.empty() && (isBlank(fields.back()) || fields.back() == ','))
        fields.remove_suffix(1);
    return trimBlanks(fields);
}

/// constantFields: how many of the last fields are the same for every source and need not be there.
std::vector<RecordDifference> compareNumbers(std::string_view given, std::string_view saved, std::size_t constantFields)
{
    const std::size_t count = fieldCount(saved);
    if (fieldCount(given) > count) {
        const std::string_view surplus = behindFields(given, count);
        // Nothing more is told of such a record: most likely its fields have shifted.
        if (!surplus.empty())
            return {{RecordLoss::SurplusFields, count + 1, decodeCodePage(surplus), {}}};
    }
    std::vector<RecordDifference> differences;
    Fields givenFields(given, ',');
    Fields savedFields(saved, ',');
    bool isShort = false;
    for (std::size_t i = 1; i <= count; ++i) {
        const std::string_view before = trimBlanks(givenFields.next());
        const std::string_view after = trimBlanks(savedFields.next());
        if (before == after || isSameNumber(before, after))
            continue;
        if (!before.empty())
            differences.push_back({RecordLoss::Value, i, decodeCodePage(before), std::string(after)});
        else if (!isShort && i <= count - constantFields)
            differences.push_back({RecordLoss::NoValue, i, {}, std::string(after)});
        isShort = isShort || before.empty();
    }
    return differences;
}

}  // namespace

bool isSameNumber(std::string_view a, std::string_view b)
{
    const std::optional<ExactDecimal> first = ExactDecimal::read(a);
    return first && first == ExactDecimal::read(b);
}

std::string_view RecordComparison::savedBytes()
{
    if (asciiLength(m_saved) == m_saved.size())
        return m_saved;
    m_encoded.clear();
    appendCodePage(m_encoded, m_saved);
    return m_encoded;
}

std::vector<RecordDifference> RecordComparison::points(std::string_view record, const cZdroje& source)
{
    m_saved.clear();
    source.appendLineSource(m_saved);
    const std::string_view saved = savedBytes();
    if (record == saved)
        return {};
    const auto [numbers, name] = dividedAt(';', record);
    const auto [savedNumbers, savedName] = dividedAt(';', saved);
    std::vector<RecordDifference> differences = compareNumbers(numbers, savedNumbers, 0);
    if (name != savedName)
        differences.push_back({RecordLoss::Name, 0, decodeCodePage(name), decodeCodePage(savedName)});
    return differences;
}

std::vector<RecordDifference> RecordComparison::description(std::string_view record, const cZdroje& source)
{
    m_saved.clear();
    source.appendLineParameters(m_saved, &m_singleTexts);
    if (record == m_saved)
        return {};
    return compareNumbers(record, m_saved, source.type().hasDust ? 1 : 0);
}

std::vector<RecordDifference> RecordComparison::dust(std::string_view record, const cZdroje& source)
{
    m_saved.clear();
    source.appendLineDust(m_saved);
    const std::string_view saved = savedBytes();
    if (record == saved)
        return {};
    const auto [number, dust] = dividedAt(',', record);
    const auto [savedNumber, savedDust] = dividedAt(',', saved);
    std::vector<RecordDifference> differences = compareNumbers(number, savedNumber, 0);
    // The dust of a new source says nothing of a source that has none.
    const bool isNothing = !source.type().hasDust && (trimBlanks(dust).empty() || dust == SourceTexts::newDust);
    if (dust != savedDust && !isNothing)
        differences.push_back({RecordLoss::Dust, 0, decodeCodePage(dust), decodeCodePage(savedDust)});
    return differences;
}

}  // namespace korvex
