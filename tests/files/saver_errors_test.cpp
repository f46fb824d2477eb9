// Saves that cannot be done: every file stays as it was, nothing new is left behind, and the flag is kept.
#include "failing_file_calls.h"

#include "saver.h"
#include "source_rows.h"
#include "source_set.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <fcntl.h>
#include <filesystem>
#include <string>
#include <string_view>
#include <sys/stat.h>
#include <unistd.h>
#include <vector>

namespace korvex {
namespace {

namespace fs = std::filesystem;
using testing::ElementsAre;

constexpr std::string_view sameFile = "Dva z ukládaných souborů mají stejný název.";

constexpr fs::perms readOnlyFolder = fs::perms::owner_read | fs::perms::owner_exec | fs::perms::group_read
    | fs::perms::group_exec | fs::perms::others_read | fs::perms::others_exec;

class SaverErrors : public testing::Test {
protected:
    SaverErrors()
    {
        set.addFromRecords(cBodovyZdroj, "1, 2, 3, 4, 1, 5, 6 ;a", "1, 1, 2, 3, 4, 5, 6, 7, 8, 0");
        rows.refill(set.size());
        request.files = {folder.path("body.txt"), folder.path("popis.txt"), folder.path("prach.txt")};
        request.comment = "Soupis";
    }

    Result<SaveReport> save()
    {
        set.modified(true);
        test::RecordingListener listener;
        return saveSourceSet(request, set, rows, listener);
    }

    void expectRefused(const std::string& path, std::string_view description)
    {
        const Result<SaveReport> saved = save();
        ASSERT_FALSE(saved.ok());
        EXPECT_EQ(saved.error().step, FileStep::Open);
        EXPECT_EQ(saved.error().path, path);
        EXPECT_EQ(saved.error().line, 0U);
        EXPECT_EQ(saved.error().description, description);
        EXPECT_TRUE(set.modified());
    }

    /// Saves with each of the three files in turn replaced by the path; once with the other two there, once without.
    void expectRefusedWhereverItStands(const std::string& path, std::string_view description)
    {
        const SourceFiles good = request.files;
        const std::vector<std::string> besides = folder.names();
        for (std::string SourceFiles::*file : {&SourceFiles::points, &SourceFiles::description, &SourceFiles::dust}) {
            request.files = good;
            request.files.*file = path;
            expectRefused(path, description);
            EXPECT_EQ(folder.names(), besides) << "no new file is left behind";

            std::vector<std::string> others;
            for (const std::string& other : {good.points, good.description, good.dust}) {
                if (other == good.*file)
                    continue;
                test::writeBytes(other, "old " + other);
                others.push_back(other);
            }
            expectRefused(path, description);
            for (const std::string& other : others) {
                EXPECT_EQ(test::bytesOf(other), "old " + other);
                fs::remove(other);
            }
        }
        request.files = good;
    }

