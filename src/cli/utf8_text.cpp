#include "utf8_text.h"

#include "code_page.h"

#include <algorithm>
#include <string>

namespace korvex {

std::size_t utf8CharacterLength(std::string_view bytes)
{
    if (bytes.empty())
        return 0;
    const auto first = static_cast<unsigned char>(bytes.front());
    if (first < 0x80)
        return 1;
    const std::size_t length = first < 0xE0 ? 2 : first < 0xF0 ? 3 : 4;
    if (first < 0xC2 || first > 0xF4 || bytes.size() < length)
        return 0;
    // What a shorter form could hold, the halves of UTF-16 pairs and what lies beyond Unicode are no characters.
    const auto second = static_cast<unsigned char>(bytes[1]);
    if ((first == 0xE0 && second < 0xA0) || (first == 0xED && second >= 0xA0) || (first == 0xF0 && second < 0x90)
        || (first == 0xF4 && second >= 0x90))
        return 0;
    const std::string_view rest = bytes.substr(1, length - 1);
    return std::all_of(rest.begin(), rest.end(), isUtf8Continuation) ? length : 0;
}

bool isUtf8Continuation(char byte)
{
    return (static_cast<unsigned char>(byte) & 0xC0U) == 0x80U;
}

bool isUtf8(std::string_view bytes)
{
    for (;;) {
        bytes.remove_prefix(asciiLength(bytes));
        if (bytes.empty())
            return true;
        const std::size_t length = utf8CharacterLength(bytes);
        if (length == 0)
            return false;
        bytes.remove_prefix(length);
    }
}

bool looksLikeUtf8(std::string_view line)
{
    if (asciiLength(line) == line.size() || !isUtf8(line))
        return false;
    std::string encoded;
    return appendCodePage(encoded, line) == 0;
}

}  // namespace korvex
