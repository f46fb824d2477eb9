// Choosing sources.
#include "inventory_files.h"

#include "selection.h"

#include <gmock/gmock.h>

#include <limits>

namespace korvex {
namespace {

using testing::ElementsAre;

TEST(NumberRanges, AreReadAsWritten)
{
    const auto read = [](std::string_view text) {
        std::vector<std::pair<std::int32_t, std::int32_t>> pairs;
        const auto ranges = readNumberRanges(text);
        EXPECT_TRUE(ranges.has_value()) << text;
        for (const NumberRange& range : ranges.value_or(std::vector<NumberRange>()))
            pairs.emplace_back(range.first, range.last);
        return pairs;
    };
    using P = std::pair<std::int32_t, std::int32_t>;
    EXPECT_THAT(read("7"), ElementsAre(P{7, 7}));
    EXPECT_THAT(
        read("1-10,15,200-"), ElementsAre(P{1, 10}, P{15, 15}, P{200, std::numeric_limits<std::int32_t>::max()}));
    EXPECT_THAT(read("-5--2"), ElementsAre(P{-5, -2}));
    EXPECT_THAT(read("00012"), ElementsAre(P{12, 12}));
    for (const std::string_view wrong : {"", ",", "1,", "a", "1-a", "5-1", "1 2", "1.5", "9999999999", "1-2-3", "--1"})
        EXPECT_FALSE(readNumberRanges(wrong).has_value()) << wrong;
}

TEST(BoundingBox, IsReadFromTwoCornersInAnyOrder)
{
    const auto box = readBoundingBox("10,-2.5,1,40");
    ASSERT_TRUE(box.has_value());
    EXPECT_EQ(box->left, 1.0);
    EXPECT_EQ(box->bottom, -2.5);
    EXPECT_EQ(box->right, 10.0);
    EXPECT_EQ(box->top, 40.0);
    for (const std::string_view wrong : {"", "1,2,3", "1,2,3,4,5", "1,2,3,x", "1,2,3,", "1,2,3,inf", "1,2,3,4m"})
        EXPECT_FALSE(readBoundingBox(wrong).has_value()) << wrong;
}

TEST(SourceTypes, AreReadByTheirNames)
{
    EXPECT_THAT(readTypes("line,point").value(), ElementsAre(3, 1));
    EXPECT_THAT(readTypes("area").value(), ElementsAre(2));
    EXPECT_TRUE(readTypes("").value().empty());
    for (const std::string_view wrong : {"1", "points", "point,", "Point", "point area"})
        EXPECT_FALSE(readTypes(wrong).has_value()) << wrong;
}

TEST(Selecting, EveryConditionGivenHasToHold)
{
    const test::TemporaryFolder folder;
    const auto chosen = [&folder](const Selection& selection, Take take = Take::Matching) {
        Inventory inventory = test::loaded(test::writeThree(folder));
        const std::size_t dropped = select(inventory.set, selection, take);
        EXPECT_EQ(dropped + inventory.set.size(), 3U);
        return test::numbersOf(inventory.set);
    };
    Selection types;
    types.types = {3, 1};
    EXPECT_THAT(chosen(types), ElementsAre(1, 3));
    EXPECT_THAT(chosen(types, Take::Others), ElementsAre(2));
    Selection numbers;
    numbers.numbers = {{2, 9}};
    EXPECT_THAT(chosen(numbers), ElementsAre(2, 3));
    Selection box;
    box.box = BoundingBox{30, 40, 50, 60};
    EXPECT_THAT(chosen(box), ElementsAre(2, 3)) << "the edges belong to it";
    box.box = BoundingBox{31, 40, 50, 60};
    EXPECT_THAT(chosen(box), ElementsAre(3));
    Selection name;
    name.name = "klád";
    EXPECT_THAT(chosen(name), ElementsAre(2));
    EXPECT_THAT(chosen({}), ElementsAre(1, 2, 3));
    types.numbers = {{2, 3}};
    EXPECT_THAT(chosen(types), ElementsAre(3));
    EXPECT_THAT(chosen(types, Take::Others), ElementsAre(1, 2));
}

}  // namespace
}  // namespace korvex
