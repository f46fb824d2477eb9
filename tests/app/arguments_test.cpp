// The command line: tokens, switches, and the way from a process's arguments to the one text and back.
#include "arguments.h"

#include <gtest/gtest.h>

#include <cstddef>
#include <cstdint>
#include <limits>
#include <string>
#include <string_view>
#include <vector>

namespace korvex {
namespace {

cArgumenty parsed(std::string_view commandLine)
{
    cArgumenty arguments;
    arguments.Parse(commandLine);
    return arguments;
}

/// The paths of a command line that has no switches.
std::vector<std::string> pathsOf(std::string_view commandLine)
{
    const cArgumenty arguments = parsed(commandLine);
    std::vector<std::string> paths;
    for (int i = 0; i < arguments.Count(); ++i)
        paths.push_back(arguments.Value(std::to_string(i), "missing"));
    return paths;
}

std::string joined(const std::vector<std::string>& tokens)
{
    std::vector<const char*> pointers;
    for (const std::string& token : tokens)
        pointers.push_back(token.c_str());
    return commandLineText(pointers);
}

using Paths = std::vector<std::string>;

TEST(Arguments, NothingParsedHasNothing)
{
    const cArgumenty arguments;
    EXPECT_EQ(arguments.Count(), 0);
    EXPECT_FALSE(arguments.Exists("s"));
    EXPECT_FALSE(arguments.Exists("ini"));
    EXPECT_EQ(arguments.Value("0", ""), "");
}

TEST(Arguments, EmptyOrBlankLineHasNoTokens)
{
    EXPECT_EQ(parsed("").Count(), 0);
    EXPECT_EQ(parsed("  \t ").Count(), 0);
}

TEST(Arguments, OneNameIsTooFewForACommandLineStart)
{
    EXPECT_EQ(parsed("zdroje.txt").Count(), 1);
}

TEST(Arguments, FilesAndBothSwitches)
{
    const cArgumenty arguments = parsed("big_bod.txt big_pop.txt big_pra.txt /s /ini zdroje.tmp");
    EXPECT_EQ(arguments.Count(), 6);
    EXPECT_EQ(arguments.Value("0", ""), "big_bod.txt");
    EXPECT_EQ(arguments.Value("1", ""), "big_pop.txt");
    EXPECT_EQ(arguments.Value("2", ""), "big_pra.txt");
    EXPECT_EQ(arguments.Value("3", ""), "");
    EXPECT_EQ(arguments.Value("ini", ""), "zdroje.tmp");
    EXPECT_TRUE(arguments.Exists("s"));
    EXPECT_TRUE(arguments.Exists("ini"));
}

TEST(Arguments, ThreeFilesWithoutSwitchesAreNotCommandLineMode)
{
    const cArgumenty arguments = parsed("b.txt p.txt d.txt");
    EXPECT_EQ(arguments.Count(), 3);
    EXPECT_FALSE(arguments.Exists("s"));
    EXPECT_FALSE(arguments.Exists("ini"));
    EXPECT_EQ(arguments.Value("3", ""), "");
    EXPECT_EQ(arguments.Value("ini", ""), "");
}

TEST(Arguments, IniWithoutCommandLineMode)
{
    const cArgumenty arguments = parsed("b.txt p.txt d.txt /ini z.ini");
    EXPECT_FALSE(arguments.Exists("s"));
    EXPECT_EQ(arguments.Value("ini", ""), "z.ini");
}

TEST(Arguments, FourthNameIsTheDustGroupsFile)
{
    EXPECT_EQ(parsed("b.txt p.txt d.txt skupiny.spr /s").Value("3", ""), "skupiny.spr");
}

TEST(Arguments, SwitchesMayStandAnywhereAndDoNotCountAsPlaces)
{
    const cArgumenty arguments = parsed("/s b.txt /ini z.ini p.txt d.txt");
    EXPECT_EQ(arguments.Count(), 6);
    EXPECT_EQ(arguments.Value("0", ""), "b.txt");
    EXPECT_EQ(arguments.Value("1", ""), "p.txt");
    EXPECT_EQ(arguments.Value("2", ""), "d.txt");
    EXPECT_EQ(arguments.Value("3", "none"), "none");
}

TEST(Arguments, FullPathsAreNoSwitches)
{
    const cArgumenty arguments = parsed("/data/b.txt /s.txt /initial /i /x");
    EXPECT_EQ(arguments.Count(), 5);
    EXPECT_FALSE(arguments.Exists("s"));
    EXPECT_FALSE(arguments.Exists("ini"));
    EXPECT_EQ(pathsOf("/data/b.txt /s.txt /initial /i /x"), (Paths{"/data/b.txt", "/s.txt", "/initial", "/i", "/x"}));
}

TEST(Arguments, NamesWithoutASlashAndOtherSpellingsAreNoSwitches)
{
    EXPECT_EQ(pathsOf("s ini -s --ini //s /s/ / ./s"), (Paths{"s", "ini", "-s", "--ini", "//s", "/s/", "/", "./s"}));
    EXPECT_FALSE(parsed("s ini -s --ini //s /s/ / ./s").Exists("s"));
}

TEST(Arguments, UnknownSwitchesDoNotExist)
{
    EXPECT_FALSE(parsed("/x /s").Exists("x"));
    EXPECT_FALSE(parsed("/s").Exists(""));
    EXPECT_FALSE(parsed("/s /ini f").Exists("/s"));
}

TEST(Arguments, LetterCaseOfSwitchesIsIgnored)
{
    const cArgumenty arguments = parsed("/S /InI Z.INI");
    EXPECT_TRUE(arguments.Exists("s"));
    EXPECT_TRUE(arguments.Exists("S"));
    EXPECT_TRUE(arguments.Exists("INI"));
    EXPECT_EQ(arguments.Value("Ini", ""), "Z.INI");
}

TEST(Arguments, QuotedSwitchIsStillASwitch)
{
    const cArgumenty arguments = parsed("\"/s\" \"/ini\" z.ini /\"s\"");
    EXPECT_TRUE(arguments.Exists("s"));
    EXPECT_EQ(arguments.Value("ini", ""), "z.ini");
    EXPECT_EQ(arguments.Count(), 4);
    EXPECT_EQ(arguments.Value("0", "none"), "none");
}

TEST(Arguments, IniTakesTheNextTokenWhateverItIs)
{
    const cArgumenty mode = parsed("b.txt /ini /s");
    EXPECT_EQ(mode.Value("ini", ""), "/s");
    EXPECT_FALSE(mode.Exists("s"));

    const cArgumenty itself = parsed("/ini /ini b.txt");
    EXPECT_EQ(itself.Value("ini", ""), "/ini");
    EXPECT_EQ(itself.Value("0", ""), "b.txt");

    const cArgumenty empty = parsed("/ini \"\" b.txt");
    EXPECT_EQ(empty.Value("ini", "none"), "");
    EXPECT_EQ(empty.Value("0", ""), "b.txt");
}

TEST(Arguments, IniAtTheEndHasAnEmptyValue)
{
    const cArgumenty arguments = parsed("b.txt p.txt d.txt /ini");
    EXPECT_EQ(arguments.Count(), 4);
    EXPECT_TRUE(arguments.Exists("ini"));
    EXPECT_EQ(arguments.Value("ini", "none"), "");
}

TEST(Arguments, LastOfSeveralIniWins)
{
    EXPECT_EQ(parsed("/ini a.ini b.txt /ini c.ini").Value("ini", ""), "c.ini");
    EXPECT_EQ(parsed("/ini a.ini b.txt /ini").Value("ini", "none"), "");
}

TEST(Arguments, AbsentKeysGiveTheDefaultText)
{
    const cArgumenty arguments = parsed("b.txt p.txt /s");
    for (const std::string_view key :
        {"2", "ini", "s", "", "x", "-1", "+1", "00", "01", "1x", " 1", "1 ", "/ini", "99999999999999999999999999"})
        EXPECT_EQ(arguments.Value(key, "none"), "none") << key;
}

TEST(Arguments, PlacesAreDecimalTexts)
{
    const cArgumenty arguments = parsed("a b c d e f g h i j k");
    EXPECT_EQ(arguments.Value("9", ""), "j");
    EXPECT_EQ(arguments.Value("10", ""), "k");
    EXPECT_EQ(arguments.Value("11", "none"), "none");
    EXPECT_EQ(arguments.Value("010", "none"), "none");
}

TEST(Arguments, EmptyTokenIsPresentAndNotTheDefault)
{
    const cArgumenty arguments = parsed("\"\" p.txt");
    EXPECT_EQ(arguments.Count(), 2);
    EXPECT_EQ(arguments.Value("0", "none"), "");
}

TEST(Arguments, SeveralBlanksCountAsOne)
{
    EXPECT_EQ(pathsOf("  a \t\t b\tc  "), (Paths{"a", "b", "c"}));
}

TEST(Arguments, OnlySpacesAndTabsSeparate)
{
    EXPECT_EQ(pathsOf("a\nb c\rd e\v\ff \xC2\xA0g"), (Paths{"a\nb", "c\rd", "e\v\ff", "\xC2\xA0g"}));
}

TEST(Arguments, QuotesGroupBlanks)
{
    EXPECT_EQ(pathsOf("\"C d\\a b.txt\" x"), (Paths{"C d\\a b.txt", "x"}));
    EXPECT_EQ(pathsOf("/home/\"Jan N\"/b.txt"), (Paths{"/home/Jan N/b.txt"}));
    EXPECT_EQ(pathsOf("\"a\t b\"\"c\"d e"), (Paths{"a\t b\"cd", "e"}));
}

TEST(Arguments, DoubledQuoteInsideQuotesIsAQuote)
{
    EXPECT_EQ(pathsOf("\"a\"\"b\""), (Paths{"a\"b"}));
    EXPECT_EQ(pathsOf("\"\"\"\""), (Paths{"\""}));
    EXPECT_EQ(pathsOf("\"\"\" \"\"\""), (Paths{"\" \""}));
}

TEST(Arguments, TwoQuotesOutsideQuotesAddNothing)
{
    EXPECT_EQ(pathsOf("a\"\"b \"\" \"\"c"), (Paths{"ab", "", "c"}));
}

TEST(Arguments, QuoteLeftOpenRunsToTheEnd)
{
    EXPECT_EQ(pathsOf("a \"b c  "), (Paths{"a", "b c  "}));
    EXPECT_EQ(pathsOf("a \""), (Paths{"a", ""}));
    EXPECT_EQ(pathsOf("\"a\"\""), (Paths{"a\""}));
}

TEST(Arguments, BackslashIsAnOrdinaryCharacter)
{
    EXPECT_EQ(pathsOf("a\\ b \"c\\\" d"), (Paths{"a\\", "b", "c\\", "d"}));
}

TEST(Arguments, CountStopsAtTheLargest16BitNumber)
{
    const auto names = [](int count) {
        std::string line;
        for (int i = 0; i < count; ++i)
            line += "a ";
        return line;
    };
    constexpr int most = std::numeric_limits<std::int16_t>::max();
    EXPECT_EQ(parsed(names(most - 1)).Count(), most - 1);
    EXPECT_EQ(parsed(names(most)).Count(), most);
    EXPECT_EQ(parsed(names(most + 1)).Count(), most);
    const cArgumenty many = parsed(names(70000) + "last /s");
    EXPECT_EQ(many.Count(), most);
    EXPECT_EQ(many.Value("70000", ""), "last");
    EXPECT_TRUE(many.Exists("s"));
}

TEST(Arguments, ParsingAgainForgetsWhatWasThere)
{
    cArgumenty arguments = parsed("a b /s /ini c");
    arguments.Parse("d");
    EXPECT_EQ(arguments.Count(), 1);
    EXPECT_EQ(arguments.Value("0", ""), "d");
    EXPECT_EQ(arguments.Value("1", "none"), "none");
    EXPECT_EQ(arguments.Value("ini", "none"), "none");
    EXPECT_FALSE(arguments.Exists("s"));
    EXPECT_FALSE(arguments.Exists("ini"));
}

TEST(CommandLineText, PlainArgumentsAreJoinedByOneBlank)
{
    EXPECT_EQ(joined({}), "");
    EXPECT_EQ(joined({"b.txt", "p.txt", "/s", "/ini", "z.tmp"}), "b.txt p.txt /s /ini z.tmp");
}

TEST(CommandLineText, OnlyWhatNeedsQuotesIsQuoted)
{
    EXPECT_EQ(joined({"", "a b", "c\td", "e\"f", "g\nh"}), "\"\" \"a b\" \"c\td\" \"e\"\"f\" g\nh");
}

TEST(CommandLineText, SwitchesAndTheirValuesComeBack)
{
    const cArgumenty arguments = parsed(joined({"", "p q", "/s", "/ini", "", "d\"e"}));
    EXPECT_EQ(arguments.Count(), 6);
    EXPECT_TRUE(arguments.Exists("s"));
    EXPECT_EQ(arguments.Value("ini", "none"), "");
    EXPECT_EQ(arguments.Value("0", "none"), "");
    EXPECT_EQ(arguments.Value("1", ""), "p q");
    EXPECT_EQ(arguments.Value("2", ""), "d\"e");
}

TEST(CommandLineText, SurvivesEveryByte)
{
    Paths tokens;
    std::string all;
    for (int byte = 1; byte < 256; ++byte) {
        tokens.emplace_back(1, static_cast<char>(byte));
        all += tokens.back();
    }
    tokens.push_back(all);
    tokens.emplace_back("/home/Žluťoučký kůň/zdroje \"nové\".txt");
    EXPECT_EQ(pathsOf(joined(tokens)), tokens);
}

TEST(CommandLineText, SurvivesEveryShortTokenBesideEveryOther)
{
    Paths tokens{""};
    for (std::size_t i = 0; i < tokens.size(); ++i) {
        if (tokens[i].size() < 3) {
            for (const char c : std::string_view("\" \t\nx"))
                tokens.push_back(tokens[i] + c);
        }
    }
    ASSERT_EQ(tokens.size(), 156U);
    for (const std::string& first : tokens) {
        for (const std::string& second : tokens) {
            const Paths both{first, second};
            ASSERT_EQ(pathsOf(joined(both)), both);
        }
    }
}

}  // namespace
}  // namespace korvex
