#include "inventory.h"

#include "arithmetic_fault.h"
#include "code_page.h"
#include "input_file.h"
#include "number_text.h"
#include "plain_number.h"
#include "safety_copies.h"
#include "source_editor.h"
#include "source_rows.h"
#include "state_folder.h"

#include <algorithm>
#include <cmath>
#include <filesystem>
#include <optional>
#include <string_view>
#include <system_error>
#include <unordered_map>
#include <utility>

namespace korvex {

namespace {

class Silence : public ProgressListener {
public:
    void statusText(std::string_view /*text*/) override { }
    void progressMaximum(std::size_t /*maximum*/) override { }
    void progressValue(std::size_t /*value*/) override { }
};

/// The numbers that records of the description and dust file are taken for, each once.
class WantedNumbers {
public:
    void add(std::int32_t number) { m_numbers.push_back(number); }
    void finish()
    {
        std::sort(m_numbers.begin(), m_numbers.end());
        m_numbers.erase(std::unique(m_numbers.begin(), m_numbers.end()), m_numbers.end());
        m_taken.assign(m_numbers.size(), false);
    }

    /// False when no source has the number, or the record is not the first.
    bool take(std::int32_t number)
    {
        const auto found = std::lower_bound(m_numbers.begin(), m_numbers.end(), number);
        if (found == m_numbers.end() || *found != number)
            return false;
        const auto index = static_cast<std::size_t>(found - m_numbers.begin());
        const bool isFirst = !m_taken[index];
        m_taken[index] = true;
        return isFirst;
    }

private:
    std::vector<std::int32_t> m_numbers;
    std::vector<bool> m_taken;
};

enum class Wanted { Description, Dust };

WantedNumbers wantedNumbers(const SourceSet& set, const LoadReport& report, Wanted what)
{
    // The dust of a source without a description is not looked up. They come in the order of the sources.
    auto skipped = report.missingDescription.begin();
    WantedNumbers wanted;
    for (std::size_t position = 1; position <= set.size(); ++position) {
        const std::int32_t number = set.at(position).ICZ();
        const bool isSkipped = skipped != report.missingDescription.end() && skipped->number == number;
        if (isSkipped)
            ++skipped;
        if (!isSkipped || what == Wanted::Description)
            wanted.add(number);
    }
    // Told already: the other records of such a source are no findings of their own.
    for (const RecordPlace& place : report.unknownType)
        wanted.add(place.number);
    wanted.finish();
    return wanted;
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

Result<void> findNotTaken(
    const std::string& path, LoadFinding finding, WantedNumbers& wanted, std::vector<FindingPlace>& findings)
{
    Result<InputFile> opened = InputFile::open(path, FileCalls::system());
    if (!opened.ok())
        return opened.error();
    LineReader lines(opened.value());
    TextLine line;
    for (;;) {
        const Result<bool> next = lines.next(line);
        if (!next.ok())
            return next.error();
        if (!next.value())
            return {};
        if (isCommentLine(line.bytes))
            continue;
        try {
            const std::optional<std::int32_t> number = wholeNumber(line.bytes);
            if (number && wanted.take(*number))
                continue;
        } catch (const ArithmeticFault& fault) {
            return FileError{FileStep::Read, path, line.number, fault.what()};
        }
        const std::string_view number = trimBlanks(line.bytes.substr(0, line.bytes.find(',')));
        findings.push_back({finding, path, line.number, decodeCodePage(number)});
    }
}

void addPlaces(const std::vector<RecordPlace>& places, LoadFinding finding, const std::string& path,
    std::vector<FindingPlace>& findings)
{
    for (const RecordPlace& place : places)
        findings.push_back({finding, path, place.line, integerText(place.number)});
}

/// How the loader would cut the dust out of the record that the saver writes.
std::string_view dustReadBack(std::string_view record)
{
    constexpr std::size_t dustNumberWidth = 10;
    return behindCharacters(record, dustNumberWidth);
}

std::string parametersWithoutNumber(const cZdroje& source)
{
    const std::string record = source.LineParameters();
    return record.substr(std::min(record.find(','), record.size()));
}

class SaveCheck {
public:
    SaveCheck(const SourceSet& set, bool withDust) : m_set(set), m_withDust(withDust) { }

    std::vector<Distortion> run()
    {
        m_first.reserve(m_set.size());
        for (std::size_t position = 1; position <= m_set.size(); ++position)
            check(position);
        return std::move(m_found);
    }

private:
    void check(std::size_t position)
    {
        const cZdroje& source = m_set.at(position);
        const std::string_view name = source.NazevZdroje();
        if (name.find(';') != std::string_view::npos)
            m_found.push_back({Distortion::Kind::Semicolon, position});
        std::string dust;
        if (m_withDust && source.type().hasDust)
            dust = source.values().dust;
        if (name.find('\n') != std::string_view::npos || dust.find('\n') != std::string::npos)
            m_found.push_back({Distortion::Kind::LineEnd, position});

        const std::size_t first = m_first.emplace(source.ICZ(), position).first->second;
        if (first != position && parametersWithoutNumber(m_set.at(first)) != parametersWithoutNumber(source))
            m_found.push_back({Distortion::Kind::SharedDescription, position});
        if (m_withDust && source.type().hasDust && dustReadBack(m_set.at(first).LineDust()) != dust) {
            const auto kind = first == position ? Distortion::Kind::ShiftedDust : Distortion::Kind::SharedDust;
            m_found.push_back({kind, position});
        }
    }

    const SourceSet& m_set;
    bool m_withDust;
    std::unordered_map<std::int32_t, std::size_t> m_first;  // the position of the first source of each number
    std::vector<Distortion> m_found;
};

}  // namespace

Result<Inventory> loadInventory(const SourceFiles& files)
{
    Inventory inventory;
    inventory.files = files;
    LoadRequest request;
    request.files = files;
    LoadReport report;
    Silence silence;
    const Result<void> loaded = loadSourceSet(request, inventory.set, report, silence);
    if (!loaded.ok())
        return loaded.error();
    inventory.comment = report.comment.value_or("");

    addPlaces(report.unknownType, LoadFinding::UnknownType, files.points, inventory.findings);
    addPlaces(report.missingDescription, LoadFinding::MissingDescription, files.points, inventory.findings);
    addPlaces(report.missingDust, LoadFinding::MissingDust, files.points, inventory.findings);
    std::stable_sort(inventory.findings.begin(), inventory.findings.end(),
        [](const FindingPlace& a, const FindingPlace& b) { return a.line < b.line; });

    WantedNumbers wanted = wantedNumbers(inventory.set, report, Wanted::Description);
    Result<void> passed = findNotTaken(files.description, LoadFinding::DescriptionNotTaken, wanted, inventory.findings);
    if (passed.ok() && inventory.hasDust()) {
        wanted = wantedNumbers(inventory.set, report, Wanted::Dust);
        passed = findNotTaken(files.dust, LoadFinding::DustNotTaken, wanted, inventory.findings);
    }
    if (!passed.ok())
        return passed.error();
    return inventory;
}

std::vector<Distortion> distortionsBySaving(const SourceSet& set, bool withDust)
{
    return SaveCheck(set, withDust).run();
}

std::vector<std::string> existingPaths(const std::vector<std::string>& paths)
{
    std::vector<std::string> existing;
    for (const std::string& path : paths) {
        std::error_code error;
        if (std::filesystem::exists(std::filesystem::symlink_status(path, error)))
            existing.push_back(path);
    }
    return existing;
}

std::vector<std::string> pathsOf(const SourceFiles& files)
{
    std::vector<std::string> paths{files.points, files.description};
    if (!files.dust.empty())
        paths.push_back(files.dust);
    return paths;
}

Result<SaveReport> writeInventory(const SourceFiles& files, const std::string& comment, SourceSet& set)
{
    SaveRequest request;
    request.files = files;
    request.comment = comment;
    request.copies = SafetyCopies(stateFolder());
    SourceRows rows;
    rows.refill(set.size());
    Silence silence;
    return saveSourceSet(request, set, rows, silence);
}

}  // namespace korvex
