// Writing into a caller's INI file: what it holds afterwards, and that nothing is lost where it cannot be written.
#include "failing_file_calls.h"

#include "ini_write.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cerrno>
#include <cstddef>
#include <filesystem>
#include <string>
#include <sys/stat.h>

namespace korvex {
namespace {

namespace fs = std::filesystem;
using test::Call;
using test::FailingFileCalls;
using test::OrdinaryUser;
using test::TemporaryFolder;
using testing::ElementsAre;
using testing::IsEmpty;
using testing::StartsWith;

const std::string callersFile = "; nastaven\xED\r\n[Jine]\r\nKlic=1\r\n\r\n[Global]\r\nVstZdrojBodTxt=stary.txt\r\n";
const std::string withNewValue
    = "; nastaven\xED\r\n[Jine]\r\nKlic=1\r\n\r\n[Global]\r\nVstZdrojBodTxt=/data/novy soubor.txt\r\n";

void writeNewValue(const std::string& path, FileCalls& calls = FileCalls::system())
{
    iniWrite(path, "Global", "VstZdrojBodTxt", "/data/novy soubor.txt", SafetyCopies(""), calls);
}

class IniWrite : public testing::Test {
protected:
    TemporaryFolder folder;
    const std::string path = folder.path("caller.ini");
};

TEST_F(IniWrite, AMissingFileIsCreated)
{
    iniWrite(path, "Global", "VstZdrojBodTxt", "/data/body.txt", SafetyCopies(""));
    EXPECT_EQ(folder.bytes("caller.ini"), "[Global]\r\nVstZdrojBodTxt=/data/body.txt\r\n");
}

TEST_F(IniWrite, AnEmptyFileGetsTheSection)
{
    folder.write("caller.ini", "");
    iniWrite(path, "Global", "VstZdrojBodTxt", "", SafetyCopies(""));
    EXPECT_EQ(folder.bytes("caller.ini"), "[Global]\r\nVstZdrojBodTxt=\r\n");
}

TEST_F(IniWrite, EveryOtherLineIsKept)
{
    folder.write("caller.ini", callersFile);
    writeNewValue(path);
    EXPECT_EQ(folder.bytes("caller.ini"), withNewValue);
}

TEST_F(IniWrite, TheThreePathsOfASaveStandInOrder)
{
    iniWrite(path, "Global", "VstZdrojBodTxt", "b", SafetyCopies(""));
    iniWrite(path, "Global", "VstZdrojPopTxt", "p", SafetyCopies(""));
    iniWrite(path, "Global", "VstZdrojPrachTxt", "", SafetyCopies(""));
    EXPECT_EQ(folder.bytes("caller.ini"), "[Global]\r\nVstZdrojBodTxt=b\r\nVstZdrojPopTxt=p\r\nVstZdrojPrachTxt=\r\n");
}

TEST_F(IniWrite, TheSameKeyTwiceLeavesTheLastValue)
{
    iniWrite(path, "Global", "VstZdrojBodTxt", "/data/a_much_longer_name.txt", SafetyCopies(""));
    iniWrite(path, "Global", "VstZdrojBodTxt", "/b", SafetyCopies(""));
    EXPECT_EQ(folder.bytes("caller.ini"), "[Global]\r\nVstZdrojBodTxt=/b\r\n");
}

TEST_F(IniWrite, CzechTextsAreWrittenInTheCodePage)
{
    iniWrite(path, "Žár", "Klíč", "/data/Čeřen.txt", SafetyCopies(""));
    EXPECT_EQ(folder.bytes("caller.ini"),
        "[\x8E\xE1r]\r\nKl\xED\xE8=/data/\xC8"
        "e\xF8"
        "en.txt\r\n");
    // The names are found again in the file's own bytes.
    iniWrite(path, "Žár", "Klíč", "x", SafetyCopies(""));
    EXPECT_EQ(folder.bytes("caller.ini"), "[\x8E\xE1r]\r\nKl\xED\xE8=x\r\n");
}

TEST_F(IniWrite, ACharacterThatTheCodePageLacksIsWrittenAsAQuestionMark)
{
    iniWrite(path, "Global", "VstZdrojBodTxt", "/α/日/\xF0\x9F\x8F\xAD.txt", SafetyCopies(""));
    EXPECT_EQ(folder.bytes("caller.ini"), "[Global]\r\nVstZdrojBodTxt=/?/?/?.txt\r\n");
}

TEST_F(IniWrite, AMissingFolderIsNotMade)
{
    writeNewValue(folder.path("missing/caller.ini"));
    EXPECT_THAT(folder.names(), IsEmpty());
}

TEST_F(IniWrite, AFolderInTheFilesPlaceStays)
{
    ASSERT_TRUE(fs::create_directories(folder.path("caller.ini/inside")));
    writeNewValue(path);
    EXPECT_THAT(folder.names(), ElementsAre("caller.ini"));
    EXPECT_TRUE(fs::is_directory(folder.path("caller.ini/inside")));
}

TEST_F(IniWrite, AFileInTheFoldersPlaceStays)
{
    folder.write("caller.ini", callersFile);
    writeNewValue(folder.path("caller.ini/inner.ini"));
    EXPECT_EQ(folder.bytes("caller.ini"), callersFile);
    EXPECT_THAT(folder.names(), ElementsAre("caller.ini"));
}

TEST_F(IniWrite, AnEmptyPathDoesNothing)
{
    FailingFileCalls calls;
    writeNewValue("", calls);
    EXPECT_EQ(calls.count(Call::Write), 0U);
    EXPECT_EQ(calls.openFiles(), 0U);
}

TEST_F(IniWrite, AReadOnlyFileIsLeftAsItWas)
{
    folder.write("caller.ini", callersFile);
    fs::permissions(folder.path(), fs::perms::all);
    fs::permissions(path, fs::perms::owner_read | fs::perms::group_read | fs::perms::others_read);
    {
        const OrdinaryUser ordinary;
        if (!ordinary.isOrdinary())
            GTEST_SKIP() << "the administrator may write everything";
        writeNewValue(path);
    }
    EXPECT_EQ(folder.bytes("caller.ini"), callersFile);
    EXPECT_THAT(folder.names(), ElementsAre("caller.ini"));
}

TEST_F(IniWrite, AFileThatMayBeWrittenButNotReadIsLeftAsItWas)
{
    folder.write("caller.ini", callersFile);
    fs::permissions(folder.path(), fs::perms::all);
    fs::permissions(path, fs::perms::owner_write | fs::perms::group_write | fs::perms::others_write);
    {
        const OrdinaryUser ordinary;
        if (!ordinary.isOrdinary())
            GTEST_SKIP() << "the administrator may read everything";
        writeNewValue(path);
    }
    fs::permissions(path, fs::perms::owner_all);
    EXPECT_EQ(folder.bytes("caller.ini"), callersFile);
}

TEST_F(IniWrite, APipeInTheFilesPlaceDoesNotHoldTheProgram)
{
    ASSERT_EQ(::mkfifo(path.c_str(), 0600), 0);
    writeNewValue(path);
    EXPECT_TRUE(fs::is_fifo(path));
}

TEST_F(IniWrite, ALinkAndTheFilesModeStay)
{
    folder.write("real.ini", callersFile);
    fs::permissions(folder.path("real.ini"), fs::perms::owner_read | fs::perms::owner_write);
    fs::create_symlink("real.ini", path);
    writeNewValue(path);
    EXPECT_TRUE(fs::is_symlink(path));
    EXPECT_EQ(folder.bytes("real.ini"), withNewValue);
    EXPECT_EQ(fs::status(path).permissions(), fs::perms::owner_read | fs::perms::owner_write);
}

TEST_F(IniWrite, AFileInPiecesIsReadWhole)
{
    folder.write("caller.ini", callersFile);
    FailingFileCalls calls;
    calls.shortTransfers(7);
    writeNewValue(path, calls);
    EXPECT_EQ(folder.bytes("caller.ini"), withNewValue);
    EXPECT_GT(calls.count(Call::Read), 5U);
    EXPECT_GT(calls.count(Call::Write), 5U);
}

/// What a file may hold after one call failed, by the kind of that call.
void expectOldOrNew(Call failed, const std::string& bytes, const std::string& before, const std::string& after)
{
    switch (failed) {
    case Call::Open:
    case Call::Fstat:
    case Call::Read:
    case Call::Reserve:
        EXPECT_EQ(bytes, before);
        break;
    case Call::Write:
        // Nothing was written yet.
        EXPECT_EQ(bytes, before);
        break;
    case Call::Ftruncate:  // the cut is tried once more
    case Call::Fsync:
    case Call::Close:
    case Call::Unlink:
        EXPECT_EQ(bytes, after);
        break;
    }
}

TEST_F(IniWrite, EachCallMayFailAndTheFileHoldsTheOldOrTheNew)
{
    constexpr std::size_t mostCalls = 100;
    const std::string shortValue = "x";
    const std::string shortened = "; nastaven\xED\r\n[Jine]\r\nKlic=1\r\n\r\n[Global]\r\nVstZdrojBodTxt=x\r\n";
    for (const std::string& after : {withNewValue, shortened}) {
        std::size_t n = 1;
        for (; n < mostCalls; ++n) {
            SCOPED_TRACE(n);
            folder.write("caller.ini", callersFile);
            FailingFileCalls calls;
            calls.failCall(n, EIO);
            iniWrite(path, "Global", "VstZdrojBodTxt", after == shortened ? shortValue : "/data/novy soubor.txt",
                SafetyCopies(""), calls);
            EXPECT_EQ(calls.openFiles(), 0U);
            EXPECT_THAT(folder.names(), ElementsAre("caller.ini"));
            if (!calls.lastFailed())
                break;
            expectOldOrNew(*calls.lastFailed(), folder.bytes("caller.ini"), callersFile, after);
        }
        EXPECT_EQ(folder.bytes("caller.ini"), after);
        // Read, write, and what goes with them: fewer calls would mean that nothing was tried.
        EXPECT_GT(n, 8U);
        EXPECT_LT(n, mostCalls);
    }
}

TEST_F(IniWrite, ANewFileThatCannotBeWrittenDoesNotStayBehindBeforeTheFirstByte)
{
    FailingFileCalls calls;
    calls.failEvery(Call::Reserve, ENOSPC);
    writeNewValue(path, calls);
    EXPECT_THAT(folder.names(), IsEmpty());
}

TEST_F(IniWrite, AFullDiskLeavesTheFileAsItWas)
{
    folder.write("caller.ini", callersFile);
    FailingFileCalls calls;
    calls.failEvery(Call::Reserve, ENOSPC);
    writeNewValue(path, calls);
    EXPECT_EQ(folder.bytes("caller.ini"), callersFile);
}

}  // namespace
}  // namespace korvex
