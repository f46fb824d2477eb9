#include "message.h"

#include "code_page.h"

#include <cstddef>

namespace korvex {

std::string filled(std::string_view pattern, const std::vector<std::string>& values)
{
    std::string out;
    while (!pattern.empty()) {
        const bool isPlace = pattern.size() >= 3 && pattern[0] == '{' && pattern[2] == '}';
        const auto index = isPlace ? static_cast<std::size_t>(pattern[1] - '0') : values.size();
        if (index < values.size()) {
            out += values[index];
            pattern.remove_prefix(3);
        } else {
            out += pattern.front();
            pattern.remove_prefix(1);
        }
    }
    return out;
}

std::string quotedText(Language language, std::string_view utf8)
{
    constexpr std::size_t shown = 40;
    const std::string_view rest = behindCharacters(utf8, shown);
    std::string out = text(language, "„", "\"");
    for (const char c : utf8.substr(0, utf8.size() - rest.size()))
        out += static_cast<unsigned char>(c) < ' ' ? '?' : c;
    if (!rest.empty())
        out += "…";
    return out + text(language, "“", "\"");
}

}  // namespace korvex
