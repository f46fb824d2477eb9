// The duplicate check as a command: sorts the list, marks the duplicates and says how many there are.
#pragma once

namespace korvex {

class frmKORVEXZDR;

enum class DuplicateReport {
    Always,
    OnlyFound,  // after appending: no message when there are none
};

void runDuplicateCheck(frmKORVEXZDR& window, DuplicateReport report);

}  // namespace korvex
