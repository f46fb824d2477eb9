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
        EXPECT_EQ(result.computed.size(), quantity == Quantity::XY ? 12U : 3U);
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

TEST(Recalculation, WhatTheWindowComputesIsComputed)
{
    struct Case {
        Quantity quantity;
        std::array<float, 4> values;  // Vs, ts, d, w0
        std::int32_t index;
        const char* expected;
    };
    for (const Case& given : {Case{Quantity::Vs, {10, 20, 2, 0}, 2, "0"}, Case{Quantity::Vs, {10, 20, 0, 5}, 2, "0"},
             Case{Quantity::Vs, {10, 20, 0, 0}, 2, "0"}, Case{Quantity::Vs, {10, 20, 1E-30F, 5}, 2, "0"},
             Case{Quantity::Vs, {10, 20, -2, 5}, 2, "14.6363"}, Case{Quantity::d, {0, 20, 2, 5}, 4, "0"},
             Case{Quantity::w0, {0, 20, 2, 5}, 5, "0"}, Case{Quantity::w0, {10, 20, 2, -1}, 5, "3.416165"},
             Case{Quantity::d, {-10, 20, 2, -5}, 4, "1.653158"}}) {
        Inventory inventory = inventoryOf({given.values});
        const Recalculation result = recalculate(inventory.set, given.quantity, normal, {});
        EXPECT_THAT(result.computed, ElementsAre(1U));
        EXPECT_THAT(result.notComputed, IsEmpty());
        EXPECT_EQ(singleText(inventory.set.at(1).Parameters(given.index)), given.expected);
    }
}

TEST(Recalculation, WhatNoStackCanHaveLeavesTheSourceAndTheOthersGoOn)
{
    struct Case {
        Quantity quantity;
        std::array<float, 4> values;  // Vs, ts, d, w0
        std::size_t column;
        const char* value;
        NotComputed::Reason reason;
    };
    using Reason = NotComputed::Reason;
    for (const Case& given : {Case{Quantity::d, {10, 20, 2, 0}, column::Velocity, "0", Reason::ZeroDivisor},
             Case{Quantity::w0, {10, 20, 0, 5}, column::Diameter, "0", Reason::ZeroDivisor},
             Case{Quantity::d, {10, -273.15F, 2, 5}, column::Temperature, "-273.15", Reason::TooCold},
             Case{Quantity::Vs, {10, -300, 2, 5}, column::Temperature, "-300", Reason::TooCold},
             Case{Quantity::w0, {-10, 20, 2, 5}, column::Velocity, "-3.416165", Reason::Negative},
             Case{Quantity::Vs, {10, 20, 2, -5}, column::GasVolume, "-14.6363", Reason::Negative},
             Case{Quantity::d, {10, 20, 2, -5}, column::Diameter, "", Reason::NoResult},
             Case{Quantity::d, {-10, 20, 2, 5}, column::Diameter, "", Reason::NoResult},
             Case{Quantity::w0, {10, 20, 1E-30F, 5}, column::Velocity, "", Reason::NoResult},
             Case{Quantity::Vs, {10, 20, 1E25F, 5}, column::GasVolume, "", Reason::NoResult}}) {
        Inventory inventory = inventoryOf({given.values, {10, 20, 2, 5}});
        const Recalculation result = recalculate(inventory.set, given.quantity, normal, {});
        EXPECT_THAT(result.computed, ElementsAre(2U));
        EXPECT_EQ(result.changed.size(), 1U);
        ASSERT_EQ(result.notComputed.size(), 1U);
        EXPECT_EQ(result.notComputed[0].position, 1U);
        EXPECT_EQ(result.notComputed[0].reason, given.reason);
        EXPECT_EQ(result.notComputed[0].column, given.column);
        EXPECT_EQ(result.notComputed[0].value, given.value);
        for (std::int32_t i = 0; i < 4; ++i)
            EXPECT_EQ(inventory.set.at(1).Parameters(2 + i), given.values[static_cast<std::size_t>(i)]);
    }
}

TEST(Recalculation, ATemperatureJustAboveAbsoluteZeroIsComputed)
{
    Inventory inventory = inventoryOf({{10, -273, 2, 5}});
    EXPECT_EQ(recalculate(inventory.set, Quantity::Vs, normal, {}).computed.size(), 1U);
}

TEST(Recalculation, SegmentsGetTheirMidpointAndOnlyTheNumbersAskedForAreTouched)
{
    const test::TemporaryFolder folder;
    Inventory inventory = test::loaded(test::writeThree(folder));
    EXPECT_EQ(recalculate(inventory.set, Quantity::XY, normal, {{1, 2}}).computed.size(), 0U);
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
