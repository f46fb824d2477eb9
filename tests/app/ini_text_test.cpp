// Setting a value in an INI file's text: golden cases as bytes, and the laws that hold for any file.
#include "ini_text.h"

#include <gtest/gtest.h>

#include <cstddef>
#include <filesystem>
#include <fstream>
#include <optional>
#include <sstream>
#include <string>
#include <utility>
#include <vector>

namespace korvex {
namespace {

std::string bytesOf(const std::filesystem::path& path)
{
    std::ifstream file(path, std::ios::binary);
    EXPECT_TRUE(file.is_open()) << path;
    std::ostringstream bytes;
    bytes << file.rdbuf();
    return bytes.str();
}

TEST(IniTextGolden, EveryCaseGivesTheExpectedBytesAndIsAFixedPoint)
{
    std::size_t cases = 0;
    for (const auto& entry : std::filesystem::directory_iterator(KORVEX_SOURCE_DIR "/tests/golden/ini")) {
        SCOPED_TRACE(entry.path().filename().string());
        ++cases;
        const std::string before = bytesOf(entry.path() / "before.ini");
        const std::string expected = bytesOf(entry.path() / "expected.ini");
        const std::string note = bytesOf(entry.path() / "note.txt");
        const std::string task = note.substr(0, note.find('\n'));
        const std::size_t firstBar = task.find('|');
        const std::size_t secondBar = task.find('|', firstBar + 1);
        ASSERT_NE(secondBar, std::string::npos) << "the note does not begin with section|key|value";
        const std::string section = task.substr(0, firstBar);
        const std::string key = task.substr(firstBar + 1, secondBar - firstBar - 1);
        const std::string value = task.substr(secondBar + 1);

        EXPECT_NE(before, expected);
        EXPECT_EQ(withIniValue(before, section, key, value), expected);
        EXPECT_EQ(withIniValue(expected, section, key, value), expected);
    }
    EXPECT_GE(cases, 12U);
}

TEST(IniText, SameKeyWrittenTwiceLeavesTheLastValue)
{
    const std::string first = withIniValue("", "Global", "VstZdrojBodTxt", "/a/first.txt");
    EXPECT_EQ(withIniValue(first, "Global", "VstZdrojBodTxt", "/b/second.txt"),
        "[Global]\r\nVstZdrojBodTxt=/b/second.txt\r\n");
}

TEST(IniText, SeveralKeysComeInTheOrderOfWriting)
{
    std::string file = withIniValue("", "Global", "VstZdrojBodTxt", "b.txt");
    file = withIniValue(file, "Global", "VstZdrojPopTxt", "p.txt");
    file = withIniValue(file, "Global", "VstZdrojPrachTxt", "");
    EXPECT_EQ(file, "[Global]\r\nVstZdrojBodTxt=b.txt\r\nVstZdrojPopTxt=p.txt\r\nVstZdrojPrachTxt=\r\n");
}

TEST(IniText, BlanksAroundTheNamesAskedForAreTrimmed)
{
    EXPECT_EQ(withIniValue("", " Global\t", "\tKey ", "v"), "[Global]\r\nKey=v\r\n");
    EXPECT_EQ(withIniValue("[Global]\r\nKey=u\r\n", " Global\t", "\tKey ", "v"), "[Global]\r\nKey=v\r\n");
}

TEST(IniText, BeginningOfANameIsNotTheName)
{
    EXPECT_EQ(withIniValue("[Globa]\n[Globals]\n[Global]\nKe=1\nKeys=2\n", "Global", "Key", "v"),
        "[Globa]\n[Globals]\n[Global]\nKe=1\nKeys=2\nKey=v\n");
}

TEST(IniText, OnlyAsciiLettersLoseTheirCase)
{
    // Characters that lie 20 hex apart as letters do are still different ones.
    EXPECT_EQ(withIniValue("[Global]\n@=1\n", "Global", "`", "v"), "[Global]\n@=1\n`=v\n");
    EXPECT_EQ(withIniValue("[Global]\n[=1\n", "Global", "{", "v"), "[Global]\n[=1\n{=v\n");
    EXPECT_EQ(withIniValue("[Global]\n\xC8=1\n", "Global", "\xE8", "v"), "[Global]\n\xC8=1\n\xE8=v\n");
    EXPECT_EQ(withIniValue("[Global]\nAZaz=1\n", "GLOBAL", "azAZ", "v"), "[Global]\nAZaz=v\n");
}

TEST(IniText, HeaderEndsAtItsFirstBracket)
{
    EXPECT_EQ(withIniValue("[Global] [Okno]\nA=1\n", "Global", "A", "v"), "[Global] [Okno]\nA=v\n");
    EXPECT_EQ(withIniValue("[Global\nA=1\n", "Global", "A", "v"), "[Global\nA=1\n[Global]\nA=v\n");
    EXPECT_EQ(withIniValue("[Global]\n]A=1\nx]=1\n", "Global", "A", "v"), "[Global]\n]A=1\nx]=1\nA=v\n");
}

TEST(IniText, ValueIsWrittenAsItIs)
{
    const std::string value = " \"a\" = ; [b] \xE8 \t";
    EXPECT_EQ(withIniValue("", "Global", "A", value), "[Global]\r\nA=" + value + "\r\n");
    EXPECT_EQ(withIniValue("[Global]\nA=1\n", "Global", "A", value), "[Global]\nA=" + value + "\n");
}

TEST(IniText, ValueBeginningWithABlankDoesNotGrow)
{
    const std::string once = withIniValue("[Global]\nA = 1\n", "Global", "A", " v");
    EXPECT_EQ(once, "[Global]\nA = v\n");
    EXPECT_EQ(withIniValue(once, "Global", "A", " v"), once);
}

TEST(IniText, LineEndInAValueIsWrittenAsQuestionMarks)
{
    EXPECT_EQ(withIniValue("", "Global", "A", "a\r\n[b]\nc\r"), "[Global]\r\nA=a??[b]?c?\r\n");
}

TEST(IniText, LoneCarriageReturnIsNoLineEnd)
{
    EXPECT_EQ(withIniValue("[Global]\rA=1\nB=2\n", "Global", "B", "v"), "[Global]\rA=1\nB=v\n");
}

TEST(IniText, BlankLinesWithoutALastLineEndStayBehindTheNewLine)
{
    EXPECT_EQ(withIniValue("[Global]\nA=1\n\n \t", "Global", "B", "v"), "[Global]\nA=1\nB=v\n\n \t");
}

/// A reader written the plain way, to hold the writer against: the first key of that name in the first section of
/// that name.
class PlainReader {
public:
    explicit PlainReader(const std::string& file)
    {
        std::string line;
        for (const char c : file + "\n") {
            if (c != '\n') {
                line += c;
                continue;
            }
            if (!line.empty() && line.back() == '\r')
                line.pop_back();
            m_lines.push_back(line);
            line.clear();
        }
    }

