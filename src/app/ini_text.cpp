#include "ini_text.h"

#include "blanks.h"

#include <algorithm>
#include <cstddef>
#include <optional>

namespace korvex {

namespace {

constexpr std::string_view windowsLineEnd = "\r\n";
constexpr std::string_view plainLineEnd = "\n";

/// One line by its places in the file.
struct Line {
    std::size_t begin = 0;
    std::size_t textEnd = 0;  // where its line end begins
    std::size_t end = 0;      // where the next line begins
};

Line lineAt(std::string_view file, std::size_t begin)
{
    const std::size_t feed = file.find('\n', begin);
    if (feed == std::string_view::npos)
        return {begin, file.size(), file.size()};
    const bool hasReturn = feed > begin && file[feed - 1] == '\r';
    return {begin, hasReturn ? feed - 1 : feed, feed + 1};
}

std::string_view lineEndOf(std::string_view file)
{
    const Line first = lineAt(file, 0);
    return first.end - first.textEnd == plainLineEnd.size() ? plainLineEnd : windowsLineEnd;
}

char lowerAscii(char c)
{
    return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c;
}

bool sameName(std::string_view a, std::string_view b)
{
    return std::equal(
        a.begin(), a.end(), b.begin(), b.end(), [](char x, char y) { return lowerAscii(x) == lowerAscii(y); });
}

/// The name in a section's header; nothing for any other line.
std::optional<std::string_view> sectionName(std::string_view text)
{
    text = trimBlanks(text);
    const std::size_t close = text.find(']');
    if (text.empty() || text.front() != '[' || close == std::string_view::npos)
        return std::nullopt;
    return trimBlanks(text.substr(1, close - 1));
}

/// Where the value of the key begins in a line that sets it; nothing for any other line. A comment sets none,
/// for its name would begin with ";".
std::optional<std::size_t> valueBegin(std::string_view text, std::string_view key)
{
    const std::size_t equals = text.find('=');
    if (equals == std::string_view::npos || !sameName(trimBlanks(text.substr(0, equals)), key))
        return std::nullopt;
    return equals + 1;
}

enum class Found { Nothing, Section, Key };

/// The bytes of the file that give way to the new ones (none when a line is put in), and what is there already.
struct Place {
    Found found = Found::Nothing;
    std::size_t begin = 0;
    std::size_t end = 0;
};

Place findPlace(std::string_view file, std::string_view section, std::string_view key)
{
    Place place{Found::Nothing, file.size(), file.size()};
    Line line;
    for (std::size_t at = 0; at < file.size(); at = line.end) {
        line = lineAt(file, at);
        const std::string_view text = file.substr(line.begin, line.textEnd - line.begin);
        if (const auto name = sectionName(text)) {
            if (place.found == Found::Section)
                break;
            if (sameName(*name, section))
                place = {Found::Section, line.end, line.end};
        } else if (place.found == Found::Section) {
            if (const auto value = valueBegin(text, key))
                return {Found::Key, line.begin + *value, line.textEnd};
            if (!trimBlanks(text).empty())
                place.begin = place.end = line.end;
        }
    }
    return place;
}

}  // namespace

std::string withIniValue(std::string_view file, std::string_view section, std::string_view key, std::string_view value)
{
    section = trimBlanks(section);
    key = trimBlanks(key);
    std::string oneLine(value);
    std::replace_if(
        oneLine.begin(), oneLine.end(), [](char c) { return c == '\r' || c == '\n'; }, '?');

    const Place place = findPlace(file, section, key);
    std::string out(file.substr(0, place.begin));
    if (place.found == Found::Key) {
        out += oneLine;
    } else {
        const std::string_view lineEnd = lineEndOf(file);
        if (!out.empty() && out.back() != '\n')
            out += lineEnd;
        if (place.found == Found::Nothing)
            out.append("[").append(section).append("]").append(lineEnd);
        out.append(key).append("=").append(oneLine).append(lineEnd);
    }
    out += file.substr(place.end);
    return out;
}

}  // namespace korvex
