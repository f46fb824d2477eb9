// What every command of the tool is handed: where it writes, in which language, and how it ended.
#pragma once

#include "file_error.h"
#include "language.h"
#include "text_output.h"

#include <cstddef>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace korvex {

/// The exit codes, the same for all commands.
enum class Outcome : int {
    Clean = 0,        // done, nothing found
    Findings = 1,     // done, with findings or differences
    CouldNotRun = 2,  // wrong arguments, a file that cannot be read or written, a conflict
};

/// What a command says about the data that it works on, for programs; on err it says the same.
struct ToldFinding {
    std::string file;      // empty: of a source that is to be written
    std::size_t line = 0;  // 0: none
    std::string number;    // of the source or record; empty: none
    std::string text;
};

struct CommandContext {
    TextOutput& out;
    TextOutput& err;
    Language language = Language::Czech;
    bool json = false;
    Outcome outcome = Outcome::Clean;
    bool hasWritten = false;  // files
    // Only with json:
    std::vector<ToldFinding> findings{};
    std::string failure{};     // the last one
    bool hasAnswered = false;  // on out

    [[nodiscard]] std::string text(const char* czech, const char* english) const
    {
        return korvex::text(language, czech, english);
    }
    /// To be part of the answer.
    void tell(ToldFinding finding)
    {
        if (json)
            findings.push_back(std::move(finding));
    }
    /// Says on err what went wrong and ends the program with CouldNotRun.
    void fail(std::string_view message);
    void fail(const FileError& error);
};

}  // namespace korvex
