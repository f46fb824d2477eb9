// The command calc: the window's calculations over an inventory.
#pragma once

namespace CLI {
class App;
}

namespace korvex {

struct CommandContext;

void addCalcCommand(CLI::App& app, CommandContext& context);

}  // namespace korvex
