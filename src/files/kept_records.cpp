#include "kept_records.h"

#include "arithmetic_fault.h"
#include "record_fields.h"
#include "source_files.h"

#include <algorithm>
#include <cmath>
#include <limits>

namespace korvex {

namespace {

/// The source number that pairs with this record; none when the real is not a whole number of 32 bits, for then no
/// points record can have it.
std::optional<std::int32_t> pairingNumber(std::string_view line)
{
    const double number = RecordFields(line).nextReal();
    if (number != std::nearbyint(number) || number < std::numeric_limits<std::int32_t>::min()
        || number > std::numeric_limits<std::int32_t>::max())
        return std::nullopt;
    return static_cast<std::int32_t>(number);
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
    while (!rest.empty()) {
        const auto begin = static_cast<std::size_t>(rest.data() - text.data());
        const std::string_view line = takeLine(rest);
        ++lineNumber;
        if (isCommentLine(line))
            continue;
        try {
            if (const auto number = pairingNumber(line))
                m_entries.push_back({*number, begin});
        } catch (const ArithmeticFault& fault) {
            return FileError{FileStep::Read, m_path, lineNumber, fault.what()};
        }
    }

    const auto byNumber = [](const Entry& a, const Entry& b) { return a.number < b.number; };
    if (!std::is_sorted(m_entries.begin(), m_entries.end(), byNumber))
        std::stable_sort(m_entries.begin(), m_entries.end(), byNumber);
    return {};
}

std::optional<std::string_view> KeptRecords::find(std::int32_t number)
{
    const auto isFirstOf = [this, number](std::size_t i) {
        return i < m_entries.size() && m_entries[i].number == number && (i == 0 || m_entries[i - 1].number != number);
    };
    if (!isFirstOf(m_next)) {
        const auto found = std::lower_bound(m_entries.begin(), m_entries.end(), number,
            [](const Entry& entry, std::int32_t wanted) { return entry.number < wanted; });
        m_next = static_cast<std::size_t>(found - m_entries.begin());
        if (!isFirstOf(m_next))
            return std::nullopt;
    }
    return lineAt(m_entries[m_next++].begin);
}

std::size_t KeptRecords::lineOf(std::string_view record) const
{
    return static_cast<std::size_t>(1 + std::count(m_bytes.view().data(), record.data(), '\n'));
}

std::string_view KeptRecords::lineAt(std::size_t begin) const
{
    std::string_view rest = m_bytes.view().substr(begin);
    return takeLine(rest);
}

}  // namespace korvex
