// Which lines are taken for UTF-8 and which for the code page.
#include "utf8_text.h"

#include "code_page.h"

#include <gtest/gtest.h>

#include <string>

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

/// What stands on a line: only the piece in UTF-8.
struct PieceCase {
    const char* before;
    const char* piece;
    const char* behind;
};

class Utf8Pieces : public testing::TestWithParam<PieceCase> { };

TEST_P(Utf8Pieces, AreFoundOnALineOfTheCodePage)
{
    const std::string before = encodeCodePage(GetParam().before);
    const std::string piece = GetParam().piece;
    const Utf8Piece found = findUtf8Piece(before + piece + encodeCodePage(GetParam().behind));
    EXPECT_EQ(found.at, before.size());
    EXPECT_EQ(found.length, piece.size());
}

INSTANTIATE_TEST_SUITE_P(Lines, Utf8Pieces,
    testing::Values(PieceCase{"Výtopna, pec ", "č", ". 1"}, PieceCase{"Ve", "č", "eř"}, PieceCase{"", "Ž", "lutý kůň"},
        PieceCase{"u ", "ř", "eky, přístavek"}, PieceCase{"obc", "í", ", Výtopna"}, PieceCase{"Kůlna HRU", "Š", "KA"},
        PieceCase{"", "Č", "ERPADLO VÝTOPNY"}, PieceCase{"GARÁ", "ž", ""}, PieceCase{"pára 150 ", "°", "C"},
        PieceCase{"kůl ", "–", " pec"}, PieceCase{"Köln, M", "ü", "ller"}, PieceCase{"ka", "ň", "on, šachta"},
        PieceCase{"žltá po", "ľ", "ana"}, PieceCase{"S", "ä", "ge, Größe"}));

TEST(Utf8Text, CzechSlovakAndGermanNamesOfTheCodePageHaveNoPieces)
{
    for (const char* const name : {"PŘÍLIŠ ŽLUŤOUČKÝ KŮŇ ÚPĚL ĎÁBELSKÉ ÓDY", "Příliš žluťoučký kůň úpěl ďábelské ódy",
             "KŇOŽA, DAŇ, BŘEŽANY, MĚŽÍN, TŘEŠŤ, Úžlabí, Údolí", "PAMÄŤ, PÄŤDESIAT, DEVÄŤ, VÄŽENIE",
             "STĹP, stĺp, DĹŽKA, TĹŠŤ, KRÁĽ, VŔŠKY, VÔBEC", "mäkkeň, môže, väčší, kĺže, ľalia, Poľana",
             "ÄPFEL, Ärzte, GERÄT, SÄGEWERK, GRÖSSE, Straße", "„SÄGE Ä“, Ä”, A–Ä, Ä – Ö", "»SÄ«, Ä… Â, 150 °C"})
        EXPECT_EQ(findUtf8Piece(encodeCodePage(name)).length, 0U) << name;
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
