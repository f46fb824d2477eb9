// Fields of a record: the text between separators.
#pragma once

#include <cstddef>
#include <string_view>

namespace korvex {

/// Field n (counted from 1) of a text split at every separator; empty where the text has fewer fields.
[[nodiscard]] std::string_view field(std::string_view text, char separator, std::size_t n);

/// The same fields one after the other, in one pass over the text.
class Fields {
public:
    Fields(std::string_view text, char separator) : m_rest(text), m_separator(separator) { }

    /// The next field; empty for good once the text is used up.
    std::string_view next()
    {
        const std::size_t end = m_rest.find(m_separator);
        const std::string_view found = m_rest.substr(0, end);
        m_rest = end == std::string_view::npos ? std::string_view() : m_rest.substr(end + 1);
        return found;
    }

private:
    std::string_view m_rest;
    char m_separator;
};

}  // namespace korvex
