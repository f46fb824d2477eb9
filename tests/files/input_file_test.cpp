// Reading a file whole and line by line, against an obvious slow splitter and with reads that fall short or fail.
#include "failing_file_calls.h"

#include "input_file.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cerrno>
#include <cstddef>
#include <random>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace korvex {
namespace {

using namespace std::string_literals;
using testing::ElementsAre;

/// What LineReader reads from the system at once; lines that end about here are the ones to go wrong.
constexpr std::size_t block = std::size_t{1} << 18;

struct Line {
    std::string bytes;
    std::size_t number = 0;
    std::size_t end = 0;  // where the next one begins
    bool operator==(const Line&) const = default;
};

/// Byte by byte, without a thought for speed.
std::vector<Line> slowLines(std::string_view text)
{
    std::vector<Line> lines;
    std::string current;
    std::size_t position = 0;
    const auto finish = [&] {
        if (!current.empty() && current.back() == '\r')
            current.pop_back();
        lines.push_back({current, lines.size() + 1, position});
        current.clear();
    };
    bool begun = false;
    for (const char c : text) {
        ++position;
        if (c == '\n') {
            finish();
            begun = false;
        } else {
            current += c;
            begun = true;
        }
    }
    if (begun)
        finish();
    return lines;
}

std::vector<Line> readLines(const std::string& path, FileCalls& calls)
{
    Result<InputFile> file = InputFile::open(path, calls);
    EXPECT_TRUE(file.ok());
    if (!file.ok())
        return {};
    LineReader reader(file.value());
    std::vector<Line> lines;
    TextLine line;
    for (;;) {
        const Result<bool> more = reader.next(line);
        EXPECT_TRUE(more.ok());
        if (!more.ok() || !more.value())
            break;
        lines.push_back({std::string(line.bytes), line.number, reader.position()});
    }
    const Result<bool> again = reader.next(line);
    EXPECT_TRUE(again.ok() && !again.value()) << "the end stays the end";
    return lines;
}

/// The same text through both functions that split it.
void expectSplitLike(const test::TemporaryFolder& folder, const std::string& text, std::size_t mostRead)
{
    const std::vector<Line> expected = slowLines(text);
    test::FailingFileCalls calls;
    calls.shortTransfers(mostRead);
    EXPECT_TRUE(readLines(folder.write("text", text), calls) == expected) << "reading " << mostRead << " at once";
    EXPECT_EQ(calls.openFiles(), 0U);

    std::vector<Line> taken;
    std::string_view rest = text;
    while (!rest.empty()) {
        const std::string bytes(takeLine(rest));
        taken.push_back({bytes, taken.size() + 1, text.size() - rest.size()});
    }
    EXPECT_TRUE(taken == expected);
}

TEST(LineReader, SplitsSmallTextsLikeTheSlowSplitter)
{
    const test::TemporaryFolder folder;
    for (const std::string& text : {""s, "\n"s, "\r\n"s, "\r"s, "\r\r\n"s, "\n\n"s, "\n\r"s, "a"s, "a\n"s, "a\r"s,
             "a\r\nb"s, "\0\n\0"s, "a\rb\r\n\r\nc\n"s}) {
        SCOPED_TRACE(testing::PrintToString(text));
        for (const std::size_t mostRead : {std::size_t{1}, std::size_t{2}, block})
            expectSplitLike(folder, text, mostRead);
    }
}

TEST(LineReader, CarriageReturnBelongsToTheEndOnlyBeforeALineFeedOrAtTheEndOfTheFile)
{
    const test::TemporaryFolder folder;
    std::vector<std::string> lines;
    for (const Line& line : readLines(folder.write("text", "a\rb\r\n\r\r\n\n\rc\r"), FileCalls::system()))
        lines.push_back(line.bytes);
    EXPECT_THAT(lines, ElementsAre("a\rb", "\r", "", "\rc"));
}

TEST(LineReader, SplitsLinesThatEndAroundTheBorderOfABlock)
{
    const test::TemporaryFolder folder;
    for (const std::size_t blocks : {std::size_t{1}, std::size_t{2}, std::size_t{4}}) {
        for (std::size_t length = blocks * block - 3; length <= blocks * block + 3; ++length) {
            for (const std::string_view end : {"\n", "\r\n", "\r", ""}) {
                SCOPED_TRACE(std::to_string(length) + " and " + testing::PrintToString(end));
                const std::string text = std::string(length, 'a') + std::string(end) + "b\r\nc";
                expectSplitLike(folder, text, std::string::npos);
                expectSplitLike(folder, "\r\n" + text + std::string(end) + text, block);
            }
        }
    }
}

TEST(LineReader, SplitsRandomBytesLikeTheSlowSplitter)
{
    const test::TemporaryFolder folder;
    std::mt19937 random(48611);
    const auto below
        = [&random](std::size_t limit) { return std::uniform_int_distribution<std::size_t>(0, limit - 1)(random); };
    for (int round = 0; round < 60; ++round) {
        SCOPED_TRACE(round);
        std::string text;
        const std::size_t pieces = 1 + below(12);
        for (std::size_t i = 0; i < pieces; ++i) {
            const std::size_t kind = below(4);
            if (kind == 0) {
                text.append(block - 8 + below(16), 'x');
            } else if (kind == 1) {
                text.append(below(block), static_cast<char>(below(256)));
            } else {
                for (std::size_t length = below(300); length > 0; --length)
                    text += kind == 2 ? static_cast<char>(below(256)) : "\r\n;a"[below(4)];
            }
            if (below(3) > 0)
                text += below(2) == 0 ? "\n" : "\r\n";
        }
        expectSplitLike(folder, text, std::string::npos);
        expectSplitLike(folder, text, 1 + below(2 * block));
        expectSplitLike(folder, text, 997);
    }
}

TEST(LineReader, LineStaysValidUntilTheNextIsAskedFor)
{
    const test::TemporaryFolder folder;
    const std::string text = std::string(block - 2, 'a') + "\n" + std::string(block, 'b') + "\n";
    Result<InputFile> file = InputFile::open(folder.write("text", text), FileCalls::system());
    ASSERT_TRUE(file.ok());
    LineReader reader(file.value());
    TextLine line;
    ASSERT_TRUE(reader.next(line).value());
    EXPECT_EQ(line.bytes.size(), block - 2);
    EXPECT_EQ(line.bytes.find_first_not_of('a'), std::string_view::npos);
    ASSERT_TRUE(reader.next(line).value());
    EXPECT_EQ(line.bytes.size(), block);
    EXPECT_EQ(line.bytes.find_first_not_of('b'), std::string_view::npos);
}

TEST(LineReader, ReadErrorIsNoEndOfTheFile)
{
    const test::TemporaryFolder folder;
    const std::string path = folder.write("text", "first\nsecond\nthird");
    constexpr std::size_t openAndFstat = 2;
    test::FailingFileCalls calls;
    calls.shortTransfers(8);
    calls.failCall(openAndFstat + 2, EIO);
    Result<InputFile> file = InputFile::open(path, calls);
    ASSERT_TRUE(file.ok());
    LineReader reader(file.value());
    TextLine line;
    ASSERT_TRUE(reader.next(line).ok());
    EXPECT_EQ(line.bytes, "first");
    const Result<bool> failed = reader.next(line);
    ASSERT_FALSE(failed.ok());
    EXPECT_EQ(failed.error().step, FileStep::Read);
    EXPECT_EQ(failed.error().path, path);
    EXPECT_EQ(failed.error().description, "Chyba vstupu nebo výstupu.");
}

TEST(LineReader, InterruptedReadsAreRetried)
{
    const test::TemporaryFolder folder;
    test::FailingFileCalls calls;
    calls.shortTransfers(3);
    calls.failEverySecond(test::Call::Read, EINTR);
    const std::string text = "first\r\nsecond\nthird";
    EXPECT_TRUE(readLines(folder.write("text", text), calls) == slowLines(text));
}

TEST(InputFile, KnowsItsPathAndSize)
{
    const test::TemporaryFolder folder;
    const std::string path = folder.write("text", "12345");
    const Result<InputFile> file = InputFile::open(path, FileCalls::system());
    ASSERT_TRUE(file.ok());
    EXPECT_EQ(file.value().path(), path);
    EXPECT_EQ(file.value().size(), 5U);
}

TEST(InputFile, ReadsAllWhateverTheSystemHandsOutAtOnce)
{
    const test::TemporaryFolder folder;
    std::string text;
    for (int i = 0; i < 5000; ++i)
        text += static_cast<char>(i * 7);
    for (const std::size_t mostRead : {std::size_t{1}, std::size_t{4999}, std::size_t{5000}, std::size_t{5001}}) {
        test::FailingFileCalls calls;
        calls.shortTransfers(mostRead);
        calls.failEverySecond(test::Call::Read, EINTR);
        Result<InputFile> file = InputFile::open(folder.write("text", text), calls);
        ASSERT_TRUE(file.ok());
        const Result<FileBytes> bytes = file.value().readAll();
        ASSERT_TRUE(bytes.ok());
        EXPECT_TRUE(bytes.value().view() == text);
    }
}

TEST(InputFile, ReadsAllOfAnEmptyFile)
{
    const test::TemporaryFolder folder;
    Result<InputFile> file = InputFile::open(folder.write("text", ""), FileCalls::system());
    ASSERT_TRUE(file.ok());
    const Result<FileBytes> bytes = file.value().readAll();
    ASSERT_TRUE(bytes.ok());
    EXPECT_EQ(bytes.value().view(), "");
}

TEST(InputFile, ReadsAllOfAFileThatGrowsOrShrinksAfterItWasOpened)
{
    const test::TemporaryFolder folder;
    for (const std::size_t newSize : {std::size_t{0}, std::size_t{3}, std::size_t{11}, std::size_t{100000}}) {
        const std::string path = folder.write("text", "0123456789");
        Result<InputFile> file = InputFile::open(path, FileCalls::system());
        ASSERT_TRUE(file.ok());
        const std::string grown(newSize, 'g');
        folder.write("text", grown);
        const Result<FileBytes> bytes = file.value().readAll();
        ASSERT_TRUE(bytes.ok());
        EXPECT_TRUE(bytes.value().view() == grown);
    }
}

TEST(InputFile, FailingReadOfAllIsReported)
{
    const test::TemporaryFolder folder;
    const std::string path = folder.write("text", "0123456789");
    for (const std::size_t failingRead : {std::size_t{1}, std::size_t{2}, std::size_t{11}}) {
        constexpr std::size_t openAndFstat = 2;
        test::FailingFileCalls calls;
        calls.shortTransfers(1);
        calls.failCall(openAndFstat + failingRead, EIO);
        Result<InputFile> file = InputFile::open(path, calls);
        ASSERT_TRUE(file.ok());
        const Result<FileBytes> bytes = file.value().readAll();
        ASSERT_FALSE(bytes.ok());
        EXPECT_EQ(bytes.error().step, FileStep::Read);
        EXPECT_EQ(bytes.error().path, path);
    }
}

TEST(InputFile, IsClosedOnceHoweverOftenItIsMoved)
{
    const test::TemporaryFolder folder;
    test::FailingFileCalls calls;
    {
        Result<InputFile> file = InputFile::open(folder.write("text", "a"), calls);
        ASSERT_TRUE(file.ok());
        InputFile first(std::move(file.value()));
        const InputFile second(std::move(first));
        EXPECT_EQ(calls.openFiles(), 1U);
    }
    EXPECT_EQ(calls.openFiles(), 0U);
    EXPECT_EQ(calls.count(test::Call::Close), 1U);
}

TEST(InputFile, RefusedFileIsClosedAgain)
{
    const test::TemporaryFolder folder;
    test::FailingFileCalls calls;
    EXPECT_FALSE(InputFile::open(folder.path(), calls).ok());
    EXPECT_EQ(calls.count(test::Call::Open), 1U);
    EXPECT_EQ(calls.openFiles(), 0U);
}

}  // namespace
}  // namespace korvex
