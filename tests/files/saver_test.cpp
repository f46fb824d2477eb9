// Saving an inventory: the header lines, which sources in which order, the code page and what stays of the old files.
#include "failing_file_calls.h"

#include "arithmetic_fault.h"
#include "saver.h"
#include "source_editor.h"
#include "source_rows.h"
#include "source_set.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cstddef>
#include <cstdint>
#include <filesystem>
#include <limits>
#include <string>
#include <string_view>
#include <sys/stat.h>
#include <vector>

namespace korvex {
namespace {

namespace fs = std::filesystem;
using testing::ElementsAre;
using testing::IsEmpty;
using testing::Not;

class Saver : public testing::Test {
protected:
    Saver()
    {
        request.files = {folder.path("body.txt"), folder.path("popis.txt"), folder.path("prach.txt")};
        request.comment = "Soupis";
    }

    void add(const SourceType& type, std::int32_t number, std::string_view name)
    {
        const std::string text = std::to_string(number);
        set.addFromRecords(type, text + ", 1, 2, 3, 0, 4, 5 ;" + std::string(name), text + ", 1.5, 2");
        rows.add(false);
    }
    void addThree()
    {
        add(cBodovyZdroj, 2, "Kotelna");
        add(cPlosnyZdroj, 1, "Skládka");
        add(cLiniovyZdroj, 3, "Silnice");
    }

    Result<SaveReport> save()
    {
        listener.clear();
        return saveSourceSet(request, set, rows, listener);
    }
    void expectSaved()
    {
        const Result<SaveReport> saved = save();
        ASSERT_TRUE(saved.ok()) << saved.error().message();
    }

    /// The source numbers that a file's records begin with, in the order of the file.
    [[nodiscard]] std::vector<std::string> numbersIn(std::string_view file) const
    {
        std::vector<std::string> numbers;
        const std::string bytes = folder.bytes(file);
        for (std::size_t begin = 0; begin < bytes.size();) {
            const std::size_t end = bytes.find("\r\n", begin);
            if (end == std::string::npos) {
                ADD_FAILURE() << "the last line has no end";
                break;
            }
            if (bytes[begin] != ';')
                numbers.push_back(bytes.substr(begin, 9));
            begin = end + 2;
        }
        return numbers;
    }
    void expectNumbersInAllFiles(const std::vector<std::string>& numbers) const
    {
        EXPECT_EQ(numbersIn("body.txt"), numbers);
        EXPECT_EQ(numbersIn("popis.txt"), numbers);
        EXPECT_EQ(numbersIn("prach.txt"), numbers);
    }

