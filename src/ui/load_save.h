// The loader and the saver as commands: with status texts, progress, messages and the list refilled.
#pragma once

#include "loader.h"
#include "saver.h"

#include <string>

namespace korvex {

class frmKORVEXZDR;

/// Loads the three files into the window's set, reports what found no partner and clears the modified flag. False
/// when a file could not be read: then a message has said so, and the sources added until then stay.
bool loadSources(frmKORVEXZDR& window, const SourceFiles& files, LoadMode mode);

/// Saves to the current three files and records their names in the INI file when one is known. False when nothing was
/// saved: then a message has said why.
bool saveSources(frmKORVEXZDR& window, SaveScope scope);

}  // namespace korvex
