// What counts as a line of the inventory files: line ends, blank and comment lines, odd bytes and very long lines.
#include "failing_file_calls.h"

#include "loader.h"
#include "source_set.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace korvex {
namespace {

using namespace std::string_literals;
using testing::ElementsAre;

/// Lines of the three files, to be joined by one line end or another.
const std::vector<std::string> pointsLines{
    "; Soupis", "000000001, 1, 2, 3, 1, 4, 5 ;Prvni zdroj", "", "000000002, 6, 7, 8, 2, 9, 10 ;Druhy"};
const std::vector<std::string> descriptionLines{";Popis", " ", "000000001, 1.5, 2", "000000002, 3"};
const std::vector<std::string> dustLines{";Prach", "000000001,1800,2", "\t", "000000002"};

std::string joined(const std::vector<std::string>& lines, std::string_view lineEnd, std::string_view lastLineEnd)
{
    std::string text;
    for (std::size_t i = 0; i < lines.size(); ++i) {
        text += lines[i];
        text += i + 1 < lines.size() ? lineEnd : lastLineEnd;
    }
    return text;
}

class LoaderLines : public testing::Test {
protected:
    Result<void> load(std::string_view points, std::string_view description, std::string_view dust)
    {
        LoadRequest request;
        request.files = {
            folder.write("body.txt", points), folder.write("popis.txt", description), folder.write("prach.txt", dust)};
        report = {};
        listener.clear();
        return loadSourceSet(request, set, report, listener);
    }

    void expectTheTwoSources() const
    {
        EXPECT_EQ(report.comment, "Soupis");
        EXPECT_TRUE(report.missingDescription.empty());
        EXPECT_TRUE(report.missingDust.empty());
        EXPECT_TRUE(report.unknownType.empty());
        ASSERT_EQ(set.size(), 2U);
        EXPECT_EQ(set.at(1).LineSource(), "000000001, 0000001, 0000002, 0003, 1, 4, 5 ;Prvni zdroj");
        EXPECT_EQ(set.at(1).LineParameters(), "000000001, 1.5, 2, 0, 0, 0, 0, 0, 0, 0");
        EXPECT_EQ(set.at(1).LineDust(), "000000001,1800,2");
        EXPECT_EQ(set.at(2).LineSource(), "000000002, 0000006, 0000007, 0008, 2, 9, 10 ;Druhy");
        EXPECT_EQ(set.at(2).LineParameters(), "000000002, 3, 0, 0, 0, 0, 0, 0, 0, 0");
        EXPECT_EQ(set.at(2).LineDust(), "000000002");
    }

    /// Loads one stack with the number 1 and this text behind the semicolon of its points record.
    std::string loadedName(std::string_view nameBytes)
    {
        const std::string points = "000000001, 0, 0, 0, 1, 0, 0 ;" + std::string(nameBytes) + "\r\n";
        EXPECT_TRUE(load(points, "1\r\n", "1\r\n").ok());
        EXPECT_EQ(set.size(), 1U);
        return set.empty() ? "" : std::string(set.at(1).NazevZdroje());
    }

