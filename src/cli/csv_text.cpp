#include "csv_text.h"

namespace korvex {

namespace {

constexpr std::string_view byteOrderMark = "\xEF\xBB\xBF";

std::string_view behindByteOrderMark(std::string_view text)
{
    return text.substr(text.substr(0, byteOrderMark.size()) == byteOrderMark ? byteOrderMark.size() : 0);
}

bool beginsCharacter(char c)
{
    return (static_cast<unsigned char>(c) & 0xC0U) != 0x80U;
}

}  // namespace

void appendCsvField(std::string& out, std::string_view field)
{
    if (field.find_first_of(",\"\r\n") == std::string_view::npos) {
        out += field;
        return;
    }
    out += '"';
    for (const char c : field) {
        if (c == '"')
            out += '"';
        out += c;
    }
    out += '"';
}

char separatorOf(std::string_view text)
{
    bool isQuoted = false;
    bool hasBegun = false;
    for (const char c : behindByteOrderMark(text)) {
        if (c == '"')
            isQuoted = !isQuoted;
        else if (!isQuoted && (c == ',' || c == ';' || c == '\t'))
            return c;
        const bool isLineEnd = c == '\n' || c == '\r';
        if (isLineEnd && hasBegun && !isQuoted)
            break;
        hasBegun = hasBegun || !isLineEnd;
    }
    return ',';
}

CsvReader::CsvReader(std::string_view text, char separator) : m_text(behindByteOrderMark(text)), m_separator(separator)
{
}

bool CsvReader::next(std::vector<CsvField>& fields)
{
    fields.clear();
    m_fault = CsvFormFault::None;
    while (m_at < m_text.size() && atLineEnd())
        takeLineEnd();
    if (m_at == m_text.size())
        return false;
    for (;;) {
        readField(fields.emplace_back());
        if (m_at == m_text.size())
            return true;
        if (atLineEnd()) {
            takeLineEnd();
            return true;
        }
        advance();  // the separator
    }
}

void CsvReader::readField(CsvField& field)
{
    field.place = m_place;
    if (m_at < m_text.size() && m_text[m_at] == '"')
        readQuoted(field);
    readPlain(field);
}

void CsvReader::readQuoted(CsvField& field)
{
    advance();
    while (m_at < m_text.size()) {
        const char c = m_text[m_at];
        if (c == '"') {
            const bool isDoubled = m_at + 1 < m_text.size() && m_text[m_at + 1] == '"';
            advance();
            if (!isDoubled) {
                if (m_at < m_text.size() && !atFieldEnd())
                    note(CsvFormFault::TextAfterQuote, m_place);
                return;
            }
        }
        field.text += c;
        advance();
    }
    note(CsvFormFault::OpenQuote, field.place);
}

void CsvReader::readPlain(CsvField& field)
{
    while (m_at < m_text.size() && !atFieldEnd()) {
        if (m_text[m_at] == '"')
            note(CsvFormFault::QuoteInside, m_place);
        field.text += m_text[m_at];
        advance();
    }
}

bool CsvReader::atLineEnd() const
{
    return m_text[m_at] == '\n' || (m_text[m_at] == '\r' && m_at + 1 < m_text.size() && m_text[m_at + 1] == '\n');
}

void CsvReader::takeLineEnd()
{
    if (m_text[m_at] == '\r')
        advance();
    advance();
}

void CsvReader::advance()
{
    const char c = m_text[m_at++];
    if (c == '\n')
        m_place = {m_place.line + 1, 1};
    else if (m_at < m_text.size() && beginsCharacter(m_text[m_at]))
        ++m_place.column;
}

void CsvReader::note(CsvFormFault fault, TextPlace place)
{
    if (m_fault != CsvFormFault::None)
        return;
    m_fault = fault;
    m_faultPlace = place;
}

}  // namespace korvex
