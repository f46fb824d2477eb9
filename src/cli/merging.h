// Several inventories made one.
#pragma once

#include "source_set.h"

#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

namespace korvex {

struct Inventory;

/// What to do with a source whose number an earlier inventory has already. Sources that are the same in all three
/// records are no conflict: they are taken once. Equal numbers within one inventory are its own affair.
enum class OnConflict {
    Fail,
    Keep,      // the earlier one stays, the later one is left out
    Replace,   // the later one takes the place of one earlier one, each of another; what is left over is added
    Renumber,  // the later one gets a number behind all others
};

/// Where a source comes from.
struct SourceOrigin {
    std::uint32_t inventory;  // index
    std::uint32_t position;   // in its set
};

struct MergeConflict {
    enum class Outcome { Refused, LeftOut, Replaced, Added, Renumbered };
    SourceOrigin later;
    SourceOrigin earlier;  // the one that is replaced; else the first of the number
    std::int32_t number;
    std::int32_t newNumber;  // as number unless it was renumbered
    Outcome outcome;
};

struct Merge {
    SourceSet set;
    std::string comment;    // the different ones of all inventories, joined as the window joins them
    bool hasDust = false;   // at least one inventory has
    std::size_t taken = 0;  // sources that were the same in an earlier inventory
    std::vector<MergeConflict> conflicts;
    bool numbersRanOut = false;  // no number of nine digits is left: the set is of no use
};

/// In the order of the inventories, each in its own order. Empties them. With OnConflict::Fail and conflicts the set is
/// of no use.
[[nodiscard]] Merge mergeInventories(std::vector<Inventory>& inventories, OnConflict onConflict);

/// Brings the sources into the order of their numbers; those of one number keep theirs.
void sortByNumber(SourceSet& set);

}  // namespace korvex
