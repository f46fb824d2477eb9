// What start-up makes once and every window is handed.
#pragma once

namespace korvex {

struct Globals;
class FileDialogs;
class MessageBoxes;
class SettingsStore;
class TextClipboard;

struct Shell {
    Globals& globals;
    SettingsStore& settings;
    MessageBoxes& boxes;
    FileDialogs& fileDialogs;
    TextClipboard& clipboard;
};

}  // namespace korvex
