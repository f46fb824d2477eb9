// The bytes of a file before it is written.
#pragma once

#include <cstddef>
#include <string>
#include <vector>

namespace korvex {

/// Kept in blocks: one growing text would be copied again and again and take twice its size.
class OutputBytes {
public:
    /// Where to append next. Ask again for every record.
    [[nodiscard]] std::string& room();
    [[nodiscard]] const std::vector<std::string>& blocks() const { return m_blocks; }
    [[nodiscard]] std::size_t size() const;

private:
    std::vector<std::string> m_blocks;
};

}  // namespace korvex
