// Loads that fail: files that cannot be opened or read, and numbers out of range.
#include "failing_file_calls.h"

#include "loader.h"
#include "source_set.h"

#include <gtest/gtest.h>

#include <cerrno>
#include <cstddef>
#include <filesystem>
#include <string>
#include <string_view>
#include <sys/stat.h>
#include <vector>

namespace korvex {
namespace {

constexpr std::string_view onePoint = "000000001, 1, 2, 3, 1, 4, 5 ;a\r\n";
constexpr std::string_view oneDescription = "000000001, 1, 2, 3, 4, 5, 6, 7, 8, 0\r\n";
constexpr std::string_view oneDust = "000000001,0,0,0\r\n";

class LoaderErrors : public testing::Test {
protected:
    LoaderErrors() { writeFiles(onePoint, oneDescription, oneDust); }

    void writeFiles(std::string_view points, std::string_view description, std::string_view dust)
    {
        request.files = {
            folder.write("body.txt", points), folder.write("popis.txt", description), folder.write("prach.txt", dust)};
    }

    Result<void> load(FileCalls& calls = FileCalls::system())
    {
        report = {};
        listener.clear();
        return loadSourceSet(request, set, report, listener, calls);
    }

    /// Loads with each of the three files in turn replaced by the path.
    void expectNoneOpens(const std::string& path, std::string_view description)
    {
        const SourceFiles good = request.files;
        for (std::string SourceFiles::*file : {&SourceFiles::points, &SourceFiles::description, &SourceFiles::dust}) {
            request.files = good;
            request.files.*file = path;
            set.clear();
            set.addFromRecords(cLiniovyZdroj, "7", "");
            set.modified(true);
            const Result<void> loaded = load();
            ASSERT_FALSE(loaded.ok());
            EXPECT_EQ(loaded.error().step, FileStep::Open);
            EXPECT_EQ(loaded.error().path, path);
            EXPECT_EQ(loaded.error().line, 0U);
            EXPECT_EQ(loaded.error().description, description);
            EXPECT_EQ(set.size(), 1U) << "what was there stays";
            EXPECT_TRUE(set.modified());
        }
    }

    void expectReadError(const std::string& path, std::size_t line, std::string_view description)
    {
        const Result<void> loaded = load();
        ASSERT_FALSE(loaded.ok());
        EXPECT_EQ(loaded.error().step, FileStep::Read);
        EXPECT_EQ(loaded.error().path, path);
        EXPECT_EQ(loaded.error().line, line);
        EXPECT_EQ(loaded.error().description, description);
    }

