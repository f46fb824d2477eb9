// The comment that the load dialog shows of a points file: where it is found and how much is read for it.
#include "failing_file_calls.h"

#include "first_comment.h"

#include <gtest/gtest.h>

#include <cerrno>
#include <string>
#include <string_view>

namespace korvex {
namespace {

using test::Call;

class FirstComment : public testing::Test {
protected:
    [[nodiscard]] std::string commentOf(std::string_view bytes)
    {
        const Result<std::string> comment = firstComment(folder.write("body.txt", bytes), calls);
        EXPECT_TRUE(comment.ok());
        EXPECT_EQ(calls.openFiles(), 0U);
        return comment.ok() ? comment.value() : "no result";
    }

    test::TemporaryFolder folder;
    test::FailingFileCalls calls;
};

TEST_F(FirstComment, IsTheTextBehindTheSemicolonOfTheFirstCommentLine)
{
    EXPECT_EQ(commentOf(";Obec\r\n;SOUBOR S BODY\r\n000000001, 0, 0, 0, 1, 0, 0 ;X\r\n"), "Obec");
}

TEST_F(FirstComment, IsTrimmed)
{
    EXPECT_EQ(commentOf(";  Obec a okoli \r\n"), "Obec a okoli");
}

TEST_F(FirstComment, LineMayBeginWithBlanks)
{
    EXPECT_EQ(commentOf("   ;Obec\r\n"), "Obec");
}

TEST_F(FirstComment, MayStandBehindRecordsAndEmptyLines)
{
    EXPECT_EQ(commentOf("000000001, 0, 0, 0, 1, 0, 0 ;X\r\n\r\n   \r\n;Obec\r\n"), "Obec");
}

TEST_F(FirstComment, SemicolonInsideARecordIsNoComment)
{
    EXPECT_EQ(commentOf("000000001, 0, 0, 0, 1, 0, 0 ;X\r\n"), "");
}

TEST_F(FirstComment, IsEmptyWithoutAnyCommentLine)
{
    EXPECT_EQ(commentOf(""), "");
    EXPECT_EQ(commentOf("\r\n\r\n"), "");
}

TEST_F(FirstComment, EmptyFirstCommentLineCountsAsTheFirst)
{
    EXPECT_EQ(commentOf(";\r\n;Obec\r\n"), "");
}

TEST_F(FirstComment, FurtherSemicolonsBelongToTheText)
{
    EXPECT_EQ(commentOf(";;Obec; sever\r\n"), ";Obec; sever");
}

TEST_F(FirstComment, IsReadInTheCodePage)
{
    // "Čáslav ěščřžýáíé" and the undefined byte 81.
    EXPECT_EQ(commentOf(";\xC8\xE1slav \xEC\x9A\xE8\xF8\x9E\xFD\xE1\xED\xE9\x81\r\n"), "Čáslav ěščřžýáíé\xC2\x81");
}

TEST_F(FirstComment, LineMayEndWithLfOrWithTheFile)
{
    EXPECT_EQ(commentOf(";Obec\n;x\n"), "Obec");
    EXPECT_EQ(commentOf(";Obec"), "Obec");
}

TEST_F(FirstComment, NothingIsReadBehindIt)
{
    const std::string records(std::size_t{8} * 1024 * 1024, 'x');
    static_cast<void>(commentOf(";Obec\r\n" + records));
    EXPECT_EQ(calls.count(Call::Read), 1U);
}

TEST_F(FirstComment, MissingFileIsAnErrorWithItsPath)
{
    const Result<std::string> comment = firstComment(folder.path("chybi.txt"), calls);
    ASSERT_FALSE(comment.ok());
    EXPECT_EQ(comment.error().step, FileStep::Open);
    EXPECT_EQ(comment.error().path, folder.path("chybi.txt"));
}

TEST_F(FirstComment, FolderIsAnError)
{
    const Result<std::string> comment = firstComment(folder.path(), calls);
    ASSERT_FALSE(comment.ok());
    EXPECT_EQ(comment.error().step, FileStep::Open);
    EXPECT_EQ(calls.openFiles(), 0U);
}

TEST_F(FirstComment, FailingReadIsAnErrorAndTheFileIsClosed)
{
    calls.failEvery(Call::Read, EIO);
    const Result<std::string> comment = firstComment(folder.write("body.txt", ";Obec\r\n"), calls);
    ASSERT_FALSE(comment.ok());
    EXPECT_EQ(comment.error().step, FileStep::Read);
    EXPECT_EQ(calls.openFiles(), 0U);
}

}  // namespace
}  // namespace korvex
