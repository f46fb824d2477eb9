// The text that a source keeps for its dust: reading, writing, and both one after the other.
#include "dust_description.h"

#include "arithmetic_fault.h"

#include <gtest/gtest.h>

#include <string>
#include <string_view>

namespace korvex {
namespace {

class DustTextsThatStay : public testing::TestWithParam<std::string_view> { };

TEST_P(DustTextsThatStay, ReadAndWrittenAgain)
{
    EXPECT_EQ(DustDescription::parse(GetParam()).text(), GetParam());
}

INSTANTIATE_TEST_SUITE_P(DustDescription, DustTextsThatStay,
    testing::Values("2500,3", "2500,0,2,10,0.6,50,0.4", "1500,0,0", "2.5,0,0", "2000,0,1,10,1", ",0,0", "2500,-4",
        "2500,2147483647", "1500,0,1,1E-05,1", "1500,0,2,10,0.5,10,0.5", "1500,0,1,10,-0.5", "1500,0,1,0,0"));

TEST(DustDescription, GroupOfAFileCarriesNoParticles)
{
    const DustDescription dust = DustDescription::parse("2500,3");
    EXPECT_TRUE(dust.isSet);
    EXPECT_EQ(dust.Hustota, "2500");
    EXPECT_EQ(dust.group, 3);
    EXPECT_EQ(dust.particles.count(), 0U);
}

TEST(DustDescription, ParticlesByHandComeInTheirOrder)
{
    const DustDescription dust = DustDescription::parse("2500,0,2,50,0.4,10,0.6");
    EXPECT_EQ(dust.group, 0);
    ASSERT_EQ(dust.particles.count(), 2U);
    EXPECT_EQ(dust.particles.particles()[0], (DustParticle{50, 0.4F}));
    EXPECT_EQ(dust.particles.particles()[1], (DustParticle{10, 0.6F}));
}

TEST(DustDescription, TextWithoutACommaTellsNothingNotEvenADensity)
{
    for (const std::string_view text : {"", "2500", "x"}) {
        SCOPED_TRACE(text);
        const DustDescription dust = DustDescription::parse(text);
        EXPECT_FALSE(dust.isSet);
        EXPECT_EQ(dust.Hustota, "");
        EXPECT_EQ(dust.group, 0);
        EXPECT_EQ(dust.particles.count(), 0U);
    }
}

TEST(DustDescription, WithoutACountThereAreNoParticles)
{
    const DustDescription dust = DustDescription::parse("2500,0");
    EXPECT_TRUE(dust.isSet);
    EXPECT_EQ(dust.Hustota, "2500");
    EXPECT_EQ(dust.text(), "2500,0,0");
}

TEST(DustDescription, MissingGroupIsByHand)
{
    EXPECT_EQ(DustDescription::parse("2500,").text(), "2500,0,0");
    EXPECT_EQ(DustDescription::parse(",").text(), ",0,0");
}

TEST(DustDescription, GroupAndCountAreRoundedToTheEvenNeighbour)
{
    EXPECT_EQ(DustDescription::parse("1,7.5").group, 8);
    EXPECT_EQ(DustDescription::parse("1,6.5").group, 6);
    EXPECT_EQ(DustDescription::parse("1,-0.5").group, 0);
    EXPECT_EQ(DustDescription::parse("1,0,1.5,10,1,20,1").particles.count(), 2U);
    EXPECT_EQ(DustDescription::parse("1,0,2.5,10,1,20,1,30,1").particles.count(), 2U);
}

TEST(DustDescription, CountDecides)
{
    EXPECT_EQ(DustDescription::parse("1,0,1,10,0.5,20,0.5").text(), "1,0,1,10,0.5");
    EXPECT_EQ(DustDescription::parse("1,0,2,10,0.5").text(), "1,0,2,10,0.5,0,0");
    EXPECT_EQ(DustDescription::parse("1,0,-1,10,0.5").text(), "1,0,0");
}

TEST(DustDescription, FieldsBehindAGroupAreNotRead)
{
    EXPECT_EQ(DustDescription::parse("2500,3,2000000000,1E99").text(), "2500,3");
}

TEST(DustDescription, DensityIsKeptAsItStands)
{
    DustDescription dust;
    dust.Hustota = "0002500.10";
    dust.group = 7;
    EXPECT_EQ(dust.text(), "0002500.10,7");
}

TEST(DustDescription, EmptyOneIsByHandWithoutParticles)
{
    EXPECT_EQ(DustDescription().text(), ",0,0");
}

TEST(DustDescription, NumbersOutOfRangeAreFaults)
{
    for (const std::string_view text :
        {"1,3000000000", "1,0,3000000000,10,1", "1,0,2000000000,10,1,20,1", "1,0,1,1E39,1", "1,0,1,10,1E39"}) {
        SCOPED_TRACE(text);
        EXPECT_THROW(static_cast<void>(DustDescription::parse(text)), ArithmeticFault);
    }
}

}  // namespace
}  // namespace korvex
