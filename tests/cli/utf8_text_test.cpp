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

TEST(Utf8Text, MalformedCharactersDoNot)
{
    EXPECT_FALSE(looksLikeUtf8("\xC5"));
    EXPECT_FALSE(looksLikeUtf8("\xC0\x80"));
    EXPECT_FALSE(looksLikeUtf8("\xE0\x80\x80"));
    EXPECT_FALSE(looksLikeUtf8("\xED\xA0\x80"));
    EXPECT_FALSE(looksLikeUtf8("\xF0\x80\x80\x80"));
    EXPECT_FALSE(looksLikeUtf8("\xF4\x90\x80\x80"));
}

}  // namespace
}  // namespace korvex
