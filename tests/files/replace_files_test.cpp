// Replacing files while calls to the system fail one after the other: what each file holds afterwards and what is said.
#include "failing_file_calls.h"
#include "file_size_limit.h"

#include "replace_files.h"
#include "saver.h"
#include "source_rows.h"
#include "source_set.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <array>
#include <cerrno>
#include <chrono>
#include <cstddef>
#include <filesystem>
#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace korvex {
namespace {

namespace fs = std::filesystem;
using test::Call;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::Not;

constexpr std::size_t mostCalls = 500;  // no save of these tests needs more

/// A file before and after it is replaced.
struct Change {
    std::string name;
    std::optional<std::string> before;  // none: the file does not exist yet
    std::string after;
};

Replacement replacement(const std::string& path, std::string_view bytes)
{
    Replacement made;
    made.path = path;
    made.bytes.room() += bytes;
    return made;
}

/// Longer, shorter and new files, in an order that has each kind in front of the others once.
std::vector<std::vector<Change>> allChanges()
{
    const Change longer{"longer.txt", std::string(10, 'o'), std::string(300, 'L')};
    const Change shorter{"shorter.txt", std::string(300, 'o'), std::string(20, 'S')};
    const Change created{"created.txt", std::nullopt, std::string(100, 'C')};
    const Change emptied{"emptied.txt", std::string(50, 'o'), ""};
    const Change same{"same.txt", std::string(50, 'o'), std::string(50, 's')};
    return {{longer, shorter, created}, {shorter, created, longer}, {created, longer, shorter},
        {emptied, created, same}, {created, emptied, shorter}};
}

class ReplaceFiles : public testing::Test {
protected:
    void lay(const std::vector<Change>& changes) const
    {
        for (const Change& change : changes) {
            fs::remove(folder.path(change.name));
            if (change.before)
                folder.write(change.name, *change.before);
        }
    }
    [[nodiscard]] std::vector<Replacement> replacements(const std::vector<Change>& changes) const
    {
        std::vector<Replacement> made;
        for (const Change& change : changes)
            made.push_back(replacement(folder.path(change.name), change.after));
        return made;
    }
    [[nodiscard]] bool isAsBefore(const Change& change) const
    {
        return change.before ? folder.has(change.name) && folder.bytes(change.name) == *change.before
                             : !folder.has(change.name);
    }
    [[nodiscard]] bool isReplaced(const Change& change) const
    {
        return folder.has(change.name) && folder.bytes(change.name) == change.after;
    }
    /// Cut to the part of the new contents that was written.
    [[nodiscard]] bool isCut(const Change& change) const
    {
        return folder.has(change.name) && std::string_view(change.after).starts_with(folder.bytes(change.name));
    }
    [[nodiscard]] std::string nameOf(const FileError& error) const { return fs::path(error.path).filename().string(); }

    /// An emptied file is not written to, only cut and flushed.
    [[nodiscard]] static bool writingBegan(const test::FailingFileCalls& calls)
    {
        return calls.count(Call::Write) > 0 || calls.count(Call::Fsync) > 0 || calls.lastFailed() == Call::Ftruncate;
    }

    /// Holds for a replacing that failed with its one failing call.
    void expectWhatIsPromised(const std::vector<Change>& changes, const FileError& error, bool hasBegun) const
    {
        if (!hasBegun) {
            for (const Change& change : changes)
                EXPECT_TRUE(isAsBefore(change)) << change.name;
            return;
        }
        EXPECT_EQ(error.step, FileStep::Write);
        bool behindTheFailed = false;
        for (const Change& change : changes) {
            if (change.name == nameOf(error)) {
                EXPECT_TRUE(isAsBefore(change) || isCut(change)) << change.name;
                behindTheFailed = true;
            } else if (behindTheFailed) {
                EXPECT_TRUE(isAsBefore(change)) << change.name;
            } else {
                EXPECT_TRUE(isReplaced(change)) << change.name;
            }
        }
        EXPECT_TRUE(behindTheFailed) << error.path;
    }

