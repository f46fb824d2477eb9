// The command restore: the safety copies listed and brought back.
#pragma once

namespace CLI {
class App;
}

namespace korvex {

struct CommandContext;

void addRestoreCommand(CLI::App& app, CommandContext& context);

}  // namespace korvex
