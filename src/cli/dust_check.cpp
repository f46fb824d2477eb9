#include "dust_check.h"

#include "blanks.h"
#include "decimal_comma.h"
#include "fields.h"
#include "message.h"
#include "particle_check.h"
#include "plain_number.h"
#include "source_type.h"

#include <algorithm>
#include <array>
#include <string>

namespace korvex {

namespace {

constexpr std::size_t numberWidth = 9;

bool isNineDigits(std::string_view text)
{
    return text.size() == numberWidth
        && std::all_of(text.begin(), text.end(), [](char c) { return c >= '0' && c <= '9'; });
}

/// "density,group" or "density,0,count,…" in plain numbers: what nearly all stacks have. group: of a reference.
bool isSoundDescription(std::string_view description, std::int32_t& group)
{
    PlainFields fields(description);
    float density = 0.0F;
    if (!fields.next(density) || !fields.next(group))
        return false;
    return group == 0 ? isSoundParticleList(fields.rest()) : fields.rest().empty() && description.back() != ',';
}

void checkGroupNumber(
    Findings& findings, const CheckedLine& line, std::string_view numberField, GroupLinesByNumber& groups)
{
    const std::optional<std::int32_t> number = roundedOf(numberField);
    if (!number)
        return;
    const Place place = line.placeOf(trimBlanks(numberField).data());
    if (*number <= 0) {
        findings.add(Rule::GroupZero, place, std::nullopt, [&] { return std::array{integerText(*number)}; });
        return;
    }
    const auto [found, isNew] = groups.emplace(*number, line.number);
    if (!isNew) {
        findings.add(Rule::GroupDouble, place, std::nullopt, [&, first = found->second] {
            return std::array{integerText(*number), integerText(static_cast<std::int32_t>(first))};
        });
    }
}

}  // namespace

void checkGroupLine(Findings& findings, const CheckedLine& line, GroupLinesByNumber& groups)
{
    const std::vector<std::string_view> fields = splitFields(field(line.bytes, ';', 1));
    const std::size_t semicolon = line.bytes.find(';');
    const std::size_t second = semicolon == std::string_view::npos ? semicolon : line.bytes.find(';', semicolon + 1);
    if (second != std::string_view::npos) {
        findings.add(Rule::NameSemicolon, line.placeOf(line.bytes.data() + second), std::nullopt,
            [&] { return std::array{line.quoted(findings.language(), line.bytes.substr(second))}; });
    }
    if (checkNumber(findings, line, std::nullopt, fields.front(), groupKind) == NumberState::Sound)
        checkGroupNumber(findings, line, fields.front(), groups);
    if (fields.size() < 2)
        reportFieldCount(findings, line, std::nullopt, fields, fields.size(), 2);
    else
        checkParticles(findings, line, std::nullopt, fields, 1);
}

CheckedPoint* DustCheck::sourceOf(const CheckedLine& line, std::optional<std::int32_t> number)
{
    CheckedPoint* const point = number ? m_points.find(*number) : nullptr;
    if (point == nullptr) {
        m_findings.add(Rule::OrphanDust, line.place(), number,
            [&] { return std::array{line.quoted(m_findings.language(), trimBlanks(field(line.bytes, ',', 1)))}; });
        return nullptr;
    }
    if (point->dustLine != 0) {
        m_findings.add(Rule::SecondDust, line.place(), number,
            [&] { return std::array{integerText(static_cast<std::int32_t>(point->dustLine))}; });
        return nullptr;
    }
    point->dustLine = line.number;
    return point;
}

void DustCheck::take(const CheckedLine& line)
{
    const std::string_view numberField = field(line.bytes, ',', 1);
    std::optional<std::int32_t> number;
    if (isNineDigits(numberField)) {
        std::string_view digits = numberField;
        number = PlainNumber::take(digits).integer();
    } else {
        number = integerOf(numberField);
        if (!checkRecordNumber(m_findings, line, number, numberField))
            return;
    }
    CheckedPoint* const point = sourceOf(line, number);
    const SourceType* const type = point == nullptr ? nullptr : sourceTypeOf(point->typeId);
    if (type == nullptr)
        return;
    const std::string_view behind = line.bytes.substr(std::min(numberField.size() + 1, line.bytes.size()));
    if (type->hasDust) {
        checkWidth(line, *number, numberField);
        checkDescription(line, *number, numberField, behind);
    } else if (!behind.empty()) {
        m_findings.add(Rule::DustDropped, line.placeOf(behind.data()), number,
            [&] { return std::array{line.quoted(m_findings.language(), behind)}; });
    }
    const bool isAsSaved = isNineDigits(numberField) && (type->hasDust || line.bytes.size() == numberWidth);
    if (!isAsSaved)
        checkSavedForm(line, *number, *type);
}

void DustCheck::checkSavedForm(const CheckedLine& line, std::int32_t number, const SourceType& type)
{
    std::string saved = integerText(number, Pattern::SourceNumber);
    if (type.hasDust) {
        saved += ',';
        saved += line.bytes.substr(std::min(numberWidth + 1, line.bytes.size()));
    }
    checkForm(m_findings, line, number, saved);
}

void DustCheck::checkWidth(const CheckedLine& line, std::int32_t number, std::string_view numberField)
{
    if (isNineDigits(numberField))
        return;
    m_findings.add(Rule::NumberWidth, line.place(), number, [&] {
        const std::string_view read = line.bytes.substr(std::min(numberWidth + 1, line.bytes.size()));
        const std::string nine = integerText(number, Pattern::SourceNumber);
        return std::array{line.quoted(m_findings.language(), numberField),
            m_findings.text("popis prachu se přečte jako ", "the dust description is read as ")
                + line.quoted(m_findings.language(), read)
                + (isNineDigits(nine) ? m_findings.text(", napište číslo jako ", ", write the number as ") + nine
                                      : m_findings.text(", zdroj přečíslujte", ", renumber the source"))};
    });
}

void DustCheck::checkDescription(
    const CheckedLine& line, std::int32_t number, std::string_view numberField, std::string_view description)
{
    std::int32_t group = 0;
    if (isSoundDescription(description, group) && (group == 0 || isKnown(group)))
        return;
    std::vector<std::string_view> fields = splitFields(description);
    constexpr std::size_t fewestFields = 2;
    if (fields.size() < fewestFields) {
        // The number is a field, and an empty description is none.
        if (description.empty())
            fields.front() = numberField;
        reportFieldCount(m_findings, line, number, fields, description.empty() ? 1 : 2, 1 + fewestFields);
        return;
    }
    joinDensity(line, number, fields);
    checkNumber(m_findings, line, number, fields[0], densityKind);
    if (checkNumber(m_findings, line, number, fields[1], groupKind) != NumberState::Sound)
        return;
    group = roundedOf(fields[1]).value_or(0);
    constexpr std::size_t countAt = 2;
    if (group != 0)
        checkReference(line, number, fields, group);
    else if (fields.size() > countAt)
        checkParticles(m_findings, line, number, fields, countAt);
    else
        reportFieldCount(m_findings, line, number, fields, 1 + fields.size(), 1 + countAt + 1);
}

/// Whether the fields behind a density can be what they are to be: a group alone, or 0 and a list of particles.
bool DustCheck::isPlausible(const std::vector<std::string_view>& fields, std::size_t groupAt) const
{
    const std::size_t behind = fields.size() - groupAt - 1;
    const std::int32_t group = roundedOf(fields[groupAt]).value_or(0);
    if (group != 0)
        return behind == 0 && m_groups != nullptr && isKnown(group);
    if (behind == 0)
        return false;
    const auto count = static_cast<std::size_t>(std::max(roundedOf(fields[groupAt + 1]).value_or(0), 0));
    return behind - 1 == 2 * count;
}

/// A density with a decimal comma, when the record makes sense with it and not without.
void DustCheck::joinDensity(const CheckedLine& line, std::int32_t number, std::vector<std::string_view>& fields)
{
    if (fields.size() < 3 || !canBeTorn(fields[0], fields[1]) || isPlausible(fields, 1) || !isPlausible(fields, 2))
        return;
    reportDecimalComma(m_findings, line, number, fields, 0);
    fields[1] = joinedFields(fields[0], fields[1]);
    fields.erase(fields.begin());
}

void DustCheck::checkReference(
    const CheckedLine& line, std::int32_t number, const std::vector<std::string_view>& fields, std::int32_t group)
{
    if (!isKnown(group)) {
        m_findings.add(Rule::GroupUnknown, line.placeOf(trimBlanks(fields[1]).data()), number,
            [&] { return std::array{integerText(group)}; });
    }
    constexpr std::size_t withReference = 2;
    if (fields.size() > withReference)
        reportFieldCount(m_findings, line, number, fields, 1 + fields.size(), 1 + withReference);
}

}  // namespace korvex
