#include "inventory.h"

#include "code_page.h"
#include "file_lines.h"
#include "load_findings.h"
#include "safety_copies.h"
#include "source_editor.h"
#include "source_rows.h"
#include "state_folder.h"

#include <algorithm>
#include <filesystem>
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

const std::string& Inventory::pathOf(DataFile file) const
{
    switch (file) {
    case DataFile::Points:
        return files.points;
    case DataFile::Description:
        return files.description;
    case DataFile::Dust:
        break;
    }
    return files.dust;
}

Result<Inventory> loadInventory(const SourceFiles& files, LoadFor use)
{
    Inventory inventory;
    inventory.files = files;
    LoadRequest request;
    request.files = files;
    if (use == LoadFor::Counting)
        request.missingDescription = MissingDescription::Skip;
    LoadReport report;
    Silence silence;
    const Result<void> loaded = loadSourceSet(request, inventory.set, report, silence);
    if (!loaded.ok())
        return loaded.error();
    inventory.comment = report.comment.value_or("");
    const Result<void> searched = findWhatIsNotLoaded(inventory, report, use);
    if (!searched.ok())
        return searched.error();
    return inventory;
}

Result<std::vector<std::size_t>> pointsLines(const Inventory& inventory)
{
    std::vector<std::size_t> unknown;
    for (const FindingPlace& place : inventory.findings) {
        if (place.finding == LoadFinding::UnknownType)
            unknown.push_back(place.line);
    }
    std::vector<std::size_t> lines{0};
    const Result<void> read = forEachLine(inventory.files.points, [&](const TextLine& line) -> Result<void> {
        if (!isCommentLine(line.bytes) && !std::binary_search(unknown.begin(), unknown.end(), line.number))
            lines.push_back(line.number);
        return {};
    });
    if (!read.ok())
        return read.error();
    return lines;
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
    request.copies = safetyCopies();
    SourceRows rows;
    rows.refill(set.size());
    Silence silence;
    return saveSourceSet(request, set, rows, silence);
}

}  // namespace korvex
