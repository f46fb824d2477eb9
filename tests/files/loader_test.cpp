// Loading an inventory: the order of the steps, the comment, the pairing of the records and the reports.
#include "failing_file_calls.h"

#include "duplicate_check.h"
#include "loader.h"
#include "source_rows.h"
#include "source_set.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <filesystem>
#include <numeric>
#include <optional>
#include <random>
#include <string>
#include <string_view>
#include <vector>

namespace korvex {

bool operator==(const RecordPlace& a, const RecordPlace& b)
{
    return a.number == b.number && a.line == b.line;
}

void PrintTo(const RecordPlace& place, std::ostream* out)
{
    *out << "number " << place.number << " on line " << place.line;
}

namespace {

using testing::ElementsAre;
using testing::IsEmpty;

/// A stack, an area and a road segment; every number differs from the others.
constexpr std::string_view threePoints = "000000001, 0641862, 1078344, 0431, 1, 4, 7 ;Vytopna\r\n"
                                         "000000002, 0641863, 1078345, 0432, 2, 5, 8 ;Skladka\r\n"
                                         "000000003, 0641864, 1078346, 0433, 3, 6, 9 ;Silnice\r\n";
constexpr std::string_view threeDescriptions = "000000001, 1.5, 2, 3, 4, 5, 6, 7, 8, 0\r\n"
                                               "000000002, 11, 12, 13, 14, 15, 16, 17, 18, 19\r\n"
                                               "000000003, 21, 22, 23, 24, 25, 26, 27, 28, 29\r\n";
constexpr std::string_view threeDusts = "000000001,1800,0,1,10,1\r\n000000002\r\n000000003\r\n";

/// A points record of a stack without a name.
std::string pointsRecord(std::string_view number)
{
    return std::string(number) + ", 0000000, 0000000, 0000, 1, 0, 0 ;\r\n";
}

class Loader : public testing::Test {
protected:
    Result<void> load(std::string_view points, std::string_view description)
    {
        request.files = {folder.write("body.txt", points), folder.write("popis.txt", description), ""};
        report = {};
        listener.clear();
        return loadSourceSet(request, set, report, listener);
    }
    Result<void> load(std::string_view points, std::string_view description, std::string_view dust)
    {
        request.files = {
            folder.write("body.txt", points), folder.write("popis.txt", description), folder.write("prach.txt", dust)};
        report = {};
        listener.clear();
        return loadSourceSet(request, set, report, listener);
    }

    [[nodiscard]] std::vector<std::int32_t> numbers() const
    {
        std::vector<std::int32_t> found;
        for (std::size_t position = 1; position <= set.size(); ++position)
            found.push_back(set.at(position).ICZ());
        return found;
    }
    /// The parameter by which the tests tell description records apart.
    [[nodiscard]] std::vector<float> emissions() const
    {
        std::vector<float> found;
        for (std::size_t position = 1; position <= set.size(); ++position)
            found.push_back(set.at(position).Parameters(0));
        return found;
    }
    [[nodiscard]] std::vector<std::string> dustRecords() const
    {
        std::vector<std::string> found;
        for (std::size_t position = 1; position <= set.size(); ++position)
            found.push_back(set.at(position).LineDust());
        return found;
    }
    void expectNothingReported() const
    {
        EXPECT_THAT(report.missingDescription, IsEmpty());
        EXPECT_THAT(report.missingDust, IsEmpty());
        EXPECT_THAT(report.unknownType, IsEmpty());
    }

