#include "duplicate_check.h"

#include "source_rows.h"
#include "source_set.h"

#include <array>
#include <cstdint>

namespace korvex {

std::size_t markDuplicates(const SourceSet& set, SourceRows& rows)
{
    rows.sortByNumber(set, SortDirection::Ascending);
    std::array<std::int32_t, 3> remembered{-1, -1, -1};
    std::size_t count = 0;
    for (std::size_t row = 0; row < rows.count(); ++row) {
        const cZdroje& source = set.at(rows.tag(row));
        const std::array<std::int32_t, 3> triple{source.CKU(), source.ICZ(), source.KOMIN()};
        if (triple == remembered) {
            rows.mark(row, true);
            ++count;
        } else {
            remembered = triple;
        }
    }
    return count;
}

}  // namespace korvex
