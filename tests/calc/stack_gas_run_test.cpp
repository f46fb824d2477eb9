// Tests of the stack gas run over all marked point sources: which are computed, the log, the progress, and faults.
#include "batch_runs.h"

#include "calculation_fixture.h"
#include "number_text.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <chrono>
#include <cstddef>
#include <cstdint>
#include <string>
#include <utility>
#include <vector>

namespace korvex {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

const std::vector<StackGasQuantity> quantities{StackGasQuantity::Vs, StackGasQuantity::d, StackGasQuantity::w0};

/// The stack of one metre, with a value nobody computes where the quantity will be.
constexpr FlueGas unknownVs{-1, 150, 1, 10};
constexpr FlueGas unknownD{5.069869F, 150, 99, 10};
constexpr FlueGas unknownW0{5.069869F, 150, 1, 99};

class StackGasRun : public testing::Test {
protected:
    void run(StackGasQuantity quantity, float p = normalPressure, float currentAirPressure = normalPressure)
    {
        runStackGas(inventory.set, inventory.rows, quantity, p, StackGas(currentAirPressure), log, listener);
    }
    [[nodiscard]] std::string faultTextOfRun(StackGasQuantity quantity, float currentAirPressure = normalPressure)
    {
        return faultTextOf([&] { run(quantity, normalPressure, currentAirPressure); });
    }
    [[nodiscard]] std::string textOf(std::int32_t number, std::int32_t parameter) const
    {
        return singleText(inventory.numbered(number).Parameters(parameter));
    }

