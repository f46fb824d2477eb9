// The collection of a file's groups: which lines are groups, which comment is kept, what an error leaves.
#include "skupiny_prachu.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cstdint>
#include <functional>
#include <limits>
#include <map>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace korvex {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

/// Files in memory; one may break off after its lines.
class MemoryDesk : public DustGroupsDesk {
public:
    struct File {
        std::vector<std::string> lines;
        bool breaksOff = false;
    };

    bool readLines(const std::string& path, const std::function<void(std::string_view)>& take) override
    {
        reads.push_back(path);
        for (const std::string& line : files[path].lines)
            take(line);
        return !files[path].breaksOff;
    }
    std::string edit(const std::string& path) override
    {
        edits.push_back(path);
        whileEditing();
        return editedPath;
    }

    std::map<std::string, File> files;
    std::vector<std::string> reads;
    std::vector<std::string> edits;
    std::string editedPath;
    std::function<void()> whileEditing = [] {};
};

class SkupinyPrachu : public testing::Test {
protected:
    void load(std::vector<std::string> lines)
    {
        desk.files["a.spr"] = {std::move(lines)};
        groups.FileName("a.spr");
    }
    [[nodiscard]] std::vector<std::string> names() const
    {
        std::vector<std::string> found;
        for (std::int32_t i = 1; i <= groups.Count(); ++i)
            found.push_back(groups.SkupinaNazev(i));
        return found;
    }
    [[nodiscard]] std::vector<std::int32_t> numbers() const
    {
        std::vector<std::int32_t> found;
        for (std::int32_t i = 1; i <= groups.Count(); ++i)
            found.push_back(groups.SkupinaCislo(i));
        return found;
    }

    MemoryDesk desk;
    cSkupinyPrachu groups{desk};
};

TEST_F(SkupinyPrachu, IsEmptyAtFirst)
{
    EXPECT_EQ(groups.Count(), 0);
    EXPECT_EQ(groups.Komentar(), "");
    EXPECT_EQ(groups.FileName(), "");
    EXPECT_THAT(desk.reads, IsEmpty());
}

TEST_F(SkupinyPrachu, GroupsComeInFileOrder)
{
    load({";Komentar", "3,0;C", "1,2,10,0.5,20,0.5;A", "2,0;B"});
    EXPECT_THAT(names(), ElementsAre("C", "A", "B"));
    EXPECT_THAT(numbers(), ElementsAre(3, 1, 2));
    EXPECT_EQ(groups.FileName(), "a.spr");
}

TEST_F(SkupinyPrachu, NumberAndNameAreFieldsOfTheWholeLine)
{
    load({"12,2,10,0.5,20,0.5;Cement dust;x", "7.5,0;A", "6.5,0;B", "3;C", " 4 , 0; D "});
    EXPECT_THAT(numbers(), ElementsAre(12, 8, 6, 3, 4));
    EXPECT_THAT(names(), ElementsAre("Cement dust", "A", "B", "C", " D "));
}

TEST_F(SkupinyPrachu, GroupWithoutANameIsCalledByItsPosition)
{
    load({"10,0;A", "20,0;", "30,0;C", "40,0"});
    EXPECT_THAT(names(), ElementsAre("A", "(skupina 2)", "C", "(skupina 4)"));
    EXPECT_THAT(numbers(), ElementsAre(10, 20, 30, 40));
}

TEST_F(SkupinyPrachu, OutsideOfTheListThereIsNothing)
{
    load({"1,0;A", "2,0;"});
    for (const std::int32_t i :
        {0, 3, -1, std::numeric_limits<std::int32_t>::min(), std::numeric_limits<std::int32_t>::max()}) {
        SCOPED_TRACE(i);
        EXPECT_EQ(groups.SkupinaNazev(i), "");
        EXPECT_EQ(groups.SkupinaCislo(i), 0);
    }
}

TEST_F(SkupinyPrachu, BlankAndCommentLinesAreNoGroups)
{
    load({"", "   ", "\t", " ; prvni ", ";druhy", ""});
    EXPECT_EQ(groups.Count(), 0);
    EXPECT_EQ(groups.Komentar(), " prvni");
}

