// Comparing a record with what a save would write for its source.
#include "inventory_files.h"

#include "record_losses.h"

#include <gmock/gmock.h>

#include <functional>

namespace korvex {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

TEST(SameNumber, IsOneOfTheSameValueHoweverItIsWritten)
{
    struct Case {
        const char* a;
        const char* b;
    };
    for (const Case& given : {Case{"12", "000000012"}, Case{"+5", "5.000"}, Case{"0.5", ".5"}, Case{"5.", "5"},
             Case{"-0", "0"}, Case{"0E99", "0"}, Case{"1E-05", "0.00001"}, Case{"1.677722E+07", "16777220"},
             Case{"1 000", "1000"}, Case{" 2 ", "2"}, Case{"-1e2", "-100"}, Case{"0012.50", "12.5"},
             Case{"0.00012", "1.2E-4"}, Case{"1234567890123456789012", "1234567890123456789012.0"}}) {
        EXPECT_TRUE(isSameNumber(given.a, given.b)) << given.a << " and " << given.b;
        EXPECT_TRUE(isSameNumber(given.b, given.a)) << given.a << " and " << given.b;
    }
    for (const Case& given : {Case{"1", "-1"}, Case{"1", "10"}, Case{"0.1", "0.01"}, Case{"1078203.5", "1078204"},
             Case{"12a", "12"}, Case{"", "0"}, Case{"", ""}, Case{"x", "x"}, Case{"1E", "1"}, Case{"1E+", "1"},
             Case{"1,5", "1"}, Case{"--1", "1"}, Case{".", "0"}, Case{"1.2.3", "1.2"}, Case{"0x10", "16"},
             Case{"inf", "inf"}, Case{"1E5", "1E6"}, Case{"1;2", "1"}}) {
        EXPECT_FALSE(isSameNumber(given.a, given.b)) << given.a << " and " << given.b;
        EXPECT_FALSE(isSameNumber(given.b, given.a)) << given.a << " and " << given.b;
    }
}

enum class Record { Points, Description, Dust };

/// A record in UTF-8 and what is lost of it: the kind, the field, what was there and what would be written.
struct Case {
    Record record;
    const SourceType& type;
    const char* line;
    std::vector<std::tuple<RecordLoss, std::size_t, std::string, std::string>> lost;
};

std::vector<std::tuple<RecordLoss, std::size_t, std::string, std::string>> lossesOf(const Case& given)
{
    // Loaded as the loader does it.
    cZdroje source(given.type);
    source.renumber(12);
    const std::string line(given.line);
    const std::string bytes = encodeCodePage(line);
    RecordComparison comparison;
    std::vector<RecordDifference> differences;
    if (given.record == Record::Points) {
        source.LineSource(line);
        differences = comparison.points(bytes, source);
    } else if (given.record == Record::Description) {
        source.LineParameters(line);
        differences = comparison.description(bytes, source);
    } else {
        source.LineDust(behindCharacters(line, 10));
        differences = comparison.dust(bytes, source);
    }
    std::vector<std::tuple<RecordLoss, std::size_t, std::string, std::string>> lost;
    for (const RecordDifference& difference : differences)
        lost.emplace_back(difference.loss, difference.field, difference.before, difference.after);
    return lost;
}

TEST(RecordLosses, NoneWhereOnlyTheFormOfTheNumbersDiffers)
{
    for (const Case& given :
        {Case{Record::Points, cBodovyZdroj, "000000012, 1078203, 0641862, 0350, 1, 0, 0 ;Pec č. 1", {}},
            Case{Record::Points, cBodovyZdroj, "12,1078203.0,641862,350,1,0,0;Pec, nová ", {}},
            Case{Record::Points, cPlosnyZdroj, "12 , -5 , +6 , 350 , 2 , 0 , 0", {}},
            Case{Record::Points, cLiniovyZdroj, "12, 1, 2, 3, 3, 0, 0 ;", {}},
            Case{Record::Description, cBodovyZdroj, "000000012, 2.5, 40, 3.2, 150, 1.2, 8.5, 0.8, 24, 0", {}},
            Case{Record::Description, cBodovyZdroj, "12,2.50,40.0,3.2,1.5E2,1.2,8.5,.8,24", {}},
            Case{Record::Description, cPlosnyZdroj, "12,2.5,40,3.2,150,1.2,8.5,0.8,24,20,  , ", {}},
            Case{Record::Description, cPlosnyZdroj, "12,0.00001,4 0,0,0,0,0,0.8,24,20", {}},
            Case{Record::Dust, cBodovyZdroj, "000000012,1800,0,1, 10,1", {}},
            Case{Record::Dust, cBodovyZdroj, "000000012,", {}}, Case{Record::Dust, cBodovyZdroj, "000000012", {}},
            Case{Record::Dust, cPlosnyZdroj, "000000012", {}}, Case{Record::Dust, cPlosnyZdroj, "12,", {}},
            Case{Record::Dust, cLiniovyZdroj, "12,0,0,0", {}}})
        EXPECT_THAT(lossesOf(given), IsEmpty()) << given.line;
}

TEST(RecordLosses, AreFoundWhateverTheLoaderWasLenientAbout)
{
    constexpr auto value = RecordLoss::Value;
    constexpr auto noValue = RecordLoss::NoValue;
    constexpr auto surplus = RecordLoss::SurplusFields;
    constexpr auto name = RecordLoss::Name;
    constexpr auto dust = RecordLoss::Dust;
    for (const Case& given :
        {
            // Points.
            Case{Record::Points, cBodovyZdroj, "12.4,1,2,3,1,0,0 ;A", {{value, 1, "12.4", "000000012"}}},
            Case{Record::Points, cBodovyZdroj, "12,1234567.6,2m,3,1,0,0 ;A",
                {{value, 2, "1234567.6", "1234568"}, {value, 3, "2m", "0000002"}}},
            Case{Record::Points, cBodovyZdroj, "12,1,2,3,1.2,0,0x ;A", {{value, 5, "1.2", "1"}, {value, 7, "0x", "0"}}},
            Case{Record::Points, cBodovyZdroj, "12,1078203,5,2,3,1,0,0 ;A", {{surplus, 8, "0", ""}}},
            Case{Record::Points, cBodovyZdroj, "12,1,2,3,1,0,0 ;Pec č. 1; záložní",
                {{name, 0, "Pec č. 1; záložní", "Pec č. 1"}}},
            Case{Record::Points, cBodovyZdroj, "12,1,2,3,1", {{noValue, 6, "", "0"}}},
            // Description.
            Case{Record::Description, cBodovyZdroj, "12,0.12345678,40,3.2,150,1.2,8.5,0.8,24,0",
                {{value, 2, "0.12345678", "0.1234568"}}},
            Case{Record::Description, cPlosnyZdroj, "12,2.5 g/s,40,x,150,1.2,8.5,0.8,24,20",
                {{value, 2, "2.5 g/s", "2.5"}, {value, 4, "x", "0"}}},
            Case{Record::Description, cPlosnyZdroj, "12,2,5,40,3.2,150,1.2,8.5,0.8,24,20", {{surplus, 11, "20", ""}}},
            Case{Record::Description, cBodovyZdroj, "12,2,5,40,3.2,150,1.2,8.5,0.8,24", {{value, 10, "24", "0"}}},
            Case{Record::Description, cBodovyZdroj, "12,2.5,40,3.2,150,1.2,8.5,0.8,24,0;pozor",
                {{value, 10, "0;pozor", "0"}}},
            Case{Record::Description, cBodovyZdroj, "12,2.5,,3.2,150,,8.5", {{noValue, 3, "", "0"}}},
            Case{Record::Description, cBodovyZdroj, "12a,2.5,40,3.2,150,1.2,8.5,0.8,24,0",
                {{value, 1, "12a", "000000012"}}},
            // Dust.
            Case{Record::Dust, cBodovyZdroj, "12,1800,0,1,10,1", {{dust, 0, "1800,0,1,10,1", "1,10,1"}}},
            Case{Record::Dust, cBodovyZdroj, "0000000012,1800,0", {{dust, 0, "1800,0", ",1800,0"}}},
            Case{Record::Dust, cBodovyZdroj, "000000012;1800,0",
                {{value, 1, "000000012;1800", "000000012"}, {dust, 0, "0", "1800,0"}}},
            Case{Record::Dust, cPlosnyZdroj, "000000012,1800,0", {{dust, 0, "1800,0", ""}}},
        })
        EXPECT_EQ(lossesOf(given), given.lost) << given.line;
}

}  // namespace
}  // namespace korvex