    Inventory inventory;
    std::vector<std::string> log;
    RecordingListener listener;
};

// ---- What is computed ----

TEST_F(StackGasRun, VsIsComputedIntoParameterTwo)
{
    inventory.addPoint(12, unknownVs);
    inventory.rows.markAll(true);
    run(StackGasQuantity::Vs);
    EXPECT_EQ(textOf(12, 2), "5.069869");
}

TEST_F(StackGasRun, DIsComputedIntoParameterFour)
{
    inventory.addPoint(12, unknownD);
    inventory.rows.markAll(true);
    run(StackGasQuantity::d);
    EXPECT_EQ(textOf(12, 4), "1");
}

TEST_F(StackGasRun, W0IsComputedIntoParameterFive)
{
    inventory.addPoint(12, unknownW0);
    inventory.rows.markAll(true);
    run(StackGasQuantity::w0);
    EXPECT_EQ(textOf(12, 5), "10");
}

TEST(StackGasRunOfOneSource, NothingElseOfTheSourceChanges)
{
    constexpr const char* points = "000000012, 1234567, 0987654, 0350, 1, 4, 5 ;Kotelna";
    const auto afterRun = [](StackGasQuantity quantity) {
        Inventory one;
        cZdroje& source = one.add(cBodovyZdroj, 12);
        source.LineSource(points);
        source.LineParameters("000000012, 1.5, 40, 3, 0, 2, 5, 0.9, 24, 0");
        source.LineDust("2000,0,1,10,1");
        one.rows.markAll(true);
        std::vector<std::string> log;
        RecordingListener listener;
        runStackGas(one.set, one.rows, quantity, normalPressure, StackGas(normalPressure), log, listener);
        return one.records().front();
    };
    Inventory expected;
    cZdroje& source = expected.add(cBodovyZdroj, 12);
    source.LineSource(points);
    source.LineDust("2000,0,1,10,1");
    const auto with = [&](const char* parameters) {
        source.LineParameters(parameters);
        return expected.records().front();
    };
    EXPECT_EQ(afterRun(StackGasQuantity::Vs), with("000000012, 1.5, 40, 15.70796, 0, 2, 5, 0.9, 24, 0"));
    EXPECT_EQ(afterRun(StackGasQuantity::d), with("000000012, 1.5, 40, 3, 0, 0.8740388, 5, 0.9, 24, 0"));
    EXPECT_EQ(afterRun(StackGasQuantity::w0), with("000000012, 1.5, 40, 3, 0, 2, 0.9549296, 0.9, 24, 0"));
}

TEST_F(StackGasRun, UnmarkedSourcesAreVisitedButNeverRead)
{
    // Each of these would fault or leave a line in the log.
    inventory.addPoint(1, {1, typedAbsoluteZero, 1, 10});
    inventory.addPoint(2, {-1, 150, 0, 0});
    inventory.addPoint(3, unknownVs);
    inventory.addPoint(4, {-1, 150, 1, 10});
    inventory.markOnly({3});
    const std::vector<std::string> before = inventory.records();
    for (const StackGasQuantity quantity : quantities) {
        inventory.set.at(3).Parameters(2, 5.069869F);
        log.clear();
        listener.values.clear();
        run(quantity);
        EXPECT_THAT(log, ElementsAre("Hotovo."));
        EXPECT_THAT(listener.values, ElementsAre(1, 2, 3, 4));
        const std::vector<std::string> after = inventory.records();
        for (const std::size_t unmarked : {0U, 1U, 3U})
            EXPECT_EQ(after.at(unmarked), before.at(unmarked));
    }
}

TEST_F(StackGasRun, MarkedAreasAndLinesAreSkippedWithoutALogLine)
{
    // With zero divisors and a temperature that faults.
    inventory.addGas(cPlosnyZdroj, 1, {1, typedAbsoluteZero, 0, 0});
    inventory.addGas(cLiniovyZdroj, 2, {1, typedAbsoluteZero, 0, 0});
    inventory.rows.markAll(true);
    const std::vector<std::string> before = inventory.records();
    for (const StackGasQuantity quantity : quantities) {
        log.clear();
        run(quantity);
        EXPECT_THAT(log, ElementsAre("Hotovo."));
        EXPECT_EQ(inventory.records(), before);
    }
}

TEST_F(StackGasRun, RowsStandForTheSourcesOfTheirTagsAlsoWhenSorted)
{
    inventory.addPoint(1, unknownVs);
    inventory.addPoint(2, {-1, 0, 2, 5});
    inventory.addPoint(3, {-1, 150, 1, 10});
    inventory.rows.sortByNumber(inventory.set, SortDirection::Descending);
    inventory.rows.mark(1, true);
    inventory.rows.mark(2, true);
    run(StackGasQuantity::Vs);
    EXPECT_EQ(textOf(1, 2), "5.069869");
    EXPECT_EQ(textOf(2, 2), "15.70796");
    EXPECT_EQ(textOf(3, 2), "-1");
}

// ---- Pressures ----

TEST_F(StackGasRun, PressureOfTheRunActsOnVs)
{
    inventory.addPoint(12, {-1, 20, 2, 5});
    inventory.rows.markAll(true);
    run(StackGasQuantity::Vs, 98000);
    EXPECT_EQ(textOf(12, 2), "14.156");
    run(StackGasQuantity::Vs, normalPressure, 98000);
    EXPECT_EQ(inventory.numbered(12).Parameters(2), StackGas(normalPressure).CalcVs(20, 2, 5, normalPressure));
    EXPECT_NE(textOf(12, 2), "14.156");
}

TEST_F(StackGasRun, PressureOfTheRunDoesNotActOnDAndW0)
{
    inventory.addPoint(1, {10, 20, 2, 5});
    inventory.rows.markAll(true);
    for (const float p : {98000.0F, normalPressure, -1.0F}) {
        inventory.set.at(1).Parameters(4, 99);
        run(StackGasQuantity::d, p);
        EXPECT_EQ(textOf(1, 4), "1.653158");
        inventory.set.at(1).Parameters(4, 2);
        run(StackGasQuantity::w0, p);
        EXPECT_EQ(textOf(1, 5), "3.416165");
        inventory.set.at(1).Parameters(5, 5);
    }
}

TEST_F(StackGasRun, CurrentPressureActsOnDAndW0)
{
    inventory.addPoint(1, {10, 20, 2, 5});
    inventory.rows.markAll(true);
    run(StackGasQuantity::d, normalPressure, 98000);
    EXPECT_EQ(inventory.numbered(1).Parameters(4), 1.68096888F);
    inventory.set.at(1).Parameters(4, 2);
    run(StackGasQuantity::w0, normalPressure, 98000);
    EXPECT_EQ(inventory.numbered(1).Parameters(5), 3.5320704F);
}

// ---- The log ----

TEST_F(StackGasRun, ZeroW0IsLoggedInADRunAndTheRunGoesOn)
{
    inventory.addPoint(15, {5, 150, 3, 0});
    inventory.addPoint(12, unknownD);
    inventory.rows.markAll(true);
    run(StackGasQuantity::d);
    EXPECT_THAT(log, ElementsAre("Pro zdroj 15 nelze vypočítat 'd', protože 'w0'=0", "Hotovo."));
    EXPECT_EQ(textOf(15, 4), "3");
    EXPECT_EQ(textOf(12, 4), "1");
}

TEST_F(StackGasRun, ZeroDIsLoggedInAW0RunAndTheRunGoesOn)
{
    inventory.addPoint(15, {5, 150, 0, 3});
    inventory.addPoint(12, unknownW0);
    inventory.rows.markAll(true);
    run(StackGasQuantity::w0);
    EXPECT_THAT(log, ElementsAre("Pro zdroj 15 nelze vypočítat 'w0', protože 'd'=0", "Hotovo."));
    EXPECT_EQ(textOf(15, 5), "3");
    EXPECT_EQ(textOf(12, 5), "10");
}

TEST_F(StackGasRun, VsRunChecksNothing)
{
    inventory.addPoint(1, {5, 150, 0, 10});
    inventory.addPoint(2, {5, 150, 1, 0});
    inventory.rows.markAll(true);
    run(StackGasQuantity::Vs);
    EXPECT_THAT(log, ElementsAre("Hotovo."));
    EXPECT_EQ(textOf(1, 2), "0");
    EXPECT_EQ(textOf(2, 2), "0");
}

TEST_F(StackGasRun, WantedQuantityItselfMayBeZero)
{
    inventory.addPoint(1, {5.069869F, 150, 0, 10});
    inventory.addPoint(2, {5.069869F, 150, 1, 0});
    inventory.markOnly({1});
    run(StackGasQuantity::d);
    inventory.markOnly({2});
    run(StackGasQuantity::w0);
    EXPECT_THAT(log, ElementsAre("Hotovo.", "Hotovo."));
    EXPECT_EQ(textOf(1, 4), "1");
    EXPECT_EQ(textOf(2, 5), "10");
}

TEST_F(StackGasRun, LogNamesSourcesByPlainDecimalNumbers)
{
    for (const std::int32_t number : {7, 1000000000, -3, 0})
        inventory.addPoint(number, {5, 150, 3, 0});
    inventory.rows.markAll(true);
    run(StackGasQuantity::d);
    EXPECT_THAT(log,
        ElementsAre("Pro zdroj 7 nelze vypočítat 'd', protože 'w0'=0",
            "Pro zdroj 1000000000 nelze vypočítat 'd', protože 'w0'=0",
            "Pro zdroj -3 nelze vypočítat 'd', protože 'w0'=0", "Pro zdroj 0 nelze vypočítat 'd', protože 'w0'=0",
            "Hotovo."));
}

TEST_F(StackGasRun, LogIsInTheOrderOfTheSortedRows)
{
    for (const std::int32_t number : {1, 2, 3})
        inventory.addPoint(number, {5, 150, 0, 3});
    inventory.rows.markAll(true);
    inventory.rows.sortByNumber(inventory.set, SortDirection::Descending);
    run(StackGasQuantity::w0);
    EXPECT_THAT(log,
        ElementsAre("Pro zdroj 3 nelze vypočítat 'w0', protože 'd'=0",
            "Pro zdroj 2 nelze vypočítat 'w0', protože 'd'=0", "Pro zdroj 1 nelze vypočítat 'w0', protože 'd'=0",
            "Hotovo."));
}

TEST_F(StackGasRun, WithoutMarksTheLogHoldsOnlyTheClosingLine)
{
    inventory.addPoint(1, {5, 150, 0, 0});
    run(StackGasQuantity::d);
    EXPECT_THAT(log, ElementsAre("Hotovo."));
}

TEST_F(StackGasRun, MinusZeroIsZero)
{
    inventory.addPoint(1, {5, 150, 3, -0.0F});
    inventory.rows.markAll(true);
    run(StackGasQuantity::d);
    EXPECT_THAT(log, ElementsAre("Pro zdroj 1 nelze vypočítat 'd', protože 'w0'=0", "Hotovo."));
}

// ---- Progress ----

TEST_F(StackGasRun, ProgressMaximumIsTheRowCountPlusOneAndComesFirst)
{
    for (std::int32_t number = 1; number <= 5; ++number)
        inventory.addPoint(number, unknownVs);
    inventory.markOnly({2, 4});
    run(StackGasQuantity::Vs);
    EXPECT_THAT(listener.maxima, ElementsAre(6));
    EXPECT_EQ(listener.valuesBeforeTheMaximum, 0U);
}

TEST_F(StackGasRun, ProgressIsTheIndexOfEveryRowWhateverItsMarkAndType)
{
    inventory.addPoint(1, unknownVs);
    inventory.addGas(cPlosnyZdroj, 2, unknownVs);
    inventory.addGas(cLiniovyZdroj, 3, unknownVs);
    inventory.addPoint(4, unknownVs);
    inventory.markOnly({1, 2});
    for (const StackGasQuantity quantity : quantities) {
        listener.values.clear();
        run(quantity);
        EXPECT_THAT(listener.values, ElementsAre(1, 2, 3, 4));
    }
}

TEST_F(StackGasRun, AnEmptyInventoryHasAMaximumOfOneAndTheClosingLine)
{
    run(StackGasQuantity::Vs);
    EXPECT_THAT(listener.maxima, ElementsAre(1));
    EXPECT_THAT(listener.values, IsEmpty());
    EXPECT_THAT(log, ElementsAre("Hotovo."));
}

TEST_F(StackGasRun, ShowsNoStatusText)
{
    inventory.addPoint(1, unknownVs);
    inventory.rows.markAll(true);
    run(StackGasQuantity::Vs);
    EXPECT_THAT(listener.texts, IsEmpty());
}

// ---- Faults ----

TEST_F(StackGasRun, FaultNamesTheSourceAndKeepsEarlierResults)
{
    inventory.addPoint(1, unknownVs);
    inventory.addPoint(2, {-1, typedAbsoluteZero, 1, 10});
    inventory.addPoint(3, unknownVs);
    inventory.rows.markAll(true);
    EXPECT_EQ(faultTextOfRun(StackGasQuantity::Vs), "Dělení nulou: zdroj 2.");
    EXPECT_EQ(textOf(1, 2), "5.069869");
    EXPECT_EQ(textOf(2, 2), "-1");
    EXPECT_EQ(textOf(3, 2), "-1");
    EXPECT_THAT(listener.values, ElementsAre(1, 2));
}

TEST_F(StackGasRun, FaultKeepsTheLogUpToItAndLeavesOutTheClosingLine)
{
    inventory.addPoint(15, {5, 150, 3, 0});
    inventory.addPoint(12, {-5, 150, 3, 10});
    inventory.addPoint(16, {5, 150, 3, 0});
    inventory.rows.markAll(true);
    EXPECT_EQ(faultTextOfRun(StackGasQuantity::d), "Neplatná operace: zdroj 12.");
    EXPECT_THAT(log, ElementsAre("Pro zdroj 15 nelze vypočítat 'd', protože 'w0'=0"));
    EXPECT_EQ(textOf(12, 4), "3");
}

TEST_F(StackGasRun, OverflowIsAFault)
{
    inventory.addPoint(1, {3e38F, 1000, 0.001F, 1});
    inventory.rows.markAll(true);
    EXPECT_EQ(faultTextOfRun(StackGasQuantity::w0), "Číslo je mimo rozsah: zdroj 1.");
    EXPECT_EQ(textOf(1, 5), "1");
}

TEST_F(StackGasRun, ZeroCurrentPressureIsAFaultInADAndAW0RunOnly)
{
    inventory.addPoint(1, {5, 150, 1, 10});
    inventory.rows.markAll(true);
    EXPECT_EQ(faultTextOfRun(StackGasQuantity::d, 0), "Dělení nulou: zdroj 1.");
    EXPECT_EQ(faultTextOfRun(StackGasQuantity::w0, 0), "Dělení nulou: zdroj 1.");
    EXPECT_EQ(faultTextOfRun(StackGasQuantity::Vs, 0), "");
    EXPECT_EQ(textOf(1, 2), "5.069869");
}

TEST_F(StackGasRun, ZeroDivisorIsLoggedAlsoWithAZeroCurrentPressure)
{
    inventory.addPoint(1, {5, 150, 0, 0});
    inventory.rows.markAll(true);
    EXPECT_EQ(faultTextOfRun(StackGasQuantity::d, 0), "");
    EXPECT_THAT(log, ElementsAre("Pro zdroj 1 nelze vypočítat 'd', protože 'w0'=0", "Hotovo."));
}

TEST_F(StackGasRun, FaultStopsInTheOrderOfTheSortedRows)
{
    inventory.addPoint(1, unknownVs);
    inventory.addPoint(2, {-1, typedAbsoluteZero, 1, 10});
    inventory.addPoint(3, unknownVs);
    inventory.rows.markAll(true);
    inventory.rows.sortByNumber(inventory.set, SortDirection::Descending);
    EXPECT_EQ(faultTextOfRun(StackGasQuantity::Vs), "Dělení nulou: zdroj 2.");
    EXPECT_EQ(textOf(3, 2), "5.069869");
    EXPECT_EQ(textOf(1, 2), "-1");
}

// ---- What stays ----

TEST_F(StackGasRun, ModifiedFlagIsLeftAsItIs)
{
    inventory.addPoint(1, {5, 150, 1, 10});
    inventory.rows.markAll(true);
    for (const bool modified : {false, true}) {
        inventory.set.modified(modified);
        for (const StackGasQuantity quantity : quantities)
            run(quantity);
        EXPECT_EQ(inventory.set.modified(), modified);
    }
}

TEST_F(StackGasRun, MarksStayAsTheyAre)
{
    inventory.addPoint(1, {5, 150, 1, 10});
    inventory.addPoint(2, {5, 150, 1, 10});
    inventory.markOnly({2});
    run(StackGasQuantity::Vs);
    EXPECT_FALSE(inventory.rows.marked(0));
    EXPECT_TRUE(inventory.rows.marked(1));
}

// ---- Speed ----

/// Counts, for a million recorded values would cost more than the run.
class LastValueListener : public ProgressListener {
public:
    void statusText(std::string_view /*text*/) override { }
    void progressMaximum(std::size_t /*maximum*/) override { }
    void progressValue(std::size_t value) override { last = value; }

