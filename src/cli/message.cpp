#include "message.h"

#include "code_page.h"

#include <algorithm>
#include <cstddef>

namespace korvex {

namespace {

bool isEscaped(char c)
{
    // The controls from 80 to 9F are of two bytes, the first one C2.
    return static_cast<unsigned char>(c) < ' ' || c == '\x7F' || c == '\xC2';
}

void appendPrintable(std::string& out, std::string_view utf8)
{
    constexpr std::string_view digits = "0123456789ABCDEF";
    for (;;) {
        const auto* const odd = std::find_if(utf8.begin(), utf8.end(), isEscaped);
        out.append(utf8.begin(), odd);
        if (odd == utf8.end())
            return;
        utf8.remove_prefix(static_cast<std::size_t>(odd - utf8.begin()));
        const bool isC2 = utf8.front() == '\xC2';
        const bool isHigh = isC2 && utf8.size() > 1 && (static_cast<unsigned char>(utf8[1]) & 0xE0U) == 0x80U;
        const auto byte = static_cast<unsigned char>(utf8[isHigh ? 1 : 0]);
        if (isC2 && !isHigh)
            out += utf8.front();
        else
            out += {'\\', 'x', digits[byte >> 4U], digits[byte & 15U]};
        utf8.remove_prefix(isHigh ? 2 : 1);
    }
}

}  // namespace

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
    std::string out;
    appendPrintable(out, utf8);
    return out;
}

std::string quotedText(Language language, std::string_view utf8)
{
    constexpr std::size_t shown = 40;
    const std::string_view rest = utf8.size() > shown ? behindCharacters(utf8, shown) : std::string_view();
    std::string out = text(language, "„", "\"");
    appendPrintable(out, utf8.substr(0, utf8.size() - rest.size()));
    if (!rest.empty())
        out += "…";
    return out + text(language, "“", "\"");
}

}  // namespace korvex
