// What was saved, loaded and saved again has the same bytes: for all types, hostile names and any numbers.
#include "failing_file_calls.h"

#include "loader.h"
#include "saver.h"
#include "source_rows.h"
#include "source_set.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <bit>
#include <cmath>
#include <cstddef>
#include <cstdint>
#include <random>
#include <string>
#include <string_view>
#include <vector>

namespace korvex {
namespace {

class RoundTrip : public testing::Test {
protected:
    std::size_t below(std::size_t limit) { return std::uniform_int_distribution<std::size_t>(0, limit - 1)(m_random); }

    std::int32_t anyInteger() { return static_cast<std::int32_t>(static_cast<std::uint32_t>(m_random())); }

    /// A number whose text has nine characters: the only width at which the dust file's records can be taken apart.
    std::int32_t nineDigitNumber() { return static_cast<std::int32_t>(below(1'000'000'000)); }

    /// Half of them as somebody would type them, the others any bits at all.
    float anyReal()
    {
        if (below(2) == 0)
            return static_cast<float>(below(10'000'000)) / std::pow(10.0F, static_cast<float>(below(8)));
        for (;;) {
            const auto value = std::bit_cast<float>(static_cast<std::uint32_t>(m_random()));
            // Rounded to seven digits, the largest reals would be beyond the range.
            if (std::isfinite(value) && std::abs(value) < 3.4E38F)
                return value;
        }
    }

    /// Any character that the code page has, and some that it has not.
    std::string anyText(std::string_view forbidden)
    {
        static const std::vector<std::string> pieces{"a", "Z", " ", "\t", ",", ",,", ";", "\"", "'", "0", "12", "-",
            ".", "\r", std::string(1, '\0'), "\x7F", "č", "Ř", "€", "\u00A0", "\u0081", "\u0098", "˙", "Ω", "日", "𝄞",
            "\xFF", "\xC3", ";SOUBOR S BODY", "E+05"};
        std::string text;
        for (std::size_t length = below(12); length > 0; --length) {
            const std::string& piece = pieces[below(pieces.size())];
            if (piece.find_first_of(forbidden) == std::string::npos)
                text += piece;
        }
        return text;
    }

    const SourceType& anyType()
    {
        constexpr std::array<const SourceType*, 3> types{&cBodovyZdroj, &cPlosnyZdroj, &cLiniovyZdroj};
        return *types.at(below(types.size()));
    }

    void addAnySource(SourceSet& set)
    {
        const SourceType& type = anyType();
        // Areas and lines write no dust, so their numbers may be of any width.
        const std::int32_t number = type.hasDust ? nineDigitNumber() : anyInteger();
        std::string record = std::to_string(number);
        for (int i = 0; i < 3; ++i)
            record += ", " + std::to_string(anyInteger());
        record += ", 0";
        for (int i = 0; i < 2; ++i)
            record += ", " + std::to_string(anyInteger());
        // A semicolon ends the name, so none can be read into it.
        set.addFromRecords(type, record + " ;" + anyText(";"), "");
        for (std::int32_t i = 0; i < type.parameterCount; ++i)
            set.last().Parameters(i, anyReal());
        if (below(3) > 0)
            set.last().LineDust(anyText(""));
    }

    /// Saves into the three files of the folder; returns their bytes one behind the other.
    std::string save(SourceSet& set, const std::string& comment)
    {
        SaveRequest request;
        request.files = m_files;
        request.comment = comment;
        SourceRows rows;
        rows.refill(set.size());
        test::RecordingListener listener;
        const Result<SaveReport> saved = saveSourceSet(request, set, rows, listener);
        EXPECT_TRUE(saved.ok());
        return test::bytesOf(m_files.points) + '\f' + test::bytesOf(m_files.description) + '\f'
            + test::bytesOf(m_files.dust);
    }

    /// Returns the comment.
    std::string load(SourceSet& set)
    {
        LoadRequest request;
        request.files = m_files;
        LoadReport report;
        test::RecordingListener listener;
        const Result<void> loaded = loadSourceSet(request, set, report, listener);
        EXPECT_TRUE(loaded.ok()) << loaded.error().message() << " line " << loaded.error().line;
        EXPECT_TRUE(report.missingDescription.empty());
        EXPECT_TRUE(report.missingDust.empty());
        EXPECT_TRUE(report.unknownType.empty());
        return report.comment.value_or("");
    }

    std::mt19937 m_random{731};
    test::TemporaryFolder m_folder;
    SourceFiles m_files{m_folder.path("body.txt"), m_folder.path("popis.txt"), m_folder.path("prach.txt")};
};

TEST_F(RoundTrip, SaveLoadSaveGivesIdenticalBytes)
{
    constexpr int rounds = 60;
    for (int round = 0; round < rounds; ++round) {
        SCOPED_TRACE(round);
        SourceSet set;
        const std::size_t count = below(200);
        for (std::size_t i = 0; i < count; ++i)
            addAnySource(set);
        const std::string comment = round % 3 == 0 ? "" : anyText("");
        const std::string first = save(set, comment);

        SourceSet loaded;
        const std::string loadedComment = load(loaded);
        ASSERT_EQ(loaded.size(), set.size());
        ASSERT_TRUE(save(loaded, loadedComment) == first);
    }
}

TEST_F(RoundTrip, ValuesSurviveSavingAndLoading)
{
    SourceSet set;
    for (int i = 0; i < 2000; ++i)
        addAnySource(set);
    save(set, "Soupis");
    SourceSet loaded;
    EXPECT_EQ(load(loaded), "Soupis");
    ASSERT_EQ(loaded.size(), set.size());
    for (std::size_t position = 1; position <= set.size(); ++position) {
        const cZdroje& before = set.at(position);
        const cZdroje& after = loaded.at(position);
        ASSERT_EQ(after.TypZdrojeId(), before.TypZdrojeId());
        ASSERT_EQ(after.ICZ(), before.ICZ());
        ASSERT_EQ(after.X(), before.X());
        ASSERT_EQ(after.Y(), before.Y());
        for (std::int32_t i = 0; i < before.type().parameterCount; ++i) {
            // Seven digits are written: what needs more is rounded by half a unit of the seventh.
            const float value = before.Parameters(i);
            const float allowed = std::max(std::abs(value) * 6E-7F, 2E-45F);
            ASSERT_NEAR(after.Parameters(i), value, allowed);
        }
    }
}

TEST_F(RoundTrip, DustOfANumberOfTenCharactersGrowsByAComma)
{
    // The dust begins at a fixed column, made for numbers of nine digits: the comma behind a longer one counts as dust.
    for (const std::string_view number : {"1000000000", "-000000001"}) {
        SourceSet set;
        set.addFromRecords(cBodovyZdroj, std::string(number) + ", 0, 0, 0, 1, 0, 0 ;a", "");
        save(set, "");
        EXPECT_EQ(test::bytesOf(m_files.dust), std::string(number) + ",0,0,0\r\n");
        SourceSet loaded;
        load(loaded);
        save(loaded, "");
        EXPECT_EQ(test::bytesOf(m_files.dust), std::string(number) + ",,0,0,0\r\n");
    }
}

}  // namespace
}  // namespace korvex
