// What every command of the tool is handed: where it writes, in which language, and how it ended.
#pragma once

#include "file_error.h"
#include "language.h"
#include "text_output.h"

#include <string_view>

namespace korvex {

/// The exit codes, the same for all commands.
enum class Outcome : int {
    Clean = 0,        // done, nothing found
    Findings = 1,     // done, with findings or differences
    CouldNotRun = 2,  // wrong arguments, a file that cannot be read or written, a conflict
};

struct CommandContext {
    TextOutput& out;
    TextOutput& err;
    Language language = Language::Czech;
    bool json = false;
    Outcome outcome = Outcome::Clean;

    [[nodiscard]] std::string text(const char* czech, const char* english) const
    {
        return korvex::text(language, czech, english);
    }
    /// Says on err what went wrong and ends the program with CouldNotRun.
    void fail(std::string_view message);
    void fail(const FileError& error);
};

}  // namespace korvex
