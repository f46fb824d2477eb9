#include "command_context.h"

namespace korvex {

void CommandContext::fail(std::string_view message)
{
    err << "korvexzdr-cli: " << message << '\n';
    failure = message;
    outcome = Outcome::CouldNotRun;
}

void CommandContext::fail(const FileError& error)
{
    TextOutput place;
    place << error.path;
    if (error.line > 0)
        place << ':' << error.line;
    if (!error.path.empty())
        place << ": ";
    const bool isEnglish = language == Language::English && !error.english.empty();
    fail(place.text() + (isEnglish ? error.english : error.description));
}

}  // namespace korvex
