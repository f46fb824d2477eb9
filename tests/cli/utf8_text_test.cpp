// Which lines are taken for UTF-8 and which for the code page.
#include "utf8_text.h"

#include <gtest/gtest.h>

namespace korvex {
namespace {

TEST(Utf8Text, LinesWithCzechLettersInUtf8LookLikeIt)
{
    EXPECT_TRUE(looksLikeUtf8("Žluťoučký"));
    EXPECT_TRUE(looksLikeUtf8("1, 2 ;Výtopna, 150 °C"));
    EXPECT_TRUE(looksLikeUtf8("é"));
}

TEST(Utf8Text, PlainLinesDoNot)
{
    EXPECT_FALSE(looksLikeUtf8("plain"));
    EXPECT_FALSE(looksLikeUtf8(""));
}

TEST(Utf8Text, LinesOfTheCodePageDoNot)
{
    EXPECT_FALSE(looksLikeUtf8("V\xFDtopna"));
    EXPECT_FALSE(looksLikeUtf8("kot\xE8"));
    EXPECT_FALSE(looksLikeUtf8("č\xE8"));
}

TEST(Utf8Text, TwoLettersOfTheCodePageThatMakeACharacterItLacksDoNot)
{
    EXPECT_FALSE(looksLikeUtf8("\xDA\x9Elabina"));  // "Úžlabina"
    EXPECT_FALSE(looksLikeUtf8("\xDA\x9At\xECk"));  // "Úštěk"
}

TEST(Utf8Text, MalformedCharactersAreNone)
{
    for (const char* const malformed :
        {"\xC5", "\xC0\x80", "\xE0\x80\x80", "\xED\xA0\x80", "\xF0\x80\x80\x80", "\xF4\x90\x80\x80", "\x80", "\xC5x"}) {
        EXPECT_FALSE(looksLikeUtf8(malformed)) << malformed;
        EXPECT_FALSE(isUtf8(malformed)) << malformed;
        EXPECT_EQ(utf8CharacterLength(malformed), 0U) << malformed;
    }
    EXPECT_EQ(utf8CharacterLength(""), 0U);
}

TEST(Utf8Text, CharactersThatTheCodePageLacksAreUtf8AllTheSame)
{
    EXPECT_TRUE(isUtf8("a → b, \xF0\x9F\x8F\xAD"));
    EXPECT_TRUE(isUtf8(""));
    EXPECT_EQ(utf8CharacterLength("→"), 3U);
    EXPECT_EQ(utf8CharacterLength("č"), 2U);
    EXPECT_EQ(utf8CharacterLength("a"), 1U);
}

}  // namespace
}  // namespace korvex
