// The rule by which particles are entered, and lists read from and written to text.
#include "particle_list.h"

#include "arithmetic_fault.h"

#include <gtest/gtest.h>

#include <cstddef>
#include <cstdint>
#include <limits>
#include <string>
#include <string_view>
#include <vector>

namespace korvex {
namespace {

std::string textOf(const ParticleList& list)
{
    std::string text;
    list.appendTo(text);
    return text;
}

ParticleList listOf(const std::vector<DustParticle>& particles)
{
    ParticleList list;
    for (const DustParticle& particle : particles)
        list.append(particle);
    return list;
}

ParticleList entered(ParticleList list, float diameter, float share)
{
    list.enter({diameter, share});
    return list;
}

ParticleList readFrom(std::string_view text, std::size_t skipped, std::int32_t count)
{
    ParticleList list;
    list.read(text, skipped, count);
    return list;
}

const ParticleList two = listOf({{10, 0.6F}, {50, 0.4F}});

TEST(ParticleListEnter, NewDiameterIsAppendedAtTheEndWhateverItsSize)
{
    EXPECT_EQ(textOf(entered(two, 20, 0.1F)), ",10,0.6,50,0.4,20,0.1");
    EXPECT_EQ(textOf(entered(two, 1, 0.1F)), ",10,0.6,50,0.4,1,0.1");
}

TEST(ParticleListEnter, NewRowNeedsDiameterAndShareAboveZero)
{
    for (const DustParticle& refused : std::vector<DustParticle>{{20, 0}, {20, -1}, {0, 0.5F}, {-20, 0.5F}, {0, 0}}) {
        SCOPED_TRACE(refused.Prumer);
        EXPECT_EQ(textOf(entered(two, refused.Prumer, refused.Zastoupeni)), textOf(two));
    }
}

TEST(ParticleListEnter, DiameterInTheListChangesItsShareInPlace)
{
    EXPECT_EQ(textOf(entered(two, 10, 0.5F)), ",10,0.5,50,0.4");
    EXPECT_EQ(textOf(entered(two, 50, 7)), ",10,0.6,50,7");
}

TEST(ParticleListEnter, RowTakesANegativeShare)
{
    EXPECT_EQ(textOf(entered(two, 10, -0.5F)), ",10,-0.5,50,0.4");
}

TEST(ParticleListEnter, ShareZeroRemovesTheRowAndTheOthersKeepTheirOrder)
{
    const ParticleList three = entered(two, 5, 0.1F);
    EXPECT_EQ(textOf(entered(three, 10, 0)), ",50,0.4,5,0.1");
    EXPECT_EQ(textOf(entered(three, 50, 0)), ",10,0.6,5,0.1");
    EXPECT_EQ(textOf(entered(three, 10, -0.0F)), ",50,0.4,5,0.1");
}

TEST(ParticleListEnter, RemovedDiameterComesBackAtTheEnd)
{
    EXPECT_EQ(textOf(entered(entered(two, 10, 0), 10, 0.6F)), ",50,0.4,10,0.6");
}

TEST(ParticleListEnter, DiametersAreComparedExactly)
{
    const float next = 10.000001F;
    ASSERT_NE(next, 10.0F);
    EXPECT_EQ(entered(two, next, 0.1F).count(), 3U);
    // Both texts are the same 32-bit number.
    EXPECT_EQ(entered(two, 10.0000001F, 0.1F).count(), 2U);
}

// A file may hold a diameter twice, also 0 or a negative one; such rows are changed and removed as any other.
TEST(ParticleListEnter, FirstOfTwoEqualDiametersIsMeant)
{
    const ParticleList twice = listOf({{10, 0.1F}, {5, 0.2F}, {10, 0.3F}});
    EXPECT_EQ(textOf(entered(twice, 10, 0.9F)), ",10,0.9,5,0.2,10,0.3");
    EXPECT_EQ(textOf(entered(twice, 10, 0)), ",5,0.2,10,0.3");
    EXPECT_EQ(textOf(entered(entered(twice, 10, 0), 10, 0)), ",5,0.2");
}

TEST(ParticleListEnter, RowWithDiameterZeroFromAFileCanBeRemoved)
{
    EXPECT_EQ(textOf(entered(listOf({{10, 0.5F}, {0, 0}}), 0, 0)), ",10,0.5");
}

TEST(ParticleListEnter, SharesNeedNotAddUpToOneAndRowsHaveNoLimit)
{
    ParticleList list;
    constexpr int many = 300;
    for (int diameter = 1; diameter <= many; ++diameter)
        list.enter({static_cast<float>(diameter), 1});
    EXPECT_EQ(list.count(), 300U);
    EXPECT_EQ(list.particles().back(), (DustParticle{300, 1}));
}

TEST(ParticleListRead, FieldsBehindTheSkippedOnesArePairs)
{
    EXPECT_EQ(textOf(readFrom("12,2,10,0.5,20,0.25", 2, 2)), ",10,0.5,20,0.25");
    EXPECT_EQ(textOf(readFrom("2500,0,2,10,0.6,50,0.4", 3, 2)), ",10,0.6,50,0.4");
}

TEST(ParticleListRead, CountDecidesSurplusFieldsAreIgnored)
{
    EXPECT_EQ(textOf(readFrom("1,1,10,0.5,20,0.25", 2, 1)), ",10,0.5");
    EXPECT_EQ(textOf(readFrom("1,0,10,0.5", 2, 0)), "");
    EXPECT_EQ(textOf(readFrom("1,-3,10,0.5", 2, -3)), "");
}

TEST(ParticleListRead, MissingFieldsAreZero)
{
    EXPECT_EQ(textOf(readFrom("4,2,10,0.5", 2, 2)), ",10,0.5,0,0");
    EXPECT_EQ(textOf(readFrom("4,2,10", 2, 2)), ",10,0,0,0");
    EXPECT_EQ(textOf(readFrom("4", 2, 2)), ",0,0,0,0");
}

TEST(ParticleListRead, EqualDiametersOfATextAreAllKept)
{
    EXPECT_EQ(textOf(readFrom("1,2,10,0.5,10,0.25", 2, 2)), ",10,0.5,10,0.25");
}

TEST(ParticleListRead, NumbersHaveAPointAndMayHoldBlanks)
{
    EXPECT_EQ(textOf(readFrom("1,2, 1 0 , 0.5um,x,1E-05", 2, 2)), ",10,0.5,0,1E-05");
}

TEST(ParticleListRead, CountFarBeyondTheTextIsAFaultAndTheListStays)
{
    for (const std::int32_t count : {2'000'000'000, std::numeric_limits<std::int32_t>::max()}) {
        ParticleList list = two;
        EXPECT_THROW(list.read("1,2000000000,10,0.5,20,0.5", 2, count), ArithmeticFault);
        EXPECT_EQ(textOf(list), textOf(two));
    }
}

TEST(ParticleListRead, FaultNamesTheCount)
{
    ParticleList list;
    try {
        list.read("1,2000000000,10,0.5,20,0.5", 2, 2'000'000'000);
        FAIL() << "no fault";
    } catch (const ArithmeticFault& fault) {
        EXPECT_EQ(fault.subject(), "počet částic 2000000000, na řádku je jich jen 2");
        EXPECT_EQ(fault.kind(), FaultKind::Overflow);
    }
}

// The bound is on what is missing, not on what is there.
TEST(ParticleListRead, LongListThatIsThereIsRead)
{
    constexpr int many = 60'000;
    std::string text = "1,60000";
    for (int i = 0; i < many; ++i)
        text += ",7,0.5";
    EXPECT_EQ(readFrom(text, 2, many).count(), 60'000U);
}

TEST(ParticleListRead, NumberOutOfRangeIsAFaultAndTheListStays)
{
    for (const std::string_view text : {"1,2,10,0.5,1E39,0.5", "1,2,10,0.5,20,-1E39", "1,2,1E-60,0.5,20,0.1"}) {
        SCOPED_TRACE(text);
        ParticleList list = two;
        EXPECT_THROW(list.read(text, 2, 2), ArithmeticFault);
        EXPECT_EQ(textOf(list), textOf(two));
    }
}

TEST(ParticleListWrite, RealsAreWrittenInTheirGeneralForm)
{
    EXPECT_EQ(textOf(listOf({{10, 0.25F}, {2500, 0.00001F}, {2.5F, 1}})), ",10,0.25,2500,1E-05,2.5,1");
    EXPECT_EQ(textOf({}), "");
}

}  // namespace
}  // namespace korvex
