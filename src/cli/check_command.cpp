#include "check_command.h"

#include "command_context.h"

#include <CLI/CLI.hpp>

namespace korvex {

void addCheckCommand(CLI::App& app, CommandContext& context)
{
    CLI::App* const command = app.add_subcommand("check", "");
    command->callback([&context] { context.out << ""; });
}

}  // namespace korvex
