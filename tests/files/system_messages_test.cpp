// What is said when the system refuses a file: the step, the file and the words, of every file of a load and a save.
#include "failing_file_calls.h"

#include "dust_groups_file.h"
#include "first_comment.h"
#include "group_lines.h"
#include "loader.h"
#include "saver.h"
#include "source_rows.h"
#include "source_set.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <cerrno>
#include <cstddef>
#include <cstdint>
#include <filesystem>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace korvex {
namespace {

using test::Call;
using testing::EndsWith;
using testing::StartsWith;

struct SystemWords {
    int errorNumber;
    std::string_view words;
};

/// What the system can answer, as the user reads it.
constexpr std::array<SystemWords, 21> knownErrors{{
    {ENOENT, "Soubor nebo složka neexistuje."},
    {EACCES, "K souboru chybí oprávnění."},
    {EPERM, "K souboru chybí oprávnění."},
    {EISDIR, "Místo souboru je zde složka."},
    {ENOTDIR, "Část cesty k souboru není složka."},
    {ENOSPC, "Na disku není dost místa."},
    {EDQUOT, "Byla vyčerpána disková kvóta."},
    {EFBIG, "Soubor by byl příliš velký."},
    {EROFS, "Disk je jen pro čtení."},
    {ETXTBSY, "Soubor je právě používán."},
    {EIO, "Chyba vstupu nebo výstupu."},
    {ENAMETOOLONG, "Název souboru je příliš dlouhý."},
    {ELOOP, "Odkazy v cestě k souboru tvoří smyčku."},
    {EMFILE, "Je otevřeno příliš mnoho souborů."},
    {ENFILE, "Je otevřeno příliš mnoho souborů."},
    {ENXIO, "Není to obyčejný soubor."},
    {EINVAL, "Není to obyčejný soubor."},
    {ENODEV, "Není to obyčejný soubor."},
    {ENOMEM, "Nedostatek paměti."},
    {ESTALE, ""},
    {EOVERFLOW, ""},
}};

/// For a number that has no words of ours the system's own are shown, and never none.
std::string wordsOf(const SystemWords& known)
{
    return known.words.empty() ? systemErrorText(known.errorNumber) : std::string(known.words);
}

/// One file gives trouble: the calls of one kind fail on it. The calls on all other files go through.
class TroubledFile : public FileCalls {
public:
    TroubledFile(std::string path, Call kind, int errorNumber, std::size_t goodCalls = 0)
        : m_path(std::move(path)), m_kind(kind), m_errorNumber(errorNumber), m_goodCalls(goodCalls)
    {
    }

    [[nodiscard]] bool failed() const { return m_failed; }

    int open(const char* path, int flags, mode_t mode) override
    {
        const bool isOurs = path == m_path;
        if (isOurs && fails(Call::Open))
            return -1;
        const int file = FileCalls::open(path, flags, mode);
        if (isOurs)
            m_file = file;
        return file;
    }
    int fstat(int file, struct stat& status) override
    {
        return fails(Call::Fstat, file) ? -1 : FileCalls::fstat(file, status);
    }
    ssize_t read(int file, char* to, std::size_t size) override
    {
        return fails(Call::Read, file) ? -1 : FileCalls::read(file, to, size);
    }
    ssize_t write(int file, const char* from, std::size_t size) override
    {
        return fails(Call::Write, file) ? -1 : FileCalls::write(file, from, size);
    }
    int reserve(int file, off_t offset, off_t size) override
    {
        return fails(Call::Reserve, file) ? -1 : FileCalls::reserve(file, offset, size);
    }
    int ftruncate(int file, off_t size) override
    {
        return fails(Call::Ftruncate, file) ? -1 : FileCalls::ftruncate(file, size);
    }
    int fsync(int file) override { return fails(Call::Fsync, file) ? -1 : FileCalls::fsync(file); }
    int close(int file) override
    {
        const bool failing = fails(Call::Close, file);
        const int closed = FileCalls::close(file);
        if (!failing)
            return closed;
        errno = m_errorNumber;
        return -1;
    }

private:
    bool fails(Call kind, int file) { return file == m_file && fails(kind); }
    bool fails(Call kind)
    {
        if (kind != m_kind || m_calls++ < m_goodCalls)
            return false;
        m_failed = true;
        errno = m_errorNumber;
        return true;
    }

