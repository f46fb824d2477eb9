// The command merge: several inventories made one.
#pragma once

namespace CLI {
class App;
}

namespace korvex {

struct CommandContext;

void addMergeCommand(CLI::App& app, CommandContext& context);

}  // namespace korvex
