#include "message.h"

#include "code_page.h"

#include <cstddef>

namespace korvex {

void appendFilled(std::string& out, std::string_view pattern, std::span<const std::string_view> values)
{
    for (;;) {
        const std::size_t place = pattern.find('{');
        out += pattern.substr(0, place);
        if (place == std::string_view::npos)
            return;
        pattern.remove_prefix(place);
        const bool isPlace = pattern.size() >= 3 && pattern[2] == '}';
        const auto index = isPlace ? static_cast<std::size_t>(pattern[1] - '0') : values.size();
        out += index < values.size() ? values[index] : pattern.substr(0, 1);
        pattern.remove_prefix(index < values.size() ? 3 : 1);
    }
}

std::string filled(std::string_view pattern, const std::vector<std::string>& values)
{
    std::string out;
    appendFilled(out, pattern, std::vector<std::string_view>(values.begin(), values.end()));
    return out;
}

std::string printable(std::string_view utf8)
{
    constexpr std::string_view digits = "0123456789ABCDEF";
    std::string out;
    out.reserve(utf8.size());
    for (std::size_t i = 0; i < utf8.size(); ++i) {
        // The controls from 80 to 9F are of two bytes, and obeyed as well.
        const bool isHigh = utf8[i] == '\xC2' && i + 1 < utf8.size() && (static_cast<unsigned char>(utf8[i + 1]) & 0xE0U) == 0x80U;
        const auto byte = static_cast<unsigned char>(utf8[isHigh ? ++i : i]);
        if (isHigh || byte < ' ' || byte == 0x7F)
            out += {'\\', 'x', digits[byte >> 4U], digits[byte & 15U]};
        else
            out += utf8[i];
    }
    return out;
}

std::string quotedText(Language language, std::string_view utf8)
{
    constexpr std::size_t shown = 40;
    const std::string_view rest = utf8.size() > shown ? behindCharacters(utf8, shown) : std::string_view();
    std::string out = text(language, "„", "\"");
    out += printable(utf8.substr(0, utf8.size() - rest.size()));
    if (!rest.empty())
        out += "…";
    return out + text(language, "“", "\"");
}

}  // namespace korvex
