// The fast way through records gives what the general way gives, for any text that it takes at all.
#include "plain_records.h"

#include "code_page.h"
#include "source.h"

#include <gtest/gtest.h>

#include <cstddef>
#include <cstdint>
#include <random>
#include <string>
#include <string_view>
#include <vector>

namespace korvex {
namespace {

class PlainRecords : public testing::Test {
protected:
    std::size_t below(std::size_t limit) { return std::uniform_int_distribution<std::size_t>(0, limit - 1)(m_random); }

    /// Mostly numbers as people and programs write them, at times with something in, before or behind them.
    std::string anyField(const std::vector<std::string>& usual)
    {
        static const std::vector<std::string> odd{"", " ", "+5", "1 2", "12abc", "1e5", "1E", "1E+2", "1.2.3", ".5",
            "5.", "-", "--1", "- 5", "12 -5", "99999999999", "1E39", "1E-60", "123456789012345678901", "0.00000000001",
            "16777217", "1234567.5", "12\r", "\t8", "0x10", "inf", "1E-5.5", "1E-123", ";", "5;x", "12345678",
            "1234567.", "........", "1.5-2", "\xE8", std::string(1, '\0')};
        std::string text = below(40) == 0 ? odd[below(odd.size())] : usual[below(usual.size())];
        if (below(4) == 0)
            text.insert(0, " ");
        if (below(12) == 0)
            text += ' ';
        return text;
    }

    std::string anyRecord(std::size_t fields, const std::vector<std::string>& usual)
    {
        std::string record;
        for (std::size_t i = 0; i < fields; ++i)
            record += (i > 0 ? "," : "") + anyField(usual);
        return record;
    }

private:
    std::mt19937 m_random{20011};
};

constexpr int rounds = 200'000;

const std::vector<std::string> integers{"0", "7", "12", "000000042", "0641862", "-15", "16777216", "-0000456", "1"};
const std::vector<std::string> reals{
    "0", "12", "000000042", "-15", "3.2", "0.0009", "49.544", "16777216", "1E-05", "3.25E-06", "1.5", "145", "0431"};

TEST_F(PlainRecords, PointsAreReadAsByTheGeneralRules)
{
    static const std::vector<std::string> names{
        " ;Kotelna", ";", "", " ; \xC8\xE1slav, z\xE1vod;2", ";;", " ;\x81\x98 x"};
    int taken = 0;
    for (int round = 0; round < rounds; ++round) {
        const std::string record = anyRecord(6 + below(3), integers) + names[below(names.size())];
        PlainPoints plain;
        if (!plain.read(record))
            continue;
        ++taken;
        cZdroje general(cLiniovyZdroj);
        ASSERT_NO_THROW(general.LineSource(decodeCodePage(record))) << record;
        const cZdroje fast(cLiniovyZdroj, plain, {}, std::nullopt);
        ASSERT_EQ(fast.LineSource(), general.LineSource()) << record;
    }
    EXPECT_GT(taken, rounds / 10);
    EXPECT_LT(taken, rounds);
}

TEST_F(PlainRecords, ParametersAreReadAsByTheGeneralRulesAndNotBeyondTheirLine)
{
    int taken = 0;
    for (int round = 0; round < rounds; ++round) {
        const SourceType& type = below(2) == 0 ? cBodovyZdroj : cPlosnyZdroj;
        const std::string record = anyRecord(8 + below(4), reals);
        PlainParameters plain;
        const std::string text = record + (below(2) == 0 ? "\r\n" : "\n") + "9,9,9,9,9,9,9,9,9,9,9";
        if (!readPlainParameters(text, type.parameterCount, plain))
            continue;
        ++taken;
        cZdroje general(type);
        ASSERT_NO_THROW(general.LineParameters(record)) << record;
        for (std::int32_t i = 0; i < type.parameterCount; ++i)
            ASSERT_EQ(plain.at(static_cast<std::size_t>(i)), general.Parameters(i)) << record << " parameter " << i;
    }
    EXPECT_GT(taken, rounds / 10);
    EXPECT_LT(taken, rounds);
}

TEST_F(PlainRecords, TextsAreKeptAsByTheGeneralRules)
{
    PlainPoints points;
    for (const std::size_t length : {0U, 1U, 340U, 341U, 342U, 343U, 5000U}) {
        const std::string name(length, '\xE8');
        for (const std::string_view dust : {std::string_view("0,0,0"), std::string_view("2500,3"), std::string_view(),
                 std::string_view("1,0,0\xE8")}) {
            points.name = name;
            const cZdroje fast(cBodovyZdroj, points, {}, dust);
            EXPECT_EQ(fast.NazevZdroje(), decodeCodePage(name));
            EXPECT_EQ(fast.LineDust(), "000000000," + decodeCodePage(dust));
        }
    }
    EXPECT_EQ(cZdroje(cBodovyZdroj, PlainPoints(), {}, std::nullopt).LineDust(), "000000000,0,0,0");
}

}  // namespace
}  // namespace korvex
