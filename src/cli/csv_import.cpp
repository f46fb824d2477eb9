#include "csv_import.h"

#include "arithmetic_fault.h"
#include "blanks.h"
#include "check_limits.h"
#include "checked_line.h"
#include "code_page.h"
#include "csv_export.h"
#include "csv_number.h"
#include "geometry.h"
#include "inventory.h"
#include "number_text.h"
#include "source_columns.h"
#include "utf8_text.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdint>
#include <optional>
#include <unordered_map>

namespace korvex {

namespace {

/// What no name has a use for. A tab is blank space.
bool isControl(char c)
{
    const auto byte = static_cast<unsigned char>(c);
    return (byte < 0x20 && c != '\t') || byte == 0x7F;
}

constexpr std::size_t commentIndex = column::Count;
constexpr std::size_t geometryIndex = column::Count + 1;
constexpr std::size_t knownColumns = column::Count + 2;
constexpr std::size_t indexTs = 3;

std::string_view nameOfColumn(std::size_t index)
{
    if (index == commentIndex)
        return commentColumn;
    return index == geometryIndex ? geometryColumn : sourceColumns[index].name;
}

std::optional<std::size_t> knownColumn(std::string_view name)
{
    if (name == commentColumn)
        return commentIndex;
    if (name == geometryColumn)
        return geometryIndex;
    return columnNamed(name);
}

/// The limits of the quantities that cannot lie outside of them.
const ParameterRange* possibleRange(const SourceType& type, std::size_t parameter)
{
    const auto* const found
        = std::find_if(parameterRanges.begin(), parameterRanges.end(), [&](const ParameterRange& range) {
              return range.typeId == type.TypZdrojeId && static_cast<std::size_t>(range.parameter) == parameter
                  && (range.rule == Rule::RangeAlfa || range.rule == Rule::RangePd);
          });
    return found == parameterRanges.end() ? nullptr : found;
}

CsvFault formFault(CsvFormFault fault)
{
    switch (fault) {
    case CsvFormFault::OpenQuote:
        return CsvFault::OpenQuote;
    case CsvFormFault::TextAfterQuote:
        return CsvFault::TextAfterQuote;
    default:
        return CsvFault::QuoteInside;
    }
}

CsvFault distortionFault(Distortion::Kind kind)
{
    switch (kind) {
    case Distortion::Kind::SharedDescription:
        return CsvFault::SharedDescription;
    case Distortion::Kind::SharedDust:
        return CsvFault::SharedDust;
    case Distortion::Kind::ShiftedDust:
        return CsvFault::ShiftedDust;
    case Distortion::Kind::LineEnd:
        return CsvFault::LineEnd;
    case Distortion::Kind::Semicolon:
        break;
    }
    return CsvFault::Semicolon;
}

class Import {
public:
    Import(std::string_view text, CsvForm form, GeometryColumn geometry)
        : m_reader(text, form.separator), m_geometry(geometry), m_decimalMark(form.separator)
    {
        m_inventory.form = form;
    }

    CsvInventory run()
    {
        readHeader();
        if (m_inventory.findings.empty()) {
            while (m_reader.next(m_fields))
                readRow();
        }
        checkNumbers();
        m_inventory.form.hasDecimalComma = m_decimalMark.isComma();
        std::stable_sort(m_inventory.findings.begin(), m_inventory.findings.end(),
            [](const CsvFinding& a, const CsvFinding& b) { return a.place < b.place; });
        return std::move(m_inventory);
    }

private:
    CsvFinding& find(CsvFault fault, TextPlace place, std::string_view column = {}, std::string_view text = {})
    {
        m_isRowRefused = m_isRowRefused || !isAcceptable(fault);
        return m_inventory.findings.emplace_back(CsvFinding{fault, place, std::string(column), std::string(text), {}});
    }

    CsvFinding& findAt(std::size_t column, CsvFault fault)
    {
        const CsvField& field = fieldOf(column);
        return find(fault, field.place, nameOfColumn(column), field.text);
    }

