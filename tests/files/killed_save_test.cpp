// A program that is killed in the middle of a save: nothing is lost for good, and the next save goes through.
#include "child_process.h"
#include "save_subjects.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <cstddef>
#include <filesystem>
#include <functional>
#include <limits>
#include <memory>
#include <string>
#include <unistd.h>
#include <vector>

namespace korvex {
namespace {

namespace fs = std::filesystem;
using test::ChildEnd;
using test::CopiedContents;
using test::FailingFileCalls;
using test::Held;
using test::SaveSubject;
using test::SaveTarget;

constexpr std::size_t mostCalls = 2000;
constexpr std::size_t wholeWrites = std::numeric_limits<std::size_t>::max();

/// How far the saves were that were killed.
struct KilledAt {
    std::size_t untouched = 0;
    std::size_t touched = 0;
    std::size_t unfinishedFile = 0;
};

/// One file after the other: those in front hold the new content, at most one is unfinished, those behind it are old.
void expectOneFileAfterTheOther(const SaveSubject& subject, KilledAt& killedAt)
{
    bool reachedTheEnd = false;
    for (const SaveTarget& target : subject.targets()) {
        const Held held = target.held();
        EXPECT_NE(held, Held::SomethingElse) << target.path;
        if (reachedTheEnd) {
            EXPECT_TRUE(held == Held::Old || target.isLeftOver()) << target.path << " was touched before its turn";
        }
        if (held == Held::Beginning || held == Held::Mixture)
            ++killedAt.unfinishedFile;
        reachedTheEnd = reachedTheEnd || held != Held::New;
    }
}

/// What a user can do without knowing what the files held: put back what the list of the copies names, and remove the
/// rest, which was not there or empty.
void putBack(const SaveSubject& subject, const CopiedContents& copies)
{
    for (const SaveTarget& target : subject.targets()) {
        const auto copy = copies.find(target.path);
        if (copy != copies.end())
            test::writeBytes(target.path, copy->second);
        else
            fs::remove(target.path);
    }
}

void expectOldState(const SaveSubject& subject)
{
    for (const SaveTarget& target : subject.targets()) {
        if (target.hadContent()) {
            EXPECT_EQ(target.held(), Held::Old) << target.path;
        } else {
            EXPECT_FALSE(fs::exists(target.path)) << target.path;
        }
    }
}

void expectNothingIsLost(SaveSubject& subject, KilledAt& killedAt)
{
    expectOneFileAfterTheOther(subject, killedAt);
    const bool touched = subject.anyOldContentIsGone();
    ++(touched ? killedAt.touched : killedAt.untouched);
    const std::vector<std::string> saves = subject.copiedSaves();
    if (touched) {
        ASSERT_EQ(saves.size(), 1U);
        subject.expectCopiesHoldEveryOldContent(test::copiedContents(saves.front()));
    }
    for (const std::string& name : subject.names()) {
        const auto isTarget
            = [&name](const SaveTarget& target) { return fs::path(target.path).filename().string() == name; };
        EXPECT_TRUE(std::any_of(subject.targets().begin(), subject.targets().end(), isTarget)) << name;
    }

    subject.expectSavesNow();

    // The next save has put the copies of the killed one aside, not away.
    if (touched) {
        putBack(subject, test::copiedContents(saves.front()));
        expectOldState(subject);
    }
}

using KilledSave = std::function<ChildEnd(SaveSubject& subject, std::size_t n)>;

/// Kills in front of call 1, call 2, … until a save runs through.
void expectEveryKillIsSurvived(SaveSubject& subject, const KilledSave& killedSave, KilledAt& killedAt)
{
    std::size_t n = 1;
    for (; n < mostCalls && !testing::Test::HasFailure(); ++n) {
        SCOPED_TRACE(subject.name() + ", killed before call " + std::to_string(n));
        subject.lay();
        const ChildEnd end = killedSave(subject, n);
        if (!end.wasKilled()) {
            ASSERT_EQ(end.exitCode, test::childPassed);
            subject.expectAllHold(Held::New);
            break;
        }
        expectNothingIsLost(subject, killedAt);
    }
    EXPECT_GT(n, 6U);
    EXPECT_LT(n, mostCalls);
    testing::Test::RecordProperty("kills", static_cast<int>(killedAt.touched + killedAt.untouched));
}

KilledSave betweenTheFileCalls(std::size_t mostWritten)
{
    return [mostWritten](SaveSubject& subject, std::size_t n) {
        return test::inChild([&subject, mostWritten, n] {
            FailingFileCalls calls;
            calls.skipFlushing();
            calls.shortTransfers(mostWritten);
            calls.killBefore(n);
            const Result<void> saved = subject.save(calls);
            EXPECT_TRUE(saved.ok()) << saved.error().message();
        });
    };
}

TEST(KilledSave, NothingIsLostBetweenAnyTwoCalls)
{
    KilledAt killedAt;
    for (const std::unique_ptr<SaveSubject>& subject : test::allSaves())
        expectEveryKillIsSurvived(*subject, betweenTheFileCalls(wholeWrites), killedAt);
    EXPECT_GT(killedAt.untouched, 0U);
    EXPECT_GT(killedAt.touched, 0U);
    EXPECT_GT(killedAt.unfinishedFile, 0U);
}

TEST(KilledSave, NothingIsLostInTheMiddleOfAFile)
{
    KilledAt killedAt;
    for (const std::unique_ptr<SaveSubject>& subject : test::allSaves())
        expectEveryKillIsSurvived(*subject, betweenTheFileCalls(19), killedAt);
    EXPECT_GT(killedAt.unfinishedFile, 20U);
}

TEST(KilledSave, NothingIsLostBetweenThePagesOfALargeFile)
{
    KilledAt killedAt;
    for (const std::unique_ptr<SaveSubject>& subject : test::largeSaves())
        expectEveryKillIsSurvived(*subject, betweenTheFileCalls(4096), killedAt);
    EXPECT_GT(killedAt.unfinishedFile, 3U);
}

/// Also while the copies are made and the oldest are dropped.
TEST(KilledSave, NothingIsLostBeforeAnyCallToTheSystem)
{
    const KilledSave killedSave = [](SaveSubject& subject, std::size_t n) {
        return test::killedBeforeSystemCall(n, [&subject] {
            FailingFileCalls calls;
            calls.skipFlushing();
            const Result<void> saved = subject.save(calls);
            ::_exit(saved.ok() ? test::childPassed : test::childFailed);
        });
    };
    if (test::killedBeforeSystemCall(1, [] {}).exitCode == test::childSkipped)
        GTEST_SKIP() << "one process may not watch another here";

    KilledAt killedAt;
    test::InventorySave inventory(test::OldFile::Longer, test::OldFile::Missing, test::OldFile::Shorter);
    test::GroupsSave groups(test::OldFile::Longer);
    for (SaveSubject* const subject : std::vector<SaveSubject*>{&inventory, &groups})
        expectEveryKillIsSurvived(*subject, killedSave, killedAt);
    EXPECT_GT(killedAt.untouched, 20U) << "the making of the copies was not met";
    EXPECT_GT(killedAt.touched, 5U);
}

/// The copies of earlier saves are what a user falls back to who sees the damage late.
TEST(KilledSave, EarlierCopiesStayWhole)
{
    test::InventorySave subject(test::OldFile::Longer, test::OldFile::Missing, test::OldFile::Shorter);
    const std::string earlier = subject.copyFolder() + "/2010-01-31_23-59-58_00";
    for (std::size_t n = 1; n < mostCalls; ++n) {
        SCOPED_TRACE(n);
        subject.lay();
        fs::create_directories(earlier);
        test::writeBytes(earlier + "/1-body.txt", "earlier");
        const ChildEnd end = betweenTheFileCalls(wholeWrites)(subject, n);
        EXPECT_EQ(test::bytesOf(earlier + "/1-body.txt"), "earlier");
        if (!end.wasKilled()) {
            EXPECT_EQ(end.exitCode, test::childPassed);
            EXPECT_GT(n, 6U);
            return;
        }
    }
    FAIL() << "no save went through";
}

/// One who ends the program again and again loses nothing either, as long as the copies reach back.
TEST(KilledSave, OldContentOutlastsSeveralKilledSaves)
{
    test::InventorySave subject(test::OldFile::Longer, test::OldFile::Shorter, test::OldFile::Shorter);
    subject.lay();
    constexpr std::size_t kills = 9;
    for (std::size_t kill = 0; kill < kills; ++kill)
        EXPECT_TRUE(betweenTheFileCalls(19)(subject, 14 + kill).wasKilled());
    const std::vector<std::string> saves = subject.copiedSaves();
    ASSERT_EQ(saves.size(), kills);
    EXPECT_TRUE(subject.anyOldContentIsGone());
    subject.expectCopiesHoldEveryOldContent(test::copiedContents(saves.front()));
    subject.expectSavesNow();
    putBack(subject, test::copiedContents(saves.front()));
    expectOldState(subject);
}

}  // namespace
}  // namespace korvex
