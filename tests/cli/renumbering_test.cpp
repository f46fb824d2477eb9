// New numbers.
#include "inventory_files.h"

#include "renumbering.h"

#include <gmock/gmock.h>

namespace korvex {
namespace {

using testing::ElementsAre;

SourceSet setOf(std::initializer_list<std::int32_t> numbers)
{
    SourceSet set;
    for (const std::int32_t number : numbers) {
        cZdroje source(cBodovyZdroj);
        source.ICZ(number);
        set.append(std::move(source));
    }
    return set;
}

std::vector<std::int32_t> renumbered(SourceSet set, const RenumberRequest& request)
{
    const Renumbering plan = planRenumbering(set, request);
    EXPECT_TRUE(plan.isPossible());
    renumber(set, plan);
    return test::numbersOf(set);
}

TEST(Renumbering, GoesThroughTheSourcesInTheirOrder)
{
    EXPECT_THAT(renumbered(setOf({5, 3, 9}), {{}, 100, 1}), ElementsAre(100, 101, 102));
    EXPECT_THAT(renumbered(setOf({5, 3, 9}), {{}, 10, 10}), ElementsAre(10, 20, 30));
    EXPECT_THAT(renumbered(setOf({5, 3, 9, 7}), {{{5, 7}}, 50, 1}), ElementsAre(50, 3, 9, 51));
}

TEST(Renumbering, GivesEachSourceOfASharedNumberOneOfItsOwn)
{
    EXPECT_THAT(renumbered(setOf({5, 5, 6}), {{{5, 5}}, 10, 1}), ElementsAre(10, 11, 6));
}

TEST(Renumbering, MayUseNumbersThatBecomeFree)
{
    EXPECT_THAT(renumbered(setOf({1, 2, 3}), {{}, 2, 1}), ElementsAre(2, 3, 4));
}

TEST(Renumbering, KeepsNamesAndEverythingElse)
{
    const test::TemporaryFolder folder;
    Inventory inventory = test::loaded(test::writeThree(folder));
    renumber(inventory.set, planRenumbering(inventory.set, {{}, 7, 1}));
    EXPECT_EQ(inventory.set.at(1).LineSource(), "000000007, 0000010, 0000020, 0300, 1, 2, 3 ;Pec, \"nová\"");
    EXPECT_EQ(inventory.set.at(1).LineParameters(), "000000007, 0.5, 30, 3.1, 150, 1.2, 8.5, 0.8, 24, 0");
    EXPECT_EQ(inventory.set.at(1).LineDust(), "000000007,1800,0,1,10,1");
}

TEST(Renumbering, ANumberThatAnotherSourceHasIsAClash)
{
    const Renumbering plan = planRenumbering(setOf({1, 2, 3, 11}), {{{1, 2}}, 10, 1});
    EXPECT_FALSE(plan.isPossible());
    ASSERT_EQ(plan.clashes.size(), 1U);
    EXPECT_EQ(plan.clashes[0].before, 2);
    EXPECT_EQ(plan.clashes[0].after, 11);
}

TEST(Renumbering, NumbersKeepToNineDigits)
{
    EXPECT_TRUE(planRenumbering(setOf({1}), {{}, largestNumber, 1}).isPossible());
    EXPECT_FALSE(planRenumbering(setOf({1, 2}), {{}, largestNumber, 1}).isPossible());
    EXPECT_TRUE(planRenumbering(setOf({1, 2}), {{}, largestNumber, 1}).isTooWide);
    EXPECT_TRUE(planRenumbering(setOf({1}), {{}, -1, 1}).isTooWide);
    EXPECT_TRUE(planRenumbering(setOf({1, 2, 3}), {{}, 2, 2'000'000'000}).isTooWide);
}

}  // namespace
}  // namespace korvex
