#include "points_check.h"

#include "blanks.h"
#include "check_limits.h"
#include "code_page.h"
#include "decimal_comma.h"
#include "fields.h"
#include "message.h"
#include "plain_number.h"
#include "plain_records.h"
#include "source.h"
#include "source_type.h"

#include <algorithm>
#include <array>
#include <limits>
#include <optional>
#include <string>

namespace korvex {

namespace {

constexpr std::size_t fieldCount = 7;
constexpr std::int32_t widestPaddedNumber = 999999999;
constexpr std::size_t xField = 1;
constexpr std::size_t yField = 2;
constexpr std::size_t typeField = 4;

constexpr std::array<FieldKind, fieldCount> fieldKinds{{
    {"číslo zdroje", "source number", Pattern::SourceNumber},
    {"X", "X", Pattern::Coordinate},
    {"Y", "Y", Pattern::Coordinate},
    {"nadmořská výška", "altitude", Pattern::Altitude},
    {"typ", "type", Pattern::Plain},
    {"skupina", "group", Pattern::Plain},
    {"shluk", "cluster", Pattern::Plain},
}};

/// Whether a record that was read as plain numbers is nothing but seven of them and a name: of its content there is
/// then nothing to say.
bool isWellFormed(std::string_view record)
{
    const std::size_t nameAt = record.find(';');
    const std::string_view numbers = record.substr(0, nameAt);
    const std::size_t lastComma = numbers.rfind(',');
    std::string_view cluster = numbers.substr(lastComma + 1);
    static_cast<void>(PlainNumber::take(cluster));
    const bool hasSecond = nameAt != std::string_view::npos && record.find(';', nameAt + 1) != std::string_view::npos;
    return cluster.empty() && !hasSecond && std::count(numbers.begin(), numbers.end(), ',') == fieldCount - 1;
}

/// Whether a number takes nine digits, as the dust file needs it.
bool isPadded(std::int32_t number)
{
    return number >= 0 && number <= widestPaddedNumber;
}

/// The numbers of a record with what parts them from the name, as the program writes them.
class SavedNumbers {
public:
    explicit SavedNumbers(const PlainPoints& plain)
    {
        char* end = m_buffer.data();
        const std::array values{
            plain.number, plain.x, plain.y, plain.altitude, plain.typeId, plain.group, plain.cluster};
        for (std::size_t i = 0; i < fieldCount; ++i) {
            end = putInteger(end, values[i], *fieldKinds[i].pattern);
            *end++ = i + 1 < fieldCount ? ',' : ' ';
            *end++ = i + 1 < fieldCount ? ' ' : ';';
        }
        m_size = static_cast<std::size_t>(end - m_buffer.data());
    }
    [[nodiscard]] std::string_view text() const { return {m_buffer.data(), m_size}; }

private:
    std::array<char, fieldCount*(widestNumber + 2)> m_buffer;
    std::size_t m_size;
};

/// Where X and Y begin on their line.
struct PlaceColumns {
    std::size_t x = 1;
    std::size_t y = 1;
};

void remember(const CheckedLine& line, const PlainPoints& plain, const PlaceColumns& columns, CheckedPoints& points)
{
    constexpr std::size_t widest = std::numeric_limits<std::uint16_t>::max();
    CheckedPoint point;
    point.number = plain.number;
    point.line = line.number;
    point.x = plain.x;
    point.y = plain.y;
    point.columnOfX = static_cast<std::uint16_t>(std::min(columns.x, widest));
    point.columnOfY = static_cast<std::uint16_t>(std::min(columns.y, widest));
    point.typeId = static_cast<std::int8_t>(sourceTypeOf(plain.typeId) == nullptr ? 0 : plain.typeId);
    points.add(point);
}

void checkName(Findings& findings, const CheckedLine& line, std::int32_t number)
{
    const std::size_t begin = line.bytes.find(';');
    const std::size_t second = begin == std::string_view::npos ? begin : line.bytes.find(';', begin + 1);
    if (second == std::string_view::npos)
        return;
    findings.add(Rule::NameSemicolon, line.placeOf(line.bytes.data() + second), number,
        [&] { return std::array{line.quoted(findings.language(), line.bytes.substr(second))}; });
}

/// Checks the numbers of a record. With too few in front of the name the program reads on into the name: those fields
/// join the others, but only a number out of range is worth a word. False: the file cannot be loaded.
bool checkFields(Findings& findings, const CheckedLine& line, std::optional<std::int32_t> number,
    std::vector<std::string_view>& fields)
{
    const std::size_t beforeName = fields.size();
    if (beforeName < fieldCount) {
        const std::vector<std::string_view> all = splitFields(line.bytes);
        for (std::size_t i = beforeName; i < std::min(all.size(), fieldCount); ++i)
            fields.push_back(all[i]);
    }
    bool isInRange = true;
    for (std::size_t i = 0; i < std::min(fields.size(), fieldCount); ++i) {
        if (i >= beforeName && roundedOf(fields[i]))
            continue;
        const NumberState state = checkNumber(findings, line, number, fields[i], fieldKinds[i]);
        isInRange = isInRange && state != NumberState::OutOfRange;
    }
    return isInRange;
}

void checkWidth(Findings& findings, const CheckedLine& line, std::int32_t number)
{
    if (isPadded(number))
        return;
    findings.add(Rule::NumberWidth, line.place(), number, [&] {
        return std::array{integerText(number),
            findings.text("popis prachu se při každém uložení posune, zdroj přečíslujte",
                "every save shifts the dust description, renumber the source")};
    });
}

/// What the loader makes of the record, and the saver of that. Needs a record without numbers out of range.
void checkSavedForm(Findings& findings, const CheckedLine& line, std::int32_t number)
{
    const SourceType* const type = sourceTypeOf(roundedOf(field(line.bytes, ',', typeField + 1)).value_or(0));
    if (type == nullptr)
        return;
    cZdroje source(*type);
    source.LineSource(decodeCodePage(line.bytes));
    checkForm(findings, line, number, encodeCodePage(source.LineSource()));
}

/// Whether the fields are those of a whole record: with a decimal comma in front of the type another value stands in
/// its place.
bool isComplete(const std::vector<std::string_view>& fields)
{
    return fields.size() == fieldCount && sourceTypeOf(roundedOf(fields[typeField]).value_or(0)) != nullptr;
}

/// A record that is not just as the program writes it, field by field.
void checkOddRecord(Findings& findings, const CheckedLine& line, CheckedPoints& points)
{
    std::vector<std::string_view> fields = splitFields(field(line.bytes, ';', 1));
    const std::optional<std::int32_t> number = roundedOf(fields.front());
    constexpr std::size_t mostDecimals = 3;  // of metres; beyond that it is another coordinate
    if (!isComplete(fields))
        joinDecimalCommas(findings, line, number, fields, {fieldCount, typeField - 1, mostDecimals});
    const std::size_t beforeName = fields.size();
    if (beforeName != fieldCount)
        reportFieldCount(findings, line, number, fields, beforeName, fieldCount);
    const bool isInRange = checkFields(findings, line, number, fields);
    if (!number)
        return;
    checkName(findings, line, *number);
    checkWidth(findings, line, *number);
    if (isInRange)
        checkSavedForm(findings, line, *number);
    const auto valueOf = [&fields](std::size_t i) { return i < fields.size() ? roundedOf(fields[i]).value_or(0) : 0; };
    const auto columnOf = [&line, &fields](std::size_t i) {
        return i < fields.size() ? line.placeOf(trimBlanks(fields[i]).data()).column : 1;
    };
    PlainPoints values;
    values.number = *number;
    values.x = valueOf(xField);
    values.y = valueOf(yField);
    // With a number out of range the file is not loaded at all: nothing more is said of this source.
    values.typeId = isInRange ? valueOf(typeField) : 0;
    if (isInRange && typeField < beforeName && sourceTypeOf(values.typeId) == nullptr) {
        findings.add(Rule::TypeCode, {line.file, line.number, columnOf(typeField)}, number,
            [&] { return std::array{integerText(values.typeId)}; });
    }
    remember(line, values, {columnOf(xField), columnOf(yField)}, points);
}

/// The second source of a number: is it a duplicate of one before it, or does it only share the description?
void checkOneNumber(Findings& findings, const CheckedPoints& points, std::size_t first, std::size_t end)
{
    // By stack number, 0 or 1: the line on which a source of that kind stands.
    std::array<std::uint32_t, 2> lineOfKind{};
    for (std::size_t rank = first; rank < end; ++rank) {
        const CheckedPoint& point = points.byNumber()[rank];
        const SourceType* const type = sourceTypeOf(point.typeId);
        if (type == nullptr)
            continue;
        const auto kind = static_cast<std::size_t>(type->KOMIN);
        const bool isDuplicate = lineOfKind[kind] != 0;
        const std::uint32_t other = isDuplicate ? lineOfKind[kind] : lineOfKind[1 - kind];
        if (other != 0) {
            findings.add(isDuplicate ? Rule::SameNumber : Rule::SharedNumber, {CheckedFile::Points, point.line, 1},
                point.number, [&] { return std::array{integerText(static_cast<std::int32_t>(other))}; });
        }
        if (lineOfKind[kind] == 0)
            lineOfKind[kind] = point.line;
    }
}

}  // namespace

void checkPointsRecord(Findings& findings, const CheckedLine& line, CheckedPoints& points)
{
    PlainPoints plain;
    if (!plain.read(line.bytes) || sourceTypeOf(plain.typeId) == nullptr || !isPadded(plain.number)) {
        checkOddRecord(findings, line, points);
        return;
    }
    const SavedNumbers numbers(plain);
    const std::string_view saved = numbers.text();
    const bool isAsSaved
        = line.bytes.substr(0, saved.size()) == saved && line.bytes.find(';', saved.size()) == std::string_view::npos;
    if (!isAsSaved && !isWellFormed(line.bytes)) {
        checkOddRecord(findings, line, points);
        return;
    }
    if (!isAsSaved)
        checkForm(findings, line, plain.number, std::string(saved).append(plain.name));
    const auto columnBehind = [&line](std::size_t comma) { return line.bytes.find_first_not_of(" \t", comma + 1) + 1; };
    const std::size_t comma = line.bytes.find(',');
    remember(line, plain, {columnBehind(comma), columnBehind(line.bytes.find(',', comma + 1))}, points);
}

void checkNumbers(Findings& findings, const CheckedPoints& points)
{
    std::size_t end = 0;
    for (std::size_t first = 0; first < points.count(); first = end) {
        const std::int32_t number = points.byNumber()[first].number;
        end = first + 1;
        while (end < points.count() && points.byNumber()[end].number == number)
            ++end;
        if (end - first > 1)
            checkOneNumber(findings, points, first, end);
    }
}

void checkPartners(Findings& findings, const CheckedPoints& points, const PartnerFiles& files)
{
    const CheckedPoint* first = nullptr;
    for (const CheckedPoint& point : points.byNumber()) {
        if (first == nullptr || first->number != point.number)
            first = &point;
        if (point.typeId == 0)
            continue;
        const Place place{CheckedFile::Points, point.line, 1};
        if (files.description && first->descriptionLine == 0)
            findings.add(Rule::NoDescription, place, point.number);
        else if (files.dust && first->dustLine == 0)
            findings.add(Rule::NoDust, place, point.number);
    }
}

}  // namespace korvex
