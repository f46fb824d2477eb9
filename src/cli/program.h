// Running the tool's commands: the arguments, the help in two languages, the exit code.
#pragma once

#include "command_context.h"

#include <memory>
#include <span>

namespace CLI {
class App;
}

namespace korvex {

/// The language that --lang asks for. Known before the arguments are read, for the help texts depend on it.
[[nodiscard]] Language languageOf(std::span<const char* const> arguments);

/// The options that all commands share; the commands are added to it.
[[nodiscard]] std::unique_ptr<CLI::App> makeApp(CommandContext& context);

/// Reads the arguments (without the program's name), runs the command and returns the exit code.
[[nodiscard]] int runApp(CLI::App& app, CommandContext& context, std::span<const char* const> arguments);

}  // namespace korvex
