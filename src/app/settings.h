// The one table of settings: read at start, written at exit.
#pragma once

namespace korvex {

struct Globals;
class SettingsStore;

/// Fills the process-wide values from the store. What is missing or is not what it should be gets its default.
void readSettings(const SettingsStore& store, Globals& globals);

/// Writes all of them. The column widths must be those that the list has at that moment.
void saveSettings(SettingsStore& store, const Globals& globals);

}  // namespace korvex