    test::TemporaryFolder folder;
    SourceSet set;
    LoadRequest request;
    LoadReport report;
    test::RecordingListener listener;
};

// The order of the steps

TEST_F(Loader, OpensPointsThenDescriptionThenDustAndThenCompares)
{
    ASSERT_TRUE(load(threePoints, threeDescriptions, threeDusts).ok());
    EXPECT_THAT(listener.statuses,
        ElementsAre("Otevírám " + folder.path("body.txt"), "Otevírám " + folder.path("popis.txt"),
            "Otevírám " + folder.path("prach.txt"), "Porovnávám…"));
}

TEST_F(Loader, WithoutADustFileOpensTwoFilesOnly)
{
    ASSERT_TRUE(load(threePoints, threeDescriptions).ok());
    EXPECT_THAT(listener.statuses,
        ElementsAre("Otevírám " + folder.path("body.txt"), "Otevírám " + folder.path("popis.txt"), "Porovnávám…"));
}

TEST_F(Loader, ReadsNothingBeforeAllFilesAreOpen)
{
    request.files
        = {folder.write("body.txt", threePoints), folder.write("popis.txt", "1E999, 1\r\n"), folder.path("chybi.txt")};
    const Result<void> loaded = loadSourceSet(request, set, report, listener);
    ASSERT_FALSE(loaded.ok());
    EXPECT_EQ(loaded.error().path, folder.path("chybi.txt"));
    EXPECT_EQ(loaded.error().step, FileStep::Open);
    EXPECT_TRUE(set.empty());
}

TEST_F(Loader, ProgressGrowsUpToTheSizeOfThePointsFile)
{
    std::string points;
    std::string description;
    for (int i = 0; i < 10000; ++i) {
        points += pointsRecord(std::to_string(i));
        description += std::to_string(i) + ", 1\r\n";
    }
    ASSERT_TRUE(load(points, description).ok());
    EXPECT_THAT(listener.maxima, ElementsAre(points.size()));
    ASSERT_GE(listener.values.size(), 2U);
    EXPECT_TRUE(std::is_sorted(listener.values.begin(), listener.values.end()));
    EXPECT_GT(listener.values.front(), 0U);
    EXPECT_LE(listener.values.back(), points.size());
}

TEST_F(Loader, CompleteInventoryLoadsWithoutAnyReport)
{
    ASSERT_TRUE(load(threePoints, threeDescriptions, threeDusts).ok());
    expectNothingReported();
    EXPECT_EQ(report.comment, std::nullopt);
}

TEST_F(Loader, ARecordOfEachFileMakesASource)
{
    const std::string points = "000000001, 0641862, 1078344, 0431, 1, 4, 7 ;V\xFDtopna\r\n"
                               "000000002, 0641863, 1078345, 0432, 2, 5, 8 ;Skl\xE1"
                               "dka\r\n"
                               "000000003, 0641864, 1078346, 0433, 3, 6, 9 ;Silnice\r\n";
    ASSERT_TRUE(load(points, threeDescriptions, threeDusts).ok());
    ASSERT_EQ(set.size(), 3U);
    EXPECT_EQ(set.at(1).TypZdroje(), "Bodový zdroj");
    EXPECT_EQ(set.at(1).LineSource(), "000000001, 0641862, 1078344, 0431, 1, 4, 7 ;Výtopna");
    EXPECT_EQ(set.at(1).LineParameters(), "000000001, 1.5, 2, 3, 4, 5, 6, 7, 8, 0");
    EXPECT_EQ(set.at(1).LineDust(), "000000001,1800,0,1,10,1");
    EXPECT_EQ(set.at(2).TypZdroje(), "Plošný zdroj");
    EXPECT_EQ(set.at(2).LineSource(), "000000002, 0641863, 1078345, 0432, 2, 5, 8 ;Skládka");
    EXPECT_EQ(set.at(2).LineParameters(), "000000002, 11, 12, 13, 14, 15, 16, 17, 18, 19");
    EXPECT_EQ(set.at(2).LineDust(), "000000002");
    EXPECT_EQ(set.at(3).TypZdroje(), "Liniový zdroj");
    EXPECT_EQ(set.at(3).LineSource(), "000000003, 0641864, 1078346, 0433, 3, 6, 9 ;Silnice");
    EXPECT_EQ(set.at(3).LineParameters(), "000000003, 21, 22, 23, 24, 25, 26, 27, 28, 29");
    EXPECT_EQ(set.at(3).LineDust(), "000000003");
    EXPECT_EQ(set.at(1).KOMIN(), 1) << "no file carries the stack number";
}

// The comment

TEST_F(Loader, FirstCommentLineIsTheComment)
{
    ASSERT_TRUE(load(";Soupis A\r\n;SOUBOR S BODY\r\n" + std::string(threePoints), threeDescriptions).ok());
    EXPECT_EQ(report.comment, "Soupis A");
}

TEST_F(Loader, CommentIsTrimmed)
{
    ASSERT_TRUE(load("; \t Soupis  A \t \r\n", "").ok());
    EXPECT_EQ(report.comment, "Soupis  A");
}

TEST_F(Loader, CommentLinesWithoutTextSupplyNoComment)
{
    ASSERT_TRUE(load(";\r\n;   \r\n; \t\r\n\r\n   \r\n;Soupis A\r\n;Soupis B\r\n", "").ok());
    EXPECT_EQ(report.comment, "Soupis A");
}

TEST_F(Loader, CommentLineMayBeginWithBlanks)
{
    ASSERT_TRUE(load(" \t ;Soupis A\r\n", "").ok());
    EXPECT_EQ(report.comment, "Soupis A");
}

TEST_F(Loader, CommentMayStandBehindRecords)
{
    ASSERT_TRUE(load(std::string(threePoints) + ";Soupis A\r\n", threeDescriptions).ok());
    EXPECT_EQ(report.comment, "Soupis A");
    EXPECT_EQ(set.size(), 3U);
}

TEST_F(Loader, OnlyTheFirstSemicolonIsTakenOffTheComment)
{
    ASSERT_TRUE(load(";;Soupis; A\r\n", "").ok());
    EXPECT_EQ(report.comment, ";Soupis; A");
}

TEST_F(Loader, WithoutCommentLineThereIsNoComment)
{
    ASSERT_TRUE(load(";\r\n" + std::string(threePoints), threeDescriptions).ok());
    EXPECT_EQ(report.comment, std::nullopt);
}

TEST_F(Loader, CommentLinesOfTheOtherFilesAreNoComment)
{
    ASSERT_TRUE(
        load(threePoints, ";Popis\r\n" + std::string(threeDescriptions), ";Prach\r\n" + std::string(threeDusts)).ok());
    EXPECT_EQ(report.comment, std::nullopt);
    expectNothingReported();
}

TEST_F(Loader, CommentIsReadInTheCodePage)
{
    ASSERT_TRUE(load(";P\xF8\xEDli\x9A \x9Elu\x9Dou\xE8k\xFD k\xF9\xF2\r\n", "").ok());
    EXPECT_EQ(report.comment, "Příliš žluťoučký kůň");
}

// Pairing by number

TEST_F(Loader, NumbersPairByValueNotByText)
{
    for (const std::string text : {"12", "000000012", "00000000000012", " 12 ", "+12", "12.0", "12.", "1 2", "1.2E1",
             "120e-1", "12 kotel", "12;a", "\t12"}) {
        SCOPED_TRACE(text);
        ASSERT_TRUE(load(pointsRecord("000000012"), text + ", 5\r\n", text + "\r\n").ok());
        expectNothingReported();
        EXPECT_THAT(emissions(), ElementsAre(5.0F));
    }
}

TEST_F(Loader, PointsNumberMayBeUnpaddedToo)
{
    for (const std::string_view text : {"12", "000000012", " +12", "12.0", "12 ", "1 2"}) {
        SCOPED_TRACE(text);
        ASSERT_TRUE(load(pointsRecord(text), "000000012, 5\r\n", "000000012\r\n").ok());
        expectNothingReported();
        EXPECT_THAT(numbers(), ElementsAre(12));
        EXPECT_THAT(emissions(), ElementsAre(5.0F));
    }
}

TEST_F(Loader, DescriptionNumberThatIsNotWholeNeverPairs)
{
    for (const std::string text : {"12.5", "11.5", "12.4", "11.9", "12.000001"}) {
        SCOPED_TRACE(text);
        ASSERT_TRUE(load(pointsRecord("12"), text + ", 5\r\n").ok());
        EXPECT_THAT(report.missingDescription, ElementsAre(RecordPlace{12, 1}));
        EXPECT_THAT(emissions(), ElementsAre(0.0F));
    }
}

TEST_F(Loader, DustNumberThatIsNotWholeNeverPairs)
{
    ASSERT_TRUE(load(pointsRecord("12"), "12, 5\r\n", "12.5,,,,,,1,2,0\r\n").ok());
    EXPECT_THAT(report.missingDust, ElementsAre(RecordPlace{12, 1}));
    EXPECT_THAT(dustRecords(), ElementsAre("000000012,0,0,0"));
}

TEST_F(Loader, PointsNumberIsRoundedToTheNearestHalvesToEven)
{
    const std::string points
        = pointsRecord("12.5") + pointsRecord("13.5") + pointsRecord("15.4") + pointsRecord("-0.5");
    ASSERT_TRUE(load(points, "12, 5\r\n14, 6\r\n15, 7\r\n0, 8\r\n").ok());
    expectNothingReported();
    EXPECT_THAT(numbers(), ElementsAre(12, 14, 15, 0));
    EXPECT_THAT(emissions(), ElementsAre(5.0F, 6.0F, 7.0F, 8.0F));
}

TEST_F(Loader, OfTwoDescriptionRecordsTheFirstWins)
{
    ASSERT_TRUE(load(pointsRecord("2") + pointsRecord("1"), "1, 5\r\n2, 6\r\n001, 7\r\n2.0, 8\r\n1, 9\r\n").ok());
    EXPECT_THAT(emissions(), ElementsAre(6.0F, 5.0F));
    expectNothingReported();
}

TEST_F(Loader, FirstOfManyRecordsWinsForEverySourceOfTheNumber)
{
    // Enough of them for a sort that is not stable to show.
    std::string description;
    for (int i = 0; i < 300; ++i)
        description += std::to_string(2 - i % 3) + ", " + std::to_string(100 + i) + "\r\n";
    ASSERT_TRUE(load(
        pointsRecord("1") + pointsRecord("1") + pointsRecord("2") + pointsRecord("0") + pointsRecord("1"), description)
                    .ok());
    EXPECT_THAT(emissions(), ElementsAre(101.0F, 101.0F, 100.0F, 102.0F, 101.0F));
}

TEST_F(Loader, CommentsAndBlankLinesAreNoRecordsOfTheNumberZero)
{
    ASSERT_TRUE(load(pointsRecord("0"), ";, 5\r\n\r\n  \r\n").ok());
    EXPECT_THAT(report.missingDescription, ElementsAre(RecordPlace{0, 1}));
    ASSERT_TRUE(load(pointsRecord("0"), "0, 5\r\n", ";0\r\n\t\r\n").ok());
    EXPECT_THAT(report.missingDust, ElementsAre(RecordPlace{0, 1}));
}

TEST_F(Loader, OfTwoDustRecordsTheFirstWins)
{
    ASSERT_TRUE(load(pointsRecord("1"), "1, 5\r\n", "000000001,first\r\n000000001,second\r\n").ok());
    EXPECT_THAT(dustRecords(), ElementsAre("000000001,first"));
}

TEST_F(Loader, TwoPointsRecordsOfOneNumberAreTwoSourcesWithTheSameParametersAndDust)
{
    ASSERT_TRUE(load(pointsRecord("1") + pointsRecord("1") + pointsRecord("2") + pointsRecord("1"), "1, 5\r\n2, 6\r\n",
        "000000001,x\r\n000000002,y\r\n")
                    .ok());
    EXPECT_THAT(numbers(), ElementsAre(1, 1, 2, 1));
    EXPECT_THAT(emissions(), ElementsAre(5.0F, 5.0F, 6.0F, 5.0F));
    EXPECT_THAT(dustRecords(), ElementsAre("000000001,x", "000000001,x", "000000002,y", "000000001,x"));
    expectNothingReported();
}

TEST_F(Loader, RecordsOfTheThreeFilesMayStandInAnyOrder)
{
    constexpr int count = 1000;
    std::mt19937 random(20261121);
    std::vector<int> pointsOrder(count);
    std::iota(pointsOrder.begin(), pointsOrder.end(), -count / 2);
    std::vector<int> descriptionOrder = pointsOrder;
    std::vector<int> dustOrder = pointsOrder;
    std::shuffle(pointsOrder.begin(), pointsOrder.end(), random);
    std::shuffle(descriptionOrder.begin(), descriptionOrder.end(), random);
    std::shuffle(dustOrder.begin(), dustOrder.end(), random);
    std::string points;
    std::string description;
    std::string dust;
    for (const int number : pointsOrder)
        points += pointsRecord(std::to_string(number));
    for (const int number : descriptionOrder)
        description += std::to_string(number) + ", " + std::to_string(number) + "\r\n";
    for (const int number : dustOrder) {
        std::string field = std::to_string(number) + ',';
        field.resize(10, ' ');
        dust += field + "d" + std::to_string(number) + "\r\n";
    }
    ASSERT_TRUE(load(points, description, dust).ok());
    expectNothingReported();
    ASSERT_EQ(set.size(), pointsOrder.size());
    for (std::size_t i = 0; i < pointsOrder.size(); ++i) {
        const cZdroje& source = set.at(i + 1);
        ASSERT_EQ(source.ICZ(), pointsOrder[i]);
        ASSERT_EQ(source.Parameters(0), static_cast<float>(pointsOrder[i]));
        const std::string record = source.LineDust();
        ASSERT_EQ(record.substr(record.find(',') + 1), "d" + std::to_string(pointsOrder[i]));
    }
}

TEST_F(Loader, WholeRangeOf32BitNumbersPairs)
{
    ASSERT_TRUE(load(pointsRecord("2147483647") + pointsRecord("-2147483648") + pointsRecord("-1") + pointsRecord("0"),
        "-1, 5\r\n0, 6\r\n2147483647, 7\r\n-2147483648, 8\r\n")
                    .ok());
    expectNothingReported();
    EXPECT_THAT(emissions(), ElementsAre(7.0F, 8.0F, 5.0F, 6.0F));
}

TEST_F(Loader, DescriptionNumberBeyond32BitsIsSomeOtherNumber)
{
    // 12 and twice 2^31: cut to 32 bits it would be 12 again.
    ASSERT_TRUE(load(pointsRecord("12"), "4294967308, 5\r\n-4294967284, 5\r\n1E300, 5\r\n").ok());
    EXPECT_THAT(report.missingDescription, ElementsAre(RecordPlace{12, 1}));
}

TEST_F(Loader, RecordsWithoutANumberHaveTheNumberZero)
{
    ASSERT_TRUE(load(pointsRecord("kotel"), "popis, 5\r\n", ",\r\n").ok());
    expectNothingReported();
    EXPECT_THAT(numbers(), ElementsAre(0));
    EXPECT_THAT(emissions(), ElementsAre(5.0F));
}

TEST_F(Loader, DescriptionAndDustRecordsWithoutAPointsRecordAreIgnored)
{
    ASSERT_TRUE(
        load(pointsRecord("2"), "1, 4\r\n2, 5\r\n3, 6\r\n", "000000001,x\r\n000000002,y\r\n000000003,z\r\n").ok());
    expectNothingReported();
    EXPECT_THAT(numbers(), ElementsAre(2));
    EXPECT_THAT(emissions(), ElementsAre(5.0F));
    EXPECT_THAT(dustRecords(), ElementsAre("000000002,y"));
}

TEST_F(Loader, MissingParametersAreZeroAndSurplusOnesIgnored)
{
    ASSERT_TRUE(load(std::string(threePoints), "1, 5, 6\r\n2, 1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 11\r\n3\r\n").ok());
    ASSERT_EQ(set.size(), 3U);
    EXPECT_EQ(set.at(1).LineParameters(), "000000001, 5, 6, 0, 0, 0, 0, 0, 0, 0");
    EXPECT_EQ(set.at(2).LineParameters(), "000000002, 1, 2, 3, 4, 5, 6, 7, 8, 9");
    EXPECT_EQ(set.at(3).LineParameters(), "000000003, 0, 0, 0, 0, 0, 0, 0, 0, 0");
}

// Missing records

TEST_F(Loader, SourceWithoutDescriptionIsAcceptedWithZerosAndCounted)
{
    request.missingDescription = MissingDescription::Accept;
    ASSERT_TRUE(load(";a\r\n\r\n" + std::string(threePoints), "2, 12\r\n").ok());
    EXPECT_THAT(report.missingDescription, ElementsAre(RecordPlace{1, 3}, RecordPlace{3, 5}));
    EXPECT_THAT(numbers(), ElementsAre(1, 2, 3));
    EXPECT_EQ(set.at(1).LineParameters(), "000000001, 0, 0, 0, 0, 0, 0, 0, 0, 0");
    EXPECT_EQ(set.at(3).LineParameters(), "000000003, 0, 0, 0, 0, 0, 0, 0, 0, 0");
    EXPECT_EQ(set.at(3).TypZdrojeId(), 3);
    EXPECT_EQ(set.at(3).X(), 641864);
}

TEST_F(Loader, SourceWithoutDescriptionIsSkippedAndCounted)
{
    request.missingDescription = MissingDescription::Skip;
    ASSERT_TRUE(load(";a\r\n\r\n" + std::string(threePoints), "2, 12\r\n").ok());
    EXPECT_THAT(report.missingDescription, ElementsAre(RecordPlace{1, 3}, RecordPlace{3, 5}));
    EXPECT_THAT(numbers(), ElementsAre(2));
}

TEST_F(Loader, SourceWithoutDescriptionIsNotLookedUpInTheDust)
{
    for (const MissingDescription choice : {MissingDescription::Accept, MissingDescription::Skip}) {
        request.missingDescription = choice;
        // Number 1 stands in the dust file, number 3 does not.
        ASSERT_TRUE(load(threePoints, "2, 12\r\n", "000000001,x\r\n000000002\r\n").ok());
        EXPECT_THAT(report.missingDescription, ElementsAre(RecordPlace{1, 1}, RecordPlace{3, 3}));
        EXPECT_THAT(report.missingDust, IsEmpty());
    }
    request.missingDescription = MissingDescription::Accept;
    ASSERT_TRUE(load(threePoints, "2, 12\r\n", "000000001,x\r\n000000002\r\n").ok());
    EXPECT_THAT(dustRecords(), ElementsAre("000000001,0,0,0", "000000002", "000000003"));
}

TEST_F(Loader, SourcesOfAnyTypeMissingInTheDustAreCountedAndKeepTheirDust)
{
    ASSERT_TRUE(load(";a\r\n" + std::string(threePoints), threeDescriptions, ";nothing here\r\n").ok());
    EXPECT_THAT(report.missingDescription, IsEmpty());
    EXPECT_THAT(report.missingDust, ElementsAre(RecordPlace{1, 2}, RecordPlace{2, 3}, RecordPlace{3, 4}));
    EXPECT_THAT(dustRecords(), ElementsAre("000000001,0,0,0", "000000002", "000000003"));
}

TEST_F(Loader, WithoutADustFileNothingIsMissingInIt)
{
    ASSERT_TRUE(load(threePoints, threeDescriptions).ok());
    EXPECT_THAT(report.missingDust, IsEmpty());
    EXPECT_THAT(dustRecords(), ElementsAre("000000001,0,0,0", "000000002", "000000003"));
}

// The type code

TEST_F(Loader, RecordsOfAnUnknownTypeAreCountedAndNotLoaded)
{
    const std::string points = "000000001, 0, 0, 0, 1, 0, 0 ;a\r\n"
                               "000000002, 0, 0, 0, 0, 0, 0 ;b\r\n"
                               ";comment\r\n"
                               "000000003, 0, 0, 0, 4, 0, 0 ;c\r\n"
                               "000000004, 0, 0, 0, -1, 0, 0 ;d\r\n"
                               "000000005, 0, 0, 0, , 0, 0 ;e\r\n"
                               "000000006, 0, 0, 0, bod, 0, 0 ;f\r\n"
                               "000000007\r\n"
                               "000000008, 0, 0, 0, 3, 0, 0 ;g\r\n";
    request.missingDescription = MissingDescription::Accept;
    ASSERT_TRUE(load(points, "1, 1\r\n2, 2\r\n8, 8\r\n", "1\r\n8\r\n").ok());
    EXPECT_THAT(report.unknownType,
        ElementsAre(RecordPlace{2, 2}, RecordPlace{3, 4}, RecordPlace{4, 5}, RecordPlace{5, 6}, RecordPlace{6, 7},
            RecordPlace{7, 8}));
    EXPECT_THAT(report.missingDescription, IsEmpty()) << "a record that is not loaded lacks nothing";
    EXPECT_THAT(report.missingDust, IsEmpty());
    EXPECT_THAT(numbers(), ElementsAre(1, 8));
}

TEST_F(Loader, TypeCodeIsReadAsAnyOtherInteger)
{
    const std::string points = "1, 0, 0, 0, 01, 0, 0 ;\r\n"
                               "2, 0, 0, 0,2 plošný, 0, 0 ;\r\n"
                               "3, 0, 0, 0, 2.6, 0, 0 ;\r\n"
                               "4, 0, 0, 0, 2.5, 0, 0 ;\r\n";
    ASSERT_TRUE(load(points, "1\r\n2\r\n3\r\n4\r\n").ok());
    ASSERT_EQ(set.size(), 4U);
    EXPECT_EQ(set.at(1).TypZdrojeId(), 1);
    EXPECT_EQ(set.at(2).TypZdrojeId(), 2);
    EXPECT_EQ(set.at(3).TypZdrojeId(), 3);
    EXPECT_EQ(set.at(4).TypZdrojeId(), 2);
    expectNothingReported();
}

// Replacing and appending

TEST_F(Loader, ReplaceEmptiesTheSetFirst)
{
    ASSERT_TRUE(load(threePoints, threeDescriptions).ok());
    request.mode = LoadMode::Replace;
    ASSERT_TRUE(load(pointsRecord("7"), "7, 1\r\n").ok());
    EXPECT_THAT(numbers(), ElementsAre(7));
}

TEST_F(Loader, ReplaceEmptiesTheSetOnlyOnceTheOtherTwoFilesAreRead)
{
    ASSERT_TRUE(load(threePoints, threeDescriptions).ok());
    request.files.dust = folder.path("chybi.txt");
    EXPECT_FALSE(loadSourceSet(request, set, report, listener).ok());
    EXPECT_THAT(numbers(), ElementsAre(1, 2, 3)) << "a mistyped name costs nothing";

    EXPECT_FALSE(load(threePoints, "1E999\r\n").ok());
    EXPECT_THAT(numbers(), ElementsAre(1, 2, 3)) << "nor does a damaged description file";

    EXPECT_FALSE(load("1E999\r\n" + std::string(threePoints), threeDescriptions).ok());
    EXPECT_TRUE(set.empty()) << "the points file has taken the place of the old inventory by then";
}

TEST_F(Loader, TheReportTellsWhetherTheSetWasTouched)
{
    EXPECT_FALSE(load(threePoints, "1E999\r\n").ok());
    EXPECT_FALSE(report.setTouched);
    EXPECT_FALSE(load("1E999\r\n", threeDescriptions).ok());
    EXPECT_TRUE(report.setTouched);
}

TEST_F(Loader, AppendKeepsWhatIsThereAndAddsBehindIt)
{
    ASSERT_TRUE(load(threePoints, threeDescriptions).ok());
    request.mode = LoadMode::Append;
    ASSERT_TRUE(load(";B\r\n" + pointsRecord("7") + pointsRecord("2"), "2, 1\r\n7, 1\r\n").ok());
    EXPECT_THAT(numbers(), ElementsAre(1, 2, 3, 7, 2));
    EXPECT_EQ(set.at(1).LineParameters(), "000000001, 1.5, 2, 3, 4, 5, 6, 7, 8, 0");
    EXPECT_EQ(report.comment, "B");
}

TEST_F(Loader, AppendKeepsWhatIsThereWhenAFileCannotBeOpened)
{
    ASSERT_TRUE(load(threePoints, threeDescriptions).ok());
    request.mode = LoadMode::Append;
    request.files.points = folder.path("chybi.txt");
    EXPECT_FALSE(loadSourceSet(request, set, report, listener).ok());
    EXPECT_THAT(numbers(), ElementsAre(1, 2, 3));
}

TEST_F(Loader, NumbersThatAppendedFilesShareWithThePresentOnesAreFoundAsDuplicates)
{
    ASSERT_TRUE(load(pointsRecord("1") + pointsRecord("2"), "1\r\n2\r\n").ok());
    request.mode = LoadMode::Append;
    ASSERT_TRUE(load(pointsRecord("3") + pointsRecord("1"), "1\r\n3\r\n").ok());
    SourceRows rows;
    rows.refill(set.size());
    EXPECT_EQ(markDuplicates(set, rows), 1U);
    EXPECT_TRUE(rows.marks().marked(4));
}

// The modified flag

TEST_F(Loader, SuccessClearsTheModifiedFlagInBothModes)
{
    for (const LoadMode mode : {LoadMode::Replace, LoadMode::Append}) {
        request.mode = mode;
        set.modified(true);
        ASSERT_TRUE(load(threePoints, threeDescriptions).ok());
        EXPECT_FALSE(set.modified());
    }
}

TEST_F(Loader, ReportsDoNotKeepTheModifiedFlag)
{
    set.modified(true);
    ASSERT_TRUE(load(threePoints, "", "").ok());
    EXPECT_EQ(report.missingDescription.size(), 3U);
    EXPECT_FALSE(set.modified());
}

TEST_F(Loader, FailureLeavesTheModifiedFlagAlone)
{
    for (const bool modified : {true, false}) {
        set.modified(modified);
        EXPECT_FALSE(load("99999999999, 0, 0, 0, 1, 0, 0 ;\r\n", "").ok());
        EXPECT_EQ(set.modified(), modified);
        request.files.points = folder.path("chybi.txt");
        EXPECT_FALSE(loadSourceSet(request, set, report, listener).ok());
        EXPECT_EQ(set.modified(), modified);
    }
}

// The dust description

TEST_F(Loader, DustDescriptionIsTheLineFromItsEleventhCharacterAsItStands)
{
    ASSERT_TRUE(load(pointsRecord("1"), "1\r\n", "000000001, 1800,0,\t1, 10;x,1  \r\n").ok());
    EXPECT_THAT(dustRecords(), ElementsAre("000000001, 1800,0,\t1, 10;x,1  "));
}

TEST_F(Loader, DustIsCutAtTheEleventhCharacterWhateverStandsBefore)
{
    struct Case {
        std::string line;
        std::string dust;
    };
    for (const Case& c : {Case{"1,1800,0,1,10,1", ",10,1"}, Case{"1", ""}, Case{"000000001", ""},
             Case{"000000001,", ""}, Case{"0000000001,0,0,0", ",0,0,0"}, Case{"        1,0,0,0", "0,0,0"},
             Case{"  1,0,0,0", ""}, Case{"000000001;0,0,0", "0,0,0"}}) {
        SCOPED_TRACE(c.line);
        ASSERT_TRUE(load(pointsRecord("1"), "1\r\n", c.line + "\r\n").ok());
        expectNothingReported();
        EXPECT_THAT(dustRecords(), ElementsAre("000000001," + c.dust));
    }
}

TEST_F(Loader, ElevenCharactersAreCountedNotBytesOfTheirInnerForm)
{
    ASSERT_TRUE(load(pointsRecord("1"), "1\r\n", "1\xE1\xE9\xED\xF3\xFA\x80\x81\x99,0,0,0 \xF9\r\n").ok());
    EXPECT_THAT(dustRecords(), ElementsAre("000000001,0,0,0 ů"));
}

TEST_F(Loader, DustOfAreasAndLinesIsTakenButNeverWritten)
{
    ASSERT_TRUE(load(threePoints, threeDescriptions, "000000001\r\n000000002,1,2,3\r\n000000003,x\r\n").ok());
    expectNothingReported();
    EXPECT_THAT(dustRecords(), ElementsAre("000000001,", "000000002", "000000003"));
}

}  // namespace
}  // namespace korvex
