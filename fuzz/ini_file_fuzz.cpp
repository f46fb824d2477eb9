// Setting a value in somebody else's INI file: the value is read back, and all other lines stay byte for byte.
#include "ini_text.h"
#include "laws.h"

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace korvex::fuzz {

namespace {

std::string trimmed(std::string_view text)
{
    const std::size_t begin = text.find_first_not_of(" \t");
    return begin == std::string_view::npos ? std::string()
                                           : std::string(text.substr(begin, text.find_last_not_of(" \t") + 1 - begin));
}

std::string lower(std::string text)
{
    for (char& c : text)
        c = c >= 'A' && c <= 'Z' ? static_cast<char>(c + 32) : c;
    return text;
}

/// Lines with their ends.
std::vector<std::string> linesOf(std::string_view file)
{
    std::vector<std::string> lines;
    while (!file.empty()) {
        const std::size_t end = file.find('\n');
        const std::size_t size = end == std::string_view::npos ? file.size() : end + 1;
        lines.emplace_back(file.substr(0, size));
        file.remove_prefix(size);
    }
    return lines;
}

/// Without its end; a CR counts as one only before LF.
std::string textOf(std::string line)
{
    if (!line.empty() && line.back() == '\n') {
        line.pop_back();
        if (!line.empty() && line.back() == '\r')
            line.pop_back();
    }
    return line;
}

/// The value as another program would read it: the first key of the first section of the name.
std::optional<std::string> value(std::string_view file, const std::string& section, const std::string& key)
{
    bool inside = false;
    for (const std::string& line : linesOf(file)) {
        const std::string text = trimmed(textOf(line));
        const std::size_t close = text.find(']');
        if (!text.empty() && text.front() == '[' && close != std::string::npos) {
            if (inside)
                return std::nullopt;
            inside = lower(trimmed(text.substr(1, close - 1))) == lower(section);
        } else if (const std::size_t equals = text.find('='); inside && equals != std::string::npos) {
            if (lower(trimmed(text.substr(0, equals))) == lower(key))
                return trimmed(text.substr(equals + 1));
        }
    }
    return std::nullopt;
}

/// How many lines of the old file are not in the new one, in order; and the other way round.
struct Difference {
    std::size_t gone = 0;
    std::size_t come = 0;
};

/// Equal lines at the front and at the back do not count. A last line that only got an end stays the same line.
Difference difference(const std::vector<std::string>& old, const std::vector<std::string>& now)
{
    const auto same
        = [](const std::string& a, const std::string& b) { return a == b || a + "\n" == b || a + "\r\n" == b; };
    std::size_t front = 0;
    while (front < old.size() && front < now.size() && same(old[front], now[front]))
        ++front;
    std::size_t back = 0;
    while (back < old.size() - front && back < now.size() - front
        && same(old[old.size() - 1 - back], now[now.size() - 1 - back]))
        ++back;
    return {old.size() - front - back, now.size() - front - back};
}

}  // namespace

std::string run(std::string_view input)
{
    const std::vector<std::string_view> cut = parts(input);
    const std::string_view file = cut[0];
    const std::string_view text = cut.size() > 1 ? cut[1] : "C:\\data\\body.txt";
    const std::string section = "Global";
    const std::string key = "LastBOD";

    const std::string written = withIniValue(file, section, key, text);
    std::string readable(text);
    for (char& c : readable)
        c = c == '\r' || c == '\n' ? '?' : c;
    const std::optional<std::string> found = value(written, section, key);
    require(found.has_value(), "a value that was set is there");
    requireSame(*found, trimmed(readable), "and is what was set");
    requireSame(withIniValue(written, section, key, text), written, "setting it again changes nothing");

    const std::vector<std::string> old = linesOf(file);
    const Difference changed = difference(old, linesOf(written));
    const bool hadKey = value(file, section, key).has_value();
    require(changed.gone <= (hadKey ? 1U : 0U), "no other line is lost");
    require(changed.come <= 2, "at most a section and a key come");
    const std::string longer = withIniValue(written, section, key, readable + "x");
    requireSame(withIniValue(longer, section, key, text), written, "writing twice leaves the last value");
    return written;
}

}  // namespace korvex::fuzz
