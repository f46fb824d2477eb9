// The groups of one dust groups file as the editor keeps them: raw lines, parsed only for display.
#pragma once

#include "group_line.h"

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace korvex {

/// Lines that are malformed stay as they came and are written back so.
class GroupLines {
public:
    [[nodiscard]] std::size_t count() const { return m_lines.size(); }
    [[nodiscard]] const std::string& line(std::size_t index) const { return m_lines[index]; }
    [[nodiscard]] const std::vector<std::string>& lines() const { return m_lines; }

    void clear() { m_lines.clear(); }
    void append(std::string line) { m_lines.push_back(std::move(line)); }
    void remove(std::size_t index) { m_lines.erase(m_lines.begin() + static_cast<std::ptrdiff_t>(index)); }

    /// Stores a changed or new group: takes away the first line with its number, if there is one, and appends the new
    /// line. A stored group moves to the end each time, on purpose: what was worked on last stands last.
    void store(const DustGroup& group);

    /// One more than the largest group number, 1 when there are no groups. Throws ArithmeticFault behind the last
    /// 32-bit number.
    [[nodiscard]] std::int32_t newNumber() const;

private:
    std::vector<std::string> m_lines;
};

}  // namespace korvex
