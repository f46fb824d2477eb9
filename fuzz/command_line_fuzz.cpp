// The command line: what a process was given comes out again, whatever is in it.
#include "arguments.h"
#include "laws.h"

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace korvex::fuzz {

namespace {

bool isSwitch(const std::string& token, std::string_view lower)
{
    if (token.size() != lower.size())
        return false;
    for (std::size_t i = 0; i < token.size(); ++i) {
        const char c = token[i];
        if ((c >= 'A' && c <= 'Z' ? static_cast<char>(c + 32) : c) != lower[i])
            return false;
    }
    return true;
}

/// Everything that can be asked.
std::string describe(const cArgumenty& arguments)
{
    std::string text = std::to_string(arguments.Count());
    text += arguments.Exists("s") ? " s" : "";
    text += arguments.Exists("ini") ? " ini=" + arguments.Value("INI", "?") : "";
    for (int i = 0; i < arguments.Count(); ++i)
        text += "\n" + arguments.Value(std::to_string(i), "(none)");
    return text;
}

/// What the arguments of a process mean, without ever making one text of them.
std::string expected(const std::vector<std::string>& tokens)
{
    std::vector<std::string> paths;
    bool hasMode = false;
    bool hasIni = false;
    std::string ini;
    for (std::size_t i = 0; i < tokens.size(); ++i) {
        if (isSwitch(tokens[i], "/s")) {
            hasMode = true;
        } else if (isSwitch(tokens[i], "/ini")) {
            hasIni = true;
            ini = i + 1 < tokens.size() ? tokens[i + 1] : "";
            ++i;
        } else {
            paths.push_back(tokens[i]);
        }
    }
    std::string text = std::to_string(tokens.size());
    text += hasMode ? " s" : "";
    text += hasIni ? " ini=" + ini : "";
    for (std::size_t i = 0; i < tokens.size(); ++i)
        text += "\n" + (i < paths.size() ? paths[i] : "(none)");
    return text;
}

}  // namespace

std::string run(std::string_view input)
{
    cArgumenty arguments;
    arguments.Parse(input);
    const std::string answer = describe(arguments);

    // The arguments of a process end with NUL; so does each here.
    std::vector<std::string> tokens;
    for (std::string_view rest = input; !rest.empty() && tokens.size() < 1000;) {
        const std::size_t end = rest.find('\0');
        tokens.emplace_back(rest.substr(0, end));
        rest = end == std::string_view::npos ? std::string_view() : rest.substr(end + 1);
    }
    std::vector<const char*> pointers;
    for (const std::string& token : tokens)
        pointers.push_back(token.c_str());
    cArgumenty split;
    split.Parse(commandLineText(pointers));
    requireSame(describe(split), expected(tokens), "the arguments of a process come out as they went in");
    return answer + describe(split);
}

}  // namespace korvex::fuzz
