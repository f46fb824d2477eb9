// Tests of the code page: every byte there and back, the Czech characters by name, and what it lacks.
#include "code_page.h"

#include <gtest/gtest.h>

#include <random>
#include <string>
#include <string_view>

namespace korvex {
namespace {

using namespace std::string_literals;

std::string byteText(int byte)
{
    return std::string(1, static_cast<char>(byte));
}

/// What became of a text: its bytes and how many characters were lost.
struct Encoded {
    std::string bytes;
    std::size_t replaced = 0;
};

Encoded encoded(std::string_view utf8)
{
    Encoded result;
    result.replaced = appendCodePage(result.bytes, utf8);
    return result;
}

TEST(CodePage, AsciiStaysAsItIs)
{
    for (int byte = 0; byte < 0x80; ++byte) {
        EXPECT_EQ(decodeCodePage(byteText(byte)), byteText(byte));
        EXPECT_EQ(encodeCodePage(byteText(byte)), byteText(byte));
    }
}

TEST(CodePage, EveryByteSurvivesDecodingAndEncoding)
{
    std::string all;
    for (int byte = 0; byte < 256; ++byte) {
        const std::string text = byteText(byte);
        EXPECT_EQ(encodeCodePage(decodeCodePage(text)), text) << "byte " << byte;
        EXPECT_EQ(encoded(decodeCodePage(text)).replaced, 0U) << "byte " << byte;
        all += text;
    }
    EXPECT_EQ(encodeCodePage(decodeCodePage(all)), all);
}

TEST(CodePage, NoTwoBytesShareACharacter)
{
    for (int one = 0; one < 256; ++one) {
        for (int other = 0; other < one; ++other)
            ASSERT_NE(decodeCodePage(byteText(one)), decodeCodePage(byteText(other))) << one << " and " << other;
    }
}

struct Character {
    int byte;
    std::string_view utf8;
};

// Written down from the names of the characters, in UTF-8 bytes, so that no editor can garble both sides alike.
constexpr Character characters[] = {
    {0x80, "\xE2\x82\xAC"},  // euro sign U+20AC
    {0x82, "\xE2\x80\x9A"},  // low single quote U+201A
    {0x84, "\xE2\x80\x9E"},  // low double quote U+201E
    {0x85, "\xE2\x80\xA6"},  // ellipsis U+2026
    {0x89, "\xE2\x80\xB0"},  // per mille U+2030
    {0x8A, "\xC5\xA0"},      // S caron U+0160
    {0x8D, "\xC5\xA4"},      // T caron U+0164
    {0x8E, "\xC5\xBD"},      // Z caron U+017D
    {0x93, "\xE2\x80\x9C"},  // left double quote U+201C
    {0x94, "\xE2\x80\x9D"},  // right double quote U+201D
    {0x96, "\xE2\x80\x93"},  // en dash U+2013
    {0x97, "\xE2\x80\x94"},  // em dash U+2014
    {0x99, "\xE2\x84\xA2"},  // trade mark U+2122
    {0x9A, "\xC5\xA1"},      // s caron U+0161
    {0x9D, "\xC5\xA5"},      // t caron U+0165
    {0x9E, "\xC5\xBE"},      // z caron U+017E
    {0xA0, "\xC2\xA0"},      // no-break space U+00A0
    {0xA1, "\xCB\x87"},      // caron U+02C7
    {0xA3, "\xC5\x81"},      // L stroke U+0141
    {0xA5, "\xC4\x84"},      // A ogonek U+0104
    {0xA7, "\xC2\xA7"},      // section sign U+00A7
    {0xA9, "\xC2\xA9"},      // copyright sign U+00A9
    {0xAD, "\xC2\xAD"},      // soft hyphen U+00AD
    {0xB0, "\xC2\xB0"},      // degree sign U+00B0
    {0xB3, "\xC5\x82"},      // l stroke U+0142
    {0xB5, "\xC2\xB5"},      // micro sign U+00B5
    {0xBC, "\xC4\xBD"},      // L caron U+013D
    {0xC1, "\xC3\x81"},      // A acute U+00C1
    {0xC8, "\xC4\x8C"},      // C caron U+010C
    {0xC9, "\xC3\x89"},      // E acute U+00C9
    {0xCC, "\xC4\x9A"},      // E caron U+011A
    {0xCD, "\xC3\x8D"},      // I acute U+00CD
    {0xCF, "\xC4\x8E"},      // D caron U+010E
    {0xD2, "\xC5\x87"},      // N caron U+0147
    {0xD3, "\xC3\x93"},      // O acute U+00D3
    {0xD5, "\xC5\x90"},      // O double acute U+0150
    {0xD7, "\xC3\x97"},      // multiplication sign U+00D7
    {0xD8, "\xC5\x98"},      // R caron U+0158
    {0xD9, "\xC5\xAE"},      // U ring U+016E
    {0xDA, "\xC3\x9A"},      // U acute U+00DA
    {0xDC, "\xC3\x9C"},      // U diaeresis U+00DC
    {0xDD, "\xC3\x9D"},      // Y acute U+00DD
    {0xDF, "\xC3\x9F"},      // sharp s U+00DF
    {0xE1, "\xC3\xA1"},      // a acute U+00E1
    {0xE4, "\xC3\xA4"},      // a diaeresis U+00E4
    {0xE8, "\xC4\x8D"},      // c caron U+010D
    {0xE9, "\xC3\xA9"},      // e acute U+00E9
    {0xEC, "\xC4\x9B"},      // e caron U+011B
    {0xED, "\xC3\xAD"},      // i acute U+00ED
    {0xEF, "\xC4\x8F"},      // d caron U+010F
    {0xF2, "\xC5\x88"},      // n caron U+0148
    {0xF3, "\xC3\xB3"},      // o acute U+00F3
    {0xF8, "\xC5\x99"},      // r caron U+0159
    {0xF9, "\xC5\xAF"},      // u ring U+016F
    {0xFA, "\xC3\xBA"},      // u acute U+00FA
    {0xFD, "\xC3\xBD"},      // y acute U+00FD
    {0xFF, "\xCB\x99"},      // dot above U+02D9
};

TEST(CodePage, KnownCharactersStandAtTheirBytes)
{
    for (const Character& character : characters) {
        EXPECT_EQ(decodeCodePage(byteText(character.byte)), character.utf8) << std::hex << character.byte;
        EXPECT_EQ(encodeCodePage(character.utf8), byteText(character.byte)) << std::hex << character.byte;
    }
}

TEST(CodePage, TheFiveUndefinedBytesBecomeControlCharacters)
{
    for (const int byte : {0x81, 0x83, 0x88, 0x90, 0x98}) {
        const std::string character = std::string("\xC2").append(byteText(byte));  // U+0081 and so on
        EXPECT_EQ(decodeCodePage(byteText(byte)), character);
        EXPECT_EQ(encodeCodePage(character), byteText(byte));
        EXPECT_EQ(encoded(character).replaced, 0U);
    }
}

TEST(CodePage, ACzechSentenceIsEncodedLetterByLetter)
{
    const std::string utf8 = "Příliš žluťoučký kůň úpěl ďábelské ódy";
    const std::string bytes = "P\xF8\xEDli\x9A \x9Elu\x9Dou\xE8k\xFD k\xF9\xF2 \xFAp\xECl \xEF\xE1"
                              "belsk\xE9 \xF3"
                              "dy";
    EXPECT_EQ(encodeCodePage(utf8), bytes);
    EXPECT_EQ(decodeCodePage(bytes), utf8);
}

TEST(CodePage, EmptyTextStaysEmpty)
{
    EXPECT_EQ(decodeCodePage(""), "");
    EXPECT_EQ(encodeCodePage(""), "");
    EXPECT_EQ(encoded("").replaced, 0U);
}

TEST(CodePage, NulBytesAreKept)
{
    EXPECT_EQ(decodeCodePage("a\0b"s), "a\0b"s);
    EXPECT_EQ(encodeCodePage("a\0\xC5\x99"s), "a\0\xF8"s);
}

TEST(CodePage, EncodingAppendsToWhatIsThere)
{
    std::string out = "Ko";
    EXPECT_EQ(appendCodePage(out, "č"), 0U);
    EXPECT_EQ(appendCodePage(out, "ka"), 0U);
    EXPECT_EQ(out, "Ko\xE8ka");
}

TEST(CodePage, ACharacterThatIsLackingBecomesAQuestionMarkAndIsCounted)
{
    EXPECT_EQ(encoded("m²").bytes, "m?");
    EXPECT_EQ(encoded("m²").replaced, 1U);
    EXPECT_EQ(encoded("α → β").bytes, "? ? ?");
    EXPECT_EQ(encoded("α → β").replaced, 3U);
    EXPECT_EQ(encoded("\xF0\x9F\x8F\xAD kotelna").bytes, "? kotelna");  // a picture beyond 16 bits is one character
    EXPECT_EQ(encoded("\xF0\x9F\x8F\xAD kotelna").replaced, 1U);
    EXPECT_EQ(encoded("à").bytes, "?");         // a grave is Latin-1, not ours
    EXPECT_EQ(encoded("\xC2\x80").bytes, "?");  // U+0080: the byte 80 is the euro sign
}

TEST(CodePage, AQuestionMarkOfTheTextIsNotCounted)
{
    EXPECT_EQ(encoded("Proč?").bytes, "Pro\xE8?");
    EXPECT_EQ(encoded("Proč?").replaced, 0U);
}

TEST(CodePage, LettersWithCombiningMarksLoseTheMarkOnly)
{
    EXPECT_EQ(encoded("r\xCC\x8C").bytes, "r?");
    EXPECT_EQ(encoded("r\xCC\x8C").replaced, 1U);
}

TEST(CodePage, BytesThatAreNoUtf8BecomeQuestionMarksAndAreCounted)
{
    const struct {
        std::string_view utf8;
        std::string_view bytes;
        std::size_t replaced;
    } cases[] = {
        {"a\x80z", "a?z", 1},  // a continuation without a beginning
        {"a\xFFz", "a?z", 1},  // never part of UTF-8
        {"a\xF8z", "a?z", 1},  // the beginning of five bytes
        {"\xC5", "?", 1},      // cut at the end of the text
        {"\xE2\x82", "??", 2}, {"\xF0\x9F\x8F", "???", 3},
        {"\xC5z", "?z", 1},                                     // cut within the text: what follows is kept
        {"\xE2\x82z", "??z", 2}, {"\xC5\xC5\x99", "?\xF8", 1},  // the next character is found again
        {"\xC1\x81", "??", 2},                                  // an A written too long
        {"\xE0\x80\xBB", "???", 3},                             // a semicolon written too long must not become one
    };
    for (const auto& one : cases) {
        const Encoded result = encoded(one.utf8);
        EXPECT_EQ(result.bytes, one.bytes);
        EXPECT_EQ(result.replaced, one.replaced);
    }
}

TEST(CodePage, ALoneSurrogateIsNeverTakenForACharacter)
{
    const Encoded result = encoded("\xED\xA0\x80");
    EXPECT_EQ(result.bytes, std::string(result.replaced, '?'));
    EXPECT_GE(result.replaced, 1U);
}

TEST(CodePageLaws, AnyBytesSurviveDecodingAndEncoding)
{
    std::mt19937 random(1250);
    for (int i = 0; i < 500; ++i) {
        std::string bytes(random() % 300, '\0');
        for (char& byte : bytes)
            byte = static_cast<char>(random());
        const Encoded result = encoded(decodeCodePage(bytes));
        ASSERT_EQ(result.bytes, bytes);
        ASSERT_EQ(result.replaced, 0U);
    }
}

TEST(CodePageLaws, AnyBytesAtAllCanBeEncodedAndEveryLossIsAQuestionMark)
{
    std::mt19937 random(8);
    for (int i = 0; i < 5000; ++i) {
        std::string text(random() % 40, '\0');
        for (char& byte : text)
            byte = static_cast<char>(random() | 0x80U);  // no question mark of its own
        const Encoded result = encoded(text);
        std::size_t questionMarks = 0;
        for (const char byte : result.bytes)
            questionMarks += byte == '?' ? 1U : 0U;
        ASSERT_EQ(result.replaced, questionMarks);
        ASSERT_LE(result.bytes.size(), text.size());
        if (result.replaced == 0) {
            ASSERT_EQ(decodeCodePage(result.bytes), text);
        }
    }
}

TEST(CodePage, TheAsciiBeginningEndsAtTheFirstByteAboveIt)
{
    for (std::size_t size = 0; size < 40; ++size) {
        const std::string ascii(size, '\x7F');
        EXPECT_EQ(asciiLength(ascii), size);
        for (std::size_t at = 0; at < size; ++at) {
            std::string text = ascii;
            text[at] = '\x80';
            EXPECT_EQ(asciiLength(text), at);
            text.back() = '\xFF';
            EXPECT_EQ(asciiLength(text), at);
        }
    }
    EXPECT_EQ(asciiLength(std::string_view("a\0b\xE8", 4)), 3U);
    EXPECT_EQ(asciiLength(std::string_view("abcdefgh\xE8").substr(0, 8)), 8U);
}

TEST(CodePage, CharactersAreCountedNotBytesWhenTheBeginningIsSkipped)
{
    EXPECT_EQ(behindCharacters("000000012,0,0,0", 10), "0,0,0");
    EXPECT_EQ(behindCharacters("žluťoučký", 4), "oučký");
    EXPECT_EQ(behindCharacters("ř", 0), "ř");
    EXPECT_EQ(behindCharacters("€ř", 1), "ř");
}

TEST(CodePage, NothingIsBehindTheCharactersOfAShorterText)
{
    EXPECT_EQ(behindCharacters("", 0), "");
    EXPECT_EQ(behindCharacters("", 10), "");
    EXPECT_EQ(behindCharacters("000000007", 10), "");
    EXPECT_EQ(behindCharacters("000000007,", 10), "");
    EXPECT_EQ(behindCharacters("žž", 2), "");
    EXPECT_EQ(behindCharacters("žž", 3), "");
}

TEST(CodePageLaws, SkippingCharactersIsSkippingBytesOfTheCodePage)
{
    std::mt19937 random(11);
    for (int i = 0; i < 1000; ++i) {
        std::string bytes(random() % 40, '\0');
        for (char& byte : bytes)
            byte = static_cast<char>(random());
        const std::size_t n = random() % 45;
        const std::string expected = n < bytes.size() ? bytes.substr(n) : "";
        ASSERT_EQ(encodeCodePage(behindCharacters(decodeCodePage(bytes), n)), expected);
    }
}

}  // namespace
}  // namespace korvex
