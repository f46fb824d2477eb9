#include "checked_line.h"

#include "arithmetic_fault.h"
#include "blanks.h"
#include "code_page.h"
#include "counted_noun.h"
#include "fields.h"
#include "message.h"
#include "plain_number.h"
#include "utf8_text.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <limits>
#include <utility>

namespace korvex {

namespace {

/// Goes over a number as the lenient reader does, blanks skipped anywhere.
class NumberScan {
public:
    explicit NumberScan(std::string_view text) : m_text(text) { }

    std::size_t end()
    {
        takeOne("+-");
        bool hasDigits = takeDigits();
        if (takeOne("."))
            hasDigits = takeDigits() || hasDigits;
        if (!hasDigits)
            return 0;
        const std::size_t mantissaEnd = m_end;
        if (takeOne("eE")) {
            takeOne("+-");
            if (!takeDigits())
                m_end = mantissaEnd;
        }
        return m_end;
    }

private:
    bool takeOne(std::string_view characters)
    {
        std::size_t at = m_end;
        while (at < m_text.size() && isBlank(m_text[at]))
            ++at;
        if (at == m_text.size() || characters.find(m_text[at]) == std::string_view::npos)
            return false;
        m_end = at + 1;
        return true;
    }
    bool takeDigits()
    {
        bool any = false;
        while (takeOne("0123456789"))
            any = true;
        return any;
    }

