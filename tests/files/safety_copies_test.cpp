// Copies of the files that a save is about to replace: what is kept, what is dropped and what never is.
#include "failing_file_calls.h"
#include "file_size_limit.h"

#include "safety_copies.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <cstddef>
#include <filesystem>
#include <iterator>
#include <set>
#include <string>
#include <vector>

namespace korvex {
namespace {

namespace fs = std::filesystem;
using testing::ElementsAre;
using testing::IsEmpty;
using testing::Not;

class SafetyCopiesTest : public testing::Test {
protected:
    [[nodiscard]] std::vector<std::string> saves() const
    {
        std::vector<std::string> names;
        if (!folder.has("kopie"))
            return names;
        for (const auto& entry : fs::directory_iterator(folder.path("kopie")))
            names.push_back(entry.path().filename().string());
        std::sort(names.begin(), names.end());
        return names;
    }
    [[nodiscard]] static std::vector<std::string> namesIn(const std::string& path)
    {
        std::vector<std::string> names;
        for (const auto& entry : fs::directory_iterator(path))
            names.push_back(entry.path().filename().string());
        std::sort(names.begin(), names.end());
        return names;
    }
    void makeFolderOfSave(const std::string& name) const
    {
        fs::create_directories(folder.path("kopie/" + name));
        folder.write("kopie/" + name + "/1-body.txt", name);
    }

