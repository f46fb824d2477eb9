#include "message.h"

#include "code_page.h"

#include <algorithm>
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

std::string quotedText(Language language, std::string_view utf8)
{
    constexpr std::size_t shown = 40;
    const std::string_view rest = utf8.size() > shown ? behindCharacters(utf8, shown) : std::string_view();
    std::string out = text(language, "„", "\"");
    const std::size_t begin = out.size();
    out += utf8.substr(0, utf8.size() - rest.size());
    std::replace_if(
        out.begin() + static_cast<std::ptrdiff_t>(begin), out.end(),
        [](char c) { return static_cast<unsigned char>(c) < ' '; }, '?');
    if (!rest.empty())
        out += "…";
    return out + text(language, "“", "\"");
}

}  // namespace korvex
