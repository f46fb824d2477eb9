#include "code_page.h"

#include <algorithm>
#include <array>
#include <cstdint>
#include <cstring>

namespace korvex {

namespace {

/// The characters of the bytes 80 to FF; all of them lie below U+2123, so three bytes of UTF-8 are enough.
constexpr std::array<std::uint16_t, 128> upperHalf = {
    0x20AC, 0x0081, 0x201A, 0x0083, 0x201E, 0x2026, 0x2020, 0x2021,  // 80
    0x0088, 0x2030, 0x0160, 0x2039, 0x015A, 0x0164, 0x017D, 0x0179,  // 88
    0x0090, 0x2018, 0x2019, 0x201C, 0x201D, 0x2022, 0x2013, 0x2014,  // 90
    0x0098, 0x2122, 0x0161, 0x203A, 0x015B, 0x0165, 0x017E, 0x017A,  // 98
    0x00A0, 0x02C7, 0x02D8, 0x0141, 0x00A4, 0x0104, 0x00A6, 0x00A7,  // A0
    0x00A8, 0x00A9, 0x015E, 0x00AB, 0x00AC, 0x00AD, 0x00AE, 0x017B,  // A8
    0x00B0, 0x00B1, 0x02DB, 0x0142, 0x00B4, 0x00B5, 0x00B6, 0x00B7,  // B0
    0x00B8, 0x0105, 0x015F, 0x00BB, 0x013D, 0x02DD, 0x013E, 0x017C,  // B8
    0x0154, 0x00C1, 0x00C2, 0x0102, 0x00C4, 0x0139, 0x0106, 0x00C7,  // C0
    0x010C, 0x00C9, 0x0118, 0x00CB, 0x011A, 0x00CD, 0x00CE, 0x010E,  // C8
    0x0110, 0x0143, 0x0147, 0x00D3, 0x00D4, 0x0150, 0x00D6, 0x00D7,  // D0
    0x0158, 0x016E, 0x00DA, 0x0170, 0x00DC, 0x00DD, 0x0162, 0x00DF,  // D8
    0x0155, 0x00E1, 0x00E2, 0x0103, 0x00E4, 0x013A, 0x0107, 0x00E7,  // E0
    0x010D, 0x00E9, 0x0119, 0x00EB, 0x011B, 0x00ED, 0x00EE, 0x010F,  // E8
    0x0111, 0x0144, 0x0148, 0x00F3, 0x00F4, 0x0151, 0x00F6, 0x00F7,  // F0
    0x0159, 0x016F, 0x00FA, 0x0171, 0x00FC, 0x00FD, 0x0163, 0x02D9,  // F8
};

struct Pair {
    std::uint16_t character;
    char byte;
};

/// The same table the other way, sorted by character.
std::array<Pair, 128> makeInverse()
{
    std::array<Pair, 128> pairs{};
    for (std::size_t i = 0; i < pairs.size(); ++i)
        pairs[i] = {upperHalf[i], static_cast<char>(0x80 + i)};
    std::sort(pairs.begin(), pairs.end(), [](const Pair& a, const Pair& b) { return a.character < b.character; });
    return pairs;
}

char* putUtf8(char* to, std::uint16_t character)
{
    if (character < 0x800) {
        *to++ = static_cast<char>(0xC0 | (character >> 6));
    } else {
        *to++ = static_cast<char>(0xE0 | (character >> 12));
        *to++ = static_cast<char>(0x80 | ((character >> 6) & 0x3F));
    }
    *to++ = static_cast<char>(0x80 | (character & 0x3F));
    return to;
}

std::uint16_t characterOf(char byteBeyondAscii)
{
    return upperHalf[static_cast<unsigned char>(byteBeyondAscii) - 0x80U];
}

/// One character taken from the front of UTF-8 text that begins with a byte above 7F.
struct Taken {
    std::uint32_t character = 0;
    std::size_t length = 1;
    bool valid = false;
};

Taken takeCharacter(std::string_view text)
{
    const auto byteAt = [text](std::size_t i) { return static_cast<unsigned char>(text[i]); };
    Taken taken;
    const unsigned char first = byteAt(0);
    std::size_t length = 0;
    std::uint32_t smallest = 0;
    if (first >= 0xC0 && first < 0xE0) {
        length = 2;
        smallest = 0x80;
        taken.character = first & 0x1FU;
    } else if (first >= 0xE0 && first < 0xF0) {
        length = 3;
        smallest = 0x800;
        taken.character = first & 0x0FU;
    } else if (first >= 0xF0 && first < 0xF8) {
        length = 4;
        smallest = 0x10000;
        taken.character = first & 0x07U;
    } else {
        return taken;
    }
    if (text.size() < length)
        return taken;
    for (std::size_t i = 1; i < length; ++i) {
        if ((byteAt(i) & 0xC0U) != 0x80U)
            return taken;
        taken.character = (taken.character << 6) | (byteAt(i) & 0x3FU);
    }
    taken.valid = taken.character >= smallest;
    if (taken.valid)
        taken.length = length;
    return taken;
}

}  // namespace

std::size_t asciiLength(std::string_view text)
{
    constexpr std::uint64_t highBits = 0x8080808080808080U;
    std::size_t length = 0;
    for (; length + sizeof highBits <= text.size(); length += sizeof highBits) {
        std::uint64_t word = 0;
        std::memcpy(&word, text.data() + length, sizeof word);
        if ((word & highBits) != 0)
            break;
    }
    while (length < text.size() && static_cast<unsigned char>(text[length]) < 0x80)
        ++length;
    return length;
}

std::string decodeCodePage(std::string_view bytes)
{
    std::string out(bytes.size() * mostDecodedBytes, '\0');
    out.resize(static_cast<std::size_t>(putDecoded(out.data(), bytes) - out.data()));
    return out;
}

char* putDecoded(char* to, std::string_view bytes)
{
    const std::size_t ascii = asciiLength(bytes);
    bytes.copy(to, ascii);
    to += ascii;
    for (const char byte : bytes.substr(ascii)) {
        if (static_cast<unsigned char>(byte) < 0x80)
            *to++ = byte;
        else
            to = putUtf8(to, characterOf(byte));
    }
    return to;
}

std::size_t appendCodePage(std::string& out, std::string_view utf8)
{
    static const std::array<Pair, 128> inverse = makeInverse();
    std::size_t replaced = 0;
    while (!utf8.empty()) {
        const std::size_t ascii = asciiLength(utf8);
        out += utf8.substr(0, ascii);
        utf8.remove_prefix(ascii);
        if (utf8.empty())
            break;
        const Taken taken = takeCharacter(utf8);
        const auto found = std::lower_bound(inverse.begin(), inverse.end(), taken.character,
            [](const Pair& pair, std::uint32_t character) { return pair.character < character; });
        if (taken.valid && found != inverse.end() && found->character == taken.character) {
            out += found->byte;
        } else {
            out += '?';
            ++replaced;
        }
        utf8.remove_prefix(taken.length);
    }
    return replaced;
}

std::string encodeCodePage(std::string_view utf8)
{
    std::string out;
    appendCodePage(out, utf8);
    return out;
}

std::string_view behindCharacters(std::string_view utf8, std::size_t n)
{
    std::size_t i = 0;
    for (; n > 0 && i < utf8.size(); --n) {
        ++i;
        while (i < utf8.size() && (static_cast<unsigned char>(utf8[i]) & 0xC0U) == 0x80U)
            ++i;
    }
    return utf8.substr(i);
}

}  // namespace korvex
