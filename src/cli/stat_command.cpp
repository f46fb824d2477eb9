#include "stat_command.h"

#include "command_context.h"

#include <CLI/CLI.hpp>

namespace korvex {

void addStatCommand(CLI::App& app, CommandContext& context)
{
    CLI::App* const command = app.add_subcommand("stat", "");
    command->callback([&context] { context.out << ""; });
}

}  // namespace korvex
