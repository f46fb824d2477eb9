// The second pass over the files of an inventory: what the loader passed over, read in part or read as something else.
#pragma once

#include "inventory.h"

namespace korvex {

/// Fills in the findings of an inventory that was just loaded.
[[nodiscard]] Result<void> findWhatIsNotLoaded(Inventory& inventory, const LoadReport& report, LoadFor use);

}  // namespace korvex
