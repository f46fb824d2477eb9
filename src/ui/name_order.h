// The Czech order of many texts, whatever the user's locale.
#pragma once

#include <cstddef>
#include <cstdint>
#include <functional>
#include <vector>

class QString;

namespace korvex {

/// The rank of each of so many texts: Čáslav behind cihelna, chata behind hora. Texts that the order does not tell
/// apart have one rank.
[[nodiscard]] std::vector<std::int64_t> czechRanks(
    std::size_t count, const std::function<QString(std::size_t index)>& text);

}  // namespace korvex
