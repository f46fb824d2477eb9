// The values that the whole process shares. Start-up makes the one object and hands it on.
#pragma once

#include "source_files.h"

#include <array>
#include <cstdint>
#include <string>

namespace korvex {

/// Filled from the settings while the main window loads, then, in a start with files, from the command line; written
/// back to the settings at exit. Nothing here is validated.
struct Globals {
    SourceFiles files;             // of the current inventory
    SourceFiles brokenFiles;       // of the last load that broke off, empty after one that did not; not stored
    std::string dustGroupsPath;    // empty: none
    std::string iniPath;           // from /ini; empty: no INI file is written
    bool commandLineMode = false;  // /s: the window is a calling program's editor
    std::int32_t noDust = 1;       // 1: dust work is not offered

    bool acceptMissingDescription = true;   // loading takes points without a description record
    std::int32_t minNewId = 50000;          // automatic source numbers begin behind this one
    std::int32_t autoCalcXY = 0;            // line sources: compute the midpoint on Ok
    float airPressure = 101325.0F;          // Pa; the current air pressure of the stack gas calculations
    std::int32_t numberColumnWidth = 1755;  // twips
    std::int32_t nameColumnWidth = 3360;    // twips

    int lastEditorTab = 0;  // the tab that a source editor was left on, also for editors of the other types; not stored

    /// The user's, of the system's locale; in UTF-8. Found once at start-up.
    std::string decimalSeparator = ".";

    /// Of the points, description and dust file; not stored.
    std::array<std::string, 3> defaultExtensions{"txt", "txt", "txt"};
    /// Pairs "description|pattern|…" for the file dialogs; built while the main window loads, not stored.
    std::array<std::string, 3> fileFilters;
};

}  // namespace korvex
