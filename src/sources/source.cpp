#include "source.h"

#include "fields.h"
#include "number_text.h"
#include "record_fields.h"
#include "source_editor.h"

#include <stdexcept>

namespace korvex {

namespace {

/// The number fields of a record, gathered before they join the text at once.
class NumberFields {
public:
    void add(std::int32_t value, Pattern pattern = Pattern::Plain)
    {
        separate();
        m_end = putInteger(m_end, value, pattern);
    }
    void add(float value, SingleTexts* texts)
    {
        separate();
        m_end = texts != nullptr ? texts->put(m_end, value) : putSingle(m_end, value);
    }
    [[nodiscard]] std::string_view text() const
    {
        return {m_buffer.data(), static_cast<std::size_t>(m_end - m_buffer.data())};
    }

private:
    static constexpr std::size_t mostFields = 10;

    void separate()
    {
        if (m_end == m_buffer.data())
            return;
        *m_end++ = ',';
        *m_end++ = ' ';
    }

    std::array<char, mostFields*(widestNumber + 2)> m_buffer;
    char* m_end = m_buffer.data();
};

}  // namespace

cZdroje::cZdroje(const SourceType& type) : m_typeId(static_cast<std::int8_t>(type.TypZdrojeId)) { }

cZdroje::cZdroje(const SourceType& type, const PlainPoints& points, const PlainParameters& parameters,
    std::optional<std::string_view> dust)
    : m_texts(points.name, dust)
    , m_number(points.number)
    , m_x(points.x)
    , m_y(points.y)
    , m_altitude(points.altitude)
    , m_group(points.group)
    , m_cluster(points.cluster)
    , m_parameters(parameters)
    , m_typeId(static_cast<std::int8_t>(type.TypZdrojeId))
{
}

const SourceType& cZdroje::type() const
{
    switch (m_typeId) {
    case cPlosnyZdroj.TypZdrojeId:
        return cPlosnyZdroj;
    case cLiniovyZdroj.TypZdrojeId:
        return cLiniovyZdroj;
    default:
        return cBodovyZdroj;
    }
}

void cZdroje::ICZ(std::int32_t number)
{
    m_number = number;
    std::string name(TypZdroje());
    name += ' ';
    name += integerText(number);
    m_texts.name(name);
}

std::string cZdroje::LineSource() const
{
    std::string record;
    appendLineSource(record);
    return record;
}

void cZdroje::appendLineSource(std::string& out) const
{
    NumberFields fields;
    fields.add(m_number, Pattern::SourceNumber);
    fields.add(m_x, Pattern::Coordinate);
    fields.add(m_y, Pattern::Coordinate);
    fields.add(m_altitude, Pattern::Altitude);
    fields.add(m_typeId);
    fields.add(m_group);
    fields.add(m_cluster);
    out += fields.text();
    out += " ;";
    out += NazevZdroje();
}

void cZdroje::LineSource(std::string_view record)
{
    RecordFields fields(record);
    const std::int32_t number = fields.nextInteger();
    const std::int32_t x = fields.nextInteger();
    const std::int32_t y = fields.nextInteger();
    const std::int32_t altitude = fields.nextInteger();
    fields.skip();  // the type code: the source has its type already
    const std::int32_t group = fields.nextInteger();
    // The name stands in the same field; the reader stops at its semicolon.
    const std::int32_t cluster = fields.nextInteger();

    m_number = number;
    m_x = x;
    m_y = y;
    m_altitude = altitude;
    m_group = group;
    m_cluster = cluster;
    m_texts.name(field(record, ';', 2));
}

std::string cZdroje::LineParameters() const
{
    std::string record;
    appendLineParameters(record);
    return record;
}

void cZdroje::appendLineParameters(std::string& out, SingleTexts* texts) const
{
    NumberFields fields;
    fields.add(m_number, Pattern::SourceNumber);
    const auto count = static_cast<std::size_t>(type().parameterCount);
    for (std::size_t i = 0; i < count; ++i)
        fields.add(m_parameters[i], texts);
    if (type().hasDust)
        fields.add(0);
    out += fields.text();
}

void cZdroje::LineParameters(std::string_view record)
{
    RecordFields fields(record);
    fields.skip();  // the number
    std::array<float, mostParameters> parameters{};
    const auto count = static_cast<std::size_t>(type().parameterCount);
    for (std::size_t i = 0; i < count; ++i)
        parameters[i] = fields.nextSingle();
    m_parameters = parameters;
}

std::string cZdroje::LineDust() const
{
    std::string record;
    appendLineDust(record);
    return record;
}

void cZdroje::appendLineDust(std::string& out) const
{
    out += integerText(m_number, Pattern::SourceNumber);
    if (!type().hasDust)
        return;
    out += ',';
    out += m_texts.dust();
}

SourceValues cZdroje::values() const
{
    SourceValues values;
    values.number = m_number;
    values.stack = KOMIN();
    values.name = NazevZdroje();
    values.x = m_x;
    values.y = m_y;
    values.altitude = m_altitude;
    values.group = m_group;
    values.cluster = m_cluster;
    values.parameters = m_parameters;
    values.dust = m_texts.dust();
    return values;
}

void cZdroje::values(const SourceValues& values)
{
    m_texts.name(values.name);
    m_x = values.x;
    m_y = values.y;
    m_altitude = values.altitude;
    m_group = values.group;
    m_cluster = values.cluster;
    const auto count = static_cast<std::size_t>(type().parameterCount);
    for (std::size_t i = 0; i < count; ++i)
        m_parameters[i] = values.parameters[i];
    m_texts.dust(values.dust);
}

void cZdroje::Edit(SourceEditor& editor)
{
    SourceValues edited = values();
    m_editOk = false;
    m_editOk = editor.edit(type(), edited);
    if (m_editOk)
        values(edited);
}

std::size_t cZdroje::parameterIndex(std::int32_t index) const
{
    if (index < 0 || index >= type().parameterCount)
        throw std::out_of_range("Index parametru " + integerText(index) + " je mimo rozsah.");
    return static_cast<std::size_t>(index);
}

float cZdroje::Parameters(std::int32_t index) const
{
    return m_parameters[parameterIndex(index)];
}

void cZdroje::Parameters(std::int32_t index, float value)
{
    m_parameters[parameterIndex(index)] = value;
}

}  // namespace korvex
