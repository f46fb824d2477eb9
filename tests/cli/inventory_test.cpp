// Loading an inventory for the tool: what the loader passes over in silence is found.
#include "inventory_files.h"

#include "source_editor.h"
#include "state_folder.h"

#include <gmock/gmock.h>

#include <cstdlib>
#include <optional>

namespace korvex {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

std::vector<std::pair<LoadFinding, std::size_t>> findingsOf(const Inventory& inventory)
{
    std::vector<std::pair<LoadFinding, std::size_t>> found;
    for (const FindingPlace& place : inventory.findings)
        found.emplace_back(place.finding, place.line);
    return found;
}

TEST(CliInventory, TheExampleHasNoFindings)
{
    const Inventory inventory = test::loaded(test::exampleFiles());
    EXPECT_EQ(inventory.set.size(), 16U);
    EXPECT_THAT(inventory.findings, IsEmpty());
    EXPECT_THAT(distortionsBySaving(inventory.set, true), IsEmpty());
}

TEST(CliInventory, RecordsWithoutAPartnerAndSecondOnesAreFoundWithTheirLines)
{
    const test::TemporaryFolder folder;
    SourceFiles files;
    files.points = test::writeLines(folder, "body",
        {";Soupis", "000000001, 1, 2, 3, 1, 0, 0 ;A", "000000002, 1, 2, 3, 9, 0, 0 ;neznámý",
            "000000003, 1, 2, 3, 2, 0, 0 ;bez popisu", "000000004, 1, 2, 3, 3, 0, 0 ;bez prachu"});
    files.description = test::writeLines(folder, "popis",
        {"000000001, 1", "", "000000001, 2", "000000002, 1", "12.4, 1", "000000004, 1", "000000099, 1"});
    files.dust = test::writeLines(folder, "prach", {";", "000000003", "000000001,1,1", "000000098,1,1"});

    const Inventory inventory = test::loaded(files, LoadFor::Reading);
    EXPECT_THAT(findingsOf(inventory),
        ElementsAre(std::pair(LoadFinding::UnknownType, 3U), std::pair(LoadFinding::MissingDescription, 4U),
            std::pair(LoadFinding::MissingDust, 5U), std::pair(LoadFinding::NotTaken, 3U),
            std::pair(LoadFinding::NotTaken, 5U), std::pair(LoadFinding::NotTaken, 7U),
            std::pair(LoadFinding::NotTaken, 2U), std::pair(LoadFinding::NotTaken, 4U)))
        << "the dust of a source without a description is not taken";
    EXPECT_EQ(inventory.findings[4].number, "12.4");
    EXPECT_EQ(inventory.pathOf(inventory.findings[4].file), files.description);
}

TEST(CliInventory, ForWritingTheRecordsAndCommentsThatASaveWouldChangeAreFoundAsWell)
{
    const test::TemporaryFolder folder;
    SourceFiles files;
    files.points = test::writeLines(folder, "body",
        {";", "; Soupis ", ";SOUBOR S BODY", ";Soubor s popisem: jinde", ";dodatek", "1, 1, 2, 3, 1, 0, 0 ;Pec; stará",
            "2, 1.5, 2, 3, 9, 0, 0 ;neznámý", "3, 1.5, 2, 3, 2, 0, 0 ;"});
    files.description = test::writeLines(
        folder, "popis", {";Soupis", ";SOUBOR S POPISEM (bodů)", "3, 1, 2", "1, 1,5, 0, 0, 0, 0, 0, 0, 0, 0"});
    files.dust = test::writeLines(folder, "prach", {";Starý soupis", "1,1,2", "000000003,1", ";", ""});

    const Inventory inventory = test::loaded(files, LoadFor::Writing);
    EXPECT_THAT(findingsOf(inventory),
        ElementsAre(std::pair(LoadFinding::LostComment, 5U), std::pair(LoadFinding::ChangedName, 6U),
            std::pair(LoadFinding::UnknownType, 7U), std::pair(LoadFinding::ChangedValue, 8U),
            std::pair(LoadFinding::MissingValue, 3U), std::pair(LoadFinding::SurplusFields, 4U),
            std::pair(LoadFinding::LostComment, 1U), std::pair(LoadFinding::ChangedDust, 2U),
            std::pair(LoadFinding::ChangedDust, 3U)));
    EXPECT_EQ(inventory.findings[0].before, "dodatek");
    EXPECT_EQ(inventory.findings[3].position, 2U) << "the record of an unknown type is no source";
    EXPECT_EQ(inventory.findings[3].field, 2U);
    EXPECT_THAT(
        findingsOf(test::loaded(files, LoadFor::Reading)), ElementsAre(std::pair(LoadFinding::UnknownType, 7U)));
}

TEST(CliInventory, ADustFileThatTheHeadersNameIsMissedOnceWhenItWasNotGiven)
{
    const test::TemporaryFolder folder;
    SourceFiles files;
    files.points = test::writeLines(
        folder, "body", {";Soupis", ";Soubor s prachem: /data/příprava/prach.txt", "1, 1, 2, 3, 1, 0, 0 ;"});
    files.description = test::writeLines(
        folder, "popis", {";Soupis", ";Soubor s prachem: /data/příprava/prach.txt", "1, 1, 2, 3, 4, 5, 6, 7, 8, 0"});
    const Inventory inventory = test::loaded(files, LoadFor::Writing);
    EXPECT_THAT(findingsOf(inventory), ElementsAre(std::pair(LoadFinding::DustNotGiven, 2U)));
    EXPECT_EQ(inventory.findings[0].before, "/data/příprava/prach.txt");
    EXPECT_THAT(findingsOf(test::loaded(files, LoadFor::Reading)), IsEmpty());

    files.dust = test::writeLines(folder, "prach", {"000000001,0,0,0"});
    EXPECT_THAT(findingsOf(test::loaded(files, LoadFor::Writing)), IsEmpty());
    files.dust.clear();
    files.points = test::writeLines(folder, "body", {";Soupis", ";Soubor s prachem: ", "1, 1, 2, 3, 1, 0, 0 ;"});
    files.description = test::writeLines(folder, "popis", {";Soupis", "1, 1, 2, 3, 4, 5, 6, 7, 8, 0"});
    EXPECT_THAT(findingsOf(test::loaded(files, LoadFor::Writing)), IsEmpty());
}

TEST(CliInventory, TheLineOfEachPointsRecordIsFoundAgain)
{
    const test::TemporaryFolder folder;
    SourceFiles files;
    files.points = test::writeLines(folder, "body",
        {";Soupis", "1, 1, 2, 3, 1, 0, 0 ;", "2, 1, 2, 3, 9, 0, 0 ;neznámý", ";", "3, 1, 2, 3, 2, 0, 0 ;"});
    files.description = test::writeLines(folder, "popis", {"1, 1", "3, 1"});
    const Result<std::vector<std::size_t>> lines = pointsLines(test::loaded(files));
    ASSERT_TRUE(lines.ok());
    EXPECT_THAT(lines.value(), ElementsAre(0U, 2U, 5U));
}

TEST(CliInventory, WhatOneOfSeveralSourcesOfANumberKeepsIsNotLost)
{
    const test::TemporaryFolder folder;
    SourceFiles files;
    files.points = test::writeLines(folder, "body",
        {"5, 1, 2, 3, 9, 0, 0 ;", "5, 1, 2, 3, 2, 0, 0 ;", "5, 1, 2, 3, 1, 0, 0 ;", "6, 1, 2, 3, 2, 0, 0 ;",
            "7, 1, 2, 3, 9, 0, 0 ;"});
    files.description = test::writeLines(
        folder, "popis", {"7, 1,2,3,4,5,6,7,8,9,10,11", "6, 1,2,3,4,5,6,7,8,9", "5, 1,2,3,4,5,6,7,8,9"});
    files.dust = test::writeLines(folder, "prach", {"000000006,1800,1", "000000005,1800,1", "7,1"});
    const Inventory inventory = test::loaded(files, LoadFor::Writing);
    EXPECT_THAT(findingsOf(inventory),
        ElementsAre(std::pair(LoadFinding::UnknownType, 1U), std::pair(LoadFinding::UnknownType, 5U),
            std::pair(LoadFinding::ChangedDust, 1U)));
}

TEST(CliInventory, TheFirstLineOfEachFileThatIsUtf8IsFound)
{
    const test::TemporaryFolder folder;
    SourceFiles files = test::writeThree(folder);
    const auto utf8Lines = [&files] {
        std::vector<std::pair<DataFile, std::size_t>> lines;
        for (const LoadFor use : {LoadFor::Counting, LoadFor::Reading, LoadFor::Writing}) {
            lines.clear();
            for (const FindingPlace& place : test::loaded(files, use).findings) {
                if (place.finding == LoadFinding::Utf8)
                    lines.emplace_back(place.file, place.line);
            }
        }
        return lines;
    };
    EXPECT_THAT(utf8Lines(), IsEmpty());
    // In the code page these bytes are a letter and a quotation mark or the like.
    folder.write("body.txt", "; soupis\n1, 1, 1, 1, 3, 0, 0 ;Žižkov\n2, 1, 1, 1, 3, 0, 0 ;Žižkov\n");
    folder.write("popis.txt", "\xEF\xBB\xBF;soupis\n1, 1\n2, 1\n");
    folder.write("prach.txt", "1\n2\n;poznámka");
    EXPECT_THAT(utf8Lines(),
        ElementsAre(
            std::pair(DataFile::Points, 2U), std::pair(DataFile::Description, 1U), std::pair(DataFile::Dust, 3U)));
    // Words of the code page whose bytes happen to be well-formed UTF-8: of letters that the code page lacks.
    folder.write("body.txt", encodeCodePage("1, 1, 1, 1, 3, 0, 0 ;Úžlabina\n2, 1, 1, 1, 3, 0, 0 ;Úštěk\n"));
    folder.write("popis.txt", "1, 1\n2, 1\n");
    folder.write("prach.txt", encodeCodePage(";Příliš žluťoučký kůň úpěl ďábelské ódy – §\n1\n2\n"));
    EXPECT_THAT(utf8Lines(), IsEmpty());
}

TEST(CliInventory, AFileThatIsNotThereIsAnError)
{
    const test::TemporaryFolder folder;
    const Result<Inventory> inventory = loadInventory({folder.path("a"), folder.path("b"), ""}, LoadFor::Reading);
    ASSERT_FALSE(inventory.ok());
    EXPECT_EQ(inventory.error().path, folder.path("a"));
}

TEST(CliInventory, WhatTheNextLoadWouldReadOtherwiseIsFoundBeforeSaving)
{
    SourceSet set;
    const auto add = [&set](const SourceType& type, std::int32_t number, std::string_view name, float first,
                         std::string_view dust) {
        cZdroje source(type);
        SourceValues values;
        values.name = name;
        values.parameters[0] = first;
        values.dust = dust;
        source.values(values);
        source.renumber(number);
        set.append(std::move(source));
    };
    add(cBodovyZdroj, 1, "A", 1.0F, "0,0,0");
    add(cBodovyZdroj, 1, "same records", 1.0F, "0,0,0");
    add(cBodovyZdroj, 1, "other parameters", 2.0F, "0,0,0");
    add(cBodovyZdroj, 1, "other dust", 1.0F, "1800,2");
    add(cBodovyZdroj, -1, "wide", 1.0F, "0,0,0");
    add(cPlosnyZdroj, 1234567890, "wide without dust", 1.0F, "0,0,0");
    add(cBodovyZdroj, 2, "a;b", 1.0F, "0,0,0");
    add(cBodovyZdroj, 3, "a", 1.0F, "1\n2");

    std::vector<std::pair<Distortion::Kind, std::size_t>> found;
    for (const Distortion& distortion : distortionsBySaving(set, true))
        found.emplace_back(distortion.kind, distortion.position);
    EXPECT_THAT(found,
        ElementsAre(std::pair(Distortion::Kind::SharedDescription, 3U), std::pair(Distortion::Kind::SharedDust, 4U),
            std::pair(Distortion::Kind::ShiftedDust, 5U), std::pair(Distortion::Kind::Semicolon, 7U),
            std::pair(Distortion::Kind::LineEnd, 8U)));
    EXPECT_EQ(distortionsBySaving(set, false).size(), 2U) << "without a dust file no dust is lost";
}

TEST(CliInventory, WhatIsWrittenOverIsCopiedToTheFolderOfTheWindow)
{
    const test::TemporaryFolder folder;
    ASSERT_EQ(::setenv("XDG_STATE_HOME", folder.path().c_str(), 1), 0);
    Inventory inventory = test::loaded(test::writeThree(folder));
    const std::string before = folder.bytes("body.txt");
    EXPECT_TRUE(writeInventory(inventory.files, "Jiný", inventory.set).ok());
    EXPECT_NE(folder.bytes("body.txt"), before);
    std::size_t copies = 0;
    for (const auto& entry : std::filesystem::recursive_directory_iterator(folder.path("korvexzdr"))) {
        if (entry.path().filename() == "1-body.txt") {
            ++copies;
            EXPECT_EQ(test::bytesOf(entry.path()), before);
        }
    }
    EXPECT_EQ(copies, 1U);
}

TEST(CliInventory, TheStateFolderIsThatOfTheEnvironment)
{
    struct Case {
        const char* state;
        const char* home;
        const char* folder;
    };
    for (const Case& given : {Case{"/s", "/h", "/s/korvexzdr"}, Case{"relative", "/h", "/h/.local/state/korvexzdr"},
             Case{"", "/h", "/h/.local/state/korvexzdr"}, Case{"", "", ""}}) {
        ASSERT_EQ(::setenv("XDG_STATE_HOME", given.state, 1), 0);
        ASSERT_EQ(::setenv("HOME", given.home, 1), 0);
        EXPECT_EQ(stateFolder(), given.folder);
    }
}

TEST(CliInventory, PathsAtWhichAnythingIsExist)
{
    const test::TemporaryFolder folder;
    folder.write("a", "");
    std::filesystem::create_symlink("nowhere", folder.path("link"));
    EXPECT_THAT(existingPaths({folder.path("a"), folder.path("b"), folder.path("link"), folder.path()}),
        ElementsAre(folder.path("a"), folder.path("link"), folder.path()));
}

}  // namespace
}  // namespace korvex
