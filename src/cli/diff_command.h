// The command diff: what differs between two inventories.
#pragma once

namespace CLI {
class App;
}

namespace korvex {

struct CommandContext;

void addDiffCommand(CLI::App& app, CommandContext& context);

}  // namespace korvex