    std::string m_path;
    Call m_kind;
    int m_errorNumber;
    std::size_t m_goodCalls;
    std::size_t m_calls = 0;
    int m_file = -1;
    bool m_failed = false;
};

constexpr std::array<std::string SourceFiles::*, 3> eachFile{
    &SourceFiles::points, &SourceFiles::description, &SourceFiles::dust};

void expectError(const FileError& error, FileStep step, const std::string& path, const std::string& words)
{
    EXPECT_EQ(error.step, step);
    EXPECT_EQ(error.path, path);
    EXPECT_EQ(error.line, 0U) << "no line is to blame";
    EXPECT_EQ(error.description, words);
    EXPECT_EQ(error.message(), words + "\n\n" + path);
}

TEST(SystemErrorText, IsNeverEmpty)
{
    for (int errorNumber = 1; errorNumber < 200; ++errorNumber)
        EXPECT_FALSE(systemErrorText(errorNumber).empty()) << errorNumber;
}

TEST(SystemErrorText, HasAnEnglishOneForEachCzechOne)
{
    EXPECT_EQ(englishSystemErrorText(ENOENT), "The file or folder does not exist.");
    EXPECT_EQ(systemError(FileStep::Open, "a", ENOSPC).english, "There is not enough room on the disk.");
    for (int errorNumber = 1; errorNumber < 200; ++errorNumber) {
        const bool isKnown = systemErrorText(errorNumber).find("Chyba systému číslo") != 0;
        EXPECT_EQ(isKnown, englishSystemErrorText(errorNumber).find("System error number") != 0) << errorNumber;
        const std::string english = englishSystemErrorText(errorNumber);
        EXPECT_TRUE(std::all_of(english.begin(), english.end(), [](char c) { return c >= ' ' && c <= '~'; }))
            << english;
    }
}

class SystemMessages : public testing::Test {
protected:
    /// Two sources; the records of the description file stand in number order or not.
    SourceFiles writeInventory(const std::vector<std::string>& numbers)
    {
        std::string description;
        for (const std::string& number : numbers)
            description += number + ", 1, 2, 3, 4, 5, 6, 7, 8, 0\r\n";
        return {folder.write("body.txt", "1, 0, 0, 0, 1, 0, 0 ;a\r\n2, 0, 0, 0, 1, 0, 0 ;b\r\n"),
            folder.write("popis.txt", description),
            folder.write("prach.txt", "000000001,0,0,0\r\n000000002,0,0,0\r\n")};
    }

    Result<void> load(const SourceFiles& files, FileCalls& calls)
    {
        LoadRequest request;
        request.files = files;
        report = {};
        set.clear();
        set.addFromRecords(cLiniovyZdroj, "7", "");
        set.modified(true);
        test::RecordingListener listener;
        return loadSourceSet(request, set, report, listener, calls);
    }

