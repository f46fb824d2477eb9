#include "kept_records.h"

#include "arithmetic_fault.h"
#include "code_page.h"
#include "plain_number.h"
#include "radix_sort.h"
#include "record_fields.h"
#include "source_files.h"

#include <algorithm>
#include <bit>
#include <cmath>
#include <limits>
#include <utility>

namespace korvex {

namespace {

/// The source number that pairs with this record; none when the real is not a whole number of 32 bits, for then no
/// points record can have it. Throws ArithmeticFault for one beyond the range of a real.
std::optional<std::int32_t> pairingNumber(std::string_view line)
{
    std::int32_t plain = 0;
    if (PlainFields(line).next(plain))
        return plain;
    const std::string text = decodeCodePage(line);  // a message may show it
    const double number = RecordFields(text).nextReal();
    if (number != std::nearbyint(number) || number < std::numeric_limits<std::int32_t>::min()
        || number > std::numeric_limits<std::int32_t>::max())
        return std::nullopt;
    return static_cast<std::int32_t>(number);
}

/// As many lines as the text has when it goes on as it begins, and a few more.
std::size_t estimatedLines(std::string_view text)
{
    const std::string_view sample = text.substr(0, std::size_t{1} << 16);
    const auto lines = static_cast<std::size_t>(std::count(sample.begin(), sample.end(), '\n')) + 1;
    return sample.empty() ? 0 : lines * (text.size() / sample.size() + 1);
}

/// Orders as the number does.
std::uint32_t unsignedKey(std::int32_t number)
{
    constexpr std::uint32_t signBit = 0x80000000U;
    return static_cast<std::uint32_t>(number) ^ signBit;
}

}  // namespace

Result<void> KeptRecords::read(InputFile& file)
{
    m_path = file.path();
    Result<FileBytes> bytes = file.readAll();
    if (!bytes.ok())
        return bytes.error();
    m_bytes = std::move(bytes.value());

    const std::string_view text = m_bytes.view();
    std::string_view rest = text;
    std::size_t lineNumber = 0;
    bool isSorted = true;
    m_entries.reserve(estimatedLines(text));
    while (!rest.empty()) {
        const std::size_t begin = text.size() - rest.size();
        const std::string_view line = takeLine(rest);
        ++lineNumber;
        if (isCommentLine(line))
            continue;
        try {
            if (const auto number = pairingNumber(line)) {
                isSorted = isSorted && (m_entries.empty() || m_entries.back().number <= *number);
                m_entries.push_back(
                    {*number, static_cast<std::uint32_t>(begin), static_cast<std::uint32_t>(begin >> 32)});
            }
        } catch (const ArithmeticFault& fault) {
            return FileError{FileStep::Read, m_path, lineNumber, fault.what()};
        }
    }
    if (!isSorted) {
        constexpr int numberBits = 32;
        sortByKey(m_entries, numberBits, [](const Entry& entry) { return std::uint64_t{unsignedKey(entry.number)}; });
    }
    return {};
}

void KeptRecords::follow(InputFile& file)
{
    m_path = file.path();
    m_lines.emplace(file);
}

/// To the next record that pairs with a number.
void KeptRecords::advance()
{
    m_ahead.reset();
    while (!m_ahead && !m_isAtEnd) {
        const Result<bool> more = m_lines->next(m_line);
        if (!more.ok())
            m_error = more.error();
        m_isAtEnd = !more.ok() || !more.value();
        if (m_isAtEnd || isCommentLine(m_line.bytes))
            continue;
        try {
            m_ahead = pairingNumber(m_line.bytes);
        } catch (const ArithmeticFault& fault) {
            m_error = FileError{FileStep::Read, m_path, m_line.number, fault.what()};
            m_isAtEnd = true;
        }
    }
    if (!m_ahead)
        return;
    m_isLost = m_isLost || *m_ahead < m_last;
    m_last = *m_ahead;
}

std::optional<std::string_view> KeptRecords::findAhead(std::int32_t number)
{
    m_isLost = m_isLost || (m_asked && number < *m_asked);
    m_asked = number;
    while (!m_isAtEnd && !m_isLost && (!m_ahead || *m_ahead < number))
        advance();
    if (m_isLost || !m_ahead || *m_ahead != number)
        return std::nullopt;
    return m_line.bytes;
}

Result<void> KeptRecords::finish()
{
    while (!m_isAtEnd && !m_isLost)
        advance();
    return m_error ? Result<void>(*m_error) : Result<void>();
}

std::optional<std::string_view> KeptRecords::find(std::int32_t number)
{
    if (m_lines)
        return findAhead(number);
    const auto isFirstOf = [this, number](std::size_t i) {
        return i < m_entries.size() && m_entries[i].number == number && (i == 0 || m_entries[i - 1].number != number);
    };
    std::size_t found = m_next;
    if (!isFirstOf(found)) {
        found = firstNotBelow(number);
        if (!isFirstOf(found))
            return std::nullopt;
    }
    m_next = found + 1;
    return m_bytes.view().substr(m_entries[found].begin());
}

/// The first entry with this number or a larger one.
std::size_t KeptRecords::firstNotBelow(std::int32_t number)
{
    if (m_entries.empty() || number <= m_entries.front().number)
        return 0;
    if (number > m_entries.back().number)
        return m_entries.size();
    if (m_buckets.empty())
        makeBuckets();
    return firstInBucket(number);
}

/// The same for a number between the first and the last, when there are buckets.
std::size_t KeptRecords::firstInBucket(std::int32_t number) const
{
    const std::size_t bucket = bucketOf(number);
    const auto found
        = std::lower_bound(m_entries.begin() + m_buckets[bucket], m_entries.begin() + m_buckets[bucket + 1], number,
            [](const Entry& entry, std::int32_t wanted) { return entry.number < wanted; });
    return static_cast<std::size_t>(found - m_entries.begin());
}

void KeptRecords::makeBuckets()
{
    const std::uint64_t range
        = std::uint64_t{unsignedKey(m_entries.back().number)} - unsignedKey(m_entries.front().number) + 1;
    m_bucketShift
        = std::max(0, static_cast<int>(std::bit_width(range)) - static_cast<int>(std::bit_width(m_entries.size())));
    m_buckets.resize(bucketOf(m_entries.back().number) + 2);
    std::size_t bucket = 0;
    for (std::size_t i = 0; i < m_entries.size(); ++i) {
        for (const std::size_t own = bucketOf(m_entries[i].number); bucket <= own; ++bucket)
            m_buckets[bucket] = static_cast<std::uint32_t>(i);
    }
    m_buckets.back() = static_cast<std::uint32_t>(m_entries.size());
}

std::size_t KeptRecords::bucketOf(std::int32_t number) const
{
    return (unsignedKey(number) - unsignedKey(m_entries.front().number)) >> m_bucketShift;
}

void KeptRecords::announce(std::span<const std::int32_t> numbers) const
{
    if (!isOutOfOrder())
        return;
    const auto forEachInRange = [this, numbers](auto fetch) {
        for (const std::int32_t number : numbers) {
            if (number >= m_entries.front().number && number <= m_entries.back().number)
                fetch(number);
        }
    };
    forEachInRange([this](std::int32_t number) { __builtin_prefetch(m_buckets.data() + bucketOf(number)); });
    forEachInRange([this](std::int32_t number) { __builtin_prefetch(m_entries.data() + m_buckets[bucketOf(number)]); });
    forEachInRange([this](std::int32_t number) {
        // A record takes one or two lines of the processor's cache.
        constexpr std::size_t cacheLine = 64;
        const char* const record = m_bytes.view().data() + m_entries[firstInBucket(number)].begin();
        __builtin_prefetch(record);
        __builtin_prefetch(record + cacheLine);
    });
}

std::size_t KeptRecords::lineOf(std::string_view record) const
{
    if (m_lines)
        return m_line.number;
    return static_cast<std::size_t>(1 + std::count(m_bytes.view().data(), record.data(), '\n'));
}

}  // namespace korvex