    test::TemporaryFolder folder;
    SafetyCopies copies{folder.path("kopie")};
};

TEST_F(SafetyCopiesTest, CopiesEveryFileAndListsWhereItComesFrom)
{
    const std::string points = folder.write("body.txt", "points\r\n");
    const std::string description = folder.write("popis.txt", std::string("a\0\x9A\n", 4));
    const std::string made = copies.copy({points, description});
    ASSERT_TRUE(fs::is_directory(made));
    EXPECT_EQ(fs::path(made).parent_path(), folder.path("kopie"));
    EXPECT_THAT(namesIn(made), ElementsAre("1-body.txt", "2-popis.txt", "odkud.txt"));
    EXPECT_EQ(test::bytesOf(made + "/1-body.txt"), "points\r\n");
    EXPECT_EQ(test::bytesOf(made + "/2-popis.txt"), std::string("a\0\x9A\n", 4));
    EXPECT_EQ(test::bytesOf(made + "/odkud.txt"), "1-body.txt\t" + points + "\n2-popis.txt\t" + description + "\n");
    EXPECT_EQ(test::bytesOf(points), "points\r\n") << "the files themselves stay";
}

TEST_F(SafetyCopiesTest, ListHoldsFullPaths)
{
    folder.write("body.txt", "points");
    const fs::path before = fs::current_path();
    fs::current_path(folder.path());
    const std::string made = copies.copy({"body.txt"});
    fs::current_path(before);
    EXPECT_EQ(test::bytesOf(made + "/odkud.txt"), "1-body.txt\t" + folder.path("body.txt") + "\n");
}

TEST_F(SafetyCopiesTest, FilesOfOneNameFromSeveralFoldersDoNotOverwriteOneAnother)
{
    fs::create_directory(folder.path("a"));
    fs::create_directory(folder.path("b"));
    const std::string first = folder.write("a/data.txt", "first");
    const std::string second = folder.write("b/data.txt", "second");
    const std::string made = copies.copy({first, second});
    EXPECT_THAT(namesIn(made), ElementsAre("1-data.txt", "2-data.txt", "odkud.txt"));
    EXPECT_EQ(test::bytesOf(made + "/1-data.txt"), "first");
    EXPECT_EQ(test::bytesOf(made + "/2-data.txt"), "second");
}

TEST_F(SafetyCopiesTest, LinkIsCopiedAsWhatItPointsTo)
{
    const std::string target = folder.write("body.txt", "points");
    fs::create_symlink(target, folder.path("odkaz.txt"));
    const std::string made = copies.copy({folder.path("odkaz.txt")});
    EXPECT_FALSE(fs::is_symlink(made + "/1-odkaz.txt"));
    EXPECT_EQ(test::bytesOf(made + "/1-odkaz.txt"), "points");
}

TEST_F(SafetyCopiesTest, OnlyFilesThatExistAndHoldSomethingAreCopied)
{
    const std::string description = folder.write("popis.txt", "description");
    const std::string empty = folder.write("prach.txt", "");
    const std::string made = copies.copy({folder.path("chybi.txt"), description, empty, folder.path(), "/dev/null"});
    EXPECT_THAT(namesIn(made), ElementsAre("1-popis.txt", "odkud.txt"));
}

TEST_F(SafetyCopiesTest, NothingIsMadeWhenNoFileExists)
{
    EXPECT_EQ(copies.copy({folder.path("chybi.txt"), folder.write("prazdny.txt", "")}), "");
    EXPECT_EQ(copies.copy({}), "");
    EXPECT_FALSE(folder.has("kopie"));
}

TEST_F(SafetyCopiesTest, NothingIsMadeWithoutAFolder)
{
    const std::string path = folder.write("body.txt", "points");
    const fs::path before = fs::current_path();
    fs::current_path(folder.path());
    EXPECT_EQ(SafetyCopies("").copy({path}), "");
    fs::current_path(before);
    EXPECT_THAT(folder.names(), ElementsAre("body.txt"));
}

TEST_F(SafetyCopiesTest, FolderIsMadeWithAllAboveIt)
{
    const std::string made
        = SafetyCopies(folder.path("stav/korvexzdr/kopie")).copy({folder.write("body.txt", "points")});
    EXPECT_EQ(test::bytesOf(made + "/1-body.txt"), "points");
}

TEST_F(SafetyCopiesTest, EverySaveGetsAFolderOfItsOwn)
{
    std::set<std::string> made;
    for (int i = 0; i < 5; ++i)
        made.insert(copies.copy({folder.write("body.txt", "points " + std::to_string(i))}));
    EXPECT_EQ(made.size(), 5U);
    EXPECT_EQ(saves().size(), 5U);
}

TEST_F(SafetyCopiesTest, TenAreKeptAndTheOldestIsDropped)
{
    for (int year = 2010; year < 2020; ++year)
        makeFolderOfSave(std::to_string(year) + "-01-31_23-59-59_00");
    const std::string made = copies.copy({folder.write("body.txt", "points")});
    const std::vector<std::string> kept = saves();
    EXPECT_EQ(kept.size(), 10U);
    EXPECT_EQ(kept.front(), "2011-01-31_23-59-59_00");
    EXPECT_EQ(folder.path("kopie/" + kept.back()), made);
}

TEST_F(SafetyCopiesTest, ManyBeyondTenAreAllDropped)
{
    for (int second = 0; second < 60; ++second)
        makeFolderOfSave("2010-01-31_23-59-" + std::to_string(100 + second).substr(1) + "_00");
    EXPECT_NE(copies.copy({folder.write("body.txt", "points")}), "");
    const std::vector<std::string> kept = saves();
    EXPECT_EQ(kept.size(), 10U);
    EXPECT_EQ(kept.front(), "2010-01-31_23-59-51_00");
}

TEST_F(SafetyCopiesTest, LastTenSavesAreKeptHoweverQuicklyTheyFollow)
{
    constexpr int count = 25;
    std::set<std::string> expected;
    for (int i = 0; i < count; ++i) {
        const std::string bytes = "save " + std::to_string(i);
        const std::string made = copies.copy({folder.write("body.txt", bytes)});
        ASSERT_TRUE(fs::exists(made + "/1-body.txt")) << "the copy just made was dropped, at save " << i;
        ASSERT_EQ(test::bytesOf(made + "/1-body.txt"), bytes);
        if (i >= count - 10)
            expected.insert(bytes);
    }
    std::set<std::string> kept;
    for (const std::string& name : saves())
        kept.insert(folder.bytes("kopie/" + name + "/1-body.txt"));
    EXPECT_EQ(kept, expected);
}

TEST_F(SafetyCopiesTest, CopyJustMadeStaysEvenWhenTheClockWasSetBack)
{
    for (int second = 10; second < 20; ++second)
        makeFolderOfSave("2999-01-31_23-59-" + std::to_string(second) + "_00");
    const std::string made = copies.copy({folder.write("body.txt", "points")});
    ASSERT_TRUE(fs::exists(made + "/1-body.txt"));
    EXPECT_EQ(test::bytesOf(made + "/1-body.txt"), "points");
    EXPECT_EQ(saves().size(), 10U);
}

TEST_F(SafetyCopiesTest, WhatSomebodyElsePutThereIsNeitherDroppedNorCounted)
{
    const std::vector<std::string> foreign{"1999", "2010-01-31", "2010-01-31_23-59-59", "2010-01-31_23-59-59_0",
        "2010-01-31_23-59-59_00.zaloha", "2010-01-31_23-59-5x_00", "2010-01-31 23-59-59_00", "moje"};
    for (const std::string& name : foreign)
        makeFolderOfSave(name);
    folder.write("kopie/0000.txt", "note");
    for (int year = 2011; year < 2021; ++year)
        makeFolderOfSave(std::to_string(year) + "-01-31_23-59-59_00");
    EXPECT_NE(copies.copy({folder.write("body.txt", "points")}), "");
    for (const std::string& name : foreign)
        EXPECT_EQ(folder.bytes("kopie/" + name + "/1-body.txt"), name);
    EXPECT_EQ(folder.bytes("kopie/0000.txt"), "note");
    EXPECT_EQ(saves().size(), foreign.size() + 1 + 10);
}

TEST_F(SafetyCopiesTest, UnusableFolderGivesNoCopyAndNoError)
{
    const std::string path = folder.write("body.txt", "points");
    EXPECT_EQ(SafetyCopies(path).copy({path}), "") << "a file stands there";
    EXPECT_EQ(SafetyCopies(path + "/kopie").copy({path}), "") << "a file stands above it";
    EXPECT_EQ(SafetyCopies(folder.path(std::string(300, 'x'))).copy({path}), "") << "the name is too long";
    EXPECT_EQ(SafetyCopies("/dev/null").copy({path}), "");
    EXPECT_EQ(test::bytesOf(path), "points");
    EXPECT_THAT(folder.names(), ElementsAre("body.txt"));
}

TEST_F(SafetyCopiesTest, ReadOnlyFolderGivesNoCopyAndNoError)
{
    const std::string path = folder.write("body.txt", "points");
    fs::create_directory(folder.path("kopie"));
    fs::permissions(folder.path("kopie"), fs::perms::owner_read | fs::perms::owner_exec);
    std::string made;
    {
        const test::OrdinaryUser user;
        if (!user.isOrdinary())
            GTEST_SKIP() << "the administrator may write everywhere";
        made = copies.copy({path});
    }
    fs::permissions(folder.path("kopie"), fs::perms::owner_all);
    EXPECT_EQ(made, "");
    EXPECT_THAT(saves(), IsEmpty());
}

TEST_F(SafetyCopiesTest, FolderIsNamedOnlyWhenThereIsACopyInIt)
{
    // The longest name that a file can have: no room is left for the number in front of the copy's name.
    const std::string path = folder.write(std::string(255, 'x'), "points");
    const std::string made = copies.copy({path});
    if (made.empty()) {
        EXPECT_THAT(saves(), IsEmpty()) << "an empty folder is no copy and would push a real one out";
    } else {
        const std::vector<std::string> names = namesIn(made);
        const auto holdsThePoints
            = [&](const std::string& name) { return test::bytesOf(made + "/" + name) == "points"; };
        EXPECT_TRUE(std::any_of(names.begin(), names.end(), holdsThePoints)) << testing::PrintToString(names);
    }
}

TEST_F(SafetyCopiesTest, OneFileThatCannotBeCopiedDoesNotKeepTheOthersFromIt)
{
    const std::string tooLong = folder.write(std::string(255, 'x'), "points");
    const std::string made = copies.copy({tooLong, folder.write("popis.txt", "description")});
    ASSERT_THAT(made, Not(IsEmpty()));
    EXPECT_EQ(test::bytesOf(made + "/2-popis.txt"), "description");
    EXPECT_THAT(
        test::bytesOf(made + "/odkud.txt"), testing::HasSubstr("2-popis.txt\t" + folder.path("popis.txt") + "\n"));
}

TEST_F(SafetyCopiesTest, WhatIsKeptAfterABrokenSaveIsNeverDropped)
{
    const std::string path = folder.write("body.txt", "the original");
    const std::string first = copies.copy({path});
    EXPECT_EQ(copies.keep(first, {path}), first);
    EXPECT_THAT(namesIn(first), ElementsAre("1-body.txt", "nedokonceno.txt", "odkud.txt"));
    folder.write("body.txt", "half");
    for (int i = 0; i < 15; ++i) {
        const std::string again = copies.copy({path});
        EXPECT_EQ(copies.keep(again, {path}), first) << "not the copy of the broken file";
    }
    EXPECT_EQ(test::bytesOf(first + "/1-body.txt"), "the original");
    EXPECT_EQ(saves().size(), 11U) << "the ten of any time and the one that is kept";
}

TEST_F(SafetyCopiesTest, WhatWasKeptGoesInTimeOnceItsFilesAreSaved)
{
    const std::string path = folder.write("body.txt", "points");
    const std::string other = folder.write("popis.txt", "description");
    const std::string first = copies.copy({path, other});
    static_cast<void>(copies.keep(first, {path}));
    const auto isKept = [&first] { return fs::exists(first + "/nedokonceno.txt"); };
    copies.release({folder.path("jiny.txt")});
    EXPECT_TRUE(isKept()) << "other files";
    copies.release({path});
    EXPECT_TRUE(isKept()) << "one of them only";
    copies.release({other, path});
    EXPECT_FALSE(isKept());
    for (int i = 0; i < 10; ++i)
        static_cast<void>(copies.copy({path}));
    EXPECT_FALSE(fs::exists(first));
}

TEST_F(SafetyCopiesTest, NothingIsKeptWithoutACopy)
{
    EXPECT_EQ(copies.keep("", {folder.path("body.txt")}), "");
    EXPECT_EQ(SafetyCopies("").keep("", {folder.path("body.txt")}), "");
    EXPECT_THAT(saves(), IsEmpty());
}

TEST_F(SafetyCopiesTest, HalfACopyIsTakenAway)
{
    // A file limit stands for a full disk; what was copied until then must not pass for the file.
    const std::string small = folder.write("popis.txt", "description");
    const std::string large = folder.write("body.txt", std::string(1 << 20, 'x'));
    std::string made;
    {
        const test::FileSizeLimit limit(1 << 16);
        ASSERT_TRUE(limit.limited());
        made = copies.copy({large, small});
    }
    ASSERT_THAT(made, Not(IsEmpty()));
    EXPECT_THAT(namesIn(made), ElementsAre("2-popis.txt", "odkud.txt"));
    EXPECT_EQ(test::bytesOf(made + "/odkud.txt"), "2-popis.txt\t" + small + "\n");
}

}  // namespace
}  // namespace korvex
