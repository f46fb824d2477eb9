// The command check: all findings of all files of an inventory.
#pragma once

namespace CLI {
class App;
}

namespace korvex {

struct CommandContext;

void addCheckCommand(CLI::App& app, CommandContext& context);

}  // namespace korvex
