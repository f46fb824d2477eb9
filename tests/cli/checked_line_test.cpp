// A line under check: columns as an editor counts them, and numbers as the lenient reader finds them.
#include "checked_line.h"
#include "checked_points.h"
#include "message.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <array>
#include <cstdint>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace korvex {
namespace {

using testing::ElementsAre;

TEST(CheckedLine, ColumnsCountCharactersFromOne)
{
    const std::string_view codePage = "\xE8\xF8; x";
    const CheckedLine line{codePage, CheckedFile::Points, 3};
    EXPECT_EQ(line.place().column, 1U);
    EXPECT_EQ(line.placeOf(codePage.data() + 4).column, 5U);
    const std::string_view utf8 = "čř; x";
    EXPECT_EQ((CheckedLine{utf8, CheckedFile::Points, 3, true}.placeOf(utf8.data() + 6).column), 5U);
}

struct NumberCase {
    std::string_view field;
    std::string_view number;
    std::string_view surplus;
};

class Extents : public testing::TestWithParam<NumberCase> { };

TEST_P(Extents, AreWhereTheReaderFindsThem)
{
    const NumberExtent extent = NumberExtent::of(GetParam().field);
    EXPECT_EQ(extent.number, GetParam().number);
    EXPECT_EQ(extent.surplus, GetParam().surplus);
    EXPECT_EQ(readReal(extent.number), readReal(GetParam().field));
}

INSTANTIATE_TEST_SUITE_P(Fields, Extents,
    testing::Values(NumberCase{" 0412", "0412", ""}, NumberCase{"+3.5 m", "+3.5", "m"},
        NumberCase{" 1 250 ", "1 250", ""}, NumberCase{"2.4e-3", "2.4e-3", ""}, NumberCase{"7e", "7", "e"},
        NumberCase{"7 e +x", "7", "e +x"}, NumberCase{".5", ".5", ""}, NumberCase{"5.", "5.", ""},
        NumberCase{"0x1F", "0", "x1F"}, NumberCase{"nan", "", "nan"}, NumberCase{"-", "", "-"},
        NumberCase{"- 5", "- 5", ""}, NumberCase{"", "", ""}, NumberCase{"  ", "", ""},
        NumberCase{"1.2.3", "1.2", ".3"}, NumberCase{"--1", "", "--1"}));

TEST(CheckedPoints, TheFirstOfANumberIsFoundInAnyOrder)
{
    CheckedPoints points;
    std::uint32_t line = 0;
    for (const std::int32_t number : {5, -7, 2000000000, 5, 1, -7}) {
        CheckedPoint point;
        point.number = number;
        point.line = ++line;
        points.add(point);
    }
    points.sort();
    std::vector<std::uint32_t> lines;
    for (const std::int32_t number : {2000000000, 5, -7, 1, 5})
        lines.push_back(points.find(number)->line);
    EXPECT_THAT(lines, ElementsAre(3, 1, 2, 5, 1));
    for (const std::int32_t number : {0, 2, 6, -8, -2147483647 - 1, 2147483647})
        EXPECT_EQ(points.find(number), nullptr) << number;
}

TEST(CheckedPoints, NothingIsFoundAmongNone)
{
    CheckedPoints points;
    points.sort();
    EXPECT_EQ(points.find(0), nullptr);
}

std::string filled(std::string_view pattern, std::span<const std::string_view> values)
{
    std::string out;
    appendFilled(out, pattern, values);
    return out;
}

TEST(Message, PlacesAreFilledOnceAndInAnyOrder)
{
    const std::array<std::string_view, 2> values{"a", "{0}"};
    EXPECT_EQ(filled("{1} of {0}, {2}", values), "{0} of a, {2}");
    EXPECT_EQ(filled("{", values), "{");
    EXPECT_EQ(filled("{x}{0}", values), "{x}a");
}

TEST(Message, ControlCharactersAreShownAndNotObeyed)
{
    using namespace std::string_view_literals;
    EXPECT_EQ(printable("\x1B[2J\r\x7F\0x"sv), "\\x1B[2J\\x0D\\x7F\\x00x");
    EXPECT_EQ(printable("\u009B31m°\u00A0č"), "\\x9B31m°\u00A0č");
    EXPECT_EQ(printable("\xC2"), "\xC2");
    EXPECT_EQ(printable("Výtopna – 1"), "Výtopna – 1");
}

TEST(Message, LongAndUnprintableTextsAreCut)
{
    EXPECT_EQ(quotedText(Language::English, "a\tb"), "\"a\\x09b\"");
    EXPECT_EQ(quotedText(Language::Czech, "ř"), "„ř“");
    EXPECT_EQ(quotedText(Language::English, std::string(50, 'x')), '"' + std::string(40, 'x') + "…\"");
}

}  // namespace
}  // namespace korvex
