// One line of a dust groups file: its number, its name, its particles, and writing it.
#include "group_line.h"

#include "arithmetic_fault.h"

#include <gtest/gtest.h>

#include <string>
#include <string_view>

namespace korvex {
namespace {

class GroupLinesThatStay : public testing::TestWithParam<std::string_view> { };

TEST_P(GroupLinesThatStay, ParsedAndWrittenAgain)
{
    EXPECT_EQ(DustGroup::parse(GetParam()).line(), GetParam());
}

INSTANTIATE_TEST_SUITE_P(GroupLine, GroupLinesThatStay,
    testing::Values("1,3,2.5,0.2,10,0.5,40,0.3;Cement", "2,2,5,0.7,20,0.3;Popilek", "3,0;Prazdna skupina", "1,0;",
        "1,0;  name with blanks  ", "5,1,10,1;Vápenný prach, mletí", "9,2,10,0.5,10,0.5;Dvakrát"));

TEST(GroupLine, NumberAndNameAreThoseOfTheLine)
{
    constexpr std::string_view line = "12,2,10,0.5,20,0.5;Cement dust;x";
    EXPECT_EQ(groupNumberOf(line), 12);
    EXPECT_EQ(groupNameOf(line), "Cement dust");
    const DustGroup group = DustGroup::parse(line);
    EXPECT_EQ(group.SkupinaCislo, 12);
    EXPECT_EQ(group.SkupinaNazev, "Cement dust");
    EXPECT_EQ(group.Castice.count(), 2U);
}

TEST(GroupLine, NumberIsRoundedToTheEvenNeighbour)
{
    EXPECT_EQ(groupNumberOf("7.5,0;A"), 8);
    EXPECT_EQ(groupNumberOf("6.5,0;B"), 6);
}

TEST(GroupLine, NumberThatIsNoneIsZero)
{
    EXPECT_EQ(groupNumberOf("Cement"), 0);
    EXPECT_EQ(groupNumberOf(""), 0);
    EXPECT_EQ(groupNumberOf(",5;A"), 0);
    EXPECT_EQ(groupNumberOf("  3 , 0 ; A"), 3);
    EXPECT_EQ(groupNumberOf("3;A"), 3);
}

TEST(GroupLine, NumberBeyondRangeRefersToNothingButIsAFaultWhenShown)
{
    for (const std::string_view line : {"3000000000,0;A", "-3000000000,0;A", "1E999,0;A"}) {
        SCOPED_TRACE(line);
        EXPECT_EQ(groupNumberOf(line), 0);
        EXPECT_THROW(static_cast<void>(DustGroup::parse(line)), ArithmeticFault);
    }
}

TEST(GroupLine, NameMayHoldACommaAndEndsAtASecondSemicolon)
{
    EXPECT_EQ(groupNameOf("1,0;Vápno, mleté"), "Vápno, mleté");
    EXPECT_EQ(groupNameOf("1,0;A;B"), "A");
    EXPECT_EQ(groupNameOf("1,0; A "), " A ");
    EXPECT_EQ(groupNameOf("1,0"), "");
    EXPECT_EQ(groupNameOf("1,0;"), "");
}

// The comma of a name is none of the particle part.
TEST(GroupLine, ParticlePartNeedsACommaBeforeTheName)
{
    EXPECT_TRUE(hasParticlePart("1,0;A"));
    EXPECT_TRUE(hasParticlePart(","));
    EXPECT_FALSE(hasParticlePart("1;A"));
    EXPECT_FALSE(hasParticlePart("1;A, B"));
    EXPECT_FALSE(hasParticlePart("Cement"));
}

TEST(GroupLine, ParticlesAreNotReadFromTheName)
{
    EXPECT_EQ(DustGroup::parse("4,2,10,0.5;Name,20,0.5").line(), "4,2,10,0.5,0,0;Name,20,0.5");
}

TEST(GroupLine, PromisedParticleThatIsMissingIsZero)
{
    EXPECT_EQ(DustGroup::parse("4,2,10,0.5;Name").line(), "4,2,10,0.5,0,0;Name");
}

TEST(GroupLine, SurplusParticlesAreIgnored)
{
    EXPECT_EQ(DustGroup::parse("4,1,10,0.5,20,0.5;Name").line(), "4,1,10,0.5;Name");
}

TEST(GroupLine, CountBeyondReasonIsAFault)
{
    EXPECT_THROW(static_cast<void>(DustGroup::parse("1,2000000000,10,0.5,20,0.5;A")), ArithmeticFault);
    EXPECT_THROW(static_cast<void>(DustGroup::parse("1,1E30,10,0.5;A")), ArithmeticFault);
}

TEST(GroupLine, AnyTextIsAGroupLine)
{
    const DustGroup group = DustGroup::parse("neco, uplne, jineho");
    EXPECT_EQ(group.line(), "0,0;");
}

}  // namespace
}  // namespace korvex
