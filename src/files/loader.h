// Reading an inventory from its three files into a source set.
#pragma once

#include "file_calls.h"
#include "file_error.h"
#include "progress_listener.h"
#include "source_files.h"

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <vector>

namespace korvex {

class SourceSet;

enum class LoadMode { Replace, Append };

/// What to do with a points record that has no description record.
enum class MissingDescription { Accept, Skip };

struct LoadRequest {
    SourceFiles files;
    LoadMode mode = LoadMode::Replace;
    MissingDescription missingDescription = MissingDescription::Accept;
};

/// A record of the points file, for a report.
struct RecordPlace {
    std::int32_t number;
    std::size_t line;  // from 1
};

struct LoadReport {
    bool setTouched = false;             // false: the load failed before the first source could be added
    std::optional<std::string> comment;  // the first comment line of the points file that is not empty, trimmed
    std::vector<RecordPlace> missingDescription;
    std::vector<RecordPlace> missingDust;
    std::vector<RecordPlace> unknownType;  // not loaded
};

/// Pairs the records by source number and adds a source for each points record, in file order. Of two description or
/// dust records with one number the first in the file wins; those without a points record are ignored. With
/// LoadMode::Replace the set is emptied once all files are open and the records to pair with are read. On an error (a
/// file that cannot be opened or read, a number out of range) the sources added so far stay in the set, the report
/// holds what was found so far, and the modified flag is left alone; a load that runs to its end clears it.
[[nodiscard]] Result<void> loadSourceSet(const LoadRequest& request, SourceSet& set, LoadReport& report,
    ProgressListener& listener, FileCalls& calls = FileCalls::system());

}  // namespace korvex
