#include "load_findings.h"

#include "arithmetic_fault.h"
#include "code_page.h"
#include "file_lines.h"
#include "number_text.h"
#include "plain_number.h"
#include "record_losses.h"
#include "utf8_text.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstdint>
#include <optional>
#include <span>
#include <string_view>
#include <utility>

namespace korvex {

namespace {

/// Which sources were loaded from the record of a number. Each number has but one record.
class SourcesByNumber {
public:
    struct Entry {
        std::int32_t number;
        std::uint32_t position;  // 0: a points record of an unknown type
    };

    void add(std::int32_t number, std::size_t position)
    {
        m_entries.push_back({number, static_cast<std::uint32_t>(position)});
    }
    void finish()
    {
        const auto isBefore = [](const Entry& a, const Entry& b) {
            return a.number != b.number ? a.number < b.number : a.position < b.position;
        };
        if (!std::is_sorted(m_entries.begin(), m_entries.end(), isBefore))
            std::sort(m_entries.begin(), m_entries.end(), isBefore);
        m_isTaken.assign(m_entries.size(), false);
    }

    /// None when no source has the number, or the record is not the first.
    std::span<const Entry> take(std::int32_t number)
    {
        // Files are mostly in one order: the next record is likely to be that of the next source.
        if (m_next >= m_entries.size() || m_entries[m_next].number != number)
            m_next = firstOf(number);
        const std::size_t first = m_next;
        if (first == m_entries.size() || m_entries[first].number != number || m_isTaken[first])
            return {};
        m_isTaken[first] = true;
        while (m_next < m_entries.size() && m_entries[m_next].number == number)
            ++m_next;
        return std::span(m_entries).subspan(first, m_next - first);
    }

private:
    [[nodiscard]] std::size_t firstOf(std::int32_t number) const
    {
        const auto found = std::lower_bound(m_entries.begin(), m_entries.end(), number,
            [](const Entry& entry, std::int32_t wanted) { return entry.number < wanted; });
        return static_cast<std::size_t>(found - m_entries.begin());
    }

    std::vector<Entry> m_entries;
    std::vector<bool> m_isTaken;  // by the first entry of a number
    std::size_t m_next = 0;
};

SourcesByNumber sourcesByNumber(const SourceSet& set, const LoadReport& report, DataFile file)
{
    // The dust of a source without a description is not looked up. They come in the order of the sources.
    auto skipped = report.missingDescription.begin();
    SourcesByNumber sources;
    for (std::size_t position = 1; position <= set.size(); ++position) {
        const std::int32_t number = set.at(position).ICZ();
        const bool isSkipped = skipped != report.missingDescription.end() && skipped->number == number;
        if (isSkipped)
            ++skipped;
        if (!isSkipped || file == DataFile::Description)
            sources.add(number, position);
    }
    // Told already: the other records of such a source are no findings of their own.
    for (const RecordPlace& place : report.unknownType)
        sources.add(place.number, 0);
    sources.finish();
    return sources;
}

/// The number as the loader compares it; none for one that is not whole and thus of no source.
std::optional<std::int32_t> wholeNumber(std::string_view record)
{
    std::int32_t plain = 0;
    if (PlainFields(record).next(plain))
        return plain;
    const double number = readReal(record.substr(0, record.find(',')));
    if (number != std::nearbyint(number) || number < -2147483648.0 || number > 2147483647.0)
        return std::nullopt;
    return static_cast<std::int32_t>(number);
}

LoadFinding findingOf(RecordLoss loss)
{
    switch (loss) {
    case RecordLoss::Value:
        return LoadFinding::ChangedValue;
    case RecordLoss::NoValue:
        return LoadFinding::MissingValue;
    case RecordLoss::SurplusFields:
        return LoadFinding::SurplusFields;
    case RecordLoss::Name:
        return LoadFinding::ChangedName;
    case RecordLoss::Dust:
        break;
    }
    return LoadFinding::ChangedDust;
}

constexpr std::string_view dustFileTitle = "Soubor s prachem:";

/// The text of a comment line that a save writes anew, whatever stood there.
bool isHeaderText(std::string_view text)
{
    constexpr std::array<std::string_view, 6> beginnings{
        "SOUBOR S BODY", "SOUBOR S POPISEM", "SOUBOR S PRACHEM", "Soubor s body:", "Soubor s popisem:", dustFileTitle};
    return std::any_of(beginnings.begin(), beginnings.end(),
        [text](std::string_view beginning) { return text.substr(0, beginning.size()) == beginning; });
}

class SecondPass {
public:
    SecondPass(Inventory& inventory, const LoadReport& report, LoadFor use)
        : m_inventory(inventory), m_report(report), m_use(use), m_comment(encodeCodePage(inventory.comment))
    {
    }

