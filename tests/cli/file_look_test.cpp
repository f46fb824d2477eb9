// Files that are not what belongs in their place: one finding each, and nothing that only follows from it.
#include "inventory_check.h"
#include "inventory_files.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <array>
#include <string>
#include <string_view>
#include <vector>

namespace korvex::test {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;

constexpr std::array<std::string_view, 4> names{"body.txt", "popis.txt", "prach.txt", "skupiny.spr"};

std::string exampleBytes(std::size_t file)
{
    return bytesOf(std::filesystem::path(KORVEX_SOURCE_DIR "/examples") / names[file]);
}

/// The messages of a check of the example with one file replaced.
std::vector<std::string> messagesWith(std::size_t file, const std::string& bytes)
{
    const TemporaryFolder folder;
    std::array<std::string, 4> paths;
    for (std::size_t i = 0; i < paths.size(); ++i)
        paths[i] = folder.write(names[i], i == file ? bytes : exampleBytes(i));
    Findings findings(Language::English, 0, {});
    EXPECT_TRUE(checkInventory({{paths[0], paths[1], paths[2]}, paths[3], 101325.0F}, findings).ok());
    std::vector<std::string> messages;
    for (const Finding& finding : findings.sorted())
        messages.push_back(findings.message(finding));
    return messages;
}

/// ASCII as two bytes a character.
std::string utf16(const std::string& bytes, bool isLittle, std::string_view mark)
{
    std::string out(mark);
    for (const char c : bytes) {
        const char low = static_cast<unsigned char>(c) < 0x80 ? c : '?';
        out += isLittle ? std::string{low, '\0'} : std::string{'\0', low};
    }
    return out;
}

TEST(FileLook, AFileOfAnotherKindIsNamed)
{
    constexpr std::array kinds{"the points file", "the description file", "the dust file", "the dust groups file"};
    for (std::size_t expected = 0; expected < names.size(); ++expected) {
        for (std::size_t given = 0; given < names.size(); ++given) {
            if (given == expected) {
                EXPECT_THAT(messagesWith(expected, exampleBytes(given)), IsEmpty());
                continue;
            }
            EXPECT_THAT(messagesWith(expected, exampleBytes(given)),
                ElementsAre(std::string("this looks like ") + kinds[given] + ", but should be " + kinds[expected]
                    + "; check the order of the files"));
        }
    }
}

TEST(FileLook, Utf16IsKnownWithAndWithoutItsMark)
{
    for (std::size_t file = 0; file < names.size(); ++file) {
        const std::string bytes = exampleBytes(file);
        for (const std::string_view mark : {"", "\xFF\xFE"})
            EXPECT_THAT(messagesWith(file, utf16(bytes, true, mark)), ElementsAre(HasSubstr("-f UTF-16LE")));
        for (const std::string_view mark : {"", "\xFE\xFF"})
            EXPECT_THAT(messagesWith(file, utf16(bytes, false, mark)), ElementsAre(HasSubstr("-f UTF-16BE")));
    }
}

TEST(FileLook, FilesWithoutARecordAreSound)
{
    const TemporaryFolder folder;
    for (const std::string_view bytes : {"", ";", ";SOUBOR S BODY\r\n;x\r\n", ";x\r\n\r\n"}) {
        const SourceFiles files{
            folder.write("body.txt", bytes), folder.write("popis.txt", bytes), folder.write("prach.txt", bytes)};
        Findings findings(Language::English, 0, {});
        EXPECT_TRUE(checkInventory({files, folder.write("skupiny.spr", bytes), 101325.0F}, findings).ok());
        EXPECT_EQ(findings.count(), 0U) << bytes;
    }
    EXPECT_THAT(messagesWith(3, ";"), testing::Each(HasSubstr("there is no dust group")));
}

TEST(FileLook, WhatTheOtherFilesMissInAFileWithoutARecordIsToldOfThem)
{
    using testing::Each;
    EXPECT_THAT(messagesWith(0, ""), Each(HasSubstr("belongs to no point")));
    EXPECT_THAT(messagesWith(1, ""), testing::Contains(HasSubstr("has no record in the description file")).Times(16));
    EXPECT_THAT(messagesWith(2, ""), AllOf(testing::SizeIs(16), Each(HasSubstr("no record in the dust file"))));
}

TEST(FileLook, BinaryFilesAreOneFinding)
{
    for (std::size_t file = 0; file < names.size(); ++file) {
        EXPECT_THAT(messagesWith(file, std::string("PK\3\4\0\0\0\0\0\0", 10)), ElementsAre(HasSubstr("is no text")));
        EXPECT_THAT(messagesWith(file, "1, 2\r3, 4\r"), ElementsAre(HasSubstr("end with CR alone")));
    }
}

TEST(FileLook, FaultyRecordsDoNotMakeAFileAnother)
{
    std::string bytes = exampleBytes(1);
    // One good record is enough.
    bytes.insert(bytes.find("000000003"), exampleBytes(0).substr(exampleBytes(0).find("000000001"), 60) + "\r\n");
    EXPECT_THAT(messagesWith(1, bytes), testing::Each(testing::Not(HasSubstr("looks like"))));
    // A stray zero byte is a fault of its line.
    std::string name = exampleBytes(0);
    name[name.find("kotel")] = '\0';
    EXPECT_THAT(messagesWith(0, name), ElementsAre(HasSubstr("the byte 00 (hexadecimal) is a control character")));
}

/// The rules that a points file with such a name breaks.
std::vector<std::string> encodingOf(const std::string& name)
{
    const TemporaryFolder folder;
    const std::string line = "000000002, 0642915, 1079021, 0447, 1, 2, 0 ;" + name + "\r\n";
    Findings findings(Language::English, 0, {});
    EXPECT_TRUE(checkInventory(
        {{folder.write("body.txt", line), folder.write("popis.txt", exampleBytes(1)), ""}, "", 101325.0F}, findings)
                    .ok());
    std::vector<std::string> rules;
    for (const Finding& finding : findings.sorted()) {
        if (finding.place.file == CheckedFile::Points)
            rules.emplace_back(ruleText(finding.rule).name);
    }
    return rules;
}

TEST(Encoding, LettersOfIso88592AreTold)
{
    for (const char* const name :
        {"Hru\xB9ka, \xBEupa", "\xAEilina", "\xA9kola, Hru\xB9ka", "k\xF9\xBE, \xB9k\xE1ra", "Va\xBB\xE1k"})
        EXPECT_THAT(encodingOf(name), ElementsAre("iso-8859-2")) << name;
}

TEST(Encoding, OneLetterThatBothCodePagesHaveIsNoEvidence)
{
    // "ľ" of Slovak and "ą" of Polish names, and a name behind the copyright sign.
    for (const char* const name : {"Po\xBE"
                                   "ana, kr\xE1\xBE",
             "D\xB9"
             "browa, k\xB9t",
             "\xA9Nov\xE1k"})
        EXPECT_THAT(encodingOf(name), IsEmpty()) << name;
}

TEST(Encoding, SignsOfWindows1250AreNoLetters)
{
    for (const char* const name : {"Eternit\xAE", "\xA9 2026", "\xBBpec\xAB", "\xABpec\xBB", "Hru\x9Aka, D\xB9 brova",
             "P\xE8nka", "\x84pec\x93 \xB9"})
        EXPECT_THAT(encodingOf(name), IsEmpty()) << name;
}

TEST(Encoding, OnlyWellFormedUtf8IsUtf8)
{
    EXPECT_THAT(encodingOf("\xC5\xBDlu\xC5\xA5"), ElementsAre("utf8"));
    EXPECT_THAT(encodingOf("\xED\xA0\x80"), IsEmpty());
}

}  // namespace
}  // namespace korvex::test
