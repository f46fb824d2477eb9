// The core uses nothing that obeys a locale: the real source tree, and planted faults that show that the check works.
#include "folder_table.h"
#include "locale_rules.h"
#include "source_text.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <fstream>
#include <iterator>
#include <string>
#include <vector>

namespace korvex::architecture {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::SizeIs;

/// What the core may do all the same.
const std::vector<AllowedWord> allowedInTheCore{
    {"files/file_error.cpp", "to_string", 1, "numbers of lines are integers: no locale writes them otherwise"},
    {"files/safety_copies.cpp", "ofstream", 2, "only texts are written: names, tabulators and paths"},
    {"files/safety_copies.cpp", "ifstream", 1, "only lines of text are read"},
    {"cli/", "cout", 0, "a program answers on its terminal"},
    {"cli/", "cerr", 0, "a program complains on its terminal"},
};

std::vector<std::string> faultsIn(const std::string& path, const std::string& text)
{
    const FolderTable table = parseFolderTable("core | | no\ntool | core | no\nshell | core | yes\n");
    return localeFaults(table, {{path, text}}, {});
}

TEST(SourceTree, TheCoreUsesNothingThatObeysALocale)
{
    std::ifstream file(KORVEX_SOURCE_DIR "/cmake/folders.txt", std::ios::binary);
    ASSERT_TRUE(file.is_open());
    const FolderTable table
        = parseFolderTable(std::string(std::istreambuf_iterator<char>(file), std::istreambuf_iterator<char>()));
    const std::vector<SourceFile> files = readSourceFiles(KORVEX_SOURCE_DIR "/src");
    EXPECT_THAT(localeFaults(table, files, allowedInTheCore), IsEmpty());
    // Without its exceptions the same tree has faults: the check reads what it should.
    EXPECT_THAT(localeFaults(table, files, {}), testing::Contains(HasSubstr("src/files/safety_copies.cpp:")));
}

TEST(SourceTree, EveryExceptionHasItsReason)
{
    for (const AllowedWord& allowed : allowedInTheCore)
        EXPECT_FALSE(allowed.reason.empty()) << allowed.path << ' ' << allowed.word;
}

TEST(PlantedLocale, AFaultNamesFileLineWordAndWayOut)
{
    EXPECT_THAT(faultsIn("core/a.cpp", "#include <cstdlib>\n\ndouble d = std::strtod(text, nullptr);\n"),
        ElementsAre("src/core/a.cpp:3: strtod reads as the locale writes numbers; number_text.h does not"));
}

TEST(PlantedLocale, EveryForbiddenKindIsFound)
{
    for (const std::string code : {"x = strtod(t, 0);", "x = std::stof(t);", "x = std::stod(t);", "x = atof(t);",
             "printf(\"%g\", x);", "std::snprintf(b, n, \"%g\", x);", "vfprintf(f, t, a);", "sscanf(t, \"%g\", &x);",
             "t = std::to_string(1.5);", "if (isdigit(c)) { }", "if (std::isspace(c)) { }", "c = tolower(c);",
             "c = std::toupper(c);", "setlocale(LC_ALL, \"\");", "std::locale l;", "std::stringstream s;",
             "std::ostringstream s;", "std::ifstream f(p);", "std::cout << 1.5;", "std::regex r(t);"}) {
        EXPECT_THAT(faultsIn("core/a.cpp", code), SizeIs(1)) << code;
        EXPECT_THAT(faultsIn("tool/a.h", code), SizeIs(1)) << code;
    }
}

TEST(PlantedLocale, OnlyWholeWordsOfCodeCount)
{
    EXPECT_THAT(faultsIn("core/a.cpp",
                    "#include <locale>\n"
                    "// std::stod would obey the locale\n"
                    "const char* text = \"printf\"; /* isdigit */\n"
                    "int my_printf = to_string_view(isDigit(tolower_));\n"),
        IsEmpty());
}

TEST(PlantedLocale, FoldersWithQtAndFilesBesideTheFoldersAreNotAskedFor)
{
    EXPECT_THAT(faultsIn("shell/a.cpp", "std::stod(t);"), IsEmpty());
    EXPECT_THAT(faultsIn("main.cpp", "std::cout << t;"), IsEmpty());
}

TEST(PlantedLocale, AnExceptionCoversItsFileAndWordAsOftenAsItSays)
{
    const FolderTable table = parseFolderTable("core | | no\n");
    const std::vector<AllowedWord> once{{"core/a.cpp", "to_string", 1, "an integer"}};
    const SourceFile good{"core/a.cpp", "std::to_string(1);"};
    EXPECT_THAT(localeFaults(table, {good}, once), IsEmpty());
    EXPECT_THAT(localeFaults(table, {{"core/a.cpp", good.text + good.text}}, once),
        ElementsAre("src/core/a.cpp: to_string is allowed 1 times but stands there 2 times"));
    EXPECT_THAT(localeFaults(table, {{"core/a.cpp", ""}}, once),
        ElementsAre("src/core/a.cpp: to_string is allowed 1 times but stands there 0 times"));
    EXPECT_THAT(localeFaults(table, {good, {"core/b.cpp", "std::to_string(2);"}}, once),
        ElementsAre(HasSubstr("src/core/b.cpp:1: to_string")));
    EXPECT_THAT(localeFaults(table, {{"core/a.cpp", good.text + "stod(t);"}}, once),
        ElementsAre(HasSubstr("src/core/a.cpp:1: stod")));
}

TEST(PlantedLocale, AnExceptionOfAFolderCoversItsFiles)
{
    const FolderTable table = parseFolderTable("core | | no\ntool | | no\n");
    const std::vector<AllowedWord> inTool{{"tool/", "cout", 0, "a program answers on its terminal"}};
    EXPECT_THAT(localeFaults(table, {{"tool/a.cpp", "std::cout << t; std::cout << u;"}}, inTool), IsEmpty());
    EXPECT_THAT(localeFaults(table, {{"core/a.cpp", "std::cout << t;"}}, inTool), SizeIs(1));
}

}  // namespace
}  // namespace korvex::architecture
