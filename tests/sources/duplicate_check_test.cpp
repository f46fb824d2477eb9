// Tests of the duplicate check: what it marks and counts, and what it leaves alone.
#include "duplicate_check.h"

#include "source_rows.h"
#include "source_set.h"

#include <gtest/gtest.h>

#include <array>
#include <cstddef>
#include <cstdint>
#include <random>
#include <string>
#include <utility>
#include <vector>

namespace korvex {
namespace {

using Tags = std::vector<std::size_t>;

/// The list over a set, as the check sees it.
struct List {
    void add(const SourceType& type, std::int32_t number)
    {
        cZdroje source(type);
        source.ICZ(number);
        set.append(std::move(source));
        rows.add(false);
    }
    std::size_t check() { return markDuplicates(set, rows); }
    [[nodiscard]] Tags shown() const
    {
        Tags tags;
        for (std::size_t row = 0; row < rows.count(); ++row)
            tags.push_back(rows.tag(row));
        return tags;
    }
    [[nodiscard]] Tags marked() const
    {
        Tags tags;
        for (std::size_t position = 1; position <= set.size(); ++position) {
            if (rows.marks().marked(position))
                tags.push_back(position);
        }
        return tags;
    }

    SourceSet set;
    SourceRows rows;
};

List pointsNumbered(const std::vector<std::int32_t>& numbers)
{
    List list;
    for (const std::int32_t number : numbers)
        list.add(cBodovyZdroj, number);
    return list;
}

TEST(DuplicateCheck, AnEmptyListHasNoDuplicates)
{
    List list;
    EXPECT_EQ(list.check(), 0U);
    EXPECT_EQ(list.shown(), Tags());
}

TEST(DuplicateCheck, ASingleSourceIsNoDuplicate)
{
    List list = pointsNumbered({7});
    EXPECT_EQ(list.check(), 0U);
    EXPECT_EQ(list.marked(), Tags());
}

TEST(DuplicateCheck, DifferentNumbersAreNoDuplicates)
{
    List list = pointsNumbered({3, 1, 2});
    EXPECT_EQ(list.check(), 0U);
    EXPECT_EQ(list.marked(), Tags());
}

TEST(DuplicateCheck, OfTwoEqualSourcesTheSecondIsMarked)
{
    List list = pointsNumbered({7, 7});
    EXPECT_EQ(list.check(), 1U);
    EXPECT_EQ(list.marked(), (Tags{2}));
}

TEST(DuplicateCheck, ThreeEqualSourcesAreTwoDuplicates)
{
    List list = pointsNumbered({7, 7, 7});
    EXPECT_EQ(list.check(), 2U);
    EXPECT_EQ(list.marked(), (Tags{2, 3}));
}

TEST(DuplicateCheck, EqualSourcesAreFoundAcrossTheSet)
{
    List list = pointsNumbered({9, 4, 7, 4, 1, 9, 4});
    EXPECT_EQ(list.check(), 3U);
    EXPECT_EQ(list.marked(), (Tags{4, 6, 7}));
}

TEST(DuplicateCheck, OnlyNumberAndStackNumberDecide)
{
    List list = pointsNumbered({7, 7});
    list.set.at(1).LineSource("7, 1, 2, 3, 1, 4, 5 ;Kotelna");
    list.set.at(1).LineParameters("7, 1, 2, 3");
    list.set.at(1).LineDust("2000,3");
    list.set.at(2).LineSource("7, 9, 8, 7, 1, 6, 5 ;Lakovna");
    EXPECT_EQ(list.check(), 1U);
    EXPECT_EQ(list.marked(), (Tags{2}));
}

TEST(DuplicateCheck, TheSameNumberWithAnotherStackNumberIsNoDuplicate)
{
    List list;
    list.add(cBodovyZdroj, 7);
    list.add(cPlosnyZdroj, 7);
    ASSERT_NE(list.set.at(1).KOMIN(), list.set.at(2).KOMIN());
    EXPECT_EQ(list.check(), 0U);
    EXPECT_EQ(list.marked(), Tags());
}

TEST(DuplicateCheck, TheTypeIsNotCompared)
{
    List list;
    list.add(cPlosnyZdroj, 7);
    list.add(cLiniovyZdroj, 7);
    EXPECT_EQ(list.check(), 1U);
    EXPECT_EQ(list.marked(), (Tags{2}));
}

TEST(DuplicateCheck, EqualSourcesWithAnotherStackBetweenThemGoUnnoticed)
{
    List list;
    list.add(cBodovyZdroj, 7);
    list.add(cPlosnyZdroj, 7);
    list.add(cBodovyZdroj, 7);
    EXPECT_EQ(list.check(), 0U);
    EXPECT_EQ(list.marked(), Tags());
    EXPECT_EQ(list.shown(), (Tags{1, 2, 3}));
}

TEST(DuplicateCheck, EqualNeighboursAreFoundBesideAnotherStack)
{
    List list;
    list.add(cBodovyZdroj, 7);
    list.add(cBodovyZdroj, 7);
    list.add(cPlosnyZdroj, 7);
    list.add(cLiniovyZdroj, 7);
    EXPECT_EQ(list.check(), 2U);
    EXPECT_EQ(list.marked(), (Tags{2, 4}));
}

TEST(DuplicateCheck, AnEarlierOrderDecidesWhichEqualSourcesAreNeighbours)
{
    List list;
    list.add(cBodovyZdroj, 7);
    list.add(cPlosnyZdroj, 7);
    list.add(cBodovyZdroj, 7);
    const std::vector<std::int64_t> areaLast = {2, 3, 1};
    list.rows.sortByRank(areaLast, SortDirection::Ascending);
    EXPECT_EQ(list.check(), 1U);
    EXPECT_EQ(list.shown(), (Tags{3, 1, 2}));
    EXPECT_EQ(list.marked(), (Tags{1}));
}

TEST(DuplicateCheck, EarlierMarksStay)
{
    List list = pointsNumbered({5, 7, 7});
    list.rows.mark(0, true);
    EXPECT_EQ(list.check(), 1U);
    EXPECT_EQ(list.marked(), (Tags{1, 3}));
}

TEST(DuplicateCheck, ADuplicateThatIsMarkedAlreadyIsCounted)
{
    List list = pointsNumbered({7, 7});
    list.rows.markAll(true);
    EXPECT_EQ(list.check(), 1U);
    EXPECT_EQ(list.marked(), (Tags{1, 2}));
    EXPECT_EQ(list.check(), 1U);
}

TEST(DuplicateCheck, TheListStaysSortedByNumber)
{
    List list = pointsNumbered({50001, 7, 12, 7, 3});
    EXPECT_EQ(list.check(), 1U);
    EXPECT_EQ(list.shown(), (Tags{5, 2, 4, 3, 1}));
    EXPECT_EQ(list.marked(), (Tags{4}));
}

TEST(DuplicateCheck, TheListIsSortedAscendingEvenWhenItWasDescending)
{
    List list = pointsNumbered({1, 2, 3});
    list.rows.sortByNumber(list.set, SortDirection::Descending);
    EXPECT_EQ(list.check(), 0U);
    EXPECT_EQ(list.shown(), (Tags{1, 2, 3}));
}

TEST(DuplicateCheck, NumbersOfTenDigitsAndNegativeOnesAreComparedLikeAnyOther)
{
    List list = pointsNumbered({1234567890, -1, 123456789, 1234567890, -1, 1, -1});
    EXPECT_EQ(list.check(), 3U);
    EXPECT_EQ(list.marked(), (Tags{4, 5, 7}));
}

TEST(DuplicateCheck, AFirstSourceNumberedMinusOneIsNoDuplicateOfTheBeginning)
{
    // The walk begins with -1 in all three places, and every source of ours has CKU 0.
    List list = pointsNumbered({-1});
    ASSERT_EQ(list.set.at(1).CKU(), 0);
    EXPECT_EQ(list.check(), 0U);
    EXPECT_EQ(list.marked(), Tags());
}

TEST(DuplicateCheck, TheSetIsNotChanged)
{
    List list = pointsNumbered({7, 3, 7});
    EXPECT_EQ(list.check(), 1U);
    EXPECT_EQ(list.set.size(), 3U);
    EXPECT_EQ(list.set.at(1).ICZ(), 7);
    EXPECT_EQ(list.set.at(2).ICZ(), 3);
    EXPECT_EQ(list.set.at(3).ICZ(), 7);
    EXPECT_FALSE(list.set.modified());
}

TEST(DuplicateCheck, DeletingWhatTheCheckMarkedLeavesNoDuplicates)
{
    std::mt19937 random(15);
    for (int i = 0; i < 100; ++i) {
        List list;
        std::array<bool, 40> seen{};
        std::size_t different = 0;
        for (auto size = random() % 150; size > 0; --size) {
            const auto number = static_cast<std::int32_t>(random() % seen.size());
            bool& known = seen[static_cast<std::size_t>(number)];
            different += known ? 0U : 1U;
            known = true;
            list.add(cBodovyZdroj, number);
        }
        ASSERT_EQ(list.check(), list.set.size() - different);
        list.set.removeMarked(list.rows.marks());
        list.rows.refill(list.set.size());
        ASSERT_EQ(list.set.size(), different);
        ASSERT_EQ(list.check(), 0U);
    }
}

}  // namespace
}  // namespace korvex
