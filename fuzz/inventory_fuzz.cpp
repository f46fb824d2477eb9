// The three files of an inventory: however they are read (in number order or through the index, records by the fast or
// the general way), the outcome is that of a loader as plain as can be; nothing is lost uncounted; a save is a fixed
// point.
#include "code_page.h"
#include "laws.h"
#include "loader.h"
#include "memory_files.h"
#include "number_text.h"
#include "saver.h"
#include "slow_reading.h"
#include "source_rows.h"
#include "source_set.h"

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <map>
#include <optional>
#include <set>
#include <string>
#include <vector>

namespace korvex::fuzz {

namespace {

struct Inventory {
    std::string points;
    std::string description;
    std::optional<std::string> dust;
};

const SourceFiles paths{"b.txt", "p.txt", "d.txt"};
constexpr std::string_view oldPoints = "77, 1, 1, 1, 3, 1, 1 ;Starý";

SourceFiles pathsOf(const Inventory& inventory)
{
    SourceFiles files = paths;
    if (!inventory.dust)
        files.dust = "";
    return files;
}

class Nobody : public ProgressListener {
public:
    void statusText(std::string_view /*text*/) override { }
    void progressMaximum(std::size_t maximum) override { m_maximum = maximum; }
    void progressValue(std::size_t value) override
    {
        require(value <= m_maximum, "progress ends where it was said to end");
    }

private:
    std::size_t m_maximum = 0;
};

bool isComment(std::string_view line)
{
    const std::string text = slowTrim(line);
    return text.empty() || text.front() == ';';
}

std::string placesText(const std::vector<RecordPlace>& places)
{
    std::string text;
    for (const RecordPlace& place : places)
        text += std::to_string(place.number) + '@' + std::to_string(place.line) + ' ';
    return text + '\n';
}

/// Everything that a load does, as one text.
std::string story(const std::string& error, const SourceSet& set, const LoadReport& report)
{
    std::string text = error + '\n';
    text += report.setTouched ? "touched\n" : "untouched\n";
    text += report.comment ? "comment " + *report.comment + '\n' : "no comment\n";
    for (std::size_t position = 1; position <= set.size(); ++position) {
        const cZdroje& source = set.at(position);
        text += source.LineSource() + '|' + source.LineParameters() + '|' + source.LineDust() + '\n';
    }
    return text + placesText(report.missingDescription) + placesText(report.missingDust)
        + placesText(report.unknownType);
}

std::string errorAt(const std::string& path, std::size_t line)
{
    return path + ':' + std::to_string(line);
}

struct Request {
    LoadMode mode;
    MissingDescription missing;
};

SourceSet oldSet()
{
    SourceSet set;
    set.addFromRecords(cLiniovyZdroj, oldPoints, "77, 1");
    set.modified(true);
    return set;
}

std::string load(const Inventory& inventory, Request request, SourceSet& set, LoadReport& report)
{
    MemoryFiles files;
    files.put(paths.points, inventory.points);
    files.put(paths.description, inventory.description);
    if (inventory.dust)
        files.put(paths.dust, *inventory.dust);
    Nobody nobody;
    const Result<void> loaded
        = loadSourceSet({pathsOf(inventory), request.mode, request.missing}, set, report, nobody, files);
    require(files.openCount() == 0, "what was opened is closed");
    require(set.modified() != loaded.ok(), "a load that runs to its end clears the flag, no other");
    return story(loaded.ok() ? "" : errorAt(loaded.error().path, loaded.error().line), set, report);
}

/// Records by number, the first of each; or the line that cannot be read.
struct Records {
    std::map<std::int32_t, std::pair<std::string, std::size_t>> byNumber;
    std::size_t errorLine = 0;
};

Records recordsOf(std::string_view bytes)
{
    Records records;
    std::size_t lineNumber = 0;
    for (const std::string& line : slowLines(bytes)) {
        ++lineNumber;
        if (isComment(line))
            continue;
        const std::optional<double> number = slowReal(slowField(line, ',', 1));
        if (!number) {
            records.errorLine = lineNumber;
            return records;
        }
        if (*number == std::nearbyint(*number) && std::abs(*number) < 2147483648.5) {
            if (*number >= -2147483648.0 && *number <= 2147483647.0)
                records.byNumber.emplace(static_cast<std::int32_t>(*number), std::pair(line, lineNumber));
        }
    }
    return records;
}

bool faults(const auto& action)
{
    try {
        action();
        return false;
    } catch (const ArithmeticFault&) {
        return true;
    }
}

/// The loader as plain as can be: everything in maps, every record by the general way.
std::string slowLoad(const Inventory& inventory, Request request)
{
    SourceSet set = oldSet();
    LoadReport report;
    const Records descriptions = recordsOf(inventory.description);
    if (descriptions.errorLine > 0)
        return story(errorAt(paths.description, descriptions.errorLine), set, report);
    const Records dusts = recordsOf(inventory.dust.value_or(""));
    if (dusts.errorLine > 0)
        return story(errorAt(paths.dust, dusts.errorLine), set, report);
    report.setTouched = true;
    if (request.mode == LoadMode::Replace)
        set.clear();

    std::size_t lineNumber = 0;
    for (const std::string& bytes : slowLines(inventory.points)) {
        ++lineNumber;
        const std::string line = slowDecode(bytes);
        if (isComment(line)) {
            const std::string text = slowTrim(line);
            if (!report.comment && text.size() > 1 && !slowTrim(text.substr(1)).empty())
                report.comment = slowTrim(text.substr(1));
            continue;
        }
        const std::optional<std::int32_t> number = slowInteger(slowField(line, ',', 1));
        const std::optional<std::int32_t> typeId = slowInteger(slowField(line, ',', 5));
        if (!number || !typeId)
            return story(errorAt(paths.points, lineNumber), set, report);
        const SourceType* const type = sourceTypeOf(*typeId);
        if (type == nullptr) {
            report.unknownType.push_back({*number, lineNumber});
            continue;
        }
        const auto description = descriptions.byNumber.find(*number);
        const bool isPaired = description != descriptions.byNumber.end();
        if (!isPaired) {
            report.missingDescription.push_back({*number, lineNumber});
            if (request.missing == MissingDescription::Skip)
                continue;
        }
        cZdroje source(*type);
        if (faults([&] { source.LineSource(line); }))
            return story(errorAt(paths.points, lineNumber), set, report);
        if (isPaired && faults([&] { source.LineParameters(description->second.first); }))
            return story(errorAt(paths.description, description->second.second), set, report);
        if (isPaired && inventory.dust) {
            const auto dust = dusts.byNumber.find(*number);
            if (dust != dusts.byNumber.end())
                source.LineDust(
                    slowDecode(dust->second.first.substr(std::min<std::size_t>(10, dust->second.first.size()))));
            else
                report.missingDust.push_back({*number, lineNumber});
        }
        set.append(std::move(source));
    }
    return story("", set, report);
}

void checkCounts(const Inventory& inventory, const SourceSet& set, const LoadReport& report)
{
    std::size_t records = 0;
    for (const std::string& line : slowLines(inventory.points))
        records += isComment(line) ? 0U : 1U;
    require(records == set.size() + report.unknownType.size(), "no record appears or vanishes uncounted");
}

/// The three files as a save writes them; and that they hold the records in order.
Inventory save(SourceSet& set, const std::string& comment, bool hasDust)
{
    MemoryFiles files;
    SaveRequest request;
    request.files = paths;
    if (!hasDust)
        request.files.dust = "";
    request.comment = comment;
    SourceRows rows;
    rows.refill(set.size());
    Nobody nobody;
    const auto saved = saveSourceSet(request, set, rows, nobody, files);
    require(saved.ok(), "files in memory can be written");
    require(files.openCount() == 0, "what was opened is closed");
    require(saved.value().replacedIn.empty(), "what came from the code page goes back to it");
    Inventory written{files.bytes(paths.points), files.bytes(paths.description), std::nullopt};
    if (hasDust)
        written.dust = files.bytes(paths.dust);

    std::string points;
    std::string description;
    std::string dust;
    for (std::size_t position = 1; position <= set.size(); ++position) {
        points += encodeCodePage(set.at(position).LineSource()) + "\r\n";
        description += set.at(position).LineParameters() + "\r\n";
        dust += encodeCodePage(set.at(position).LineDust()) + "\r\n";
    }
    const auto endsWith = [](std::string_view text, std::string_view end) {
        return text.size() >= end.size() && text.substr(text.size() - end.size()) == end;
    };
    require(endsWith(written.points, points), "the points file ends in the points records");
    require(endsWith(written.description, description), "the description file ends in the description records");
    require(!hasDust || endsWith(*written.dust, dust), "the dust file ends in the dust records");
    require(!comment.empty() || written.points == points, "without a comment there are no headers");
    return written;
}

std::string bytesOf(const Inventory& inventory)
{
    return inventory.points + "====\n" + inventory.description + "====\n" + inventory.dust.value_or("");
}

/// Saves, loads and saves again. Nothing when what was written cannot be read: only the largest reals do that.
std::optional<Inventory> savedAgain(const Inventory& written, bool hasDust)
{
    SourceSet set = oldSet();
    LoadReport report;
    const std::string told = load(written, {LoadMode::Replace, MissingDescription::Accept}, set, report);
    if (told.front() != '\n') {
        require(written.description.find("3.40282") != std::string::npos, "what was written can be read");
        return std::nullopt;
    }
    checkCounts(written, set, report);
    require(report.missingDescription.empty() && report.missingDust.empty() && report.unknownType.empty(),
        "a save leaves nothing out");
    return save(set, report.comment.value_or(""), hasDust);
}

void checkSaving(SourceSet& set, const LoadReport& report, bool hasDust)
{
    std::set<std::int32_t> numbers;
    bool isPadded = true;
    for (std::size_t position = 1; position <= set.size(); ++position) {
        const std::int32_t number = set.at(position).ICZ();
        numbers.insert(number);
        isPadded = isPadded && number >= 0 && number <= 999'999'999;
    }
    const Inventory first = save(set, report.comment.value_or(""), hasDust);
    const std::optional<Inventory> second = savedAgain(first, hasDust);
    if (!second)
        return;
    // A number of ten characters pushes the dust text by one at each save; two sources of one number share the first
    // record, which levels them once.
    if (!isPadded)
        return;
    if (numbers.size() == set.size())
        requireSame(bytesOf(*second), bytesOf(first), "saving what was saved changes nothing");
    if (const std::optional<Inventory> third = savedAgain(*second, hasDust))
        requireSame(bytesOf(*third), bytesOf(*second), "saving what was saved twice changes nothing");
}

/// A record that no points record has, in front of a file, puts the file out of order: it is then read whole.
std::string outOfOrder(const std::string& file)
{
    return "2147483647, 0\r\n" + file;
}

}  // namespace

std::string run(std::string_view input)
{
    const std::vector<std::string_view> cut = parts(input);
    Inventory inventory{std::string(cut[0]), std::string(cut.size() > 1 ? cut[1] : ""), std::nullopt};
    if (cut.size() > 2)
        inventory.dust = std::string(cut[2]);

    std::string answer;
    for (const Request request :
        {Request{LoadMode::Replace, MissingDescription::Accept}, Request{LoadMode::Append, MissingDescription::Skip}}) {
        Inventory tried = inventory;
        for (int way = 0; way < (inventory.dust ? 3 : 2); ++way) {
            tried = inventory;
            if (way == 1)
                tried.description = outOfOrder(inventory.description);
            if (way == 2)
                tried.dust = outOfOrder(*inventory.dust);
            SourceSet set = oldSet();
            LoadReport report;
            const std::string told = load(tried, request, set, report);
            requireSame(told, slowLoad(tried, request), "the outcome is that of the plainest loader");
            answer += told;
            if (way > 0 || told.front() != '\n' || request.mode != LoadMode::Replace)
                continue;
            checkCounts(tried, set, report);
            checkSaving(set, report, inventory.dust.has_value());
        }
    }
    return answer;
}

}  // namespace korvex::fuzz
