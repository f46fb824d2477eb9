// The records of a description or dust file, kept to be looked up by source number.
#pragma once

#include "file_error.h"
#include "input_file.h"
#include "large_memory.h"

#include <cstddef>
#include <cstdint>
#include <limits>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace korvex {

/// Read whole, or followed line by line while the points file is read. Following takes next to no memory, but can only
/// be done while both files are in number order.
class KeptRecords {
public:
    /// Follows the file, which has to live as long as this.
    void follow(InputFile& file);
    /// Whether a followed file turned out not to be in number order, or was asked for a number that it has passed: what
    /// was found until then is of no use.
    [[nodiscard]] bool isLost() const { return m_isLost; }
    /// Goes to the end of a followed file. An error is what read would have said.
    [[nodiscard]] Result<void> finish();

    /// Reads the file to its end and keeps every line that is not a comment. A number (field 1) beyond the range of
    /// a real is an error that names its line.
    [[nodiscard]] Result<void> read(InputFile& file);

    /// How many records there are.
    [[nodiscard]] std::size_t count() const { return m_entries.size(); }

    /// The record with this number that comes first in the file: the bytes from its beginning to the end of its line or
    /// of the file. The line is taken with takeLine; of a followed file it is valid until the next call.
    [[nodiscard]] std::optional<std::string_view> find(std::int32_t number);

    /// Whether a look-up was not for the next record. Only then announcing the next ones is of use.
    [[nodiscard]] bool isOutOfOrder() const { return !m_buckets.empty(); }

    /// Tells the processor which records will be looked up soon. In files in random order every look-up waits for
    /// memory several times; together these waits cost as much as one.
    void announce(std::span<const std::int32_t> numbers) const;

    /// The line of a record given by find, from 1.
    [[nodiscard]] std::size_t lineOf(std::string_view record) const;
    [[nodiscard]] const std::string& path() const { return m_path; }

private:
    /// Twelve bytes: a million of them stand beside the file itself.
    struct Entry {
        std::int32_t number;
        std::uint32_t beginLow;
        std::uint32_t beginHigh;

        /// Where the record begins in the text.
        [[nodiscard]] std::size_t begin() const { return std::size_t{beginHigh} << 32 | beginLow; }
    };

    [[nodiscard]] std::optional<std::string_view> findAhead(std::int32_t number);
    void advance();
    void makeBuckets();
    [[nodiscard]] std::size_t bucketOf(std::int32_t number) const;
    [[nodiscard]] std::size_t firstNotBelow(std::int32_t number);
    [[nodiscard]] std::size_t firstInBucket(std::int32_t number) const;

    std::string m_path;

    // Of a followed file: the record ahead, none before the first and behind the last; and what went wrong.
    std::optional<LineReader> m_lines;
    TextLine m_line;
    std::optional<std::int32_t> m_ahead;
    std::optional<std::int32_t> m_asked;
    std::int64_t m_last = std::numeric_limits<std::int64_t>::min();
    bool m_isAtEnd = false;
    bool m_isLost = false;
    std::optional<FileError> m_error;

    // Of a file read whole.
    FileBytes m_bytes;
    std::vector<Entry, LargeMemory<Entry>> m_entries;  // by number; entries of one number in file order
    std::size_t m_next = 0;  // files are mostly in the same order: the next look-up is likely to be for this

    // Made when a look-up is not for the next entry: the numbers are cut into at least half as many equal ranges as
    // there are entries, and each range knows its first entry.
    std::vector<std::uint32_t, LargeMemory<std::uint32_t>> m_buckets;
    int m_bucketShift = 0;
};

}  // namespace korvex
