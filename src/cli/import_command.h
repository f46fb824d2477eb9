// The command import: an inventory from CSV.
#pragma once

namespace CLI {
class App;
}

namespace korvex {

struct CommandContext;

void addImportCommand(CLI::App& app, CommandContext& context);

}  // namespace korvex
