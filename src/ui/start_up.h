// The start-up routine: what the command line makes of the window.
#pragma once

namespace korvex {

class cArgumenty;
class frmKORVEXZDR;

/// Shows the window; with at least two arguments also takes the files and switches from them over the remembered ones
/// and loads the files. A single file name is ignored.
void startUp(const cArgumenty& arguments, frmKORVEXZDR& window);

}  // namespace korvex
