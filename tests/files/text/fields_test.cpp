// Tests of the fields of a record and of what counts as a blank.
#include "blanks.h"
#include "fields.h"

#include <gtest/gtest.h>

#include <random>
#include <string>
#include <string_view>
#include <vector>

namespace korvex {
namespace {

using namespace std::string_view_literals;

TEST(Fields, FieldsAreCountedFromOne)
{
    EXPECT_EQ(field("a,b,c", ',', 1), "a");
    EXPECT_EQ(field("a,b,c", ',', 2), "b");
    EXPECT_EQ(field("a,b,c", ',', 3), "c");
}

TEST(Fields, AFieldThatDoesNotExistIsEmpty)
{
    EXPECT_EQ(field("a,b,c", ',', 4), "");
    EXPECT_EQ(field("a,b,c", ',', 1000), "");
    EXPECT_EQ(field("", ',', 1), "");
    EXPECT_EQ(field("", ',', 2), "");
    EXPECT_EQ(field(std::string_view(), ',', 1), "");
}

TEST(Fields, ATextWithoutSeparatorIsOneField)
{
    EXPECT_EQ(field("000000007", ',', 1), "000000007");
    EXPECT_EQ(field("000000007", ',', 2), "");
}

TEST(Fields, EverySeparatorSplits)
{
    EXPECT_EQ(field(",,x,", ',', 1), "");
    EXPECT_EQ(field(",,x,", ',', 2), "");
    EXPECT_EQ(field(",,x,", ',', 3), "x");
    EXPECT_EQ(field(",,x,", ',', 4), "");
    EXPECT_EQ(field(",,x,", ',', 5), "");
}

TEST(Fields, FieldsAreNotTrimmed)
{
    EXPECT_EQ(field("1,  2 ,\t3", ',', 2), "  2 ");
    EXPECT_EQ(field("1,  2 ,\t3", ',', 3), "\t3");
}

TEST(Fields, QuotesAndOtherSeparatorsDoNotCount)
{
    EXPECT_EQ(field("\"a,b\";c", ',', 1), "\"a");
    EXPECT_EQ(field("\"a,b\";c", ',', 2), "b\";c");
    EXPECT_EQ(field("a,b;c", ';', 1), "a,b");
}

TEST(Fields, TheSecondSemicolonEndsTheName)
{
    EXPECT_EQ(field("1, 2 ; Kotelna, sever ;zbytek", ';', 2), " Kotelna, sever ");
    EXPECT_EQ(field("1, 2 ;", ';', 2), "");
    EXPECT_EQ(field("1, 2", ';', 2), "");
}

TEST(Fields, ANulByteIsAnOrdinaryCharacter)
{
    EXPECT_EQ(field("a\0b,c"sv, ',', 1), "a\0b"sv);
    EXPECT_EQ(field("a\0b,c"sv, ',', 2), "c");
}

TEST(Fields, AFieldIsAViewIntoTheText)
{
    const std::string text = "first,second";
    EXPECT_EQ(field(text, ',', 2).data(), text.data() + 6);
}

TEST(Fields, NextGivesOneFieldAfterTheOther)
{
    Fields fields("12,,x", ',');
    EXPECT_EQ(fields.next(), "12");
    EXPECT_EQ(fields.next(), "");
    EXPECT_EQ(fields.next(), "x");
}

TEST(Fields, NextIsEmptyForGoodOnceTheTextIsUsedUp)
{
    for (const std::string_view text : {"x", "", "x,"}) {
        Fields fields(text, ',');
        EXPECT_EQ(fields.next(), text.substr(0, text.find(',')));
        for (int i = 0; i < 5; ++i)
            EXPECT_EQ(fields.next(), "") << '"' << text << '"';
    }
}

TEST(FieldsLaws, JoinedFieldsAreTheTextAgain)
{
    std::mt19937 random(9);
    for (int i = 0; i < 5000; ++i) {
        std::string text;
        for (auto length = random() % 30; length > 0; --length)
            text += "ab,; "[random() % 5];
        std::size_t count = 1;
        for (const char c : text)
            count += c == ',' ? 1U : 0U;

        Fields fields(text, ',');
        std::string joined;
        for (std::size_t n = 1; n <= count; ++n) {
            const std::string_view next = fields.next();
            ASSERT_EQ(next, field(text, ',', n)) << text;
            joined += n == 1 ? "" : ",";
            joined += next;
        }
        ASSERT_EQ(joined, text);
        ASSERT_EQ(fields.next(), "");
    }
}

TEST(Blanks, OnlySpaceAndTabulatorAreBlanks)
{
    for (int byte = 0; byte < 256; ++byte)
        EXPECT_EQ(isBlank(static_cast<char>(byte)), byte == 0x20 || byte == 0x09) << byte;
}

TEST(Blanks, TrimmingTakesTheBlanksAtBothEndsOnly)
{
    EXPECT_EQ(trimBlanks("  a b \t"), "a b");
    EXPECT_EQ(trimBlanks("\ta"), "a");
    EXPECT_EQ(trimBlanks("a "), "a");
    EXPECT_EQ(trimBlanks("a\tb"), "a\tb");
    EXPECT_EQ(trimBlanks("\r a \n"), "\r a \n");
}

TEST(Blanks, TrimmingBlanksAloneLeavesNothing)
{
    EXPECT_EQ(trimBlanks(""), "");
    EXPECT_EQ(trimBlanks(std::string_view()), "");
    EXPECT_EQ(trimBlanks(" "), "");
    EXPECT_EQ(trimBlanks(" \t \t "), "");
}

TEST(Blanks, TrimmingIsIdempotent)
{
    for (const std::string_view text : {"", "  ", " a ", "\t;x \t", "a"})
        EXPECT_EQ(trimBlanks(trimBlanks(text)), trimBlanks(text));
}

}  // namespace
}  // namespace korvex
