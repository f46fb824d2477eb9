// Tests of the rows of the source list: tags, marks and sorting.
#include "source_rows.h"

#include "number_text.h"
#include "source_set.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <limits>
#include <numeric>
#include <random>
#include <string>
#include <utility>
#include <vector>

namespace korvex {
namespace {

using Numbers = std::vector<std::int32_t>;
using Tags = std::vector<std::size_t>;

SourceSet setOf(const Numbers& numbers)
{
    SourceSet set;
    for (const std::int32_t number : numbers) {
        cZdroje source(cBodovyZdroj);
        source.ICZ(number);
        set.append(std::move(source));
    }
    return set;
}

/// Points, areas and lines in turn, numbered 1, 2, 3 …
SourceSet mixedSet(std::size_t size)
{
    SourceSet set;
    for (std::size_t position = 1; position <= size; ++position) {
        const std::int32_t number = static_cast<std::int32_t>(position);
        cZdroje source(*sourceTypeOf((number - 1) % 3 + 1));
        source.ICZ(number);
        set.append(std::move(source));
    }
    return set;
}

SourceRows rowsOf(const SourceSet& set)
{
    SourceRows rows;
    rows.refill(set.size());
    return rows;
}

Tags tagsOf(const SourceRows& rows)
{
    Tags tags;
    for (std::size_t row = 0; row < rows.count(); ++row)
        tags.push_back(rows.tag(row));
    return tags;
}

/// The tags of the marked rows, in display order.
Tags markedTags(const SourceRows& rows)
{
    Tags tags;
    for (std::size_t row = 0; row < rows.count(); ++row) {
        if (rows.marked(row))
            tags.push_back(rows.tag(row));
    }
    return tags;
}

Numbers shownNumbers(const SourceSet& set, const SourceRows& rows)
{
    Numbers numbers;
    for (const std::size_t tag : tagsOf(rows))
        numbers.push_back(set.at(tag).ICZ());
    return numbers;
}

Numbers sortedNumbers(const Numbers& numbers, SortDirection direction)
{
    const SourceSet set = setOf(numbers);
    SourceRows rows = rowsOf(set);
    rows.sortByNumber(set, direction);
    return shownNumbers(set, rows);
}

// ---- Rows and tags ----

TEST(SourceRows, StartWithoutRows)
{
    const SourceRows rows;
    EXPECT_EQ(rows.count(), 0U);
    EXPECT_EQ(rows.marks().size(), 0U);
}

TEST(SourceRows, ARefillShowsOneUnmarkedRowASourceInSetOrder)
{
    SourceRows rows;
    rows.refill(3);
    EXPECT_EQ(tagsOf(rows), (Tags{1, 2, 3}));
    EXPECT_EQ(markedTags(rows), Tags());
    EXPECT_EQ(rows.marks().size(), 3U);
}

TEST(SourceRows, ARefillForgetsOrderAndMarks)
{
    const SourceSet set = setOf({3, 1, 2});
    SourceRows rows = rowsOf(set);
    rows.sortByNumber(set, SortDirection::Ascending);
    rows.markAll(true);
    rows.refill(3);
    EXPECT_EQ(tagsOf(rows), (Tags{1, 2, 3}));
    EXPECT_EQ(markedTags(rows), Tags());
    rows.markAll(true);
    rows.refill(2);
    EXPECT_EQ(tagsOf(rows), (Tags{1, 2}));
    EXPECT_EQ(markedTags(rows), Tags());
    rows.refill(0);
    EXPECT_EQ(rows.count(), 0U);
}

TEST(SourceRows, AnAddedRowStandsAtTheEndAndItsTagIsTheRowCount)
{
    SourceRows rows;
    rows.add(false);
    rows.add(true);
    EXPECT_EQ(tagsOf(rows), (Tags{1, 2}));
    EXPECT_EQ(markedTags(rows), (Tags{2}));
}

TEST(SourceRows, AnAddedRowStandsAtTheEndOfASortedListToo)
{
    SourceSet set = setOf({3, 1, 2});
    SourceRows rows = rowsOf(set);
    rows.sortByNumber(set, SortDirection::Ascending);
    rows.mark(0, true);
    cZdroje source(cBodovyZdroj);
    source.ICZ(0);
    set.append(std::move(source));
    rows.add(true);
    EXPECT_EQ(tagsOf(rows), (Tags{2, 3, 1, 4}));
    EXPECT_EQ(markedTags(rows), (Tags{2, 4}));
}

TEST(SourceRows, RowsCanBeAddedAcrossTheWordsOfTheMarks)
{
    SourceRows rows;
    for (std::size_t position = 1; position <= 130; ++position)
        rows.add(position % 2 == 0);
    EXPECT_EQ(rows.count(), 130U);
    EXPECT_EQ(rows.marks().count(), 65U);
    EXPECT_TRUE(rows.marked(63));
    EXPECT_FALSE(rows.marked(64));
}

// ---- Sorting ----

TEST(SourceRows, NumbersAreSortedAscending)
{
    EXPECT_EQ(
        sortedNumbers({50001, 7, 12, 0, 999999999}, SortDirection::Ascending), (Numbers{0, 7, 12, 50001, 999999999}));
}

TEST(SourceRows, NumbersAreSortedDescending)
{
    EXPECT_EQ(
        sortedNumbers({50001, 7, 12, 0, 999999999}, SortDirection::Descending), (Numbers{999999999, 50001, 12, 7, 0}));
}

TEST(SourceRows, TenDigitNumbersStandWhereTheirTextStands)
{
    EXPECT_EQ(
        sortedNumbers({999999999, 1000000000, 100000001, 100000000, 1000000009, 1234567890}, SortDirection::Ascending),
        (Numbers{100000000, 1000000000, 1000000009, 100000001, 1234567890, 999999999}));
}

TEST(SourceRows, NegativeNumbersStandFirstInTheOrderOfTheirDigits)
{
    EXPECT_EQ(sortedNumbers({0, -2, 1, -1, -10, std::numeric_limits<std::int32_t>::min(), -214748364, -214748365},
                  SortDirection::Ascending),
        (Numbers{-1, -2, -10, -214748364, std::numeric_limits<std::int32_t>::min(), -214748365, 0, 1}));
}

TEST(SourceRows, SortingByNumberIsSortingByTheDisplayedText)
{
    std::mt19937 random(99);
    for (int i = 0; i < 200; ++i) {
        Numbers numbers = {0, -1, std::numeric_limits<std::int32_t>::min(), std::numeric_limits<std::int32_t>::max()};
        const std::size_t size = random() % 120;
        while (numbers.size() < size) {
            const auto number = static_cast<std::int32_t>(static_cast<std::uint32_t>(random())) >> (random() % 32);
            numbers.push_back(number);
            if (random() % 2 == 0)
                numbers.push_back(number / 10);  // the same text, cut
        }
        const SourceSet set = setOf(numbers);
        for (const SortDirection direction : {SortDirection::Ascending, SortDirection::Descending}) {
            Tags expected(numbers.size());
            std::iota(expected.begin(), expected.end(), 1U);
            const auto text = [&set](std::size_t tag) { return integerText(set.at(tag).ICZ(), Pattern::SourceNumber); };
            std::stable_sort(expected.begin(), expected.end(), [&](std::size_t one, std::size_t other) {
                return direction == SortDirection::Ascending ? text(one) < text(other) : text(one) > text(other);
            });
            SourceRows rows = rowsOf(set);
            rows.sortByNumber(set, direction);
            ASSERT_EQ(tagsOf(rows), expected);
        }
    }
}

TEST(SourceRows, EqualNumbersKeepTheirOrderBothWays)
{
    const SourceSet set = setOf({5, 3, 5, 3, 5});
    SourceRows rows = rowsOf(set);
    rows.sortByNumber(set, SortDirection::Ascending);
    EXPECT_EQ(tagsOf(rows), (Tags{2, 4, 1, 3, 5}));
    rows.sortByNumber(set, SortDirection::Descending);
    EXPECT_EQ(tagsOf(rows), (Tags{1, 3, 5, 2, 4}));
}

TEST(SourceRows, ASortKeepsTheOrderOfTheSortBeforeAmongEqualRows)
{
    const SourceSet set = setOf({5, 3, 5, 3});
    SourceRows rows = rowsOf(set);
    const std::vector<std::int64_t> backwards = {4, 3, 2, 1};
    rows.sortByRank(backwards, SortDirection::Ascending);
    EXPECT_EQ(tagsOf(rows), (Tags{4, 3, 2, 1}));
    rows.sortByNumber(set, SortDirection::Ascending);
    EXPECT_EQ(tagsOf(rows), (Tags{4, 2, 3, 1}));
}

TEST(SourceRows, RanksBelongToPositionsNotToRows)
{
    SourceRows rows;
    rows.refill(4);
    const std::vector<std::int64_t> ranks = {20, 10, 40, -5};
    rows.sortByRank(ranks, SortDirection::Ascending);
    EXPECT_EQ(tagsOf(rows), (Tags{4, 2, 1, 3}));
    rows.sortByRank(ranks, SortDirection::Ascending);
    EXPECT_EQ(tagsOf(rows), (Tags{4, 2, 1, 3}));
    rows.sortByRank(ranks, SortDirection::Descending);
    EXPECT_EQ(tagsOf(rows), (Tags{3, 1, 2, 4}));
}

TEST(SourceRows, EqualRanksKeepTheirOrderBothWays)
{
    SourceRows rows;
    rows.refill(4);
    const std::vector<std::int64_t> ranks = {1, 0, 1, 0};
    rows.sortByRank(ranks, SortDirection::Descending);
    EXPECT_EQ(tagsOf(rows), (Tags{1, 3, 2, 4}));
    rows.sortByRank(ranks, SortDirection::Ascending);
    EXPECT_EQ(tagsOf(rows), (Tags{2, 4, 1, 3}));
}

TEST(SourceRows, AnEmptyListCanBeSorted)
{
    const SourceSet set;
    SourceRows rows;
    rows.sortByNumber(set, SortDirection::Descending);
    EXPECT_EQ(rows.count(), 0U);
}

TEST(SourceRows, SortingDoesNotChangeTheSet)
{
    const SourceSet set = setOf({3, 1, 2});
    SourceRows rows = rowsOf(set);
    rows.sortByNumber(set, SortDirection::Ascending);
    EXPECT_EQ(set.at(1).ICZ(), 3);
    EXPECT_EQ(set.at(2).ICZ(), 1);
    EXPECT_EQ(set.at(3).ICZ(), 2);
}

// ---- Marks ----

TEST(SourceRows, AMarkFollowsItsSourceWhenTheRowsAreSorted)
{
    const SourceSet set = setOf({3, 1, 2});
    SourceRows rows = rowsOf(set);
    rows.mark(0, true);  // the source with number 3
    rows.sortByNumber(set, SortDirection::Ascending);
    EXPECT_FALSE(rows.marked(0));
    EXPECT_FALSE(rows.marked(1));
    EXPECT_TRUE(rows.marked(2));
    EXPECT_TRUE(rows.marks().marked(1));
    rows.mark(0, true);  // now the source with number 1
    EXPECT_TRUE(rows.marks().marked(2));
    rows.mark(2, false);
    EXPECT_EQ(markedTags(rows), (Tags{2}));
}

TEST(SourceRows, ARangeIsMarkedInDisplayOrderWithBothEnds)
{
    const SourceSet set = setOf({5, 4, 3, 2, 1});
    SourceRows rows = rowsOf(set);
    rows.sortByNumber(set, SortDirection::Ascending);
    rows.markRange(1, 3, true);
    EXPECT_EQ(markedTags(rows), (Tags{4, 3, 2}));
    rows.markRange(2, 2, false);
    EXPECT_EQ(markedTags(rows), (Tags{4, 2}));
    rows.markRange(0, 4, true);
    EXPECT_EQ(rows.marks().count(), 5U);
}

TEST(SourceRows, AllRowsAreMarkedUnmarkedOrInverted)
{
    for (const std::size_t size : {0U, 1U, 63U, 64U, 65U, 128U, 200U}) {
        SourceRows rows;
        rows.refill(size);
        rows.markAll(true);
        EXPECT_EQ(markedTags(rows).size(), size);
        rows.invertMarks();
        EXPECT_EQ(markedTags(rows), Tags());
        rows.invertMarks();
        EXPECT_EQ(markedTags(rows).size(), size);
        EXPECT_EQ(rows.marks().count(), size);
        rows.markAll(false);
        EXPECT_EQ(markedTags(rows), Tags());
    }
}

TEST(SourceRows, InvertingTurnsEveryRow)
{
    SourceRows rows;
    rows.refill(4);
    rows.mark(1, true);
    rows.mark(2, true);
    rows.invertMarks();
    EXPECT_EQ(markedTags(rows), (Tags{1, 4}));
}

TEST(SourceRows, MarkingByTypeMarksThatTypeOnly)
{
    const SourceSet set = mixedSet(7);
    for (const std::int32_t type : {1, 2, 3}) {
        SourceRows rows = rowsOf(set);
        rows.markByType(set, type);
        for (std::size_t row = 0; row < rows.count(); ++row)
            EXPECT_EQ(rows.marked(row), set.at(rows.tag(row)).TypZdrojeId() == type) << row;
    }
}

TEST(SourceRows, MarkingByTypeGoesByTheTypeCodeNotByTheIcon)
{
    const SourceSet set = mixedSet(3);
    SourceRows rows = rowsOf(set);
    rows.markByType(set, 2);
    ASSERT_EQ(markedTags(rows), (Tags{2}));
    EXPECT_EQ(set.at(2).TypZdroje(), "Plošný zdroj");
    EXPECT_EQ(set.at(2).Icon(), 3);
}

TEST(SourceRows, MarkingByTypeTwiceChangesNothing)
{
    const SourceSet set = mixedSet(70);
    SourceRows rows = rowsOf(set);
    rows.markByType(set, 3);
    const Tags once = markedTags(rows);
    rows.markByType(set, 3);
    EXPECT_EQ(markedTags(rows), once);
    EXPECT_EQ(once.size(), 23U);
}

TEST(SourceRows, MarkingByTypeKeepsOtherMarks)
{
    const SourceSet set = mixedSet(6);
    SourceRows rows = rowsOf(set);
    rows.mark(1, true);  // an area
    rows.markByType(set, 1);
    rows.markByType(set, 3);
    EXPECT_EQ(markedTags(rows), (Tags{1, 2, 3, 4, 6}));
}

TEST(SourceRows, MarkingByTypeWorksOnSortedRows)
{
    const SourceSet set = mixedSet(6);
    SourceRows rows = rowsOf(set);
    rows.sortByNumber(set, SortDirection::Descending);
    rows.markByType(set, 1);
    EXPECT_EQ(markedTags(rows), (Tags{4, 1}));
}

TEST(SourceRows, MarkingByATypeThatNoSourceHasMarksNothing)
{
    const SourceSet set = setOf({1, 2});
    SourceRows rows = rowsOf(set);
    rows.markByType(set, 2);
    rows.markByType(set, 0);
    EXPECT_EQ(markedTags(rows), Tags());
}

// ---- Deleting ----

TEST(SourceRows, DeletingMarkedRowsAfterSortingRemovesExactlyTheMarkedSources)
{
    SourceSet set = setOf({50, 10, 40, 20, 30});
    SourceRows rows = rowsOf(set);
    rows.sortByNumber(set, SortDirection::Ascending);
    rows.mark(0, true);  // shown first: number 10, at position 2
    rows.mark(3, true);  // number 40, at position 3
    set.removeMarked(rows.marks());
    rows.refill(set.size());
    EXPECT_EQ(shownNumbers(set, rows), (Numbers{50, 20, 30}));
    EXPECT_EQ(markedTags(rows), Tags());
}

TEST(SourceRows, DeletingInAnyOrderOfTheRowsRemovesExactlyTheMarkedSources)
{
    std::mt19937 random(41);
    for (int i = 0; i < 200; ++i) {
        const std::size_t size = random() % 150;
        Numbers numbers(size);
        std::iota(numbers.begin(), numbers.end(), 1);
        SourceSet set = setOf(numbers);
        SourceRows rows = rowsOf(set);
        std::vector<std::int64_t> ranks(size);
        for (std::int64_t& rank : ranks)
            rank = static_cast<std::int64_t>(random() % 100);
        rows.sortByRank(ranks, random() % 2 == 0 ? SortDirection::Ascending : SortDirection::Descending);
        Numbers expected = numbers;
        for (std::size_t row = 0; row < size; ++row) {
            if (random() % 2 != 0)
                continue;
            rows.mark(row, true);
            const std::int32_t shown = set.at(rows.tag(row)).ICZ();
            expected.erase(std::find(expected.begin(), expected.end(), shown));
        }
        set.removeMarked(rows.marks());
        rows.refill(set.size());
        ASSERT_EQ(shownNumbers(set, rows), expected);
    }
}

}  // namespace
}  // namespace korvex
