#include "decimal_comma.h"

#include "blanks.h"
#include "message.h"

#include <algorithm>

namespace korvex {

namespace {

bool isDigit(char c)
{
    return c >= '0' && c <= '9';
}

bool beginsWithBlank(std::string_view field)
{
    return !field.empty() && isBlank(field.front());
}

/// Where there are not too many fields, only a record that is clearly written with blanks tells a torn value from two.
bool hasBlanks(const std::vector<std::string_view>& fields, const RecordShape& shape)
{
    const auto count = static_cast<std::size_t>(std::count_if(fields.begin(), fields.end(), beginsWithBlank));
    // Every number with a comma would make twice as many: more are something else.
    return fields.size() > shape.fields ? count > 0 && fields.size() <= 2 * shape.fields : 2 * count > fields.size();
}

}  // namespace

bool canBeTorn(std::string_view before, std::string_view after)
{
    const std::string_view number = trimBlanks(before);
    return !number.empty() && isDigit(before.back())
        && number.find_first_not_of("0123456789", 1) == std::string_view::npos && !after.empty()
        && isDigit(after.front()) && after.find('.') == std::string_view::npos;
}

std::string_view joinedFields(std::string_view before, std::string_view after)
{
    return {before.data(), static_cast<std::size_t>(after.data() - before.data()) + after.size()};
}

void reportDecimalComma(Findings& findings, const CheckedLine& line, std::optional<std::int32_t> source,
    const std::vector<std::string_view>& fields, std::size_t index)
{
    findings.add(Rule::DecimalComma, line.placeOf(fields[index + 1].data() - 1), source, [&] {
        const std::string_view joined = joinedFields(fields[index], fields[index + 1]);
        return std::vector{line.quoted(findings.language(), trimBlanks(joined))};
    });
}

void joinDecimalCommas(Findings& findings, const CheckedLine& line, std::optional<std::int32_t> source,
    std::vector<std::string_view>& fields, const RecordShape& shape)
{
    if (!hasBlanks(fields, shape))
        return;
    const bool hasSurplus = fields.size() > shape.fields;
    // The number of the source is whole: a comma behind it is only one without a blank.
    for (std::size_t i = 1; i <= shape.lastValue && i + 1 < fields.size(); ++i) {
        if (hasSurplus && fields.size() == shape.fields)
            return;
        if (!canBeTorn(fields[i], fields[i + 1]) || trimBlanks(fields[i + 1]).size() > shape.mostDecimals)
            continue;
        reportDecimalComma(findings, line, source, fields, i);
        fields[i] = joinedFields(fields[i], fields[i + 1]);
        fields.erase(fields.begin() + static_cast<std::ptrdiff_t>(i) + 1);
    }
}

}  // namespace korvex
