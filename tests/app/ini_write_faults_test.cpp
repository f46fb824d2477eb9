// Writing into a caller's INI file while calls to the system fail or the program is killed: the file is the caller's,
// so what else stands in it has to outlast our troubles.
#include "child_process.h"
#include "failing_file_calls.h"

#include "ini_write.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <array>
#include <cerrno>
#include <cstddef>
#include <filesystem>
#include <limits>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace korvex {
namespace {

namespace fs = std::filesystem;
using test::Call;
using test::ChildEnd;
using test::FailingFileCalls;
using testing::ElementsAre;
using testing::StartsWith;

constexpr std::size_t mostCalls = 1000;
constexpr std::size_t wholeWrites = std::numeric_limits<std::size_t>::max();
constexpr std::array<std::size_t, 4> writeSizes{1, 7, 4096, wholeWrites};

const std::string linesInFront = "; nastaven\xED\r\n[Jine]\r\nKlic=1\r\n\r\n[Global]\r\n";
const std::string linesBehind = "VstZdrojPopTxt=p.txt\r\n[Zbytek]\r\nKlic=2\r\n";

/// A file that grows by the new value, one that shrinks, one that does not exist yet and one larger than a page.
struct Change {
    std::string_view name;
    std::optional<std::string> before;
    std::string value;
    std::string after;
};

std::vector<Change> changes()
{
    std::string large;
    for (int line = 0; line < 400; ++line)
        large += "Klic" + std::to_string(line) + "=hodnota\r\n";
    const std::string key = "VstZdrojBodTxt=";
    const std::string oldValue = "/data/stary soubor.txt\r\n";
    return {
        {"growing", linesInFront + key + "x\r\n" + linesBehind, "/data/novy soubor.txt",
            linesInFront + key + "/data/novy soubor.txt\r\n" + linesBehind},
        {"shrinking", linesInFront + key + oldValue + linesBehind, "x", linesInFront + key + "x\r\n" + linesBehind},
        {"missing", std::nullopt, "x", "[Global]\r\n" + key + "x\r\n"},
        {"large", linesInFront + key + oldValue + linesBehind + large, "/data/jiny.txt",
            linesInFront + key + "/data/jiny.txt\r\n" + linesBehind + large},
    };
}

/// Up to some byte the new content, from there on the old one.
bool isWrittenOver(const std::string& bytes, const Change& change)
{
    if (!change.before || bytes.size() != change.before->size())
        return false;
    std::size_t written = 0;
    while (written < bytes.size() && written < change.after.size() && bytes[written] == change.after[written])
        ++written;
    return std::string_view(bytes).substr(written) == std::string_view(*change.before).substr(written);
}

class IniWriteFaults : public testing::Test {
protected:
    void lay(const Change& change) const
    {
        fs::remove(path);
        if (change.before)
            folder.write("caller.ini", *change.before);
    }
    void writeValue(const Change& change, FileCalls& calls) const
    {
        iniWrite(path, "Global", "VstZdrojBodTxt", change.value, SafetyCopies(""), calls);
    }
    [[nodiscard]] bool isAsBefore(const Change& change) const
    {
        return change.before ? folder.bytes("caller.ini") == *change.before : !folder.has("caller.ini");
    }