    Result<void> run()
    {
        Result<void> passed = passPoints();
        if (passed.ok())
            passed = passRecords(DataFile::Description);
        if (passed.ok() && m_inventory.hasDust())
            passed = passRecords(DataFile::Dust);
        return passed;
    }

private:
    Result<void> passPoints()
    {
        addPlaces(m_report.unknownType, LoadFinding::UnknownType);
        addPlaces(m_report.missingDescription, LoadFinding::MissingDescription);
        addPlaces(m_report.missingDust, LoadFinding::MissingDust);
        std::size_t position = 0;
        auto unknown = m_report.unknownType.begin();
        Result<void> passed = passLines(DataFile::Points, [&](const TextLine& line) {
            if (unknown != m_report.unknownType.end() && unknown->line == line.number)
                ++unknown;
            else if (m_use == LoadFor::Writing && ++position <= m_inventory.set.size())
                addDifferences(
                    DataFile::Points, line, position, m_comparison.points(line.bytes, m_inventory.set.at(position)));
        });
        std::stable_sort(m_inventory.findings.begin(), m_inventory.findings.end(),
            [](const FindingPlace& a, const FindingPlace& b) { return a.line < b.line; });
        return passed;
    }

    Result<void> passRecords(DataFile file)
    {
        SourcesByNumber sources = sourcesByNumber(m_inventory.set, m_report, file);
        return passLines(file, [&](const TextLine& line) {
            const std::optional<std::int32_t> number = wholeNumber(line.bytes);
            const auto taken = number ? sources.take(*number) : std::span<const SourcesByNumber::Entry>();
            if (taken.empty())
                m_inventory.findings.push_back({LoadFinding::NotTaken, file, line.number, numberText(line.bytes)});
            else if (m_use == LoadFor::Writing)
                compare(file, line, taken);
        });
    }

    /// What one of the sources of a record keeps is not lost.
    void compare(DataFile file, const TextLine& line, std::span<const SourcesByNumber::Entry> sources)
    {
        std::vector<RecordDifference> ofFirst;
        std::size_t first = 0;
        for (const SourcesByNumber::Entry& entry : sources) {
            if (entry.position == 0)
                continue;
            const cZdroje& source = m_inventory.set.at(entry.position);
            std::vector<RecordDifference> differences = file == DataFile::Description
                ? m_comparison.description(line.bytes, source)
                : m_comparison.dust(line.bytes, source);
            if (differences.empty())
                return;
            if (first == 0) {
                first = entry.position;
                ofFirst = std::move(differences);
            }
        }
        addDifferences(file, line, first, std::move(ofFirst));
    }

    /// Hands the records to take; looks at the other lines itself.
    template <class Take>
    Result<void> passLines(DataFile file, Take take)
    {
        const std::string& path = m_inventory.pathOf(file);
        bool hasUtf8 = false;
        return forEachLine(path, [&](const TextLine& line) -> Result<void> {
            constexpr std::string_view byteOrderMark = "\xEF\xBB\xBF";
            const bool isMarked = line.number == 1 && line.bytes.substr(0, byteOrderMark.size()) == byteOrderMark;
            if (!hasUtf8 && (isMarked || looksLikeUtf8(line.bytes))) {
                m_inventory.findings.push_back({LoadFinding::Utf8, file, line.number, {}});
                hasUtf8 = true;
            }
            if (isCommentLine(line.bytes)) {
                checkComment(file, line);
                return {};
            }
            try {
                take(line);
            } catch (const ArithmeticFault& fault) {
                return FileError{FileStep::Read, path, line.number, fault.what()};
            }
            return {};
        });
    }

    void checkComment(DataFile file, const TextLine& line)
    {
        if (m_use != LoadFor::Writing)
            return;
        std::string_view text = trimBlanks(line.bytes);
        if (!text.empty())
            text = trimBlanks(text.substr(1));
        if (!m_inventory.hasDust() && text.substr(0, dustFileTitle.size()) == dustFileTitle)
            checkDustFile(file, line.number, trimBlanks(text.substr(dustFileTitle.size())));
        if (!text.empty() && text != m_comment && !isHeaderText(text))
            m_inventory.findings.push_back(
                {LoadFinding::LostComment, file, line.number, {}, 0, 0, decodeCodePage(text), {}});
    }

    /// Both files name it; once is enough.
    void checkDustFile(DataFile file, std::size_t line, std::string_view path)
    {
        if (path.empty() || m_namesDustFile)
            return;
        m_inventory.findings.push_back({LoadFinding::DustNotGiven, file, line, {}, 0, 0, decodeCodePage(path), {}});
        m_namesDustFile = true;
    }

    void addDifferences(
        DataFile file, const TextLine& line, std::size_t position, std::vector<RecordDifference> differences)
    {
        for (RecordDifference& difference : differences)
            m_inventory.findings.push_back({findingOf(difference.loss), file, line.number, numberText(line.bytes),
                position, difference.field, std::move(difference.before), std::move(difference.after)});
    }

    void addPlaces(const std::vector<RecordPlace>& places, LoadFinding finding)
    {
        for (const RecordPlace& place : places)
            m_inventory.findings.push_back({finding, DataFile::Points, place.line, integerText(place.number)});
    }

    /// As the record has it.
    static std::string numberText(std::string_view record)
    {
        return decodeCodePage(trimBlanks(record.substr(0, record.find(','))));
    }

    Inventory& m_inventory;
    const LoadReport& m_report;
    LoadFor m_use;
    std::string m_comment;
    bool m_namesDustFile = false;
    RecordComparison m_comparison;
};

}  // namespace

Result<void> findWhatIsNotLoaded(Inventory& inventory, const LoadReport& report, LoadFor use)
{
    return SecondPass(inventory, report, use).run();
}

}  // namespace korvex