    test::TemporaryFolder folder;
    SourceSet set;
    LoadReport report;
    test::RecordingListener listener;
};

TEST_F(LoaderLines, EveryLineEndReadsAlikeWithAndWithoutALastOne)
{
    for (const std::string_view lineEnd : {"\r\n", "\n"}) {
        for (const std::string_view lastLineEnd : {lineEnd, std::string_view("")}) {
            SCOPED_TRACE(testing::PrintToString(lineEnd) + " and at last " + testing::PrintToString(lastLineEnd));
            ASSERT_TRUE(load(joined(pointsLines, lineEnd, lastLineEnd), joined(descriptionLines, lineEnd, lastLineEnd),
                joined(dustLines, lineEnd, lastLineEnd))
                            .ok());
            expectTheTwoSources();
        }
    }
}

TEST_F(LoaderLines, LineEndsMayDifferFromFileToFile)
{
    ASSERT_TRUE(
        load(joined(pointsLines, "\n", "\r\n"), joined(descriptionLines, "\r\n", "\n"), joined(dustLines, "\n", ""))
            .ok());
    expectTheTwoSources();
}

TEST_F(LoaderLines, LineEndsMayDifferWithinAFile)
{
    ASSERT_TRUE(load(pointsLines[0] + "\n" + pointsLines[1] + "\r\n" + pointsLines[2] + "\n" + pointsLines[3],
        descriptionLines[2] + "\n" + descriptionLines[3] + "\r\n", dustLines[1] + "\r\n" + dustLines[3] + "\n")
                    .ok());
    expectTheTwoSources();
}

TEST_F(LoaderLines, CarriageReturnAloneEndsNoLine)
{
    EXPECT_EQ(loadedName("Prvni\rzdroj"), "Prvni\rzdroj");
    EXPECT_EQ(loadedName("Zdroj\r"), "Zdroj\r") << "one carriage return belongs to the line's end, the other does not";
}

TEST_F(LoaderLines, FileOfCarriageReturnsAloneIsOneLine)
{
    ASSERT_TRUE(load("000000001, 0, 0, 0, 1, 0, 0 ;a\r000000002, 0, 0, 0, 1, 0, 0 ;b\r", "1\r2\r", "1\r").ok());
    ASSERT_EQ(set.size(), 1U);
    EXPECT_EQ(set.at(1).NazevZdroje(), "a\r000000002, 0, 0, 0, 1, 0, 0 ");
}

TEST_F(LoaderLines, BlankAndCommentLinesAreSkippedInAllFilesButCounted)
{
    const std::string between = "\r\n   \r\n\t\r\n;\r\n; x\r\n  \t;1, 2\r\n \n";
    std::string points = between;
    std::string description = between;
    std::string dust = between;
    for (const std::string number : {"1", "2"}) {
        points += number + ", 0, 0, 0, 1, 0, 0 ;\r\n" + between;
        description += number + ", 5\r\n" + between;
        dust += "00000000" + number + ",d\r\n" + between;
    }
    points += "3, 0, 0, 0, 1, 0, 0 ;";
    ASSERT_TRUE(load(points, description, dust).ok());
    EXPECT_EQ(set.size(), 3U);
    ASSERT_EQ(report.missingDescription.size(), 1U);
    EXPECT_EQ(report.missingDescription[0].number, 3);
    EXPECT_EQ(report.missingDescription[0].line, 24U);
    EXPECT_TRUE(report.missingDust.empty());
    EXPECT_TRUE(report.unknownType.empty());
}

TEST_F(LoaderLines, RecordMayBeginWithBlanks)
{
    ASSERT_TRUE(load(" \t 1, 0, 0, 0, 1, 0, 0 ;a\r\n", "\t1, 5\r\n", "        1,d\r\n").ok());
    ASSERT_EQ(set.size(), 1U);
    EXPECT_EQ(set.at(1).Parameters(0), 5.0F);
    EXPECT_EQ(set.at(1).LineDust(), "000000001,d");
}

TEST_F(LoaderLines, NulBytesAreCharactersLikeOthers)
{
    EXPECT_EQ(loadedName("a\0b\0"s), "a\0b\0"s);
    ASSERT_TRUE(load("1\0, 1\0007, 2, 3, 1, 4, 5 ;\0\r\n"s, "1, 2\0003, 4\0\r\n"s, "00000000\0001,\0\r\n"s).ok());
    ASSERT_EQ(set.size(), 1U);
    EXPECT_EQ(set.at(1).X(), 1) << "a NUL ends the number";
    EXPECT_EQ(set.at(1).Parameters(0), 2.0F);
    EXPECT_EQ(set.at(1).Parameters(1), 4.0F);
    EXPECT_EQ(set.at(1).NazevZdroje(), "\0"s);
}

TEST_F(LoaderLines, EveryByteOfANameBecomesItsCharacter)
{
    EXPECT_EQ(loadedName("\x80\x81\x83\x88\x90\x98\xA0\xFF"), "€\u0081\u0083\u0088\u0090\u0098\u00A0˙");
}

TEST_F(LoaderLines, NoEncodingIsGuessedFromAByteOrderMark)
{
    ASSERT_TRUE(load("\xEF\xBB\xBF;Soupis\r\n", "", "").ok());
    EXPECT_EQ(report.comment, std::nullopt);
    ASSERT_EQ(report.unknownType.size(), 1U);
    EXPECT_EQ(report.unknownType[0].line, 1U);
}

TEST_F(LoaderLines, LinesOfTenMegabytesAreReadWhole)
{
    const std::string longText(std::size_t{10} << 20, 'x');
    ASSERT_TRUE(load(";" + longText + "\r\n1, 0, 0, 0, 1, 0, 0 ;" + longText + "\r\n2, 0, 0, 0, 1, 0, 0 ;b\r\n",
        ";" + longText + "\r\n1, 5, 6" + longText + "\r\n2, 7\r\n",
        ";" + longText + "\r\n000000001," + longText + "\r\n000000002,e\r\n")
                    .ok());
    EXPECT_TRUE(report.comment == longText);
    ASSERT_EQ(set.size(), 2U);
    EXPECT_TRUE(set.at(1).NazevZdroje() == longText);
    EXPECT_EQ(set.at(1).Parameters(1), 6.0F);
    EXPECT_TRUE(set.at(1).LineDust() == "000000001," + longText);
    EXPECT_EQ(set.at(2).NazevZdroje(), "b");
    EXPECT_EQ(set.at(2).Parameters(0), 7.0F);
    EXPECT_EQ(set.at(2).LineDust(), "000000002,e");
}

TEST_F(LoaderLines, FieldOfTenMegabytesIsOneNumber)
{
    const std::string zeros(std::size_t{10} << 20, '0');
    ASSERT_TRUE(load(zeros + "12, 1, 2, 3, 1, 4, 5 ;a\r\n", zeros + "12, 5\r\n", zeros + "12\r\n").ok());
    ASSERT_EQ(set.size(), 1U);
    EXPECT_EQ(set.at(1).ICZ(), 12);
    EXPECT_EQ(set.at(1).Parameters(0), 5.0F);
    EXPECT_TRUE(report.missingDust.empty());
}

TEST_F(LoaderLines, EmptyFilesGiveAnEmptySet)
{
    set.modified(true);
    ASSERT_TRUE(load("", "", "").ok());
    EXPECT_TRUE(set.empty());
    EXPECT_EQ(report.comment, std::nullopt);
    EXPECT_FALSE(set.modified());
    EXPECT_THAT(listener.maxima, ElementsAre(0U));
}

TEST_F(LoaderLines, FilesOfNothingButCommentsGiveAnEmptySet)
{
    ASSERT_TRUE(load(";Soupis\r\n;SOUBOR S BODY\r\n\r\n \r\n;", ";Soupis\r\n", " ;x").ok());
    EXPECT_TRUE(set.empty());
    EXPECT_EQ(report.comment, "Soupis");
    EXPECT_TRUE(report.unknownType.empty());
}

TEST_F(LoaderLines, EmptyDescriptionAndDustFilesLeaveEverySourceWithoutPartner)
{
    ASSERT_TRUE(load(joined(pointsLines, "\r\n", ""), "", "").ok());
    EXPECT_EQ(set.size(), 2U);
    EXPECT_EQ(report.missingDescription.size(), 2U);
    EXPECT_TRUE(report.missingDust.empty());
}

}  // namespace
}  // namespace korvex
