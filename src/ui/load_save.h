// The loader and the saver as commands: with status texts, progress, messages and the list refilled.
#pragma once

#include "loader.h"
#include "saver.h"

#include <string>

namespace korvex {

class frmKORVEXZDR;

/// Asks for the files and loads them. Before an inventory with unsaved changes is replaced, asks whether to save it.
void openSources(frmKORVEXZDR& window);

/// Loads the three files into the window's set, looks into the dust groups file when one is named, reports what found
/// no partner and clears the modified flag. False when a file could not be read: then a message has said so, and the
/// sources added until then stay.
bool loadSources(frmKORVEXZDR& window, const SourceFiles& files, const std::string& dustGroupsPath, LoadMode mode);

/// Asks for the three names, except in command-line mode, saves and records the names in the INI file when one is
/// known. False when nothing was saved: then the user cancelled or a message has said why.
bool saveSources(frmKORVEXZDR& window, SaveScope scope);

/// Puts the marked rows on the clipboard.
void copyMarkedToClipboard(frmKORVEXZDR& window);

}  // namespace korvex
