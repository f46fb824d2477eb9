// The check of a whole inventory: its three files and a dust groups file in one run.
#pragma once

#include "file_calls.h"
#include "file_error.h"
#include "findings.h"
#include "source_files.h"

#include <cstddef>
#include <string>

namespace korvex {

struct CheckRequest {
    SourceFiles files;
    std::string groups;          // path of the dust groups file; empty: none
    float pressure = 101325.0F;  // Pa, to which the Vs of the stacks belong
};

struct CheckedInventory {
    std::size_t sources = 0;  // points records, whatever their type
};

/// Reads each file once, line by line: what is kept is a few bytes a source. An error is a file that cannot be opened
/// or read; everything else is a finding.
[[nodiscard]] Result<CheckedInventory> checkInventory(
    const CheckRequest& request, Findings& findings, FileCalls& calls = FileCalls::system());

}  // namespace korvex
