// The commands of the main window that make a source or open its editor.
#pragma once

namespace korvex {

class frmKORVEXZDR;
struct SourceType;

/// Makes a source with the next automatic number and opens its editor. Confirmed, it joins the set and a marked row
/// the end of the list; otherwise the number is given back.
void newSource(frmKORVEXZDR& window, const SourceType& type);

/// Double click and Enter: opens the editor of the current row's source when the row is marked, and then shows its
/// new name; an unmarked row only refills the list.
void editCurrentRow(frmKORVEXZDR& window);

/// The menu's way to the editor. It asks for no mark, and the row keeps the name it shows until the next refill.
void editCurrentSource(frmKORVEXZDR& window);

}  // namespace korvex
