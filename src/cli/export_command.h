// The command export: an inventory as CSV or GeoJSON.
#pragma once

namespace CLI {
class App;
}

namespace korvex {

struct CommandContext;

void addExportCommand(CLI::App& app, CommandContext& context);

}  // namespace korvex
