// The example inventory is what its description says it is, and saving it changes nothing but the paths in the headers.
#include "failing_file_calls.h"

#include "code_page.h"
#include "duplicate_check.h"
#include "fields.h"
#include "loader.h"
#include "number_text.h"
#include "saver.h"
#include "source_rows.h"
#include "source_set.h"

#include <gtest/gtest.h>

#include <cmath>
#include <cstddef>
#include <cstdint>
#include <map>
#include <string>
#include <string_view>

namespace korvex {
namespace {

const std::string exampleFolder = KORVEX_SOURCE_DIR "/examples";

class ExampleInventory : public testing::Test {
protected:
    void SetUp() override
    {
        LoadRequest request;
        request.files = {exampleFolder + "/body.txt", exampleFolder + "/popis.txt", exampleFolder + "/prach.txt"};
        const Result<void> loaded = loadSourceSet(request, set, report, listener);
        ASSERT_TRUE(loaded.ok()) << loaded.error().message();
        rows.refill(set.size());
    }

    SourceSet set;
    SourceRows rows;
    LoadReport report;
    test::RecordingListener listener;
};

TEST_F(ExampleInventory, LoadsWithoutAnyReport)
{
    EXPECT_TRUE(report.missingDescription.empty());
    EXPECT_TRUE(report.missingDust.empty());
    EXPECT_TRUE(report.unknownType.empty());
    EXPECT_EQ(report.comment, "Brloždín nad Hůlavou – cvičný soupis zdrojů tuhých znečišťujících látek, rok 2026");
}

TEST_F(ExampleInventory, HasThreeStacksOneAreaAndTwelveSegments)
{
    std::map<std::int32_t, int> counts;
    for (std::size_t position = 1; position <= set.size(); ++position)
        ++counts[set.at(position).TypZdrojeId()];
    EXPECT_EQ(counts, (std::map<std::int32_t, int>{{1, 3}, {2, 1}, {3, 12}}));
}

TEST_F(ExampleInventory, HasNoDuplicates)
{
    EXPECT_EQ(markDuplicates(set, rows), 0U);
}

TEST_F(ExampleInventory, SavingChangesNothingButThePathsInTheHeaders)
{
    const test::TemporaryFolder folder;
    SaveRequest request;
    request.files = {folder.path("body.txt"), folder.path("popis.txt"), folder.path("prach.txt")};
    request.comment = report.comment.value_or("");
    listener.clear();
    const Result<SaveReport> saved = saveSourceSet(request, set, rows, listener);
    ASSERT_TRUE(saved.ok());
    EXPECT_TRUE(saved.value().replacedIn.empty());
    EXPECT_FALSE(saved.value().replacedInHeader);
    const std::string folderBytes = encodeCodePage(folder.path()) + '/';
    for (const std::string_view name : {"body.txt", "popis.txt", "prach.txt"}) {
        std::string bytes = folder.bytes(name);
        int paths = 0;
        for (std::size_t at = 0; (at = bytes.find(folderBytes, at)) != std::string::npos; ++paths)
            bytes.erase(at, folderBytes.size());
        EXPECT_EQ(paths, 2) << name;
        EXPECT_EQ(bytes, test::bytesOf(exampleFolder + "/" + std::string(name))) << name;
    }
}

TEST_F(ExampleInventory, FlueGasVolumesBelongToTheNormalPressure)
{
    constexpr double pi = 3.1415926535;
    constexpr double zeroCelsius = 273.15;       // K
    constexpr double normalPressure = 101325.0;  // Pa
    constexpr double pressure = 101325.0;        // Pa
    int stacks = 0;
    for (std::size_t position = 1; position <= set.size(); ++position) {
        const cZdroje& source = set.at(position);
        if (source.TypZdrojeId() != cBodovyZdroj.TypZdrojeId)
            continue;
        ++stacks;
        const double volume = source.Parameters(2);
        const double temperature = source.Parameters(3);
        const double diameter = source.Parameters(4);
        const double velocity = source.Parameters(5);
        const double expected = pi * diameter * diameter / 4.0 * velocity * (zeroCelsius / (temperature + zeroCelsius))
            * (pressure / normalPressure);
        ASSERT_GT(expected, 0.0);
        const double seventhDigit = std::pow(10.0, std::floor(std::log10(expected)) - 6.0);
        EXPECT_NEAR(volume, expected, seventhDigit) << source.NazevZdroje();
    }
    EXPECT_EQ(stacks, 3);
}

TEST_F(ExampleInventory, SegmentsStandAtTheirMidpoints)
{
    int segments = 0;
    for (std::size_t position = 1; position <= set.size(); ++position) {
        const cZdroje& source = set.at(position);
        if (source.TypZdrojeId() != cLiniovyZdroj.TypZdrojeId)
            continue;
        ++segments;
        const auto middle = [&source](std::int32_t first, std::int32_t second) {
            const double sum = static_cast<double>(source.Parameters(first)) + source.Parameters(second);
            return static_cast<std::int32_t>(std::nearbyint(sum / 2.0));
        };
        EXPECT_EQ(source.X(), middle(1, 3)) << source.NazevZdroje();
        EXPECT_EQ(source.Y(), middle(2, 4)) << source.NazevZdroje();
    }
    EXPECT_EQ(segments, 12);
}

TEST_F(ExampleInventory, SegmentsOfTheMainRoadFollowOneAnother)
{
    for (std::size_t position = 6; position <= 12; ++position) {
        EXPECT_EQ(set.at(position).Parameters(1), set.at(position - 1).Parameters(3)) << position;
        EXPECT_EQ(set.at(position).Parameters(2), set.at(position - 1).Parameters(4)) << position;
    }
}

TEST_F(ExampleInventory, SharesOfParticlesGivenByHandSumToOne)
{
    int described = 0;
    for (std::size_t position = 1; position <= set.size(); ++position) {
        // Number, density, group, and for group 0 the count and a diameter and a share for each particle.
        const std::string record = set.at(position).LineDust();
        Fields fields(record, ',');
        fields.next();
        const bool hasDensity = readReal(fields.next()) > 0;
        if (!hasDensity || readInteger(fields.next()) != 0)
            continue;
        ++described;
        const std::int32_t count = readInteger(fields.next());
        EXPECT_GT(count, 0);
        double sum = 0;
        for (std::int32_t i = 0; i < count; ++i) {
            EXPECT_GT(readReal(fields.next()), 0.0);
            sum += readReal(fields.next());
        }
        EXPECT_NEAR(sum, 1.0, 1E-9) << record;
        EXPECT_EQ(fields.next(), "") << "no particle beyond the count";
    }
    EXPECT_EQ(described, 1);
}

}  // namespace
}  // namespace korvex
