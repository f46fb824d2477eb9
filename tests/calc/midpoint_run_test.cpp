// Tests of the midpoints of all marked line sources.
#include "batch_runs.h"

#include "calculation_fixture.h"

#include <gtest/gtest.h>

#include <cstdint>
#include <string>
#include <utility>
#include <vector>

namespace korvex {
namespace {

using Point = std::pair<std::int32_t, std::int32_t>;

Point positionOf(const cZdroje& source)
{
    return {source.X(), source.Y()};
}

TEST(MidpointRun, MarkedLinesGetTheMidpointsOfTheirSegments)
{
    Inventory inventory;
    inventory.addLine(1, 1, 10, 2, 20);
    inventory.addLine(2, 2, -30, 3, 10);
    inventory.addLine(3, -3, 5.4F, 0, 5.4F);
    inventory.markOnly({1, 2, 3});
    runMidpoints(inventory.set, inventory.rows);
    EXPECT_EQ(positionOf(inventory.numbered(1)), Point(2, 15));
    EXPECT_EQ(positionOf(inventory.numbered(2)), Point(2, -10));
    EXPECT_EQ(positionOf(inventory.numbered(3)), Point(-2, 5));
}

TEST(MidpointRun, StoredFractionsCount)
{
    Inventory inventory;
    inventory.addLine(1, 100.6F, 101.4F, 200, 200);
    inventory.markOnly({1});
    runMidpoints(inventory.set, inventory.rows);
    EXPECT_EQ(positionOf(inventory.numbered(1)), Point(150, 151));
}

TEST(MidpointRun, NothingButXAndYOfALineChanges)
{
    Inventory inventory;
    cZdroje& line = inventory.add(cLiniovyZdroj, 7);
    line.LineSource("000000007, 0000001, 0000002, 0350, 3, 4, 5 ;Silnice");
    line.LineParameters("000000007, 0.5, 10, 20, 30, 40, 7, 8, 0.9, 24");
    const std::string parameters = line.LineParameters();
    inventory.markOnly({7});
    runMidpoints(inventory.set, inventory.rows);
    EXPECT_EQ(line.LineSource(), "000000007, 0000020, 0000030, 0350, 3, 4, 5 ;Silnice");
    EXPECT_EQ(line.LineParameters(), parameters);
}

TEST(MidpointRun, UnmarkedLinesAreNeverRead)
{
    Inventory inventory;
    inventory.addLine(1, 10, 10, 20, 20);
    // Would fault.
    inventory.addLine(2, 3e9F, 3e9F, 3e9F, 3e9F);
    inventory.addLine(3, 10, 10, 20, 20);
    inventory.markOnly({3});
    runMidpoints(inventory.set, inventory.rows);
    EXPECT_EQ(positionOf(inventory.numbered(1)), Point(0, 0));
    EXPECT_EQ(positionOf(inventory.numbered(2)), Point(0, 0));
    EXPECT_EQ(positionOf(inventory.numbered(3)), Point(15, 15));
}

TEST(MidpointRun, MarkedPointsAndAreasAreSkippedSilently)
{
    Inventory inventory;
    for (const SourceType* const type : {&cBodovyZdroj, &cPlosnyZdroj}) {
        cZdroje& source = inventory.add(*type, type->TypZdrojeId);
        for (std::int32_t index = 1; index <= 4; ++index)
            source.Parameters(index, 3e9F);
        source.X(5);
        source.Y(6);
    }
    inventory.rows.markAll(true);
    const std::vector<std::string> before = inventory.records();
    EXPECT_NO_THROW(runMidpoints(inventory.set, inventory.rows));
    EXPECT_EQ(inventory.records(), before);
}

TEST(MidpointRun, AnEmptyInventoryIsNoError)
{
    Inventory inventory;
    EXPECT_NO_THROW(runMidpoints(inventory.set, inventory.rows));
    EXPECT_TRUE(inventory.set.empty());
}

TEST(MidpointRun, OverflowNamesTheSourceAndKeepsEarlierResults)
{
    Inventory inventory;
    inventory.addLine(1, 10, 10, 20, 20);
    inventory.addLine(2, 10, 3e9F, 20, 3e9F);
    inventory.addLine(3, 10, 10, 20, 20);
    inventory.rows.markAll(true);
    EXPECT_EQ(faultTextOf([&] { runMidpoints(inventory.set, inventory.rows); }), "Číslo je mimo rozsah: zdroj 2.");
    EXPECT_EQ(positionOf(inventory.numbered(1)), Point(15, 15));
    EXPECT_EQ(positionOf(inventory.numbered(2)), Point(0, 0));
    EXPECT_EQ(positionOf(inventory.numbered(3)), Point(0, 0));
}

TEST(MidpointRun, GoesInTheOrderOfTheSortedRows)
{
    Inventory inventory;
    inventory.addLine(1, 10, 10, 20, 20);
    inventory.addLine(2, 10, 3e9F, 20, 3e9F);
    inventory.addLine(3, 10, 10, 20, 20);
    inventory.rows.markAll(true);
    inventory.rows.sortByNumber(inventory.set, SortDirection::Descending);
    EXPECT_EQ(faultTextOf([&] { runMidpoints(inventory.set, inventory.rows); }), "Číslo je mimo rozsah: zdroj 2.");
    EXPECT_EQ(positionOf(inventory.numbered(3)), Point(15, 15));
    EXPECT_EQ(positionOf(inventory.numbered(1)), Point(0, 0));
}

TEST(MidpointRun, ModifiedFlagIsLeftAsItIs)
{
    for (const bool modified : {false, true}) {
        Inventory inventory;
        inventory.addLine(1, 10, 10, 20, 20);
        inventory.rows.markAll(true);
        inventory.set.modified(modified);
        runMidpoints(inventory.set, inventory.rows);
        EXPECT_EQ(inventory.set.modified(), modified);
    }
}

}  // namespace
}  // namespace korvex
