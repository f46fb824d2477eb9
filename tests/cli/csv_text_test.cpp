// The form of comma-separated values.
#include "csv_text.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace korvex {
namespace {

using testing::ElementsAre;

std::vector<std::vector<std::string>> recordsOf(std::string_view text)
{
    std::vector<std::vector<std::string>> records;
    CsvReader reader(text);
    std::vector<CsvField> fields;
    while (reader.next(fields)) {
        EXPECT_EQ(reader.fault(), CsvFormFault::None);
        std::vector<std::string>& record = records.emplace_back();
        for (const CsvField& field : fields)
            record.push_back(field.text);
    }
    return records;
}

TEST(CsvText, FieldsAreQuotedOnlyWhereTheyNeedIt)
{
    struct Case {
        std::string_view field;
        std::string_view written;
    };
    for (const Case& given : {Case{"", ""}, Case{"a b", "a b"}, Case{"a,b", "\"a,b\""}, Case{"a\"b", "\"a\"\"b\""},
             Case{"\"", "\"\"\"\""}, Case{"a\nb", "\"a\nb\""}, Case{"a\r", "\"a\r\""}, Case{"ř;ž", "ř;ž"}}) {
        std::string written;
        appendCsvField(written, given.field);
        EXPECT_EQ(written, given.written);
        EXPECT_THAT(recordsOf("x," + written + "\r\n"), ElementsAre(ElementsAre("x", given.field)));
    }
}

TEST(CsvText, LinesMayEndInAnyOfThreeWaysAndEmptyOnesArePassedOver)
{
    const auto expected = ElementsAre(ElementsAre("a", "b"), ElementsAre("c", ""));
    EXPECT_THAT(recordsOf("a,b\r\nc,\r\n"), expected);
    EXPECT_THAT(recordsOf("a,b\nc,"), expected);
    EXPECT_THAT(recordsOf("\xEF\xBB\xBF\n\na,b\r\n\r\nc,\n\n"), expected);
    EXPECT_TRUE(recordsOf("").empty());
    EXPECT_TRUE(recordsOf("\r\n").empty());
}

TEST(CsvText, TheSeparatorIsTheFirstOneOfTheHeaderOutsideOfQuotes)
{
    EXPECT_EQ(separatorOf("a,b;c"), ',');
    EXPECT_EQ(separatorOf("a;b,c"), ';');
    EXPECT_EQ(separatorOf("a\tb;c"), '\t');
    EXPECT_EQ(separatorOf("\"a,b\";c"), ';');
    EXPECT_EQ(separatorOf("\xEF\xBB\xBF\r\n\r\na;b"), ';');
    EXPECT_EQ(separatorOf("a\r\n1;2"), ',') << "only the header tells";
    EXPECT_EQ(separatorOf(""), ',');
}

TEST(CsvText, AnotherSeparatorPartsFieldsAndCommasBelongToThem)
{
    CsvReader reader("a,b;\"c;d\";e\r\n", ';');
    std::vector<CsvField> fields;
    ASSERT_TRUE(reader.next(fields));
    ASSERT_EQ(fields.size(), 3U);
    EXPECT_EQ(fields[0].text, "a,b");
    EXPECT_EQ(fields[1].text, "c;d");
    EXPECT_EQ(fields[2].place, (TextPlace{1, 11}));
}

TEST(CsvText, PlacesCountCharactersAndTheLinesWithinQuotes)
{
    CsvReader reader("žluť,\"a\r\nb\",c\r\nd,e,f");
    std::vector<CsvField> fields;
    ASSERT_TRUE(reader.next(fields));
    ASSERT_EQ(fields.size(), 3U);
    EXPECT_EQ(fields[0].place, (TextPlace{1, 1}));
    EXPECT_EQ(fields[1].place, (TextPlace{1, 6}));
    EXPECT_EQ(fields[1].text, "a\r\nb");
    EXPECT_EQ(fields[2].place, (TextPlace{2, 4}));
    ASSERT_TRUE(reader.next(fields));
    EXPECT_EQ(fields[0].place, (TextPlace{3, 1}));
    EXPECT_EQ(fields[2].place, (TextPlace{3, 5}));
}

TEST(CsvText, QuotesOutOfPlaceAreFaultsWithTheirPlace)
{
    struct Case {
        std::string_view text;
        CsvFormFault fault;
        TextPlace place;
    };
    for (const Case& given :
        {Case{"a,\"b", CsvFormFault::OpenQuote, {1, 3}}, Case{"a,\"b\"c,d", CsvFormFault::TextAfterQuote, {1, 6}},
            Case{"a,b\"c", CsvFormFault::QuoteInside, {1, 4}},
            Case{"a,\"b\"c\"d", CsvFormFault::TextAfterQuote, {1, 6}},
            Case{"a,\"b\r\n\"\"c\r\n", CsvFormFault::OpenQuote, {1, 3}}}) {
        CsvReader reader(given.text);
        std::vector<CsvField> fields;
        ASSERT_TRUE(reader.next(fields));
        EXPECT_EQ(reader.fault(), given.fault) << given.text;
        EXPECT_EQ(reader.faultPlace(), given.place) << given.text;
    }
}

}  // namespace
}  // namespace korvex