TEST_F(SkupinyPrachu, CommentKeepsTheBlankBehindTheSemicolon)
{
    load({"; first", "1,0;A", ";second"});
    EXPECT_EQ(groups.Komentar(), " first");
}

TEST_F(SkupinyPrachu, EmptyCommentLineLeavesThePlaceToTheNextOne)
{
    load({";", "1,0;A", ";second", ";third"});
    EXPECT_EQ(groups.Komentar(), "second");
}

// A comment of blanks is trimmed away at its end with the line.
TEST_F(SkupinyPrachu, CommentOfBlanksIsEmpty)
{
    load({";   ", ";next"});
    EXPECT_EQ(groups.Komentar(), "next");
}

TEST_F(SkupinyPrachu, CommentOfTheFirstFileIsKept)
{
    load({";first", "1,0;A"});
    desk.files["b.spr"] = {{";second", "2,0;B"}};
    groups.FileName("b.spr");
    EXPECT_EQ(groups.Komentar(), "first");
    EXPECT_THAT(names(), ElementsAre("B"));
}

TEST_F(SkupinyPrachu, CommentThatWasWrittenIsKeptUnlessEmpty)
{
    groups.Komentar("written");
    load({";first"});
    EXPECT_EQ(groups.Komentar(), "written");
    groups.Komentar("");
    load({";first"});
    EXPECT_EQ(groups.Komentar(), "first");
}

TEST_F(SkupinyPrachu, EmptyPathOnlyDropsTheGroups)
{
    load({";first", "1,0;A"});
    desk.reads.clear();
    groups.FileName("");
    EXPECT_EQ(groups.Count(), 0);
    EXPECT_EQ(groups.FileName(), "");
    EXPECT_EQ(groups.Komentar(), "first");
    EXPECT_THAT(desk.reads, IsEmpty());
}

TEST_F(SkupinyPrachu, ErrorLeavesTheFileNameAndTheGroupsReadBefore)
{
    load({"1,0;A"});
    desk.files["b.spr"] = {{"5,0;E", "6,0;F"}, true};
    groups.FileName("b.spr");
    EXPECT_EQ(groups.FileName(), "a.spr");
    EXPECT_THAT(numbers(), ElementsAre(5, 6));
}

TEST_F(SkupinyPrachu, NumberBeyondRangeIsZeroAndTheOthersStay)
{
    load({"1,0;A", "99999999999,0;B", "3,0;C"});
    EXPECT_THAT(numbers(), ElementsAre(1, 0, 3));
    EXPECT_THAT(names(), ElementsAre("A", "B", "C"));
}

TEST_F(SkupinyPrachu, ParticlesAreNotLookedAt)
{
    load({"1,2000000000,1E99,x;A"});
    EXPECT_THAT(numbers(), ElementsAre(1));
}

TEST_F(SkupinyPrachu, EditLoadsTheFileThatTheEditorEndsWith)
{
    load({"1,0;A"});
    desk.files["b.spr"] = {{"2,0;B"}};
    desk.editedPath = "b.spr";
    groups.Edit();
    EXPECT_THAT(desk.edits, ElementsAre("a.spr"));
    EXPECT_EQ(groups.FileName(), "b.spr");
    EXPECT_THAT(names(), ElementsAre("B"));
}

TEST_F(SkupinyPrachu, EditLoadsTheSameFileAgain)
{
    load({"1,0;A"});
    desk.editedPath = "a.spr";
    desk.whileEditing = [this] { desk.files["a.spr"].lines = {"1,0;B", "2,0;C"}; };
    groups.Edit();
    EXPECT_THAT(names(), ElementsAre("B", "C"));
    EXPECT_THAT(desk.reads, ElementsAre("a.spr", "a.spr"));
}

TEST_F(SkupinyPrachu, EditThatEndsWithoutAFileEmptiesTheList)
{
    load({"1,0;A"});
    desk.editedPath = "";
    groups.Edit();
    EXPECT_EQ(groups.Count(), 0);
    EXPECT_EQ(groups.FileName(), "");
}

}  // namespace
}  // namespace korvex
