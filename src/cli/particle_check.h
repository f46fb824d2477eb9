// Checking a list of particles, which stacks and dust groups write in the same way.
#pragma once

#include "checked_line.h"
#include "findings.h"

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string_view>
#include <vector>

namespace korvex {

/// Fields that are kept as they were read.
inline constexpr FieldKind densityKind{"hustota", "density", std::nullopt, FieldKind::Saved::AsRead};
inline constexpr FieldKind groupKind{"skupina prachu", "dust group", Pattern::Plain, FieldKind::Saved::AsRead};

/// fields[countAt] says how many pairs of diameter and share stand behind it.
void checkParticles(Findings& findings, const CheckedLine& line, std::optional<std::int32_t> source,
    const std::vector<std::string_view>& fields, std::size_t countAt);

/// A list that is nothing but plain numbers, as many as it says, with shares that add up: nothing to report.
[[nodiscard]] bool isSoundParticleList(std::string_view fromCount);

}  // namespace korvex
