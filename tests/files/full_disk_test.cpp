// Saves on a disk that is really full, into files that really may not grow, and at places where nothing can be written:
// what was there stays, and the save succeeds as soon as the obstacle is gone.
#include "child_process.h"
#include "save_subjects.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cerrno>
#include <csignal>
#include <cstddef>
#include <fcntl.h>
#include <filesystem>
#include <functional>
#include <memory>
#include <sched.h>
#include <string>
#include <string_view>
#include <sys/mount.h>
#include <sys/resource.h>
#include <sys/statvfs.h>
#include <unistd.h>
#include <vector>

namespace korvex {
namespace {

namespace fs = std::filesystem;
using test::Call;
using test::ChildEnd;
using test::FailingFileCalls;
using test::GroupsSave;
using test::Held;
using test::InventorySave;
using test::OldFile;
using test::SaveSubject;
using test::SaveSubjects;
using test::SaveTarget;

constexpr std::string_view fullDisk = "Na disku není dost místa.";
constexpr std::string_view missing = "Soubor nebo složka neexistuje.";
constexpr std::string_view forbidden = "K souboru chybí oprávnění.";
constexpr std::size_t manySources = 250;
constexpr std::size_t manyGroups = 1500;
constexpr std::size_t pageSize = 4096;

constexpr fs::perms readOnlyFolder = fs::perms::owner_read | fs::perms::owner_exec | fs::perms::group_read
    | fs::perms::group_exec | fs::perms::others_read | fs::perms::others_exec;

// A small disk of our own

/// Mounts from here on are seen by this process alone and go away with it. An ordinary user has to be administrator of
/// a world of his own first.
bool hasMountsOfItsOwn()
{
    const std::string user = std::to_string(::geteuid());
    const std::string group = std::to_string(::getegid());
    if (::unshare(CLONE_NEWNS) != 0) {
        if (::unshare(CLONE_NEWUSER | CLONE_NEWNS) != 0)
            return false;
        test::writeBytes("/proc/self/setgroups", "deny");
        test::writeBytes("/proc/self/uid_map", user + ' ' + user + " 1");
        test::writeBytes("/proc/self/gid_map", group + ' ' + group + " 1");
    }
    return ::mount("none", "/", "none", MS_REC | MS_PRIVATE, nullptr) == 0;
}

bool mountsSmallDisk(const std::string& folder)
{
    return ::mount("tmpfs", folder.c_str(), "tmpfs", 0, "size=64k,mode=0777") == 0;
}

/// A file that takes all the room but some pages.
class Filler {
public:
    Filler(const std::string& folder, std::size_t pagesLeft) : m_path(folder + "/vypln.bin")
    {
        const int file = ::open(m_path.c_str(), O_WRONLY | O_CREAT | O_CLOEXEC, 0666);
        EXPECT_GE(file, 0);
        const std::string page(pageSize, 'x');
        off_t size = 0;
        while (::write(file, page.data(), page.size()) == static_cast<ssize_t>(page.size()))
            size += static_cast<off_t>(page.size());
        EXPECT_EQ(errno, ENOSPC);
        EXPECT_EQ(::ftruncate(file, size - static_cast<off_t>(pagesLeft * pageSize)), 0);
        ::close(file);
    }
    void remove() const { fs::remove(m_path); }

private:
    std::string m_path;
};

fsblkcnt_t freeBlocks(const std::string& folder)
{
    struct statvfs status { };
    EXPECT_EQ(::statvfs(folder.c_str(), &status), 0);
    return status.f_bfree;
}

enum class Ran { Yes, NotPermitted };

/// Runs the checks in a child that has a small disk mounted over a folder.
Ran onSmallDisk(const std::string& folder, const std::function<void()>& checks)
{
    const ChildEnd end = test::inChild([&] {
        if (!hasMountsOfItsOwn() || !mountsSmallDisk(folder))
            ::_exit(test::childSkipped);
        checks();
    });
    if (end.exitCode == test::childSkipped)
        return Ran::NotPermitted;
    EXPECT_EQ(end.exitCode, test::childPassed) << "see the checks of the child above";
    return Ran::Yes;
}

constexpr const char* noSmallDisk = "no disk may be mounted here";

SaveSubjects growingSaves()
{
    SaveSubjects made;
    made.push_back(std::make_unique<InventorySave>(OldFile::Shorter, OldFile::Longer, OldFile::Missing, manySources));
    made.push_back(std::make_unique<InventorySave>(OldFile::Longer, OldFile::Missing, OldFile::Shorter, manySources));
    made.push_back(std::make_unique<InventorySave>(OldFile::Missing, OldFile::Missing, OldFile::Missing, manySources));
    made.push_back(std::make_unique<GroupsSave>(OldFile::Shorter, manyGroups));
    made.push_back(std::make_unique<GroupsSave>(OldFile::Missing, manyGroups));
    return made;
}

/// Nothing is written, left behind or kept reserved; without the filler the save succeeds.
void expectFullDiskIsFoundInTime(SaveSubject& subject, std::size_t pagesLeft)
{
    SCOPED_TRACE(subject.name() + ", pages left: " + std::to_string(pagesLeft));
    subject.lay();
    const Filler filler(subject.folder(), pagesLeft);
    const std::vector<std::string> namesBefore = subject.names();
    const fsblkcnt_t freeBefore = freeBlocks(subject.folder());

    FailingFileCalls calls;
    const Result<void> saved = subject.save(calls);
    ASSERT_FALSE(saved.ok());
    EXPECT_EQ(saved.error().step, FileStep::Write);
    EXPECT_EQ(saved.error().message(), std::string(fullDisk) + "\n\n" + saved.error().path);
    EXPECT_EQ(calls.count(Call::Write), 0U);
    EXPECT_EQ(calls.openFiles(), 0U);
    subject.expectAllHold(Held::Old);
    subject.expectDataKept(false);
    EXPECT_EQ(subject.names(), namesBefore);
    EXPECT_EQ(freeBlocks(subject.folder()), freeBefore);

    filler.remove();
    subject.expectSavesNow();
}

TEST(FullDisk, NothingIsTouched)
{
    for (const std::unique_ptr<SaveSubject>& subject : growingSaves()) {
        const Ran ran = onSmallDisk(subject->folder(), [&subject] { expectFullDiskIsFoundInTime(*subject, 0); });
        if (ran == Ran::NotPermitted)
            GTEST_SKIP() << noSmallDisk;
    }
}

TEST(FullDisk, RoomForAPartOfTheSaveIsNotBegunToBeUsed)
{
    for (const std::unique_ptr<SaveSubject>& subject : growingSaves()) {
        for (const std::size_t pagesLeft : {std::size_t{1}, std::size_t{2}}) {
            const Ran ran = onSmallDisk(
                subject->folder(), [&subject, pagesLeft] { expectFullDiskIsFoundInTime(*subject, pagesLeft); });
            if (ran == Ran::NotPermitted)
                GTEST_SKIP() << noSmallDisk;
        }
    }
}

TEST(FullDisk, FilesThatDoNotGrowAreSavedAllTheSame)
{
    SaveSubjects subjects;
    subjects.push_back(std::make_unique<InventorySave>(OldFile::Longer, OldFile::Longer, OldFile::Longer, manySources));
    subjects.push_back(std::make_unique<GroupsSave>(OldFile::Longer, manyGroups));
    for (const std::unique_ptr<SaveSubject>& subject : subjects) {
        const Ran ran = onSmallDisk(subject->folder(), [&subject] {
            subject->lay();
            const Filler filler(subject->folder(), 0);
            const Result<void> saved = subject->save(FileCalls::system());
            EXPECT_TRUE(saved.ok());
            subject->expectAllHold(Held::New);
            subject->expectDataKept(true);
        });
        if (ran == Ran::NotPermitted)
            GTEST_SKIP() << noSmallDisk;
    }
}

TEST(FullDisk, CopiesThatFindNoRoomDoNotStopASave)
{
    for (const std::unique_ptr<SaveSubject>& subject : growingSaves()) {
        const std::string stateFolder = fs::path(subject->copyFolder()).parent_path().string();
        const Ran ran = onSmallDisk(stateFolder, [&subject, &stateFolder] {
            subject->lay();
            const Filler filler(stateFolder, 0);
            FailingFileCalls broken;
            broken.failEvery(Call::Write, EIO);
            const Result<void> failed = subject->save(broken);
            EXPECT_FALSE(failed.ok());
            EXPECT_EQ(failed.error().description, "Chyba vstupu nebo výstupu.") << "no copies, no folder to name";
            subject->expectSavesNow();
            EXPECT_THAT(subject->copiedSaves(), testing::IsEmpty());
        });
        if (ran == Ran::NotPermitted)
            GTEST_SKIP() << noSmallDisk;
    }
}

// Files that may not grow beyond a size, as with a quota

void limitFileSize(rlim_t bytes)
{
    rlimit limit{};
    EXPECT_EQ(::getrlimit(RLIMIT_FSIZE, &limit), 0);
    limit.rlim_cur = bytes;
    EXPECT_EQ(::setrlimit(RLIMIT_FSIZE, &limit), 0);
}

TEST(FileSizeLimit, FileIsCutToWhatFittedAndItsOldContentIsAmongTheCopies)
{
    constexpr rlim_t limitBytes = 8000;
    SaveSubjects subjects;
    subjects.push_back(
        std::make_unique<InventorySave>(OldFile::Shorter, OldFile::Missing, OldFile::Shorter, manySources));
    subjects.push_back(std::make_unique<GroupsSave>(OldFile::Shorter, manyGroups));
    for (const std::unique_ptr<SaveSubject>& subject : subjects) {
        const ChildEnd end = test::inChild([&subject] {
            std::signal(SIGXFSZ, SIG_IGN);
            subject->lay();
            limitFileSize(limitBytes);
            // Some file systems see the limit when room is reserved, some only when the file is written.
            FailingFileCalls calls;
            calls.failEvery(Call::Reserve, EOPNOTSUPP);
            const Result<void> saved = subject->save(calls);
            limitFileSize(RLIM_INFINITY);
            ASSERT_FALSE(saved.ok());
            const SaveTarget& first = subject->targets().front();
            EXPECT_EQ(saved.error().step, FileStep::Write);
            EXPECT_EQ(saved.error().path, first.path);
            EXPECT_THAT(saved.error().description, testing::StartsWith("Soubor by byl příliš velký."));
            for (const SaveTarget& target : subject->targets())
                EXPECT_TRUE(target.held() == Held::Old || target.path == first.path) << target.path;
            EXPECT_EQ(test::bytesOf(first.path), first.after.substr(0, limitBytes));
            ASSERT_EQ(subject->copiedSaves().size(), 1U);
            EXPECT_THAT(saved.error().description, testing::EndsWith(":\n" + subject->copiedSaves().front()));
            subject->expectCopiesHoldEveryOldContent(test::copiedContents(subject->copiedSaves().front()));
            EXPECT_EQ(calls.openFiles(), 0U);
            subject->expectDataKept(false);
            subject->expectSavesNow();
        });
        EXPECT_EQ(end.exitCode, test::childPassed) << subject->name();
    }
}

// Places where nothing can be written

SaveSubjects savesWithEveryKindOfOldFile()
{
    SaveSubjects made;
    made.push_back(std::make_unique<InventorySave>(OldFile::Longer, OldFile::Shorter, OldFile::Missing));
    made.push_back(std::make_unique<InventorySave>(OldFile::Missing, OldFile::Longer, OldFile::Shorter));
    made.push_back(std::make_unique<GroupsSave>(OldFile::Longer));
    return made;
}

TEST(FullDevice, LinkToItAtAnyPlaceLeavesTheFilesBehindItAsTheyWere)
{
    for (const std::unique_ptr<SaveSubject>& subject : savesWithEveryKindOfOldFile()) {
        for (const SaveTarget& full : subject->targets()) {
            SCOPED_TRACE(full.path);
            subject->lay();
            fs::remove(full.path);
            fs::create_symlink("/dev/full", full.path);
            const Result<void> saved = subject->save(FileCalls::system());
            ASSERT_FALSE(saved.ok());
            EXPECT_EQ(saved.error().step, FileStep::Write);
            EXPECT_EQ(saved.error().path, full.path);
            std::string wanted(fullDisk);
            if (!subject->copiedSaves().empty())
                wanted += "\nKopie původních souborů je ve složce:\n" + subject->copiedSaves().front();
            EXPECT_EQ(saved.error().description, wanted);
            Held others = Held::New;
            for (const SaveTarget& target : subject->targets()) {
                if (target.path == full.path)
                    others = Held::Old;
                else
                    EXPECT_EQ(target.held(), others) << target.path;
            }
            EXPECT_TRUE(fs::is_symlink(full.path));
            subject->expectDataKept(false);
            fs::remove(full.path);
            subject->expectSavesNow();
        }
    }
}

/// Something at the place of a target, until it is taken away.
struct Obstacle {
    std::string_view name;
    std::string_view description;
    std::function<void(const std::string& path)> put;
    std::function<void(const std::string& path)> clear;
};

std::vector<Obstacle> obstacles()
{
    return {
        {"a folder", "Místo souboru je zde složka.", [](const std::string& path) { fs::create_directory(path); },
            [](const std::string& path) { fs::remove(path); }},
        {"a link into a missing folder", missing,
            [](const std::string& path) { fs::create_symlink("chybi/soubor.txt", path); },
            [](const std::string& path) { fs::remove(path); }},
        {"a link to itself", "Odkazy v cestě k souboru tvoří smyčku.",
            [](const std::string& path) { fs::create_symlink(fs::path(path).filename(), path); },
            [](const std::string& path) { fs::remove(path); }},
    };
}

TEST(SaveObstacles, NothingIsTouchedAndTheSaveSucceedsOnceTheyAreGone)
{
    for (const Obstacle& obstacle : obstacles()) {
        for (const std::unique_ptr<SaveSubject>& subject : savesWithEveryKindOfOldFile()) {
            for (const SaveTarget& blocked : subject->targets()) {
                SCOPED_TRACE(std::string(obstacle.name) + " at " + blocked.path);
                subject->lay();
                fs::remove(blocked.path);
                obstacle.put(blocked.path);
                const std::vector<std::string> namesBefore = subject->names();
                FailingFileCalls calls;
                const Result<void> saved = subject->save(calls);
                ASSERT_FALSE(saved.ok());
                EXPECT_EQ(saved.error().step, FileStep::Open);
                EXPECT_EQ(saved.error().message(), std::string(obstacle.description) + "\n\n" + blocked.path);
                EXPECT_EQ(subject->names(), namesBefore);
                EXPECT_EQ(calls.openFiles(), 0U);
                for (const SaveTarget& target : subject->targets())
                    EXPECT_TRUE(target.path == blocked.path || target.held() == Held::Old) << target.path;
                subject->expectDataKept(false);
                obstacle.clear(blocked.path);
                subject->expectSavesNow();
            }
        }
    }
}

TEST(SaveObstacles, FolderThatIsGoneIsNotMade)
{
    for (const std::unique_ptr<SaveSubject>& subject : savesWithEveryKindOfOldFile()) {
        subject->lay();
        fs::remove_all(subject->folder());
        const Result<void> saved = subject->save(FileCalls::system());
        ASSERT_FALSE(saved.ok());
        EXPECT_EQ(saved.error().message(), std::string(missing) + "\n\n" + subject->targets().front().path);
        EXPECT_FALSE(fs::exists(subject->folder()));
        subject->expectDataKept(false);
        fs::create_directory(subject->folder());
        subject->expectSavesNow();
    }
}

TEST(SaveObstacles, ReadOnlyFolderGetsNoNewFile)
{
    for (const std::unique_ptr<SaveSubject>& subject : savesWithEveryKindOfOldFile()) {
        subject->lay();
        for (const SaveTarget& target : subject->targets())
            fs::remove(target.path);
        fs::permissions(subject->folder(), readOnlyFolder);
        {
            const test::OrdinaryUser user;
            if (!user.isOrdinary())
                GTEST_SKIP() << "the administrator may write everywhere";
            const Result<void> saved = subject->save(FileCalls::system());
            EXPECT_FALSE(saved.ok());
            EXPECT_EQ(saved.error().message(), std::string(forbidden) + "\n\n" + subject->targets().front().path);
            EXPECT_THAT(subject->names(), testing::IsEmpty());
            subject->expectDataKept(false);
        }
        fs::permissions(subject->folder(), fs::perms::all);
        subject->expectSavesNow();
    }
}

TEST(SaveObstacles, LinkToAFileThatDoesNotExistYetStaysWhetherTheSaveFailsOrNot)
{
    for (const std::unique_ptr<SaveSubject>& subject : savesWithEveryKindOfOldFile()) {
        for (const SaveTarget& linked : subject->targets()) {
            SCOPED_TRACE(linked.path);
            subject->lay();
            fs::remove(linked.path);
            const test::TemporaryFolder elsewhere;
            fs::create_symlink(elsewhere.path("novy.txt"), linked.path);
            const std::vector<std::string> namesBefore = subject->names();
            FailingFileCalls full;
            full.failEvery(Call::Reserve, ENOSPC);
            const Result<void> saved = subject->save(full);
            ASSERT_FALSE(saved.ok());
            EXPECT_EQ(saved.error().description, fullDisk);
            EXPECT_EQ(subject->names(), namesBefore);
            EXPECT_TRUE(fs::is_symlink(linked.path));
            EXPECT_THAT(elsewhere.names(), testing::IsEmpty());
            subject->expectSavesNow();
            EXPECT_TRUE(fs::is_symlink(linked.path));
            EXPECT_EQ(elsewhere.bytes("novy.txt"), linked.after);
        }
    }
}

// No place for the copies

/// The save goes through; and one whose writing fails names no folder, for there is nothing in it.
void expectSavesWithoutCopies(SaveSubject& subject)
{
    const Result<void> saved = subject.save(FileCalls::system());
    EXPECT_TRUE(saved.ok());
    subject.expectAllHold(Held::New);
    FailingFileCalls broken;
    broken.failEvery(Call::Write, ENOSPC);
    const Result<void> failed = subject.save(broken);
    EXPECT_FALSE(failed.ok());
    EXPECT_EQ(failed.error().description, fullDisk);
}

TEST(FolderOfTheCopies, FileAtItsPlaceDoesNotStopASave)
{
    for (const std::unique_ptr<SaveSubject>& subject : savesWithEveryKindOfOldFile()) {
        subject->lay();
        test::writeBytes(subject->copyFolder(), "not a folder");
        expectSavesWithoutCopies(*subject);
        EXPECT_EQ(test::bytesOf(subject->copyFolder()), "not a folder");
    }
}

TEST(FolderOfTheCopies, ReadOnlyOneDoesNotStopASave)
{
    for (const std::unique_ptr<SaveSubject>& subject : savesWithEveryKindOfOldFile()) {
        subject->lay();
        fs::permissions(subject->folder(), fs::perms::all);
        for (const SaveTarget& target : subject->targets()) {
            if (target.before)
                fs::permissions(target.path, fs::perms::all);
        }
        fs::create_directory(subject->copyFolder());
        fs::permissions(subject->copyFolder(), readOnlyFolder);
        {
            const test::OrdinaryUser user;
            if (!user.isOrdinary())
                GTEST_SKIP() << "the administrator may write everywhere";
            expectSavesWithoutCopies(*subject);
        }
        EXPECT_THAT(subject->copiedSaves(), testing::IsEmpty());
    }
}

}  // namespace
}  // namespace korvex
