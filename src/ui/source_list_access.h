// What assistive technology sees of the source list: a table whose marked rows are selected and whose types are spoken.
#pragma once

namespace korvex {

class SourceListView;

/// From now on every SourceListView is seen as such a table: first the two cells of the header, then two a row in
/// display order. The toolkit's own would ask its selection model, which knows nothing of the marks.
void installSourceListAccess();

/// Tells that the current row is another one. Costs nothing while nobody listens.
void tellCurrentRow(SourceListView& view);
/// Tells whether the current row is marked now.
void tellMarkOfCurrentRow(SourceListView& view);

}  // namespace korvex
