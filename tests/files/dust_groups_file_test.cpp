// Reading and writing a dust groups file: line ends, code page, and what failing file access leaves.
#include "dust_groups_file.h"

#include "failing_file_calls.h"
#include "group_lines.h"
#include "skupiny_prachu.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cerrno>
#include <cstddef>
#include <filesystem>
#include <string>
#include <string_view>
#include <vector>

namespace korvex {
namespace {

using test::Call;
using test::FailingFileCalls;
using testing::ElementsAre;
using testing::IsEmpty;

struct ReadLines {
    std::vector<std::string> lines;
    Result<void> result;
};

ReadLines linesOf(const std::string& path, FileCalls& calls = FileCalls::system())
{
    std::vector<std::string> lines;
    Result<void> result = readGroupsFile(
        path, [&lines](std::string_view line) { lines.emplace_back(line); }, calls);
    return {lines, result};
}

class DustGroupsFile : public testing::Test {
protected:
    [[nodiscard]] Result<std::vector<std::size_t>> save(std::string_view comment, const std::string& name = "a.spr")
    {
        return saveGroupsFile(folder.path(name), comment, groups, SafetyCopies(folder.path("copies")), calls);
    }

    test::TemporaryFolder folder;
    FailingFileCalls calls;
    GroupLines groups;
};

TEST_F(DustGroupsFile, LinesAreHandedOverRawAndInUtf8)
{
    const std::string path = folder.write("a.spr", "; V\xe1pno \r\n\r\n 1,0;\x8akv\xe1ra  \n2,0;B");
    const ReadLines read = linesOf(path);
    EXPECT_TRUE(read.result.ok());
    EXPECT_THAT(read.lines, ElementsAre("; Vápno ", "", " 1,0;Škvára  ", "2,0;B"));
}

TEST_F(DustGroupsFile, EmptyFileHasNoLines)
{
    const ReadLines read = linesOf(folder.write("a.spr", ""));
    EXPECT_TRUE(read.result.ok());
    EXPECT_THAT(read.lines, IsEmpty());
}

TEST_F(DustGroupsFile, FileThatIsNotThereSaysSo)
{
    const std::string path = folder.path("a.spr");
    const ReadLines read = linesOf(path);
    ASSERT_FALSE(read.result.ok());
    EXPECT_EQ(read.result.error().message(), "Soubor nebo složka neexistuje.\n\n" + path);
    EXPECT_THAT(read.lines, IsEmpty());
}

TEST_F(DustGroupsFile, FolderAndDeviceAreRefused)
{
    const ReadLines read = linesOf(folder.path());
    ASSERT_FALSE(read.result.ok());
    EXPECT_EQ(read.result.error().message(), "Místo souboru je zde složka.\n\n" + folder.path());
    EXPECT_FALSE(linesOf("/dev/null").result.ok());
}

TEST_F(DustGroupsFile, FileWithoutPermissionSaysSo)
{
    const std::string path = folder.write("a.spr", ";x\r\n");
    std::filesystem::permissions(path, std::filesystem::perms::none);
    const test::OrdinaryUser user;
    if (!user.isOrdinary())
        GTEST_SKIP() << "the administrator may not become somebody else";
    const ReadLines read = linesOf(path);
    ASSERT_FALSE(read.result.ok());
    EXPECT_EQ(read.result.error().description, "K souboru chybí oprávnění.");
}

TEST_F(DustGroupsFile, LinesBeforeAReadErrorAreHandedOver)
{
    std::string bytes;
    constexpr std::size_t many = 200'000;
    for (std::size_t i = 0; i < many; ++i)
        bytes += "1,0;A\r\n";
    const std::string path = folder.write("a.spr", bytes);
    // Open, status, then one read after the other.
    FailingFileCalls reading;
    ASSERT_TRUE(linesOf(path, reading).result.ok());
    ASSERT_GT(reading.count(Call::Read), 1U);
    const std::size_t total = reading.count();
    std::size_t withLines = 0;
    for (std::size_t failing = 1; failing < total; ++failing) {
        SCOPED_TRACE(failing);
        FailingFileCalls broken;
        broken.failCall(failing, EIO);
        const ReadLines read = linesOf(path, broken);
        ASSERT_FALSE(read.result.ok());
        EXPECT_EQ(read.result.error().description, "Chyba vstupu nebo výstupu.");
        EXPECT_LE(read.lines.size(), many);
        withLines += read.lines.empty() ? 0U : 1U;
        EXPECT_EQ(broken.openFiles(), 0U);
    }
    EXPECT_GT(withLines, 0U);
}

TEST_F(DustGroupsFile, NothingToSaveGivesTheCommentLine)
{
    ASSERT_TRUE(save("").ok());
    EXPECT_EQ(folder.bytes("a.spr"), ";\r\n");
}

TEST_F(DustGroupsFile, CommentIsTrimmedAndGroupLinesAreNot)
{
    groups.append(" 1,0;Škvára  ");
    groups.append("nonsense");
    ASSERT_TRUE(save(" \tVápno  a jiné ").ok());
    EXPECT_EQ(folder.bytes("a.spr"), ";V\xe1pno  a jin\xe9\r\n 1,0;\x8akv\xe1ra  \r\nnonsense\r\n");
}

TEST_F(DustGroupsFile, CharacterThatTheCodePageLacksBecomesAQuestionMark)
{
    groups.append("1,0;Ωmega");
    ASSERT_TRUE(save("∅").ok());
    EXPECT_EQ(folder.bytes("a.spr"), ";?\r\n1,0;?mega\r\n");
}

TEST_F(DustGroupsFile, LongerContentsAreReplacedWhole)
{
    folder.write("a.spr", std::string(10'000, 'x'));
    groups.append("1,0;A");
    ASSERT_TRUE(save("k").ok());
    EXPECT_EQ(folder.bytes("a.spr"), ";k\r\n1,0;A\r\n");
}

TEST_F(DustGroupsFile, LinesWithACharacterThatTheCodePageLacksAreNamed)
{
    groups.append("1,0;Prach");
    groups.append("2,0;Zr\xC3\xA1\xCE\xBC");
    groups.append("99999999999,0;\xCE\xBC");
    const Result<std::vector<std::size_t>> saved = save("\xE2\x89\xA4 10");
    ASSERT_TRUE(saved.ok());
    EXPECT_THAT(saved.value(), ElementsAre(1U, 3U, 4U));
    EXPECT_EQ(folder.bytes("a.spr"), ";? 10\r\n1,0;Prach\r\n2,0;Zr\xE1?\r\n99999999999,0;?\r\n");
    EXPECT_THAT(save("Prach").value(), ElementsAre(3U, 4U));
}

TEST_F(DustGroupsFile, LinkStaysALink)
{
    folder.write("real.spr", ";old\r\n");
    std::filesystem::create_symlink(folder.path("real.spr"), folder.path("a.spr"));
    ASSERT_TRUE(save("new").ok());
    EXPECT_TRUE(std::filesystem::is_symlink(folder.path("a.spr")));
    EXPECT_EQ(folder.bytes("real.spr"), ";new\r\n");
}

TEST_F(DustGroupsFile, ReplacedContentsAreCopiedFirst)
{
    folder.write("a.spr", ";old\r\n");
    ASSERT_TRUE(save("new").ok());
    std::size_t copies = 0;
    for (const auto& entry : std::filesystem::recursive_directory_iterator(folder.path("copies"))) {
        if (!entry.is_regular_file() || entry.path().extension() != ".spr")
            continue;
        ++copies;
        EXPECT_EQ(test::bytesOf(entry.path()), ";old\r\n");
    }
    EXPECT_EQ(copies, 1U);
}

TEST_F(DustGroupsFile, FullDeviceIsAnErrorOfWriting)
{
    const Result<std::vector<std::size_t>> saved
        = saveGroupsFile("/dev/full", "x", groups, SafetyCopies(folder.path("copies")), FileCalls::system());
    ASSERT_FALSE(saved.ok());
    EXPECT_THAT(saved.error().description, testing::StartsWith("Na disku není dost místa."));
    EXPECT_EQ(saved.error().path, "/dev/full");
}

TEST_F(DustGroupsFile, MissingFolderAndFolderInsteadOfAFileAreErrors)
{
    EXPECT_EQ(save("x", "missing/a.spr").error().description, "Soubor nebo složka neexistuje.");
    std::filesystem::create_directory(folder.path("folder.spr"));
    EXPECT_EQ(save("x", "folder.spr").error().description, "Místo souboru je zde složka.");
    EXPECT_FALSE(folder.has("missing"));
}

TEST_F(DustGroupsFile, EveryFailingCallLeavesTheOldFileOrTheBeginningOfTheNewOne)
{
    const std::string old = ";old\r\n1,0;A\r\n";
    const std::string fresh = ";new\r\n1,0;A\r\n2,0;B\r\n";
    groups.append("1,0;A");
    groups.append("2,0;B");
    bool cameThrough = false;
    std::size_t refused = 0;
    for (std::size_t failing = 1; !cameThrough; ++failing) {
        SCOPED_TRACE(failing);
        ASSERT_LT(failing, 100U);
        folder.write("a.spr", old);
        FailingFileCalls broken;
        broken.failCall(failing, ENOSPC);
        const Result<std::vector<std::size_t>> saved
            = saveGroupsFile(folder.path("a.spr"), "new", groups, SafetyCopies(""), broken);
        cameThrough = broken.count() < failing;
        const std::string bytes = folder.bytes("a.spr");
        EXPECT_EQ(broken.openFiles(), 0U);
        EXPECT_THAT(folder.names(), ElementsAre("a.spr"));
        if (saved.ok()) {
            EXPECT_EQ(bytes, fresh);
            continue;
        }
        ++refused;
        EXPECT_THAT(saved.error().description, testing::StartsWith("Na disku není dost místa."));
        EXPECT_TRUE(bytes == old || fresh.compare(0, bytes.size(), bytes) == 0) << bytes;
    }
    EXPECT_GE(refused, 3U);
}

TEST_F(DustGroupsFile, WhatWasSavedIsReadAgain)
{
    groups.append("1,1,10,1;Vápno, mleté");
    groups.append("  2 , 0 ; B;C ");
    ASSERT_TRUE(save("Komentář").ok());
    EXPECT_THAT(
        linesOf(folder.path("a.spr")).lines, ElementsAre(";Komentář", "1,1,10,1;Vápno, mleté", "  2 , 0 ; B;C "));
}

}  // namespace
}  // namespace korvex
