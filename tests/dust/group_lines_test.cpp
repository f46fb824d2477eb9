// The groups of a file as the editor keeps them: raw lines; a stored one goes to the end.
#include "group_lines.h"

#include "arithmetic_fault.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <initializer_list>
#include <string>

namespace korvex {
namespace {

using testing::ElementsAre;

GroupLines linesOf(std::initializer_list<const char*> lines)
{
    GroupLines groups;
    for (const char* const line : lines)
        groups.append(line);
    return groups;
}

TEST(GroupLines, LinesStayAsTheyCame)
{
    EXPECT_THAT(linesOf({" 1 , 9 ;A  ", "nonsense", "3;B;C"}).lines(), ElementsAre(" 1 , 9 ;A  ", "nonsense", "3;B;C"));
}

TEST(GroupLines, StoredGroupMovesToTheEnd)
{
    GroupLines groups = linesOf({"1,0;A", "2,0;B", "3,0;C"});
    groups.store(DustGroup::parse("1,1,10,0.5;A"));
    EXPECT_THAT(groups.lines(), ElementsAre("2,0;B", "3,0;C", "1,1,10,0.5;A"));
    groups.store(DustGroup::parse("1,0;D"));
    EXPECT_THAT(groups.lines(), ElementsAre("2,0;B", "3,0;C", "1,0;D"));
}

TEST(GroupLines, NewNumberIsAppended)
{
    GroupLines groups = linesOf({"1,0;A"});
    groups.store(DustGroup::parse("7,0;B"));
    EXPECT_THAT(groups.lines(), ElementsAre("1,0;A", "7,0;B"));
}

TEST(GroupLines, FirstOfTwoEqualNumbersIsTheOneThatGoes)
{
    GroupLines groups = linesOf({"2,0;A", "2,0;B", "1,0;C"});
    groups.store(DustGroup::parse("2,0;D"));
    EXPECT_THAT(groups.lines(), ElementsAre("2,0;B", "1,0;C", "2,0;D"));
}

TEST(GroupLines, StoredNumberIsComparedAsReadNotAsWritten)
{
    GroupLines groups = linesOf({"1.5,0;A", "3,0;B"});
    groups.store(DustGroup::parse("2,0;D"));
    EXPECT_THAT(groups.lines(), ElementsAre("3,0;B", "2,0;D"));
}

TEST(GroupLines, MalformedLinesSurviveTheStoringOfOthers)
{
    GroupLines groups = linesOf({"1,0;A  ", "99999999999,0;Z", "4,2,10,0.5;B", "2000000000;C", "2,0;E"});
    groups.store(DustGroup::parse("2,0;F"));
    EXPECT_THAT(groups.lines(), ElementsAre("1,0;A  ", "99999999999,0;Z", "4,2,10,0.5;B", "2000000000;C", "2,0;F"));
}

TEST(GroupLines, NewNumberIsOneMoreThanTheLargest)
{
    EXPECT_EQ(GroupLines().newNumber(), 1);
    EXPECT_EQ(linesOf({"1,0;A"}).newNumber(), 2);
    EXPECT_EQ(linesOf({"7,0;A", "30,0;B", "2,0;C"}).newNumber(), 31);
}

TEST(GroupLines, NewNumberAfterRemovingIsOneMoreThanTheLargestLeft)
{
    GroupLines groups = linesOf({"1,0;A", "2,0;B", "5,0;C"});
    groups.remove(2);
    EXPECT_EQ(groups.newNumber(), 3);
    EXPECT_THAT(groups.lines(), ElementsAre("1,0;A", "2,0;B"));
    groups.remove(0);
    EXPECT_EQ(groups.newNumber(), 3);
}

TEST(GroupLines, LinesWithoutANumberCountAsZero)
{
    EXPECT_EQ(linesOf({"x", "y"}).newNumber(), 1);
    EXPECT_EQ(linesOf({"99999999999,0;A", "4,0;B"}).newNumber(), 5);
}

TEST(GroupLines, BehindTheLastNumberThereIsNone)
{
    EXPECT_EQ(linesOf({"2147483646,0;A"}).newNumber(), 2147483647);
    EXPECT_THROW(static_cast<void>(linesOf({"2147483647,0;A"}).newNumber()), ArithmeticFault);
}

TEST(GroupLines, ClearDropsAll)
{
    GroupLines groups = linesOf({"1,0;A"});
    groups.clear();
    EXPECT_EQ(groups.count(), 0U);
    EXPECT_EQ(groups.newNumber(), 1);
}

}  // namespace
}  // namespace korvex