    test::TemporaryFolder folder;
    SourceSet set;
    LoadRequest request;
    LoadReport report;
    test::RecordingListener listener;
};

// Files that cannot be opened

TEST_F(LoaderErrors, MissingFile)
{
    expectNoneOpens(folder.path("chybi.txt"), "Soubor nebo složka neexistuje.");
}

TEST_F(LoaderErrors, EmptyNameOfPointsOrDescriptionFileIsAMissingFile)
{
    request.files.description = "";
    const Result<void> loaded = load();
    ASSERT_FALSE(loaded.ok());
    EXPECT_EQ(loaded.error().step, FileStep::Open);
}

TEST_F(LoaderErrors, FileInAMissingFolder)
{
    expectNoneOpens(folder.path("chybi/body.txt"), "Soubor nebo složka neexistuje.");
}

TEST_F(LoaderErrors, PathThroughAFile)
{
    folder.write("soubor", "");
    expectNoneOpens(folder.path("soubor/body.txt"), "Část cesty k souboru není složka.");
}

TEST_F(LoaderErrors, FolderInsteadOfAFile)
{
    std::filesystem::create_directory(folder.path("slozka"));
    expectNoneOpens(folder.path("slozka"), "Místo souboru je zde složka.");
}

TEST_F(LoaderErrors, LoopOfLinks)
{
    std::filesystem::create_symlink("b", folder.path("a"));
    std::filesystem::create_symlink("a", folder.path("b"));
    expectNoneOpens(folder.path("a"), "Odkazy v cestě k souboru tvoří smyčku.");
}

TEST_F(LoaderErrors, NameThatIsTooLong)
{
    expectNoneOpens(folder.path(std::string(300, 'x')), "Název souboru je příliš dlouhý.");
}

TEST_F(LoaderErrors, PipeIsRefusedAtOnceInsteadOfWaitedFor)
{
    ASSERT_EQ(::mkfifo(folder.path("roura").c_str(), 0666), 0);
    expectNoneOpens(folder.path("roura"), "Není to obyčejný soubor.");
}

TEST_F(LoaderErrors, DeviceIsRefused)
{
    expectNoneOpens("/dev/null", "Není to obyčejný soubor.");
    expectNoneOpens("/dev/zero", "Není to obyčejný soubor.");
}

TEST_F(LoaderErrors, UnreadableFile)
{
    const std::string path = folder.write("tajny.txt", "");
    std::filesystem::permissions(path, std::filesystem::perms::none);
    for (const std::string& readable : {folder.path(), request.files.points, request.files.description})
        std::filesystem::permissions(readable, std::filesystem::perms::all);
    const test::OrdinaryUser user;
    if (!user.isOrdinary())
        GTEST_SKIP() << "the administrator may read everything";
    expectNoneOpens(path, "K souboru chybí oprávnění.");
}

TEST_F(LoaderErrors, StatusNamesTheFileThatCouldNotBeOpened)
{
    request.files.description = folder.path("chybi.txt");
    EXPECT_FALSE(load().ok());
    ASSERT_FALSE(listener.statuses.empty());
    EXPECT_EQ(listener.statuses.back(), "Otevírám " + folder.path("chybi.txt"));
}

// Calls to the system that fail

TEST_F(LoaderErrors, EachCallThatFailsIsReportedAndClosesWhatIsOpen)
{
    // The closing of a file that was only read may fail unnoticed: nothing is lost by it.
    constexpr std::size_t mostCalls = 100;
    std::size_t reported = 0;
    for (std::size_t n = 1;; ++n) {
        ASSERT_LT(n, mostCalls);
        SCOPED_TRACE(n);
        test::FailingFileCalls calls;
        calls.failCall(n, EIO);
        set.modified(true);
        const Result<void> loaded = load(calls);
        EXPECT_EQ(calls.openFiles(), 0U);
        EXPECT_EQ(set.modified(), !loaded.ok());
        if (loaded.ok()) {
            EXPECT_EQ(set.size(), 1U);
            EXPECT_EQ(calls.count() - calls.count(test::Call::Close), n - 1) << "a failure went unnoticed";
            break;
        }
        ++reported;
        EXPECT_EQ(loaded.error().description, "Chyba vstupu nebo výstupu.");
    }
    // Three files are opened, looked at and read to their end.
    EXPECT_GE(reported, 12U);
}

TEST_F(LoaderErrors, InterruptedReadsAreRetried)
{
    test::FailingFileCalls calls;
    calls.failEverySecond(test::Call::Read, EINTR);
    ASSERT_TRUE(load(calls).ok());
    EXPECT_GE(calls.count(test::Call::Read), 12U);
    ASSERT_EQ(set.size(), 1U);
    EXPECT_EQ(set.at(1).Parameters(7), 8.0F);
}

TEST_F(LoaderErrors, ShortReadsGiveTheSameSources)
{
    test::FailingFileCalls calls;
    calls.shortTransfers(1);
    ASSERT_TRUE(load(calls).ok());
    ASSERT_EQ(set.size(), 1U);
    EXPECT_EQ(set.at(1).LineSource(), "000000001, 0000001, 0000002, 0003, 1, 4, 5 ;a");
    EXPECT_EQ(set.at(1).LineParameters() + "\r\n", oneDescription);
    EXPECT_EQ(set.at(1).LineDust() + "\r\n", oneDust);
}

// Numbers out of range

TEST_F(LoaderErrors, IntegerOutOfRangeInThePointsFileIsNamedByFileLineAndField)
{
    struct Case {
        std::string record;
        std::string description;
    };
    const std::vector<Case> cases{
        {"2, 3000000000, 0, 0, 1, 0, 0 ;b", "Číslo je mimo rozsah: pole 2, „3000000000“."},
        {"2, 0, -2147483649, 0, 1, 0, 0 ;b", "Číslo je mimo rozsah: pole 3, „-2147483649“."},
        {"2, 0, 0, 2147483647.5, 1, 0, 0 ;b", "Číslo je mimo rozsah: pole 4, „2147483647.5“."},
        {"2, 0, 0, 0, 1, 1E10, 0 ;b", "Číslo je mimo rozsah: pole 6, „1E10“."},
        {"2, 0, 0, 0, 1, 0, 1E400 ;b", "Číslo je mimo rozsah: pole 7, „1E400“."},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.record);
        writeFiles(";x\r\n\r\n" + std::string(onePoint) + c.record + "\r\n", "1\r\n2\r\n", oneDust);
        expectReadError(request.files.points, 4, c.description);
    }
}

TEST_F(LoaderErrors, SourceNumberOutOfRangeIsNamedByFileLineAndField)
{
    writeFiles(std::string(onePoint) + "99999999999, 0, 0, 0, 1, 0, 0 ;b\r\n", oneDescription, oneDust);
    expectReadError(request.files.points, 2, "Číslo je mimo rozsah: pole 1, „99999999999“.");
}

TEST_F(LoaderErrors, TypeCodeOutOfRangeIsNamedByFileLineAndField)
{
    writeFiles(std::string(onePoint) + "2, 0, 0, 0, 99999999999, 0, 0 ;b\r\n", oneDescription, oneDust);
    expectReadError(request.files.points, 2, "Číslo je mimo rozsah: pole 5, „99999999999“.");
}

TEST_F(LoaderErrors, ParameterOutOfRangeIsNamedByFileLineAndField)
{
    struct Case {
        std::string record;
        std::string description;
    };
    const std::vector<Case> cases{
        {"2, 4E38", "Číslo je mimo rozsah: pole 2, „4E38“."},
        {"2, 0, 0, 0, -1E39", "Číslo je mimo rozsah: pole 5, „-1E39“."},
        {"2, 0, 0, 0, 0, 0, 0, 0, 1E-60, 0", "Číslo je mimo rozsah: pole 9, „1E-60“."},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.record);
        writeFiles(std::string(onePoint) + "2, 0, 0, 0, 1, 0, 0 ;b\r\n",
            ";x\r\n" + c.record + "\r\n" + std::string(oneDescription), oneDust);
        expectReadError(request.files.description, 2, c.description);
    }
}

