// The reader of source texts behind the architecture checks: what it takes for code, includes and words.
#include "source_text.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>
#include <string_view>
#include <vector>

namespace korvex::architecture {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

std::vector<std::string> words(std::string_view text)
{
    std::vector<std::string> found;
    for (const Word& word : wordsOf(text))
        found.push_back(std::to_string(word.line) + ' ' + word.text);
    return found;
}

std::vector<std::string> includes(std::string_view text)
{
    std::vector<std::string> found;
    for (const Include& include : includesOf(text)) {
        const char form = include.form == IncludeForm::Quoted ? 'q' : include.form == IncludeForm::Angled ? 'a' : 'c';
        found.push_back(std::to_string(include.line) + ' ' + form + ' ' + include.name);
    }
    return found;
}

TEST(SourceText, CommentsTurnIntoBlanksAndEverythingElseKeepsItsPlace)
{
    EXPECT_EQ(withoutComments("a // b\nc /* d\ne */ f", Literals::Keep), "a     \nc     \n     f");
}

TEST(SourceText, ALineCommentGoesOnBehindABackslash)
{
    EXPECT_THAT(words("// a \\\n b\nc"), ElementsAre("3 c"));
}

TEST(SourceText, ACommentMarkInALiteralOpensNoComment)
{
    EXPECT_THAT(words("f(\"//\"); g('\"'); h(\"\\\"/*\"); i"), ElementsAre("1 f", "1 g", "1 h", "1 i"));
}

TEST(SourceText, WordsInLiteralsAreNoCode)
{
    EXPECT_THAT(words("f(\"strtod\", 'x')"), ElementsAre("1 f"));
}

TEST(SourceText, ARawStringEndsAtItsOwnMark)
{
    EXPECT_THAT(words("f(R\"x(a )\" \" b\n)x\"); g"), ElementsAre("1 f", "1 R", "2 g"));
}

TEST(SourceText, AWordThatEndsInRIsNoRawString)
{
    EXPECT_THAT(words("FOUR\"(\"; a"), ElementsAre("1 FOUR", "1 a"));
}

TEST(SourceText, TheApostropheInANumberOpensNoLiteral)
{
    EXPECT_THAT(words("a = 1'000'000; b = 0xff'ff; c"), ElementsAre("1 a", "1 b", "1 c"));
}

TEST(SourceText, AnApostropheWithoutAPartnerEndsWithItsLine)
{
    EXPECT_THAT(words("#error don't\na"), ElementsAre("1 error", "1 don", "2 a"));
}

TEST(SourceText, DigitsBelongToWordsButOpenNone)
{
    EXPECT_THAT(words("a1 + 2b + _3"), ElementsAre("1 a1", "1 _3"));
}

TEST(SourceText, IncludesComeWithFormNameAndLine)
{
    EXPECT_THAT(includes("#include \"a.h\"\n  #  include <b/c.h> // d\n#include MACRO"),
        ElementsAre("1 q a.h", "2 a b/c.h", "3 c MACRO"));
}

TEST(SourceText, AnIncludeNeedsNoBlankAndMayFollowAComment)
{
    EXPECT_THAT(includes("/* a */#include\"b.h\"\r\n#include/* c */<d>"), ElementsAre("1 q b.h", "2 a d"));
}

TEST(SourceText, WhatOnlyLooksLikeAnIncludeIsNone)
{
    EXPECT_THAT(includes("// #include \"a.h\"\n/*\n#include \"b.h\"\n*/\nconst char* c = R\"(\n#include \"d.h\"\n)\";\n"
                         "#includes \"e.h\"\ninclude \"f.h\"\n#define include"),
        IsEmpty());
}

TEST(SourceText, WordsOfIncludeLinesAreLeftOut)
{
    EXPECT_THAT(words("#include <locale>\n#ifdef a"), ElementsAre("2 ifdef", "2 a"));
}

}  // namespace
}  // namespace korvex::architecture