    test::TemporaryFolder folder;
    SourceSet set;
    LoadReport report;
};

// Loading

TEST_F(SystemMessages, EveryRefusedOpeningOfALoadNamesTheFileInWords)
{
    const SourceFiles files = writeInventory({"1", "2"});
    for (const auto file : eachFile) {
        for (const Call kind : {Call::Open, Call::Fstat}) {
            for (const SystemWords& known : knownErrors) {
                SCOPED_TRACE(files.*file + ", " + std::to_string(known.errorNumber));
                TroubledFile calls(files.*file, kind, known.errorNumber);
                const Result<void> loaded = load(files, calls);
                ASSERT_FALSE(loaded.ok());
                expectError(loaded.error(), FileStep::Open, files.*file, wordsOf(known));
                EXPECT_FALSE(report.setTouched);
                EXPECT_EQ(set.size(), 1U);
                EXPECT_TRUE(set.modified());
            }
        }
    }
}

TEST_F(SystemMessages, FileThatCannotBeOpenedASecondTimeIsNamedToo)
{
    // Out of number order the files are opened again.
    const SourceFiles files = writeInventory({"2", "1"});
    for (const auto file : eachFile) {
        SCOPED_TRACE(files.*file);
        TroubledFile calls(files.*file, Call::Open, EACCES, 1);
        const Result<void> loaded = load(files, calls);
        ASSERT_FALSE(loaded.ok());
        expectError(loaded.error(), FileStep::Open, files.*file, "K souboru chybí oprávnění.");
        EXPECT_FALSE(report.setTouched);
        EXPECT_EQ(set.size(), 1U);
    }
}

TEST_F(SystemMessages, EveryRefusedReadingOfALoadNamesTheFileInWords)
{
    for (const std::vector<std::string>& numbers : {std::vector<std::string>{"1", "2"}, {"2", "1"}}) {
        const SourceFiles files = writeInventory(numbers);
        for (const auto file : eachFile) {
            std::size_t failures = 0;
            for (std::size_t good = 0;; ++good) {
                SCOPED_TRACE(files.*file + ", " + std::to_string(good) + ", description from " + numbers.front());
                ASSERT_LT(good, 20U);
                TroubledFile calls(files.*file, Call::Read, EIO, good);
                const Result<void> loaded = load(files, calls);
                if (!calls.failed()) {
                    EXPECT_TRUE(loaded.ok());
                    EXPECT_EQ(set.size(), 2U);
                    break;
                }
                ++failures;
                ASSERT_FALSE(loaded.ok());
                expectError(loaded.error(), FileStep::Read, files.*file, "Chyba vstupu nebo výstupu.");
                EXPECT_TRUE(set.modified());
                // Only the reading of the points makes sources.
                EXPECT_EQ(report.setTouched, file == &SourceFiles::points);
                if (file != &SourceFiles::points) {
                    EXPECT_EQ(set.size(), 1U);
                }
            }
            EXPECT_GE(failures, 2U) << "the contents and the end";
        }
    }
}

TEST_F(SystemMessages, SourcesReadBeforeTheFailureStayAlsoOfALongFile)
{
    std::string points;
    std::string description;
    constexpr std::size_t many = 20'000;
    for (std::size_t number = 1; number <= many; ++number) {
        points += std::to_string(number) + ", 0, 0, 0, 1, 0, 0 ;Zdroj\r\n";
        description += std::to_string(number) + ", 1\r\n";
    }
    SourceFiles files{folder.write("body.txt", points), folder.write("popis.txt", description), ""};
    TroubledFile calls(files.points, Call::Read, EIO, 1);
    const Result<void> loaded = load(files, calls);
    ASSERT_FALSE(loaded.ok());
    expectError(loaded.error(), FileStep::Read, files.points, "Chyba vstupu nebo výstupu.");
    EXPECT_TRUE(report.setTouched);
    EXPECT_GT(set.size(), 1000U);
    EXPECT_LT(set.size(), many);
    EXPECT_EQ(set.last().ICZ(), static_cast<std::int32_t>(set.size()));
}

TEST_F(SystemMessages, FileWithoutANameIsNamedByWhatItHolds)
{
    const SourceFiles good = writeInventory({"1", "2"});
    for (const auto& [file, contents] :
        {std::pair{&SourceFiles::points, "body"}, std::pair{&SourceFiles::description, "popisem"}}) {
        SourceFiles files = good;
        files.*file = "";
        const Result<void> loaded = load(files, FileCalls::system());
        ASSERT_FALSE(loaded.ok());
        EXPECT_EQ(loaded.error().step, FileStep::Open);
        EXPECT_EQ(loaded.error().message(), std::string("Není zadán soubor s ") + contents + ".");
        EXPECT_EQ(set.size(), 1U);
    }
}

// Saving

class SaveMessages : public SystemMessages {
protected:
    SaveMessages()
    {
        request.files = {folder.path("body.txt"), folder.path("popis.txt"), folder.path("prach.txt")};
        request.comment = "Soupis";
        set.addFromRecords(cBodovyZdroj, "1, 2, 3, 4, 1, 5, 6 ;a", "1, 1, 2, 3, 4, 5, 6, 7, 8, 0");
        rows.refill(set.size());
    }

    Result<SaveReport> save(FileCalls& calls)
    {
        set.modified(true);
        test::RecordingListener listener;
        return saveSourceSet(request, set, rows, listener, calls);
    }

    void writeOldFiles()
    {
        for (const auto file : eachFile)
            test::writeBytes(request.files.*file, "old");
    }

