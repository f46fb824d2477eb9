// The check as a whole: faults planted in small inventories are found, each at its place, and nothing else is.
#include "check_report.h"
#include "inventory_check.h"
#include "inventory_files.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>
#include <vector>

namespace korvex {
namespace {

using testing::Contains;
using testing::ElementsAre;
using testing::ElementsAreArray;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::SizeIs;

const std::string goldenFolder = KORVEX_SOURCE_DIR "/tests/golden/check";

CheckRequest requestFor(const std::string& folder)
{
    CheckRequest request;
    request.files = {folder + "/body.txt", folder + "/popis.txt", folder + "/prach.txt"};
    request.groups = folder + "/skupiny.spr";
    return request;
}

std::string contentsOf(const std::string& path)
{
    std::ifstream file(path, std::ios::binary);
    EXPECT_TRUE(file.is_open()) << path;
    return {std::istreambuf_iterator<char>(file), std::istreambuf_iterator<char>()};
}

std::vector<std::string> linesOf(const std::string& text)
{
    std::vector<std::string> lines;
    for (std::size_t begin = 0; begin < text.size();) {
        const std::size_t end = text.find('\n', begin);
        lines.push_back(text.substr(begin, end - begin));
        begin = end == std::string::npos ? text.size() : end + 1;
    }
    return lines;
}

Findings checked(const CheckRequest& request, std::size_t most = 0, const RuleSelection& selection = {})
{
    Findings findings(Language::English, most, selection);
    const Result<CheckedInventory> result = checkInventory(request, findings);
    EXPECT_TRUE(result.ok());
    return findings;
}

/// "file:line:column rule" of each finding.
std::vector<std::string> placesOf(const CheckRequest& request, Findings findings)
{
    std::vector<std::string> places;
    for (const Finding& finding : findings.sorted()) {
        const std::filesystem::path path(pathOf(request, finding.place.file));
        places.push_back(path.filename().string() + ':' + std::to_string(finding.place.line) + ':'
            + std::to_string(finding.place.column) + ' ' + std::string(ruleText(finding.rule).name));
    }
    return places;
}

std::vector<std::string> ruleNames()
{
    std::vector<std::string> names;
    for (const RuleText& rule : allRules())
        names.emplace_back(rule.name);
    return names;
}

class PlantedFaults : public testing::TestWithParam<std::string> { };

TEST_P(PlantedFaults, AreAllFoundAtTheirPlacesAndNothingElseIs)
{
    const std::string folder = goldenFolder + '/' + GetParam();
    const CheckRequest request = requestFor(folder);
    EXPECT_THAT(placesOf(request, checked(request)), ElementsAreArray(linesOf(contentsOf(folder + "/expected.txt"))));
}

TEST_P(PlantedFaults, AreOfTheRuleThatTheFolderIsNamedAfter)
{
    EXPECT_THAT(linesOf(contentsOf(goldenFolder + '/' + GetParam() + "/expected.txt")),
        Contains(testing::EndsWith(' ' + GetParam())));
}

TEST_P(PlantedFaults, HaveMessagesWithoutUnfilledPlacesInBothLanguages)
{
    const CheckRequest request = requestFor(goldenFolder + '/' + GetParam());
    for (const Language language : {Language::Czech, Language::English}) {
        Findings findings(language, 0, {});
        ASSERT_TRUE(checkInventory(request, findings).ok());
        for (const Finding& finding : findings.sorted()) {
            EXPECT_THAT(findings.message(finding), testing::Not(HasSubstr("{")));
            EXPECT_FALSE(findings.message(finding).empty());
        }
    }
}

INSTANTIATE_TEST_SUITE_P(Rules, PlantedFaults, testing::ValuesIn(ruleNames()), [](const auto& rule) {
    std::string name = rule.param;
    std::replace(name.begin(), name.end(), '-', '_');
    return name;
});

TEST(Check, EveryFixtureIsNamedAfterARule)
{
    for (const auto& entry : std::filesystem::directory_iterator(goldenFolder))
        EXPECT_TRUE(ruleNamed(entry.path().filename().string())) << entry.path();
}

TEST(Check, TheExampleHasNoFinding)
{
    const CheckRequest request = requestFor(KORVEX_SOURCE_DIR "/examples");
    EXPECT_THAT(placesOf(request, checked(request)), IsEmpty());
}

TEST(Check, OnlyTheFirstFindingsAreKeptButAllAreCounted)
{
    const CheckRequest request = requestFor(goldenFolder + "/rewritten");
    const std::vector<std::string> all = placesOf(request, checked(request));
    for (std::size_t most = 1; most <= all.size(); ++most) {
        Findings findings = checked(request, most);
        EXPECT_EQ(findings.count(), all.size());
        EXPECT_EQ(findings.count(Severity::Note), all.size());
        const auto first = std::vector(all.begin(), all.begin() + static_cast<std::ptrdiff_t>(most));
        EXPECT_THAT(placesOf(request, std::move(findings)), ElementsAreArray(first));
    }
}

TEST(Check, FindingsThatComeLateInTheRunAreStillAmongTheFirst)
{
    // That a description is missing is known only after the description file.
    const CheckRequest request = requestFor(goldenFolder + "/no-description");
    EXPECT_THAT(placesOf(request, checked(request, 1)), ElementsAre("body.txt:6:1 no-description"));
}

TEST(Check, SkippedRulesAreNotCounted)
{
    const CheckRequest request = requestFor(goldenFolder + "/range-d");
    RuleSelection selection;
    selection.skip({Rule::DiameterHeight});
    EXPECT_EQ(checked(request, 0, selection).count(), 2U);
    selection.only({Rule::DiameterHeight});
    EXPECT_EQ(checked(request, 0, selection).count(), 1U);
}

TEST(Check, WithoutADustFileNoDustIsMissed)
{
    CheckRequest request = requestFor(goldenFolder + "/no-dust");
    request.files.dust.clear();
    EXPECT_THAT(placesOf(request, checked(request)), IsEmpty());
}

TEST(Check, WithoutAGroupsFileNoReferenceIsUnknown)
{
    CheckRequest request = requestFor(goldenFolder + "/group-unknown");
    request.groups.clear();
    EXPECT_THAT(placesOf(request, checked(request)), IsEmpty());
}

TEST(Check, VsIsComparedAtTheGivenPressure)
{
    CheckRequest request = requestFor(KORVEX_SOURCE_DIR "/examples");
    constexpr float inTheMountains = 90000.0F;
    request.pressure = inTheMountains;
    EXPECT_EQ(checked(request).count(Rule::VsMismatch), 3U);
}

TEST(Check, AFileThatIsNotThereIsAnErrorWithItsPath)
{
    CheckRequest request = requestFor(KORVEX_SOURCE_DIR "/examples");
    request.files.description = "/does/not/exist";
    Findings findings(Language::Czech, 0, {});
    const Result<CheckedInventory> result = checkInventory(request, findings);
    ASSERT_FALSE(result.ok());
    EXPECT_EQ(result.error().path, "/does/not/exist");
}

TEST(Check, AMessageTellsValueLimitUnitAndWhatToDo)
{
    const CheckRequest request = requestFor(goldenFolder + "/range-w0");
    Findings findings = checked(request);
    ASSERT_FALSE(findings.sorted().empty());
    EXPECT_EQ(findings.message(findings.sorted().front()),
        "w0 = 0 m/s is outside 0.01 to 125 m/s; the exit velocity is in m/s, it can be calculated from Vs, ts and d");
}

/// The messages about the dust "1800,0,…" of one source.
std::vector<std::string> dustMessages(const std::string& dust, Language language)
{
    const test::TemporaryFolder folder;
    const CheckRequest request{
        {folder.write("body.txt", "000000001, 0641862, 1078344, 0431, 1, 1, 1 ;x\r\n"),
            folder.write("popis.txt", "000000001, 0.16, 32, 3.119339, 145, 0.8, 9.5, 0.45, 24, 0\r\n"),
            folder.write("prach.txt", "000000001" + dust + "\r\n")},
        "", 101325.0F};
    Findings findings(language, 0, {});
    EXPECT_TRUE(checkInventory(request, findings).ok());
    std::vector<std::string> messages;
    for (const Finding& finding : findings.sorted())
        messages.push_back(findings.message(finding));
    return messages;
}

TEST(Check, ACountOfParticlesIsToldAsItIsWritten)
{
    EXPECT_THAT(dustMessages(",1800,0,-1,2.5,1", Language::English),
        ElementsAre(HasSubstr("the count of particles is -1, but 2 values follow instead of 0;")));
    EXPECT_THAT(dustMessages(",1800,0,2000000000,2.5,1", Language::English),
        ElementsAre(HasSubstr("is 2000000000, but 2 values follow instead of 4000000000;")));
}

TEST(Check, ACountOfFieldsIsFollowedByTheRightForm)
{
    EXPECT_THAT(dustMessages("", Language::Czech), ElementsAre(HasSubstr("záznam má 1 pole místo 3;")));
    EXPECT_THAT(dustMessages(",1800", Language::Czech), ElementsAre(HasSubstr("záznam má 2 pole místo 3;")));
    EXPECT_THAT(dustMessages(",1800,2,1,2", Language::Czech), ElementsAre(HasSubstr("záznam má 5 polí místo 3;")));
    EXPECT_THAT(dustMessages("", Language::English), ElementsAre(HasSubstr("the record has 1 field instead of 3;")));
}

TEST(CheckReport, ALineNamesFileLineColumnSeverityRuleAndSource)
{
    CheckRequest request = requestFor(goldenFolder + "/plume-rise");
    Findings findings(Language::Czech, 0, {});
    const Result<CheckedInventory> result = checkInventory(request, findings);
    ASSERT_TRUE(result.ok());
    TextOutput out;
    printFindings(out, request, findings);
    EXPECT_EQ(out.text(),
        request.files.description
            + ":4:24: varování [plume-rise] zdroj 101: Delta h = 85 m je nad 50 m: je-li to teplota spalin, doplňte d "
              "a w0, bez nich se čte jako vznos vlečky\n");
    TextOutput summary;
    printSummary(summary, result.value(), findings);
    EXPECT_EQ(summary.text(), "Zdrojů: 4, nálezů: 1 (chyba 0, varování 1, poznámka 0)\n  plume-rise: 1\n");
}

TEST(CheckReport, ThePageOfTheRulesIsWhatTheProgramExplains)
{
    EXPECT_EQ(contentsOf(KORVEX_SOURCE_DIR "/docs/checks.md"), explainedRules(Language::English));
}

TEST(CheckReport, EveryRuleIsExplainedInBothLanguages)
{
    for (const RuleText& rule : allRules()) {
        EXPECT_EQ(ruleNamed(rule.name), rule.rule);
        EXPECT_THAT(explained(rule.rule, Language::Czech), HasSubstr(rule.czechHelp));
        EXPECT_THAT(explained(rule.rule, Language::English), HasSubstr(rule.englishHelp));
    }
    EXPECT_THAT(explained(Rule::RangeW0, Language::English), HasSubstr("w0 (point source): 0.01 to 125 m/s"));
    EXPECT_FALSE(ruleNamed("no-such-rule"));
}

}  // namespace
}  // namespace korvex