    bool isWellFormed()
    {
        if (m_reader.fault() == CsvFormFault::None)
            return true;
        find(formFault(m_reader.fault()), m_reader.faultPlace());
        return false;
    }

    void readHeader()
    {
        if (!m_reader.next(m_fields)) {
            find(CsvFault::NoHeader, {});
            return;
        }
        if (!isWellFormed())
            return;
        for (std::size_t i = 0; i < m_fields.size(); ++i) {
            const CsvField& field = m_fields[i];
            const std::optional<std::size_t> index = knownColumn(field.text);
            if (!index)
                find(CsvFault::UnknownColumn, field.place, field.text);
            else if (m_fieldOfColumn[*index])
                find(CsvFault::DoubledColumn, field.place, field.text);
            else
                m_fieldOfColumn[*index] = i;
        }
        for (std::size_t i = 0; i < column::Count; ++i) {
            if (!m_fieldOfColumn[i] && i != column::Dust)
                find(CsvFault::MissingColumn, m_fields.front().place, nameOfColumn(i));
        }
        m_fieldCount = m_fields.size();
        m_inventory.hasDust = has(column::Dust);
    }

    [[nodiscard]] bool has(std::size_t column) const { return m_fieldOfColumn[column].has_value(); }
    [[nodiscard]] const CsvField& fieldOf(std::size_t column) const { return m_fields[*m_fieldOfColumn[column]]; }

    void readRow()
    {
        if (!isWellFormed())
            return;
        if (m_fields.size() != m_fieldCount) {
            CsvFinding& finding = find(CsvFault::FieldCount, m_fields.front().place);
            finding.expected = m_fieldCount;
            finding.count = m_fields.size();
            return;
        }
        m_isRowRefused = false;
        readComment();
        const SourceType* const type = readType();
        if (type == nullptr)
            return;
        SourceValues values;
        values.number = integerOf(column::Number);
        values.name = textOf(column::Name);
        values.x = integerOf(column::X);
        values.y = integerOf(column::Y);
        values.altitude = integerOf(column::Altitude);
        values.group = integerOf(column::Group);
        values.cluster = integerOf(column::Cluster);
        readParameters(*type, values);
        values.dust = readDust(*type);
        if (!m_isRowRefused)
            append(*type, values);
    }

    void append(const SourceType& type, const SourceValues& values)
    {
        cZdroje source(type);
        source.renumber(values.number);
        source.values(values);
        if (has(geometryIndex) && m_geometry == GeometryColumn::Check) {
            const std::string& written = fieldOf(geometryIndex).text;
            if (!written.empty() && written != wellKnownText(source))
                findAt(geometryIndex, CsvFault::GeometryDiffers);
        }
        m_inventory.set.append(std::move(source));
        m_numberPlaces.push_back(fieldOf(column::Number).place);
    }

    void readComment()
    {
        if (!has(commentIndex) || fieldOf(commentIndex).text.empty())
            return;
        const std::string comment = textOf(commentIndex);
        if (trimBlanks(comment) != comment)
            findAt(commentIndex, CsvFault::CommentBlanks);
        else if (!m_inventory.comment.empty() && m_inventory.comment != comment)
            findAt(commentIndex, CsvFault::CommentDiffers);
        m_inventory.comment = comment;
    }

    const SourceType* readType()
    {
        const std::string& text = fieldOf(column::Type).text;
        const SourceType* type = nullptr;
        if (text.size() == 1 && isWholeNumber(text))
            type = sourceTypeOf(text.front() - '0');
        if (type == nullptr)
            findAt(column::Type, CsvFault::UnknownType);
        return type;
    }

    std::int32_t integerOf(std::size_t column)
    {
        const std::string& text = fieldOf(column).text;
        if (!isWholeNumber(text)) {
            findNoNumber(column, CsvFault::NotInteger);
            return 0;
        }
        try {
            return readInteger(text);
        } catch (const ArithmeticFault&) {
            findAt(column, CsvFault::OutOfRange);
            return 0;
        }
    }

