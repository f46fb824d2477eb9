#include "description_check.h"

#include "arithmetic_fault.h"
#include "blanks.h"
#include "check_limits.h"
#include "decimal_comma.h"
#include "fields.h"
#include "message.h"
#include "physics_check.h"
#include "plain_number.h"
#include "record_losses.h"
#include "source.h"
#include "source_type.h"

#include <algorithm>
#include <array>
#include <iterator>
#include <string>
#include <vector>

namespace korvex {

namespace {

constexpr std::size_t fieldCount = 10;
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

/// A stack ends with a field that is always 0: with it a record is complete, whatever blanks it lacks.
bool isComplete(const std::vector<std::string_view>& fields, const SourceType* type)
{
    return type != nullptr && type->hasDust && fields.size() == fieldCount && trimBlanks(fields.back()) == "0";
}

const ParameterRange& rangeOf(const SourceType& type, Rule rule)
{
    return *std::find_if(parameterRanges.begin(), parameterRanges.end(),
        [&](const ParameterRange& range) { return range.typeId == type.TypZdrojeId && range.rule == rule; });
}

bool isWithin(const ParameterRange& range, std::string_view field)
{
    try {
        const float value = readSingle(field);
        return value >= range.low && value <= range.high;
    } catch (const ArithmeticFault&) {
        return false;
    }
}

/// Without its last field, and with a value torn by a decimal comma, a record has as many fields as a whole one. Where
/// no blanks tell, Alfa and Pd do, which then stand one field too far. In a road the coordinates beside one another
/// look like torn values as well.
bool isShifted(const std::vector<std::string_view>& fields, const SourceType& type)
{
    if (fields.size() != fieldCount || symbolsOf(type) == roadSymbols)
        return false;
    const ParameterRange& use = rangeOf(type, Rule::RangeAlfa);
    const ParameterRange& hours = rangeOf(type, Rule::RangePd);
    const auto useAt = static_cast<std::size_t>(use.parameter) + 1;
    const auto hoursAt = static_cast<std::size_t>(hours.parameter) + 1;
    return !isWithin(use, fields[useAt]) && isWithin(use, fields[useAt + 1]) && isWithin(hours, fields[hoursAt + 1]);
}

/// Whether a record, from its first comma on, is nothing but nine numbers that a save keeps, with a blank in front of
/// each: of its content there is then nothing to say.
bool isWellFormed(std::string_view rest)
{
    constexpr std::uint64_t mostKept = 9999999;
    for (std::size_t i = 1; i < fieldCount; ++i) {
        if (rest.size() < 2 || rest.front() != ',' || !isBlank(rest[1]))
            return false;
        rest.remove_prefix(1);
        const PlainNumber number = PlainNumber::take(rest);
        if (!number.isSingle() || number.digits > mostKept)
            return false;
    }
    return rest.empty();
}

}  // namespace

CheckedPoint* DescriptionCheck::sourceOf(const CheckedLine& line, std::optional<std::int32_t> number)
{
    CheckedPoint* const point = number ? m_points.find(*number) : nullptr;
    if (point == nullptr) {
        m_findings.add(Rule::OrphanDescription, line.place(), number,
            [&] { return std::array{line.quoted(m_findings.language(), trimBlanks(field(line.bytes, ',', 1)))}; });
        return nullptr;
    }
    if (point->descriptionLine != 0) {
        m_findings.add(Rule::SecondDescription, line.place(), number,
            [&] { return std::array{integerText(static_cast<std::int32_t>(point->descriptionLine))}; });
        return nullptr;
    }
    point->descriptionLine = line.number;
    return point;
}

std::string_view DescriptionCheck::savedRecord(
    std::int32_t number, const SourceType& type, const PlainParameters& parameters)
{
    char* end = putInteger(m_saved.data(), number, Pattern::SourceNumber);
    for (std::size_t i = 0; i < static_cast<std::size_t>(type.parameterCount); ++i) {
        *end++ = ',';
        *end++ = ' ';
        end = m_texts.put(end, parameters[i]);
    }
    if (type.hasDust)
        end = std::copy_n(", 0", 3, end);
    return {m_saved.data(), static_cast<std::size_t>(end - m_saved.data())};
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
        || !readPlainParameters(line.bytes, type->parameterCount, parameters)) {
        checkOddRecord(line);
        return;
    }
    const std::string_view saved = savedRecord(point->number, *type, parameters);
    const bool isAsSaved = line.bytes == saved;
    if (!isAsSaved && !isWellFormed(rest)) {
        checkOddRecord(line);
        return;
    }
    point->descriptionLine = line.number;
    if (!isAsSaved) {
        checkConstant(line, point->number, *type, line.bytes.substr(line.bytes.rfind(',') + 1));
        checkForm(m_findings, line, point->number, saved);
    }
    checkPhysics(m_findings, {line, *point, *type, parameters, m_pressure});
}

/// A record that is not just as the program writes it, or that has no source.
void DescriptionCheck::checkOddRecord(const CheckedLine& line)
{
    std::vector<std::string_view> fields = splitFields(line.bytes);
    const std::optional<std::int32_t> number = integerOf(fields.front());
    if (!checkRecordNumber(m_findings, line, number, fields.front()))
        return;
    CheckedPoint* const point = sourceOf(line, number);
    if (point == nullptr)
        return;
    const SourceType* const type = sourceTypeOf(point->typeId);
    if (!isComplete(fields, type))
        joinDecimalCommas(m_findings, line, number, fields, {fieldCount, fieldCount - 1, widestNumber});
    if (type != nullptr && !isComplete(fields, type) && isShifted(fields, *type))
        joinFirstTorn(line, *number, fields);
    if (fields.size() != fieldCount)
        reportFieldCount(m_findings, line, number, fields, fields.size(), fieldCount);
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
    if (fields.size() == fieldCount)
        checkConstant(line, *number, *type, fields.back());
    checkSavedForm(line, *number, *type);
    // Of a record with unreadable, missing or shifted fields the values mean nothing.
    if (isSound && fields.size() == fieldCount)
        checkPhysics(m_findings, {line, *point, *type, parameters, m_pressure});
}

void DescriptionCheck::joinFirstTorn(
    const CheckedLine& line, std::int32_t number, std::vector<std::string_view>& fields)
{
    const auto torn = std::adjacent_find(fields.begin() + 1, fields.end(), canBeTorn);
    if (torn == fields.end())
        return;
    reportDecimalComma(m_findings, line, number, fields, static_cast<std::size_t>(torn - fields.begin()));
    *torn = joinedFields(*torn, *std::next(torn));
    fields.erase(std::next(torn));
}

void DescriptionCheck::checkConstant(
    const CheckedLine& line, std::int32_t number, const SourceType& type, std::string_view lastField)
{
    const std::string_view shown = trimBlanks(lastField);
    if (!type.hasDust || shown.empty() || isSameNumber(shown, "0"))
        return;
    m_findings.add(Rule::DigitsLost, line.placeOf(shown.data()), number, [&] {
        return std::array{m_findings.text("poslední pole", "the last field"), line.quoted(m_findings.language(), shown),
            std::string("0")};
    });
}

void DescriptionCheck::checkSavedForm(const CheckedLine& line, std::int32_t number, const SourceType& type)
{
    cZdroje source(type);
    try {
        source.LineParameters(line.bytes);
    } catch (const ArithmeticFault&) {
        return;  // reported: the file cannot be loaded, so nothing is saved either
    }
    source.renumber(number);
    checkForm(m_findings, line, number, source.LineParameters());
}

}  // namespace korvex
