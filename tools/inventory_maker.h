// Making up inventories of any size for measuring and testing: the bytes of the three data files.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>

namespace korvex {

struct InventoryRequest {
    static constexpr std::size_t most = 10'000'000;  // source numbers have to stay within their nine digits

    std::size_t count = 0;  // of sources
    std::uint64_t seed = 1;
    bool leavesOutRecords = false;  // a few per mille of the description records, and of the dust records
    bool doublesNumbers = false;    // a few per mille of the sources have the number of the one before
    bool shuffles = false;          // each of the files in a random order of its own
};

/// In the code page, with headers.
struct InventoryBytes {
    std::string points;
    std::string description;
    std::string dust;
};

/// The same request gives the same bytes on every machine. The three flags change nothing but what they are there for:
/// the values of a source depend on the seed and its place alone. All numbers are in the form in which the program
/// writes them, so that loading and saving gives the records back unchanged.
[[nodiscard]] InventoryBytes makeInventory(const InventoryRequest& request);

}  // namespace korvex
