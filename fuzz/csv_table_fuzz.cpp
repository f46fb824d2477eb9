// A table to import: findings stand in order and have their texts, and what is taken comes back from an export.
#include "csv_export.h"
#include "csv_finding_text.h"
#include "csv_import.h"
#include "laws.h"
#include "output_bytes.h"

#include <algorithm>

namespace korvex::fuzz {

namespace {

bool isTaken(const CsvInventory& inventory)
{
    return std::all_of(inventory.findings.begin(), inventory.findings.end(),
        [](const CsvFinding& finding) { return isAcceptable(finding.fault); });
}

std::string exported(const CsvInventory& inventory)
{
    std::string all;
    const DustColumn dust = inventory.hasDust ? DustColumn::Present : DustColumn::Absent;
    const OutputBytes bytes = csvBytes(inventory.set, inventory.comment, dust);
    for (const std::string& block : bytes.blocks())
        all += block;
    return all;
}

std::string findingsOf(const CsvInventory& inventory)
{
    std::string answer = textOf(Language::English, inventory.form) + '\n';
    TextPlace last;
    for (const CsvFinding& finding : inventory.findings) {
        require(last <= finding.place, "findings are ordered by place");
        last = finding.place;
        const std::string text = textOf(Language::Czech, finding);
        require(!text.empty(), "every finding has a text");
        answer += finding.column + ": " + text + '\n';
    }
    return answer;
}

}  // namespace

std::string run(std::string_view input)
{
    const CsvInventory read = readCsv(input, GeometryColumn::Check);
    const std::string answer = findingsOf(read);
    if (!isTaken(read) || read.set.empty())
        return answer;
    const std::string first = exported(read);
    const CsvInventory again = readCsv(first, GeometryColumn::Check);
    require(isTaken(again), "what was exported can be imported");
    require(again.set.size() == read.set.size(), "with all its sources");
    require(textOf(Language::English, again.form).empty(), "and is taken for what it is");
    require(std::none_of(again.findings.begin(), again.findings.end(),
                [](const CsvFinding& finding) { return finding.fault == CsvFault::Rounded; }),
        "numbers are rounded once");
    requireSame(exported(again), first, "exporting what was imported is a fixed point");
    return answer + first;
}

}  // namespace korvex::fuzz
