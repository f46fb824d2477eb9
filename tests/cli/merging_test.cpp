// Several inventories made one: which source stays, where it stands, and what it is called.
#include "inventory_files.h"

#include "difference.h"
#include "merging.h"
#include "renumbering.h"
#include "selection.h"

#include <gmock/gmock.h>

#include <utility>

namespace korvex {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

/// Stacks of these numbers; X tells them apart.
Inventory inventoryOf(std::vector<std::pair<std::int32_t, std::int32_t>> numbersAndX, std::string comment = "")
{
    Inventory inventory;
    inventory.comment = std::move(comment);
    for (const auto& [number, x] : numbersAndX) {
        cZdroje source(cBodovyZdroj);
        source.renumber(number);
        source.X(x);
        inventory.set.append(std::move(source));
    }
    return inventory;
}

std::vector<std::pair<std::int32_t, std::int32_t>> contentOf(const SourceSet& set)
{
    std::vector<std::pair<std::int32_t, std::int32_t>> content;
    for (std::size_t position = 1; position <= set.size(); ++position)
        content.emplace_back(set.at(position).ICZ(), set.at(position).X());
    return content;
}

template <class... Inventories>
Merge merged(OnConflict onConflict, Inventories... inventories)
{
    std::vector<Inventory> all;
    (all.push_back(std::move(inventories)), ...);
    return mergeInventories(all, onConflict);
}

using P = std::pair<std::int32_t, std::int32_t>;

TEST(Merging, InventoriesFollowOneAnotherInTheirOwnOrder)
{
    const Merge merge
        = merged(OnConflict::Fail, inventoryOf({{5, 0}, {1, 0}}), inventoryOf({{4, 0}}), inventoryOf({{2, 0}, {3, 0}}));
    EXPECT_THAT(test::numbersOf(merge.set), ElementsAre(5, 1, 4, 2, 3));
    EXPECT_THAT(merge.conflicts, IsEmpty());
}

TEST(Merging, SourcesThatAreTheSameAreTakenOnce)
{
    const Merge merge = merged(OnConflict::Fail, inventoryOf({{1, 0}, {2, 0}}), inventoryOf({{2, 0}, {3, 0}}));
    EXPECT_THAT(test::numbersOf(merge.set), ElementsAre(1, 2, 3));
    EXPECT_EQ(merge.taken, 1U);
    EXPECT_THAT(merge.conflicts, IsEmpty());
}

TEST(Merging, AConflictIsSolvedAsAskedFor)
{
    const auto run = [](OnConflict onConflict) {
        return merged(onConflict, inventoryOf({{1, 10}, {2, 20}, {3, 30}}), inventoryOf({{4, 41}, {2, 21}, {7, 71}}));
    };
    EXPECT_EQ(run(OnConflict::Fail).conflicts.size(), 1U);
    EXPECT_EQ(run(OnConflict::Fail).conflicts[0].number, 2);
    EXPECT_EQ(run(OnConflict::Fail).conflicts[0].later.inventory, 1U);
    EXPECT_THAT(contentOf(run(OnConflict::Keep).set), ElementsAre(P{1, 10}, P{2, 20}, P{3, 30}, P{4, 41}, P{7, 71}));
    EXPECT_THAT(contentOf(run(OnConflict::Replace).set), ElementsAre(P{1, 10}, P{2, 21}, P{3, 30}, P{4, 41}, P{7, 71}));
    const Merge renumbered = run(OnConflict::Renumber);
    EXPECT_THAT(contentOf(renumbered.set), ElementsAre(P{1, 10}, P{2, 20}, P{3, 30}, P{4, 41}, P{8, 21}, P{7, 71}));
    EXPECT_EQ(renumbered.conflicts[0].newNumber, 8);
}

TEST(Merging, EqualNumbersWithinOneInventoryAreNoConflict)
{
    for (const OnConflict onConflict :
        {OnConflict::Fail, OnConflict::Keep, OnConflict::Replace, OnConflict::Renumber}) {
        const Merge merge = merged(onConflict, inventoryOf({{1, 1}}), inventoryOf({{2, 1}, {2, 2}}));
        EXPECT_THAT(merge.conflicts, IsEmpty());
        EXPECT_THAT(contentOf(merge.set), ElementsAre(P{1, 1}, P{2, 1}, P{2, 2}));
    }
}

TEST(Merging, ALaterSourceReplacesOneOfItsNumberAndWhatIsTheSameStays)
{
    const Merge merge
        = merged(OnConflict::Replace, inventoryOf({{1, 1}, {2, 2}, {1, 3}}), inventoryOf({{1, 3}, {1, 4}}));
    EXPECT_THAT(contentOf(merge.set), ElementsAre(P{1, 4}, P{2, 2}, P{1, 3}));
    ASSERT_EQ(merge.conflicts.size(), 1U);
    EXPECT_EQ(merge.conflicts[0].outcome, MergeConflict::Outcome::Replaced);
    EXPECT_EQ(merge.conflicts[0].later.position, 2U);
    EXPECT_EQ(merge.conflicts[0].earlier.inventory, 0U);
    EXPECT_EQ(merge.conflicts[0].earlier.position, 1U);
}

TEST(Merging, ReplacingDropsNoSourceForWhichNothingCame)
{
    const auto withArea = [](Inventory inventory, std::int32_t x) {
        cZdroje area(cPlosnyZdroj);
        area.renumber(1);
        area.X(x);
        inventory.set.append(std::move(area));
        return inventory;
    };
    const Merge same = merged(OnConflict::Replace, withArea(inventoryOf({{1, 1}}), 2), inventoryOf({{1, 1}}));
    EXPECT_THAT(contentOf(same.set), ElementsAre(P{1, 1}, P{1, 2}));
    EXPECT_THAT(same.conflicts, IsEmpty());

    const Merge other = merged(OnConflict::Replace, withArea(inventoryOf({}), 2), inventoryOf({{1, 9}}));
    EXPECT_THAT(contentOf(other.set), ElementsAre(P{1, 9})) << "the only one of its number, whatever its type";

    const Merge ofType = merged(OnConflict::Replace, withArea(inventoryOf({{1, 1}}), 2), withArea(inventoryOf({}), 7));
    EXPECT_THAT(contentOf(ofType.set), ElementsAre(P{1, 1}, P{1, 7}));

    const Merge added = merged(OnConflict::Replace, inventoryOf({{1, 1}}), withArea(inventoryOf({{1, 1}}), 2));
    EXPECT_THAT(contentOf(added.set), ElementsAre(P{1, 1}, P{1, 2}));
    ASSERT_EQ(added.conflicts.size(), 1U);
    EXPECT_EQ(added.conflicts[0].outcome, MergeConflict::Outcome::Added);
}

TEST(Merging, ThreeInventoriesOfOneNumberAreSolvedOneAfterTheOther)
{
    const auto run = [](OnConflict onConflict) {
        return merged(onConflict, inventoryOf({{1, 1}}), inventoryOf({{1, 2}}), inventoryOf({{1, 3}}));
    };
    EXPECT_THAT(contentOf(run(OnConflict::Keep).set), ElementsAre(P{1, 1}));
    EXPECT_THAT(contentOf(run(OnConflict::Replace).set), ElementsAre(P{1, 3}));
    EXPECT_THAT(contentOf(run(OnConflict::Renumber).set), ElementsAre(P{1, 1}, P{2, 2}, P{3, 3}));
}

TEST(Merging, NumbersOfNineDigitsCanRunOut)
{
    EXPECT_TRUE(
        merged(OnConflict::Renumber, inventoryOf({{1, 1}, {largestNumber, 0}}), inventoryOf({{1, 2}})).numbersRanOut);
    EXPECT_FALSE(merged(OnConflict::Renumber, inventoryOf({{1, 1}, {largestNumber - 1, 0}}), inventoryOf({{1, 2}}))
                     .numbersRanOut);
}

TEST(Merging, DifferentCommentsAreJoinedAndDustStays)
{
    Inventory withDust = inventoryOf({{2, 0}}, "B");
    withDust.files.dust = "prach";
    const Merge merge = merged(OnConflict::Fail, inventoryOf({{1, 0}}, "A"), std::move(withDust), inventoryOf({{3, 0}}),
        inventoryOf({{4, 0}}, "A"));
    EXPECT_EQ(merge.comment, "A * B");
    EXPECT_TRUE(merge.hasDust);
    EXPECT_FALSE(merged(OnConflict::Fail, inventoryOf({{1, 0}})).hasDust);
}

TEST(Merging, TwoHalvesOfTheExampleMakeItWhole)
{
    for (const std::string_view half : {"1-203", "1,101,205", "204-", "999"}) {
        Inventory first = test::loaded(test::exampleFiles());
        Inventory second = test::loaded(test::exampleFiles());
        Selection selection;
        selection.numbers = readNumberRanges(half).value();
        static_cast<void>(select(first.set, selection, Take::Matching));
        static_cast<void>(select(second.set, selection, Take::Others));
        EXPECT_EQ(first.set.size() + second.set.size(), 16U);
        Inventory whole = test::loaded(test::exampleFiles());
        Merge merge = merged(OnConflict::Fail, std::move(first), std::move(second));
        sortByNumber(merge.set);
        whole.set = std::move(merge.set);
        whole.comment = merge.comment;
        EXPECT_TRUE(differenceOf(test::loaded(test::exampleFiles()), whole).empty()) << half;
    }
}

}  // namespace
}  // namespace korvex
