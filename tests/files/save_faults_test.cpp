// Saves whose calls to the system fail one after the other, with whole and with short writes: what the files hold, what
// is said, and that nothing but the disk stands in the way of a second try.
#include "save_subjects.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <array>
#include <cerrno>
#include <cstddef>
#include <filesystem>
#include <iterator>
#include <limits>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

namespace korvex {
namespace {

namespace fs = std::filesystem;
using test::Call;
using test::FailingFileCalls;
using test::Held;
using test::SaveSubject;
using test::SaveSubjects;
using test::SaveTarget;

constexpr std::size_t mostCalls = 3000;  // no save of these tests needs more
constexpr std::size_t wholeWrites = std::numeric_limits<std::size_t>::max();

struct Fault {
    int errorNumber;
    std::string_view text;
};

constexpr std::array<Fault, 4> lastingFaults{{
    {ENOSPC, "Na disku není dost místa."},
    {EIO, "Chyba vstupu nebo výstupu."},
    {EACCES, "K souboru chybí oprávnění."},
    {EDQUOT, "Byla vyčerpána disková kvóta."},
}};

enum class Failing { OneCall, AllFromOneOn };

std::size_t openDescriptors()
{
    return static_cast<std::size_t>(std::distance(fs::directory_iterator("/proc/self/fd"), fs::directory_iterator()));
}

/// What a save that failed may leave in its files. Nothing can be taken back on a disk that refuses everything.
void expectWhatIsPromisedOfTheFiles(
    const SaveSubject& subject, const FileError& error, Failing failing, bool writingBegan)
{
    bool behindTheFailed = !writingBegan;
    bool failedIsOne = false;
    for (const SaveTarget& target : subject.targets()) {
        SCOPED_TRACE(target.path);
        const Held held = target.held();
        failedIsOne = failedIsOne || target.path == error.path;
        if (behindTheFailed) {
            const bool isEmptyLeftOver = failing == Failing::AllFromOneOn && target.isLeftOver();
            EXPECT_TRUE(held == Held::Old || isEmptyLeftOver) << "not its turn yet";
        } else if (target.path == error.path) {
            const bool uncut = failing == Failing::AllFromOneOn && held == Held::Mixture;
            EXPECT_TRUE(held == Held::Old || held == Held::New || held == Held::Beginning || uncut);
            behindTheFailed = true;
        } else {
            EXPECT_EQ(held, Held::New) << "written before the other failed";
        }
    }
    EXPECT_TRUE(failedIsOne) << error.path << " is none of the files";
}

/// The whole message; the folder of the copies stands in it from the first write on, when there are copies.
void expectMessage(const SaveSubject& subject, const FileError& error, std::string_view text, bool writingBegan)
{
    std::string wanted(text);
    const std::vector<std::string> saves = subject.copiedSaves();
    ASSERT_LE(saves.size(), 1U);
    if (writingBegan && !saves.empty())
        wanted += "\nKopie původních souborů je ve složce:\n" + saves.front();
    EXPECT_EQ(error.description, wanted);
    EXPECT_EQ(error.message(), wanted + "\n\n" + error.path);
    if (writingBegan) {
        EXPECT_EQ(error.step, FileStep::Write);
    } else {
        EXPECT_NE(error.step, FileStep::Read);
    }
}

void expectOldContentsCanBeHad(const SaveSubject& subject)
{
    if (!subject.anyOldContentIsGone())
        return;
    const std::vector<std::string> saves = subject.copiedSaves();
    ASSERT_EQ(saves.size(), 1U);
    subject.expectCopiesHoldEveryOldContent(test::copiedContents(saves.front()));
}

/// False when the save went through because it needs no more than n - 1 calls.
bool failsAt(SaveSubject& subject, std::size_t n, const Fault& fault, Failing failing, std::size_t mostWritten)
{
    SCOPED_TRACE(subject.name() + ", call " + std::to_string(n) + ", errno " + std::to_string(fault.errorNumber)
        + (failing == Failing::OneCall ? "" : " from there on"));
    subject.lay();
    const std::vector<std::string> namesBefore = subject.names();
    const std::size_t descriptorsBefore = openDescriptors();
    FailingFileCalls calls;
    calls.skipFlushing();
    calls.shortTransfers(mostWritten);
    if (failing == Failing::OneCall)
        calls.failCall(n, fault.errorNumber);
    else
        calls.failFrom(n, fault.errorNumber);

    const Result<void> saved = subject.save(calls);
    EXPECT_EQ(calls.openFiles(), 0U);
    EXPECT_EQ(openDescriptors(), descriptorsBefore);
    subject.expectDataKept(saved.ok());
    if (saved.ok()) {
        EXPECT_LT(calls.count(), n) << "a failure went unnoticed";
        subject.expectAllHold(Held::New);
        return false;
    }
    const bool writingBegan = calls.count(Call::Write) > 0;
    expectWhatIsPromisedOfTheFiles(subject, saved.error(), failing, writingBegan);
    if (!writingBegan && failing == Failing::OneCall) {
        EXPECT_EQ(subject.names(), namesBefore) << "nothing new is left behind";
    }
    expectMessage(subject, saved.error(), fault.text, writingBegan);
    expectOldContentsCanBeHad(subject);
    subject.expectSavesNow();
    return true;
}

enum class Faults { EachAtEveryCall, InTurn };

void expectEveryCallMayFail(const SaveSubjects& subjects, Failing failing, std::size_t mostWritten, Faults faults)
{
    int tried = 0;
    for (const std::unique_ptr<SaveSubject>& subject : subjects) {
        for (std::size_t first = 0; first < (faults == Faults::InTurn ? 1 : lastingFaults.size()); ++first) {
            std::size_t n = 1;
            const auto fault = [&] { return faults == Faults::InTurn ? n % lastingFaults.size() : first; };
            while (n < mostCalls && !testing::Test::HasFailure()
                && failsAt(*subject, n, lastingFaults.at(fault()), failing, mostWritten))
                ++n;
            tried += static_cast<int>(n) - 1;
            EXPECT_GT(n, 6U) << "open, look, write, cut, flush and close";
            ASSERT_LT(n, mostCalls);
        }
    }
    testing::Test::RecordProperty("faults", tried);
}

TEST(SaveFaults, AnyOneCallMayFail)
{
    expectEveryCallMayFail(test::allSaves(), Failing::OneCall, wholeWrites, Faults::EachAtEveryCall);
}

TEST(SaveFaults, AllCallsMayFailFromAnyOneOn)
{
    expectEveryCallMayFail(test::allSaves(), Failing::AllFromOneOn, wholeWrites, Faults::EachAtEveryCall);
}

TEST(SaveFaults, AnyOneCallMayFailAmongWritesOfOneByte)
{
    SaveSubjects subjects;
    subjects.push_back(std::make_unique<test::InventorySave>(
        test::OldFile::Longer, test::OldFile::Shorter, test::OldFile::Missing, 1));
    subjects.push_back(std::make_unique<test::GroupsSave>(test::OldFile::Longer));
    expectEveryCallMayFail(subjects, Failing::OneCall, 1, Faults::InTurn);
}

TEST(SaveFaults, AllCallsMayFailFromAnyOneOnAmongWritesOfOneByte)
{
    SaveSubjects subjects;
    subjects.push_back(std::make_unique<test::InventorySave>(
        test::OldFile::Missing, test::OldFile::Longer, test::OldFile::Shorter, 1));
    subjects.push_back(std::make_unique<test::GroupsSave>(test::OldFile::Shorter));
    expectEveryCallMayFail(subjects, Failing::AllFromOneOn, 1, Faults::InTurn);
}

TEST(SaveFaults, AnyOneCallMayFailAmongWritesOfSevenBytes)
{
    expectEveryCallMayFail(test::allSaves(), Failing::OneCall, 7, Faults::InTurn);
}

TEST(SaveFaults, AllCallsMayFailFromAnyOneOnAmongWritesOfSevenBytes)
{
    expectEveryCallMayFail(test::allSaves(), Failing::AllFromOneOn, 7, Faults::InTurn);
}

TEST(SaveFaults, AnyCallMayFailAmongWritesOfAPage)
{
    for (const Failing failing : {Failing::OneCall, Failing::AllFromOneOn})
        expectEveryCallMayFail(test::largeSaves(), failing, 4096, Faults::InTurn);
}

TEST(SaveFaults, SignalBetweenTheStepsIsNoErrorOfWriting)
{
    for (const Call kind : {Call::Reserve, Call::Write, Call::Ftruncate, Call::Fsync}) {
        for (const std::size_t mostWritten : {std::size_t{1}, std::size_t{7}, wholeWrites}) {
            for (const std::unique_ptr<SaveSubject>& subject : test::allSaves()) {
                SCOPED_TRACE(subject->name());
                subject->lay();
                FailingFileCalls calls;
                calls.skipFlushing();
                calls.shortTransfers(mostWritten);
                calls.failEverySecond(kind, EINTR);
                const Result<void> saved = subject->save(calls);
                ASSERT_TRUE(saved.ok()) << saved.error().message();
                subject->expectAllHold(Held::New);
                subject->expectDataKept(true);
                EXPECT_EQ(calls.openFiles(), 0U);
                if (kind != Call::Reserve) {
                    EXPECT_EQ(calls.lastFailed(), kind);
                }
            }
        }
    }
}

/// A signal may get in the way of opening and closing too, on a file system of the network; whatever comes of it, the
/// files are what is promised.
TEST(SaveFaults, SignalAtAnyOneCallLeavesWhatIsPromised)
{
    for (const std::unique_ptr<SaveSubject>& subject : test::allSaves()) {
        std::size_t n = 1;
        for (; n < mostCalls; ++n) {
            SCOPED_TRACE(subject->name() + ", call " + std::to_string(n));
            subject->lay();
            const std::vector<std::string> namesBefore = subject->names();
            FailingFileCalls calls;
            calls.skipFlushing();
            calls.failCall(n, EINTR);
            const Result<void> saved = subject->save(calls);
            EXPECT_EQ(calls.openFiles(), 0U);
            subject->expectDataKept(saved.ok());
            if (saved.ok()) {
                subject->expectAllHold(Held::New);
                if (calls.count() < n)
                    break;
                continue;
            }
            const bool writingBegan = calls.count(Call::Write) > 0;
            expectWhatIsPromisedOfTheFiles(*subject, saved.error(), Failing::OneCall, writingBegan);
            if (!writingBegan) {
                EXPECT_EQ(subject->names(), namesBefore);
            }
            expectOldContentsCanBeHad(*subject);
            subject->expectSavesNow();
        }
        EXPECT_GT(n, 6U);
        ASSERT_LT(n, mostCalls);
    }
}

/// A user who tries again on a disk that goes on failing, each time a little further.
TEST(SaveFaults, SaveThatFailsAgainAndAgainSucceedsInTheEnd)
{
    for (const std::unique_ptr<SaveSubject>& subject : test::allSaves()) {
        SCOPED_TRACE(subject->name());
        subject->lay();
        std::size_t failures = 0;
        for (const Call kind : {Call::Open, Call::Fstat, Call::Write, Call::Ftruncate, Call::Fsync, Call::Close}) {
            FailingFileCalls calls;
            calls.skipFlushing();
            calls.failEvery(kind, EIO);
            const Result<void> saved = subject->save(calls);
            ASSERT_FALSE(saved.ok());
            EXPECT_THAT(saved.error().description, testing::StartsWith("Chyba vstupu nebo výstupu."));
            EXPECT_EQ(calls.openFiles(), 0U);
            subject->expectDataKept(false);
            ++failures;
        }
        // The first of the copies is still the one of what the user had.
        if (subject->anyOldContentIsGone() && !subject->copiedSaves().empty())
            subject->expectCopiesHoldEveryOldContent(test::copiedContents(subject->copiedSaves().front()));
        EXPECT_EQ(failures, 6U);
        subject->expectSavesNow();
    }
}

}  // namespace
}  // namespace korvex
