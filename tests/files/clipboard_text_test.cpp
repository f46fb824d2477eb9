// The clipboard's text: which rows it holds, in which order, and how a line looks.
#include "clipboard_text.h"
#include "source_rows.h"
#include "source_set.h"

#include <gtest/gtest.h>

#include <cstddef>
#include <initializer_list>
#include <string>
#include <string_view>

namespace korvex {
namespace {

class ClipboardText : public testing::Test {
protected:
    void add(std::string_view number, std::string_view name)
    {
        set.addFromRecords(cBodovyZdroj, std::string(number) + ", 0, 0, 0, 1, 0, 0 ;" + std::string(name), {});
    }
    /// Six sources, numbered 11 to 16 and named A to F.
    void addSix()
    {
        for (const char letter : {'A', 'B', 'C', 'D', 'E', 'F'})
            add("1" + std::string(1, static_cast<char>(letter - 'A' + '1')), std::string(1, letter));
        rows.refill(set.size());
    }
    /// Rows count from 0.
    void mark(std::initializer_list<std::size_t> marked)
    {
        for (const std::size_t row : marked)
            rows.mark(row, true);
    }

    SourceSet set;
    SourceRows rows;
};

TEST_F(ClipboardText, RowsTwoAndFiveAreTwoLinesInListOrderEachEndedByCrLf)
{
    addSix();
    mark({4, 1});
    EXPECT_EQ(clipboardText(set, rows), "000000012\tB\r\n000000015\tE\r\n");
}

TEST_F(ClipboardText, IsEmptyWhenNoRowIsMarked)
{
    addSix();
    EXPECT_EQ(clipboardText(set, rows), "");
}

TEST_F(ClipboardText, IsEmptyForAnEmptyList)
{
    EXPECT_EQ(clipboardText(set, rows), "");
}

TEST_F(ClipboardText, FirstAndLastRowAreTakenAndNothingElseIsWritten)
{
    addSix();
    mark({0, 5});
    EXPECT_EQ(clipboardText(set, rows), "000000011\tA\r\n000000016\tF\r\n");
}

TEST_F(ClipboardText, FollowsTheDisplayOrderOfASortAndNotTheSet)
{
    addSix();
    mark({1, 4});
    rows.sortByNumber(set, SortDirection::Descending);
    EXPECT_EQ(clipboardText(set, rows), "000000015\tE\r\n000000012\tB\r\n");
}

TEST_F(ClipboardText, NumbersAreAsTheListShowsThem)
{
    add("-7", "minus");
    add("1234567890", "ten digits");
    add("0", "zero");
    rows.refill(set.size());
    rows.markAll(true);
    EXPECT_EQ(clipboardText(set, rows), "-000000007\tminus\r\n1234567890\tten digits\r\n000000000\tzero\r\n");
}

TEST_F(ClipboardText, NamesAreAsTheyStand)
{
    add("1", " Kotelna, sever ");
    add("2", "");
    add("3", "Příliš žluťoučký kůň");
    rows.refill(set.size());
    rows.markAll(true);
    EXPECT_EQ(
        clipboardText(set, rows), "000000001\t Kotelna, sever \r\n000000002\t\r\n000000003\tPříliš žluťoučký kůň\r\n");
}

TEST_F(ClipboardText, LeavesMarksAndModifiedFlagAlone)
{
    addSix();
    mark({2});
    set.modified(true);
    EXPECT_EQ(clipboardText(set, rows), "000000013\tC\r\n");
    EXPECT_TRUE(rows.marked(2));
    EXPECT_TRUE(set.modified());
}

}  // namespace
}  // namespace korvex