    test::TemporaryFolder folder;
    SourceSet set;
    SourceRows rows;
    SaveRequest request;
    test::RecordingListener listener;
};

// Headers and records

TEST_F(Saver, WritesHeaderAndRecordsOfAllThreeFiles)
{
    addThree();
    set.last().LineDust("9,9,9");
    set.at(1).LineDust("1800,0,1,10,1");
    expectSaved();
    EXPECT_EQ(folder.bytes("body.txt"),
        ";Soupis\r\n;SOUBOR S BODY\r\n;Soubor s popisem: " + folder.path("popis.txt")
            + "\r\n;Soubor s prachem: " + folder.path("prach.txt")
            + "\r\n"
              "000000002, 0000001, 0000002, 0003, 1, 4, 5 ;Kotelna\r\n"
              "000000001, 0000001, 0000002, 0003, 2, 4, 5 ;Skl\xE1"
              "dka\r\n"
              "000000003, 0000001, 0000002, 0003, 3, 4, 5 ;Silnice\r\n");
    EXPECT_EQ(folder.bytes("popis.txt"),
        ";Soupis\r\n;SOUBOR S POPISEM (bod\xF9)\r\n;Soubor s body: " + folder.path("body.txt")
            + "\r\n;Soubor s prachem: " + folder.path("prach.txt")
            + "\r\n"
              "000000002, 1.5, 2, 0, 0, 0, 0, 0, 0, 0\r\n"
              "000000001, 1.5, 2, 0, 0, 0, 0, 0, 0, 0\r\n"
              "000000003, 1.5, 2, 0, 0, 0, 0, 0, 0, 0\r\n");
    EXPECT_EQ(folder.bytes("prach.txt"),
        ";Soupis\r\n;SOUBOR S PRACHEM\r\n;Soubor s popisem: " + folder.path("popis.txt")
            + "\r\n;Soubor s body: " + folder.path("body.txt")
            + "\r\n"
              "000000002,1800,0,1,10,1\r\n"
              "000000001\r\n"
              "000000003\r\n");
}

TEST_F(Saver, WithoutADustFileNoneIsNamedCreatedOrTouched)
{
    addThree();
    request.files.dust = "";
    expectSaved();
    EXPECT_EQ(folder.bytes("body.txt").substr(0, folder.bytes("body.txt").find("000000002")),
        ";Soupis\r\n;SOUBOR S BODY\r\n;Soubor s popisem: " + folder.path("popis.txt") + "\r\n");
    EXPECT_EQ(folder.bytes("popis.txt").substr(0, folder.bytes("popis.txt").find("000000002")),
        ";Soupis\r\n;SOUBOR S POPISEM (bod\xF9)\r\n;Soubor s body: " + folder.path("body.txt") + "\r\n");
    EXPECT_THAT(folder.names(), ElementsAre("body.txt", "popis.txt"));

    folder.write("prach.txt", "old dust");
    expectSaved();
    EXPECT_EQ(folder.bytes("prach.txt"), "old dust");
}

TEST_F(Saver, WithoutACommentThereAreNoHeaderLinesAtAll)
{
    addThree();
    for (const std::string_view comment : {"", "   ", "\t \t"}) {
        request.comment = comment;
        expectSaved();
        EXPECT_TRUE(folder.bytes("body.txt").starts_with("000000002, ")) << testing::PrintToString(comment);
        EXPECT_TRUE(folder.bytes("popis.txt").starts_with("000000002, "));
        EXPECT_TRUE(folder.bytes("prach.txt").starts_with("000000002,0,0,0\r\n"));
    }
}

TEST_F(Saver, CommentIsWrittenTrimmed)
{
    request.comment = " \t Soupis  A; \t";
    expectSaved();
    for (const std::string_view file : {"body.txt", "popis.txt", "prach.txt"})
        EXPECT_TRUE(folder.bytes(file).starts_with(";Soupis  A;\r\n")) << file;
}

TEST_F(Saver, HeaderNamesFullPathsEvenForRelativeNames)
{
    const fs::path before = fs::current_path();
    fs::current_path(folder.path());
    request.files = {"body.txt", "popis.txt", "prach.txt"};
    const Result<SaveReport> saved = save();
    fs::current_path(before);
    ASSERT_TRUE(saved.ok());
    EXPECT_EQ(folder.bytes("body.txt"),
        ";Soupis\r\n;SOUBOR S BODY\r\n;Soubor s popisem: " + folder.path("popis.txt")
            + "\r\n;Soubor s prachem: " + folder.path("prach.txt") + "\r\n");
    EXPECT_EQ(folder.bytes("prach.txt"),
        ";Soupis\r\n;SOUBOR S PRACHEM\r\n;Soubor s popisem: " + folder.path("popis.txt")
            + "\r\n;Soubor s body: " + folder.path("body.txt") + "\r\n");
}

TEST_F(Saver, InventoryOfManyBlocksIsWrittenWhole)
{
    // Some megabytes a file, and one record that is longer than a block of the output.
    std::string points;
    std::string description;
    std::string dust;
    constexpr std::int32_t count = 40000;
    for (std::int32_t number = 1; number <= count; ++number) {
        add(cBodovyZdroj, number, number == count / 2 ? std::string(std::size_t{3} << 20, 'x') : "zdroj");
        points += set.last().LineSource() + "\r\n";
        description += set.last().LineParameters() + "\r\n";
        dust += set.last().LineDust() + "\r\n";
    }
    request.comment = "";
    expectSaved();
    EXPECT_TRUE(folder.bytes("body.txt") == points);
    EXPECT_TRUE(folder.bytes("popis.txt") == description);
    EXPECT_TRUE(folder.bytes("prach.txt") == dust);
}

// Which sources, in which order

TEST_F(Saver, SourcesStandInDisplayOrder)
{
    addThree();
    expectSaved();
    expectNumbersInAllFiles({"000000002", "000000001", "000000003"});
    rows.sortByNumber(set, SortDirection::Ascending);
    expectSaved();
    expectNumbersInAllFiles({"000000001", "000000002", "000000003"});
    rows.sortByNumber(set, SortDirection::Descending);
    expectSaved();
    expectNumbersInAllFiles({"000000003", "000000002", "000000001"});
}

TEST_F(Saver, MarkedOnlyAreSavedInDisplayOrder)
{
    for (const std::int32_t number : {30, 10, 50, 20, 40})
        add(cBodovyZdroj, number, "");
    rows.sortByNumber(set, SortDirection::Descending);
    rows.mark(0, true);
    rows.mark(3, true);
    rows.mark(4, true);
    request.scope = SaveScope::Marked;
    expectSaved();
    expectNumbersInAllFiles({"000000050", "000000020", "000000010"});
}

TEST_F(Saver, MarksDoNotMatterWhenAllAreSaved)
{
    addThree();
    rows.mark(1, true);
    request.scope = SaveScope::All;
    expectSaved();
    expectNumbersInAllFiles({"000000002", "000000001", "000000003"});
}

TEST_F(Saver, WithNothingMarkedOnlyTheHeadersAreWritten)
{
    addThree();
    folder.write("body.txt", std::string(5000, 'o'));
    set.modified(true);
    request.scope = SaveScope::Marked;
    expectSaved();
    EXPECT_EQ(folder.bytes("body.txt"),
        ";Soupis\r\n;SOUBOR S BODY\r\n;Soubor s popisem: " + folder.path("popis.txt")
            + "\r\n;Soubor s prachem: " + folder.path("prach.txt") + "\r\n");
    expectNumbersInAllFiles({});
    EXPECT_FALSE(set.modified());
}

TEST_F(Saver, WithNothingMarkedAndNoCommentTheFilesAreEmpty)
{
    addThree();
    folder.write("popis.txt", std::string(5000, 'o'));
    set.modified(true);
    request.scope = SaveScope::Marked;
    request.comment = " ";
    expectSaved();
    EXPECT_EQ(folder.bytes("body.txt"), "");
    EXPECT_EQ(folder.bytes("popis.txt"), "");
    EXPECT_EQ(folder.bytes("prach.txt"), "");
    EXPECT_FALSE(set.modified());
}

TEST_F(Saver, EmptySetIsSavedAsHeaders)
{
    expectSaved();
    EXPECT_EQ(folder.bytes("popis.txt"),
        ";Soupis\r\n;SOUBOR S POPISEM (bod\xF9)\r\n;Soubor s body: " + folder.path("body.txt")
            + "\r\n;Soubor s prachem: " + folder.path("prach.txt") + "\r\n");
}

TEST_F(Saver, SavingChangesNeitherOrderNorMarks)
{
    addThree();
    rows.sortByNumber(set, SortDirection::Descending);
    rows.mark(0, true);
    expectSaved();
    EXPECT_EQ(rows.tag(0), 3U);
    EXPECT_TRUE(rows.marked(0));
    EXPECT_EQ(rows.marks().count(), 1U);
    EXPECT_EQ(set.at(1).ICZ(), 2);
}

// The modified flag and the progress

TEST_F(Saver, ModifiedFlagIsClearedAlsoWhenOnlyTheMarkedAreSaved)
{
    addThree();
    rows.mark(1, true);
    for (const SaveScope scope : {SaveScope::All, SaveScope::Marked}) {
        request.scope = scope;
        set.modified(true);
        expectSaved();
        EXPECT_FALSE(set.modified());
    }
}

TEST_F(Saver, ProgressCountsAllRowsAndTwoMore)
{
    addThree();
    request.scope = SaveScope::Marked;
    expectSaved();
    EXPECT_THAT(listener.maxima, ElementsAre(5U));
    EXPECT_THAT(listener.values, ElementsAre(1U, 1U, 2U, 3U));
}

// The code page

TEST_F(Saver, TextIsWrittenInTheCodePage)
{
    add(cBodovyZdroj, 1, "Příliš žluťoučký kůň €\u0081\u0098");
    set.last().LineDust("ů,0,0");
    request.comment = "Úpěl ďábelské ódy";
    const Result<SaveReport> saved = save();
    ASSERT_TRUE(saved.ok());
    EXPECT_THAT(folder.bytes("body.txt"),
        testing::EndsWith(" ;P\xF8\xEDli\x9A \x9Elu\x9Dou\xE8k\xFD k\xF9\xF2 \x80\x81\x98\r\n"));
    EXPECT_THAT(folder.bytes("prach.txt"), testing::EndsWith("\r\n000000001,\xF9,0,0\r\n"));
    for (const std::string_view file : {"body.txt", "popis.txt", "prach.txt"})
        EXPECT_THAT(folder.bytes(file),
            testing::StartsWith(";\xDAp\xECl \xEF\xE1"
                                "belsk\xE9 \xF3"
                                "dy\r\n"));
    EXPECT_THAT(saved.value().replacedIn, IsEmpty());
    EXPECT_FALSE(saved.value().replacedInHeader);
}

/// Only an editor can bring such a name: a load ends it at the semicolon.
class NamingEditor : public SourceEditor {
public:
    explicit NamingEditor(std::string name) : m_name(std::move(name)) { }
    [[nodiscard]] bool edit(const SourceType& /*type*/, SourceValues& values) override
    {
        values.name = m_name;
        return true;
    }

private:
    std::string m_name;
};

TEST_F(Saver, NamesWithASemicolonAreWrittenWholeAndReportedWithTheirSources)
{
    add(cPlosnyZdroj, 5, "Skládka");
    add(cPlosnyZdroj, 4, "");
    NamingEditor editor("sklad; dvůr");
    set.last().Edit(editor);
    const Result<SaveReport> saved = save();
    ASSERT_TRUE(saved.ok());
    EXPECT_THAT(saved.value().semicolonIn, ElementsAre(4));
    EXPECT_THAT(saved.value().replacedIn, IsEmpty());
    EXPECT_THAT(folder.bytes("body.txt"), testing::HasSubstr(" ;sklad; dv\xF9r\r\n"));
}

TEST_F(Saver, CharactersThatTheCodePageLacksAreQuestionMarksAndReportedWithTheirSources)
{
    add(cBodovyZdroj, 5, "Ω kotelna 日本");
    add(cPlosnyZdroj, 4, "Skládka");
    add(cLiniovyZdroj, 3, "Straße ≤ 30");
    add(cBodovyZdroj, 2, "");
    set.last().LineDust("0,0,0 µm²");
    add(cPlosnyZdroj, 1, "");
    set.last().LineDust("Ω");  // never written
    const Result<SaveReport> saved = save();
    ASSERT_TRUE(saved.ok());
    EXPECT_THAT(saved.value().replacedIn, ElementsAre(5, 3, 2));
    EXPECT_FALSE(saved.value().replacedInHeader);
    EXPECT_THAT(folder.bytes("body.txt"), testing::HasSubstr(" ;? kotelna ??\r\n"));
    EXPECT_THAT(folder.bytes("body.txt"),
        testing::HasSubstr(" ;Stra\xDF"
                           "e ? 30\r\n"));
    EXPECT_THAT(folder.bytes("prach.txt"), testing::HasSubstr("000000002,0,0,0 \xB5m?\r\n"));
}

TEST_F(Saver, LostCharactersAreNotReportedOfDustThatIsNotWritten)
{
    add(cBodovyZdroj, 1, "");
    set.last().LineDust("Ω");
    request.files.dust = "";
    const Result<SaveReport> saved = save();
    ASSERT_TRUE(saved.ok());
    EXPECT_THAT(saved.value().replacedIn, IsEmpty());
}

TEST_F(Saver, LostCharactersAreReportedOfSavedSourcesOnlyInDisplayOrder)
{
    for (const std::int32_t number : {1, 2, 3, 4})
        add(cBodovyZdroj, number, "Ω");
    rows.sortByNumber(set, SortDirection::Descending);
    rows.mark(0, true);
    rows.mark(2, true);
    request.scope = SaveScope::Marked;
    const Result<SaveReport> saved = save();
    ASSERT_TRUE(saved.ok());
    EXPECT_THAT(saved.value().replacedIn, ElementsAre(4, 2));
}

TEST_F(Saver, LostCharactersOfCommentAndFileNamesAreReportedOfTheHeader)
{
    request.comment = "Ω";
    Result<SaveReport> saved = save();
    ASSERT_TRUE(saved.ok());
    EXPECT_TRUE(saved.value().replacedInHeader);
    EXPECT_TRUE(folder.bytes("body.txt").starts_with(";?\r\n"));

    request.comment = "Soupis";
    request.files.dust = folder.path("Ω.txt");
    saved = save();
    ASSERT_TRUE(saved.ok());
    EXPECT_TRUE(saved.value().replacedInHeader);
    EXPECT_THAT(folder.bytes("popis.txt"), testing::EndsWith("/?.txt\r\n"));
    EXPECT_TRUE(folder.has("Ω.txt")) << "the file itself keeps its name";

    request.comment = "";
    saved = save();
    ASSERT_TRUE(saved.ok());
    EXPECT_FALSE(saved.value().replacedInHeader) << "no header, nothing lost";
}

// What stays of the files

TEST_F(Saver, LongerAndShorterContentsReplaceTheOldOnesWhole)
{
    addThree();
    expectSaved();
    const std::string expected = folder.bytes("body.txt");
    for (const std::size_t oldSize : {std::size_t{0}, std::size_t{1}, expected.size(), std::size_t{100000}}) {
        for (const std::string_view file : {"body.txt", "popis.txt", "prach.txt"})
            folder.write(file, std::string(oldSize, 'o'));
        expectSaved();
        EXPECT_EQ(folder.bytes("body.txt"), expected);
        expectNumbersInAllFiles({"000000002", "000000001", "000000003"});
    }
}

TEST_F(Saver, SymbolicLinkStaysAndItsTargetIsWritten)
{
    addThree();
    folder.write("pravy.txt", "old");
    fs::create_symlink("pravy.txt", folder.path("body.txt"));
    fs::create_symlink("novy.txt", folder.path("popis.txt"));
    expectSaved();
    EXPECT_TRUE(fs::is_symlink(folder.path("body.txt")));
    EXPECT_TRUE(fs::is_symlink(folder.path("popis.txt")));
    EXPECT_FALSE(fs::is_symlink(folder.path("pravy.txt")));
    EXPECT_EQ(folder.bytes("pravy.txt"), folder.bytes("body.txt"));
    EXPECT_TRUE(fs::is_regular_file(folder.path("novy.txt"))) << "a link to nothing gets its target";
    expectNumbersInAllFiles({"000000002", "000000001", "000000003"});
}

TEST_F(Saver, ModeInodeAndHardLinksStay)
{
    addThree();
    const std::string path = folder.write("body.txt", std::string(5000, 'o'));
    ASSERT_EQ(::chmod(path.c_str(), 0640), 0);
    fs::create_hard_link(path, folder.path("druhy.txt"));
    struct stat before { };
    ASSERT_EQ(::stat(path.c_str(), &before), 0);
    expectSaved();
    struct stat after { };
    ASSERT_EQ(::stat(path.c_str(), &after), 0);
    EXPECT_EQ(after.st_mode, before.st_mode);
    EXPECT_EQ(after.st_ino, before.st_ino);
    EXPECT_EQ(after.st_nlink, 2U);
    EXPECT_EQ(folder.bytes("druhy.txt"), folder.bytes("body.txt"));
}

TEST_F(Saver, NewFilesObeyTheUmask)
{
    const mode_t before = ::umask(027);
    const Result<SaveReport> saved = save();
    ::umask(before);
    ASSERT_TRUE(saved.ok());
    struct stat status { };
    ASSERT_EQ(::stat(folder.path("body.txt").c_str(), &status), 0);
    EXPECT_EQ(status.st_mode & 07777, 0640U);
}

TEST_F(Saver, OldFilesAreCopiedBeforeTheyAreReplaced)
{
    const test::TemporaryFolder copies;
    addThree();
    for (const std::string_view file : {"body.txt", "popis.txt", "prach.txt"})
        folder.write(file, "old " + std::string(file));
    request.copies = SafetyCopies(copies.path());
    expectSaved();
    ASSERT_EQ(copies.names().size(), 1U);
    const std::string made = copies.names().front();
    EXPECT_EQ(copies.bytes(made + "/1-body.txt"), "old body.txt");
    EXPECT_EQ(copies.bytes(made + "/2-popis.txt"), "old popis.txt");
    EXPECT_EQ(copies.bytes(made + "/3-prach.txt"), "old prach.txt");
    EXPECT_THAT(folder.bytes("body.txt"), Not(testing::HasSubstr("old")));
}

TEST_F(Saver, NumberThatNoFileCanHoldStopsTheSaveBeforeAnythingIsOpened)
{
    addThree();
    folder.write("body.txt", "old");
    for (const float value : {std::numeric_limits<float>::infinity(), std::numeric_limits<float>::quiet_NaN()}) {
        set.at(3).Parameters(8, value);
        set.modified(true);
        test::FailingFileCalls calls;
        EXPECT_THROW(static_cast<void>(saveSourceSet(request, set, rows, listener, calls)), ArithmeticFault);
        EXPECT_EQ(calls.count(), 0U);
        EXPECT_TRUE(set.modified());
        EXPECT_EQ(folder.bytes("body.txt"), "old");
        EXPECT_THAT(folder.names(), ElementsAre("body.txt"));
        listener.clear();
    }
}

}  // namespace
}  // namespace korvex