    std::size_t last = 0;
};

TEST(StackGasSpeed, AMillionMarkedPointsTakeASecondOrLittleMore)
{
    constexpr std::size_t sourceCount = 1'000'000;
    Inventory inventory;
    inventory.set.reserve(sourceCount);
    for (std::size_t i = 0; i < sourceCount; ++i) {
        cZdroje source(cBodovyZdroj);
        source.Parameters(3, 150);
        source.Parameters(4, 1);
        source.Parameters(5, 10);
        inventory.set.append(std::move(source));
    }
    inventory.rows.refill(sourceCount);
    inventory.rows.markAll(true);
    std::vector<std::string> log;
    LastValueListener listener;

    const auto start = std::chrono::steady_clock::now();
    runStackGas(
        inventory.set, inventory.rows, StackGasQuantity::Vs, normalPressure, StackGas(normalPressure), log, listener);
    const std::chrono::duration<double> taken = std::chrono::steady_clock::now() - start;

    EXPECT_EQ(listener.last, sourceCount);
    EXPECT_EQ(inventory.set.at(1).Parameters(2), 5.069869F);
    EXPECT_EQ(inventory.set.at(sourceCount).Parameters(2), 5.069869F);
    EXPECT_THAT(log, ElementsAre("Hotovo."));
    RecordProperty("milliseconds", static_cast<int>(taken.count() * 1000));
    // What the user waits is well below a second; a busy machine gets its share of patience.
    EXPECT_LT(taken.count(), 3.0);
}

}  // namespace
}  // namespace korvex
