// Tests of the source set, the ordered inventory in memory, and of the marks that go with it.
#include "source_set.h"

#include "arithmetic_fault.h"
#include "mark_bitmap.h"

#include <gtest/gtest.h>

#include <cstddef>
#include <cstdint>
#include <random>
#include <string>
#include <vector>

namespace korvex {
namespace {

cZdroje numbered(const SourceType& type, std::int32_t number)
{
    cZdroje source(type);
    source.ICZ(number);
    return source;
}

SourceSet setOf(const std::vector<std::int32_t>& numbers)
{
    SourceSet set;
    for (const std::int32_t number : numbers)
        set.append(numbered(cBodovyZdroj, number));
    return set;
}

std::vector<std::int32_t> numbersOf(const SourceSet& set)
{
    std::vector<std::int32_t> numbers;
    for (std::size_t position = 1; position <= set.size(); ++position)
        numbers.push_back(set.at(position).ICZ());
    return numbers;
}

MarkBitmap marksOf(std::size_t size, const std::vector<std::size_t>& positions)
{
    MarkBitmap marks;
    marks.resize(size);
    for (const std::size_t position : positions)
        marks.mark(position, true);
    return marks;
}

std::vector<std::size_t> positionsOf(const MarkBitmap& marks)
{
    std::vector<std::size_t> positions;
    for (std::size_t position = 1; position <= marks.size(); ++position) {
        if (marks.marked(position))
            positions.push_back(position);
    }
    return positions;
}

using Numbers = std::vector<std::int32_t>;
using Positions = std::vector<std::size_t>;

// ---- The set ----

TEST(SourceSet, StartsEmptyAndUnmodified)
{
    const SourceSet set;
    EXPECT_TRUE(set.empty());
    EXPECT_EQ(set.size(), 0U);
    EXPECT_FALSE(set.modified());
}

TEST(SourceSet, PositionsCountFromOneInTheOrderOfAppending)
{
    SourceSet set = setOf({30, 10, 20});
    EXPECT_EQ(set.size(), 3U);
    EXPECT_FALSE(set.empty());
    EXPECT_EQ(set.at(1).ICZ(), 30);
    EXPECT_EQ(set.at(2).ICZ(), 10);
    EXPECT_EQ(set.at(3).ICZ(), 20);
    EXPECT_EQ(set.last().ICZ(), 20);
}

TEST(SourceSet, TwoSourcesMayCarryTheSameNumber)
{
    EXPECT_EQ(numbersOf(setOf({7, 7})), (Numbers{7, 7}));
}

TEST(SourceSet, ASourceInTheSetCanBeChanged)
{
    SourceSet set = setOf({1, 2});
    set.at(2).X(55);
    EXPECT_EQ(set.at(2).X(), 55);
    EXPECT_EQ(set.at(1).X(), 0);
}

TEST(SourceSet, AddingFromRecordsReadsBothRecords)
{
    SourceSet set = setOf({1});
    set.addFromRecords(
        cPlosnyZdroj, "000000012, 1234567, 0987654, 0350, 2, 3, 4 ;Lom", "000000012, 1, 2, 3, 4, 5, 6, 7, 8, 9");
    ASSERT_EQ(set.size(), 2U);
    EXPECT_EQ(set.last().LineSource(), "000000012, 1234567, 0987654, 0350, 2, 3, 4 ;Lom");
    EXPECT_EQ(set.last().LineParameters(), "000000012, 1, 2, 3, 4, 5, 6, 7, 8, 9");
    EXPECT_EQ(set.last().TypZdrojeId(), 2);
    EXPECT_EQ(set.at(1).ICZ(), 1);
}

TEST(SourceSet, AddingFromRecordsMakesASourceOfTheTypeNamed)
{
    SourceSet set;
    for (const SourceType* type : {&cLiniovyZdroj, &cBodovyZdroj, &cPlosnyZdroj}) {
        set.addFromRecords(*type, "12,0,0,0,1,0,0;n", "");
        EXPECT_EQ(&set.last().type(), type);
        EXPECT_EQ(set.last().KOMIN(), type->KOMIN);
    }
    EXPECT_EQ(set.size(), 3U);
}

TEST(SourceSet, AnEmptyDescriptionRecordMakesAllParametersZero)
{
    SourceSet set;
    set.addFromRecords(cBodovyZdroj, "000000012, 1, 2, 3, 1, 0, 0 ;Kotelna", "");
    EXPECT_EQ(set.last().LineParameters(), "000000012, 0, 0, 0, 0, 0, 0, 0, 0, 0");
    EXPECT_EQ(set.last().LineDust(), "000000012,0,0,0");
}

TEST(SourceSet, ARecordOutOfRangeAddsNothing)
{
    SourceSet set = setOf({1});
    EXPECT_THROW(set.addFromRecords(cBodovyZdroj, "1E10, 1, 2, 3, 1, 0, 0 ;x", ""), ArithmeticFault);
    EXPECT_THROW(set.addFromRecords(cBodovyZdroj, "12, 1, 2, 3, 1, 0, 0 ;x", "12, 1E39"), ArithmeticFault);
    EXPECT_EQ(numbersOf(set), (Numbers{1}));
}

TEST(SourceSet, RemovingTakesExactlyTheMarkedAndKeepsTheOrderOfTheOthers)
{
    SourceSet set = setOf({50, 10, 40, 20, 30});
    set.removeMarked(marksOf(5, {1, 3}));
    EXPECT_EQ(numbersOf(set), (Numbers{10, 20, 30}));
}

TEST(SourceSet, RemovingNothingOrEverything)
{
    SourceSet set = setOf({1, 2, 3});
    set.removeMarked(marksOf(3, {}));
    EXPECT_EQ(numbersOf(set), (Numbers{1, 2, 3}));
    set.removeMarked(marksOf(3, {1, 2, 3}));
    EXPECT_TRUE(set.empty());
    set.removeMarked(marksOf(0, {}));
    EXPECT_TRUE(set.empty());
}

TEST(SourceSet, RemovingAtTheEnds)
{
    SourceSet set = setOf({1, 2, 3, 4});
    set.removeMarked(marksOf(4, {4}));
    EXPECT_EQ(numbersOf(set), (Numbers{1, 2, 3}));
    set.removeMarked(marksOf(3, {1}));
    EXPECT_EQ(numbersOf(set), (Numbers{2, 3}));
}

TEST(SourceSet, TheRemainingSourcesKeepAllTheirValues)
{
    SourceSet set = setOf({1, 2});
    set.addFromRecords(cLiniovyZdroj, "3, 5, 6, 7, 3, 8, 9 ;Silnice se zcela zvláštním, dlouhým názvem", "3, 1, 2, 3");
    set.addFromRecords(cBodovyZdroj, "4, 5, 6, 7, 1, 8, 9 ;Komín", "4, 2.5");
    set.last().LineDust("2000,0,1,10,1");
    set.removeMarked(marksOf(4, {1, 2}));
    ASSERT_EQ(set.size(), 2U);
    EXPECT_EQ(set.at(1).LineSource(),
        "000000003, 0000005, 0000006, 0007, 3, 8, 9 ;Silnice se zcela zvláštním, dlouhým názvem");
    EXPECT_EQ(set.at(1).LineParameters(), "000000003, 1, 2, 3, 0, 0, 0, 0, 0, 0");
    EXPECT_EQ(set.at(2).LineDust(), "000000004,2000,0,1,10,1");
    EXPECT_EQ(set.at(2).NazevZdroje(), "Komín");
}

TEST(SourceSet, RemovingAgreesWithErasingFromTheHighestPositionDown)
{
    std::mt19937 random(14);
    for (int i = 0; i < 300; ++i) {
        const std::size_t size = random() % 140;
        Numbers expected;
        for (std::size_t n = 0; n < size; ++n)
            expected.push_back(static_cast<std::int32_t>(random() % 50));
        SourceSet set = setOf(expected);
        MarkBitmap marks;
        marks.resize(size);
        for (std::size_t position = 1; position <= size; ++position)
            marks.mark(position, random() % 3 == 0);
        for (std::size_t position = size; position >= 1; --position) {
            if (marks.marked(position))
                expected.erase(expected.begin() + static_cast<std::ptrdiff_t>(position - 1));
        }
        set.removeMarked(marks);
        ASSERT_EQ(numbersOf(set), expected);
    }
}

TEST(SourceSet, ClearingDropsAllSourcesAndLeavesTheModifiedFlag)
{
    for (const bool modified : {false, true}) {
        SourceSet set = setOf({1, 2});
        set.modified(modified);
        set.clear();
        EXPECT_TRUE(set.empty());
        EXPECT_EQ(set.modified(), modified);
        set.append(numbered(cBodovyZdroj, 9));
        EXPECT_EQ(set.at(1).ICZ(), 9);
    }
}

TEST(SourceSet, ChangingTheSetItselfDoesNotSetTheModifiedFlag)
{
    // The commands decide: a load changes the set and leaves nothing to be saved.
    SourceSet set = setOf({1, 2});
    set.addFromRecords(cBodovyZdroj, "3", "");
    set.removeMarked(marksOf(3, {1}));
    EXPECT_FALSE(set.modified());
    set.modified(true);
    EXPECT_TRUE(set.modified());
    set.modified(false);
    EXPECT_FALSE(set.modified());
}

// ---- The marks ----

const Positions bordersOfWords = {0, 1, 2, 62, 63, 64, 65, 127, 128, 129, 1000};

TEST(MarkBitmap, StartsEmpty)
{
    const MarkBitmap marks;
    EXPECT_EQ(marks.size(), 0U);
    EXPECT_EQ(marks.count(), 0U);
}

TEST(MarkBitmap, NewPositionsComeUnmarked)
{
    for (const std::size_t size : bordersOfWords) {
        MarkBitmap marks;
        marks.resize(size);
        EXPECT_EQ(marks.size(), size);
        EXPECT_EQ(marks.count(), 0U);
        EXPECT_EQ(positionsOf(marks), Positions());
    }
}

TEST(MarkBitmap, AMarkIsItsOwnPositionsOnly)
{
    for (const std::size_t position : {1U, 2U, 63U, 64U, 65U, 128U, 129U, 130U}) {
        MarkBitmap marks;
        marks.resize(130);
        marks.mark(position, true);
        marks.mark(position, true);
        EXPECT_EQ(positionsOf(marks), Positions{position});
        EXPECT_EQ(marks.count(), 1U);
        marks.mark(position, false);
        marks.mark(position, false);
        EXPECT_EQ(marks.count(), 0U);
    }
}

TEST(MarkBitmap, UnmarkingLeavesTheNeighboursMarked)
{
    MarkBitmap marks = marksOf(130, {63, 64, 65, 66});
    marks.mark(64, false);
    EXPECT_EQ(positionsOf(marks), (Positions{63, 65, 66}));
}

TEST(MarkBitmap, MarkingAllMarksAsManyAsThereAre)
{
    for (const std::size_t size : bordersOfWords) {
        MarkBitmap marks;
        marks.resize(size);
        marks.markAll(true);
        EXPECT_EQ(marks.count(), size);
        EXPECT_EQ(positionsOf(marks).size(), size);
        marks.markAll(false);
        EXPECT_EQ(marks.count(), 0U);
    }
}

TEST(MarkBitmap, InvertingTurnsEveryMarkAndNothingBeyondTheEnd)
{
    for (const std::size_t size : bordersOfWords) {
        MarkBitmap marks;
        marks.resize(size);
        marks.invert();
        EXPECT_EQ(marks.count(), size) << size;
        marks.invert();
        EXPECT_EQ(marks.count(), 0U) << size;
        if (size == 0)
            continue;
        marks.mark(size, true);
        marks.invert();
        EXPECT_EQ(marks.count(), size - 1) << size;
        EXPECT_FALSE(marks.marked(size)) << size;
    }
}

TEST(MarkBitmap, GrowingAfterMarkingAllOrInvertingBringsNoMarks)
{
    for (const std::size_t size : bordersOfWords) {
        for (const std::size_t more : {1U, 63U, 64U, 65U}) {
            MarkBitmap marks;
            marks.resize(size);
            marks.markAll(true);
            marks.resize(size + more);
            EXPECT_EQ(marks.count(), size) << size << " and " << more;
            marks.resize(size);
            marks.markAll(false);
            marks.invert();
            marks.resize(size + more);
            EXPECT_EQ(marks.count(), size) << size << " and " << more;
        }
    }
}

TEST(MarkBitmap, MarksBeyondASmallerSizeAreForgotten)
{
    for (const std::size_t size : bordersOfWords) {
        MarkBitmap marks;
        marks.resize(1100);
        marks.markAll(true);
        marks.resize(size);
        EXPECT_EQ(marks.count(), size);
        marks.resize(1100);
        EXPECT_EQ(marks.count(), size);
    }
}

TEST(MarkBitmap, AgreesWithAPlainListOfMarks)
{
    std::mt19937 random(65);
    MarkBitmap marks;
    std::vector<bool> expected;
    for (int i = 0; i < 5000; ++i) {
        switch (random() % 6) {
        case 0:
            expected.resize(random() % 200, false);
            marks.resize(expected.size());
            break;
        case 1:
            expected.flip();
            marks.invert();
            break;
        case 2:
            if (random() % 8 == 0) {
                const bool on = random() % 2 == 0;
                expected.assign(expected.size(), on);
                marks.markAll(on);
            }
            break;
        default:
            if (!expected.empty()) {
                const std::size_t position = random() % expected.size() + 1;
                const bool on = random() % 2 == 0;
                expected[position - 1] = on;
                marks.mark(position, on);
            }
            break;
        }
        std::size_t count = 0;
        for (std::size_t position = 1; position <= expected.size(); ++position) {
            ASSERT_EQ(marks.marked(position), expected[position - 1]) << position;
            count += expected[position - 1] ? 1U : 0U;
        }
        ASSERT_EQ(marks.count(), count);
        ASSERT_EQ(marks.size(), expected.size());
    }
}

}  // namespace
}  // namespace korvex
