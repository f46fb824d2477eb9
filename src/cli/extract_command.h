// The command extract: a part of an inventory.
#pragma once

namespace CLI {
class App;
}

namespace korvex {

struct CommandContext;

void addExtractCommand(CLI::App& app, CommandContext& context);

}  // namespace korvex
