// Finding sources that stand in the inventory twice.
#pragma once

#include <cstddef>

namespace korvex {

class SourceRows;
class SourceSet;

/// Sorts the rows by number and marks every row whose triple (CKU, ICZ, KOMIN) equals that of the row kept as the
/// last different one; returns how many it marked. Only neighbours are compared: A, B, A' with A equal to A' but B
/// of another stack number goes unnoticed, the price of a single pass. Marks set before stay.
std::size_t markDuplicates(const SourceSet& set, SourceRows& rows);

}  // namespace korvex
