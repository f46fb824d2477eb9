// What an import says of a finding in its table.
#pragma once

#include "csv_import.h"
#include "language.h"

#include <string>

namespace korvex {

[[nodiscard]] std::string textOf(Language language, const CsvFinding& finding);

/// How the table was read, when that is not how the export writes it; empty otherwise.
[[nodiscard]] std::string textOf(Language language, const CsvForm& form);

}  // namespace korvex
