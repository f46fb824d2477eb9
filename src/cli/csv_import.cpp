#include "csv_import.h"

#include "arithmetic_fault.h"
#include "blanks.h"
#include "code_page.h"
#include "csv_export.h"
#include "geometry.h"
#include "inventory.h"
#include "number_text.h"
#include "source_columns.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdint>

namespace korvex {

namespace {

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

bool isInteger(std::string_view text)
{
    skipSign(text);
    return !text.empty() && digitsAt(text) == text.size();
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
    return isInteger(text);
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
    Import(std::string_view text, GeometryColumn geometry) : m_reader(text), m_geometry(geometry) { }

    CsvInventory run()
    {
        readHeader();
        if (m_inventory.findings.empty()) {
            while (m_reader.next(m_fields))
                readRow();
        }
        if (m_inventory.findings.empty())
            checkNumbers();
        return std::move(m_inventory);
    }

private:
    void find(CsvFault fault, TextPlace place, std::string_view column = {}, std::string_view text = {})
    {
        m_inventory.findings.push_back({fault, place, std::string(column), std::string(text)});
    }

    void findAt(std::size_t column, CsvFault fault)
    {
        const CsvField& field = fieldOf(column);
        find(fault, field.place, nameOfColumn(column), field.text);
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
            find(CsvFault::FieldCount, m_fields.front().place);
            return;
        }
        const std::size_t findingsBefore = m_inventory.findings.size();
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
        if (m_inventory.findings.size() == findingsBefore)
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
        if (text.size() == 1 && isDigit(text.front()))
            type = sourceTypeOf(text.front() - '0');
        if (type == nullptr)
            findAt(column::Type, CsvFault::UnknownType);
        return type;
    }

    std::int32_t integerOf(std::size_t column)
    {
        const std::string& text = fieldOf(column).text;
        if (!isInteger(text)) {
            findAt(column, text.empty() ? CsvFault::Empty : CsvFault::NotInteger);
            return 0;
        }
        try {
            return readInteger(text);
        } catch (const ArithmeticFault&) {
            findAt(column, CsvFault::OutOfRange);
            return 0;
        }
    }

    float realOf(std::size_t column)
    {
        const std::string& text = fieldOf(column).text;
        if (!isReal(text)) {
            findAt(column, text.empty() ? CsvFault::Empty : CsvFault::NotReal);
            return 0.0F;
        }
        try {
            return readSingle(text);
        } catch (const ArithmeticFault&) {
            findAt(column, CsvFault::OutOfRange);
            return 0.0F;
        }
    }

    std::string textOf(std::size_t column)
    {
        const std::string& text = fieldOf(column).text;
        m_encoded.clear();
        if (appendCodePage(m_encoded, text) > 0)
            findAt(column, CsvFault::NotInCodePage);
        if (text.find('\n') != std::string::npos)
            findAt(column, CsvFault::LineEnd);
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
            values.parameters[i] = realOf(column);
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
        if (type.hasDust)
            return textOf(column::Dust);
        if (!fieldOf(column::Dust).text.empty())
            findAt(column::Dust, CsvFault::NotOfType);
        return std::string(SourceTexts::newDust);
    }

    /// Two sources of one number share their records: what the second would lose. And what a wide number would shift.
    void checkNumbers()
    {
        for (const Distortion& distortion : distortionsBySaving(m_inventory.set, m_inventory.hasDust)) {
            const std::int32_t number = m_inventory.set.at(distortion.position).ICZ();
            find(distortionFault(distortion.kind), m_numberPlaces[distortion.position - 1],
                nameOfColumn(column::Number), integerText(number));
        }
    }

    CsvReader m_reader;
    GeometryColumn m_geometry;
    CsvInventory m_inventory;
    std::vector<CsvField> m_fields;
    std::size_t m_fieldCount = 0;
    std::array<std::optional<std::size_t>, knownColumns> m_fieldOfColumn{};
    std::vector<TextPlace> m_numberPlaces;  // of each source
    std::string m_encoded;
};

}  // namespace

CsvInventory readCsv(std::string_view text, GeometryColumn geometry)
{
    return Import(text, geometry).run();
}

}  // namespace korvex
