// The window's calculations over an inventory.
#include "inventory_files.h"

#include "number_text.h"
#include "recalculation.h"
#include "source_columns.h"
#include "stack_gas.h"

#include <gmock/gmock.h>

namespace korvex {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

constexpr float normal = 101325.0F;

Inventory inventoryOf(std::vector<std::array<float, 4>> stacks)
{
    Inventory inventory;
    std::int32_t number = 0;
    for (const std::array<float, 4>& values : stacks) {
        cZdroje source(cBodovyZdroj);
        source.renumber(++number);
        for (std::int32_t i = 0; i < 4; ++i)
            source.Parameters(2 + i, values[static_cast<std::size_t>(i)]);
        inventory.set.append(std::move(source));
    }
    return inventory;
}

TEST(Recalculation, OfTheExampleChangesNothingAtItsPressure)
{
    for (const Quantity quantity : {Quantity::Vs, Quantity::XY}) {
        Inventory example = test::loaded(test::exampleFiles());
        const Recalculation result = recalculate(example.set, quantity, normal, {});
        EXPECT_EQ(result.computed, quantity == Quantity::XY ? 12U : 3U);
        EXPECT_THAT(result.changed, IsEmpty());
        EXPECT_THAT(result.notComputed, IsEmpty());
    }
}

TEST(Recalculation, GivesWhatTheWindowsFormulasGive)
{
    struct Case {
        Quantity quantity;
        std::int32_t index;
        std::size_t column;
        float expected;
    };
    constexpr float p = 98000.0F;
    const StackGas gas(p);
    for (const Case& given : {Case{Quantity::Vs, 2, column::GasVolume, gas.CalcVs(20, 2, 5, p)},
             Case{Quantity::d, 4, column::Diameter, gas.CalcD(20, 10, 5, p)},
             Case{Quantity::w0, 5, column::Velocity, gas.CalcW0(20, 10, 2, p)}}) {
        Inventory inventory = inventoryOf({{10, 20, 2, 5}});
        const float before = inventory.set.at(1).Parameters(given.index);
        const Recalculation result = recalculate(inventory.set, given.quantity, p, {});
        EXPECT_EQ(inventory.set.at(1).Parameters(given.index), given.expected);
        ASSERT_EQ(result.changed.size(), 1U);
        ASSERT_EQ(result.changed[0].changes.size(), 1U);
        EXPECT_EQ(result.changed[0].changes[0].column, given.column);
        EXPECT_EQ(result.changed[0].changes[0].before, singleText(before));
        EXPECT_EQ(result.changed[0].changes[0].after, singleText(given.expected));
    }
}

TEST(Recalculation, AKnownVolumeComesOut)
{
    Inventory inventory = inventoryOf({{0, 20, 2, 5}});
    static_cast<void>(recalculate(inventory.set, Quantity::Vs, 98000.0F, {}));
    EXPECT_EQ(singleText(inventory.set.at(1).Parameters(2)), "14.156");
}

TEST(Recalculation, AZeroDivisorAndAFaultLeaveTheSourceAndTheOthersGoOn)
{
    Inventory inventory = inventoryOf({{10, 20, 2, 0}, {-10, 20, 2, 5}, {10, 20, 2, 5}});
    const Recalculation result = recalculate(inventory.set, Quantity::d, normal, {});
    EXPECT_EQ(result.computed, 1U);
    ASSERT_EQ(result.notComputed.size(), 2U);
    EXPECT_EQ(result.notComputed[0].position, 1U);
    EXPECT_EQ(result.notComputed[0].fault, "");
    EXPECT_EQ(result.notComputed[1].position, 2U);
    EXPECT_NE(result.notComputed[1].fault, "");
    EXPECT_EQ(inventory.set.at(1).Parameters(4), 2.0F);
    EXPECT_EQ(inventory.set.at(2).Parameters(4), 2.0F);
    EXPECT_EQ(result.changed.size(), 1U);

    Inventory flat = inventoryOf({{10, 20, 0, 5}});
    EXPECT_EQ(recalculate(flat.set, Quantity::w0, normal, {}).notComputed.size(), 1U);
}

TEST(Recalculation, SegmentsGetTheirMidpointAndOnlyTheNumbersAskedForAreTouched)
{
    const test::TemporaryFolder folder;
    Inventory inventory = test::loaded(test::writeThree(folder));
    EXPECT_EQ(recalculate(inventory.set, Quantity::XY, normal, {{1, 2}}).computed, 0U);
    EXPECT_EQ(inventory.set.at(3).X(), 50);
    const Recalculation result = recalculate(inventory.set, Quantity::XY, normal, {{3, 3}});
    ASSERT_EQ(result.changed.size(), 1U);
    ASSERT_EQ(result.changed[0].changes.size(), 2U);
    EXPECT_EQ(result.changed[0].changes[0].before, "50");
    EXPECT_EQ(result.changed[0].changes[0].after, "15");
    EXPECT_EQ(inventory.set.at(3).X(), 15);
    EXPECT_EQ(inventory.set.at(3).Y(), 20);
    EXPECT_EQ(inventory.set.at(1).X(), 10) << "stacks have no midpoint";
}

}  // namespace
}  // namespace korvex
