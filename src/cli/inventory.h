// An inventory as the commands work on it: loaded whole, with everything that a save would lose, and written again.
#pragma once

#include "loader.h"
#include "saver.h"
#include "source_set.h"

#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

namespace korvex {

/// What the files hold, or lack, that the sources in memory do not show.
enum class LoadFinding {
    UnknownType,          // a points record that is not taken
    MissingDescription,   // a points record without parameters: they are 0
    MissingDust,          // a points record without dust: it is that of a new source
    DescriptionNotTaken,  // a description record without a points record, or the second of its number
    DustNotTaken,
};

struct FindingPlace {
    LoadFinding finding;
    std::string path;
    std::size_t line;    // from 1
    std::string number;  // the record's own
};

struct Inventory {
    SourceFiles files;
    std::string comment;
    SourceSet set;
    std::vector<FindingPlace> findings;  // in the order of the files, by line

    [[nodiscard]] bool hasDust() const { return !files.dust.empty(); }
};

/// Sources without a description are taken. The records that the loader passes over are looked for in a second pass.
[[nodiscard]] Result<Inventory> loadInventory(const SourceFiles& files);

/// A source that the next load would not read as it is now.
struct Distortion {
    enum class Kind {
        SharedDescription,  // another source of its number comes first, and its record would be taken for both
        SharedDust,
        ShiftedDust,  // a number wider than nine characters: the dust would begin with a comma more
        LineEnd,      // in the name or the dust
        Semicolon,    // in the name: it would end there
    };
    Kind kind;
    std::size_t position;  // in the set
};

/// withDust: whether a dust file will be written.
[[nodiscard]] std::vector<Distortion> distortionsBySaving(const SourceSet& set, bool withDust);

/// Those of the paths at which something is already, whatever it is.
[[nodiscard]] std::vector<std::string> existingPaths(const std::vector<std::string>& paths);
[[nodiscard]] std::vector<std::string> pathsOf(const SourceFiles& files);

/// Writes all sources in set order, with copies of what is replaced.
[[nodiscard]] Result<SaveReport> writeInventory(const SourceFiles& files, const std::string& comment, SourceSet& set);

}  // namespace korvex
