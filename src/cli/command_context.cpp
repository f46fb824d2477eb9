#include "command_context.h"

#include "message.h"

namespace korvex {

void CommandContext::fail(std::string_view message)
{
    err << "korvexzdr-cli: " << message << '\n';
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
    fail(place.text() + errorText(language, error));
}

}  // namespace korvex
