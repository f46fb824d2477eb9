// Comma-separated values after RFC 4180: fields with commas, quotes or line ends stand in quotes, quotes are doubled,
// lines end in CR LF. Reading also takes LF alone, a byte order mark, and another separator: spreadsheets of countries
// with a decimal comma write a semicolon.
#pragma once

#include <compare>
#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace korvex {

/// Appends one field, in quotes where it needs them.
void appendCsvField(std::string& out, std::string_view field);

struct TextPlace {
    std::size_t line = 1;    // from 1, as an editor counts them, also within quotes
    std::size_t column = 1;  // from 1, in characters

    friend auto operator<=>(const TextPlace&, const TextPlace&) = default;
};

struct CsvField {
    std::string text;
    TextPlace place;  // of its first character, a quote included
};

enum class CsvFormFault {
    None,
    OpenQuote,       // a quote that is never closed
    TextAfterQuote,  // something other than a separator or a line end behind the closing quote
    QuoteInside,     // a quote inside a field that does not begin with one
};

/// The separator of a table: the first comma, semicolon or tabulator of its header, for no name of a column has one.
[[nodiscard]] char separatorOf(std::string_view text);

/// Goes through a text record by record.
class CsvReader {
public:
    /// text: has to live as long as this.
    explicit CsvReader(std::string_view text, char separator = ',');

    /// False at the end of the text. Empty lines are passed over.
    [[nodiscard]] bool next(std::vector<CsvField>& fields);
    /// What is wrong with the record just read, and where; the reader goes on behind it as well as it can.
    [[nodiscard]] CsvFormFault fault() const { return m_fault; }
    [[nodiscard]] TextPlace faultPlace() const { return m_faultPlace; }

private:
    void readField(CsvField& field);
    void readQuoted(CsvField& field);
    void readPlain(CsvField& field);
    [[nodiscard]] bool atFieldEnd() const { return m_text[m_at] == m_separator || atLineEnd(); }
    [[nodiscard]] bool atLineEnd() const;
    void takeLineEnd();
    void advance();
    void note(CsvFormFault fault, TextPlace place);

    std::string_view m_text;
    char m_separator;
    std::size_t m_at = 0;
    TextPlace m_place;
    CsvFormFault m_fault = CsvFormFault::None;
    TextPlace m_faultPlace;
};

}  // namespace korvex
