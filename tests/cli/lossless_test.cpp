// The promise of the tool that writes: where no loss was found, what is written says the same as what was read.
#include "inventory_files.h"

#include "blanks.h"
#include "input_file.h"

#include <algorithm>
#include <charconv>
#include <optional>
#include <system_error>

namespace korvex {
namespace {

struct Record {
    std::vector<std::string> fields;
    std::string text;  // as it stands: a name, or dust
};

/// Whether two fields say the same: as whole numbers or reals when both are that and nothing else, else as texts. A
/// blank one is a 0.
bool isSame(std::string a, std::string b)
{
    const auto number = [](std::string& text) -> std::optional<double> {
        text.erase(std::remove_if(text.begin(), text.end(), isBlank), text.end());
        if (text.empty())
            text = "0";
        double value = 0.0;
        const char* const begin = text.data() + (text.front() == '+' && text.substr(0, 2) != "+-" ? 1 : 0);
        const auto read = std::from_chars(begin, text.data() + text.size(), value);
        const bool isAll = read.ec == std::errc() && read.ptr == text.data() + text.size();
        return isAll ? std::optional(value) : std::nullopt;
    };
    const std::optional<double> first = number(a);
    const std::optional<double> second = number(b);
    return first && second ? *first == *second : a == b;
}

/// The fields between commas without blank ones at the end, and what is behind a separator.
Record fieldsOf(std::string_view line, char textSeparator)
{
    const std::size_t end = std::min(line.find(textSeparator), line.size());
    std::string_view numbers = line.substr(0, end);
    std::vector<std::string> fields;
    while (!numbers.empty()) {
        const std::size_t comma = std::min(numbers.find(','), numbers.size());
        fields.emplace_back(numbers.substr(0, comma));
        numbers.remove_prefix(std::min(comma + 1, numbers.size()));
    }
    while (!fields.empty() && trimBlanks(fields.back()).empty())
        fields.pop_back();
    return {fields, std::string(line.substr(std::min(end + 1, line.size())))};
}

std::vector<Record> recordsOf(const std::string& path, DataFile file)
{
    constexpr char none = '\0';
    const char separator = file == DataFile::Points ? ';' : file == DataFile::Dust ? ',' : none;
    const std::string bytes = test::bytesOf(std::filesystem::path(path));
    std::vector<Record> records;
    for (std::string_view rest = bytes; !rest.empty();) {
        const std::string_view line = takeLine(rest);
        if (!isCommentLine(line))
            records.push_back(fieldsOf(line, separator));
    }
    return records;
}

bool isSame(Record given, const Record& saved)
{
    if (given.fields.size() > saved.fields.size() || given.text != saved.text)
        return false;
    given.fields.resize(saved.fields.size());  // a field that is missing is blank
    return std::equal(given.fields.begin(), given.fields.end(), saved.fields.begin(),
        [](const std::string& x, const std::string& y) { return isSame(x, y); });
}

bool saysTheSame(const SourceFiles& given, const SourceFiles& saved)
{
    const auto same = [](const std::string& first, const std::string& second, DataFile file) {
        const std::vector<Record> x = recordsOf(first, file);
        const std::vector<Record> y = recordsOf(second, file);
        return std::equal(x.begin(), x.end(), y.begin(), y.end(),
            [](const Record& one, const Record& other) { return isSame(one, other); });
    };
    return same(given.points, saved.points, DataFile::Points)
        && same(given.description, saved.description, DataFile::Description)
        && same(given.dust, saved.dust, DataFile::Dust);
}

bool isLoss(const FindingPlace& place)
{
    return place.finding != LoadFinding::MissingDescription && place.finding != LoadFinding::MissingDust
        && place.finding != LoadFinding::MissingValue;
}

TEST(Lossless, EveryChangeOfACharacterIsKeptOrFound)
{
    const test::TemporaryFolder folder(test::FolderOn::Memory);
    const SourceFiles files = test::writeThree(folder);
    const SourceFiles written{folder.path("b"), folder.path("p"), folder.path("d")};
    std::size_t kept = 0;
    std::size_t lost = 0;
    for (const std::string* const path : {&files.points, &files.description, &files.dust}) {
        const std::string whole = test::bytesOf(std::filesystem::path(*path));
        for (std::size_t at = 0; at <= whole.size(); ++at) {
            for (const char c : {'7', '0', '.', ',', ';', ' ', '-', 'x', 'E', '\n'}) {
                for (const std::size_t taken : {std::size_t{0}, std::size_t{1}}) {
                    std::string changed = whole;
                    changed.replace(at, std::min(taken, whole.size() - at), 1, c);
                    folder.write(std::filesystem::path(*path).filename().string(), changed);
                    Result<Inventory> loaded = loadInventory(files, LoadFor::Writing);
                    if (!loaded.ok())
                        continue;  // a number out of range
                    Inventory& inventory = loaded.value();
                    const std::vector<FindingPlace>& findings = inventory.findings;
                    const bool isMissing = std::any_of(findings.begin(), findings.end(), [](const auto& place) {
                        return place.finding == LoadFinding::MissingDescription
                            || place.finding == LoadFinding::MissingDust;
                    });
                    if (isMissing || !distortionsBySaving(inventory.set, true).empty())
                        continue;  // records come into being, or the write is refused for another reason
                    const bool isFound = std::any_of(findings.begin(), findings.end(), [](const FindingPlace& place) {
                        return isLoss(place) && place.finding != LoadFinding::LostComment;
                    });
                    for (const std::string& old : pathsOf(written))
                        std::filesystem::remove(old);
                    ASSERT_TRUE(writeInventory(written, inventory.comment, inventory.set).ok());
                    EXPECT_EQ(isFound, !saysTheSame(files, written)) << *path << ':' << at << '\n' << changed;
                    ++(isFound ? lost : kept);
                }
            }
        }
        folder.write(std::filesystem::path(*path).filename().string(), whole);
    }
    EXPECT_GT(kept, 1000U);
    EXPECT_GT(lost, 1000U);
}

}  // namespace
}  // namespace korvex
