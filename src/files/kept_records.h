// The records of a description or dust file, kept to be looked up by source number.
#pragma once

#include "file_error.h"
#include "input_file.h"

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace korvex {

class KeptRecords {
public:
    /// Reads the file to its end and keeps every line that is not a comment. A number (field 1) beyond the range of
    /// a real is an error that names its line.
    [[nodiscard]] Result<void> read(InputFile& file);

    /// The record with this number that comes first in the file, as the bytes of its line.
    [[nodiscard]] std::optional<std::string_view> find(std::int32_t number);

    /// The line of a record given by find, from 1.
    [[nodiscard]] std::size_t lineOf(std::string_view record) const;
    [[nodiscard]] const std::string& path() const { return m_path; }

private:
    struct Entry {
        std::int32_t number;
        std::size_t begin;  // where the line begins in the text
    };

    [[nodiscard]] std::string_view lineAt(std::size_t begin) const;

    std::string m_path;
    FileBytes m_bytes;
    std::vector<Entry> m_entries;  // by number; entries of one number in file order
    std::size_t m_next = 0;        // files are mostly in the same order: the next look-up is likely to be for this
};

}  // namespace korvex
