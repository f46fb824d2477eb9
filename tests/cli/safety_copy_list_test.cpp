// The safety copies as they are listed and brought back.
#include "inventory_files.h"

#include "safety_copy_list.h"

#include <gmock/gmock.h>

namespace korvex {
namespace {

namespace fs = std::filesystem;
using testing::ElementsAre;
using testing::IsEmpty;

class SafetyCopyListTest : public testing::Test {
protected:
    std::vector<SafetyCopy> listed()
    {
        Result<SafetyCopyList> list = safetyCopiesIn(m_state.path());
        EXPECT_TRUE(list.ok());
        return list.ok() ? list.value().copies : std::vector<SafetyCopy>();
    }
    SafetyCopies copies() { return SafetyCopies(m_state.path()); }

    test::TemporaryFolder m_state;
    test::TemporaryFolder m_data;
};

TEST_F(SafetyCopyListTest, NoFolderHasNoCopies)
{
    const Result<SafetyCopyList> list = safetyCopiesIn(m_state.path("missing"));
    ASSERT_TRUE(list.ok());
    EXPECT_THAT(list.value().copies, IsEmpty());
}

TEST_F(SafetyCopyListTest, ACopyTellsItsTimeItsFilesAndTheirSizes)
{
    m_data.write("a\tb.txt", "1234");
    m_data.write("c.txt", "12");
    const std::string folder = copies().copy({m_data.path("a\tb.txt"), m_data.path("c.txt")});
    const std::vector<SafetyCopy> found = listed();
    ASSERT_EQ(found.size(), 1U);
    EXPECT_EQ(found[0].name, fs::path(folder).filename().string());
    ASSERT_EQ(found[0].files.size(), 2U);
    EXPECT_EQ(found[0].files[0].origin, m_data.path("a\tb.txt"));
    EXPECT_EQ(found[0].files[0].size, 4U);
    EXPECT_TRUE(found[0].files[0].isThere);
    EXPECT_EQ(found[0].files[1].origin, m_data.path("c.txt"));
    EXPECT_EQ((SafetyCopy{"2026-11-21_08-53-12_01", {}}.time()), "2026-11-21 08:53:12");
}

TEST_F(SafetyCopyListTest, TheNewestStandsFirstAndFoldersOfOthersAreLeftAlone)
{
    for (const char* const name : {"2026-01-01_00-00-00_00", "2026-02-01_00-00-00_00", "2026-02-01_00-00-00_01"}) {
        fs::create_directory(m_state.path(name));
        m_state.write(std::string(name) + "/odkud.txt", "");
    }
    fs::create_directory(m_state.path("jiná"));
    std::vector<std::string> names;
    for (const SafetyCopy& copy : listed())
        names.push_back(copy.name);
    EXPECT_THAT(names, ElementsAre("2026-02-01_00-00-00_01", "2026-02-01_00-00-00_00", "2026-01-01_00-00-00_00"));
}

TEST_F(SafetyCopyListTest, LinesThatLeadOutOfTheFolderAreNotTaken)
{
    fs::create_directory(m_state.path("2026-01-01_00-00-00_00"));
    m_state.write(
        "2026-01-01_00-00-00_00/odkud.txt", "../x\t/tmp/x\n\t/tmp/x\nbez tabulátoru\n1-a\trelativní\n1-a\t/a\n");
    ASSERT_EQ(listed().size(), 1U);
    ASSERT_EQ(listed()[0].files.size(), 1U);
    EXPECT_EQ(listed()[0].files[0].origin, "/a");
    EXPECT_FALSE(listed()[0].files[0].isThere);
}

TEST_F(SafetyCopyListTest, RestoringBringsBackWhatWasAndCopiesWhatIs)
{
    m_data.write("a.txt", "first");
    ASSERT_NE(copies().copy({m_data.path("a.txt")}), "");
    m_data.write("a.txt", "second");
    ASSERT_TRUE(restoreFiles(listed().back(), copies()).ok());
    EXPECT_EQ(m_data.bytes("a.txt"), "first");
    ASSERT_EQ(listed().size(), 2U);
    EXPECT_EQ(test::bytesOf(listed().front().files.at(0).copy), "second");
}

TEST_F(SafetyCopyListTest, TheOldestCopyCanBeRestoredAndStays)
{
    for (int save = 0; save < 10; ++save) {
        m_data.write("a.txt", std::string(1, static_cast<char>('0' + save)));
        ASSERT_NE(copies().copy({m_data.path("a.txt")}), "");
    }
    m_data.write("a.txt", "last");
    ASSERT_EQ(listed().size(), 10U);
    const SafetyCopy oldest = listed().back();
    ASSERT_TRUE(restoreFiles(oldest, copies()).ok());
    EXPECT_EQ(m_data.bytes("a.txt"), "0");
    EXPECT_EQ(listed().back().name, oldest.name);
    ASSERT_NE(copies().copy({m_data.path("a.txt")}), "");
    EXPECT_EQ(listed().size(), 10U) << "it gives way to the next save";
}

TEST_F(SafetyCopyListTest, ADamagedCopyIsNamedAndTheOthersAreListed)
{
    m_data.write("a.txt", "a");
    ASSERT_NE(copies().copy({m_data.path("a.txt")}), "");
    fs::create_directory(m_state.path("2026-01-01_00-00-00_00"));
    const Result<SafetyCopyList> list = safetyCopiesIn(m_state.path());
    ASSERT_TRUE(list.ok());
    EXPECT_EQ(list.value().copies.size(), 1U);
    ASSERT_EQ(list.value().damaged.size(), 1U);
    EXPECT_EQ(list.value().damaged[0].name, "2026-01-01_00-00-00_00");
    EXPECT_EQ(list.value().damaged[0].error.path, m_state.path("2026-01-01_00-00-00_00/odkud.txt"));
}

TEST_F(SafetyCopyListTest, ACopyWhoseFileIsGoneRestoresNothing)
{
    m_data.write("a.txt", "a");
    m_data.write("b.txt", "b");
    ASSERT_NE(copies().copy({m_data.path("a.txt"), m_data.path("b.txt")}), "");
    m_data.write("a.txt", "changed");
    fs::remove(listed()[0].files.at(1).copy);
    EXPECT_FALSE(restoreFiles(listed()[0], copies()).ok());
    EXPECT_EQ(m_data.bytes("a.txt"), "changed");
}

}  // namespace
}  // namespace korvex
