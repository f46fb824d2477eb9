#include "slow_reading.h"

#include <array>
#include <cmath>
#include <cstdlib>
#include <limits>
#include <locale.h>

namespace korvex::fuzz {

namespace {

bool isDigit(char c)
{
    return c >= '0' && c <= '9';
}

/// The longest leading number of a text without its blanks, by the grammar
/// [sign] digits [. digits] [e [sign] digits], with a digit on one side of the point at least.
std::string numberAtFront(std::string_view text)
{
    std::string bare;
    for (const char c : text) {
        if (c != ' ' && c != '\t')
            bare += c;
    }
    std::size_t at = 0;
    const auto is = [&](char c) { return at < bare.size() && bare[at] == c; };
    const auto digits = [&] {
        std::size_t count = 0;
        for (; at < bare.size() && isDigit(bare[at]); ++at)
            ++count;
        return count;
    };
    if (is('+') || is('-'))
        ++at;
    std::size_t count = digits();
    if (is('.')) {
        ++at;
        count += digits();
    }
    if (count == 0)
        return {};
    std::size_t end = at;
    if (is('e') || is('E')) {
        ++at;
        if (is('+') || is('-'))
            ++at;
        if (digits() > 0)
            end = at;
    }
    return bare.substr(0, end);
}

bool hasDigitAboveZero(const std::string& number)
{
    return number.substr(0, number.find_first_of("eE")).find_first_of("123456789") != std::string::npos;
}

template <class Real, class Read>
std::optional<Real> readWith(std::string_view text, Read read)
{
    static const locale_t plain = newlocale(LC_ALL_MASK, "C", nullptr);
    const std::string number = numberAtFront(text);
    if (number.empty())
        return Real{0};
    const Real value = read(number.c_str(), nullptr, plain);
    if (std::isinf(value) || (value == 0 && hasDigitAboveZero(number)))
        return std::nullopt;
    return value;
}

/// The upper half of the code page; 0 to 7F hex are ASCII.
constexpr std::array<char16_t, 128> upperHalf{0x20AC, 0x0081, 0x201A, 0x0083, 0x201E, 0x2026, 0x2020, 0x2021, 0x0088,
    0x2030, 0x0160, 0x2039, 0x015A, 0x0164, 0x017D, 0x0179, 0x0090, 0x2018, 0x2019, 0x201C, 0x201D, 0x2022, 0x2013,
    0x2014, 0x0098, 0x2122, 0x0161, 0x203A, 0x015B, 0x0165, 0x017E, 0x017A, 0x00A0, 0x02C7, 0x02D8, 0x0141, 0x00A4,
    0x0104, 0x00A6, 0x00A7, 0x00A8, 0x00A9, 0x015E, 0x00AB, 0x00AC, 0x00AD, 0x00AE, 0x017B, 0x00B0, 0x00B1, 0x02DB,
    0x0142, 0x00B4, 0x00B5, 0x00B6, 0x00B7, 0x00B8, 0x0105, 0x015F, 0x00BB, 0x013D, 0x02DD, 0x013E, 0x017C, 0x0154,
    0x00C1, 0x00C2, 0x0102, 0x00C4, 0x0139, 0x0106, 0x00C7, 0x010C, 0x00C9, 0x0118, 0x00CB, 0x011A, 0x00CD, 0x00CE,
    0x010E, 0x0110, 0x0143, 0x0147, 0x00D3, 0x00D4, 0x0150, 0x00D6, 0x00D7, 0x0158, 0x016E, 0x00DA, 0x0170, 0x00DC,
    0x00DD, 0x0162, 0x00DF, 0x0155, 0x00E1, 0x00E2, 0x0103, 0x00E4, 0x013A, 0x0107, 0x00E7, 0x010D, 0x00E9, 0x0119,
    0x00EB, 0x011B, 0x00ED, 0x00EE, 0x010F, 0x0111, 0x0144, 0x0148, 0x00F3, 0x00F4, 0x0151, 0x00F6, 0x00F7, 0x0159,
    0x016F, 0x00FA, 0x0171, 0x00FC, 0x00FD, 0x0163, 0x02D9};

}  // namespace

std::optional<double> slowReal(std::string_view text)
{
    return readWith<double>(text, strtod_l);
}

std::optional<float> slowSingle(std::string_view text)
{
    return readWith<float>(text, strtof_l);
}

std::optional<std::int32_t> slowInteger(std::string_view text)
{
    const std::optional<double> real = slowReal(text);
    if (!real)
        return std::nullopt;
    const double whole = std::nearbyint(*real);
    if (whole < std::numeric_limits<std::int32_t>::min() || whole > std::numeric_limits<std::int32_t>::max())
        return std::nullopt;
    return static_cast<std::int32_t>(whole);
}

std::vector<std::string> slowFields(std::string_view text, char separator)
{
    std::vector<std::string> fields(1);
    for (const char c : text) {
        if (c == separator)
            fields.emplace_back();
        else
            fields.back() += c;
    }
    return fields;
}

std::string slowField(std::string_view text, char separator, std::size_t n)
{
    const std::vector<std::string> fields = slowFields(text, separator);
    return n <= fields.size() ? fields[n - 1] : "";
}

std::vector<std::string> slowLines(std::string_view bytes)
{
    std::vector<std::string> lines = slowFields(bytes, '\n');
    if (lines.back().empty())
        lines.pop_back();
    for (std::string& line : lines) {
        if (!line.empty() && line.back() == '\r')
            line.pop_back();
    }
    return lines;
}

std::string slowDecode(std::string_view bytes)
{
    std::string text;
    for (const char byte : bytes) {
        const auto value = static_cast<unsigned char>(byte);
        const unsigned character = value < 0x80 ? value : upperHalf.at(value - 0x80U);
        if (character < 0x80) {
            text += static_cast<char>(character);
        } else if (character < 0x800) {
            text += static_cast<char>(0xC0 | (character >> 6));
            text += static_cast<char>(0x80 | (character & 0x3F));
        } else {
            text += static_cast<char>(0xE0 | (character >> 12));
            text += static_cast<char>(0x80 | ((character >> 6) & 0x3F));
            text += static_cast<char>(0x80 | (character & 0x3F));
        }
    }
    return text;
}

std::string slowTrim(std::string_view text)
{
    const std::size_t begin = text.find_first_not_of(" \t");
    if (begin == std::string_view::npos)
        return {};
    return std::string(text.substr(begin, text.find_last_not_of(" \t") + 1 - begin));
}

}  // namespace korvex::fuzz
