// The command renumber: new numbers in all three files.
#pragma once

namespace CLI {
class App;
}

namespace korvex {

struct CommandContext;

void addRenumberCommand(CLI::App& app, CommandContext& context);

}  // namespace korvex
