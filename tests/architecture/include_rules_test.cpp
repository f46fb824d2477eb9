// Includes keep to the folder table: the real source tree, and planted faults that show that the check finds them.
#include "folder_table.h"
#include "source_text.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <stdexcept>
#include <string>
#include <vector>

namespace korvex::architecture {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;

const std::string sourceRoot = KORVEX_SOURCE_DIR "/src";

FolderTable realTable()
{
    std::ifstream file(KORVEX_SOURCE_DIR "/cmake/folders.txt", std::ios::binary);
    EXPECT_TRUE(file.is_open());
    return parseFolderTable(std::string(std::istreambuf_iterator<char>(file), std::istreambuf_iterator<char>()));
}

/// Three layers, the topmost with Qt.
FolderTable smallTable()
{
    return parseFolderTable("# a comment\n"
                            "\n"
                            "low/text |                | no\n"
                            "low      | low/text       | no\n"
                            "high     | low/text low   | yes\n");
}

std::vector<std::string> faultsIn(std::vector<SourceFile> files)
{
    files.push_back({"low/text/leaf.h", ""});
    files.push_back({"low/middle.h", ""});
    files.push_back({"high/top.h", ""});
    files.push_back({"high/version.h.in", ""});
    return includeFaults(smallTable(), files);
}

TEST(SourceTree, TheFolderTableIsSound)
{
    const FolderTable table = realTable();
    EXPECT_THAT(tableFaults(table), IsEmpty());
    ASSERT_NE(rowOf(table, "files/text/number_text.cpp"), nullptr);
    EXPECT_THAT(rowOf(table, "files/text/number_text.cpp")->mayUse, IsEmpty());
    EXPECT_EQ(rowOf(table, "files/text/number_text.cpp")->qt, QtUse::Forbidden);
}

TEST(SourceTree, EveryIncludeIsOneThatTheFolderTableAllows)
{
    EXPECT_THAT(includeFaults(realTable(), readSourceFiles(sourceRoot)), IsEmpty());
}

TEST(SourceTree, HeaderNamesAreUnique)
{
    EXPECT_THAT(headerNameFaults(readSourceFiles(sourceRoot)), IsEmpty());
}

TEST(SourceTree, TheScanReachesEveryFolderOfTheTable)
{
    const std::vector<SourceFile> files = readSourceFiles(sourceRoot);
    const auto has = [&](const std::string& path) {
        return std::any_of(files.begin(), files.end(), [&](const SourceFile& file) { return file.path == path; });
    };
    EXPECT_TRUE(has("main.cpp"));
    EXPECT_TRUE(has("app/version.h.in"));
    EXPECT_TRUE(has("files/text/number_text.h"));
    for (const FolderRow& row : realTable()) {
        const bool isBuilt = std::filesystem::exists(std::filesystem::path(sourceRoot) / row.folder / "CMakeLists.txt");
        const auto belongs = [&](const SourceFile& file) {
            const FolderRow* const own = rowOf({row}, file.path);
            return own != nullptr && !includesOf(file.text).empty();
        };
        EXPECT_EQ(std::any_of(files.begin(), files.end(), belongs), isBuilt) << row.folder;
    }
}

TEST(FolderTable, RowsAreReadWithTheirFoldersAndQt)
{
    const FolderTable table = smallTable();
    ASSERT_EQ(table.size(), 3U);
    EXPECT_EQ(table[2].folder, "high");
    EXPECT_THAT(table[2].mayUse, ElementsAre("low/text", "low"));
    EXPECT_EQ(table[2].qt, QtUse::Allowed);
    EXPECT_EQ(table[0].qt, QtUse::Forbidden);
}

TEST(FolderTable, ALineThatIsNoRowIsRefused)
{
    EXPECT_THROW(static_cast<void>(parseFolderTable("low | | maybe\n")), std::runtime_error);
    EXPECT_THROW(static_cast<void>(parseFolderTable("low no\n")), std::runtime_error);
}

TEST(FolderTable, AFileBelongsToTheDeepestFolderWithARow)
{
    const FolderTable table = smallTable();
    EXPECT_EQ(rowOf(table, "low/text/a.h")->folder, "low/text");
    EXPECT_EQ(rowOf(table, "low/textual/a.h")->folder, "low");
    EXPECT_EQ(rowOf(table, "lower/a.h"), nullptr);
    EXPECT_EQ(rowOf(table, "main.cpp"), nullptr);
}

TEST(FolderTable, CirclesDoubleRowsAndQtFromBelowAreFaults)
{
    EXPECT_THAT(tableFaults(smallTable()), IsEmpty());
    EXPECT_THAT(
        tableFaults(parseFolderTable("a | b | no\nb | a | no\n")), ElementsAre("a uses b, which is no row above it"));
    EXPECT_THAT(tableFaults(parseFolderTable("a | a | no\n")), ElementsAre("a uses a, which is no row above it"));
    EXPECT_THAT(tableFaults(parseFolderTable("a | | no\na | | yes\n")), ElementsAre("a has two rows"));
    EXPECT_THAT(
        tableFaults(parseFolderTable("a | | yes\nb | a | no\n")), ElementsAre("b has no Qt but uses a, which has"));
}

TEST(PlantedInclude, DownwardsAndWithinAFolderIsNoFault)
{
    EXPECT_THAT(
        faultsIn({
            {"high/a.cpp", "#include \"top.h\"\n#include \"middle.h\"\n#include \"leaf.h\"\n#include <QString>"},
            {"low/a.cpp", "#include \"middle.h\"\n#include \"leaf.h\"\n#include <queue>\n#include <cstddef>"},
            {"main.cpp", "#include \"version.h\"\n#include \"leaf.h\"\n#include <QApplication>"},
        }),
        IsEmpty());
}

TEST(PlantedInclude, UpwardsIsAFaultThatNamesFileAndLine)
{
    EXPECT_THAT(faultsIn({{"low/a.cpp", "// one\n\n#include \"top.h\"\n"}}),
        ElementsAre("src/low/a.cpp:3: src/low may not use src/high: \"top.h\""));
    EXPECT_THAT(faultsIn({{"low/text/a.h", "#include \"middle.h\"\n"}}),
        ElementsAre("src/low/text/a.h:1: src/low/text may not use src/low: \"middle.h\""));
}

TEST(PlantedInclude, InBracketsIsTheSameFault)
{
    EXPECT_THAT(faultsIn({{"low/a.cpp", "#include <top.h>"}}), ElementsAre(HasSubstr("may not use src/high")));
}

TEST(PlantedInclude, OfAFilledInHeaderIsTheSameFault)
{
    EXPECT_THAT(faultsIn({{"low/a.cpp", "#include \"version.h\""}}), ElementsAre(HasSubstr("may not use src/high")));
}

TEST(PlantedInclude, ByAPathIsAFaultBecauseItGoesRoundTheIncludeRoots)
{
    EXPECT_THAT(faultsIn({{"low/a.cpp", "#include \"../high/top.h\""}}),
        ElementsAre("src/low/a.cpp:1: no header of src/ has this name: \"../high/top.h\""));
    EXPECT_THAT(faultsIn({{"main.cpp", "#include \"high/top.h\""}}),
        ElementsAre("src/main.cpp:1: no header of src/ has this name: \"high/top.h\""));
}

TEST(PlantedInclude, ByAMacroIsAFaultBecauseItCannotBeChecked)
{
    EXPECT_THAT(faultsIn({{"high/a.cpp", "#include HEADER"}}),
        ElementsAre("src/high/a.cpp:1: an include by a macro cannot be checked: HEADER"));
}

TEST(PlantedInclude, OfQtInTheCoreIsAFault)
{
    EXPECT_THAT(faultsIn({{"low/a.h", "#include <cstddef>\n#include <QString>"}}),
        ElementsAre("src/low/a.h:2: src/low may not use Qt: <QString>"));
    EXPECT_THAT(faultsIn({{"low/a.h", "#include <QtCore/qglobal.h>"}}), ElementsAre(HasSubstr("may not use Qt")));
    EXPECT_THAT(faultsIn({{"low/a.h", "#include <qstring.h>"}}), ElementsAre(HasSubstr("may not use Qt")));
    EXPECT_THAT(faultsIn({{"low/a.h", "#include \"QString\""}}), ElementsAre(HasSubstr("no header of src/")));
}

TEST(PlantedInclude, OfTheFilesOwnMocFileIsAllowedWhereQtIs)
{
    EXPECT_THAT(faultsIn({{"high/a.cpp", "#include \"a.moc\""}}), IsEmpty());
    EXPECT_THAT(faultsIn({{"high/a.cpp", "#include \"b.moc\""}}), ElementsAre(HasSubstr("no header of src/")));
    EXPECT_THAT(faultsIn({{"low/a.cpp", "#include \"a.moc\""}}), ElementsAre(HasSubstr("no header of src/")));
}

TEST(PlantedInclude, InAFolderWithoutARowIsAFault)
{
    EXPECT_THAT(
        faultsIn({{"new/a.cpp", ""}}), ElementsAre("src/new/a.cpp: its folder has no row in cmake/folders.txt"));
}

TEST(PlantedHeaders, OfOneNameAreAFault)
{
    EXPECT_THAT(headerNameFaults({{"high/version.h.in", ""}, {"low/a.h", ""}, {"low/a.cpp", ""}, {"high/a.cpp", ""},
                    {"low/version.h", ""}, {"low/text/a.h", ""}}),
        ElementsAre("src/high/version.h.in and src/low/version.h have one name",
            "src/low/a.h and src/low/text/a.h have one name"));
}

}  // namespace
}  // namespace korvex::architecture