    SaveRequest request;
    SourceRows rows;
};

struct FailingStep {
    Call kind;
    FileStep step;
    bool isWriting;  // the old contents are gone, and the box says where their copies are
};

constexpr std::array<FailingStep, 7> everySaveStep{{
    {Call::Open, FileStep::Open, false},
    {Call::Fstat, FileStep::Open, false},
    {Call::Reserve, FileStep::Write, false},
    {Call::Write, FileStep::Write, true},
    {Call::Ftruncate, FileStep::Write, true},
    {Call::Fsync, FileStep::Write, true},
    {Call::Close, FileStep::Write, true},
}};

TEST_F(SaveMessages, EveryFailingStepOfEveryFileNamesItInWords)
{
    for (const auto file : eachFile) {
        for (const FailingStep& failing : everySaveStep) {
            for (const SystemWords& known : knownErrors) {
                SCOPED_TRACE(request.files.*file + ", call " + std::to_string(static_cast<int>(failing.kind)) + ", "
                    + std::to_string(known.errorNumber));
                writeOldFiles();
                TroubledFile calls(request.files.*file, failing.kind, known.errorNumber);
                const Result<SaveReport> saved = save(calls);
                ASSERT_FALSE(saved.ok());
                expectError(saved.error(), failing.step, request.files.*file, wordsOf(known));
                EXPECT_TRUE(set.modified());
                if (!failing.isWriting) {
                    for (const auto each : eachFile)
                        EXPECT_EQ(test::bytesOf(request.files.*each), "old");
                }
            }
        }
    }
}

TEST_F(SaveMessages, FolderOfTheCopiesIsNamedWhereOldContentsAreGone)
{
    for (const auto file : eachFile) {
        for (const FailingStep& failing : everySaveStep) {
            const test::TemporaryFolder copies;
            request.copies = SafetyCopies(copies.path());
            SCOPED_TRACE(request.files.*file + ", call " + std::to_string(static_cast<int>(failing.kind)));
            writeOldFiles();
            TroubledFile calls(request.files.*file, failing.kind, ENOSPC);
            const Result<SaveReport> saved = save(calls);
            ASSERT_FALSE(saved.ok());
            const std::string message = saved.error().message();
            const std::string head = "Na disku není dost místa.\nKopie původních souborů je ve složce:\n";
            const std::string tail = "\n\n" + request.files.*file;
            if (!failing.isWriting) {
                EXPECT_EQ(message, "Na disku není dost místa." + tail);
                continue;
            }
            ASSERT_THAT(message, StartsWith(head + copies.path() + "/"));
            ASSERT_THAT(message, EndsWith(tail));
            const std::filesystem::path named = message.substr(head.size(), message.size() - head.size() - tail.size());
            for (const char* const copy : {"1-body.txt", "2-popis.txt", "3-prach.txt"})
                EXPECT_EQ(test::bytesOf(named / copy), "old");
        }
    }
}

// The dust groups file and the comment that the load dialog shows

TEST_F(SystemMessages, GroupsFileThatCannotBeReadIsNamedInWords)
{
    const std::string path = folder.write("a.spr", ";k\r\n1,0;A\r\n2,0;B");
    for (const Call kind : {Call::Open, Call::Fstat, Call::Read}) {
        for (const SystemWords& known : knownErrors) {
            SCOPED_TRACE(known.errorNumber);
            TroubledFile calls(path, kind, known.errorNumber);
            std::size_t lines = 0;
            const Result<void> read = readGroupsFile(
                path, [&lines](std::string_view) { ++lines; }, calls);
            ASSERT_FALSE(read.ok());
            expectError(read.error(), kind == Call::Read ? FileStep::Read : FileStep::Open, path, wordsOf(known));
            EXPECT_EQ(lines, 0U);
        }
    }
}

TEST_F(SystemMessages, GroupsFileThatCannotBeWrittenIsNamedInWords)
{
    GroupLines groups;
    groups.append("1,0;A");
    for (const FailingStep& failing : everySaveStep) {
        for (const SystemWords& known : knownErrors) {
            SCOPED_TRACE(known.errorNumber);
            const std::string path = folder.write("a.spr", "old");
            TroubledFile calls(path, failing.kind, known.errorNumber);
            const Result<std::vector<std::size_t>> saved
                = saveGroupsFile(path, "Skupiny", groups, SafetyCopies(""), calls);
            ASSERT_FALSE(saved.ok());
            expectError(saved.error(), failing.step, path, wordsOf(known));
        }
    }
}

TEST_F(SystemMessages, PointsFileWhoseCommentCannotBeReadIsNamedInWords)
{
    const std::string path = folder.write("body.txt", "\r\n;Soupis\r\n");
    for (const Call kind : {Call::Open, Call::Fstat, Call::Read}) {
        for (const SystemWords& known : knownErrors) {
            SCOPED_TRACE(known.errorNumber);
            TroubledFile calls(path, kind, known.errorNumber);
            const Result<std::string> comment = firstComment(path, calls);
            ASSERT_FALSE(comment.ok());
            expectError(comment.error(), kind == Call::Read ? FileStep::Read : FileStep::Open, path, wordsOf(known));
        }
    }
}

}  // namespace
}  // namespace korvex