    void findNoNumber(std::size_t column, CsvFault fault)
    {
        const std::string& text = fieldOf(column).text;
        if (text.empty())
            findAt(column, CsvFault::Empty);
        else
            findAt(column, hasThousandsSeparators(text) ? CsvFault::ThousandsSeparators : fault);
    }

    float realOf(std::size_t column)
    {
        switch (m_decimalMark.take(fieldOf(column).text, m_real)) {
        case DecimalMark::Form::None:
            findNoNumber(column, CsvFault::NotReal);
            return 0.0F;
        case DecimalMark::Form::OtherMark:
            findAt(column, m_inventory.form.separator == ',' ? CsvFault::NotReal : CsvFault::OtherDecimalMark);
            return 0.0F;
        case DecimalMark::Form::Real:
            break;
        }
        try {
            const float value = readSingle(m_real);
            if (std::optional<std::string> rounded = roundedInFile(m_real, value))
                findAt(column, CsvFault::Rounded).detail = std::move(*rounded);
            return value;
        } catch (const ArithmeticFault&) {
            findAt(column, CsvFault::OutOfRange);
            return 0.0F;
        }
    }

    float parameterOf(const SourceType& type, std::size_t parameter, std::size_t column)
    {
        const float value = realOf(column);
        const ParameterRange* const range = possibleRange(type, parameter);
        if (range != nullptr && (value < range->low || value > range->high))
            findAt(column, CsvFault::UnusualValue).detail = singleText(range->low) + "–" + singleText(range->high);
        return value;
    }

    std::string textOf(std::size_t column)
    {
        const std::string& text = fieldOf(column).text;
        m_encoded.clear();
        if (appendCodePage(m_encoded, text) > 0)
            findAt(column, CsvFault::NotInCodePage);
        if (text.find('\n') != std::string::npos)
            findAt(column, CsvFault::LineEnd);
        else if (std::any_of(text.begin(), text.end(), isControl))
            findAt(column, CsvFault::ControlCharacter);
        if (column == column::Name && text.find(';') != std::string::npos)
            findAt(column, CsvFault::Semicolon);
        return text;
    }

    void readParameters(const SourceType& type, SourceValues& values)
    {
        const auto count = static_cast<std::size_t>(type.parameterCount);
        const bool isArea = type.TypZdrojeId == cPlosnyZdroj.TypZdrojeId;
        std::array<bool, column::Count> ofType{};
        for (std::size_t i = 0; i < count; ++i) {
            // Which column the fourth one of an area stands in shows only when the others are known.
            if (isArea && i == indexTs)
                continue;
            const std::size_t column = columnOfParameter(type, i, values.parameters);
            ofType[column] = true;
            values.parameters[i] = parameterOf(type, i, column);
        }
        if (isArea) {
            ofType[column::Temperature] = true;
            ofType[column::PlumeRise] = true;
            readTemperatureOrRise(values);
        }
        for (std::size_t i = column::Emission; i < column::Dust; ++i) {
            if (!ofType[i] && !fieldOf(i).text.empty())
                findAt(i, CsvFault::NotOfType);
        }
    }

    void readTemperatureOrRise(SourceValues& values)
    {
        const std::size_t given = columnOfParameter(cPlosnyZdroj, indexTs, values.parameters);
        const std::size_t other = given == column::PlumeRise ? column::Temperature : column::PlumeRise;
        if (!fieldOf(other).text.empty())
            findAt(other, CsvFault::TemperatureOfPlume);
        else
            values.parameters[indexTs] = realOf(given);
    }

    std::string readDust(const SourceType& type)
    {
        if (!has(column::Dust))
            return std::string(SourceTexts::newDust);
        if (type.hasDust) {
            const std::string& text = fieldOf(column::Dust).text;
            if (text.find('\n') == std::string::npos && !isDustText(text))
                findAt(column::Dust, CsvFault::UnusualDust);
            return textOf(column::Dust);
        }
        if (!fieldOf(column::Dust).text.empty())
            findAt(column::Dust, CsvFault::NotOfType);
        return std::string(SourceTexts::newDust);
    }

