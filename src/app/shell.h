// What start-up makes once and every window is handed.
#pragma once

namespace korvex {

struct Globals;
class MessageBoxes;
class SettingsStore;

struct Shell {
    Globals& globals;
    SettingsStore& settings;
    MessageBoxes& boxes;
};

}  // namespace korvex