    test::TemporaryFolder folder{test::FolderOn::Memory};
    const std::string path = folder.path("caller.ini");
};

TEST_F(IniWriteFaults, OneFailingCallLeavesTheOldFileUntilTheFirstByteIsWritten)
{
    for (const int errorNumber : {ENOSPC, EIO, EACCES, EDQUOT, EINTR}) {
        for (const std::size_t mostMoved : writeSizes) {
            for (const Change& change : changes()) {
                // One byte of thousands after the other shows nothing new.
                if (change.name == "large" && mostMoved < 4096)
                    continue;
                std::size_t n = 1;
                for (bool through = false; !through && n < mostCalls; ++n) {
                    SCOPED_TRACE(std::string(change.name) + ", errno " + std::to_string(errorNumber) + ", at most "
                        + std::to_string(mostMoved) + ", call " + std::to_string(n));
                    lay(change);
                    FailingFileCalls calls;
                    calls.skipFlushing();
                    calls.shortTransfers(mostMoved);
                    calls.failCall(n, errorNumber);
                    writeValue(change, calls);
                    through = calls.count() < n;
                    EXPECT_EQ(calls.openFiles(), 0U);
                    if (calls.count(Call::Write) == 0) {
                        EXPECT_TRUE(isAsBefore(change));
                        FailingFileCalls healthy;
                        healthy.skipFlushing();
                        writeValue(change, healthy);
                        EXPECT_EQ(folder.bytes("caller.ini"), change.after) << "a second try";
                    } else if (!isAsBefore(change)) {
                        EXPECT_THAT(change.after, StartsWith(folder.bytes("caller.ini")));
                    }
                    if (!isAsBefore(change)) {
                        EXPECT_THAT(folder.names(), ElementsAre("caller.ini"));
                    }
                }
                EXPECT_GT(n, 8U);
                ASSERT_LT(n, mostCalls);
                EXPECT_EQ(folder.bytes("caller.ini"), change.after);
            }
        }
    }
}

TEST_F(IniWriteFaults, WhenAllCallsFailFromOneOnTheOldFileStaysUntilTheFirstByteIsWritten)
{
    for (const int errorNumber : {ENOSPC, EIO, EACCES, EDQUOT}) {
        for (const std::size_t mostMoved : writeSizes) {
            for (const Change& change : changes()) {
                if (change.name == "large" && mostMoved < 4096)
                    continue;
                std::size_t n = 1;
                for (bool through = false; !through && n < mostCalls; ++n) {
                    SCOPED_TRACE(std::string(change.name) + ", at most " + std::to_string(mostMoved) + ", from call "
                        + std::to_string(n));
                    lay(change);
                    FailingFileCalls calls;
                    calls.skipFlushing();
                    calls.shortTransfers(mostMoved);
                    calls.failFrom(n, errorNumber);
                    writeValue(change, calls);
                    through = calls.count() < n;
                    EXPECT_EQ(calls.openFiles(), 0U);
                    // A disk that refuses everything does not let a new file be taken away again.
                    const bool isLeftOver = !change.before && folder.has("caller.ini") && fs::is_empty(path);
                    if (calls.count(Call::Write) == 0) {
                        EXPECT_TRUE(isAsBefore(change) || isLeftOver);
                    } else {
                        const std::string bytes = folder.bytes("caller.ini");
                        EXPECT_TRUE(change.after.starts_with(bytes) || isWrittenOver(bytes, change)) << bytes;
                    }
                }
                EXPECT_GT(n, 8U);
                ASSERT_LT(n, mostCalls);
                EXPECT_EQ(folder.bytes("caller.ini"), change.after);
            }
        }
    }
}

TEST_F(IniWriteFaults, SignalsDoNotHinderIt)
{
    for (const Call kind : {Call::Read, Call::Reserve, Call::Write, Call::Ftruncate, Call::Fsync}) {
        for (const Change& change : changes()) {
            lay(change);
            FailingFileCalls calls;
            calls.skipFlushing();
            calls.failEverySecond(kind, EINTR);
            writeValue(change, calls);
            EXPECT_EQ(folder.bytes("caller.ini"), change.after) << change.name;
            EXPECT_EQ(calls.openFiles(), 0U);
        }
    }
}

/// An ordinary file takes what it is given in one piece, so this is what a killed program leaves.
TEST_F(IniWriteFaults, ProgramKilledBetweenTwoCallsHasLostNoneOfTheCallersLines)
{
    for (const Change& change : changes()) {
        std::size_t asBefore = 0;
        std::size_t n = 1;
        for (; n < mostCalls; ++n) {
            SCOPED_TRACE(std::string(change.name) + ", killed before call " + std::to_string(n));
            lay(change);
            const ChildEnd end = test::inChild([this, &change, n] {
                FailingFileCalls calls;
                calls.skipFlushing();
                calls.killBefore(n);
                writeValue(change, calls);
            });
            if (!end.wasKilled()) {
                EXPECT_EQ(end.exitCode, test::childPassed);
                EXPECT_EQ(folder.bytes("caller.ini"), change.after);
                break;
            }
            const bool isLeftOver = !change.before && folder.has("caller.ini") && fs::is_empty(path);
            if (isAsBefore(change) || isLeftOver) {
                ++asBefore;
                FailingFileCalls healthy;
                healthy.skipFlushing();
                writeValue(change, healthy);
                EXPECT_EQ(folder.bytes("caller.ini"), change.after) << "the next write";
            } else {
                EXPECT_THAT(folder.bytes("caller.ini"), StartsWith(change.after));
                EXPECT_TRUE(
                    isWrittenOver(folder.bytes("caller.ini"), change) || folder.bytes("caller.ini") == change.after);
            }
        }
        EXPECT_GT(asBefore, 3U);
        EXPECT_GT(n, 8U);
        ASSERT_LT(n, mostCalls);
    }
}

TEST_F(IniWriteFaults, ProgramKilledInTheMiddleOfWritingHasTouchedNoByteBehindWhatItWrote)
{
    const std::vector<Change> all = changes();
    for (const Change& change : all) {
        std::size_t halfWritten = 0;
        std::size_t n = 1;
        const std::size_t mostMoved = change.name == "large" ? 512 : 7;
        for (; n < mostCalls; ++n) {
            SCOPED_TRACE(std::string(change.name) + ", killed before call " + std::to_string(n));
            lay(change);
            const ChildEnd end = test::inChild([this, &change, mostMoved, n] {
                FailingFileCalls calls;
                calls.skipFlushing();
                calls.shortTransfers(mostMoved);
                calls.killBefore(n);
                writeValue(change, calls);
            });
            if (!end.wasKilled()) {
                EXPECT_EQ(end.exitCode, test::childPassed);
                EXPECT_EQ(folder.bytes("caller.ini"), change.after);
                break;
            }
            if (isAsBefore(change))
                continue;
            const std::string bytes = folder.bytes("caller.ini");
            EXPECT_TRUE(change.after.starts_with(bytes) || isWrittenOver(bytes, change)) << bytes;
            halfWritten += bytes == change.after ? 0U : 1U;
        }
        EXPECT_GT(halfWritten, 1U);
        ASSERT_LT(n, mostCalls);
    }
}

TEST_F(IniWriteFaults, FullDeviceAtItsPlaceIsLeftAlone)
{
    fs::create_symlink("/dev/full", path);
    FailingFileCalls calls;
    writeValue(changes().front(), calls);
    EXPECT_TRUE(fs::is_symlink(path));
    EXPECT_EQ(calls.count(Call::Write), 0U);
    EXPECT_EQ(calls.openFiles(), 0U);
}

TEST_F(IniWriteFaults, LinkToAFileThatCannotBeMadeStays)
{
    fs::create_symlink("novy.ini", path);
    FailingFileCalls full;
    full.failEvery(Call::Reserve, ENOSPC);
    writeValue(changes().front(), full);
    EXPECT_THAT(folder.names(), ElementsAre("caller.ini"));
    EXPECT_TRUE(fs::is_symlink(path));

    writeValue(changes().front(), FileCalls::system());
    EXPECT_EQ(folder.bytes("novy.ini"), "[Global]\r\nVstZdrojBodTxt=/data/novy soubor.txt\r\n");
    EXPECT_TRUE(fs::is_symlink(path));
}

}  // namespace
}  // namespace korvex