    std::string_view m_text;
    std::size_t m_end = 0;
};

/// The reader of a field's type; none: the number does not fit.
std::optional<std::string> savedText(std::string_view field, const FieldKind& kind)
{
    try {
        return kind.pattern ? integerText(readInteger(field), *kind.pattern) : singleText(readSingle(field));
    } catch (const ArithmeticFault&) {
        return std::nullopt;
    }
}

/// A plain number that a save keeps, as nearly all fields are: nothing to report.
bool isSound(std::string_view field, const FieldKind& kind)
{
    constexpr std::uint64_t mostKept = 9999999;
    const PlainNumber number = PlainNumber::take(field);
    return field.empty() && (kind.pattern ? number.isInteger() : number.isSingle() && number.digits <= mostKept);
}

std::string nameOf(const Findings& findings, const FieldKind& kind)
{
    return findings.text(kind.czech, kind.english);
}

}  // namespace

Place CheckedLine::placeOf(const char* at) const
{
    const auto before = bytes.substr(0, static_cast<std::size_t>(at - bytes.data()));
    const auto hidden = isUtf8 ? std::count_if(before.begin(), before.end(), isUtf8Continuation) : 0;
    return {file, number, static_cast<std::uint32_t>(1 + before.size() - static_cast<std::size_t>(hidden))};
}

std::string CheckedLine::quoted(Language language, std::string_view piece) const
{
    if (isUtf8 || asciiLength(piece) == piece.size())
        return quotedText(language, piece);
    return quotedText(language, decodeCodePage(piece));
}

NumberExtent NumberExtent::of(std::string_view field)
{
    const std::size_t end = NumberScan(field).end();
    return {trimBlanks(field.substr(0, end)), trimBlanks(field.substr(end))};
}

std::vector<std::string_view> splitFields(std::string_view text)
{
    std::vector<std::string_view> fields;
    const auto count = static_cast<std::size_t>(std::count(text.begin(), text.end(), ',')) + 1;
    fields.reserve(count);
    Fields rest(text, ',');
    for (std::size_t i = 0; i < count; ++i)
        fields.push_back(rest.next());
    return fields;
}

NumberState checkNumber(Findings& findings, const CheckedLine& line, std::optional<std::int32_t> source,
    std::string_view field, const FieldKind& kind)
{
    if (isSound(field, kind))
        return NumberState::Sound;
    const NumberExtent extent = NumberExtent::of(field);
    const std::string_view shown = trimBlanks(field);
    const std::optional<std::string> saved = savedText(field, kind);
    const auto values = [&] {
        const std::string quoted = line.quoted(findings.language(), shown);
        return std::array{nameOf(findings, kind), quoted, saved.value_or("")};
    };
    const char* const begin = shown.empty() ? field.data() : shown.data();
    const std::vector<std::string_view> parts = splitFields(field);
    const auto isOutOfRange = [&kind](std::string_view part) { return !savedText(part, kind); };
    if (std::any_of(parts.begin(), parts.end(), isOutOfRange)) {
        findings.add(Rule::NumberRange, line.placeOf(begin), source, values);
        return NumberState::OutOfRange;
    }
    if (parts.size() > 1)
        return NumberState::Odd;
    const bool isFraction = kind.isRounded() && saved && readReal(shown) != readReal(*saved);
    if (extent.number.empty() || !extent.surplus.empty() || isFraction) {
        const char* const fault = extent.number.empty() || isFraction ? begin : extent.surplus.data();
        findings.add(Rule::NumberText, line.placeOf(fault), source, [&] {
            const std::string quoted = line.quoted(findings.language(), shown);
            return std::array{nameOf(findings, kind), quoted, kind.pattern ? integerText(readInteger(field)) : *saved,
                kind.pattern ? findings.text("celé číslo", "a whole number")
                             : findings.text("číslo s desetinnou tečkou", "a number with a decimal point")};
        });
        return NumberState::Odd;
    }
    if (kind.saved == FieldKind::Saved::Anew && shown != *saved && readReal(shown) != readReal(*saved))
        findings.add(Rule::DigitsLost, line.placeOf(begin), source, values);
    return NumberState::Sound;
}

bool checkRecordNumber(
    Findings& findings, const CheckedLine& line, std::optional<std::int32_t> source, std::string_view field)
{
    constexpr FieldKind kind{"číslo zdroje", "source number", Pattern::SourceNumber, FieldKind::Saved::AsRead};
    if (!source) {
        try {
            static_cast<void>(readReal(field));
            return true;
        } catch (const ArithmeticFault&) {
            // Reported below: what is no real is no integer either.
        }
    }
    return checkNumber(findings, line, source, field, kind) != NumberState::OutOfRange;
}

void reportFieldCount(Findings& findings, const CheckedLine& line, std::optional<std::int32_t> source,
    const std::vector<std::string_view>& fields, std::size_t count, std::size_t expected)
{
    constexpr CountedNoun noun{"pole", "pole", "polí", "field", "fields"};
    const bool isShort = count < expected;
    const std::size_t surplus = isShort ? 0 : count - expected;
    const std::string_view at = trimBlanks(isShort ? fields.back() : fields[fields.size() - surplus]);
    findings.add(Rule::FieldCount, line.placeOf(isShort ? at.data() + at.size() : at.data()), source, [&] {
        return std::array{counted(findings.language(), count, noun), countText(expected),
            isShort ? findings.text("chybějící se čtou jako 0, doplňte je", "missing ones are read as 0, fill them in")
                    : findings.text("nadbytečná se přeskočí; nejde o desetinnou čárku?",
                        "surplus ones are skipped; is there a decimal comma?")};
    });
}

void checkForm(Findings& findings, const CheckedLine& line, std::optional<std::int32_t> source, std::string_view saved)
{
    const std::string_view written = line.bytes;
    const auto differing = std::mismatch(written.begin(), written.end(), saved.begin(), saved.end());
    if (differing.first == written.end() && differing.second == saved.end())
        return;
    const auto at = static_cast<std::size_t>(differing.first - written.begin());
    // The comma in front of a surplus field belongs to it.
    const std::size_t comma = written.substr(0, at).rfind(',');  // none: one in front of 0
    const bool isSurplus = at < written.size() && written[at] == ',';
    const std::size_t begin = isSurplus ? at : comma + 1;
    const auto fieldOf = [begin, at, isSurplus](std::string_view text) {
        return text.substr(begin, text.find(',', isSurplus ? at + 1 : at) - begin);
    };
    const std::string_view differs = fieldOf(written);
    if (findings.hasChangeUpTo(line.placeOf(differs.data() + differs.size())))
        return;
    findings.add(Rule::Rewritten, line.placeOf(written.data() + at), source, [&] {
        return std::array{line.quoted(findings.language(), differs), line.quoted(findings.language(), fieldOf(saved))};
    });
}

std::optional<std::int32_t> integerOf(std::string_view field)
{
    try {
        const double value = readReal(field);
        const bool isWhole = std::nearbyint(value) == value
            && std::abs(value) <= static_cast<double>(std::numeric_limits<std::int32_t>::max());
        return isWhole ? std::optional(static_cast<std::int32_t>(value)) : std::nullopt;
    } catch (const ArithmeticFault&) {
        return std::nullopt;
    }
}

std::optional<std::int32_t> roundedOf(std::string_view field)
{
    try {
        return readInteger(field);
    } catch (const ArithmeticFault&) {
        return std::nullopt;
    }
}

}  // namespace korvex
