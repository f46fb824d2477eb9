// The command line: the files to open and the two switches that a calling program gives.
#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace korvex {

/// Splits a command line into tokens and answers what stands in it.
///
/// Spaces and tabs separate tokens, several count as one. Quotes ("…") group blanks, also in the middle of a token; a
/// doubled quote inside quotes is a quote; "" alone is an empty token; a quote left open runs to the end.
///
/// Only /s (command-line mode) and /ini (the next token, whatever it is, names the INI file) are switches, in either
/// letter case. Every other token is a path, also one with a leading "/", for that is how full paths begin here. A
/// quoted "/s" is a switch too: a shell takes quotes away before a program can see them, so they must not matter. A
/// file of that name can be given as "./s" or "//s".
class cArgumenty {
public:
    /// Takes the whole command line without the program name; what was parsed before is forgotten.
    void Parse(std::string_view commandLine);

    /// How many tokens there are, switches and their values included. Stops at the largest 16-bit number: a line
    /// of very many names must not turn into a negative count, which would pass for a start without files.
    [[nodiscard]] std::int16_t Count() const;

    /// Whether a switch occurs, named without its slash.
    [[nodiscard]] bool Exists(std::string_view name) const;

    /// Key "0", "1", …: a path by its place among the tokens that are neither a switch nor a switch's value.
    /// Key "ini": the file that /ini names; of several the last, and empty when nothing follows the switch.
    /// The default text when the key is absent; so always for "s", which carries no value.
    [[nodiscard]] std::string Value(std::string_view key, std::string_view defaultText) const;

private:
    std::vector<std::string> m_paths;
    std::optional<std::string> m_iniPath;
    std::size_t m_tokenCount = 0;
    bool m_commandLineMode = false;
};

/// The arguments of a process, without the program name, as the one text that Parse splits into exactly them again.
[[nodiscard]] std::string commandLineText(std::span<const char* const> arguments);

}  // namespace korvex
