#include "utf8_text.h"

#include "code_page.h"

#include <algorithm>
#include <string>

namespace korvex {

namespace {

/// What the code page has at a byte.
enum class Look { Capital, Small, Digit, Blank, Other };

Look lookOf(char character)
{
    constexpr std::string_view capitals = "\x8A\x8C\x8D\x8E\x8F\xA3\xA5\xAA\xAF\xBC";
    constexpr std::string_view small = "\x9A\x9C\x9D\x9E\x9F\xB3\xB9\xBA\xBE\xBF";
    const auto byte = static_cast<unsigned char>(character);
    if ((byte >= 'A' && byte <= 'Z') || (byte >= 0xC0 && byte <= 0xDE && byte != 0xD7)
        || capitals.find(character) != std::string_view::npos)
        return Look::Capital;
    if ((byte >= 'a' && byte <= 'z') || (byte >= 0xDF && byte <= 0xFE && byte != 0xF7)
        || small.find(character) != std::string_view::npos)
        return Look::Small;
    if (byte >= '0' && byte <= '9')
        return Look::Digit;
    return character == ' ' ? Look::Blank : Look::Other;
}

/// The first byte of an accented letter, of a sign such as °, or of a dash or a quotation mark.
bool isLead(char byte)
{
    const auto value = static_cast<unsigned char>(byte);
    return (value >= 0xC2 && value <= 0xC5) || value == 0xE2;
}

/// Whether two bytes that make a character in UTF-8 stand where no word of the code page has them. The first one is a
/// capital there (Â, Ă, Ä, Ĺ).
bool isOddPair(std::string_view line, std::size_t at)
{
    const Look before = at == 0 ? Look::Blank : lookOf(line[at - 1]);
    const Look second = lookOf(line[at + 1]);
    const Look behind = at + 2 < line.size() ? lookOf(line[at + 2]) : Look::Blank;
    const bool isInWord = before == Look::Small || behind == Look::Small;
    switch (second) {
    case Look::Small:
        return true;
    case Look::Capital:
        return isInWord || before != Look::Capital;  // a word in capitals, such as PAMÄŤ
    default:
        break;
    }
    // The signs of UTF-8 (°, §) come as such a pair too, and stand apart.
    const bool isSign = line[at] == '\xC2';
    return isInWord || behind == Look::Capital || (isSign && (before == Look::Digit || before == Look::Blank));
}

}  // namespace

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

Utf8Piece findUtf8Piece(std::string_view line)
{
    for (std::size_t at = asciiLength(line); at + 1 < line.size(); ++at) {
        if (!isLead(line[at]) || !isUtf8Continuation(line[at + 1]))
            continue;
        const std::size_t length = utf8CharacterLength(line.substr(at));
        std::string encoded;
        if (length == 0 || appendCodePage(encoded, line.substr(at, length)) != 0)
            continue;
        // Three bytes are a dash, a quotation mark or the like: "â€" is no text in any language.
        if (length > 2 || isOddPair(line, at))
            return {at, length};
    }
    return {};
}

}  // namespace korvex