    [[nodiscard]] const std::vector<std::string>& lines() const { return m_lines; }

    [[nodiscard]] std::optional<std::string> value(const std::string& lowerSection, const std::string& lowerKey) const
    {
        bool inside = false;
        for (const std::string& line : m_lines) {
            const std::string lower = lowered(line);
            if (lower.rfind('[', 0) == 0) {
                if (inside)
                    return std::nullopt;
                inside = lower.rfind("[" + lowerSection + "]", 0) == 0;
            } else if (inside && lower.rfind(lowerKey + "=", 0) == 0) {
                return line.substr(lowerKey.size() + 1);
            }
        }
        return std::nullopt;
    }

private:
    static std::string lowered(std::string text)
    {
        for (char& c : text) {
            if (c >= 'A' && c <= 'Z')
                c = static_cast<char>(c + ('a' - 'A'));
        }
        return text;
    }

    std::vector<std::string> m_lines;
};

/// Every file of up to five lines out of a few kinds, with each line end and with and without the last one.
std::vector<std::string> everySmallFile()
{
    const std::vector<std::string> kinds = {"[S]", "[s] x", "[T]", "k=1", "K=2", ";k=3", "k", ""};
    std::vector<std::string> files{""};
    for (const std::string end : {"\n", "\r\n"}) {
        std::vector<std::string> longest{""};
        for (int lines = 1; lines <= 5; ++lines) {
            std::vector<std::string> longer;
            for (const std::string& file : longest) {
                for (const std::string& kind : kinds) {
                    files.push_back(file + kind);
                    longer.push_back(file + kind + end);
                }
            }
            files.insert(files.end(), longer.begin(), longer.end());
            longest = std::move(longer);
        }
    }
    return files;
}

TEST(IniTextLaw, WhatIsWrittenIsReadAndWritingAgainChangesNothing)
{
    for (const std::string& file : everySmallFile()) {
        const std::string written = withIniValue(file, "S", "k", "v=w");
        ASSERT_EQ(PlainReader(written).value("s", "k"), "v=w") << file;
        ASSERT_EQ(withIniValue(written, "S", "k", "v=w"), written) << file;
        ASSERT_EQ(withIniValue(withIniValue(file, "S", "k", "first"), "S", "k", "v=w"), written) << file;
    }
}

TEST(IniTextLaw, AtMostOneLineChangesAndNoneIsLostOrMoved)
{
    for (const std::string& file : everySmallFile()) {
        const std::string written = withIniValue(file, "S", "k", "v");
        if (PlainReader(file).value("s", "k")) {
            const std::vector<std::string> before = PlainReader(file).lines();
            const std::vector<std::string> after = PlainReader(written).lines();
            ASSERT_EQ(after.size(), before.size()) << file;
            int changed = 0;
            for (std::size_t i = 0; i < before.size(); ++i)
                changed += after[i] == before[i] ? 0 : 1;
            ASSERT_EQ(changed, 1) << file;
            continue;
        }
        // Taking one stretch out of what was written must give the file back.
        std::size_t same = 0;
        while (same < file.size() && file[same] == written[same])
            ++same;
        ASSERT_GT(written.size(), file.size());
        ASSERT_EQ(written.substr(same + written.size() - file.size()), file.substr(same)) << file;
    }
}

}  // namespace
}  // namespace korvex
