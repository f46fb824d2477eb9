// The difference of two inventories.
#include "inventory_files.h"

#include "difference.h"
#include "source_columns.h"
#include "source_editor.h"

#include <gmock/gmock.h>

namespace korvex {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

class DifferenceTest : public testing::Test {
protected:
    Inventory three() { return test::loaded(test::writeThree(m_folder)); }

    static cZdroje stack(std::int32_t number)
    {
        cZdroje source(cBodovyZdroj);
        source.renumber(number);
        return source;
    }

private:
    test::TemporaryFolder m_folder;
};

TEST_F(DifferenceTest, EqualInventoriesDoNotDiffer)
{
    EXPECT_TRUE(differenceOf(three(), three()).empty());
    EXPECT_TRUE(differenceOf(test::loaded(test::exampleFiles()), test::loaded(test::exampleFiles())).empty());
}

TEST_F(DifferenceTest, OneChangedValueIsShownAlone)
{
    const auto changedBy = [this](std::size_t position, auto change) {
        Inventory after = three();
        SourceValues values = after.set.at(position).values();
        change(values);
        after.set.at(position).values(values);
        return differenceOf(three(), after);
    };
    struct Case {
        std::size_t position;
        void (*change)(SourceValues&);
        std::size_t column;
        std::string_view before;
        std::string_view after;
    };
    const Case cases[] = {
        {1, [](SourceValues& v) { v.name = "Pec"; }, column::Name, "Pec, \"nová\"", "Pec"},
        {1, [](SourceValues& v) { v.x = 11; }, column::X, "10", "11"},
        {2, [](SourceValues& v) { v.y = 0; }, column::Y, "40", "0"},
        {2, [](SourceValues& v) { v.altitude = 1; }, column::Altitude, "310", "1"},
        {3, [](SourceValues& v) { v.group = 1; }, column::Group, "4", "1"},
        {3, [](SourceValues& v) { v.cluster = 1; }, column::Cluster, "0", "1"},
        {1, [](SourceValues& v) { v.dust = "1"; }, column::Dust, "1800,0,1,10,1", "1"},
        {1, [](SourceValues& v) { v.parameters[0] = 1e-5F; }, column::Emission, "0.5", "1E-05"},
        {1, [](SourceValues& v) { v.parameters[7] = 8; }, column::DailyHours, "24", "8"},
        {2, [](SourceValues& v) { v.parameters[3] = 3; }, column::PlumeRise, "2", "3"},
        {2, [](SourceValues& v) { v.parameters[8] = 41; }, column::ElementDistance, "40", "41"},
        {3, [](SourceValues& v) { v.parameters[4] = 41; }, column::EndY, "40", "41"},
        {3, [](SourceValues& v) { v.parameters[8] = 23; }, column::DailyHours, "24", "23"},
    };
    for (const Case& given : cases) {
        SCOPED_TRACE(given.after);
        const Difference difference = changedBy(given.position, given.change);
        EXPECT_THAT(difference.added, IsEmpty());
        EXPECT_THAT(difference.removed, IsEmpty());
        ASSERT_EQ(difference.changed.size(), 1U);
        EXPECT_EQ(difference.changed[0].oldPosition, given.position);
        ASSERT_EQ(difference.changed[0].fields.size(), 1U);
        EXPECT_EQ(difference.changed[0].fields[0].column, given.column);
        EXPECT_EQ(difference.changed[0].fields[0].before, given.before);
        EXPECT_EQ(difference.changed[0].fields[0].after, given.after);
    }
}

TEST_F(DifferenceTest, ValuesThatTheFilesShowAlikeAreToldApart)
{
    Inventory before = three();
    Inventory after = three();
    before.set.at(3).Parameters(1, 1078203.5F);
    after.set.at(3).Parameters(1, 1078204.0F);
    const Difference difference = differenceOf(before, after);
    ASSERT_EQ(difference.changed.size(), 1U);
    EXPECT_EQ(difference.changed[0].fields[0].before, "1078203.5");
    EXPECT_EQ(difference.changed[0].fields[0].after, "1078204");
}

TEST_F(DifferenceTest, SourcesOfOneSideOnlyAreAddedOrRemoved)
{
    Inventory after = three();
    SourceSet set;
    set.append(std::move(after.set.at(1)));
    set.append(std::move(after.set.at(3)));
    set.append(stack(9));
    after.set = std::move(set);
    const Difference difference = differenceOf(three(), after);
    EXPECT_THAT(difference.removed, ElementsAre(2U));
    EXPECT_THAT(difference.added, ElementsAre(3U));
    EXPECT_THAT(difference.changed, IsEmpty());
    EXPECT_FALSE(difference.orderDiffers);
}

TEST_F(DifferenceTest, OfSeveralSourcesOfOneNumberTheFirstBelongsToTheFirst)
{
    Inventory before;
    Inventory after;
    for (Inventory* inventory : {&before, &after}) {
        inventory->set.append(stack(5));
        inventory->set.append(stack(5));
    }
    after.set.append(stack(5));
    after.set.at(2).X(7);
    const Difference difference = differenceOf(before, after);
    ASSERT_EQ(difference.changed.size(), 1U);
    EXPECT_EQ(difference.changed[0].oldPosition, 2U);
    EXPECT_EQ(difference.changed[0].newPosition, 2U);
    EXPECT_THAT(difference.added, ElementsAre(3U));
}

TEST_F(DifferenceTest, AnotherOrderAnotherCommentAndADustFileOfOneSideAreDifferences)
{
    Inventory turned = three();
    std::swap(turned.set.at(1), turned.set.at(3));
    EXPECT_TRUE(differenceOf(three(), turned).orderDiffers);
    EXPECT_THAT(differenceOf(three(), turned).changed, IsEmpty());

    Inventory commented = three();
    commented.comment = "Jiný";
    EXPECT_TRUE(differenceOf(three(), commented).commentDiffers);

    Inventory dustless = three();
    dustless.files.dust.clear();
    dustless.set.at(1).LineDust("0,0,0");
    const Difference difference = differenceOf(three(), dustless);
    EXPECT_FALSE(difference.dustCompared);
    EXPECT_THAT(difference.changed, IsEmpty()) << "what was not compared cannot have changed";
    EXPECT_FALSE(difference.empty());
}

TEST_F(DifferenceTest, AChangedTypeShowsTheValuesThatCameAndWent)
{
    Inventory after = three();
    cZdroje area(cPlosnyZdroj);
    area.LineSource(after.set.at(1).LineSource());
    after.set.at(1) = std::move(area);
    const Difference difference = differenceOf(three(), after);
    ASSERT_EQ(difference.changed.size(), 1U);
    ASSERT_FALSE(difference.changed[0].fields.empty());
    EXPECT_EQ(difference.changed[0].fields[0].column, column::Type);
    EXPECT_EQ(difference.changed[0].fields[0].after, "2");
}

TEST_F(DifferenceTest, EmissionsAreSummedBeforeAndAfter)
{
    Inventory after = three();
    after.set.at(1).Parameters(0, 0.75F);
    const Difference difference = differenceOf(three(), after);
    EXPECT_EQ(difference.before[0].emission.full, 0.5);
    EXPECT_EQ(difference.after[0].emission.full, 0.75);
    EXPECT_EQ(difference.after[1].emission.full, 0.25);
    EXPECT_NEAR(difference.after[2].emission.full, 0.01 * 50, 1e-7) << "30 and 40 make 50 m";
}

}  // namespace
}  // namespace korvex