    test::TemporaryFolder folder;
    SourceSet set;
    SourceRows rows;
    SaveRequest request;
};

TEST_F(SaverErrors, FolderInsteadOfAFile)
{
    fs::create_directory(folder.path("slozka"));
    expectRefusedWhereverItStands(folder.path("slozka"), "Místo souboru je zde složka.");
}

TEST_F(SaverErrors, MissingFolder)
{
    expectRefusedWhereverItStands(folder.path("chybi/body.txt"), "Soubor nebo složka neexistuje.");
    EXPECT_FALSE(folder.has("chybi"));
}

TEST_F(SaverErrors, LinkIntoAMissingFolder)
{
    fs::create_symlink("chybi/body.txt", folder.path("odkaz"));
    expectRefusedWhereverItStands(folder.path("odkaz"), "Soubor nebo složka neexistuje.");
    EXPECT_TRUE(fs::is_symlink(folder.path("odkaz")));
}

TEST_F(SaverErrors, PathThroughAFile)
{
    folder.write("soubor", "x");
    expectRefusedWhereverItStands(folder.path("soubor/body.txt"), "Část cesty k souboru není složka.");
    EXPECT_EQ(folder.bytes("soubor"), "x");
}

TEST_F(SaverErrors, NameThatIsTooLong)
{
    expectRefusedWhereverItStands(folder.path(std::string(300, 'x')), "Název souboru je příliš dlouhý.");
}

TEST_F(SaverErrors, LoopOfLinks)
{
    fs::create_symlink("b", folder.path("a"));
    fs::create_symlink("a", folder.path("b"));
    expectRefusedWhereverItStands(folder.path("a"), "Odkazy v cestě k souboru tvoří smyčku.");
}

TEST_F(SaverErrors, PipeIsRefusedAtOnceInsteadOfWaitedFor)
{
    ASSERT_EQ(::mkfifo(folder.path("roura").c_str(), 0666), 0);
    expectRefusedWhereverItStands(folder.path("roura"), "Není to obyčejný soubor.");
}

TEST_F(SaverErrors, PipeThatSomebodyReadsFromIsRefusedToo)
{
    const std::string path = folder.path("roura");
    ASSERT_EQ(::mkfifo(path.c_str(), 0666), 0);
    const int reader = ::open(path.c_str(), O_RDONLY | O_NONBLOCK | O_CLOEXEC);
    ASSERT_GE(reader, 0);
    expectRefusedWhereverItStands(path, "Není to obyčejný soubor.");
    char byte = 0;
    EXPECT_EQ(::read(reader, &byte, 1), 0) << "nothing was written into it";
    ::close(reader);
}

TEST_F(SaverErrors, TwoFilesOfOneNameAreRefused)
{
    for (const std::string_view existing : {"", "body.txt"}) {
        if (!existing.empty())
            folder.write(existing, "old");
        request.files = {folder.path("body.txt"), folder.path("body.txt"), folder.path("prach.txt")};
        expectRefused(folder.path("body.txt"), sameFile);
        request.files = {folder.path("body.txt"), folder.path("popis.txt"), folder.path("body.txt")};
        expectRefused(folder.path("body.txt"), sameFile);
        request.files = {folder.path("popis.txt"), folder.path("body.txt"), folder.path("body.txt")};
        expectRefused(folder.path("body.txt"), sameFile);
        EXPECT_EQ(folder.names().size(), existing.empty() ? 0U : 1U);
    }
    EXPECT_THAT(folder.names(), ElementsAre("body.txt"));
    EXPECT_EQ(folder.bytes("body.txt"), "old");
}

TEST_F(SaverErrors, TwoNamesOfOneFileAreRefused)
{
    folder.write("body.txt", "old");
    fs::create_symlink("body.txt", folder.path("odkaz"));
    fs::create_hard_link(folder.path("body.txt"), folder.path("druhy"));
    for (const std::string& other : {folder.path("odkaz"), folder.path("druhy"), folder.path("./body.txt")}) {
        request.files.description = other;
        expectRefused(other, sameFile);
        EXPECT_EQ(folder.bytes("body.txt"), "old");
    }
    EXPECT_THAT(folder.names(), ElementsAre("body.txt", "druhy", "odkaz"));
}

TEST_F(SaverErrors, LinkToTheOtherFileThatDoesNotExistYetIsRefusedAndStays)
{
    fs::create_symlink("popis.txt", folder.path("odkaz"));
    request.files.points = folder.path("odkaz");
    expectRefused(folder.path("popis.txt"), sameFile);
    EXPECT_THAT(folder.names(), ElementsAre("odkaz"));
    EXPECT_TRUE(fs::is_symlink(folder.path("odkaz")));
}

TEST_F(SaverErrors, ReadOnlyFile)
{
    const std::string path = folder.write("pouze_ke_cteni.txt", "old");
    fs::permissions(path, fs::perms::owner_read | fs::perms::group_read | fs::perms::others_read);
    // The ordinary user has to be able to make the other two.
    fs::permissions(folder.path(), fs::perms::all);
    const test::OrdinaryUser user;
    if (!user.isOrdinary())
        GTEST_SKIP() << "the administrator may write everything";
    expectRefusedWhereverItStands(path, "K souboru chybí oprávnění.");
    EXPECT_EQ(test::bytesOf(path), "old");
}

TEST_F(SaverErrors, NewFileInAReadOnlyFolder)
{
    fs::create_directory(folder.path("zamcena"));
    fs::permissions(folder.path("zamcena"), readOnlyFolder);
    fs::permissions(folder.path(), fs::perms::all);
    {
        const test::OrdinaryUser user;
        if (!user.isOrdinary())
            GTEST_SKIP() << "the administrator may write everywhere";
        expectRefusedWhereverItStands(folder.path("zamcena/body.txt"), "K souboru chybí oprávnění.");
    }
    EXPECT_TRUE(fs::is_empty(folder.path("zamcena")));
}

TEST_F(SaverErrors, ExistingFilesOfAReadOnlyFolderAreSaved)
{
    for (const std::string_view name : {"body.txt", "popis.txt", "prach.txt"})
        fs::permissions(folder.write(name, "old"), fs::perms::all);
    fs::permissions(folder.path(), readOnlyFolder);
    {
        const test::OrdinaryUser user;
        if (!user.isOrdinary())
            GTEST_SKIP() << "the administrator may write everywhere";
        const Result<SaveReport> saved = save();
        EXPECT_TRUE(saved.ok()) << saved.error().message();
    }
    fs::permissions(folder.path(), fs::perms::all);
    EXPECT_EQ(folder.bytes("prach.txt").substr(0, 9), ";Soupis\r\n");
}

// A device that is always full: found only when writing

TEST_F(SaverErrors, FullDeviceInTheFirstPlaceLeavesTheOthersAsTheyWere)
{
    request.files.points = "/dev/full";
    folder.write("popis.txt", "old");
    const Result<SaveReport> saved = save();
    ASSERT_FALSE(saved.ok());
    EXPECT_EQ(saved.error().step, FileStep::Write);
    EXPECT_EQ(saved.error().path, "/dev/full");
    EXPECT_EQ(saved.error().description, "Na disku není dost místa.");
    EXPECT_TRUE(set.modified());
    EXPECT_THAT(folder.names(), ElementsAre("popis.txt"));
    EXPECT_EQ(folder.bytes("popis.txt"), "old");
}

TEST_F(SaverErrors, FullDeviceInTheSecondPlaceComesAfterTheFirstFileIsWritten)
{
    request.files.description = "/dev/full";
    folder.write("body.txt", "old");
    const Result<SaveReport> saved = save();
    ASSERT_FALSE(saved.ok());
    EXPECT_EQ(saved.error().path, "/dev/full");
    EXPECT_TRUE(set.modified());
    EXPECT_THAT(folder.names(), ElementsAre("body.txt"));
    EXPECT_EQ(folder.bytes("body.txt"),
        ";Soupis\r\n;SOUBOR S BODY\r\n;Soubor s popisem: /dev/full\r\n;Soubor s prachem: " + folder.path("prach.txt")
            + "\r\n000000001, 0000002, 0000003, 0004, 1, 5, 6 ;a\r\n");
}

TEST_F(SaverErrors, DeviceThatSwallowsEverythingIsWrittenTo)
{
    request.files.points = "/dev/null";
    request.files.dust = "/dev/null";
    EXPECT_TRUE(save().ok());
    EXPECT_FALSE(set.modified());
    EXPECT_THAT(folder.names(), ElementsAre("popis.txt"));
}

TEST_F(SaverErrors, FileWithoutANameIsNamedByWhatItHolds)
{
    const std::pair<const char*, SourceFiles> cases[]{
        {"body", {"", folder.path("popis.txt"), ""}}, {"popisem", {folder.path("body.txt"), "", ""}}};
    for (const auto& [contents, files] : cases) {
        request.files = files;
        test::RecordingListener nobody;
        const Result<SaveReport> saved = saveSourceSet(request, set, rows, nobody);
        ASSERT_FALSE(saved.ok());
        EXPECT_EQ(saved.error().message(), std::string("Není zadán soubor s ") + contents + ".");
    }
    EXPECT_TRUE(folder.names().empty()) << "nothing was written";
}

}  // namespace
}  // namespace korvex