TEST_F(LoaderErrors, NinthParameterOfAnAreaOutOfRangeIsNamed)
{
    writeFiles("1, 0, 0, 0, 2, 0, 0 ;b\r\n", "1, 1, 2, 3, 4, 5, 6, 7, 8, 1E99\r\n", oneDust);
    expectReadError(request.files.description, 1, "Číslo je mimo rozsah: pole 10, „1E99“.");
}

TEST_F(LoaderErrors, LastFieldOfAStackIsNotReadAndSoNeverOutOfRange)
{
    writeFiles(onePoint, "1, 1, 2, 3, 4, 5, 6, 7, 8, 1E99\r\n", oneDust);
    EXPECT_TRUE(load().ok());
}

TEST_F(LoaderErrors, ParametersOfARecordWithoutASourceAreNotReadAndSoNeverOutOfRange)
{
    writeFiles(onePoint, std::string(oneDescription) + "2, 1E99\r\n1, 1E99\r\n", oneDust);
    EXPECT_TRUE(load().ok());
}

TEST_F(LoaderErrors, NumberOutOfRangeInTheDescriptionFileIsNamedByFileLineAndField)
{
    writeFiles(onePoint, std::string(oneDescription) + "\r\n1E999, 1\r\n", oneDust);
    expectReadError(request.files.description, 3, "Číslo je mimo rozsah: pole 1, „1E999“.");
    EXPECT_TRUE(set.empty()) << "the description file is read before the first source is made";
}

