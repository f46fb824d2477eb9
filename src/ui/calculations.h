// The calculations over marked sources as commands of the main window.
#pragma once

namespace korvex {

class frmKORVEXZDR;

/// Opens the batch calculation of Vs, d and w0. The list shows none of these values: it is not refilled, and the
/// modified flag is not set.
void showStackGasBatch(frmKORVEXZDR& window);

/// Asks, then sets X and Y of the marked line sources to the midpoints of their segments. As above, neither the list
/// nor the modified flag is touched.
void calculateMidpoints(frmKORVEXZDR& window);

}  // namespace korvex
