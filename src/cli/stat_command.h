// The command stat: counts, ranges and sums of an inventory.
#pragma once

namespace CLI {
class App;
}

namespace korvex {

struct CommandContext;

void addStatCommand(CLI::App& app, CommandContext& context);

}  // namespace korvex
