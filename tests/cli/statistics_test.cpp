// Counts, ranges and sums of small sets whose results are known by hand.
#include "source_set.h"
#include "statistics.h"
#include "statistics_report.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <string>

namespace korvex {
namespace {

using testing::HasSubstr;
using testing::Not;

SourceSet smallSet()
{
    SourceSet set;
    set.addFromRecords(cBodovyZdroj, "1, 0, 0, 0, 1, 7, 1 ;A", "1, 2, 10, 3, 100, 1, 5, 0.5, 12, 0");
    set.addFromRecords(cBodovyZdroj, "2, 0, 0, 0, 1, 7, 0 ;B", "2, 4, 30, 3, 200, 2, 6, 0.25, 24, 0");
    set.addFromRecords(cPlosnyZdroj, "3, 0, 0, 0, 2, 8, 0 ;C", "3, 1, 5, 0, 2.5, 0, 0, 1, 6, 40");
    set.addFromRecords(cLiniovyZdroj, "4, 0, 0, 0, 3, 8, 0 ;D", "4, 0.5, 100, 200, 103, 204, 9, 1.5, 0.5, 12");
    return set;
}

const ValueRange& rangeOf(const InventoryStatistics& statistics, std::int32_t typeId, const std::string& symbol)
{
    return *std::find_if(statistics.ranges.begin(), statistics.ranges.end(),
        [&](const ValueRange& range) { return range.typeId == typeId && range.symbol == symbol; });
}

TEST(Statistics, SourcesAreCountedByTypeGroupAndCluster)
{
    const InventoryStatistics statistics = statisticsOf(smallSet());
    EXPECT_EQ(statistics.all.count(), 4U);
    EXPECT_EQ(statistics.ofType[0].count(), 2U);
    EXPECT_EQ(statistics.ofType[1].count(), 1U);
    EXPECT_EQ(statistics.ofType[2].count(), 1U);
    EXPECT_EQ(statistics.ofGroup.at(7).countOfType[0], 2U);
    EXPECT_EQ(statistics.ofGroup.at(8).count(), 2U);
    EXPECT_EQ(statistics.ofCluster.at(0).count(), 3U);
    EXPECT_EQ(statistics.ofCluster.at(1).count(), 1U);
}

TEST(Statistics, ARoadEmitsItsEmissionOfAMetreTimesItsLength)
{
    const InventoryStatistics statistics = statisticsOf(smallSet());
    EXPECT_DOUBLE_EQ(statistics.roadLength, 5.0);
    EXPECT_DOUBLE_EQ(statistics.ofType[2].emission.full, 2.5);
    EXPECT_DOUBLE_EQ(statistics.ofType[2].emission.withAlfa, 1.25);
    EXPECT_DOUBLE_EQ(statistics.ofType[2].emission.withPd, 1.25);
    EXPECT_DOUBLE_EQ(statistics.ofType[2].emission.withBoth, 0.625);
}

TEST(Statistics, EmissionsAreSummedWithAndWithoutAlfaAndPd)
{
    const EmissionSum& sum = statisticsOf(smallSet()).all.emission;
    EXPECT_DOUBLE_EQ(sum.full, 2.0 + 4.0 + 1.0 + 2.5);
    EXPECT_DOUBLE_EQ(sum.withAlfa, 1.0 + 1.0 + 1.0 + 1.25);
    EXPECT_DOUBLE_EQ(sum.withPd, 1.0 + 4.0 + 0.25 + 1.25);
    EXPECT_DOUBLE_EQ(sum.withBoth, 0.5 + 1.0 + 0.25 + 0.625);
}

TEST(Statistics, TheMedianOfAnEvenNumberIsTheMeanOfTheMiddleTwo)
{
    SourceSet set = smallSet();
    EXPECT_EQ(rangeOf(statisticsOf(set), 1, "H").median, 20.0F);
    set.addFromRecords(cBodovyZdroj, "5, 0, 0, 0, 1, 7, 0 ;E", "5, 4, 11, 3, 200, 2, 6, 0.25, 24, 0");
    const ValueRange range = rangeOf(statisticsOf(set), 1, "H");
    EXPECT_EQ(range.count, 3U);
    EXPECT_EQ(range.smallest, 10.0F);
    EXPECT_EQ(range.median, 11.0F);
    EXPECT_EQ(range.largest, 30.0F);
}

TEST(Statistics, APlumeRiseIsNoTemperature)
{
    SourceSet set = smallSet();
    EXPECT_EQ(rangeOf(statisticsOf(set), 2, "ts").count, 0U);
    EXPECT_EQ(rangeOf(statisticsOf(set), 2, "Delta h").largest, 2.5F);
    set.addFromRecords(cPlosnyZdroj, "6, 0, 0, 0, 2, 8, 0 ;F", "6, 1, 5, 0, 80, 1, 0, 1, 6, 40");
    EXPECT_EQ(rangeOf(statisticsOf(set), 2, "ts").largest, 80.0F);
    EXPECT_EQ(rangeOf(statisticsOf(set), 2, "Delta h").count, 1U);
}

TEST(Statistics, AnEmptySetHasNoRangesAndNoSums)
{
    const InventoryStatistics statistics = statisticsOf(SourceSet());
    EXPECT_EQ(statistics.all.count(), 0U);
    EXPECT_EQ(statistics.all.emission.full, 0.0);
    TextOutput out;
    printStatistics(out, statistics, Language::English);
    EXPECT_THAT(out.text(), Not(HasSubstr("point H")));
}

TEST(StatisticsReport, ASumBeyondSingleRealsIsStillANumber)
{
    EXPECT_EQ(statisticText(0.8F), "0.8");
    EXPECT_EQ(statisticText(-2.5E40), "-2.500000e+40");
}

TEST(StatisticsReport, ColumnsStandUnderTheirHeads)
{
    TextOutput out;
    printStatistics(out, statisticsOf(smallSet()), Language::Czech);
    EXPECT_THAT(out.text(), HasSubstr("  skupina  zdrojů  bodových  plošných  liniových  M [g/s]"));
    EXPECT_THAT(out.text(), HasSubstr("\n  7             2         2         0          0        6"));
    EXPECT_THAT(out.text(), HasSubstr("\n  bodové H [m]             2        10      20        30\n"));
}

}  // namespace
}  // namespace korvex
