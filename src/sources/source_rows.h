// The rows of the source list without a window: their display order, their marks and the sorting.
#pragma once

#include "mark_bitmap.h"

#include <cstddef>
#include <cstdint>
#include <span>
#include <vector>

namespace korvex {

class SourceSet;

enum class SortDirection { Ascending, Descending };

/// One row a source. A row's tag is the position of its source in the set; sorting changes the order of the rows,
/// never their tags. Rows count from 0 in display order, positions from 1.
class SourceRows {
public:
    [[nodiscard]] std::size_t count() const { return m_tags.size(); }
    [[nodiscard]] std::size_t tag(std::size_t row) const { return m_tags[row]; }

    /// One unmarked row for every position, in set order.
    void refill(std::size_t sourceCount);
    /// A row at the end for a source just appended; its tag is the row count after the add.
    void add(bool mark);

    [[nodiscard]] bool marked(std::size_t row) const { return m_marks.marked(m_tags[row]); }
    void mark(std::size_t row, bool on) { m_marks.mark(m_tags[row], on); }
    void markRange(std::size_t first, std::size_t last, bool on);
    void markAll(bool on) { m_marks.markAll(on); }
    void invertMarks() { m_marks.invert(); }
    /// Marks every row whose source has the type code; other marks stay.
    void markByType(const SourceSet& set, std::int32_t typeId);
    /// The marks by position in the set.
    [[nodiscard]] const MarkBitmap& marks() const { return m_marks; }

    /// Sorts by the displayed text of the number column, that is with "-000000002" behind "-000000001" and
    /// "1000000000" before "999999999". Equal rows keep their order.
    void sortByNumber(const SourceSet& set, SortDirection direction);
    /// Puts the rows into the order of a rank a position (ranks[position - 1]). Equal rows keep their order.
    void sortByRank(std::span<const std::int64_t> ranks, SortDirection direction);

private:
    std::vector<std::uint32_t> m_tags;
    MarkBitmap m_marks;
};

}  // namespace korvex