TEST_F(LoaderErrors, NumberOutOfRangeInTheDustFileIsNamedByFileLineAndField)
{
    writeFiles(onePoint, oneDescription, ";x\r\n" + std::string(oneDust) + "1E999,0,0,0\r\n");
    expectReadError(request.files.dust, 3, "Číslo je mimo rozsah: pole 1, „1E999“.");
    EXPECT_TRUE(set.empty());
}

TEST_F(LoaderErrors, WhenBothRecordsAreWrongThePointsRecordIsNamed)
{
    writeFiles("1, 1E10, 0, 0, 1, 0, 0 ;b\r\n", "1, 1E99\r\n", oneDust);
    expectReadError(request.files.points, 1, "Číslo je mimo rozsah: pole 2, „1E10“.");
}

TEST_F(LoaderErrors, OutOfRangeInARecordWithoutDescriptionIsNamedToo)
{
    writeFiles("1, 1E10, 0, 0, 1, 0, 0 ;b\r\n", "", oneDust);
    expectReadError(request.files.points, 1, "Číslo je mimo rozsah: pole 2, „1E10“.");
    EXPECT_TRUE(set.empty());
}

TEST_F(LoaderErrors, LongFieldIsCutInTheText)
{
    writeFiles(onePoint, "1, " + std::string(1000000, '9') + "\r\n", oneDust);
    expectReadError(request.files.description, 1, "Číslo je mimo rozsah: pole 2, „" + std::string(40, '9') + "…“.");
}

TEST_F(LoaderErrors, SourcesBeforeTheErrorStayAndWhatWasFoundIsReported)
{
    writeFiles(";Soupis\r\n1, 0, 0, 0, 1, 0, 0 ;a\r\n2, 0, 0, 0, 9, 0, 0 ;b\r\n3, 0, 0, 0, 1, 0, 0 ;c\r\n"
               "4, 0, 0, 0, 1, 0, 0 ;d\r\n5, 1E10, 0, 0, 1, 0, 0 ;e\r\n6, 0, 0, 0, 1, 0, 0 ;f\r\n",
        "1\r\n4\r\n5\r\n6\r\n", "1\r\n");
    set.modified(true);
    expectReadError(request.files.points, 6, "Číslo je mimo rozsah: pole 2, „1E10“.");
    ASSERT_EQ(set.size(), 3U);
    EXPECT_EQ(set.at(1).ICZ(), 1);
    EXPECT_EQ(set.at(2).ICZ(), 3);
    EXPECT_EQ(set.at(3).ICZ(), 4);
    EXPECT_TRUE(set.modified());
    EXPECT_EQ(report.comment, "Soupis");
    EXPECT_EQ(report.unknownType.size(), 1U);
    EXPECT_EQ(report.missingDescription.size(), 1U);
    EXPECT_EQ(report.missingDust.size(), 1U);
}

TEST_F(LoaderErrors, TextOfTheBoxHoldsTheDescriptionAnEmptyLineAndThePath)
{
    const FileError error{FileStep::Open, "/data/body.txt", 0, "Soubor nebo složka neexistuje."};
    EXPECT_EQ(error.message(), "Soubor nebo složka neexistuje.\n\n/data/body.txt");
}

TEST_F(LoaderErrors, TextOfTheBoxNamesTheLineWhereThereIsOne)
{
    const FileError error{FileStep::Read, "/data/body.txt", 37, "Číslo je mimo rozsah."};
    EXPECT_EQ(error.message(), "Řádek 37: Číslo je mimo rozsah.\n\n/data/body.txt");
}

}  // namespace
}  // namespace korvex
