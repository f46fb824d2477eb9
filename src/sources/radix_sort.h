// Sorting a million records by a whole number, without comparing any two of them.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <utility>
#include <vector>

namespace korvex {

/// Sorts by key(item), a std::uint64_t of which only the lowest keyBits count; items of one key keep their order. Takes
/// a second vector of the same size while it runs.
template <class Item, class Memory, class Key>
void sortByKey(std::vector<Item, Memory>& items, int keyBits, Key key)
{
    constexpr int digitBits = 11;
    constexpr std::size_t digits = std::size_t{1} << digitBits;
    std::vector<Item, Memory> sorted(items.size());
    for (int shift = 0; shift < keyBits; shift += digitBits) {
        const auto digitOf = [&key, shift](const Item& item) { return (key(item) >> shift) & (digits - 1); };
        std::array<std::size_t, digits> place{};
        for (const Item& item : items)
            ++place[digitOf(item)];
        std::size_t before = 0;
        for (std::size_t& count : place)
            before += std::exchange(count, before);
        for (const Item& item : items)
            sorted[place[digitOf(item)]++] = item;
        items.swap(sorted);
    }
}

}  // namespace korvex
