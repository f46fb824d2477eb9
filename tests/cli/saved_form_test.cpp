// What the check says of a line's form against what loading and saving it does.
#include "inventory_check.h"
#include "inventory_files.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace korvex::test {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;

struct TestedRecord {
    const char* name;
    std::array<std::string, 3> lines;  // of points, description and dust, one of which is varied
    CheckedFile varied;
};

std::string savedLine(const cZdroje& source, CheckedFile file)
{
    switch (file) {
    case CheckedFile::Points:
        return encodeCodePage(source.LineSource());
    case CheckedFile::Description:
        return encodeCodePage(source.LineParameters());
    default:
        return encodeCodePage(source.LineDust());
    }
}

/// The same line with one character more, less or other.
std::vector<std::string> variantsOf(const std::string& line)
{
    std::vector<std::string> variants{line, " " + line, line + ' '};
    for (std::size_t i = 0; i < line.size(); ++i) {
        for (const char c : {' ', ',', '7', '.', ';'}) {
            variants.push_back(line);
            variants.back().insert(i, 1, c);
        }
        variants.push_back(line);
        variants.back()[i] = 'x';
        variants.push_back(line);
        variants.back().erase(i, 1);
    }
    return variants;
}

class SavedForm : public testing::TestWithParam<TestedRecord> { };

/// The rules that say that a save changes a line, and those that say that its record is not loaded at all.
bool saysSo(Rule rule)
{
    constexpr std::array rules{Rule::Rewritten, Rule::NumberText, Rule::DecimalComma, Rule::FieldCount,
        Rule::NameSemicolon, Rule::DigitsLost, Rule::DustDropped, Rule::NumberWidth};
    return std::find(rules.begin(), rules.end(), rule) != rules.end();
}

TEST_P(SavedForm, IsReportedExactlyWhenASaveWritesOtherBytes)
{
    const auto varied = static_cast<std::size_t>(GetParam().varied);
    std::size_t changed = 0;
    const TemporaryFolder folder;
    for (const std::string& line : variantsOf(GetParam().lines[varied])) {
        std::array<std::string, 3> lines = GetParam().lines;
        lines[varied] = line;
        const SourceFiles files{folder.write("body.txt", lines[0] + "\r\n"),
            folder.write("popis.txt", lines[1] + "\r\n"), folder.write("prach.txt", lines[2] + "\r\n")};
        Findings findings(Language::English, 0, {});
        ASSERT_TRUE(checkInventory({files, "", 101325.0F}, findings).ok());
        const Result<Inventory> inventory = loadInventory(files, LoadFor::Counting);
        // A line that makes the file unreadable, its record belong to no source or a comment of it is not saved.
        if (!inventory.ok() || inventory.value().set.size() != 1 || findings.count(Rule::WrongFile) > 0
            || findings.count(Rule::OrphanDescription) > 0 || findings.count(Rule::OrphanDust) > 0
            || findings.count(Rule::NoDust) > 0)
            continue;
        const std::string saved = savedLine(inventory.value().set.at(1), GetParam().varied);
        const std::size_t firstOther
            = static_cast<std::size_t>(
                  std::mismatch(line.begin(), line.end(), saved.begin(), saved.end()).first - line.begin())
            + 1;
        bool isTold = false;
        for (const Finding& finding : findings.sorted()) {
            isTold = isTold || (finding.place.file == GetParam().varied && saysSo(finding.rule));
            if (finding.rule != Rule::Rewritten || finding.place.file != GetParam().varied)
                continue;
            EXPECT_EQ(finding.place.column, firstOther) << line;
        }
        EXPECT_LE(findings.count(Rule::Rewritten), 1U) << line;
        changed += line == saved ? 0U : 1U;
        EXPECT_TRUE(isTold || line == saved) << line << "\n" << saved;
        EXPECT_TRUE(line != saved || findings.count(Rule::Rewritten) == 0) << line;
    }
    EXPECT_GT(changed, 5U);
}

const std::array<std::string, 3> stack{"000000001, 0641862, 1078344, 0431, 1, 1, 12 ;Kotel, dub",
    "000000001, 0.16, 32, 3.119339, 145, 0.8, 9.5, 0.45, 24, 0", "000000001,1800,0,2,2.5,0.3,10,0.7"};
const std::array<std::string, 3> area{
    "000000101, 0643380, 1077412, 0468, 2, 3, 0 ;", "000000101, 1.2E-05, 4, 0, 2, 0, 0, 0.3, 10, 40", "000000101"};

INSTANTIATE_TEST_SUITE_P(Records, SavedForm,
    testing::Values(TestedRecord{"StackPoint", stack, CheckedFile::Points},
        TestedRecord{"StackDescription", stack, CheckedFile::Description},
        TestedRecord{"StackDust", stack, CheckedFile::Dust}, TestedRecord{"AreaPoint", area, CheckedFile::Points},
        TestedRecord{"AreaDescription", area, CheckedFile::Description},
        TestedRecord{"AreaDust", area, CheckedFile::Dust}),
    [](const auto& record) { return std::string(record.param.name); });

std::vector<std::string> messagesOf(const std::string& points)
{
    const TemporaryFolder folder;
    const SourceFiles files{folder.write("body.txt", points), folder.write("popis.txt", stack[1] + "\r\n"), ""};
    Findings findings(Language::English, 0, {});
    EXPECT_TRUE(checkInventory({files, "", 101325.0F}, findings).ok());
    std::vector<std::string> messages;
    for (const Finding& finding : findings.sorted()) {
        messages.push_back(std::to_string(finding.place.line) + ':' + std::to_string(finding.place.column) + ' '
            + findings.message(finding));
    }
    return messages;
}

TEST(LineEnds, AreReportedOnceAFileAndOnlyOfRecords)
{
    EXPECT_THAT(messagesOf(";x\n" + stack[0] + "\r\n"), ElementsAre());
    EXPECT_THAT(messagesOf("000000001, 0000001, 0000001, 0001, 9, 1, 1 ;\n" + stack[0] + '\n'),
        ElementsAre(HasSubstr("source type 9"),
            "1:45 the line end LF (so many records have it: 2) will be saved as a line with CR LF"));
    EXPECT_THAT(
        messagesOf(stack[0]), ElementsAre("1:56 the last line without an end will be saved as a line with CR LF"));
}

TEST(LineEnds, OfAByteOrderMarkAreCountedWithoutIt)
{
    EXPECT_THAT(messagesOf("\xEF\xBB\xBF" + stack[0] + "\r\n"), ElementsAre(HasSubstr("the text is UTF-8")));
}

}  // namespace
}  // namespace korvex::test
