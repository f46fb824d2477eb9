#include "arguments.h"

#include "blanks.h"

#include <algorithm>
#include <charconv>
#include <iterator>
#include <limits>
#include <system_error>
#include <utility>

namespace korvex {

namespace {

constexpr std::string_view commandLineModeSwitch = "s";
constexpr std::string_view iniSwitch = "ini";

/// Whether a text is a switch's name; lowerName is written in small letters.
bool isName(std::string_view text, std::string_view lowerName)
{
    const auto sameLetter
        = [](char c, char lower) { return (c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c) == lower; };
    return std::equal(text.begin(), text.end(), lowerName.begin(), lowerName.end(), sameLetter);
}

bool isSwitch(std::string_view token, std::string_view lowerName)
{
    return !token.empty() && token.front() == '/' && isName(token.substr(1), lowerName);
}

/// The token at the front of a text that does not begin with a blank; takes it away from the text.
std::string takeToken(std::string_view& rest)
{
    std::string token;
    bool quoted = false;
    while (!rest.empty() && (quoted || !isBlank(rest.front()))) {
        const char c = rest.front();
        rest.remove_prefix(1);
        if (c != '"') {
            token += c;
        } else if (quoted && !rest.empty() && rest.front() == '"') {
            token += '"';
            rest.remove_prefix(1);
        } else {
            quoted = !quoted;
        }
    }
    return token;
}

/// The text from its first token on. What stands at the end stays: blanks there may belong to a quote left open.
std::string_view skipBlanks(std::string_view text)
{
    while (!text.empty() && isBlank(text.front()))
        text.remove_prefix(1);
    return text;
}

std::vector<std::string> splitTokens(std::string_view text)
{
    std::vector<std::string> tokens;
    for (std::string_view rest = skipBlanks(text); !rest.empty(); rest = skipBlanks(rest))
        tokens.push_back(takeToken(rest));
    return tokens;
}

/// The place that a key names; nothing for a key that is not the plain decimal text of a number ("00", "+1", "1x").
std::optional<std::size_t> placeOf(std::string_view key)
{
    std::size_t place = 0;
    const char* const end = key.data() + key.size();
    const auto [stopped, error] = std::from_chars(key.data(), end, place);
    if (error != std::errc() || stopped != end || (key.size() > 1 && key.front() == '0'))
        return std::nullopt;
    return place;
}

void appendQuoted(std::string& out, std::string_view token)
{
    out += '"';
    for (const char c : token) {
        if (c == '"')
            out += '"';
        out += c;
    }
    out += '"';
}

}  // namespace

void cArgumenty::Parse(std::string_view commandLine)
{
    *this = cArgumenty();
    std::vector<std::string> tokens = splitTokens(commandLine);
    m_tokenCount = tokens.size();
    for (auto token = tokens.begin(); token != tokens.end(); ++token) {
        if (isSwitch(*token, commandLineModeSwitch)) {
            m_commandLineMode = true;
        } else if (isSwitch(*token, iniSwitch)) {
            m_iniPath.emplace();
            if (std::next(token) != tokens.end())
                m_iniPath = std::move(*++token);
        } else {
            m_paths.push_back(std::move(*token));
        }
    }
}

std::int16_t cArgumenty::Count() const
{
    constexpr std::size_t most = std::numeric_limits<std::int16_t>::max();
    return static_cast<std::int16_t>(std::min(m_tokenCount, most));
}

bool cArgumenty::Exists(std::string_view name) const
{
    return (isName(name, commandLineModeSwitch) && m_commandLineMode) || (isName(name, iniSwitch) && m_iniPath);
}

std::string cArgumenty::Value(std::string_view key, std::string_view defaultText) const
{
    if (isName(key, iniSwitch) && m_iniPath)
        return *m_iniPath;
    if (const auto place = placeOf(key); place && *place < m_paths.size())
        return m_paths[*place];
    return std::string(defaultText);
}

std::string commandLineText(std::span<const char* const> arguments)
{
    std::string text;
    for (const std::string_view argument : arguments) {
        if (!text.empty())
            text += ' ';
        const auto needsQuotes = [](char c) { return c == '"' || isBlank(c); };
        if (argument.empty() || std::any_of(argument.begin(), argument.end(), needsQuotes))
            appendQuoted(text, argument);
        else
            text += argument;
    }
    return text;
}

}  // namespace korvex
