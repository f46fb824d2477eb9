// The statistics of an inventory as tables for a terminal.
#pragma once

#include "language.h"
#include "statistics.h"
#include "text_output.h"

#include <string>

namespace korvex {

/// A number of the statistics; sums are 64-bit, and seven digits of them are shown.
[[nodiscard]] std::string statisticText(double value);

void printStatistics(TextOutput& out, const InventoryStatistics& statistics, Language language);

}  // namespace korvex