    /// Two sources of one number share their records: what the second would lose. And what a wide number would shift.
    void checkNumbers()
    {
        const std::vector<Distortion> distortions = distortionsBySaving(m_inventory.set, m_inventory.hasDust);
        std::vector<bool> isReported(m_numberPlaces.size());
        for (const Distortion& distortion : distortions) {
            findNumber(distortion.position, distortionFault(distortion.kind));
            isReported[distortion.position - 1] = distortion.kind != Distortion::Kind::ShiftedDust;
        }
        std::unordered_map<std::int32_t, std::size_t> firstLine;
        for (std::size_t position = 1; position <= m_numberPlaces.size(); ++position) {
            const std::size_t line = m_numberPlaces[position - 1].line;
            const auto [first, isNew] = firstLine.try_emplace(m_inventory.set.at(position).ICZ(), line);
            if (!isNew && !isReported[position - 1])
                findNumber(position, CsvFault::DoubledNumber).expected = first->second;
        }
    }

    CsvFinding& findNumber(std::size_t position, CsvFault fault)
    {
        return find(fault, m_numberPlaces[position - 1], nameOfColumn(column::Number),
            integerText(m_inventory.set.at(position).ICZ()));
    }

    CsvReader m_reader;
    GeometryColumn m_geometry;
    DecimalMark m_decimalMark;
    CsvInventory m_inventory;
    std::vector<CsvField> m_fields;
    std::size_t m_fieldCount = 0;
    std::array<std::optional<std::size_t>, knownColumns> m_fieldOfColumn{};
    std::vector<TextPlace> m_numberPlaces;  // of each source
    bool m_isRowRefused = false;
    std::string m_encoded;
    std::string m_real;
};

/// Of bytes that are no UTF-8: whether most of what is beyond ASCII is, so that a few damaged bytes spoil it. Text of
/// the code page has hardly a letter that could be taken for one of UTF-8.
bool isDamagedUtf8(std::string_view bytes)
{
    std::size_t sound = 0;
    std::size_t unsound = 0;
    for (;;) {
        bytes.remove_prefix(asciiLength(bytes));
        if (bytes.empty())
            return sound > unsound;
        const std::size_t length = utf8CharacterLength(bytes);
        ++(length > 0 ? sound : unsound);
        bytes.remove_prefix(std::max<std::size_t>(length, 1));
    }
}

bool beginsWithByteOrderMark(std::string_view bytes)
{
    return bytes.starts_with("\xEF\xBB\xBF") || bytes.starts_with("\xFF\xFE") || bytes.starts_with("\xFE\xFF");
}

}  // namespace

bool isAcceptable(CsvFault fault)
{
    switch (fault) {
    case CsvFault::UnusualValue:
    case CsvFault::UnusualDust:
    case CsvFault::ControlCharacter:
    case CsvFault::Rounded:
    case CsvFault::DoubledNumber:
    case CsvFault::SharedDescription:
    case CsvFault::SharedDust:
    case CsvFault::ShiftedDust:
        return true;
    default:
        return false;
    }
}

CsvInventory readCsv(std::string_view bytes, GeometryColumn geometry)
{
    CsvForm form;
    if (isUtf8(bytes)) {
        form.separator = separatorOf(bytes);
        return Import(bytes, form, geometry).run();
    }
    if (beginsWithByteOrderMark(bytes) || isDamagedUtf8(bytes)) {
        CsvInventory refused;
        refused.findings.push_back({CsvFault::Encoding, {}, {}, {}, {}});
        return refused;
    }
    form.encoding = CsvForm::Encoding::CodePage;
    const std::string decoded = decodeCodePage(bytes);
    form.separator = separatorOf(decoded);
    return Import(decoded, form, geometry).run();
}

}  // namespace korvex
