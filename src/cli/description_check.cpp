#include "description_check.h"

#include "blanks.h"
#include "fields.h"
#include "message.h"
#include "physics_check.h"
#include "plain_number.h"
#include "source_type.h"

#include <algorithm>
#include <array>
#include <string>
#include <vector>

namespace korvex {

namespace {

constexpr std::size_t fieldCount = 10;
constexpr FieldKind numberKind{"číslo zdroje", "source number", Pattern::SourceNumber};
constexpr FieldKind keptNumberKind{"číslo zdroje", "source number", Pattern::SourceNumber, FieldKind::Saved::AsRead};
/// Not read, and written as 0.
constexpr FieldKind closingKind{"poslední pole komína", "last field of a stack", Pattern::Plain};

using Symbols = std::array<const char*, fieldCount - 1>;
constexpr Symbols stackSymbols{"M", "H", "Vs", "ts", "d", "w0", "Alfa", "Pd", ""};
constexpr Symbols areaSymbols{"ME", "H", "Vs", "ts/Delta h", "d", "w0", "Alfa", "Pd", "Y0"};
constexpr Symbols roadSymbols{"ML", "X1el", "Y1el", "X2el", "Y2el", "X0el", "Z0el", "Alfa", "Pd"};

const Symbols& symbolsOf(const SourceType& type)
{
    return type.hasDust ? stackSymbols : type.TypZdrojeId == cPlosnyZdroj.TypZdrojeId ? areaSymbols : roadSymbols;
}

FieldKind parameterKind(const char* symbol)
{
    return {symbol, symbol, std::nullopt};
}

void checkClosingField(Findings& findings, const CheckedLine& line, std::int32_t number, std::string_view closing)
{
    const std::string_view shown = trimBlanks(closing);
    if (shown == "0")
        return;
    findings.add(Rule::Rewritten, line.placeOf(shown.empty() ? closing.data() : shown.data()), number, [&] {
        return std::vector{findings.text(closingKind.czech, closingKind.english),
            quotedText(findings.language(), line.decoded(shown)), std::string("0")};
    });
}

}  // namespace

CheckedPoint* DescriptionCheck::sourceOf(const CheckedLine& line, std::optional<std::int32_t> number)
{
    CheckedPoint* const point = number ? m_points.find(*number) : nullptr;
    if (point == nullptr) {
        m_findings.add(Rule::OrphanDescription, line.place(), number, [&] {
            return std::vector{quotedText(m_findings.language(), line.decoded(trimBlanks(field(line.bytes, ',', 1))))};
        });
        return nullptr;
    }
    if (point->descriptionLine != 0) {
        m_findings.add(Rule::SecondDescription, line.place(), number,
            [&] { return std::vector{integerText(static_cast<std::int32_t>(point->descriptionLine))}; });
        return nullptr;
    }
    point->descriptionLine = static_cast<std::uint32_t>(line.number);
    return point;
}

bool DescriptionCheck::isAsSaved(
    std::string_view record, std::int32_t number, const SourceType& type, const PlainParameters& parameters)
{
    std::array<char, fieldCount*(widestNumber + 2)> buffer;
    char* end = putInteger(buffer.data(), number, Pattern::SourceNumber);
    for (std::size_t i = 0; i < static_cast<std::size_t>(type.parameterCount); ++i) {
        *end++ = ',';
        *end++ = ' ';
        end = m_texts.put(end, parameters[i]);
    }
    if (type.hasDust)
        end = std::copy_n(", 0", 3, end);
    return record == std::string_view(buffer.data(), static_cast<std::size_t>(end - buffer.data()));
}

void DescriptionCheck::take(const CheckedLine& line)
{
    std::string_view rest = line.bytes;
    const PlainNumber plainNumber = PlainNumber::take(rest);
    const bool isPlain = plainNumber.isInteger() && !rest.empty() && rest.front() == ',';
    CheckedPoint* const point = isPlain ? m_points.find(plainNumber.integer()) : nullptr;
    const SourceType* const type = point == nullptr ? nullptr : sourceTypeOf(point->typeId);
    PlainParameters parameters;
    if (type == nullptr || point->descriptionLine != 0
        || !readPlainParameters(line.bytes, type->parameterCount, parameters)
        || !isAsSaved(line.bytes, point->number, *type, parameters)) {
        checkOddRecord(line);
        return;
    }
    point->descriptionLine = static_cast<std::uint32_t>(line.number);
    checkPhysics(m_findings, {line, *point, *type, parameters, m_pressure});
}

/// A record that is not just as the program writes it, or that has no source.
void DescriptionCheck::checkOddRecord(const CheckedLine& line)
{
    std::vector<std::string_view> fields = splitFields(line.bytes);
    const std::optional<std::int32_t> number = integerOf(fields.front());
    // A number such as 12.4 is not saved as 12: it belongs to no source.
    const FieldKind& kind = number ? numberKind : keptNumberKind;
    if (checkNumber(m_findings, line, number, fields.front(), kind) == NumberState::OutOfRange)
        return;
    CheckedPoint* const point = sourceOf(line, number);
    if (point == nullptr)
        return;
    joinDecimalCommas(m_findings, line, number, fields, fieldCount);
    if (fields.size() != fieldCount)
        reportFieldCount(m_findings, line, number, fields.size(), fieldCount);
    const SourceType* const type = sourceTypeOf(point->typeId);
    if (type == nullptr)
        return;
    const auto count = static_cast<std::size_t>(type->parameterCount);
    bool isSound = true;
    PlainParameters parameters{};
    for (std::size_t i = 0; i < std::min(count, fields.size() - 1); ++i) {
        const NumberState state
            = checkNumber(m_findings, line, number, fields[i + 1], parameterKind(symbolsOf(*type)[i]));
        isSound = isSound && state == NumberState::Sound;
        parameters[i] = state == NumberState::OutOfRange ? 0.0F : readSingle(fields[i + 1]);
    }
    if (type->hasDust && fields.size() == fieldCount)
        checkClosingField(m_findings, line, *number, fields[fieldCount - 1]);
    // Of a record with unreadable, missing or shifted fields the values mean nothing.
    if (isSound && fields.size() == fieldCount)
        checkPhysics(m_findings, {line, *point, *type, parameters, m_pressure});
}

}  // namespace korvex