    test::TemporaryFolder folder;
    test::TemporaryFolder copyFolder;
    SafetyCopies noCopies{""};
    test::FailingFileCalls calls;
};

TEST_F(ReplaceFiles, GivesEveryFileItsNewContents)
{
    for (const std::vector<Change>& changes : allChanges()) {
        lay(changes);
        ASSERT_TRUE(replaceFiles(replacements(changes), noCopies, calls).ok());
        for (const Change& change : changes)
            EXPECT_TRUE(isReplaced(change)) << change.name;
        EXPECT_EQ(calls.openFiles(), 0U);
        EXPECT_EQ(calls.count(Call::Unlink), 0U);
    }
}

TEST_F(ReplaceFiles, OneFailingCallAfterTheOtherLeavesWhatIsPromised)
{
    constexpr std::array<int, 3> errorNumbers{EIO, ENOSPC, EACCES};
    for (const std::vector<Change>& changes : allChanges()) {
        std::size_t failures = 0;
        for (std::size_t n = 1;; ++n) {
            const int errorNumber = errorNumbers.at(n % errorNumbers.size());
            SCOPED_TRACE("first file " + changes.front().name + ", call " + std::to_string(n));
            ASSERT_LT(n, mostCalls);
            lay(changes);
            test::FailingFileCalls failing;
            failing.failCall(n, errorNumber);
            const Result<void> replaced = replaceFiles(replacements(changes), noCopies, failing);
            EXPECT_EQ(failing.openFiles(), 0U);
            if (replaced.ok()) {
                EXPECT_LT(failing.count(), n) << "a failure went unnoticed";
                for (const Change& change : changes)
                    EXPECT_TRUE(isReplaced(change)) << change.name;
                break;
            }
            ++failures;
            EXPECT_EQ(replaced.error().description, systemErrorText(errorNumber));
            expectWhatIsPromised(changes, replaced.error(), writingBegan(failing));

            ASSERT_TRUE(replaceFiles(replacements(changes), noCopies, calls).ok()) << "a second try";
            for (const Change& change : changes)
                EXPECT_TRUE(isReplaced(change)) << change.name;
        }
        EXPECT_GT(failures, 12U);
    }
}

TEST_F(ReplaceFiles, WhenAllCallsFailFromOneOnThoseBeforeItWereSafe)
{
    // A disk that is gone stays gone: what was only prepared still holds its old contents, and nothing claims success.
    for (const std::vector<Change>& changes : allChanges()) {
        for (std::size_t n = 1;; ++n) {
            SCOPED_TRACE("first file " + changes.front().name + ", from call " + std::to_string(n));
            ASSERT_LT(n, mostCalls);
            lay(changes);
            test::FailingFileCalls failing;
            failing.failFrom(n, EIO);
            const Result<void> replaced = replaceFiles(replacements(changes), noCopies, failing);
            EXPECT_EQ(failing.openFiles(), 0U);
            if (replaced.ok()) {
                EXPECT_LT(failing.count(), n);
                break;
            }
            bool behindTheFailed = failing.count(Call::Write) + failing.count(Call::Fsync) == 0;
            for (const Change& change : changes) {
                if (behindTheFailed && change.before) {
                    EXPECT_EQ(folder.bytes(change.name), *change.before) << change.name;
                }
                behindTheFailed = behindTheFailed || change.name == nameOf(replaced.error());
            }
        }
    }
}

TEST_F(ReplaceFiles, PreparationThatFailsNamesTheStepAndTheFile)
{
    const std::vector<Change> changes{
        {"a.txt", "old a", std::string(100, 'a')}, {"b.txt", "old b", std::string(100, 'b')}};
    lay(changes);
    test::FailingFileCalls failing;
    failing.failCall(3, EACCES);  // after opening and looking at the first file
    const Result<void> opened = replaceFiles(replacements(changes), noCopies, failing);
    ASSERT_FALSE(opened.ok());
    EXPECT_EQ(opened.error().step, FileStep::Open);
    EXPECT_EQ(opened.error().path, folder.path("b.txt"));

    test::FailingFileCalls full;
    full.failEvery(Call::Reserve, ENOSPC);
    const Result<void> reserved = replaceFiles(replacements(changes), noCopies, full);
    ASSERT_FALSE(reserved.ok());
    EXPECT_EQ(reserved.error().step, FileStep::Write);
    EXPECT_EQ(reserved.error().path, folder.path("a.txt"));
    EXPECT_EQ(reserved.error().description, "Na disku není dost místa.");
    EXPECT_EQ(full.count(Call::Write), 0U) << "a full disk is found before the first byte is written";
    for (const Change& change : changes)
        EXPECT_TRUE(isAsBefore(change));
}

TEST_F(ReplaceFiles, ReservedRoomIsGivenBack)
{
    // More than a file system would put beside a small file; what is reserved shows in the blocks of the file.
    const std::vector<Change> changes{{"a.txt", "old a", std::string(std::size_t{4} << 20, 'a')},
        {"b.txt", "old b", std::string(std::size_t{4} << 20, 'b')}};
    lay(changes);
    struct stat before { };
    ASSERT_EQ(::stat(folder.path("b.txt").c_str(), &before), 0);
    for (const Call call : {Call::Write, Call::Fsync}) {
        test::FailingFileCalls failing;
        failing.failEvery(call, EIO);
        ASSERT_FALSE(replaceFiles(replacements(changes), noCopies, failing).ok());
        EXPECT_TRUE(isAsBefore(changes[1]));
        struct stat after { };
        ASSERT_EQ(::stat(folder.path("b.txt").c_str(), &after), 0);
        EXPECT_LE(after.st_blocks, before.st_blocks + 16);
    }
}

TEST_F(ReplaceFiles, FileSystemThatCannotReserveIsWrittenToAllTheSame)
{
    const std::vector<Change> changes{{"a.txt", "old", std::string(100, 'a')}, {"b.txt", std::nullopt, "b"}};
    for (const int errorNumber : {EOPNOTSUPP, ENOSYS}) {
        lay(changes);
        test::FailingFileCalls failing;
        failing.failEvery(Call::Reserve, errorNumber);
        ASSERT_TRUE(replaceFiles(replacements(changes), noCopies, failing).ok());
        EXPECT_EQ(failing.count(Call::Reserve), 2U);
        for (const Change& change : changes)
            EXPECT_TRUE(isReplaced(change));
    }
}

TEST_F(ReplaceFiles, RoomIsReservedOnlyForFilesThatGrow)
{
    const std::vector<Change> changes{{"a.txt", "longer before", "a"}, {"b.txt", "same", "size"}};
    lay(changes);
    ASSERT_TRUE(replaceFiles(replacements(changes), noCopies, calls).ok());
    EXPECT_EQ(calls.count(Call::Reserve), 0U);
}

TEST_F(ReplaceFiles, FailedPreparationLeavesTheTimesOfTheFiles)
{
    const std::vector<Change> changes{{"a.txt", "old a", "a"}, {"b.txt", "old b", "b"}};
    lay(changes);
    const auto longAgo = fs::file_time_type::clock::now() - std::chrono::hours(1000);
    fs::last_write_time(folder.path("a.txt"), longAgo);
    const auto before = fs::last_write_time(folder.path("a.txt"));
    std::vector<Replacement> wanted = replacements(changes);
    wanted[1].path = folder.path();
    ASSERT_FALSE(replaceFiles(wanted, noCopies, calls).ok());
    EXPECT_TRUE(isAsBefore(changes[0]));
    EXPECT_EQ(fs::last_write_time(folder.path("a.txt")), before) << "nothing was changed, so nothing looks changed";
}

TEST_F(ReplaceFiles, ShortWritesGiveCorrectFiles)
{
    for (const std::size_t mostWritten : {std::size_t{1}, std::size_t{7}, std::size_t{299}}) {
        for (const std::vector<Change>& changes : allChanges()) {
            lay(changes);
            test::FailingFileCalls slow;
            slow.shortTransfers(mostWritten);
            ASSERT_TRUE(replaceFiles(replacements(changes), noCopies, slow).ok());
            for (const Change& change : changes)
                EXPECT_TRUE(isReplaced(change)) << change.name;
        }
    }
}

TEST_F(ReplaceFiles, FailureBetweenShortWritesCutsTheFileToWhatWasWritten)
{
    const std::vector<Change> changes{{"a.txt", std::string(300, 'o'), std::string(100, 'a')},
        {"b.txt", std::nullopt, std::string(100, 'b')}, {"c.txt", "old c", "c"}};
    for (std::size_t n = 1;; ++n) {
        SCOPED_TRACE(n);
        ASSERT_LT(n, mostCalls);
        lay(changes);
        test::FailingFileCalls failing;
        failing.shortTransfers(9);
        failing.failCall(n, EIO);
        const Result<void> replaced = replaceFiles(replacements(changes), noCopies, failing);
        if (replaced.ok())
            break;
        expectWhatIsPromised(changes, replaced.error(), writingBegan(failing));
    }
}

TEST_F(ReplaceFiles, WriteThatTakesNothingIsAnErrorAndNoEndlessLoop)
{
    const std::vector<Change> changes{{"a.txt", "old", "new a"}};
    lay(changes);
    calls.shortTransfers(0);
    const Result<void> replaced = replaceFiles(replacements(changes), noCopies, calls);
    ASSERT_FALSE(replaced.ok());
    EXPECT_EQ(replaced.error().step, FileStep::Write);
    EXPECT_EQ(folder.bytes("a.txt"), "old") << "nothing was written: there is nothing to cut";
}

TEST_F(ReplaceFiles, InterruptedWritesAreRetried)
{
    for (const std::vector<Change>& changes : allChanges()) {
        lay(changes);
        test::FailingFileCalls interrupted;
        interrupted.shortTransfers(64);
        interrupted.failEverySecond(Call::Write, EINTR);
        ASSERT_TRUE(replaceFiles(replacements(changes), noCopies, interrupted).ok());
        for (const Change& change : changes)
            EXPECT_TRUE(isReplaced(change)) << change.name;
    }
}

TEST_F(ReplaceFiles, InterruptedCuttingAndFlushingAreRetried)
{
    for (const Call call : {Call::Ftruncate, Call::Fsync}) {
        const std::vector<Change> changes{{"a.txt", std::string(300, 'o'), "a"}, {"b.txt", std::nullopt, "b"}};
        lay(changes);
        test::FailingFileCalls interrupted;
        interrupted.failEverySecond(call, EINTR);
        EXPECT_TRUE(replaceFiles(replacements(changes), noCopies, interrupted).ok());
        for (const Change& change : changes)
            EXPECT_TRUE(isReplaced(change)) << change.name;
    }
}

TEST_F(ReplaceFiles, FailedWriteNamesTheFolderOfTheCopies)
{
    const SafetyCopies copies(copyFolder.path());
    const std::vector<Change> changes{{"a.txt", "old a", "new a"}, {"b.txt", "old b", "new b"}};
    lay(changes);
    calls.failEvery(Call::Write, ENOSPC);
    const Result<void> replaced = replaceFiles(replacements(changes), copies, calls);
    ASSERT_FALSE(replaced.ok());
    const std::vector<std::string> made = copyFolder.names();
    ASSERT_EQ(made.size(), 1U);
    EXPECT_EQ(replaced.error().description,
        "Na disku není dost místa.\nKopie původních souborů je ve složce:\n" + copyFolder.path(made[0]));
    EXPECT_EQ(copyFolder.bytes(made[0] + "/1-a.txt"), "old a");
    EXPECT_EQ(copyFolder.bytes(made[0] + "/2-b.txt"), "old b");
}

TEST_F(ReplaceFiles, FailedWriteNamesNoFolderWhenThereAreNoCopies)
{
    const std::vector<Change> changes{{"a.txt", std::nullopt, "new a"}};
    for (const SafetyCopies& copies : {SafetyCopies(""), SafetyCopies(copyFolder.path())}) {
        lay(changes);
        test::FailingFileCalls failing;
        failing.failEvery(Call::Write, ENOSPC);
        const Result<void> replaced = replaceFiles(replacements(changes), copies, failing);
        ASSERT_FALSE(replaced.ok());
        EXPECT_EQ(replaced.error().description, "Na disku není dost místa.");
    }
    EXPECT_THAT(copyFolder.names(), IsEmpty());
}

TEST_F(ReplaceFiles, FailedPreparationNamesNoFolderForNothingIsLost)
{
    const std::vector<Change> changes{{"a.txt", "old a", std::string(100, 'a')}};
    lay(changes);
    calls.failEvery(Call::Reserve, ENOSPC);
    const Result<void> replaced = replaceFiles(replacements(changes), SafetyCopies(copyFolder.path()), calls);
    ASSERT_FALSE(replaced.ok());
    EXPECT_EQ(replaced.error().description, "Na disku není dost místa.");
}

TEST_F(ReplaceFiles, NoCopiesAreMadeWhenAFileCannotBeOpened)
{
    const std::vector<Change> changes{{"a.txt", "old a", "a"}};
    lay(changes);
    std::vector<Replacement> wanted = replacements(changes);
    wanted.push_back(replacement(folder.path("chybi/b.txt"), "b"));
    ASSERT_FALSE(replaceFiles(wanted, SafetyCopies(copyFolder.path()), calls).ok());
    EXPECT_THAT(copyFolder.names(), IsEmpty());
}

TEST_F(ReplaceFiles, CopiesThatCannotBeMadeDoNotStopIt)
{
    const std::vector<Change> changes{{"a.txt", "old a", "a"}};
    lay(changes);
    ASSERT_TRUE(replaceFiles(replacements(changes), SafetyCopies(folder.path("a.txt") + "/kopie"), calls).ok());
    EXPECT_TRUE(isReplaced(changes[0]));
}

TEST_F(ReplaceFiles, CopiesThatMustBeMadeAndCannotStopItBeforeAnythingIsWritten)
{
    const std::vector<Change> changes{{"a.txt", "old a", "a"}};
    lay(changes);
    std::vector<Replacement> wanted = replacements(changes);
    wanted.push_back(replacement(folder.path("new.txt"), "new"));
    for (const std::string& unusable : {folder.path("a.txt") + "/kopie", std::string()}) {
        const SafetyCopies copies(unusable, SafetyCopies::Missing::Refuse);
        const Result<void> replaced = replaceFiles(wanted, copies, calls);
        ASSERT_FALSE(replaced.ok());
        EXPECT_EQ(replaced.error().path, unusable);
        EXPECT_FALSE(replaced.error().english.empty());
        EXPECT_EQ(folder.bytes("a.txt"), "old a");
        EXPECT_FALSE(std::filesystem::exists(folder.path("new.txt")));
    }
}

TEST_F(ReplaceFiles, WhereThereIsNothingToCopyNoCopyIsMissing)
{
    folder.write("empty.txt", "");
    std::vector<Replacement> wanted;
    wanted.push_back(replacement(folder.path("empty.txt"), "a"));
    wanted.push_back(replacement(folder.path("new.txt"), "b"));
    ASSERT_TRUE(replaceFiles(wanted, SafetyCopies("", SafetyCopies::Missing::Refuse), calls).ok());
    EXPECT_EQ(folder.bytes("new.txt"), "b");
    wanted[0].bytes.room() += "c";
    ASSERT_TRUE(replaceFiles(wanted, SafetyCopies(copyFolder.path(), SafetyCopies::Missing::Refuse), calls).ok());
    EXPECT_EQ(folder.bytes("empty.txt"), "ac");
}

TEST_F(ReplaceFiles, NothingToReplaceIsNoError)
{
    EXPECT_TRUE(replaceFiles({}, noCopies, calls).ok());
    EXPECT_EQ(calls.count(), 0U);
}

TEST_F(ReplaceFiles, FileThatMayNotGrowFurtherHoldsWhatFitted)
{
    constexpr std::size_t limit = 5000;
    const std::vector<Change> changes{{"small.txt", "old", std::string(100, 's')},
        {"big.txt", "old", std::string(20000, 'b')}, {"behind.txt", "old", "new"}};
    lay(changes);
    const std::vector<Replacement> wanted = replacements(changes);
    std::optional<Result<void>> replaced;
    {
        const test::FileSizeLimit sizeLimit(limit);
        ASSERT_TRUE(sizeLimit.limited());
        replaced = replaceFiles(wanted, noCopies, calls);
    }
    ASSERT_FALSE(replaced->ok());
    EXPECT_EQ(replaced->error().path, folder.path("big.txt"));
    EXPECT_EQ(replaced->error().step, FileStep::Write);
    EXPECT_EQ(replaced->error().description, "Soubor by byl příliš velký.");
    expectWhatIsPromised(changes, replaced->error(), writingBegan(calls));
    if (writingBegan(calls)) {
        EXPECT_EQ(folder.bytes("big.txt").size(), limit);
    }

    ASSERT_TRUE(replaceFiles(wanted, noCopies, calls).ok()) << "a second try, without the limit";
    for (const Change& change : changes)
        EXPECT_TRUE(isReplaced(change)) << change.name;
}

// Through the save of an inventory

TEST_F(ReplaceFiles, FailedSaveKeepsTheModifiedFlagAndASecondTryClearsIt)
{
    SourceSet set;
    set.addFromRecords(cBodovyZdroj, "1, 2, 3, 4, 1, 0, 0 ;a", "1, 1, 2, 3, 4, 5, 6, 7, 8, 0");
    set.addFromRecords(cLiniovyZdroj, "2, 2, 3, 4, 3, 0, 0 ;b", "2, 1, 2, 3, 4, 5, 6, 7, 8, 9");
    SourceRows rows;
    rows.refill(set.size());
    SaveRequest request;
    request.files = {folder.path("body.txt"), folder.path("popis.txt"), folder.path("prach.txt")};
    request.comment = "Soupis";
    const std::string oldPoints = std::string(1000, 'o');
    for (std::size_t n = 1;; ++n) {
        SCOPED_TRACE(n);
        ASSERT_LT(n, mostCalls);
        folder.write("body.txt", oldPoints);
        folder.write("popis.txt", "o");
        fs::remove(folder.path("prach.txt"));
        set.modified(true);
        test::RecordingListener listener;
        test::FailingFileCalls failing;
        failing.failCall(n, EIO);
        const Result<SaveReport> saved = saveSourceSet(request, set, rows, listener, failing);
        EXPECT_EQ(set.modified(), !saved.ok());
        if (saved.ok()) {
            EXPECT_LT(failing.count(), n);
            break;
        }
        if (failing.count(Call::Write) == 0) {
            EXPECT_EQ(folder.bytes("body.txt"), oldPoints);
            EXPECT_EQ(folder.bytes("popis.txt"), "o");
            EXPECT_FALSE(folder.has("prach.txt"));
        }
        test::RecordingListener again;
        ASSERT_TRUE(saveSourceSet(request, set, rows, again).ok());
        EXPECT_FALSE(set.modified());
        EXPECT_THAT(folder.bytes("body.txt"), HasSubstr(";SOUBOR S BODY\r\n"));
        EXPECT_THAT(folder.bytes("body.txt"), Not(HasSubstr("o000")));
        EXPECT_THAT(folder.names(), ElementsAre("body.txt", "popis.txt", "prach.txt"));
    }
}

TEST_F(ReplaceFiles, ElevenFailedTriesDoNotLoseTheOriginal)
{
    const std::vector<Change> changes{{"a.txt", "the original", "new a"}};
    lay(changes);
    const SafetyCopies copies(copyFolder.path());
    std::string named;
    for (int i = 0; i < 11; ++i) {
        test::FailingFileCalls failing;
        failing.shortTransfers(2);
        // Open, look, write two bytes, and no more.
        failing.failFrom(4, EIO);
        const Result<void> replaced = replaceFiles(replacements(changes), copies, failing);
        ASSERT_FALSE(replaced.ok());
        named = replaced.error().description;
    }
    // What was copied just now is named first, the copy of before all tries last.
    const std::string words = "\nSoubory z doby před prvním nezdařeným uložením jsou ve složce:\n";
    ASSERT_NE(named.find(words), std::string::npos) << named;
    EXPECT_LT(named.find("\nKopie původních souborů je ve složce:\n" + copyFolder.path()), named.find(words));
    const std::string first = named.substr(named.find(words) + words.size());
    EXPECT_EQ(test::bytesOf(fs::path(first) / "1-a.txt"), "the original");
    ASSERT_TRUE(replaceFiles(replacements(changes), copies, calls).ok());
    EXPECT_FALSE(fs::exists(fs::path(first) / "nedokonceno.txt")) << "it may go now";
}

TEST_F(ReplaceFiles, NoCopiesAreMadeWhenThereIsNoRoom)
{
    // They would take the room that the files need, and push older copies out for nothing.
    const std::vector<Change> changes{{"a.txt", "old a", std::string(100, 'a')}};
    lay(changes);
    calls.failEvery(Call::Reserve, ENOSPC);
    ASSERT_FALSE(replaceFiles(replacements(changes), SafetyCopies(copyFolder.path()), calls).ok());
    EXPECT_THAT(copyFolder.names(), IsEmpty());
}

}  // namespace
}  // namespace korvex
