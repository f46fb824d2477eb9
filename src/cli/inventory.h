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

enum class DataFile { Points, Description, Dust };

/// What a command is going to do with the sources, and so what has to be found in the files.
enum class LoadFor {
    Counting,  // sources without a description are left out: their zeros would be taken for values
    Reading,   // they are taken
    Writing,   // as for reading; everything that would be lost or changed by writing is looked for as well
};

/// What the files hold, or lack, that the sources in memory do not show.
enum class LoadFinding {
    Utf8,                // the first line of a file that is UTF-8: its letters were read as others
    UnknownType,         // a points record that is not taken
    MissingDescription,  // a points record without parameters: they are 0
    MissingDust,         // a points record without dust: it is that of a new source
    NotTaken,            // a description or dust record without a points record, or the second of its number
    // The rest only when loaded for writing.
    LostComment,   // a comment line that no save writes again
    DustNotGiven,  // a header that names a dust file, of an inventory loaded without one
    ChangedValue,
    MissingValue,
    SurplusFields,
    ChangedName,
    ChangedDust,
};

struct FindingPlace {
    LoadFinding finding;
    DataFile file;
    std::size_t line;    // from 1
    std::string number;  // the record's own
    // Of a record that would be written with another meaning:
    std::size_t position = 0;  // of the first source that was loaded from it; 0: of none
    std::size_t field = 0;     // from 1; 0: none
    std::string before{};
    std::string after{};
};

struct Inventory {
    SourceFiles files;
    std::string comment;
    SourceSet set;
    std::vector<FindingPlace> findings;  // in the order of the files, by line

    [[nodiscard]] bool hasDust() const { return !files.dust.empty(); }
    [[nodiscard]] const std::string& pathOf(DataFile file) const;
};

/// What the loader passes over is looked for in a second pass over the files.
[[nodiscard]] Result<Inventory> loadInventory(const SourceFiles& files, LoadFor use);

/// The lines in the points file by position in the set, the first at 1; read again, for few need them.
[[nodiscard]] Result<std::vector<std::size_t>> pointsLines(const Inventory& inventory);

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
